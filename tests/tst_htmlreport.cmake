find_package(Qt5 5.15 REQUIRED COMPONENTS Xml)
target_link_libraries(${name} PRIVATE MarkGradeCore Qt5::Xml)
