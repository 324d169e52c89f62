#include "plannerformat.h"

#include "xmlsupport.h"

#include <QHash>
#include <QRegularExpression>
#include <QVector>

namespace Host {

namespace {

const double defaultDaySeconds = 8 * 3600.0;
const double secondsPerElapsedDay = 24 * 3600.0;
const double maxSeconds = 1.0e12;

// Day types every calendar knows (a calendar's own types follow them), and resource types.
enum DayType { WorkingDay = 0, NonWorkingDay = 1, BaseDay = 2 };
enum PlannerResourceType { UntypedResource = 0, WorkResource = 1, MaterialResource = 2 };

struct Calendar {
    QString parent;                 // the calendar it is nested in
    QString monday;                 // the day type of Monday in its default week
    QHash<QString, double> seconds; // working seconds of the day types it defines intervals for
};

// "0800" as seconds after midnight.
bool clockSeconds(const QString& text, int& seconds) {
    static const QRegularExpression pattern(QStringLiteral("^([01]\\d|2[0-4])([0-5]\\d)$"));
    const QRegularExpressionMatch match = pattern.match(text.trimmed());
    if (!match.hasMatch())
        return false;
    seconds = match.captured(1).toInt() * 3600 + match.captured(2).toInt() * 60;
    return true;
}

class PlannerReader {
public:
    PlannerReader(XmlCursor& cursor, ImportedSchedule& out) : c(cursor), out(out) {}

    bool read();

private:
    void project();
    void calendar(const QString& parent);
    void dayType(Calendar& calendar);
    void task(int level);
    bool taskKind(ImportedTask& task);
    bool taskSeconds(double& seconds);
    void predecessor(int task);
    void resource();
    double daySeconds() const;

    XmlCursor& c;
    ImportedSchedule& out;
    QString m_projectCalendar;
    QHash<QString, Calendar> m_calendars;
    QVector<double> m_taskSeconds; // per task of out.tasks
};

bool PlannerReader::read() {
    out.format = QStringLiteral("GNOME Planner");
    if (c.child()) {
        m_projectCalendar = c.attribute("calendar").trimmed();
        project();
    }
    if (!c.finish())
        return false;
    const double day = daySeconds();
    for (int t = 0; t < out.tasks.size(); ++t)
        out.tasks[t].durationDays = m_taskSeconds[t] / day;
    return true;
}

void PlannerReader::project() {
    while (c.child()) {
        if (c.is("calendars")) {
            c.each("calendar", [this] { calendar(QString()); });
        } else if (c.is("tasks")) {
            out.tasksWhere = c.where();
            c.each("task", [this] { task(1); });
        } else if (c.is("resources")) {
            c.each("resource", [this] { resource(); });
        } else if (c.is("allocations")) {
            readAllocations(c, "units", out.assignments);
        } else {
            c.skip();
        }
    }
}

// A calendar and the calendars derived from it, nested in it.
void PlannerReader::calendar(const QString& parent) {
    Calendar calendar;
    calendar.parent = parent;
    const QString id = c.attribute("id").trimmed();
    while (c.child()) {
        if (c.is("default-week")) {
            calendar.monday = c.attribute("mon").trimmed();
            c.skip();
        } else if (c.is("overridden-day-types")) {
            c.each("overridden-day-type", [&] { dayType(calendar); });
        } else if (c.is("calendar")) {
            this->calendar(id);
        } else {
            c.skip();
        }
    }
    m_calendars.insert(id, calendar);
}

// The working intervals of a day type: <interval start="0800" end="1200"/>.
void PlannerReader::dayType(Calendar& calendar) {
    const QString id = c.attribute("id").trimmed();
    double seconds = 0.0;
    while (c.child()) {
        int start = 0;
        int end = 0;
        if (c.is("interval")) {
            const QString expected = QStringLiteral("a time of day like 0800");
            if (!clockSeconds(c.attribute("start"), start))
                c.failFound(c.where("start"), expected, c.attribute("start"));
            else if (!clockSeconds(c.attribute("end"), end))
                c.failFound(c.where("end"), expected, c.attribute("end"));
            seconds += end >= start ? end - start : end + secondsPerElapsedDay - start; // past midnight
        }
        c.skip();
    }
    if (seconds > 0.0)
        calendar.seconds.insert(id, seconds);
}

// The working seconds of the project calendar's Monday: its day type, taken from the calendars it
// derives from where it says "use base", with the intervals of the nearest calendar that has them.
double PlannerReader::daySeconds() const {
    QString id = m_projectCalendar;
    QString type;
    for (int step = 0; step <= m_calendars.size(); ++step) {
        const auto found = m_calendars.constFind(id);
        if (found == m_calendars.constEnd())
            break;
        if (type.isEmpty() || type == QString::number(BaseDay))
            type = found->monday.isEmpty() ? QString::number(BaseDay) : found->monday;
        if (type != QString::number(BaseDay) && found->seconds.contains(type))
            return found->seconds.value(type);
        id = found->parent;
    }
    return defaultDaySeconds;
}

// A task and, nested in it, the tasks it sums up.
void PlannerReader::task(int level) {
    ImportedTask item;
    item.where = c.where();
    item.outlineLevel = level;
    item.name = c.attribute("name");
    double seconds = 0.0;
    if (!c.idAttribute("id", item.id) || !taskKind(item) || !taskSeconds(seconds))
        return;
    const int index = out.tasks.size();
    out.tasks.append(item);
    m_taskSeconds.append(seconds);
    while (c.child()) {
        if (c.is("task")) {
            out.tasks[index].summary = true;
            task(level + 1);
        } else if (c.is("predecessors")) {
            c.each("predecessor", [&] { predecessor(index); });
        } else {
            c.skip();
        }
    }
}

// type="normal|milestone" and scheduling="fixed-work|fixed-duration".
bool PlannerReader::taskKind(ImportedTask& task) {
    const QString type = c.attribute("type").trimmed();
    const QString scheduling = c.attribute("scheduling").trimmed();
    if (!type.isEmpty() && type != QLatin1String("normal") && type != QLatin1String("milestone"))
        return c.failFound(c.where("type"), QStringLiteral("\"normal\" or \"milestone\""), type);
    if (!scheduling.isEmpty() && scheduling != QLatin1String("fixed-work") &&
        scheduling != QLatin1String("fixed-duration"))
        return c.failFound(c.where("scheduling"), QStringLiteral("\"fixed-work\" or \"fixed-duration\""),
                           scheduling);
    task.milestone = type == QLatin1String("milestone");
    if (!scheduling.isEmpty())
        task.fixedDuration = scheduling == QLatin1String("fixed-duration");
    return true;
}

// The duration in seconds of working time, or the work where the duration is not given.
bool PlannerReader::taskSeconds(double& seconds) {
    const char* name = c.hasAttribute("duration") ? "duration" : c.hasAttribute("work") ? "work" : nullptr;
    if (!name)
        return c.fail(c.where(), QStringLiteral("expected a duration or work in seconds, found neither"));
    return c.number(c.attribute(name), c.where(name), 0.0, maxSeconds,
                    QStringLiteral("a number of seconds from 0 to %1").arg(maxSeconds, 0, 'f', 0), seconds);
}

void PlannerReader::predecessor(int task) {
    static const QHash<QString, LinkType> types{{QStringLiteral("FS"), LinkType::FinishToStart},
                                                {QStringLiteral("SS"), LinkType::StartToStart},
                                                {QStringLiteral("FF"), LinkType::FinishToFinish},
                                                {QStringLiteral("SF"), LinkType::StartToFinish}};
    ImportedLink link;
    link.where = c.where();
    const QString type = c.attribute("type").trimmed();
    double lagSeconds = 0.0;
    if (!type.isEmpty() && !types.contains(type)) {
        c.failFound(c.where("type"), QStringLiteral("FS, SS, FF or SF"), type);
    } else if (c.idAttribute("predecessor-id", link.predecessor) &&
               c.numberAttribute("lag", -maxSeconds, maxSeconds, QStringLiteral("a lag in seconds"),
                                 lagSeconds)) {
        link.type = types.value(type, LinkType::FinishToStart);
        link.lagDays = lagSeconds / secondsPerElapsedDay; // Planner adds lags to calendar time
        out.tasks[task].links.append(link);
    }
    c.skip();
}

void PlannerReader::resource() {
    ImportedResource resource;
    resource.where = c.where();
    resource.name = c.attribute("name");
    const QString type = c.attribute("type").trimmed();
    if (!type.isEmpty() && type != QString::number(UntypedResource) &&
        type != QString::number(WorkResource) && type != QString::number(MaterialResource)) {
        c.failFound(c.where("type"), QStringLiteral("a resource type 1 (work) or 2 (material)"), type);
    } else if (c.idAttribute("id", resource.id)) {
        resource.labour = type != QString::number(MaterialResource);
        out.resources.append(resource);
    }
    c.skip();
}

} // namespace

bool isPlanner(const FileSignature& file) {
    return file.xml && file.rootName == QLatin1String("project") && file.rootNamespace.isEmpty() &&
           file.rootAttributes.hasAttribute(QLatin1String("mrproject-version"));
}

bool readPlanner(const FileSignature& file, ImportedSchedule& out, ReadError& error) {
    XmlCursor cursor(file.bytes, error);
    return PlannerReader(cursor, out).read();
}

} // namespace Host
