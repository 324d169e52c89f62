// Builds the library's rating-item tree of a pricing or building-model file through the product's
// item factory.
#ifndef TREEBUILDER_H
#define TREEBUILDER_H

#include "projectmodel.h"

class QRatingItemBase;

namespace Host {

// The root of a new tree for the file's product, owning its subtree; null when the factory gives
// no item for the product (nothing is left behind then). The caller owns the root.
QRatingItemBase* buildRatingTree(const ProjectFile& file);

// Gives the standard tree its full marks the way the product's items read them: pricing items take
// standard scores (redistributed down the tree), model items the score of each standard item.
void assignFullMarks(QRatingItemBase* standardRoot, int product, double fullMarks);

} // namespace Host

#endif // TREEBUILDER_H
