find_package(Qt5 5.15 REQUIRED COMPONENTS Gui)
target_link_libraries(${name} PRIVATE MarkGradeCore Qt5::Gui)
# Several headless browsers render and print the sample report.
set_tests_properties(${name} PROPERTIES TIMEOUT 900)
