// What the report formats share: how marks are shown and how control characters from a file are
// kept off a terminal.
#ifndef REPORT_H
#define REPORT_H

#include <QString>

namespace Grade {

// Marks as the text report shows them: two decimals.
QString marksText(double marks);

// The text with its control characters (C0, DEL, C1; ESC among them) shown as escapes such as \x1b,
// so that names and remarks read from a file cannot move the cursor, colour or clear a terminal.
QString escapeControls(const QString& text);

} // namespace Grade

#endif // REPORT_H
