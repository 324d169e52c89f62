# The stored record fixtures are read from the source tree.
target_compile_definitions(${name} PRIVATE MARKRULE_RECORDS_DIR="${CMAKE_CURRENT_SOURCE_DIR}/data/records")
