// What the report formats share: how marks are shown.
#ifndef REPORT_H
#define REPORT_H

#include <QString>

namespace Grade {

// Marks as the text report shows them: two decimals.
QString marksText(double marks);

} // namespace Grade

#endif // REPORT_H
