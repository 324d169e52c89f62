// The finishing step that every schedule format shares: it turns an ImportedSchedule into the
// ScheduleProject that the host hands to the library. Names are tidied, ids and references checked,
// summary tasks dropped (their links carried to their leaves), durations and lags rounded to whole
// working days, colours written one way, the links timed, and resource totals, curves and labour
// intensities worked out from the assignments. docs/importing.md describes each rule.
#ifndef SCHEDULEBUILDER_H
#define SCHEDULEBUILDER_H

#include "importedschedule.h"
#include "readerror.h"

#include <QHash>
#include <QString>

#include <optional>

namespace Host {

// What the files do not say, from the command line or a course settings file.
struct ImportOptions {
    enum class Durations {
        FormatDefault, // our format: the file's flags; the others: exact
        Exact,         // every duration is fixed: judged by equality with the standard's
        Weeks,         // durations that are not fixed must be whole weeks; flags from the file
    };
    std::optional<int> scene; // for files that state none
    Durations durations = Durations::FormatDefault;
    std::optional<QString> timeUnit;
    std::optional<int> rowsPerPage;
    QHash<QString, QString> resourceNames; // a file's resource name -> the name to use
    bool dedupeNames = false; // number the second and later work items of a name: "Task (2)"
};

// Longest duration and lag accepted, in working days: keeps sums of them far from overflow.
constexpr int maxDays = 1000000;

bool buildSchedule(const ImportedSchedule& in, const ImportOptions& options, ScheduleProject& out,
                   ReadError& error);

// A name as people see it: trimmed, inner runs of white space folded to one space.
QString tidyName(const QString& name);

} // namespace Host

#endif // SCHEDULEBUILDER_H
