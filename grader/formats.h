// The report formats markgrade knows: one table that the help text, the check of -f and the making
// of the report all read. A format is a ReportSink; adding one is adding its entry.
#ifndef FORMATS_H
#define FORMATS_H

#include "options.h"
#include "reportsink.h"

#include <QList>
#include <QString>

#include <functional>
#include <memory>

namespace Grade {

struct ReportFormat {
    QString name;                   // the value of -f
    QString description;            // one line for --help
    bool outputIsDirectory = false; // -o names a directory (required), not a file
    std::function<std::unique_ptr<ReportSink>(const Options&)> create;
};

const QList<ReportFormat>& reportFormats();
// The format of that name, or null.
const ReportFormat* findFormat(const QString& name);
// "text, json or csv"
QString formatNames();

} // namespace Grade

#endif // FORMATS_H
