target_sources(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/schedulegen.h ${CMAKE_CURRENT_SOURCE_DIR}/schedulegen.cpp)
target_link_libraries(${name} PRIVATE MarkGradeCore)
