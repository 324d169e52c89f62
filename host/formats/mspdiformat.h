// MS Project XML (MSPDI): what MS Project and ProjectLibre save as XML, the root element
// <Project> in the namespace http://schemas.microsoft.com/project. docs/importing.md lists what
// is read and what is left aside.
#ifndef MSPDIFORMAT_H
#define MSPDIFORMAT_H

#include "filesignature.h"
#include "importedschedule.h"
#include "readerror.h"

namespace Host {

bool isMsProjectXml(const FileSignature& file);
bool readMsProjectXml(const FileSignature& file, ImportedSchedule& out, ReadError& error);

} // namespace Host

#endif // MSPDIFORMAT_H
