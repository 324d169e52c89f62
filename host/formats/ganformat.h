// GanttProject (.gan): the root element <project> without a namespace, with GanttProject's own
// attributes (version, view-date, webLink...); tasks nest for summaries and each task lists the
// tasks that depend on it. docs/importing.md lists what is read and what is left aside.
#ifndef GANFORMAT_H
#define GANFORMAT_H

#include "filesignature.h"
#include "importedschedule.h"
#include "readerror.h"

namespace Host {

bool isGanttProject(const FileSignature& file);
bool readGanttProject(const FileSignature& file, ImportedSchedule& out, ReadError& error);

} // namespace Host

#endif // GANFORMAT_H
