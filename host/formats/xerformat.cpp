#include "xerformat.h"

#include "schedulebuilder.h"

#include <QHash>
#include <QSet>
#include <QTextCodec>
#include <QVector>

#include <cmath>

namespace Host {

namespace {

const double defaultDayHours = 8.0;
const double maxHours = 24.0 * maxDays; // every hour count read is within ±maxHours

// One %R line: its values in %F order.
struct XerRow {
    int line = 0;
    int number = 0; // 1-based within its table
    QStringList values;
};

struct XerTable {
    QString name;
    int line = 0;
    bool hasFields = false;
    QHash<QString, int> column; // field name -> position in %F
    QList<XerRow> rows;
};

struct XerTask {
    ImportedTask task;
    QString wbs;
    double dayHours = defaultDayHours;
};

struct XerWbs {
    QString parent;
    QString name;
    bool projectNode = false; // the project itself, not a summary
    QString where;
};

// A node of the outline: a WBS element (task < 0) or a task, with its children in order.
struct OutlineNode {
    QString wbs;
    int task = -1;
    QList<int> children;
};

// The file is UTF-8 when its bytes are valid UTF-8; P6 writes the Windows code page otherwise.
QString decodeXer(const QByteArray& bytes) {
    QTextCodec::ConverterState state;
    const QString text =
        QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    if (state.invalidChars == 0 && state.remainingChars == 0)
        return text;
    return QTextCodec::codecForName("Windows-1252")->toUnicode(bytes);
}

class XerReader {
public:
    XerReader(ImportedSchedule& out, ReadError& error) : out(out), error(error) {}
    bool read(const QByteArray& bytes);

private:
    bool fail(const QString& where, const QString& message) { return error.fail(where, message); }
    bool parseLine(const QString& line, int number);
    bool startTable(const QString& name, int number);
    const XerTable* table(const QString& name) const;
    bool requireFields(const XerTable& table, const QStringList& fields);
    static QString value(const XerTable& table, const XerRow& row, const QString& field);
    static QString where(const XerTable& table, const XerRow& row, const QString& field);
    bool hours(const XerTable& table, const XerRow& row, const QString& field, double min, double& out);
    bool choice(const XerTable& table, const XerRow& row, const QString& field, const QStringList& options,
                int& index);
    bool readCalendars();
    bool calendarHours(const XerTable& table, const XerRow& row, double& dayHours);
    bool readWbs();
    bool readTasks();
    bool readTask(const XerTable& table, const XerRow& row);
    bool taskIndex(const XerTable& table, const XerRow& row, const QString& field, int& index);
    bool readLinks();
    bool readResources();
    bool readAssignments();
    bool readAssignment(const XerTable& table, const XerRow& row);
    bool wbsChain(const QString& wbs, QStringList& chain, QString& cycle) const;
    bool orderTasks();
    void flatten(const QVector<OutlineNode>& nodes);

    ImportedSchedule& out;
    ReadError& error;
    QList<XerTable> m_tables;
    QHash<QString, double> m_dayHours; // calendar id -> hours per working day
    QHash<QString, XerWbs> m_wbs;
    QList<XerTask> m_tasks; // file order
    QHash<QString, int> m_taskOfId;
    QSet<QString> m_skipped;           // level-of-effort and WBS summary activities
    QHash<QString, bool> m_materialOf; // resource id -> a material resource
};

bool XerReader::read(const QByteArray& bytes) {
    out.format = QStringLiteral("Primavera P6 XER");
    out.tasksWhere = QStringLiteral("table TASK");
    const QStringList lines = decodeXer(bytes).split(QLatin1Char('\n'));
    bool ended = false;
    for (int i = 1; i < lines.size() && !ended; ++i) { // line 1 is the ERMHDR header
        QString line = lines[i];
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
        ended = line == QLatin1String("%E") || line.startsWith(QLatin1String("%E\t"));
        if (!ended && !parseLine(line, i + 1))
            return false;
    }
    if (!ended) // a file cut short: never grade a part of it
        return fail(QStringLiteral("line %1").arg(lines.size() - (lines.last().trimmed().isEmpty() ? 1 : 0)),
                    QStringLiteral("expected %E at the end of the tables, found the end of the file"));
    if (!table(QStringLiteral("TASK")))
        return fail(QString(), QStringLiteral("expected a TASK table, found none"));
    return readCalendars() && readWbs() && readTasks() && readLinks() && readResources() &&
           readAssignments() && orderTasks();
}

bool XerReader::parseLine(const QString& line, int number) {
    const QString at = QStringLiteral("line %1").arg(number);
    if (line.trimmed().isEmpty())
        return true;
    const QStringList cells = line.split(QLatin1Char('\t'));
    const QString kind = cells.first();
    if (kind == QLatin1String("%T"))
        return startTable(cells.value(1).trimmed(), number);
    if (kind != QLatin1String("%F") && kind != QLatin1String("%R"))
        return fail(
            at, QStringLiteral("expected a line starting %T, %F, %R or %E, found \"%1\"").arg(line.left(40)));
    if (m_tables.isEmpty())
        return fail(at,
                    QStringLiteral("expected %T with a table name before the first %1, found %1").arg(kind));
    XerTable& current = m_tables.last();
    if (kind == QLatin1String("%F")) {
        if (current.hasFields)
            return fail(at,
                        QStringLiteral("expected one %F line in table %1, found a second").arg(current.name));
        current.hasFields = true;
        for (int c = 1; c < cells.size(); ++c)
            current.column.insert(cells[c].trimmed(), c - 1);
        return true;
    }
    if (!current.hasFields)
        return fail(at, QStringLiteral("expected %F with the field names of table %1 before its first %R, "
                                       "found %R")
                            .arg(current.name));
    if (cells.size() - 1 > current.column.size())
        return fail(at, QStringLiteral("expected at most %1 values in a row of table %2 (one per %F field), "
                                       "found %3")
                            .arg(current.column.size())
                            .arg(current.name)
                            .arg(cells.size() - 1));
    current.rows.append(XerRow{number, current.rows.size() + 1, cells.mid(1)});
    return true;
}

bool XerReader::startTable(const QString& name, int number) {
    if (name.isEmpty())
        return fail(QStringLiteral("line %1").arg(number), QStringLiteral("expected a table name after %T, "
                                                                          "found none"));
    if (table(name))
        return fail(QStringLiteral("line %1").arg(number),
                    QStringLiteral("expected each table once, found a second table %1").arg(name));
    XerTable next;
    next.name = name;
    next.line = number;
    m_tables.append(next);
    return true;
}

const XerTable* XerReader::table(const QString& name) const {
    for (const XerTable& t : m_tables)
        if (t.name == name)
            return &t;
    return nullptr;
}

bool XerReader::requireFields(const XerTable& table, const QStringList& fields) {
    for (const QString& field : fields)
        if (!table.column.contains(field))
            return fail(
                QStringLiteral("table %1 (line %2)").arg(table.name).arg(table.line),
                QStringLiteral("expected a field %1 among the %F field names, found none").arg(field));
    return true;
}

QString XerReader::value(const XerTable& table, const XerRow& row, const QString& field) {
    return row.values.value(table.column.value(field, -1)).trimmed();
}

QString XerReader::where(const XerTable& table, const XerRow& row, const QString& field) {
    QString at = QStringLiteral("table %1, row %2").arg(table.name).arg(row.number);
    if (!field.isEmpty())
        at += QStringLiteral(", field ") + field;
    return at + QStringLiteral(" (line %1)").arg(row.line);
}

// A number of hours from min to maxHours; an empty value is 0.
bool XerReader::hours(const XerTable& table, const XerRow& row, const QString& field, double min,
                      double& result) {
    const QString text = value(table, row, field);
    bool ok = true;
    result = text.isEmpty() ? 0.0 : text.toDouble(&ok);
    if (!ok || !std::isfinite(result))
        return fail(where(table, row, field),
                    QStringLiteral("expected a number of hours, found \"%1\"").arg(text.left(40)));
    if (result < min || result > maxHours)
        return fail(where(table, row, field),
                    QStringLiteral("expected a number of hours from %1 to %2, found %3")
                        .arg(QString::number(min, 'f', 0), QString::number(maxHours, 'f', 0), text));
    return true;
}

// The position of the field's value among options; an empty value is the first option.
bool XerReader::choice(const XerTable& table, const XerRow& row, const QString& field,
                       const QStringList& options, int& index) {
    const QString text = value(table, row, field);
    index = text.isEmpty() ? 0 : options.indexOf(text);
    if (index >= 0)
        return true;
    QStringList shown = options;
    const QString last = shown.takeLast();
    return fail(where(table, row, field), QStringLiteral("expected %1 or %2, found \"%3\"")
                                              .arg(shown.join(QStringLiteral(", ")), last, text.left(40)));
}

bool XerReader::readCalendars() {
    const XerTable* calendars = table(QStringLiteral("CALENDAR"));
    if (!calendars)
        return true;
    if (!requireFields(*calendars, {QStringLiteral("clndr_id")}))
        return false;
    for (const XerRow& row : calendars->rows) {
        double dayHours = defaultDayHours;
        if (!calendarHours(*calendars, row, dayHours))
            return false;
        m_dayHours.insert(value(*calendars, row, QStringLiteral("clndr_id")), dayHours);
    }
    return true;
}

// day_hr_cnt: hours in a working day, more than 0 and at most 24; empty is the default 8.
bool XerReader::calendarHours(const XerTable& table, const XerRow& row, double& dayHours) {
    const QString field = QStringLiteral("day_hr_cnt");
    if (value(table, row, field).isEmpty())
        return true;
    if (!hours(table, row, field, 0.0, dayHours))
        return false;
    if (dayHours <= 0.0 || dayHours > 24.0)
        return fail(where(table, row, field), QStringLiteral("expected hours per day above 0 and at most 24, "
                                                             "found %1")
                                                  .arg(value(table, row, field)));
    return true;
}

bool XerReader::readWbs() {
    const XerTable* wbs = table(QStringLiteral("PROJWBS"));
    if (!wbs)
        return true;
    if (!requireFields(*wbs, {QStringLiteral("wbs_id"), QStringLiteral("parent_wbs_id")}))
        return false;
    for (const XerRow& row : wbs->rows) {
        const QString id = value(*wbs, row, QStringLiteral("wbs_id"));
        if (id.isEmpty() || m_wbs.contains(id))
            return fail(where(*wbs, row, QStringLiteral("wbs_id")),
                        QStringLiteral("expected a WBS id not used before, found \"%1\"").arg(id));
        XerWbs element;
        element.parent = value(*wbs, row, QStringLiteral("parent_wbs_id"));
        element.name = value(*wbs, row, QStringLiteral("wbs_name"));
        element.projectNode = value(*wbs, row, QStringLiteral("proj_node_flag")) == QLatin1String("Y");
        element.where = where(*wbs, row, QString());
        m_wbs.insert(id, element);
    }
    return true;
}

bool XerReader::readTasks() {
    const XerTable& tasks = *table(QStringLiteral("TASK"));
    if (!requireFields(tasks, {QStringLiteral("task_id"), QStringLiteral("task_name")}))
        return false;
    for (const XerRow& row : tasks.rows)
        if (!readTask(tasks, row))
            return false;
    return true;
}

bool XerReader::readTask(const XerTable& table, const XerRow& row) {
    // Positions in the lists below.
    enum TaskType { Task, ResourceTask, StartMilestone, FinishMilestone, LevelOfEffort, WbsSummary };
    enum DurationType { FixedUnits, FixedRate, FixedDuration };
    static const QStringList types{QStringLiteral("TT_Task"), QStringLiteral("TT_Rsrc"),
                                   QStringLiteral("TT_Mile"), QStringLiteral("TT_FinMile"),
                                   QStringLiteral("TT_LOE"),  QStringLiteral("TT_WBS")};
    static const QStringList durationTypes{QStringLiteral("DT_FixedQty"), QStringLiteral("DT_FixedRate"),
                                           QStringLiteral("DT_FixedDrtn"), QStringLiteral("DT_FixedDUR2"),
                                           QStringLiteral("DT_FixedDuration")};
    XerTask task;
    task.task.id = value(table, row, QStringLiteral("task_id"));
    task.task.where = where(table, row, QString());
    if (task.task.id.isEmpty() || m_taskOfId.contains(task.task.id) || m_skipped.contains(task.task.id))
        return fail(where(table, row, QStringLiteral("task_id")),
                    QStringLiteral("expected a task id not used before, found \"%1\"").arg(task.task.id));
    int type = 0;
    int durationType = 0;
    double drtn = 0.0;
    if (!choice(table, row, QStringLiteral("task_type"), types, type) ||
        !choice(table, row, QStringLiteral("duration_type"), durationTypes, durationType) ||
        !hours(table, row, QStringLiteral("target_drtn_hr_cnt"), 0.0, drtn))
        return false;
    if (type == LevelOfEffort || type == WbsSummary) { // spans of other activities, not work
        m_skipped.insert(task.task.id);
        return true;
    }
    const QString calendar = value(table, row, QStringLiteral("clndr_id"));
    if (!calendar.isEmpty() && this->table(QStringLiteral("CALENDAR")) && !m_dayHours.contains(calendar))
        return fail(
            where(table, row, QStringLiteral("clndr_id")),
            QStringLiteral("expected the id of a calendar in table CALENDAR, found \"%1\"").arg(calendar));
    task.dayHours = m_dayHours.value(calendar, defaultDayHours);
    task.task.name = value(table, row, QStringLiteral("task_name"));
    task.task.milestone = type == StartMilestone || type == FinishMilestone;
    task.task.durationDays = drtn / task.dayHours;
    if (!value(table, row, QStringLiteral("duration_type")).isEmpty())
        task.task.fixedDuration = durationType >= FixedDuration;
    task.wbs = value(table, row, QStringLiteral("wbs_id"));
    if (!task.wbs.isEmpty() && this->table(QStringLiteral("PROJWBS")) && !m_wbs.contains(task.wbs))
        return fail(
            where(table, row, QStringLiteral("wbs_id")),
            QStringLiteral("expected the id of a WBS element in table PROJWBS, found \"%1\"").arg(task.wbs));
    m_taskOfId.insert(task.task.id, m_tasks.size());
    m_tasks.append(task);
    return true;
}

// The task that the field names; index -1 for a skipped activity.
bool XerReader::taskIndex(const XerTable& table, const XerRow& row, const QString& field, int& index) {
    const QString id = value(table, row, field);
    index = m_taskOfId.value(id, -1);
    if (index >= 0 || m_skipped.contains(id))
        return true;
    return fail(where(table, row, field),
                QStringLiteral("expected the id of a task, found \"%1\", which no task has").arg(id));
}

bool XerReader::readLinks() {
    static const QStringList types{QStringLiteral("PR_FS"), QStringLiteral("PR_SS"), QStringLiteral("PR_FF"),
                                   QStringLiteral("PR_SF")};
    const XerTable* links = table(QStringLiteral("TASKPRED"));
    if (!links)
        return true;
    if (!requireFields(*links, {QStringLiteral("task_id"), QStringLiteral("pred_task_id")}))
        return false;
    for (const XerRow& row : links->rows) {
        int successor = -1;
        int predecessor = -1;
        int type = 0;
        double lag = 0.0;
        if (!taskIndex(*links, row, QStringLiteral("task_id"), successor) ||
            !taskIndex(*links, row, QStringLiteral("pred_task_id"), predecessor) ||
            !choice(*links, row, QStringLiteral("pred_type"), types, type) ||
            !hours(*links, row, QStringLiteral("lag_hr_cnt"), -maxHours, lag))
            return false;
        if (successor < 0 || predecessor < 0)
            continue; // a link of a level-of-effort or WBS summary activity
        ImportedLink link;
        link.predecessor = m_tasks[predecessor].task.id;
        link.type = LinkType(type);
        link.lagDays = lag / m_tasks[predecessor].dayHours; // P6's default: the predecessor's calendar
        link.where = where(*links, row, QString());
        m_tasks[successor].task.links.append(link);
    }
    return true;
}

bool XerReader::readResources() {
    enum ResourceType { Labour, Equipment, Material }; // positions in the list below
    static const QStringList types{QStringLiteral("RT_Labor"), QStringLiteral("RT_Equip"),
                                   QStringLiteral("RT_Mat")};
    const XerTable* resources = table(QStringLiteral("RSRC"));
    if (!resources)
        return true;
    if (!requireFields(*resources, {QStringLiteral("rsrc_id"), QStringLiteral("rsrc_name")}))
        return false;
    for (const XerRow& row : resources->rows) {
        int type = 0;
        if (!choice(*resources, row, QStringLiteral("rsrc_type"), types, type))
            return false;
        ImportedResource resource;
        resource.id = value(*resources, row, QStringLiteral("rsrc_id"));
        resource.name = value(*resources, row, QStringLiteral("rsrc_name"));
        resource.labour = type == Labour; // equipment and material are not people
        resource.where = where(*resources, row, QString());
        m_materialOf.insert(resource.id, type == Material);
        out.resources.append(resource);
    }
    return true;
}

bool XerReader::readAssignments() {
    const XerTable* assignments = table(QStringLiteral("TASKRSRC"));
    if (!assignments)
        return true;
    if (!requireFields(*assignments, {QStringLiteral("task_id"), QStringLiteral("rsrc_id")}))
        return false;
    for (const XerRow& row : assignments->rows)
        if (!readAssignment(*assignments, row))
            return false;
    return true;
}

// Labour and equipment: target_qty in hours, target_qty_per_hr in units (1 = one all day);
// material: target_qty in its own unit, target_qty_per_hr per working hour.
bool XerReader::readAssignment(const XerTable& table, const XerRow& row) {
    int task = -1;
    if (!taskIndex(table, row, QStringLiteral("task_id"), task))
        return false;
    const QString resource = value(table, row, QStringLiteral("rsrc_id"));
    if (!m_materialOf.contains(resource))
        return fail(where(table, row, QStringLiteral("rsrc_id")),
                    QStringLiteral("expected the id of a resource, found \"%1\", which no resource has")
                        .arg(resource));
    double quantity = 0.0;
    double perHour = 0.0;
    if (!hours(table, row, QStringLiteral("target_qty"), 0.0, quantity) ||
        !hours(table, row, QStringLiteral("target_qty_per_hr"), 0.0, perHour))
        return false;
    if (task < 0)
        return true; // an assignment of a skipped activity
    const double dayHours = m_tasks[task].dayHours;
    const bool material = m_materialOf.value(resource);
    ImportedAssignment assignment;
    assignment.task = m_tasks[task].task.id;
    assignment.resource = resource;
    assignment.where = where(table, row, QString());
    if (!value(table, row, QStringLiteral("target_qty")).isEmpty())
        assignment.total = material ? quantity : quantity / dayHours;
    if (!value(table, row, QStringLiteral("target_qty_per_hr")).isEmpty())
        assignment.unitsPerDay = material ? perHour * dayHours : perHour;
    out.assignments.append(assignment);
    return true;
}

// The WBS elements above a task's own, outermost first, up to the project node.
// False on a cycle of parents, with cycle set to an element on it.
bool XerReader::wbsChain(const QString& wbs, QStringList& chain, QString& cycle) const {
    for (QString id = wbs; m_wbs.contains(id) && !m_wbs[id].projectNode; id = m_wbs[id].parent) {
        if (chain.size() >= m_wbs.size()) {
            cycle = id;
            return false;
        }
        chain.prepend(id);
    }
    return true;
}

// Tasks in file order; each WBS element stands where the first task below it does, as a summary
// with its tasks and deeper elements one outline level below it. Empty WBS elements are left out.
bool XerReader::orderTasks() {
    QVector<OutlineNode> nodes(1); // the root
    QHash<QString, int> nodeOfWbs;
    for (int t = 0; t < m_tasks.size(); ++t) {
        QStringList chain;
        QString cycle;
        if (!wbsChain(m_tasks[t].wbs, chain, cycle))
            return fail(m_wbs[cycle].where,
                        QStringLiteral("expected a WBS tree, found a cycle of parent_wbs_id through \"%1\"")
                            .arg(cycle));
        int parent = 0;
        for (const QString& wbs : chain) {
            if (!nodeOfWbs.contains(wbs)) {
                nodeOfWbs.insert(wbs, nodes.size());
                nodes[parent].children.append(nodes.size());
                nodes.append(OutlineNode{wbs, -1, {}});
            }
            parent = nodeOfWbs.value(wbs);
        }
        nodes[parent].children.append(nodes.size());
        nodes.append(OutlineNode{QString(), t, {}});
    }
    flatten(nodes);
    return true;
}

// Depth first without recursion: a hostile file may nest WBS elements very deep.
void XerReader::flatten(const QVector<OutlineNode>& nodes) {
    QVector<QPair<int, int>> stack; // node, outline level
    for (int k = nodes[0].children.size() - 1; k >= 0; --k)
        stack.append(qMakePair(nodes[0].children[k], 1));
    while (!stack.isEmpty()) {
        const QPair<int, int> top = stack.takeLast();
        const OutlineNode& node = nodes[top.first];
        ImportedTask task;
        if (node.task >= 0) {
            task = m_tasks[node.task].task;
        } else {
            const XerWbs& wbs = m_wbs[node.wbs];
            task.id = QStringLiteral("WBS ") + node.wbs;
            task.name = wbs.name;
            task.summary = true;
            task.where = wbs.where;
        }
        task.outlineLevel = top.second;
        out.tasks.append(task);
        for (int k = node.children.size() - 1; k >= 0; --k)
            stack.append(qMakePair(node.children[k], top.second + 1));
    }
}

} // namespace

bool isPrimaveraXer(const FileSignature& file) {
    return file.firstLine == "ERMHDR" || file.firstLine.startsWith("ERMHDR\t");
}

bool readPrimaveraXer(const FileSignature& file, ImportedSchedule& out, ReadError& error) {
    XerReader reader(out, error);
    return reader.read(file.bytes);
}

} // namespace Host
