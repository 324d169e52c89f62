#include "colours.h"

#include <QRegularExpression>
#include <QStringList>

namespace Host {

namespace {

QString rgb(int r, int g, int b) {
    return QStringLiteral("%1,%2,%3").arg(r).arg(g).arg(b);
}

} // namespace

QString normalisedColour(const QString& text) {
    const QString trimmed = text.trimmed();
    static const QRegularExpression hex(QStringLiteral("^#([0-9a-fA-F]{3}|[0-9a-fA-F]{6})$"));
    static const QRegularExpression triple(
        QStringLiteral("^(\\d{1,3})\\s*,\\s*(\\d{1,3})\\s*,\\s*(\\d{1,3})$"));
    const QRegularExpressionMatch hexMatch = hex.match(trimmed);
    if (hexMatch.hasMatch()) {
        QString digits = hexMatch.captured(1);
        if (digits.size() == 3) // #rgb is #rrggbb with each digit doubled
            digits = QString(digits[0]) + digits[0] + digits[1] + digits[1] + digits[2] + digits[2];
        const uint value = digits.toUInt(nullptr, 16);
        return rgb(int(value >> 16), int((value >> 8) & 0xff), int(value & 0xff));
    }
    const QRegularExpressionMatch tripleMatch = triple.match(trimmed);
    if (tripleMatch.hasMatch()) {
        const int r = tripleMatch.captured(1).toInt(), g = tripleMatch.captured(2).toInt(),
                  b = tripleMatch.captured(3).toInt();
        if (r <= 255 && g <= 255 && b <= 255)
            return rgb(r, g, b);
    }
    return trimmed;
}

} // namespace Host
