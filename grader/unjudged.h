// Criteria that the standard answer cannot judge: a curve group for which the standard has no
// resource data, a Gantt time unit or rows per page that the standard's file does not state (no
// scheduling tool's file does). Such a criterion is locked at 0 on the standard's side and its
// marks are shared among the other criteria of its category; the report names it as not judged,
// with the reason.
#ifndef UNJUDGED_H
#define UNJUDGED_H

#include "graderesult.h"
#include "projectmodel.h"

#include <QHash>
#include <QString>

class QRatingItemVirtual;

namespace Grade {

// The criteria below the standard category's root that the standard cannot judge, by attribute
// type, with the reason.
QHash<int, QString> unjudgeable(const Host::ScheduleProject& standard, QRatingItemVirtual* standardRoot);

// Locks those criteria at 0 below root, whose full marks are full, and shares the marks again.
// Returns the reason for each locked criterion, by name.
QHash<QString, QString> lockCriteria(QRatingItemVirtual* standardRoot, double full,
                                     const QHash<int, QString>& reasons);

// Marks the criteria of a copied tree that were locked as not judged, with their reason as note.
void markUnjudged(ScoredNode& tree, const QHash<QString, QString>& reasons);

} // namespace Grade

#endif // UNJUDGED_H
