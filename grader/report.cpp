#include "report.h"

#include <algorithm>

namespace Grade {

namespace {

bool isControl(QChar c) {
    const ushort code = c.unicode();
    return code < 0x20 || (code >= 0x7f && code < 0xa0);
}

} // namespace

QString marksText(double marks) {
    return QString::number(marks, 'f', 2);
}

QString escapeControls(const QString& text) {
    if (std::none_of(text.cbegin(), text.cend(), isControl))
        return text;
    QString escaped;
    escaped.reserve(text.size() + 8);
    for (const QChar c : text) {
        if (isControl(c))
            escaped += QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'));
        else
            escaped += c;
    }
    return escaped;
}

} // namespace Grade
