// Copying a scored tree out of the library, each criterion beside its counterpart in the standard
// answer's tree, and the grader's own explanation of marks lost without a remark.
#ifndef SCOREDTREE_H
#define SCOREDTREE_H

#include "graderesult.h"

class QRatingItemVirtual;

namespace Grade {

// Copies the candidate's scored tree; standard (may be null) gives each criterion its standard
// value, pairing children by name in order. With twoThreads, a large root's children are copied in
// two halves at once (the library's items are only read).
ScoredNode copyTree(QRatingItemVirtual* root, QRatingItemVirtual* standard = nullptr,
                    bool twoThreads = false);

// Fills the note of every schedule criterion that lost marks with an empty remark: the rule that
// applied and the values it compared.
void explainLosses(ScoredNode& root);

} // namespace Grade

#endif // SCOREDTREE_H
