// MPX, the record-per-line text format that MS Project up to 98 wrote and many tools still export:
// a header record "MPX,<program>,<version>,<code page>" whose fourth byte is the field delimiter,
// settings records (10 currency with the decimal separator, 11 defaults with hours per day), task
// and resource definitions (60/61, 40/41) naming the fields of each task (70) and resource (50)
// record, and assignments (75) of the task before them. docs/importing.md lists what is read.
#ifndef MPXFORMAT_H
#define MPXFORMAT_H

#include "filesignature.h"
#include "importedschedule.h"
#include "readerror.h"

namespace Host {

// The file starts with an MPX header record, or has one after some other record (read to say so).
bool isMpx(const FileSignature& file);

// Reads the file into out; errors name "line 17" or "line 17, field 3 (Duration)".
bool readMpx(const FileSignature& file, ImportedSchedule& out, ReadError& error);

} // namespace Host

#endif // MPXFORMAT_H
