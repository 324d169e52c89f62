// The text schedule formats, Primavera P6 XER and MPX: content sniffing, what each states its own
// way (code pages, day lengths, units, skipped rows) and the exact message of each broken file.
#include "projectdump.h"

#include <QtTest>

using namespace Host;
using TestDump::fixture;
using TestDump::fixtureBytes;

namespace {

// An XER file of the given lines (tab-separated cells written as \t) between header and end.
QByteArray xer(const QStringList& lines) {
    return "ERMHDR\t19.12\t2026-11-20\tProject\n" + lines.join('\n').toUtf8() + "\n%E\n";
}

const QString xerTasks =
    QStringLiteral("%T\tTASK\n%F\ttask_id\ttask_name\ttask_type\ttarget_drtn_hr_cnt\tclndr_id");

// An MPX file with a header, hours per day and a task definition: ID, name, duration, predecessors.
QByteArray mpx(const QStringList& records, const QByteArray& codePage = "ANSI") {
    return "MPX,Microsoft Project for Windows,4.0," + codePage + "\r\n11,2,0,1,8.00,40.00\r\n" +
           "61,90,1,40,70\r\n" + records.join(QStringLiteral("\r\n")).toLatin1() + "\r\n";
}

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

void brokenMpxRows() {
    row("XER table given twice", xer({xerTasks, xerTasks}),
        QStringLiteral("f: line 4: expected each table once, found a second table TASK"));
    row("XER unknown calendar",
        xer({QStringLiteral("%T\tCALENDAR\n%F\tclndr_id"), xerTasks, QStringLiteral("%R\t1\tA\t\t8\t2")}),
        QStringLiteral(
            "f: table TASK, row 1, field clndr_id (line 6): expected the id of a calendar in table CALENDAR, "
            "found \"2\""));
    row("XER assigned resource",
        xer({xerTasks, QStringLiteral("%R\t1\tA\t\t8"),
             QStringLiteral("%T\tTASKRSRC\n%F\ttask_id\trsrc_id\n%R\t1\t5")}),
        QStringLiteral(
            "f: table TASKRSRC, row 1, field rsrc_id (line 7): expected the id of a resource, found \"5\", "
            "which no resource has"));
    row("MPX unknown duration unit", mpx({QStringLiteral("70,1,A,3x,")}),
        QStringLiteral(
            "f: line 4, field 3 (Duration): expected a duration such as 3d, 16h or 2w, found \"3x\" "
            "with the unknown unit \"x\""));
    row("MPX record before the header",
        QByteArray("10,$,1,2,\",\",.\r\nMPX,Microsoft Project for Windows,4.0,ANSI\r\n"),
        QStringLiteral(
            "f: line 1: expected the header record MPX,<program>,<version>,<code page> first, found "
            "record 10"));
    row("MPX task before its definition", QByteArray("MPX,Microsoft Project for Windows,4.0,ANSI\n70,1,A\n"),
        QStringLiteral("f: line 2: expected a task definition record (60 or 61) before the first task record "
                       "(70), found none"));
    row("MPX predecessor that no task has",
        mpx({QStringLiteral("70,1,A,3d,"), QStringLiteral("70,2,B,3d,\"1,9FS\"")}),
        QStringLiteral(
            "f: line 5, field 4 (Predecessors): expected the ID of a task, found 9, which no task has"));
    row("MPX predecessor text", mpx({QStringLiteral("70,1,A,3d,"), QStringLiteral("70,2,B,3d,1XY+2d")}),
        QStringLiteral(
            "f: line 5, field 4 (Predecessors): expected predecessors such as 2FS+2d,5SS-1d, found "
            "\"1XY+2d\""));
    row("MPX code page", mpx({}, "KOI8"),
        QStringLiteral(
            "f: line 1, field 3: expected the code page ANSI, 437, 850, MAC or UTF8, found \"KOI8\""));
    row("MPX unknown record", mpx({QStringLiteral("99,1")}),
        QStringLiteral("f: line 4: expected an MPX record number, found \"99\""));
    row("MPX assigned resource", mpx({QStringLiteral("70,1,A,3d,"), QStringLiteral("75,4,100%")}),
        QStringLiteral(
            "f: line 5, field 1: expected the ID of a resource, found \"4\", which no resource has"));
    row("MPX value past the definition", mpx({QStringLiteral("70,1,A,3d,,x")}),
        QStringLiteral(
            "f: line 4, field 5: expected at most 4 fields, as the task definition lists, found \"x\" "
            "in field 5"));
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

// What MPX files say in their own way: code pages, units, skipped rows.
void mpxDetailRows() {
    row("MPX in ANSI", mpx({QStringLiteral("70,1,\u00dcnterbau,2d,")}), QStringLiteral("\u00dcnterbau 2d"));
    row("MPX in code page 850",
        mpx({QStringLiteral("70,1,\u00dcnterbau,2d,")}, "850").replace('\xDC', '\x9A'),
        QStringLiteral("\u00dcnterbau 2d"));
    row("MPX in Mac Roman", mpx({QStringLiteral("70,1,\u00dcnterbau,2d,")}, "MAC").replace('\xDC', '\x86'),
        QStringLiteral("\u00dcnterbau 2d"));
    row("MPX units of time",
        mpx({QStringLiteral("70,1,A,480m,"), QStringLiteral("70,2,B,2w,\"1SS+50%,3FF-1d\""),
             QStringLiteral("70,3,C,7ed,\"1FS+1ew\""), QStringLiteral("70,4,D,1.5d?,3SF")}),
        QStringLiteral("A 1d; B 10d [A SS+1, C FF-1]; C 5d [A FS+5]; D 2d [C SF+0]"));
    row("MPX text definitions, unique IDs and a 10-hour day",
        QByteArray(
            "MPX,Microsoft Project for Windows,4.0,ANSI\n11,2,0,1,10.00,50.00\n40,Unique ID,Name\n50,7,Crew\n"
            "60,Unique ID,Name,Duration,Unique ID Predecessors\n70,30,A,20h,\n70,10,B,1w,30SS+5h\n"
            "75,,50%,,,,,,,,,,,7\n"),
        QStringLiteral("A 2d; B 5d [A SS+1]; Crew 3 ()"));
    row("MPX empty values past the definition",
        QByteArray("MPX,Microsoft Project for Windows,4.0,ANSI\n60,ID,Name\n70,1,A,,,,\n"),
        QStringLiteral("A 0d"));
    row("MPX milestone flag on a task with a duration",
        mpx({QStringLiteral("61,90,1,40,81"), QStringLiteral("70,1,A,3d,Yes"),
             QStringLiteral("70,2,B,2d,No")}),
        QStringLiteral("A 3d; B 2d"));
    row("MPX units as a percentage or a number",
        mpx({QStringLiteral("41,40,1\r\n50,1,Crew"), QStringLiteral("70,1,A,2d,"),
             QStringLiteral("75,1,250%"), QStringLiteral("70,2,B,2d,"), QStringLiteral("75,1,1.5")}),
        QStringLiteral("A 2d; B 2d; Crew 8 (3)"));
    row("MPX project summary and blank rows left out",
        mpx({QStringLiteral("41,40,1\r\n50,1,Crew\r\n61,90,1,40,70,3"), QStringLiteral("70,0,House,9d,,0"),
             QStringLiteral("75,1,100%"), QStringLiteral("70,1,A,1d,,1"), QStringLiteral("70,2,,,,1"),
             QStringLiteral("70,3,B,1d,1,1")}),
        QStringLiteral("A 1d; B 1d [A FS+0]; Crew 0 ()"));
}

} // namespace

class TestTextFormats : public QObject {
    Q_OBJECT

private slots:
    // Formats are told by content, whatever the file is called and with a byte-order mark or not.
    void toldByContent_data() {
        QTest::addColumn<QByteArray>("bytes");
        row("XER with a UTF-8 byte-order mark", "\xEF\xBB\xBF" + fixtureBytes(QStringLiteral("house.xer")));
        row("MPX with a UTF-8 byte-order mark", "\xEF\xBB\xBF" + fixtureBytes(QStringLiteral("house.mpx")));
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
        mpxDetailRows();
    }

    void details() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, expected);
        ProjectFile file;
        QCOMPARE(TestDump::readError(bytes, file), QString());
        QCOMPARE(brief(file.schedule), expected);
    }

    // Broken text files.
    void unreadable_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("message");
        brokenXerRows();
        brokenMpxRows();
    }

    void unreadable() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, message);
        ProjectFile file;
        QCOMPARE(TestDump::readError(bytes, file), message);
    }
};

QTEST_GUILESS_MAIN(TestTextFormats)
#include "tst_textformats.moc"
