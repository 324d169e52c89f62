// Shared by the fuzz targets of the schedule file formats: each input is read as a whole project
// file (format sniffing, reader and the shared finishing step), and the seeds are the format's
// hand-written fixtures.
#ifndef FORMATFUZZING_H
#define FORMATFUZZING_H

#include "projectreader.h"

#include <QByteArray>
#include <QFile>
#include <QList>
#include <QStringList>

#include <cstddef>
#include <cstdint>

namespace FormatFuzzing {

inline int readDocument(const uint8_t* data, size_t size) {
    Host::ProjectFile project;
    Host::ReadError error;
    Host::readProjectDocument(QByteArray(reinterpret_cast<const char*>(data), int(size)),
                              QStringLiteral("fuzz"), project, error);
    return 0;
}

// The fixtures of tests/data/formats, each also with a UTF-8 byte-order mark before it.
inline QList<QByteArray> fixtures(const QStringList& names) {
    QList<QByteArray> seeds;
    for (const QString& name : names) {
        QFile file(QStringLiteral(FORMAT_FIXTURES "/") + name);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray bytes = file.readAll();
        seeds << bytes << QByteArray("\xEF\xBB\xBF") + bytes;
    }
    return seeds;
}

} // namespace FormatFuzzing

#endif // FORMATFUZZING_H
