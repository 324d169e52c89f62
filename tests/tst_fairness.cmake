target_link_libraries(${name} PRIVATE MarkGradeCore)
target_compile_definitions(${name} PRIVATE FORMAT_FIXTURES="${CMAKE_CURRENT_SOURCE_DIR}/data/formats")
