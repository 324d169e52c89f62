#include "mpxformat.h"

#include <QHash>
#include <QSet>
#include <QTextCodec>

#include <algorithm>
#include <cctype>
#include <cmath>

namespace Host {

namespace {

// Record numbers, the first field of each record.
enum MpxRecord {
    Comments = 0,
    CurrencySettings = 10,
    DefaultSettings = 11,
    DateTimeSettings = 12,
    BaseCalendar = 20,
    BaseCalendarHours = 25,
    BaseCalendarException = 26,
    ProjectHeader = 30,
    ResourceDefinitionText = 40,
    ResourceDefinition = 41,
    Resource = 50,
    ResourceNotes = 51,
    ResourceCalendar = 55,
    ResourceCalendarHours = 56,
    ResourceCalendarException = 57,
    TaskDefinitionText = 60,
    TaskDefinition = 61,
    Task = 70,
    TaskNotes = 71,
    RecurringTask = 72,
    Assignment = 75,
    AssignmentWorkgroup = 76,
    ProjectNames = 80,
    DdeOleLinks = 81,
};

// Task field numbers of the definition records that the reader uses.
enum TaskField {
    TaskName = 1,
    OutlineLevel = 3,
    Duration = 40,
    Predecessors = 70,
    UniqueIdPredecessors = 74,
    Fixed = 80,
    Milestone = 81,
    TaskId = 90,
    TaskUniqueId = 98,
    Summary = 120,
};

enum ResourceField { ResourceName = 1, ResourceCode = 4, ResourceId = 40, ResourceUniqueId = 49 };

// Assignment record fields, by position.
enum AssignmentField { AssignedResourceId = 1, Units = 2, Work = 3, AssignedResourceUniqueId = 13 };

const QHash<QString, int>& taskFieldNames() {
    static const QHash<QString, int> names{{QStringLiteral("Name"), TaskName},
                                           {QStringLiteral("Outline Level"), OutlineLevel},
                                           {QStringLiteral("Duration"), Duration},
                                           {QStringLiteral("Predecessors"), Predecessors},
                                           {QStringLiteral("Unique ID Predecessors"), UniqueIdPredecessors},
                                           {QStringLiteral("Fixed"), Fixed},
                                           {QStringLiteral("Milestone"), Milestone},
                                           {QStringLiteral("ID"), TaskId},
                                           {QStringLiteral("Unique ID"), TaskUniqueId},
                                           {QStringLiteral("Summary"), Summary}};
    return names;
}

const QHash<QString, int>& resourceFieldNames() {
    static const QHash<QString, int> names{{QStringLiteral("Name"), ResourceName},
                                           {QStringLiteral("Code"), ResourceCode},
                                           {QStringLiteral("ID"), ResourceId},
                                           {QStringLiteral("Unique ID"), ResourceUniqueId}};
    return names;
}

const double maxNumber = 1.0e9;   // every number read is within ±maxNumber
const double daysPerMonth = 20.0; // MS Project's default
const double monthsPerYear = 12.0;
const int maxOutlineLevel = 100000;

// A tab or ASCII punctuation other than the quote.
bool isDelimiter(char c) {
    return c == '\t' || (c > ' ' && c < 0x7f && c != '"' && !std::isalnum(static_cast<unsigned char>(c)));
}

// The code pages that the header may name, as Qt calls them.
QTextCodec* codecOf(const QString& codePage) {
    static const QHash<QString, QByteArray> names{{QStringLiteral("ANSI"), "Windows-1252"},
                                                  {QStringLiteral("437"), "IBM437"},
                                                  {QStringLiteral("850"), "IBM850"},
                                                  {QStringLiteral("MAC"), "macintosh"},
                                                  {QStringLiteral("UTF8"), "UTF-8"}};
    const QByteArray name = names.value(codePage.isEmpty() ? QStringLiteral("ANSI") : codePage.toUpper());
    return name.isEmpty() ? nullptr : QTextCodec::codecForName(name);
}

struct MpxLine {
    int line = 0;
    QStringList fields; // fields[0] is the record number
};

// Records, one a line; a field in double quotes may hold the delimiter, line ends and "" for ".
QList<MpxLine> splitRecords(const QString& text, QChar delimiter) {
    QList<MpxLine> records;
    MpxLine current{1, {QString()}};
    int line = 1;
    bool quoted = false;
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (quoted) {
            if (c == QLatin1Char('"') && i + 1 < text.size() && text[i + 1] == QLatin1Char('"'))
                current.fields.last() += text[++i];
            else if (c == QLatin1Char('"'))
                quoted = false;
            else
                current.fields.last() += c;
            line += c == QLatin1Char('\n');
        } else if (c == QLatin1Char('"') && current.fields.last().isEmpty()) {
            quoted = true;
        } else if (c == delimiter) {
            current.fields.append(QString());
        } else if (c == QLatin1Char('\n')) {
            if (current.fields.size() > 1 || !current.fields.first().trimmed().isEmpty())
                records.append(current);
            current = MpxLine{++line, {QString()}};
        } else if (c != QLatin1Char('\r')) {
            current.fields.last() += c;
        }
    }
    if (current.fields.size() > 1 || !current.fields.first().trimmed().isEmpty())
        records.append(current);
    return records;
}

// A task as its record gives it, before links are resolved.
struct MpxTask {
    ImportedTask task;
    QString number; // the ID that Predecessors refer to
    QString uniqueId;
    QString predecessors;
    QString uniquePredecessors;
    int outlineLevel = 1;
    QString predecessorsWhere;
};

struct PendingLink {
    int task = 0;      // successor, index in out.tasks
    QString reference; // the predecessor's ID, or its unique ID
    bool byUniqueId = false;
    ImportedLink link;
    double lagPercent = 0.0; // of the predecessor's duration, added to link.lagDays
};

class MpxReader {
public:
    MpxReader(ImportedSchedule& out, ReadError& error) : out(out), error(error) {}
    bool read(const QByteArray& bytes);

private:
    bool fail(const QString& where, const QString& message) { return error.fail(where, message); }
    static QString at(const MpxLine& record, int field = 0, const QString& name = QString());
    bool header(const QByteArray& bytes, QString& text);
    bool record(const MpxLine& record);
    bool currency(const MpxLine& record);
    bool defaults(const MpxLine& record);
    bool definition(const MpxLine& record, bool numeric, QVector<int>& model, bool& numericSeen,
                    const QHash<QString, int>& names);
    bool number(const QString& text, const QString& where, const QString& what, double min, double max,
                double& result) const;
    bool yesNo(const QString& text, const QString& where, bool& result);
    bool duration(const QString& text, const QString& where, bool lag, double& days, double* percent);
    bool unitDays(const QString& unit, double& days) const;
    bool extraFields(const MpxLine& record, const QVector<int>& model, const QString& kind);
    bool task(const MpxLine& record);
    bool taskField(const MpxLine& record, int position, MpxTask& task);
    bool addTask(const MpxLine& record, MpxTask& task);
    bool predecessors(const QString& text, const QString& where, bool byUniqueId);
    bool resolveLinks();
    bool resource(const MpxLine& record);
    bool assignment(const MpxLine& record);
    bool assignedResource(const MpxLine& record, QString& resource);

    ImportedSchedule& out;
    ReadError& error;
    QChar m_delimiter;
    QChar m_decimal = QLatin1Char('.');
    double m_dayHours = 8.0;
    double m_weekHours = 40.0;
    QString m_defaultUnit = QStringLiteral("d");
    QVector<int> m_taskModel;
    QVector<int> m_resourceModel;
    bool m_taskNumeric = false;
    bool m_resourceNumeric = false;
    int m_taskRecords = 0;
    int m_resourceRecords = 0;
    int m_lastTask = -1;                // index in out.tasks of the task the next assignments belong to
    bool m_taskSeen = false;            // a task record came, even one left out
    QHash<QString, int> m_taskOfId;     // task id -> index in out.tasks
    QHash<QString, int> m_taskOfNumber; // ID -> index in out.tasks
    QHash<QString, QString> m_resourceOfNumber; // resource ID -> resource id
    QSet<QString> m_resourceIds;
    QList<PendingLink> m_links;
};

QString MpxReader::at(const MpxLine& record, int field, const QString& name) {
    QString where = QStringLiteral("line %1").arg(record.line);
    if (field > 0)
        where += QStringLiteral(", field %1").arg(field);
    if (!name.isEmpty())
        where += QStringLiteral(" (%1)").arg(name);
    return where;
}

bool MpxReader::read(const QByteArray& bytes) {
    out.format = QStringLiteral("MPX");
    out.tasksWhere = QStringLiteral("task records");
    QString text;
    if (!header(bytes, text))
        return false;
    const QList<MpxLine> records = splitRecords(text, m_delimiter);
    for (int r = 1; r < records.size(); ++r)
        if (!record(records[r]))
            return false;
    return resolveLinks();
}

// The delimiter is the byte after "MPX"; the fourth field names the code page of the rest.
bool MpxReader::header(const QByteArray& bytes, QString& text) {
    int digits = 0;
    while (digits < bytes.size() && std::isdigit(static_cast<unsigned char>(bytes[digits])))
        ++digits;
    if (!bytes.startsWith("MPX"))
        return fail(QStringLiteral("line 1"),
                    QStringLiteral("expected the header record MPX,<program>,<version>,<code page> first, "
                                   "found record %1")
                        .arg(QString::fromLatin1(bytes.left(digits))));
    m_delimiter = QLatin1Char(bytes[3]);
    const int lineEnd = bytes.indexOf('\n');
    const QList<QByteArray> fields =
        bytes.left(lineEnd < 0 ? bytes.size() : lineEnd).trimmed().split(bytes[3]);
    const QString codePage = QString::fromLatin1(fields.value(3)).trimmed();
    QTextCodec* codec = codecOf(codePage);
    if (!codec)
        return fail(QStringLiteral("line 1, field 3"),
                    QStringLiteral("expected the code page ANSI, 437, 850, MAC or UTF8, found \"%1\"")
                        .arg(codePage.left(40)));
    text = codec->toUnicode(bytes);
    return true;
}

bool MpxReader::record(const MpxLine& record) {
    bool ok = false;
    const int number = record.fields.first().trimmed().toInt(&ok);
    switch (ok ? number : -1) {
    case CurrencySettings:
        return currency(record);
    case DefaultSettings:
        return defaults(record);
    case ResourceDefinitionText:
    case ResourceDefinition:
        return definition(record, number == ResourceDefinition, m_resourceModel, m_resourceNumeric,
                          resourceFieldNames());
    case TaskDefinitionText:
    case TaskDefinition:
        return definition(record, number == TaskDefinition, m_taskModel, m_taskNumeric, taskFieldNames());
    case Resource:
        return resource(record);
    case Task:
        return task(record);
    case Assignment:
        return assignment(record);
    case Comments:
    case DateTimeSettings:
    case BaseCalendar:
    case BaseCalendarHours:
    case BaseCalendarException:
    case ProjectHeader:
    case ResourceNotes:
    case ResourceCalendar:
    case ResourceCalendarHours:
    case ResourceCalendarException:
    case TaskNotes:
    case RecurringTask:
    case AssignmentWorkgroup:
    case ProjectNames:
    case DdeOleLinks:
        return true; // dates, calendars, notes and links to other programs are not read
    default:
        return fail(at(record), QStringLiteral("expected an MPX record number, found \"%1\"")
                                    .arg(record.fields.first().left(40)));
    }
}

// Currency settings: field 5 is the decimal separator of every number in the file.
bool MpxReader::currency(const MpxLine& record) {
    const QString decimal = record.fields.value(5).trimmed();
    if (decimal.isEmpty())
        return true;
    if (decimal.size() != 1 || decimal[0].isDigit() || decimal[0] == m_delimiter)
        return fail(at(record, 5),
                    QStringLiteral("expected a decimal separator of one character, found \"%1\"")
                        .arg(decimal.left(40)));
    m_decimal = decimal[0];
    return true;
}

// Default settings: 1 the unit of a bare duration number, 4 hours per day, 5 hours per week.
bool MpxReader::defaults(const MpxLine& record) {
    static const QStringList units{QStringLiteral("m"), QStringLiteral("h"),   QStringLiteral("d"),
                                   QStringLiteral("w"), QStringLiteral("mon"), QStringLiteral("y")};
    const QString unit = record.fields.value(1).trimmed();
    double code = 2.0;
    if (!unit.isEmpty() && !number(unit, at(record, 1), QStringLiteral("a duration unit code from 0 to 5"), 0,
                                   units.size() - 1, code))
        return false;
    m_defaultUnit = units[int(code)];
    const QString day = record.fields.value(4).trimmed();
    const QString week = record.fields.value(5).trimmed();
    if (!day.isEmpty() &&
        !number(day, at(record, 4), QStringLiteral("hours per day from 1 to 24"), 1, 24, m_dayHours))
        return false;
    return week.isEmpty() ||
           number(week, at(record, 5), QStringLiteral("hours per week from 1 to 168"), 1, 168, m_weekHours);
}

// A definition lists, in order, the field each later record of its kind holds: 61 and 41 by
// number, 60 and 40 by name; the numeric one wins where both are given.
bool MpxReader::definition(const MpxLine& record, bool numeric, QVector<int>& model, bool& numericSeen,
                           const QHash<QString, int>& names) {
    if (!numeric && numericSeen)
        return true;
    numericSeen = numericSeen || numeric;
    model.clear();
    for (int f = 1; f < record.fields.size(); ++f) {
        const QString text = record.fields[f].trimmed();
        double field = 0;
        if (!numeric)
            model.append(names.value(text, 0)); // fields not read are 0
        else if (number(text, at(record, f), QStringLiteral("a field number"), 0, 1000, field))
            model.append(int(field));
        else
            return false;
    }
    return true;
}

bool MpxReader::number(const QString& text, const QString& where, const QString& what, double min, double max,
                       double& result) const {
    QString plain = text.trimmed();
    if (m_decimal != QLatin1Char('.') && !plain.contains(QLatin1Char('.')))
        plain.replace(m_decimal, QLatin1Char('.'));
    bool ok = false;
    result = plain.toDouble(&ok);
    if (ok && std::isfinite(result) && result >= min && result <= max)
        return true;
    return error.fail(where, QStringLiteral("expected %1, found \"%2\"").arg(what, text.left(40)));
}

bool MpxReader::yesNo(const QString& text, const QString& where, bool& result) {
    const QString value = text.trimmed();
    result = value.compare(QLatin1String("Yes"), Qt::CaseInsensitive) == 0 || value == QLatin1String("1");
    if (result || value.compare(QLatin1String("No"), Qt::CaseInsensitive) == 0 || value == QLatin1String("0"))
        return true;
    return fail(where, QStringLiteral("expected Yes or No, found \"%1\"").arg(value.left(40)));
}

// Working days in one unit: m h d w mon y count working time by the file's hours per day and week;
// elapsed units (em eh ed ew emon ey) count calendar time, a calendar week being a working week.
bool MpxReader::unitDays(const QString& unit, double& days) const {
    const double weekDays = m_weekHours / m_dayHours;
    static const QHash<QString, double> calendarDays{
        {QStringLiteral("em"), 1.0 / 1440}, {QStringLiteral("eh"), 1.0 / 24}, {QStringLiteral("ed"), 1.0},
        {QStringLiteral("ew"), 7.0},        {QStringLiteral("emon"), 30.0},   {QStringLiteral("ey"), 365.0}};
    const QHash<QString, double> workingDays{{QStringLiteral("m"), 1.0 / 60 / m_dayHours},
                                             {QStringLiteral("h"), 1.0 / m_dayHours},
                                             {QStringLiteral("d"), 1.0},
                                             {QStringLiteral("w"), weekDays},
                                             {QStringLiteral("mon"), daysPerMonth},
                                             {QStringLiteral("y"), daysPerMonth * monthsPerYear}};
    if (workingDays.contains(unit))
        days = workingDays.value(unit);
    else if (calendarDays.contains(unit))
        days = calendarDays.value(unit) * weekDays / 7.0;
    else
        return false;
    return true;
}

// "3d", "16h", "2w", "3ed", "1.5d?" (estimated); a lag may be signed or a percentage ("50%").
bool MpxReader::duration(const QString& text, const QString& where, bool lag, double& days, double* percent) {
    QString value = text.trimmed();
    if (value.endsWith(QLatin1Char('?')))
        value.chop(1);
    int split = value.size();
    while (split > 0 && (value[split - 1].isLetter() || value[split - 1] == QLatin1Char('%')))
        --split;
    const QString unit = value.mid(split).toLower();
    const QString expected = lag ? QStringLiteral("a lag such as +2d, -1d, 16h or 50%")
                                 : QStringLiteral("a duration such as 3d, 16h or 2w");
    double amount = 0.0;
    if (split == 0 || !number(value.left(split), where, expected, lag ? -maxNumber : 0.0, maxNumber, amount))
        return fail(where,
                    QStringLiteral("expected %1, found \"%2\"").arg(expected, text.trimmed().left(40)));
    double perUnit = 1.0;
    if (percent && (unit == QLatin1String("%") || unit == QLatin1String("e%"))) {
        *percent = amount;
        days = 0.0;
        return true;
    }
    if (!unitDays(unit.isEmpty() ? m_defaultUnit : unit, perUnit))
        return fail(where, QStringLiteral("expected %1, found \"%2\" with the unknown unit \"%3\"")
                               .arg(expected, text.trimmed().left(40), value.mid(split).left(10)));
    days = amount * perUnit;
    return true;
}

// Values past the fields that the definition lists have no meaning: only empty ones are allowed.
bool MpxReader::extraFields(const MpxLine& record, const QVector<int>& model, const QString& kind) {
    for (int position = model.size() + 1; position < record.fields.size(); ++position)
        if (!record.fields[position].trimmed().isEmpty())
            return fail(at(record, position),
                        QStringLiteral("expected at most %1 fields, as the %2 definition lists, found \"%3\" "
                                       "in field %4")
                            .arg(model.size())
                            .arg(kind, record.fields[position].trimmed().left(40))
                            .arg(position));
    return true;
}

bool MpxReader::task(const MpxLine& record) {
    if (m_taskModel.isEmpty())
        return fail(at(record),
                    QStringLiteral("expected a task definition record (60 or 61) before the first "
                                   "task record (70), found none"));
    if (!extraFields(record, m_taskModel, QStringLiteral("task")))
        return false;
    MpxTask task;
    task.task.where = at(record);
    task.number = QString::number(++m_taskRecords);
    for (int position = 1; position < record.fields.size() && position <= m_taskModel.size(); ++position)
        if (!taskField(record, position, task))
            return false;
    return addTask(record, task);
}

bool MpxReader::taskField(const MpxLine& record, int position, MpxTask& task) {
    const QString value = record.fields[position].trimmed();
    const int field = m_taskModel[position - 1];
    const QString where = at(record, position, taskFieldNames().key(field));
    double level = 1.0;
    bool flag = false;
    switch (value.isEmpty() ? 0 : field) {
    case TaskName:
        task.task.name = value;
        return true;
    case OutlineLevel:
        if (!number(value, where, QStringLiteral("an outline level from 0 to %1").arg(maxOutlineLevel), 0,
                    maxOutlineLevel, level))
            return false;
        task.outlineLevel = int(level);
        return true;
    case Duration:
        return duration(value, where, false, task.task.durationDays, nullptr);
    case Predecessors:
        task.predecessors = value;
        task.predecessorsWhere = where;
        return true;
    case UniqueIdPredecessors:
        task.uniquePredecessors = value;
        if (task.predecessorsWhere.isEmpty())
            task.predecessorsWhere = where;
        return true;
    case Fixed:
        if (!yesNo(value, where, flag))
            return false;
        task.task.fixedDuration = flag;
        return true;
    case Milestone:
        return yesNo(value, where, task.task.milestone);
    case Summary:
        return yesNo(value, where, task.task.summary);
    case TaskId:
        task.number = value;
        return true;
    case TaskUniqueId:
        task.uniqueId = value;
        return true;
    default:
        return true; // a field not read, or an empty one
    }
}

// Level 0 is the project's own summary and a task without a name a blank row: both left out,
// with the assignments after them.
bool MpxReader::addTask(const MpxLine& record, MpxTask& task) {
    m_taskSeen = true;
    m_lastTask = -1;
    if (task.outlineLevel == 0 || task.task.name.isEmpty())
        return true;
    // MS Project schedules a task marked as a milestone by its duration: only a 0-day one is a milestone.
    task.task.milestone = task.task.milestone && task.task.durationDays <= 0.0;
    task.task.id = task.uniqueId.isEmpty() ? task.number : task.uniqueId;
    task.task.outlineLevel = task.outlineLevel;
    if (m_taskOfNumber.contains(task.number))
        return fail(at(record),
                    QStringLiteral("expected a task ID not used before, found %1").arg(task.number));
    m_lastTask = out.tasks.size();
    m_taskOfNumber.insert(task.number, m_lastTask);
    m_taskOfId.insert(task.task.id, m_lastTask);
    out.tasks.append(task.task);
    if (!task.predecessors.isEmpty())
        return predecessors(task.predecessors, task.predecessorsWhere, false);
    return task.uniquePredecessors.isEmpty() ||
           predecessors(task.uniquePredecessors, task.predecessorsWhere, true);
}

// "2FS+2d,5SS-1d,7": predecessor, type (FS when left out) and lag, split by the file's delimiter.
bool MpxReader::predecessors(const QString& text, const QString& where, bool byUniqueId) {
    static const QStringList types{QStringLiteral("FS"), QStringLiteral("SS"), QStringLiteral("FF"),
                                   QStringLiteral("SF")};
    for (const QString& item : text.split(m_delimiter)) {
        const QString link = item.trimmed();
        int digits = 0;
        while (digits < link.size() && link[digits].isDigit())
            ++digits;
        const int type = link.size() >= digits + 2 ? types.indexOf(link.mid(digits, 2).toUpper()) : -1;
        if (digits == 0 || (digits < link.size() && type < 0))
            return fail(where, QStringLiteral("expected predecessors such as 2FS+2d,5SS-1d, found \"%1\"")
                                   .arg(link.left(40)));
        PendingLink pending;
        pending.task = m_lastTask;
        pending.reference = link.left(digits);
        pending.byUniqueId = byUniqueId;
        pending.link.type = LinkType(std::max(type, 0));
        pending.link.where = where;
        const QString lag = link.mid(digits + 2);
        if (!lag.isEmpty() && !duration(lag, where, true, pending.link.lagDays, &pending.lagPercent))
            return false;
        m_links.append(pending);
    }
    return true;
}

// Links name tasks that may come later in the file; a percentage lag is of the predecessor's duration.
bool MpxReader::resolveLinks() {
    for (const PendingLink& pending : m_links) {
        const int predecessor = pending.byUniqueId ? m_taskOfId.value(pending.reference, -1)
                                                   : m_taskOfNumber.value(pending.reference, -1);
        if (predecessor < 0)
            return fail(pending.link.where,
                        QStringLiteral("expected the %1 of a task, found %2, which no task has")
                            .arg(pending.byUniqueId ? QStringLiteral("unique ID") : QStringLiteral("ID"),
                                 pending.reference));
        ImportedLink link = pending.link;
        link.predecessor = out.tasks[predecessor].id;
        link.lagDays += pending.lagPercent / 100.0 * out.tasks[predecessor].durationDays;
        out.tasks[pending.task].links.append(link);
    }
    return true;
}

bool MpxReader::resource(const MpxLine& record) {
    if (m_resourceModel.isEmpty())
        return fail(at(record), QStringLiteral("expected a resource definition record (40 or 41) before the "
                                               "first resource record (50), found none"));
    if (!extraFields(record, m_resourceModel, QStringLiteral("resource")))
        return false;
    ImportedResource resource;
    resource.where = at(record);
    QString number = QString::number(++m_resourceRecords);
    QString uniqueId;
    for (int position = 1; position < record.fields.size() && position <= m_resourceModel.size();
         ++position) {
        const QString value = record.fields[position].trimmed();
        switch (m_resourceModel[position - 1]) {
        case ResourceName:
            resource.name = value;
            break;
        case ResourceCode:
            resource.code = value;
            break;
        case ResourceId:
            number = value.isEmpty() ? number : value;
            break;
        case ResourceUniqueId:
            uniqueId = value;
            break;
        }
    }
    resource.id = uniqueId.isEmpty() ? number : uniqueId;
    if (m_resourceOfNumber.contains(number))
        return fail(at(record),
                    QStringLiteral("expected a resource ID not used before, found %1").arg(number));
    m_resourceOfNumber.insert(number, resource.id);
    m_resourceIds.insert(resource.id);
    out.resources.append(resource);
    return true;
}

// Field 13, the resource's unique ID, when given; else field 1, its ID.
bool MpxReader::assignedResource(const MpxLine& record, QString& resource) {
    const QString uniqueId = record.fields.value(AssignedResourceUniqueId).trimmed();
    const QString number = record.fields.value(AssignedResourceId).trimmed();
    resource = uniqueId.isEmpty() ? m_resourceOfNumber.value(number) : uniqueId;
    if (m_resourceIds.contains(resource))
        return true;
    return uniqueId.isEmpty()
               ? fail(at(record, AssignedResourceId),
                      QStringLiteral("expected the ID of a resource, found \"%1\", which no "
                                     "resource has")
                          .arg(number.left(40)))
               : fail(at(record, AssignedResourceUniqueId),
                      QStringLiteral("expected the unique ID of a resource, found \"%1\", which "
                                     "no resource has")
                          .arg(uniqueId.left(40)));
}

// Units "200%" or 2 (workers), work a duration of the resource's time (person-days).
bool MpxReader::assignment(const MpxLine& record) {
    if (!m_taskSeen)
        return fail(at(record), QStringLiteral("expected a task record (70) before the first resource "
                                               "assignment (75), found none"));
    ImportedAssignment assignment;
    assignment.where = at(record);
    if (!assignedResource(record, assignment.resource))
        return false;
    QString units = record.fields.value(Units).trimmed();
    const bool percent = units.endsWith(QLatin1Char('%'));
    if (percent)
        units.chop(1);
    if (!units.isEmpty() && !number(units, at(record, Units), QStringLiteral("units such as 200% or 2"), 0,
                                    maxNumber, assignment.unitsPerDay))
        return false;
    if (percent)
        assignment.unitsPerDay /= 100.0;
    const QString work = record.fields.value(Work).trimmed();
    if (!work.isEmpty() && !duration(work, at(record, Work), false, assignment.total, nullptr))
        return false;
    if (m_lastTask < 0)
        return true; // of a task left out
    assignment.task = out.tasks[m_lastTask].id;
    out.assignments.append(assignment);
    return true;
}

} // namespace

bool isMpx(const FileSignature& file) {
    const QByteArray& line = file.firstLine;
    if (line.startsWith("MPX") && line.size() > 3 && isDelimiter(line[3]))
        return true;
    int digits = 0;
    while (digits < line.size() && std::isdigit(static_cast<unsigned char>(line[digits])))
        ++digits;
    const int header = file.bytes.indexOf("\nMPX");
    return digits > 0 && digits < line.size() && header >= 0 && header + 4 < file.bytes.size() &&
           isDelimiter(line[digits]) && file.bytes[header + 4] == line[digits];
}

bool readMpx(const FileSignature& file, ImportedSchedule& out, ReadError& error) {
    MpxReader reader(out, error);
    return reader.read(file.bytes);
}

} // namespace Host
