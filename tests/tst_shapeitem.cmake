include(${CMAKE_CURRENT_SOURCE_DIR}/support/calcrecorder/calcrecorder.cmake)
markrule_use_calc_recorder(tst_shapeitem)
