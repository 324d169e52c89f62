// The schedule file formats: each fixture of tests/data/formats reads to the same project and grades
// the same as its JSON twin; formats are told by content; broken files give their exact message.
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

QByteArray fixtureBytes(const QString& name) {
    QFile file(fixture(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// An XER file of the given lines (tab-separated cells written as \t) between header and end.
QByteArray xer(const QStringList& lines) {
    return "ERMHDR\t19.12\t2026-11-20\tProject\n" + lines.join('\n').toUtf8() + "\n%E\n";
}

const QString xerTasks =
    QStringLiteral("%T\tTASK\n%F\ttask_id\ttask_name\ttask_type\ttarget_drtn_hr_cnt\tclndr_id");

// Each work item as "name days [links]", and each resource's planned total.
QString brief(const ScheduleProject& p) {
    QStringList parts;
    for (const WorkItemData& w : p.workItems) {
        QStringList links;
        for (const LinkData& link : w.links)
            links << TestDump::linkText(link, p.workItems);
        parts << QStringLiteral("%1 %2d%3")
                     .arg(w.name)
                     .arg(w.duration)
                     .arg(links.isEmpty() ? QString() : QStringLiteral(" [%1]").arg(links.join(", ")));
    }
    for (const ResourceData& r : p.resources)
        parts << QStringLiteral("%1 %2 (%3)")
                     .arg(r.name)
                     .arg(r.plannedTotal)
                     .arg(p.workItems.isEmpty() ? QString() : p.workItems.first().labourIntensity);
    return parts.join(QStringLiteral("; "));
}

// Broken text files: the file, the location in it and what was expected.
void brokenXerRows() {
    row("XER predecessor that no task has",
        xer({xerTasks, QStringLiteral("%R\t1\tA\tTT_Task\t8"),
             QStringLiteral("%T\tTASKPRED\n%F\ttask_id\tpred_task_id\n%R\t1\t99")}),
        QStringLiteral("f: table TASKPRED, row 1, field pred_task_id (line 7): expected the id of a task, "
                       "found \"99\", which no task has"));
    row("XER number of hours", xer({xerTasks, QStringLiteral("%R\t1\tA\tTT_Task\t8\n%R\t2\tB\tTT_Task\tx")}),
        QStringLiteral("f: table TASK, row 2, field target_drtn_hr_cnt (line 5): expected a number of hours, "
                       "found \"x\""));
    row("XER %R before %F", xer({QStringLiteral("%T\tTASK\n%R\t1\tA")}),
        QStringLiteral(
            "f: line 3: expected %F with the field names of table TASK before its first %R, found %R"));
    row("XER cut short", xer({xerTasks, QStringLiteral("%R\t1\tA\tTT_Task\t8")}).replace("%E\n", ""),
        QStringLiteral("f: line 4: expected %E at the end of the tables, found the end of the file"));
    row("XER task type", xer({xerTasks, QStringLiteral("%R\t1\tA\tTT_Hammock\t8")}),
        QStringLiteral("f: table TASK, row 1, field task_type (line 4): expected TT_Task, TT_Rsrc, TT_Mile, "
                       "TT_FinMile, TT_LOE or TT_WBS, found \"TT_Hammock\""));
    row("XER more values than fields", xer({xerTasks, QStringLiteral("%R\t1\tA\tTT_Task\t8\t1\t9")}),
        QStringLiteral(
            "f: line 4: expected at most 5 values in a row of table TASK (one per %F field), found 6"));
    row("XER no TASK table", xer({QStringLiteral("%T\tRSRC\n%F\trsrc_id")}),
        QStringLiteral("f: expected a TASK table, found none"));
    row("XER WBS cycle",
        xer({QStringLiteral("%T\tPROJWBS\n%F\twbs_id\tparent_wbs_id\n%R\t5\t6\n%R\t6\t5"),
             QStringLiteral("%T\tTASK\n%F\ttask_id\ttask_name\twbs_id\n%R\t1\tA\t5")}),
        QStringLiteral(
            "f: table PROJWBS, row 1 (line 4): expected a WBS tree, found a cycle of parent_wbs_id "
            "through \"5\""));
    row("XER hours per day",
        xer({QStringLiteral("%T\tCALENDAR\n%F\tclndr_id\tday_hr_cnt\n%R\t1\t0"), xerTasks}),
        QStringLiteral(
            "f: table CALENDAR, row 1, field day_hr_cnt (line 4): expected hours per day above 0 and "
            "at most 24, found 0"));
}

// What XER files say in their own way: code pages, day lengths, skipped activities, WBS order.
void xerDetailRows() {
    const QString cal = QStringLiteral("%T\tCALENDAR\n%F\tclndr_id\tday_hr_cnt\n%R\t1\t10");
    row("XER in Windows-1252",
        xer({xerTasks, QStringLiteral("%R\t1\t\u00dcnterbau\tTT_Task\t16")}).replace("\xC3\x9C", "\xDC"),
        QStringLiteral("\u00dcnterbau 2d"));
    row("XER in UTF-8", xer({xerTasks, QStringLiteral("%R\t1\t\u00dcnterbau\tTT_Task\t16")}),
        QStringLiteral("\u00dcnterbau 2d"));
    row("XER 10-hour days for durations and lags",
        xer({cal, xerTasks, QStringLiteral("%R\t1\tA\tTT_Task\t30\t1"),
             QStringLiteral("%R\t2\tB\tTT_Mile\t30\t1"),
             QStringLiteral("%T\tTASKPRED\n%F\ttask_id\tpred_task_id\tpred_type\tlag_hr_cnt\n%"
                            "R\t2\t1\tPR_SS\t-20")}),
        QStringLiteral("A 3d; B 0d [A SS-2]"));
    row("XER level of effort and WBS summary activities left out",
        xer({xerTasks, QStringLiteral("%R\t1\tA\tTT_Task\t8"), QStringLiteral("%R\t2\tL\tTT_LOE\t80"),
             QStringLiteral("%R\t3\tW\tTT_WBS\t80"), QStringLiteral("%R\t4\tB\tTT_Rsrc\t16"),
             QStringLiteral("%T\tTASKPRED\n%F\ttask_id\tpred_task_id\n%R\t2\t1\n%R\t4\t1\n%R\t4\t3")}),
        QStringLiteral("A 1d; B 2d [A FS+0]"));
    row("XER material total and equipment",
        xer({xerTasks, QStringLiteral("%R\t1\tA\tTT_Task\t16"),
             QStringLiteral("%T\tRSRC\n%F\trsrc_id\trsrc_name\trsrc_type\n%R\t7\tConcrete\tRT_Mat\n%"
                            "R\t8\tCrane\tRT_Equip"),
             QStringLiteral("%T\tTASKRSRC\n%F\ttask_id\trsrc_id\ttarget_qty\ttarget_qty_per_hr\n%"
                            "R\t1\t7\t12.5\t\n%R\t1\t8\t16\t1")}),
        QStringLiteral("A 2d; Concrete 13 (); Crane 2 ()"));
    row("XER WBS elements where their first task stands",
        xer({QStringLiteral("%T\tPROJWBS\n%F\twbs_id\tparent_wbs_id\twbs_name\tproj_node_flag\n%"
                            "R\t9\t\tP\tY\n%R\t5\t9\tOuter\tN\n%R\t6\t5\tInner\tN"),
             QStringLiteral("%T\tTASK\n%F\ttask_id\ttask_name\twbs_id\ttarget_drtn_hr_cnt"),
             QStringLiteral("%R\t1\tA\t6\t8\n%R\t2\tB\t9\t8\n%R\t3\tC\t5\t8\n%R\t4\tD\t6\t8"),
             QStringLiteral("%T\tTASKPRED\n%F\ttask_id\tpred_task_id\n%R\t2\t1")}),
        QStringLiteral("A 1d; D 1d; C 1d; B 1d [A FS+0]"));
}

} // namespace

class TestFormats : public QObject {
    Q_OBJECT

private slots:
    // Each format's house schedule against the twin: the same parsed project, the same marks.
    void sameAsTwin_data() {
        QTest::addColumn<QString>("file");
        row("json twin itself", QStringLiteral("house.json"));
        row("Primavera P6 XER", QStringLiteral("house.xer"));
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

    // Formats are told by content, whatever the file is called and with a byte-order mark or not.
    void toldByContent_data() {
        QTest::addColumn<QByteArray>("bytes");
        row("XER with a UTF-8 byte-order mark", "\xEF\xBB\xBF" + fixtureBytes(QStringLiteral("house.xer")));
        row("XER with Unix line ends", fixtureBytes(QStringLiteral("house.xer")).replace("\r\n", "\n"));
    }

    void toldByContent() {
        QFETCH(QByteArray, bytes);
        ProjectFile file;
        ReadError error;
        QVERIFY2(readProjectDocument(bytes, QStringLiteral("plan.txt"), file, error),
                 qPrintable(error.toString()));
        const ProjectFile twin = TestDump::read(fixture(QStringLiteral("house.json")));
        QCOMPARE(TestDump::schedule(file.schedule), TestDump::schedule(twin.schedule));
    }

    // What each text format says in its own way: code pages, day lengths, units, skipped rows.
    void details_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("expected");
        xerDetailRows();
    }

    void details() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, expected);
        ProjectFile file;
        ReadError error;
        QVERIFY2(readProjectDocument(bytes, QStringLiteral("f"), file, error), qPrintable(error.toString()));
        QCOMPARE(brief(file.schedule), expected);
    }

    // Files that are no project, that another program must save first, or that are broken.
    void unreadable_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("message");
        brokenXerRows();
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
