include(${CMAKE_CURRENT_SOURCE_DIR}/support/calcrecorder/calcrecorder.cmake)
