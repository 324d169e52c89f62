#include "jsonreader.h"

#include <QJsonDocument>
#include <QJsonParseError>

#include <cmath>

namespace Host {

bool JsonReader::parse(const QByteArray& bytes, QJsonObject& root) {
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        // Line and column of the offset, counted in characters of the UTF-8 text before it.
        const QString before = QString::fromUtf8(bytes.left(parseError.offset));
        const int line = before.count(QLatin1Char('\n')) + 1;
        const int column = before.size() - before.lastIndexOf(QLatin1Char('\n'));
        failWith(QStringLiteral("$"), QStringLiteral("expected a JSON document, but %1 at line %2, column %3")
                                          .arg(parseError.errorString())
                                          .arg(line)
                                          .arg(column));
        return false;
    }
    if (!document.isObject()) {
        fail(QStringLiteral("$"), QStringLiteral("an object"),
             document.isArray() ? QJsonValue(document.array()) : QJsonValue());
        return false;
    }
    root = document.object();
    return true;
}

void JsonReader::fail(const QString& path, const QString& expected, const QJsonValue& found) {
    failWith(path, QStringLiteral("expected %1, found %2").arg(expected, describe(found)));
}

void JsonReader::failWith(const QString& path, const QString& message) {
    if (m_error.isSet())
        return;
    m_error.path = path;
    m_error.message = message;
}

bool JsonReader::checkKeys(const QJsonObject& object, const QString& path,
                           std::initializer_list<const char*> allowed) {
    // Keys are distinct, so when each one found is allowed, as many allowed ones are found as there
    // are keys; counting needs no key text made, which is most of the cost on large files.
    int found = 0;
    for (const char* key : allowed)
        found += object.contains(QLatin1String(key)) ? 1 : 0;
    if (found == object.size())
        return true;
    for (auto it = object.constBegin(); it != object.constEnd(); ++it) {
        bool known = false;
        for (const char* key : allowed)
            known = known || it.key() == QLatin1String(key);
        if (!known) {
            QStringList names;
            for (const char* key : allowed)
                names << QLatin1String(key);
            failWith(path + QLatin1Char('.') + it.key(),
                     QStringLiteral("unknown key; expected one of %1").arg(names.join(QStringLiteral(", "))));
            return false;
        }
    }
    return true;
}

bool JsonReader::has(const QJsonObject& object, const char* key) const {
    return object.contains(QLatin1String(key));
}

QString JsonReader::text(const QJsonObject& object, const QString& path, const char* key, bool required,
                         const QString& fallback) {
    const QJsonValue value = object.value(QLatin1String(key));
    if (value.isUndefined() && !required)
        return fallback;
    if (!value.isString()) {
        fail(member(path, key), QStringLiteral("a text"), value);
        return fallback;
    }
    return value.toString();
}

QString JsonReader::textOrNumber(const QJsonObject& object, const QString& path, const char* key) {
    const QJsonValue value = object.value(QLatin1String(key));
    if (value.isUndefined())
        return QString();
    if (value.isDouble())
        return QString::number(value.toDouble(), 'g', 15);
    if (!value.isString()) {
        fail(member(path, key), QStringLiteral("a text or a number"), value);
        return QString();
    }
    return value.toString();
}

double JsonReader::number(const QJsonObject& object, const QString& path, const char* key, bool required,
                          double fallback, double minimum, double maximum) {
    const QJsonValue value = object.value(QLatin1String(key));
    if (value.isUndefined() && !required)
        return fallback;
    // Infinite values cannot come from the text of a document, but a literal too large for a double
    // reads as one; the range check refuses both.
    const double number = value.toDouble();
    if (!value.isDouble() || !std::isfinite(number) || number < minimum || number > maximum) {
        fail(member(path, key),
             QStringLiteral("a number from %1 to %2").arg(minimum).arg(maximum, 0, 'g', 15), value);
        return fallback;
    }
    return number;
}

bool JsonReader::readInteger(const QJsonValue& value, const QString& path, int minimum, int maximum,
                             const QString& what, int& out) {
    const double number = value.toDouble();
    if (!value.isDouble() || std::floor(number) != number || number < minimum || number > maximum) {
        QString expected = what.isEmpty() ? QStringLiteral("a whole number") : what;
        if (what.isEmpty() && minimum != std::numeric_limits<int>::min()) {
            expected += maximum == std::numeric_limits<int>::max()
                            ? QStringLiteral(" of at least %1").arg(minimum)
                            : QStringLiteral(" from %1 to %2").arg(minimum).arg(maximum);
        }
        fail(path, expected, value);
        return false;
    }
    out = static_cast<int>(number);
    return true;
}

int JsonReader::integer(const QJsonObject& object, const QString& path, const char* key, bool required,
                        int fallback, int minimum, int maximum, const QString& what) {
    const QJsonValue value = object.value(QLatin1String(key));
    if (value.isUndefined() && !required)
        return fallback;
    int out = fallback;
    if (!readInteger(value, member(path, key), minimum, maximum, what, out))
        return fallback;
    return out;
}

bool JsonReader::boolean(const QJsonObject& object, const QString& path, const char* key, bool fallback) {
    const QJsonValue value = object.value(QLatin1String(key));
    if (value.isUndefined())
        return fallback;
    if (!value.isBool()) {
        fail(member(path, key), QStringLiteral("true or false"), value);
        return fallback;
    }
    return value.toBool();
}

QJsonObject JsonReader::object(const QJsonObject& object, const QString& path, const char* key,
                               bool required) {
    const QJsonValue value = object.value(QLatin1String(key));
    if (value.isUndefined() && !required)
        return QJsonObject();
    if (!value.isObject()) {
        fail(member(path, key), QStringLiteral("an object"), value);
        return QJsonObject();
    }
    return value.toObject();
}

QJsonArray JsonReader::array(const QJsonObject& object, const QString& path, const char* key, bool required) {
    const QJsonValue value = object.value(QLatin1String(key));
    if (value.isUndefined() && !required)
        return QJsonArray();
    if (!value.isArray()) {
        fail(member(path, key), QStringLiteral("an array"), value);
        return QJsonArray();
    }
    return value.toArray();
}

QJsonObject JsonReader::objectAt(const QJsonArray& array, int index, const QString& path) {
    const QJsonValue value = array.at(index);
    if (!value.isObject()) {
        fail(element(path, index), QStringLiteral("an object"), value);
        return QJsonObject();
    }
    return value.toObject();
}

QStringList JsonReader::textList(const QJsonObject& object, const QString& path, const char* key) {
    const QJsonArray values = array(object, path, key, false);
    QStringList out;
    const QString listPath = member(path, key);
    for (int i = 0; i < values.size() && ok(); ++i) {
        if (!values.at(i).isString())
            fail(element(listPath, i), QStringLiteral("a text"), values.at(i));
        out << values.at(i).toString();
    }
    return out;
}

QString JsonReader::member(const QString& path, const char* key) {
    return path + QLatin1Char('.') + QLatin1String(key);
}

QString JsonReader::element(const QString& path, int index) {
    return path + QLatin1Char('[') + QString::number(index) + QLatin1Char(']');
}

QString JsonReader::describe(const QJsonValue& value) {
    switch (value.type()) {
    case QJsonValue::Undefined:
        return QStringLiteral("nothing");
    case QJsonValue::Null:
        return QStringLiteral("null");
    case QJsonValue::Bool:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QJsonValue::Double:
        return QString::number(value.toDouble(), 'g', 15);
    case QJsonValue::String: {
        QString text = value.toString();
        if (text.size() > 40)
            text = text.left(40) + QStringLiteral("…");
        return QLatin1Char('"') + text + QLatin1Char('"');
    }
    case QJsonValue::Array:
        return QStringLiteral("an array");
    case QJsonValue::Object:
        return QStringLiteral("an object");
    }
    return QString();
}

} // namespace Host
