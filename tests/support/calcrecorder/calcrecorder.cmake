# Included by the test ${name} (see tests/CMakeLists.txt): its executable defines and exports the
# CalcAlgorithm functions, so the dynamic linker binds MarkRule's calls to this recording double.
target_sources(${name} PRIVATE ${CMAKE_CURRENT_LIST_DIR}/calcrecorder.cpp ${CMAKE_CURRENT_LIST_DIR}/calcrecorder.h)
target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_LIST_DIR})
target_link_libraries(${name} PRIVATE CalcAlgorithm) # still loaded as MarkRule's, and for Q3DCoord
set_target_properties(${name} PROPERTIES ENABLE_EXPORTS ON)
