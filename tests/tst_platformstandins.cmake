# The stand-ins are tested directly, not through MarkRule.
target_link_libraries(${name} PRIVATE CalcAlgorithm MarkPublic)
