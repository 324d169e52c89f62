// A recording double of CalcAlgorithm. Linked into a test executable that exports its symbols, its
// definitions of the CalcAlgorithm functions take the place of the stand-in library's for every
// caller, MarkRule included. Each call is recorded with its arguments in order; the result comes
// from a responder the test sets, and functions that take a remark may write one.
#ifndef CALCRECORDER_H
#define CALCRECORDER_H

#include "calcalgorithm.h"

#include <QList>
#include <QString>
#include <QVariantList>

#include <functional>

struct CalcCall {
    QString function; // "CAL_Contrast", "CAL_Interval", ... or "Double2String"
    // Arguments in order: numbers as double, texts as QString, flags as bool, a segment table as a
    // list of (x, y, z) lists. The remark is not among them; see remarkIn.
    QVariantList args;
    bool hasRemark = false;
    QString remarkIn; // the remark as the caller passed it
};

namespace CalcRecorder {

QList<CalcCall>& calls();
// Forgets the calls and restores the defaults: the result is the points argument, no remark.
void reset();
// What the CAL_ functions return; the default returns the points (third argument).
void setResponder(std::function<double(const CalcCall&)> responder);
// Text written into the remark by the functions that take one; a null text leaves it alone.
void setRemark(const QString& remark);
// The text Double2String returns for (value, decimals).
QString double2StringText(double value, int decimals);
// True when MarkRule's own calls reach this double rather than the stand-in library.
bool substitutedInMarkRule();

} // namespace CalcRecorder

#endif // CALCRECORDER_H
