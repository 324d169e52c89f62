#include "recordio_p.h"

#include <QIODevice>
#include <QJsonValue>
#include <QMetaType>
#include <QStringList>

namespace RecordIO {

namespace {

thread_local int t_depth = 0;

bool variantReadable(const QDataStream& stream) {
    // Qt 4.0 and later share the type ids of the allowed types; older encodings are not read.
    return stream.version() >= QDataStream::Qt_4_0;
}

bool readVariantAt(QDataStream& stream, QVariant& value, int depth);

template <class T> bool readPlain(QDataStream& stream, QVariant& value) {
    T plain{};
    stream >> plain;
    if (!good(stream))
        return false;
    value = QVariant::fromValue(plain);
    return true;
}

bool readStringList(QDataStream& stream, QVariant& value) {
    qint32 count = 0;
    if (!readCount(stream, count, 4))
        return false;
    QStringList list;
    for (qint32 i = 0; i < count; ++i) {
        QString text;
        stream >> text;
        if (!good(stream))
            return false;
        list.append(text);
    }
    value = list;
    return true;
}

bool readList(QDataStream& stream, QVariant& value, int depth) {
    qint32 count = 0;
    if (!readCount(stream, count, 4))
        return false;
    QVariantList list;
    for (qint32 i = 0; i < count; ++i) {
        QVariant element;
        if (!readVariantAt(stream, element, depth + 1))
            return false;
        list.append(element);
    }
    value = list;
    return true;
}

bool readMap(QDataStream& stream, QVariant& value, int depth) {
    qint32 count = 0;
    if (!readCount(stream, count, 8))
        return false;
    QVariantMap map;
    for (qint32 i = 0; i < count; ++i) {
        QString key;
        stream >> key;
        QVariant element;
        if (!good(stream) || !readVariantAt(stream, element, depth + 1))
            return false;
        map.insert(key, element);
    }
    value = map;
    return true;
}

bool readVariantAt(QDataStream& stream, QVariant& value, int depth) {
    value = QVariant();
    if (depth > kMaxDepth || !variantReadable(stream))
        return refuse(stream);
    quint32 type = 0;
    stream >> type;
    qint8 isNull = 0;
    if (stream.version() >= QDataStream::Qt_4_2)
        stream >> isNull;
    if (!good(stream))
        return false;
    switch (type) {
    case QMetaType::UnknownType:
        if (stream.version() < QDataStream::Qt_5_0) {
            QString filler; // older encodings follow an invalid variant with an empty string
            stream >> filler;
        }
        return good(stream);
    case QMetaType::Nullptr: // a JSON null; the type has no payload and no id before Qt 5.0
        if (stream.version() < QDataStream::Qt_5_0)
            return refuse(stream);
        value = QVariant::fromValue(nullptr);
        return true;
    case QMetaType::Bool:
        return readPlain<bool>(stream, value);
    case QMetaType::Int:
        return readPlain<qint32>(stream, value);
    case QMetaType::UInt:
        return readPlain<quint32>(stream, value);
    case QMetaType::LongLong:
        return readPlain<qint64>(stream, value);
    case QMetaType::ULongLong:
        return readPlain<quint64>(stream, value);
    case QMetaType::Double:
        return readPlain<double>(stream, value);
    case QMetaType::QString:
        return readPlain<QString>(stream, value);
    case QMetaType::QStringList:
        return readStringList(stream, value);
    case QMetaType::QVariantList:
        return readList(stream, value, depth);
    case QMetaType::QVariantMap:
        return readMap(stream, value, depth);
    default:
        return refuse(stream);
    }
}

bool storableAt(const QVariant& value, int depth) {
    if (depth > kMaxDepth)
        return false;
    switch (value.userType()) {
    case QMetaType::UnknownType:
    case QMetaType::Nullptr:
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::QString:
    case QMetaType::QStringList:
        return true;
    case QMetaType::QVariantList: {
        const QVariantList list = value.toList();
        for (const QVariant& element : list) {
            if (!storableAt(element, depth + 1))
                return false;
        }
        return true;
    }
    case QMetaType::QVariantMap: {
        const QVariantMap map = value.toMap();
        for (auto it = map.cbegin(); it != map.cend(); ++it) {
            if (!storableAt(it.value(), depth + 1))
                return false;
        }
        return true;
    }
    default:
        return false;
    }
}

// For encodings older than Qt 5.0, which have no null type, null JSON values become invalid variants.
QVariant withoutNulls(const QVariant& value) {
    switch (value.userType()) {
    case QMetaType::Nullptr:
        return QVariant();
    case QMetaType::QVariantList: {
        QVariantList list = value.toList();
        for (QVariant& element : list)
            element = withoutNulls(element);
        return list;
    }
    case QMetaType::QVariantMap: {
        QVariantMap map = value.toMap();
        for (auto it = map.begin(); it != map.end(); ++it)
            it.value() = withoutNulls(it.value());
        return map;
    }
    default:
        return value;
    }
}

} // namespace

DepthGuard::DepthGuard() : m_ok(++t_depth <= kMaxDepth) {}
DepthGuard::~DepthGuard() {
    --t_depth;
}
bool DepthGuard::canNest() const {
    return m_ok && t_depth < kMaxDepth;
}

bool refuse(QDataStream& stream) {
    stream.setStatus(QDataStream::ReadCorruptData);
    return false;
}

bool readCount(QDataStream& stream, qint32& count, qint64 minBytesPerElement) {
    count = 0;
    qint32 value = 0;
    stream >> value;
    if (!good(stream))
        return false;
    if (value < 0)
        return refuse(stream);
    const QIODevice* device = stream.device();
    if (!device)
        return refuse(stream);
    if (!device->isSequential() && qint64(value) * minBytesPerElement > device->bytesAvailable())
        return refuse(stream);
    count = value;
    return true;
}

void readVariant(QDataStream& stream, QVariant& value) {
    if (!readVariantAt(stream, value, 0))
        value = QVariant();
}

bool isStorableVariant(const QVariant& value) {
    return storableAt(value, 0);
}

void writeVariant(QDataStream& stream, const QVariant& value) {
    if (!good(stream))
        return;
    if (!variantReadable(stream) || !isStorableVariant(value)) {
        stream.setStatus(QDataStream::WriteFailed);
        return;
    }
    stream << (stream.version() < QDataStream::Qt_5_0 ? withoutNulls(value) : value);
}

namespace {

template <class T> bool readInto(QDataStream& stream, T& target) {
    T value{};
    stream >> value;
    if (!good(stream))
        return false;
    target = value;
    return true;
}

} // namespace

void Field::writeJson(QJsonObject& object) const {
    if (!m_key)
        return;
    const QString key = QString::fromLatin1(m_key);
    switch (m_type) {
    case Int:
        object.insert(key, target<int>());
        break;
    case Double:
        object.insert(key, target<double>());
        break;
    case Bool:
        object.insert(key, target<bool>());
        break;
    case String:
        object.insert(key, target<QString>());
        break;
    case Variant:
        object.insert(key, QJsonValue::fromVariant(target<QVariant>()));
        break;
    }
}

void Field::readJson(const QJsonObject& object) const {
    if (!m_key)
        return;
    const QString key = QString::fromLatin1(m_key);
    switch (m_type) {
    case Int:
        target<int>() = jsonInt(object, key);
        break;
    case Double:
        target<double>() = jsonDouble(object, key);
        break;
    case Bool:
        target<bool>() = jsonBool(object, key);
        break;
    case String:
        target<QString>() = jsonString(object, key);
        break;
    case Variant: {
        const QJsonValue value = object.value(key);
        target<QVariant>() = (value.isUndefined() ? QJsonValue(QJsonValue::Null) : value).toVariant();
        break;
    }
    }
}

void Field::write(QDataStream& stream) const {
    switch (m_type) {
    case Int:
        stream << qint32(target<int>());
        break;
    case Double:
        stream << target<double>();
        break;
    case Bool:
        stream << target<bool>();
        break;
    case String:
        stream << target<QString>();
        break;
    case Variant:
        writeVariant(stream, target<QVariant>());
        break;
    }
}

bool Field::read(QDataStream& stream) const {
    switch (m_type) {
    case Int: {
        qint32 value = 0;
        if (!readInto(stream, value))
            return false;
        target<int>() = value;
        return true;
    }
    case Double:
        return readInto(stream, target<double>());
    case Bool:
        return readInto(stream, target<bool>());
    case String:
        return readInto(stream, target<QString>());
    case Variant: {
        QVariant value;
        readVariant(stream, value);
        if (!good(stream))
            return false;
        target<QVariant>() = value;
        return true;
    }
    }
    return false;
}

qint64 Field::minimumBytes() const {
    switch (m_type) {
    case Bool:
        return 1;
    case Variant:
        return 5; // an invalid variant: its type and the null flag
    default:
        return 4; // a 32-bit integer, a single-precision double, an empty string's length
    }
}

void Fields::serialize(QJsonObject& object, bool read) const {
    for (const Field& field : *this) {
        if (read)
            field.readJson(object);
        else
            field.writeJson(object);
    }
}

bool Fields::serialize(QDataStream& stream, bool read) const {
    for (const Field& field : *this) {
        if (!good(stream))
            return false;
        if (read)
            field.read(stream);
        else
            field.write(stream);
    }
    return good(stream);
}

qint64 Fields::minimumBytes() const {
    qint64 bytes = 0;
    for (const Field& field : *this)
        bytes += field.minimumBytes();
    return bytes;
}

bool admit(const DepthGuard& guard, QDataStream& stream, bool read) {
    if (guard.ok())
        return true;
    stream.setStatus(read ? QDataStream::ReadCorruptData : QDataStream::WriteFailed);
    return false;
}

int jsonInt(const QJsonObject& object, const QString& key) {
    const QJsonValue value = object.value(key);
    return value.isDouble() ? value.toInt() : 0;
}

double jsonDouble(const QJsonObject& object, const QString& key) {
    const QJsonValue value = object.value(key);
    return value.isDouble() ? value.toDouble() : 0.0;
}

bool jsonBool(const QJsonObject& object, const QString& key) {
    const QJsonValue value = object.value(key);
    return value.isBool() && value.toBool();
}

QString jsonString(const QJsonObject& object, const QString& key) {
    const QJsonValue value = object.value(key);
    return value.isString() ? value.toString() : QString();
}

} // namespace RecordIO
