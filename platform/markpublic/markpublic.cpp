#include "markpublic.h"

namespace {

const QString& digits() {
    static const QString text = QStringLiteral("零一二三四五六七八九");
    return text;
}

const QString& units() {
    // ones, tens, hundreds, thousands, ten-thousands
    static const QString text = QStringLiteral(" 十百千万");
    return text;
}

// 1..99999 in Chinese numerals; "一十" is written "十" at the start of the number.
QString chineseNumeral(int number) {
    QString text;
    bool pendingZero = false;
    for (int position = 4; position >= 0; --position) {
        int scale = 1;
        for (int i = 0; i < position; ++i)
            scale *= 10;
        const int digit = (number / scale) % 10;
        if (digit == 0) {
            if (!text.isEmpty())
                pendingZero = true;
            continue;
        }
        if (pendingZero) {
            text += digits().at(0);
            pendingZero = false;
        }
        if (!(digit == 1 && position == 1 && text.isEmpty()))
            text += digits().at(digit);
        if (position > 0)
            text += units().at(position);
    }
    return text;
}

} // namespace

QString ConvertIntToUString(const int& number) {
    if (number == 0)
        return digits().left(1);
    if (number < -99999 || number > 99999)
        return QString::number(number);
    if (number < 0)
        return QStringLiteral("负") + chineseNumeral(-number);
    return chineseNumeral(number);
}

QString ConvertIntToTString(const int& number) {
    if (number >= 1 && number <= 20)
        return QString(QChar(0x2460 + number - 1));
    if (number >= 21 && number <= 35)
        return QString(QChar(0x3251 + number - 21));
    if (number >= 36 && number <= 50)
        return QString(QChar(0x32B1 + number - 36));
    return QStringLiteral("(%1)").arg(number);
}
