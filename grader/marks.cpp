#include "marks.h"

#include <QFile>

namespace Grade {

namespace {
// Full marks of one category or tree; totals of them stay exact in a double.
const double maxMarks = 10000.0;
// Keys of the schedule categories in a marks file, by category type from CategoryFirst.
const char* const scheduleKeys[] = {"integrity", "attributes",  "logic",     "resourceCurves",
                                    "gantt",     "rationality", "principles"};
static_assert(sizeof(scheduleKeys) / sizeof(*scheduleKeys) ==
                  MarkCode::CategoryLast - MarkCode::CategoryFirst + 1,
              "one key per schedule category");
} // namespace

QString Marks::scheduleKey(int type) {
    return type >= MarkCode::CategoryFirst && type <= MarkCode::CategoryLast
               ? QLatin1String(scheduleKeys[type - MarkCode::CategoryFirst])
               : QString();
}

bool readMarksDocument(const QByteArray& bytes, const QString& fileName, Marks& marks,
                       Host::ReadError& error) {
    Host::JsonReader reader(fileName);
    QJsonObject root;
    Marks read;
    if (reader.parse(bytes, root)) {
        reader.checkKeys(root, QStringLiteral("$"), {"schedule", "pricing", "model"});
        const QJsonObject schedule = reader.object(root, QStringLiteral("$"), "schedule", false);
        reader.checkKeys(schedule, QStringLiteral("$.schedule"),
                         {scheduleKeys[0], scheduleKeys[1], scheduleKeys[2], scheduleKeys[3], scheduleKeys[4],
                          scheduleKeys[5], scheduleKeys[6]});
        for (int type = MarkCode::CategoryFirst; type <= MarkCode::CategoryLast; ++type)
            read.schedule[type] = reader.number(schedule, QStringLiteral("$.schedule"),
                                                scheduleKeys[type - MarkCode::CategoryFirst], false,
                                                read.schedule.value(type), 0.0, maxMarks);
        read.pricing =
            reader.number(root, QStringLiteral("$"), "pricing", false, read.pricing, 0.0, maxMarks);
        read.model = reader.number(root, QStringLiteral("$"), "model", false, read.model, 0.0, maxMarks);
    }
    error = reader.error();
    if (reader.ok())
        marks = read;
    return reader.ok();
}

bool readMarksFile(const QString& path, Marks& marks, Host::ReadError& error) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error =
            Host::ReadError{path, QString(), QStringLiteral("cannot be read: %1").arg(file.errorString())};
        return false;
    }
    return readMarksDocument(file.readAll(), path, marks, error);
}

} // namespace Grade
