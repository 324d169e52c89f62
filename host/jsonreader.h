// Typed reading of a JSON document with precise errors: the first error is kept with the file, the
// JSON path of the offending value and what was expected. Later reads after an error return their
// defaults, so callers can read a whole structure and check ok() once at the end.
#ifndef JSONREADER_H
#define JSONREADER_H

#include "readerror.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <initializer_list>
#include <limits>

namespace Host {

class JsonReader {
public:
    explicit JsonReader(const QString& fileName) { m_error.file = fileName; }

    bool ok() const { return !m_error.isSet(); }
    const ReadError& error() const { return m_error; }

    // Parses a document whose top level must be an object.
    bool parse(const QByteArray& bytes, QJsonObject& root);

    // Records an error unless one is already recorded: "expected <expected>, found <found>".
    void fail(const QString& path, const QString& expected, const QJsonValue& found);
    // Records an error with a message of the caller's own.
    void failWith(const QString& path, const QString& message);

    // Every key of the object must be one of the allowed ones.
    bool checkKeys(const QJsonObject& object, const QString& path,
                   std::initializer_list<const char*> allowed);

    bool has(const QJsonObject& object, const char* key) const;
    QString text(const QJsonObject& object, const QString& path, const char* key, bool required,
                 const QString& fallback = QString());
    // A text, or a number written the shortest way.
    QString textOrNumber(const QJsonObject& object, const QString& path, const char* key);
    // Numbers are finite and within [minimum, maximum]; by default within ±largestNumber, far from
    // what sums and products of them can overflow.
    static constexpr double largestNumber = 1e12;
    double number(const QJsonObject& object, const QString& path, const char* key, bool required,
                  double fallback = 0.0, double minimum = -largestNumber, double maximum = largestNumber);
    int integer(const QJsonObject& object, const QString& path, const char* key, bool required,
                int fallback = 0, int minimum = std::numeric_limits<int>::min(),
                int maximum = std::numeric_limits<int>::max(), const QString& what = QString());
    bool boolean(const QJsonObject& object, const QString& path, const char* key, bool fallback = false);
    QJsonObject object(const QJsonObject& object, const QString& path, const char* key, bool required);
    QJsonArray array(const QJsonObject& object, const QString& path, const char* key, bool required);
    // An element of an array that must be an object.
    QJsonObject objectAt(const QJsonArray& array, int index, const QString& path);
    QStringList textList(const QJsonObject& object, const QString& path, const char* key);

    // A value of the document as a whole number within the bounds.
    bool readInteger(const QJsonValue& value, const QString& path, int minimum, int maximum,
                     const QString& what, int& out);

    static QString member(const QString& path, const char* key);
    static QString element(const QString& path, int index);
    // How a value looks in a message: nothing, null, true, 12.5, "text", an array, an object.
    static QString describe(const QJsonValue& value);

private:
    ReadError m_error;
};

} // namespace Host

#endif // JSONREADER_H
