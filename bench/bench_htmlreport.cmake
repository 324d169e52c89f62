target_link_libraries(${name} PRIVATE MarkGradeCore)
