// A recording double of the CalcAlgorithm scoring functions. Linked into a test executable that exports
// its symbols, its definitions take the place of the stand-in library's for every caller, MarkRule
// included. Each call is recorded with its arguments in order; the result comes from a responder the
// test sets, and functions that take a remark may write one. Double2String stays the stand-in's.
#ifndef CALCRECORDER_H
#define CALCRECORDER_H

#include "calcalgorithm.h"

#include <QVariantList>

#include <functional>

struct CalcCall {
    QString function; // "CAL_Contrast", "CAL_Interval", ...
    // Arguments in order: numbers as double, texts as QString, flags as bool, a segment table as a
    // list of (x, y, z) lists, and last the remark as the caller passed it, where there is one.
    QVariantList args;
};

namespace CalcRecorder {

inline QList<CalcCall> calls;
// What the CAL_ functions return; when unset, the points (third argument).
inline std::function<double(const CalcCall&)> respond;
// Written into the remark by the functions that take one; a null text leaves the remark alone.
inline QString remark;

inline void reset() {
    calls.clear();
    respond = nullptr;
    remark = QString();
}

} // namespace CalcRecorder

#endif // CALCRECORDER_H
