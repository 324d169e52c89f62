// Tables of the library that a host shows or matches against: the canonical resource names of the
// schedule product and the charts and variance curves they belong to, and the root names of the
// categories. They are the library's own tables, so a host that reads them here never keeps a copy.
#ifndef MARKRULETABLES_H
#define MARKRULETABLES_H

#include "markrule_global.h"

#include <QString>
#include <QStringList>

namespace MarkRuleTables {

// Canonical resource names of the schedule product: labour, then material, then machinery.
MARKRULE_EXPORT QStringList canonicalResourceNames();

// The canonical resource name of a resource text of a project (the normalisation of the schedule
// product's resources); a text the table does not list is its own name.
MARKRULE_EXPORT QString canonicalResourceName(const QString& text);

// The resource-curve chart that a canonical resource is drawn in; empty for any other name.
MARKRULE_EXPORT QString chartName(const QString& canonicalName);

// The variance curve of the network-plan rationality category that a canonical resource counts in
// (MarkCode::SkedLabourCurve to SkedFormworkCurve); 0 for machinery and any other name.
MARKRULE_EXPORT int varianceCurveType(const QString& canonicalName);

// The name of a category type's root criterion (MarkCode::CategoryType); empty for any other type.
MARKRULE_EXPORT QString categoryRootName(int categoryType);

} // namespace MarkRuleTables

#endif // MARKRULETABLES_H
