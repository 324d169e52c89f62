# The stand-in itself, called directly.
target_link_libraries(tst_markpublic PRIVATE MarkPublic)
