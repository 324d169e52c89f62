#include "projectreader.h"

#include "formats/filesignature.h"
#include "formats/jsonformat.h"
#include "formats/ganformat.h"
#include "formats/mspdiformat.h"
#include "formats/plannerformat.h"
#include "formats/mpxformat.h"
#include "formats/xerformat.h"

#include <QFile>
#include <QHash>

namespace Host {

namespace {

// A schedule format other than our own: how to recognise a file of it and how to read one.
struct ScheduleFormat {
    const char* name;
    bool (*recognises)(const FileSignature& file);
    bool (*read)(const FileSignature& file, ImportedSchedule& out, ReadError& error);
};

const ScheduleFormat scheduleFormats[] = {
    {"MS Project XML", isMsProjectXml, readMsProjectXml},
    {"GanttProject", isGanttProject, readGanttProject},
    {"GNOME Planner", isPlanner, readPlanner},
    {"Primavera P6 XER", isPrimaveraXer, readPrimaveraXer},
    {"MPX", isMpx, readMpx},
};

const int headShown = 40; // characters of an unrecognised file shown in its message

QString describeHead(const FileSignature& file) {
    if (file.bytes.trimmed().isEmpty())
        return QStringLiteral("an empty file");
    if (file.xml)
        return QStringLiteral("XML with the root element <%1>%2")
            .arg(file.rootName, file.rootNamespace.isEmpty()
                                    ? QString()
                                    : QStringLiteral(" in namespace %1").arg(file.rootNamespace));
    QString head = QString::fromUtf8(file.firstLine.left(headShown * 4)).left(headShown);
    for (QChar& c : head)
        if (!c.isPrint())
            c = QChar(0xFFFD);
    return QStringLiteral("a file starting \"%1\"").arg(head);
}

bool readSchedule(const ScheduleFormat& format, const FileSignature& file, const ImportOptions& options,
                  ProjectFile& project, ReadError& error) {
    ImportedSchedule imported;
    project.kind = ProjectKind::Schedule;
    project.product = MarkCode::ProductSked;
    return format.read(file, imported, error) && buildSchedule(imported, options, project.schedule, error);
}

bool dispatch(const FileSignature& file, const ImportOptions& options, ProjectFile& project,
              ReadError& error) {
    if (file.isCompoundDocument()) {
        error.message = QStringLiteral("is a binary file (MS Project .mpp or another OLE document), which "
                                       "cannot be read: save it as MS Project XML (File › Save As › XML "
                                       "format) and grade the .xml file");
        return false;
    }
    for (const ScheduleFormat& format : scheduleFormats)
        if (format.recognises && format.recognises(file))
            return readSchedule(format, file, options, project, error);
    const QByteArray trimmed = file.bytes.trimmed();
    if (!file.xml && (trimmed.startsWith('{') || trimmed.startsWith('[')))
        return readJsonProject(file.bytes, options, project, error);
    error.message = QStringLiteral("expected a project file (%1), found %2")
                        .arg(projectFormatNames().join(QStringLiteral(", ")), describeHead(file));
    return false;
}

} // namespace

QStringList projectFormatNames() {
    QStringList names{QStringLiteral("MarkRule JSON")};
    for (const ScheduleFormat& format : scheduleFormats)
        if (format.recognises)
            names << QLatin1String(format.name);
    return names;
}

bool readProjectDocument(const QByteArray& bytes, const QString& fileName, ProjectFile& project,
                         ReadError& error, const ImportOptions& options) {
    project = ProjectFile();
    project.fileName = fileName;
    error = ReadError{fileName, QString(), QString()};
    if (dispatch(FileSignature::of(bytes), options, project, error))
        return true;
    error.file = fileName;
    project = ProjectFile();
    return false;
}

bool readProjectFile(const QString& path, ProjectFile& project, ReadError& error,
                     const ImportOptions& options) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        project = ProjectFile();
        error = ReadError{path, QString(), QStringLiteral("cannot be read: %1").arg(file.errorString())};
        return false;
    }
    return readProjectDocument(file.readAll(), path, project, error, options);
}

int productCode(const QString& name) {
    static const QHash<QString, int> codes{
        {QStringLiteral("schedule"), MarkCode::ProductSked}, {QStringLiteral("Ash"), MarkCode::ProductAsh},
        {QStringLiteral("Elm"), MarkCode::ProductElm},       {QStringLiteral("Fir"), MarkCode::ProductFir},
        {QStringLiteral("Yew"), MarkCode::ProductYew},       {QStringLiteral("Oak"), MarkCode::ProductOak},
        {QStringLiteral("Shape"), MarkCode::ProductShape}};
    return codes.value(name, 0);
}

QString productName(int code) {
    // productCode's table read backwards
    for (const QString& name :
         {QStringLiteral("schedule"), QStringLiteral("Ash"), QStringLiteral("Elm"), QStringLiteral("Fir"),
          QStringLiteral("Yew"), QStringLiteral("Oak"), QStringLiteral("Shape")})
        if (productCode(name) == code)
            return name;
    return QString();
}

QString sceneName(int scene) {
    return scene == MarkCode::SceneSite   ? QStringLiteral("Site")
           : scene == MarkCode::SceneTwin ? QStringLiteral("Twin")
                                          : QStringLiteral("plain");
}

int sceneCode(const QString& name) {
    for (int scene : {MarkCode::ScenePlain, MarkCode::SceneSite, MarkCode::SceneTwin})
        if (sceneName(scene) == name)
            return scene;
    return -1;
}

} // namespace Host
