// Shared by the targets that read whole files: the input is read as markgrade reads a project file,
// whatever its format, and the seeds are test fixtures named by the target.
#ifndef FUZZ_DOCUMENT_H
#define FUZZ_DOCUMENT_H

#include "fuzz_common.h"
#include "projectreader.h"

#include <QFile>

#include <cstdlib>
#include <initializer_list>

namespace FuzzDocument {

// Any input is read whole or refused with a message; nothing else may happen.
inline int read(const uint8_t* data, size_t size) {
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), int(size));
    Host::ProjectFile project;
    Host::ReadError error;
    const bool read = Host::readProjectDocument(bytes, QStringLiteral("input"), project, error);
    if (read == error.isSet())
        std::abort(); // a refusal without a reason, or a reason without a refusal
    return 0;
}

// The fixtures of tests/data/formats with these names.
inline QList<QByteArray> fixtures(std::initializer_list<const char*> names) {
    QList<QByteArray> seeds;
    for (const char* name : names) {
        QFile file(QStringLiteral(FUZZ_FIXTURES "/") + QLatin1String(name));
        if (file.open(QIODevice::ReadOnly))
            seeds.append(file.readAll());
    }
    return seeds;
}

} // namespace FuzzDocument

#endif // FUZZ_DOCUMENT_H
