# Substitutes the recording CalcAlgorithm double for the stand-in in one test executable. The
# executable defines the CalcAlgorithm functions itself and exports them (ENABLE_EXPORTS gives
# --export-dynamic), so the dynamic linker binds MarkRule's calls to the executable's definitions,
# which come first in the lookup order, although libCalcAlgorithm is still loaded as MarkRule's
# dependency. The executable still links the stand-in for Q3DCoord, its one class, whose type
# information sanitizer builds need. Each such test checks in initTestCase that the substitution took
# place.
include_guard(GLOBAL)
set(MARKRULE_CALC_RECORDER_DIR ${CMAKE_CURRENT_LIST_DIR})

function(markrule_use_calc_recorder target)
    target_sources(${target} PRIVATE ${MARKRULE_CALC_RECORDER_DIR}/calcrecorder.cpp
        ${MARKRULE_CALC_RECORDER_DIR}/calcrecorder.h)
    target_include_directories(${target} PRIVATE ${MARKRULE_CALC_RECORDER_DIR})
    target_link_libraries(${target} PRIVATE CalcAlgorithm)
    set_target_properties(${target} PROPERTIES ENABLE_EXPORTS ON)
endfunction()
