target_sources(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/schedulegen.h ${CMAKE_CURRENT_SOURCE_DIR}/schedulegen.cpp)
target_link_libraries(${name} PRIVATE MarkGradeCore)
markgrade_use_jemalloc(${name}) # the allocator markgrade runs with, for the floor too
