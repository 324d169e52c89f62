// Shared by the targets that read whole project files: each input is read as markgrade reads a
// project file (format sniffing, the format's reader and the shared finishing step), and the seeds
// are the hand-written fixtures of tests/data/formats named by the target.
#ifndef FUZZ_DOCUMENT_H
#define FUZZ_DOCUMENT_H

#include "fuzz_common.h"
#include "projectreader.h"

#include <QByteArray>
#include <QFile>
#include <QList>

#include <cstddef>
#include <cstdint>
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

// The named files of a folder, each also behind a UTF-8 byte-order mark, which every reader accepts.
inline QList<QByteArray> files(const char* folder, std::initializer_list<const char*> names) {
    QList<QByteArray> seeds;
    for (const char* name : names) {
        QFile file(QLatin1String(folder) + QLatin1Char('/') + QLatin1String(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray bytes = file.readAll();
        seeds << bytes << QByteArray("\xEF\xBB\xBF") + bytes;
    }
    return seeds;
}

inline QList<QByteArray> fixtures(std::initializer_list<const char*> names) {
    return files(FUZZ_FIXTURES, names);
}

// The built-in sample exam: schedules, pricing files and building models in our JSON.
inline QList<QByteArray> samples() {
    return files(FUZZ_SAMPLES, {"schedule-standard.json", "schedule-candidate.json", "pricing-standard.json",
                                "pricing-candidate.json", "model-standard.json", "model-candidate.json"});
}

} // namespace FuzzDocument

#endif // FUZZ_DOCUMENT_H
