#include "ganformat.h"

#include "schedulebuilder.h"
#include "xmlsupport.h"

#include <QHash>

namespace Host {

namespace {

// <depend type="..."> as GanttProject writes it: the constraint's position in its list, from 1.
enum DependType {
    StartStartDepend = 1,
    FinishStartDepend = 2,
    FinishFinishDepend = 3,
    StartFinishDepend = 4
};

// A <depend> stands in its predecessor and names the successor: it becomes the successor's link once
// every task is known.
struct Depend {
    QString successor;
    ImportedLink link;
};

class GanReader {
public:
    GanReader(XmlCursor& cursor, ImportedSchedule& out) : c(cursor), out(out) {}

    bool read();

private:
    void project();
    void task(int level);
    void depend(const QString& predecessor);
    void resource();
    bool attachDepends();

    XmlCursor& c;
    ImportedSchedule& out;
    QList<Depend> m_depends;
};

bool GanReader::read() {
    out.format = QStringLiteral("GanttProject");
    if (c.child())
        project();
    return c.finish() && attachDepends();
}

void GanReader::project() {
    while (c.child()) {
        if (c.is("tasks")) {
            out.tasksWhere = c.where();
            c.each("task", [this] { task(1); });
        } else if (c.is("resources")) {
            c.each("resource", [this] { resource(); });
        } else if (c.is("allocations")) {
            readAllocations(c, "load", out.assignments);
        } else {
            c.skip();
        }
    }
}

// A task and, nested in it, the tasks it sums up.
void GanReader::task(int level) {
    ImportedTask item;
    item.where = c.where();
    item.outlineLevel = level;
    item.name = c.attribute("name");
    item.milestone = isTrue(c.attribute("meeting"));
    item.color = c.attribute("color");
    if (!c.idAttribute("id", item.id) ||
        !c.number(c.attribute("duration"), c.where("duration"), 0.0, maxDays,
                  QStringLiteral("a duration in days from 0 to %1").arg(maxDays), item.durationDays))
        return;
    const int index = out.tasks.size();
    out.tasks.append(item);
    while (c.child()) {
        if (c.is("task")) {
            out.tasks[index].summary = true;
            task(level + 1);
        } else if (c.is("depend")) {
            depend(item.id);
        } else {
            c.skip();
        }
    }
}

void GanReader::depend(const QString& predecessor) {
    Depend depend;
    depend.link.where = c.where();
    depend.link.predecessor = predecessor;
    const QString type = c.attribute("type").trimmed();
    static const QHash<QString, LinkType> types{
        {QString::number(StartStartDepend), LinkType::StartToStart},
        {QString::number(FinishStartDepend), LinkType::FinishToStart},
        {QString::number(FinishFinishDepend), LinkType::FinishToFinish},
        {QString::number(StartFinishDepend), LinkType::StartToFinish}};
    if (!type.isEmpty() && !types.contains(type)) {
        c.failFound(c.where("type"), QStringLiteral("a dependency type 1 (SS), 2 (FS), 3 (FF) or 4 (SF)"),
                    type);
        return;
    }
    depend.link.type = types.value(type, LinkType::FinishToStart);
    if (!c.idAttribute("id", depend.successor) ||
        !c.numberAttribute("difference", -maxDays, maxDays,
                           QStringLiteral("a lag in days from -%1 to %1").arg(maxDays), depend.link.lagDays))
        return;
    m_depends.append(depend);
    c.skip();
}

void GanReader::resource() {
    ImportedResource resource;
    resource.where = c.where();
    resource.name = c.attribute("name");
    resource.labour = true; // GanttProject's resources are people
    if (c.idAttribute("id", resource.id))
        out.resources.append(resource);
    c.skip();
}

bool GanReader::attachDepends() {
    QHash<QString, int> taskOfId;
    for (int t = out.tasks.size() - 1; t >= 0; --t)
        taskOfId.insert(out.tasks[t].id, t);
    for (const Depend& depend : m_depends) {
        const int successor = taskOfId.value(depend.successor, -1);
        if (successor < 0)
            return c.fail(depend.link.where,
                          QStringLiteral("expected the id of a task, found %1, which no task has")
                              .arg(depend.successor));
        out.tasks[successor].links.append(depend.link);
    }
    return true;
}

} // namespace

bool isGanttProject(const FileSignature& file) {
    if (!file.xml || file.rootName != QLatin1String("project") || !file.rootNamespace.isEmpty() ||
        file.rootAttributes.hasAttribute(QLatin1String("mrproject-version")))
        return false;
    for (const char* name : {"version", "view-date", "view-index", "webLink"})
        if (file.rootAttributes.hasAttribute(QLatin1String(name)))
            return true;
    return false;
}

bool readGanttProject(const FileSignature& file, ImportedSchedule& out, ReadError& error) {
    XmlCursor cursor(file.bytes, error);
    return GanReader(cursor, out).read();
}

} // namespace Host
