#include "coursesettings.h"

#include "jsonreader.h"
#include "markrulecodes.h"
#include "projectreader.h"

#include <QFile>

namespace Host {

namespace {

// Keys of the curve limits, by variance curve from SkedLabourCurve to SkedFormworkCurve.
const char* const curveGroupKeys[] = {"labour", "rebar", "concrete", "formwork"};
const int curveGroups = MarkCode::SkedFormworkCurve - MarkCode::SkedLabourCurve + 1;
static_assert(sizeof(curveGroupKeys) / sizeof(*curveGroupKeys) == curveGroups, "one key per curve group");
const qint64 largestNetworkLimit = 100000;

void readImport(JsonReader& r, const QJsonObject& root, ImportOptions& import) {
    const QString root$ = QStringLiteral("$");
    if (r.has(root, "scene")) {
        const int scene = sceneCode(r.text(root, root$, "scene", true));
        if (r.ok() && scene < 0)
            r.fail(QStringLiteral("$.scene"), QStringLiteral("\"plain\", \"Site\" or \"Twin\""),
                   root.value(QLatin1String("scene")));
        import.scene = scene;
    }
    if (r.has(root, "durations")) {
        const QString durations = r.text(root, root$, "durations", true);
        if (durations == QLatin1String("exact"))
            import.durations = ImportOptions::Durations::Exact;
        else if (durations == QLatin1String("weeks"))
            import.durations = ImportOptions::Durations::Weeks;
        else
            r.fail(QStringLiteral("$.durations"), QStringLiteral("\"exact\" or \"weeks\""),
                   root.value(QLatin1String("durations")));
    }
    const QJsonObject gantt = r.object(root, root$, "gantt", false);
    const QString ganttPath = QStringLiteral("$.gantt");
    r.checkKeys(gantt, ganttPath, {"timeUnit", "rowsPerPage"});
    if (r.has(gantt, "timeUnit"))
        import.timeUnit = r.text(gantt, ganttPath, "timeUnit", true);
    if (r.has(gantt, "rowsPerPage"))
        import.rowsPerPage = r.integer(gantt, ganttPath, "rowsPerPage", true, 0, 0, 100000,
                                       QStringLiteral("a whole number of rows from 0 to 100000"));
    const QJsonObject names = r.object(root, root$, "resourceNames", false);
    for (auto it = names.constBegin(); it != names.constEnd() && r.ok(); ++it) {
        if (!it.value().isString())
            r.fail(JsonReader::member(QStringLiteral("$.resourceNames"), qPrintable(it.key())),
                   QStringLiteral("the name to use, a text"), it.value());
        import.resourceNames.insert(tidyName(it.key()), tidyName(it.value().toString()));
    }
}

void readGrading(JsonReader& r, const QJsonObject& root, CourseSettings& settings) {
    const QJsonObject limits = r.object(root, QStringLiteral("$"), "curveLimits", false);
    const QString limitsPath = QStringLiteral("$.curveLimits");
    r.checkKeys(limits, limitsPath,
                {curveGroupKeys[0], curveGroupKeys[1], curveGroupKeys[2], curveGroupKeys[3]});
    for (int group = 0; group < curveGroups; ++group)
        if (r.has(limits, curveGroupKeys[group]))
            settings.curveLimits.insert(MarkCode::SkedLabourCurve + group,
                                        r.number(limits, limitsPath, curveGroupKeys[group], true, 0.0, 0.0));
    if (r.has(root, "networkLimit"))
        settings.networkLimit =
            r.integer(root, QStringLiteral("$"), "networkLimit", true, 0, 1, largestNetworkLimit,
                      QStringLiteral("a whole number of work items from 1 to %1").arg(largestNetworkLimit));
}

} // namespace

QString curveGroupKey(int attributeType) {
    const int group = attributeType - MarkCode::SkedLabourCurve;
    return group >= 0 && group < curveGroups ? QLatin1String(curveGroupKeys[group]) : QString();
}

bool readCourseSettingsDocument(const QByteArray& bytes, const QString& fileName, CourseSettings& settings,
                                ReadError& error) {
    JsonReader reader(fileName);
    QJsonObject root;
    CourseSettings read;
    if (reader.parse(bytes, root)) {
        reader.checkKeys(root, QStringLiteral("$"),
                         {"scene", "durations", "gantt", "resourceNames", "curveLimits", "networkLimit"});
        readImport(reader, root, read.import);
        readGrading(reader, root, read);
    }
    error = reader.error();
    if (reader.ok())
        settings = read;
    return reader.ok();
}

bool readCourseSettingsFile(const QString& path, CourseSettings& settings, ReadError& error) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = ReadError{path, QString(), QStringLiteral("cannot be read: %1").arg(file.errorString())};
        return false;
    }
    return readCourseSettingsDocument(file.readAll(), path, settings, error);
}

} // namespace Host
