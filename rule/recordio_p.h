// The record toolkit: every record reader and writer of the library goes through it. Each record
// class lists its fields once (a Fields table bound to the object), and that table drives both JSON
// directions and the stream reader and writer. Records come from the host and may be truncated or
// hostile: readers stop at the first failed read, never size anything from a count read off the
// stream, and refuse absurd nesting.
#ifndef RECORDIO_P_H
#define RECORDIO_P_H

#include <QDataStream>
#include <QJsonObject>
#include <QString>
#include <QVariant>

#include <vector>

namespace RecordIO {

// Deepest tree (levels of items) that a record may hold. Each level takes two JSON nesting levels
// (an object and its "items" array), so any accepted tree also fits Qt's JSON limit of 1024.
constexpr int kMaxDepth = 511;

// A child count in a stream record: a 32-bit integer.
constexpr qint64 kCountBytes = 4;

// Counts the nesting of record readers and writers on this thread. A guard constructed deeper than
// kMaxDepth is not ok(); the record it protects must then be refused.
class DepthGuard {
public:
    DepthGuard();
    ~DepthGuard();
    DepthGuard(const DepthGuard&) = delete;
    DepthGuard& operator=(const DepthGuard&) = delete;
    bool ok() const { return m_ok; }
    // Whether a record nested one level below this one would still be accepted.
    bool canNest() const;

private:
    bool m_ok;
};

// Whether a record at the guard's level may be read or written; past the limit the stream is marked
// (ReadCorruptData or WriteFailed) and false returned.
bool admit(const DepthGuard& guard, QDataStream& stream, bool read);

// True while the stream can still be read or written.
inline bool good(const QDataStream& stream) {
    return stream.status() == QDataStream::Ok;
}

// Marks the stream corrupt (reading) and returns false, for one-line refusals.
bool refuse(QDataStream& stream);

// Reads an element count and checks it against what the rest of the device could hold at
// minBytesPerElement each. A negative or impossible count marks the stream ReadCorruptData.
bool readCount(QDataStream& stream, qint32& count, qint64 minBytesPerElement);

// Attribute data travels in both JSON and stream records, so it goes through an allow-list of the
// types a JSON value converts to: invalid, null (std::nullptr_t), bool, 32/64-bit integers, double,
// string, string list, and lists and maps of these nested at most kMaxDepth deep. The encoding is
// Qt's own QVariant encoding of those types. Anything else is refused: the reader marks the stream
// ReadCorruptData, the writer marks it WriteFailed and writes nothing. Encodings older than Qt 5.0
// have no null type; there a null is written as an invalid variant.
void readVariant(QDataStream& stream, QVariant& value);
void writeVariant(QDataStream& stream, const QVariant& value);
bool isStorableVariant(const QVariant& value);

// JSON fields whose value has the wrong type read as missing: 0, false or the empty text.
int jsonInt(const QJsonObject& object, const QString& key);
double jsonDouble(const QJsonObject& object, const QString& key);
bool jsonBool(const QJsonObject& object, const QString& key);
QString jsonString(const QJsonObject& object, const QString& key);

// One field of a record, bound to the member it is read into and written from. The key names it in
// the JSON record; a null key keeps it out of JSON (a field of the stream record only).
class Field {
public:
    Field(const char* key, int& target) : m_key(key), m_type(Int), m_target(&target) {}
    Field(const char* key, double& target) : m_key(key), m_type(Double), m_target(&target) {}
    Field(const char* key, bool& target) : m_key(key), m_type(Bool), m_target(&target) {}
    Field(const char* key, QString& target) : m_key(key), m_type(String), m_target(&target) {}
    // JSON: any value, through Qt's JSON and variant conversions; stream: an allow-listed variant.
    Field(const char* key, QVariant& target) : m_key(key), m_type(Variant), m_target(&target) {}

    void writeJson(QJsonObject& object) const;
    void readJson(const QJsonObject& object) const;
    void write(QDataStream& stream) const;
    // Reads into a temporary and stores it only when the read succeeded.
    bool read(QDataStream& stream) const;
    // The fewest bytes the field takes in a stream record (doubles at single precision).
    qint64 minimumBytes() const;

private:
    enum Type { Int, Double, Bool, String, Variant };
    template <class T> T& target() const { return *static_cast<T*>(m_target); }

    const char* m_key;
    Type m_type;
    void* m_target;
};

// The fields of one record, in stream order (JSON objects keep their keys sorted, so order does not
// matter there). Every reader and writer of a record goes through its class's table.
class Fields : public std::vector<Field> {
public:
    using std::vector<Field>::vector;

    // JSON: a missing or mistyped key reads as 0, false, the empty text or a null variant.
    void serialize(QJsonObject& object, bool read) const;
    // Stream: writing writes every field; reading reads them in order and stops at the first failed
    // read, so the fields before it hold what the record said and the rest keep their values. True
    // while the stream is good.
    bool serialize(QDataStream& stream, bool read) const;
    // The smallest stream record of these fields, for checking a child count against the bytes left.
    qint64 minimumBytes() const;
};

} // namespace RecordIO

#endif // RECORDIO_P_H
