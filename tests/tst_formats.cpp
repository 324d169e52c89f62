// The schedule file formats: each fixture of tests/data/formats reads to the same project and grades
// the same as its JSON twin; formats are told by content; broken files give their exact message.
#include "coursesettings.h"
#include "projectdump.h"

#include <QtTest>

using namespace Host;

namespace {

QString fixture(const QString& name) {
    return QStringLiteral(FORMAT_FIXTURES "/") + name;
}

template <typename... Cells> void row(const char* tag, const Cells&... cells) {
    (QTest::newRow(tag) << ... << cells);
}

} // namespace

class TestFormats : public QObject {
    Q_OBJECT

private slots:
    // Each format's house schedule against the twin: the same parsed project, the same marks.
    void sameAsTwin_data() {
        QTest::addColumn<QString>("file");
        row("json twin itself", QStringLiteral("house.json"));
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

    // Files that are no project, or that another program must save first.
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
    }

    void unreadable() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, message);
        ProjectFile file;
        ReadError error;
        QVERIFY(!readProjectDocument(bytes, QStringLiteral("f"), file, error));
        QCOMPARE(error.toString(), message);
    }
};

QTEST_GUILESS_MAIN(TestFormats)
#include "tst_formats.moc"
