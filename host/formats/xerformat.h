// Primavera P6's XER export: tab-separated tables (%T name, %F field names, %R values, %E end) after
// an ERMHDR header line. Tasks come from TASK, links from TASKPRED, resources from RSRC, assignments
// from TASKRSRC, summaries from the WBS tree of PROJWBS and hours per day from CALENDAR;
// docs/importing.md lists the fields read and the order of tasks and WBS elements.
#ifndef XERFORMAT_H
#define XERFORMAT_H

#include "filesignature.h"
#include "importedschedule.h"
#include "readerror.h"

namespace Host {

// The file's first line is an ERMHDR header (a UTF-8 byte-order mark before it is allowed).
bool isPrimaveraXer(const FileSignature& file);

// Reads the file into out; errors name "table TASK, row 4, field target_drtn_hr_cnt (line 12)".
bool readPrimaveraXer(const FileSignature& file, ImportedSchedule& out, ReadError& error);

} // namespace Host

#endif // XERFORMAT_H
