#include "report.h"

namespace Grade {

QString marksText(double marks) {
    return QString::number(marks, 'f', 2);
}

} // namespace Grade
