# Numbering labels come from MarkPublic.
target_link_libraries(tst_ratingitem_sked PRIVATE MarkPublic)
