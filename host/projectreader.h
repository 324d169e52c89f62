// Reading project files (docs/project-format.md) into ProjectFile values. A file is either read
// whole or refused with the first error (file, JSON path, what was expected).
#ifndef PROJECTREADER_H
#define PROJECTREADER_H

#include "jsonreader.h"
#include "projectmodel.h"

#include <QByteArray>
#include <QString>

namespace Host {

// Reads the file at path; fileName in messages is the path as given.
bool readProjectFile(const QString& path, ProjectFile& project, ReadError& error);
// Reads a document already in memory; fileName is used in messages only.
bool readProjectDocument(const QByteArray& bytes, const QString& fileName, ProjectFile& project,
                         ReadError& error);

// The product code of a product name ("schedule", "Ash", ... "Shape"), or 0.
int productCode(const QString& name);
QString productName(int code);
QString sceneName(int scene);

} // namespace Host

#endif // PROJECTREADER_H
