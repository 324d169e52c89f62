// The schedule file formats: each fixture of tests/data/formats reads to the same project and grades
// the same as its JSON twin; formats are told by content; broken files give their exact message.
#include "coursesettings.h"
#include "formats/filesignature.h"
#include "formats/ganformat.h"
#include "formats/mspdiformat.h"
#include "formats/plannerformat.h"
#include "projectdump.h"

#include <QtTest>

using namespace Host;
using TestDump::fixture;
using TestDump::fixtureBytes;

namespace {

// A fixture with one change: the first occurrence of `from` replaced by `to`.
QByteArray changed(const QString& name, const QByteArray& from, const QByteArray& to) {
    QByteArray bytes = fixtureBytes(name);
    const int at = bytes.indexOf(from);
    if (at < 0)
        qWarning("%s has no text %s", qPrintable(name), from.constData());
    return at < 0 ? QByteArray() : bytes.replace(at, from.size(), to);
}

// Broken MS Project XML: the reader's own checks, those of the XML cursor all XML readers share, and
// finishing-step errors at the places the reader remembered.
void brokenMspdiRows() {
    const QString xml = QStringLiteral("house.xml");
    row("MSPDI duration", changed(xml, "<Duration>PT32H0M0S", "<Duration>P3X"),
        QStringLiteral("f: line 132, column 13 (Project/Tasks/Task/Duration): expected an ISO 8601 "
                       "duration like PT8H0M0S, found \"P3X\""));
    row("MSPDI cycle", changed(xml, "<PredecessorUID>1<", "<PredecessorUID>11<"),
        QStringLiteral(
            "f: line 100, column 8 (Project/Tasks): expected predecessors without a cycle, found the "
            "cycle Excavation → Footings → Ground slab → Walls → Electrical → Finishes → Excavation"));
    row("MSPDI unclosed element", changed(xml, "</Project>", ""),
        QStringLiteral("f: line 484, column 0 (Project): expected well-formed XML, found an error: "
                       "Premature end of document."));
    row("MSPDI link type", changed(xml, "<Type>3</Type>", "<Type>4</Type>"),
        QStringLiteral("f: line 226, column 10 (Project/Tasks/Task/PredecessorLink/Type): expected a "
                       "link type 0 (FF), 1 (FS), 2 (SF) or 3 (SS), found \"4\""));
    row("MSPDI lag format", changed(xml, "<LagFormat>7<", "<LagFormat>13<"),
        QStringLiteral("f: line 141, column 15 (Project/Tasks/Task/PredecessorLink/LagFormat): expected "
                       "a lag format code (3 to 12, 19 to 21, 35 to 44 or 51 to 53), found \"13\""));
    row("MSPDI unknown resource", changed(xml, "<ResourceUID>2<", "<ResourceUID>7<"),
        QStringLiteral("f: line 412, column 14 (Project/Assignments/Assignment): expected the id of a "
                       "resource, found 7, which no resource has"));
    row("MSPDI nesting",
        changed(xml, "<Tasks>",
                "<Tasks>" + QByteArray("<x>").repeated(130) + QByteArray("</x>").repeated(130)),
        QStringLiteral("f: line 100, column 389 (Project/Tasks/x/x/…/x/x/x/x): expected at most 128 "
                       "levels of elements"));
}

// Broken GanttProject and Planner files: the checks of their own readers.
void brokenGanAndPlannerRows() {
    const QString gan = QStringLiteral("house.gan");
    const QString planner = QStringLiteral("house.planner");
    row("GanttProject depend type", changed(gan, "type=\"3\"", "type=\"5\""),
        QStringLiteral("f: line 46, column 70 (project/tasks/task/depend/@type): expected a dependency "
                       "type 1 (SS), 2 (FS), 3 (FF) or 4 (SF), found \"5\""));
    row("GanttProject unknown successor", changed(gan, "<depend id=\"7\"", "<depend id=\"70\""),
        QStringLiteral("f: line 51, column 71 (project/tasks/task/depend): expected the id of a task, "
                       "found 70, which no task has"));
    row("GanttProject duration", changed(gan, "duration=\"4\"", "duration=\"four\""),
        QStringLiteral("f: line 33, column 117 (project/tasks/task/@duration): expected a duration in "
                       "days from 0 to 1000000, found \"four\""));
    row("Planner link type", changed(planner, "type=\"FF\"", "type=\"XX\""),
        QStringLiteral("f: line 62, column 70 (project/tasks/task/predecessors/predecessor/@type): "
                       "expected FS, SS, FF or SF, found \"XX\""));
    row("Planner interval", changed(planner, "start=\"0700\"", "start=\"7am\""),
        QStringLiteral("f: line 15, column 44 "
                       "(project/calendars/calendar/overridden-day-types/overridden-day-type/interval/"
                       "@start): expected a time of day like 0800, found \"7am\""));
    row("Planner neither duration nor work", changed(planner, "work=\"115200\" duration=\"57600\"", ""),
        QStringLiteral("f: line 28, column 198 (project/tasks/task): expected a duration or work in "
                       "seconds, found neither"));
    row("Planner milestone", changed(planner, "type=\"milestone\"", "type=\"mile\""),
        QStringLiteral("f: line 83, column 216 (project/tasks/task/@type): expected \"normal\" or "
                       "\"milestone\", found \"mile\""));
    row("Planner resource type", changed(planner, "type=\"1\" units", "type=\"3\" units"),
        QStringLiteral("f: line 91, column 104 (project/resources/resource/@type): expected a resource "
                       "type 1 (work) or 2 (material), found \"3\""));
}

// The names of the XML formats that claim the bytes.
QString claimedBy(const QByteArray& bytes) {
    const FileSignature file = FileSignature::of(bytes);
    QStringList names;
    if (isMsProjectXml(file))
        names << QStringLiteral("MS Project XML");
    if (isGanttProject(file))
        names << QStringLiteral("GanttProject");
    if (isPlanner(file))
        names << QStringLiteral("GNOME Planner");
    return names.join(QStringLiteral(", "));
}

// One side of a parsed schedule, as a line of text.
QString aspect(const ScheduleProject& p, const QString& what) {
    QStringList parts;
    for (const WorkItemData& item : p.workItems) {
        if (what == QLatin1String("durations"))
            parts << QString::number(item.duration);
        else if (what == QLatin1String("colours") && !item.color.isEmpty())
            parts << item.name + QLatin1Char('=') + item.color;
        else if (what == QLatin1String("crews") && !item.crew.isEmpty())
            parts << item.name + QLatin1Char('=') + item.crew + QLatin1Char('/') + item.labourIntensity;
        for (const LinkData& link : item.links)
            if (what == QLatin1String("links") && (link.type != LinkType::FinishToStart || link.lagDays != 0))
                parts << item.name + QStringLiteral(" after ") + TestDump::linkText(link, p.workItems);
    }
    if (what == QLatin1String("totals"))
        for (const ResourceData& resource : p.resources)
            parts << resource.name + QLatin1Char('=') + QString::number(resource.plannedTotal);
    return parts.join(QStringLiteral("; "));
}

} // namespace

class TestFormats : public QObject {
    Q_OBJECT

private slots:
    // Each format's house schedule against the twin: the same parsed project, the same marks.
    void sameAsTwin_data() {
        QTest::addColumn<QString>("file");
        row("MS Project XML", QStringLiteral("house.xml"));
        row("GanttProject", QStringLiteral("house.gan"));
        row("GNOME Planner", QStringLiteral("house.planner"));
        row("Primavera P6 XER", QStringLiteral("house.xer"));
        row("MPX", QStringLiteral("house.mpx"));
        row("MPX with semicolons and decimal commas", QStringLiteral("house-semicolon.mpx"));
    }

    void sameAsTwin() {
        QFETCH(QString, file);
        const ProjectFile twin = TestDump::read(fixture(QStringLiteral("house.json")));
        const ProjectFile read = TestDump::read(fixture(file));
        QCOMPARE(read.kind, ProjectKind::Schedule);
        QCOMPARE(TestDump::schedule(read.schedule), TestDump::schedule(twin.schedule));
        const Grade::Marks marks;
        QCOMPARE(TestDump::graded(Grade::gradeProject(twin, read, marks)),
                 TestDump::graded(Grade::gradeProject(twin, twin, marks)));
        QCOMPARE(TestDump::graded(Grade::gradeProject(read, twin, marks)),
                 TestDump::graded(Grade::gradeProject(twin, twin, marks)));
    }

    // The twin's worked-out dates, the summary's links carried to its leaves and the curves as
    // README.md works them out by hand.
    void twinAsWorkedOut() {
        const ScheduleProject p = TestDump::read(fixture(QStringLiteral("house.json"))).schedule;
        QCOMPARE(p.totalDays, 24);
        QStringList dates;
        for (const WorkItemData& item : p.workItems)
            dates << QStringLiteral("%1-%2").arg(item.start).arg(item.finish);
        QCOMPARE(dates.join(' '),
                 QStringLiteral("0-2 2-6 6-9 9-11 11-17 13-17 17-20 16-18 17-20 17-20 20-24 24-24"));
    }

    // A link on a summary is carried to the leaves whose end it ties: a start to its first leaves,
    // a finish to its last; a summary with nothing below it is a leaf.
    void summaryLinks_data() {
        QTest::addColumn<QString>("link"); // S's link to X, or "flagged" for a childless summary
        QTest::addColumn<QString>("dates");
        row("finish to start", QStringLiteral("FS"), QStringLiteral("A 0-2 B 2-5 X 5-6"));
        row("start to start", QStringLiteral("SS"), QStringLiteral("A 0-2 B 2-5 X 0-1"));
        row("finish to finish", QStringLiteral("FF"), QStringLiteral("A 0-2 B 2-5 X 4-5"));
        row("flagged summary without tasks below", QStringLiteral("flagged"),
            QStringLiteral("A 0-2 B 2-5 X 0-1 E 0-4"));
    }

    void summaryLinks() {
        QFETCH(QString, link);
        QFETCH(QString, dates);
        const auto task = [](const char* id, int level, double days) {
            ImportedTask t;
            t.id = t.name = QLatin1String(id);
            t.outlineLevel = level;
            t.durationDays = days;
            return t;
        };
        ImportedSchedule in;
        in.tasks = {task("S", 1, 0), task("A", 2, 2), task("B", 2, 3), task("X", 1, 1)};
        in.tasks[2].links = {ImportedLink{QStringLiteral("A"), LinkType::FinishToStart, 0, QString()}};
        const QHash<QString, LinkType> types{{"FS", LinkType::FinishToStart},
                                             {"SS", LinkType::StartToStart},
                                             {"FF", LinkType::FinishToFinish}};
        if (link == QLatin1String("flagged")) {
            in.tasks << task("E", 1, 4);
            in.tasks.last().summary = true;
        } else {
            in.tasks[3].links = {ImportedLink{QStringLiteral("S"), types.value(link), 0, QString()}};
        }
        ScheduleProject out;
        ReadError error;
        QVERIFY(buildSchedule(in, ImportOptions(), out, error));
        QStringList found;
        for (const WorkItemData& item : out.workItems)
            found << QStringLiteral("%1 %2-%3").arg(item.name).arg(item.start).arg(item.finish);
        QCOMPARE(found.join(' '), dates);
    }

    // A course settings file fills in what the files leave out and renames resources.
    void settings_data() {
        QTest::addColumn<QByteArray>("settings");
        QTest::addColumn<QString>("found"); // scene, time unit, rows, first resource and curve, or the error
        row("defaults", QByteArray("{}"), QStringLiteral("0 '' 0 Labourer Labourer"));
        row("scene, Gantt and names",
            QByteArray(R"({"scene":"Site","gantt":{"timeUnit":"工程周","rowsPerPage":20},
                          "resourceNames":{" Labourer ":"混凝土工"},"curveLimits":{"labour":2.5},"networkLimit":9})"),
            QStringLiteral("1 '工程周' 20 混凝土工 混凝土工"));
        row("unknown scene", QByteArray(R"({"scene":"site"})"),
            QStringLiteral("s.json: $.scene: expected \"plain\", \"Site\" or \"Twin\", found \"site\""));
        row("unknown durations", QByteArray(R"({"durations":"days"})"),
            QStringLiteral("s.json: $.durations: expected \"exact\" or \"weeks\", found \"days\""));
        row("unknown curve group", QByteArray(R"({"curveLimits":{"steel":1}})"),
            QStringLiteral("s.json: $.curveLimits.steel: unknown key; expected one of labour, rebar, "
                           "concrete, formwork"));
        row("network limit out of range", QByteArray(R"({"networkLimit":0})"),
            QStringLiteral(
                "s.json: $.networkLimit: expected a whole number of work items from 1 to 100000, found 0"));
    }

    void settings() {
        QFETCH(QByteArray, settings);
        QFETCH(QString, found);
        CourseSettings read;
        ReadError error;
        if (!readCourseSettingsDocument(settings, QStringLiteral("s.json"), read, error)) {
            QCOMPARE(error.toString(), found);
            return;
        }
        const ScheduleProject p = TestDump::read(fixture(QStringLiteral("house.json")), read.import).schedule;
        QCOMPARE(QStringLiteral("%1 '%2' %3 %4 %5")
                     .arg(p.scene)
                     .arg(p.gantt.timeUnit)
                     .arg(p.gantt.rowsPerPage)
                     .arg(p.resources.value(0).name, p.curves.value(0).name),
                 found);
    }

    // Names are tidied before they are compared; names that still collide are reported or numbered.
    void names_data() {
        QTest::addColumn<bool>("dedupe");
        QTest::addColumn<QString>("names");
        QTest::addColumn<QString>("warnings");
        row("reported", false, QStringLiteral("Task 1|Task 1|Roof slab|Task 1"),
            QStringLiteral("the work item name \"Task 1\" occurs 3 times; --dedupe-names numbers them"));
        row("numbered", true, QStringLiteral("Task 1|Task 1 (2)|Roof slab|Task 1 (3)"), QString());
    }

    void names() {
        QFETCH(bool, dedupe);
        QFETCH(QString, names);
        QFETCH(QString, warnings);
        ImportOptions options;
        options.dedupeNames = dedupe;
        ProjectFile file;
        ReadError error;
        QVERIFY(
            readProjectDocument(R"({"product":"schedule","workItems":[{"id":1,"name":"Task 1","duration":1},
            {"id":2,"name":" Task   1 ","duration":1},{"id":3,"name":"Roof\tslab","duration":1},
            {"id":4,"name":"Task 1","duration":1}]})",
                                QStringLiteral("n.json"), file, error, options));
        QStringList found;
        for (const WorkItemData& item : file.schedule.workItems)
            found << item.name;
        QCOMPARE(found.join('|'), names);
        QCOMPARE(file.schedule.warnings.join('\n'), warnings);
    }

    // Files that are no project, or that another program must save first; and one mistake in a
    // fixture with the message it gives: the reader's own, an XML error with its line and column, or
    // the finishing step's at the place the reader remembered.
    void unreadable_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("message");
        row("binary MS Project", QByteArray("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1\0\0", 10),
            QStringLiteral(
                "f: is a binary file (MS Project .mpp or another OLE document), which cannot be read: "
                "save it as MS Project XML (File › Save As › XML format) and grade the .xml file"));
        row("empty", QByteArray(" \n"),
            QStringLiteral("f: expected a project file (%1), found an empty file")
                .arg(projectFormatNames().join(", ")));
        row("other XML", QByteArray("<?xml version=\"1.0\"?><svg xmlns=\"http://www.w3.org/2000/svg\"/>"),
            QStringLiteral(
                "f: expected a project file (%1), found XML with the root element <svg> in namespace "
                "http://www.w3.org/2000/svg")
                .arg(projectFormatNames().join(", ")));
        brokenMspdiRows();
        brokenGanAndPlannerRows();
    }

    void unreadable() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, message);
        ProjectFile file;
        QCOMPARE(TestDump::readError(bytes, file), message);
    }

    // Each XML format by its root element, its namespace and its attributes alone.
    void toldByContent_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("format");
        row("MSPDI", fixtureBytes(QStringLiteral("house.xml")), QStringLiteral("MS Project XML"));
        row("GanttProject", fixtureBytes(QStringLiteral("house.gan")), QStringLiteral("GanttProject"));
        row("Planner", fixtureBytes(QStringLiteral("house.planner")), QStringLiteral("GNOME Planner"));
        row("GanttProject with a byte-order mark", QByteArray("\xEF\xBB\xBF<project version=\"3.3\"/>"),
            QStringLiteral("GanttProject"));
        row("Project without the MS namespace", QByteArray("<Project><Tasks/></Project>"), QString());
        row("an Ant build file", QByteArray("<project name=\"x\" default=\"jar\" basedir=\".\"/>"),
            QString());
        row("a Maven POM", QByteArray("<project xmlns=\"http://maven.apache.org/POM/4.0.0\" version=\"4\"/>"),
            QString());
    }

    void toldByContent() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, format);
        QCOMPARE(claimedBy(bytes), format);
    }

    // What each format states its own way: units of durations and lags, colours, amounts.
    void details_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("what");
        QTest::addColumn<QString>("expected");
        const QString xml = QStringLiteral("house.xml");
        const QString gan = QStringLiteral("house.gan");
        const QString planner = QStringLiteral("house.planner");
        const QString halfDays = QStringLiteral("4; 8; 6; 4; 12; 8; 6; 4; 6; 6; 8; 0");
        const QByteArray xmlHalfDay = changed(xml, "<MinutesPerDay>480<", "<MinutesPerDay>240<");
        const QByteArray plannerHalfDay = changed(
            planner,
            "<interval start=\"0700\" end=\"1130\"/>\n          <interval start=\"1230\" end=\"1600\"/>",
            "<interval start=\"0800\" end=\"1200\"/>");
        row("MSPDI day of 240 minutes", xmlHalfDay, QStringLiteral("durations"), halfDays);
        row("MSPDI working lag at 240 minutes", xmlHalfDay, QStringLiteral("links"),
            QStringLiteral("Roof structure after Walls SS+4; Windows after Walls FF+2"));
        row("MSPDI percent lag",
            changed(xml, "<LinkLag>9600</LinkLag>\n\t\t\t\t<LagFormat>7<",
                    "<LinkLag>50</LinkLag>\n\t\t\t\t<LagFormat>19<"),
            QStringLiteral("links"),
            QStringLiteral("Roof structure after Walls SS+3; Windows after Walls FF+1"));
        row("MSPDI estimated elapsed lag",
            changed(xml, "<LinkLag>9600</LinkLag>\n\t\t\t\t<LagFormat>7<",
                    "<LinkLag>43200</LinkLag>\n\t\t\t\t<LagFormat>40<"),
            QStringLiteral("links"),
            QStringLiteral("Roof structure after Walls SS+3; Windows after Walls FF+1"));
        row("MSPDI link to another project",
            changed(xml, "<CrossProject>0</CrossProject>\n\t\t\t\t<LinkLag>4800",
                    "<CrossProject>1</CrossProject>\n\t\t\t\t<LinkLag>4800"),
            QStringLiteral("links"), QStringLiteral("Roof structure after Walls SS+2"));
        row("MSPDI work states the total", changed(xml, "<Work>PT32H0M0S", "<Work>PT40H0M0S"),
            QStringLiteral("totals"), QStringLiteral("Labourer=31; Carpenter=34"));
        row("MSPDI material resource",
            changed(xml, "<Name>Carpenter</Name>\n\t\t\t<Type>1<", "<Name>Carpenter</Name>\n\t\t\t<Type>0<"),
            QStringLiteral("totals"), QStringLiteral("Labourer=30; Carpenter=8"));
        row("GanttProject colour",
            changed(gan, "name=\"Site clearing\"", "name=\"Site clearing\" color=\"#99ccff\""),
            QStringLiteral("colours"), QStringLiteral("Site clearing=153,204,255"));
        row("GanttProject start to finish", changed(gan, "type=\"3\"", "type=\"4\""), QStringLiteral("links"),
            QStringLiteral("Roof structure after Walls SS+2; Windows after Walls SF+1"));
        row("GanttProject load", changed(gan, "load=\"200.0\"", "load=\"250.0\""), QStringLiteral("totals"),
            QStringLiteral("Labourer=31; Carpenter=34"));
        row("Planner day of 4 hours", plannerHalfDay, QStringLiteral("durations"), halfDays);
        row("Planner lags in calendar time", plannerHalfDay, QStringLiteral("links"),
            QStringLiteral("Roof structure after Walls SS+2; Windows after Walls FF+1"));
        row("Planner lag in seconds", changed(planner, "lag=\"172800\"", "lag=\"259200\""),
            QStringLiteral("links"),
            QStringLiteral("Roof structure after Walls SS+3; Windows after Walls FF+1"));
        row("Planner material resource",
            changed(planner, "name=\"Carpenter\" short-name=\"CAR\" type=\"1\"",
                    "name=\"Carpenter\" short-name=\"CAR\" type=\"2\""),
            QStringLiteral("crews"),
            QStringLiteral("Site clearing=Labourer/2; Excavation=Labourer/3; Ground slab=Labourer/2; "
                           "Roofing=Labourer/2; Finishes=Labourer/1"));
    }

    void details() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, what);
        QFETCH(QString, expected);
        ProjectFile project;
        QCOMPARE(TestDump::readError(bytes, project), QString());
        QCOMPARE(aspect(project.schedule, what), expected);
    }
};

QTEST_GUILESS_MAIN(TestFormats)
#include "tst_formats.moc"
