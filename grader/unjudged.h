// Criteria that the standard answer cannot judge: a curve group for which the standard has no
// resource data gives every candidate nothing to be compared with. Such a criterion is locked at 0
// on the standard's side and its marks are shared among the other criteria of its category, and the
// report names it as not judged, with the reason.
#ifndef UNJUDGED_H
#define UNJUDGED_H

#include "graderesult.h"

#include <QHash>
#include <QString>

class QRatingItemVirtual;

namespace Grade {

// Locks the standard's criteria without data below root, whose full marks are full, and shares the
// marks again. Returns the reason for each locked criterion, by name.
QHash<QString, QString> lockUnjudgeable(QRatingItemVirtual* standardRoot, double full);

// Marks the criteria of a copied tree that were locked as not judged, with their reason as note.
void markUnjudged(ScoredNode& tree, const QHash<QString, QString>& reasons);

} // namespace Grade

#endif // UNJUDGED_H
