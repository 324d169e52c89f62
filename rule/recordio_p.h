// Internal helpers shared by every record reader and writer of the library. Records come from the
// host and may be truncated or hostile: readers stop at the first failed read, never size anything
// from a count read off the stream, and refuse absurd nesting.
#ifndef RECORDIO_P_H
#define RECORDIO_P_H

#include <QDataStream>
#include <QJsonObject>
#include <QString>
#include <QVariant>

namespace RecordIO {

// Deepest tree (levels of items) that a record may hold. Each level takes two JSON nesting levels
// (an object and its "items" array), so any accepted tree also fits Qt's JSON limit of 1024.
constexpr int kMaxDepth = 511;

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

} // namespace RecordIO

#endif // RECORDIO_P_H
