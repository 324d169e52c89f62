// GNOME Planner (.planner, also the older .mrproject): the root element <project> with a
// mrproject-version attribute; tasks nest for summaries and durations are seconds of working time.
// docs/importing.md lists what is read and what is left aside.
#ifndef PLANNERFORMAT_H
#define PLANNERFORMAT_H

#include "filesignature.h"
#include "importedschedule.h"
#include "readerror.h"

namespace Host {

bool isPlanner(const FileSignature& file);
bool readPlanner(const FileSignature& file, ImportedSchedule& out, ReadError& error);

} // namespace Host

#endif // PLANNERFORMAT_H
