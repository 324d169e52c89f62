// Our own project format (docs/project-format.md): schedules, pricing files and building models as
// one JSON document. Errors name the JSON path of the offending value.
#ifndef JSONFORMAT_H
#define JSONFORMAT_H

#include "projectmodel.h"
#include "readerror.h"
#include "schedulebuilder.h"

#include <QByteArray>

namespace Host {

// Reads the document into project (whose fileName is set); a schedule goes through the shared
// finishing step. False with the first error.
bool readJsonProject(const QByteArray& bytes, const ImportOptions& options, ProjectFile& project,
                     ReadError& error);

// The product code of a product name ("schedule", "Ash", ... "Shape"), or 0.
int productCode(const QString& name);

} // namespace Host

#endif // JSONFORMAT_H
