target_link_libraries(${name} PRIVATE MarkGradeCore)
add_dependencies(${name} markgrade)
target_compile_definitions(${name} PRIVATE MARKGRADE_PATH="$<TARGET_FILE:markgrade>")
