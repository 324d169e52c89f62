// Reading project files into ProjectFile values. The format is told by the content (the XML root
// element and namespace, the XER header line, the MPX header record, a JSON object), not by the
// file's extension. A file is either read whole or refused with the first error: the file, where
// in it, and what was expected.
#ifndef PROJECTREADER_H
#define PROJECTREADER_H

#include "projectmodel.h"
#include "readerror.h"
#include "schedulebuilder.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace Host {

// Reads the file at path; fileName in messages is the path as given.
bool readProjectFile(const QString& path, ProjectFile& project, ReadError& error,
                     const ImportOptions& options = ImportOptions());
// Reads a document already in memory; fileName is used in messages only.
bool readProjectDocument(const QByteArray& bytes, const QString& fileName, ProjectFile& project,
                         ReadError& error, const ImportOptions& options = ImportOptions());

// The names of the formats read, in the order they are tried.
QStringList projectFormatNames();

QString productName(int code);
QString sceneName(int scene);
// The scene code of "plain", "Site" or "Twin"; -1 for any other text.
int sceneCode(const QString& name);

} // namespace Host

#endif // PROJECTREADER_H
