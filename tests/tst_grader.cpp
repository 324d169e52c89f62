// The grader: reports of scored trees made by hand (text, JSON, CSV and the batch summary), the marks
// file and the progress line, and the markgrade command run as a separate process on small files.
#include "batch.h"
#include "marks.h"
#include "report.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using namespace Grade;

namespace {

template <typename... Cells> void row(const char* tag, const Cells&... cells) {
    (QTest::newRow(tag) << ... << cells);
}

ScoredNode node(const QString& name, double obtained, double full, const QString& remark = QString(),
                const QList<ScoredNode>& items = {}) {
    ScoredNode n;
    n.name = name;
    n.obtained = obtained;
    n.full = full;
    n.remark = remark;
    n.items = items;
    return n;
}

// Standard s.json with c.json graded: integrity 1.0 of 2 (a missing work item), logic (5 marks) not
// available; and d.json, which could not be read.
QList<ReportSection> sections() {
    ScoredNode integrity = node("工作项完整性", 1.0, 2.0, QString(),
                                {node("挖土", 1.0, 1.0), node("垫层", 0.0, 1.0, "缺少评分项，不得分")});
    integrity.items[0].value = QStringLiteral("1");
    const CategoryResult graded[] = {
        {1, "工作项完整性", true, QString(), 2.0, 1.0, integrity},
        {3, "逻辑关系", false, "not available: \"逻辑关系\", none", 5.0, 0.0, ScoredNode()}};
    return {{"s.json",
             {{"c.json", true, QString(), QStringList(), {graded[0], graded[1]}, {}},
              {"d.json",
               false,
               "d.json: $: expected a JSON document",
               QStringList(),
               QList<CategoryResult>(),
               {}}}}};
}

struct Run {
    int exitCode = -1;
    QString out, err;
};

Run markgrade(const QStringList& arguments) {
    QProcess process;
    process.start(QStringLiteral(MARKGRADE_PATH), arguments);
    const bool finished = process.waitForFinished(120000) && process.exitStatus() == QProcess::NormalExit;
    return {finished ? process.exitCode() : -1, QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

} // namespace

class TestGrader : public QObject {
    Q_OBJECT
private slots:
    void lostMarks() {
        QVERIFY(node("", 0.5, 1.0).lost());
        QVERIFY(node("", -0.5, 0.0).lost());         // a deduction
        QVERIFY(!node("", 1.0 - 1e-12, 1.0).lost()); // rounding is not a loss
    }

    void textReport() {
        QCOMPARE(Grade::textReport(sections(), ReportOptions()),
                 QStringLiteral("Standard answer: s.json\n\n"
                                "Candidate: c.json\n"
                                "obtained /    full   criterion [value] — remark\n"
                                "   1.00 /    2.00 ✗ 工作项完整性\n"
                                "   1.00 /    1.00     挖土 [1]\n"
                                "   0.00 /    1.00 ✗   垫层 — 缺少评分项，不得分\n"
                                "      -- /    5.00   逻辑关系: not available: \"逻辑关系\", none\n"
                                "   1.00 /    2.00   Total (1 of 2 categories not available)\n\n"
                                "Candidate: d.json\n"
                                "  not graded: d.json: $: expected a JSON document\n\n"
                                "Summary\n"
                                "   1.00 /    2.00   c.json\n"
                                "     not graded   d.json\n"));
        ReportOptions options;
        options.lostOnly = true;
        options.color = true;
        const QString lost = Grade::textReport(sections(), options);
        QVERIFY(!lost.contains(QStringLiteral("挖土"))); // nothing lost there
        QVERIFY(
            lost.contains(QStringLiteral("\x1b[31m   0.00 /    1.00 ✗   垫层 — 缺少评分项，不得分\x1b[0m")));
    }

    void jsonReport() {
        const QByteArray expected = R"({"reports":[{"standard":"s.json","candidates":[
            {"file":"c.json","graded":true,"notes":[],"full":2,"obtained":1,"categories":[
             {"type":1,"title":"工作项完整性","available":true,"full":2,"obtained":1,"tree":
              {"name":"工作项完整性","value":"","full":2,"obtained":1,"remark":"","lost":true,"items":[
               {"name":"挖土","value":"1","full":1,"obtained":1,"remark":"","lost":false,"items":[]},
               {"name":"垫层","value":"","full":1,"obtained":0,"remark":"缺少评分项，不得分","lost":true,"items":[]}]}},
             {"type":3,"title":"逻辑关系","available":false,"full":5,"obtained":0,"note":"not available: \u0022逻辑关系\u0022, none"}]},
            {"file":"d.json","graded":false,"error":"d.json: $: expected a JSON document"}]}]})";
        QCOMPARE(QJsonDocument::fromJson(Grade::jsonReport(sections())), QJsonDocument::fromJson(expected));
    }

    void csvReports() {
        QCOMPARE(csvReport(sections()),
                 QStringLiteral("candidate,path,full,obtained,remark\n"
                                "c.json,工作项完整性,2,1,\n"
                                "c.json,工作项完整性 > 挖土,1,1,\n"
                                "c.json,工作项完整性 > 垫层,1,0,缺少评分项，不得分\n"
                                "c.json,逻辑关系,5,,\"not available: \"\"逻辑关系\"\", none\"\n"
                                "d.json,,,,not graded: d.json: $: expected a JSON document\n"));
        QCOMPARE(csvSummary(sections()), QStringLiteral("candidate,status,工作项完整性,逻辑关系,total,full\n"
                                                        "c.json,graded,1,,1,2\n"
                                                        "d.json,not graded,,,,\n"));
    }

    void marksFile_data() {
        QTest::addColumn<QByteArray>("document");
        QTest::addColumn<QString>("error");
        row("some set", QByteArray(R"({"schedule":{"logic":30},"pricing":50})"), QString());
        row("unknown category", QByteArray(R"({"schedule":{"logics":30}})"),
            "m.json: $.schedule.logics: unknown key; expected one of integrity, attributes, logic, "
            "resourceCurves, gantt, rationality, principles");
        row("negative", QByteArray(R"({"model":-1})"),
            "m.json: $.model: expected a number from 0 to 10000, found -1");
        row("too large to add up", QByteArray(R"({"schedule":{"gantt":1e308}})"),
            "m.json: $.schedule.gantt: expected a number from 0 to 10000, found 1e+308");
    }

    void marksFile() {
        QFETCH(QByteArray, document);
        QFETCH(QString, error);
        Marks marks;
        marks.schedule[3] = -7.0; // must survive a failed read
        Host::ReadError readError;
        const bool ok = readMarksDocument(document, QStringLiteral("m.json"), marks, readError);
        QCOMPARE(ok ? QString() : readError.toString(), error);
        // What the file does not set keeps its default (15 for integrity).
        QCOMPARE((QList<double>{marks.schedule.value(3), marks.pricing, marks.schedule.value(1)}),
                 (ok ? QList<double>{30, 50, 15} : QList<double>{-7, 100, 15}));
    }

    void progress() {
        QCOMPARE(progressLine(0, 650, -1), QStringLiteral("graded 0/650, estimating time left"));
        QCOMPARE(progressLine(120, 650, 125), QStringLiteral("graded 120/650, about 2:05 left"));
    }

    void commandUsage_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("message");
        row("unknown option", QStringList{"--frobnicate"}, "Unknown option 'frobnicate'");
        row("standard alone", QStringList{"a.json"}, "a standard answer needs at least one candidate");
        row("format", QStringList{"-f", "xml", "a.json", "b.json"},
            "unknown format \"xml\": use text, json or csv");
    }

    void commandUsage() {
        QFETCH(QStringList, arguments);
        QFETCH(QString, message);
        const Run run = markgrade(arguments);
        QCOMPARE(run.exitCode, 2);
        QVERIFY2(run.err.startsWith(QStringLiteral("markgrade: ") + message), qPrintable(run.err));
        QVERIFY(run.out.isEmpty());
    }

    void commandGrades() {
        QTemporaryDir dir;
        const auto write = [&dir](const QString& name, const QByteArray& bytes) {
            QFile file(dir.filePath(name));
            return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? file.fileName()
                                                                                        : QString();
        };
        const QString a = write("a.json", R"({"product":"schedule","scene":"Site","workItems":[
            {"id":1,"name":"挖土","duration":14},{"id":2,"name":"垫层","duration":7,"predecessors":[1]}]})");
        const QString b =
            write("b.json", R"({"product":"schedule","workItems":[{"id":1,"name":"挖土","duration":10}]})");
        const QString broken =
            write("broken.json", R"({"product":"schedule","workItems":[{"id":1,"name":"x",)");
        QVERIFY(!a.isEmpty() && !b.isEmpty() && !broken.isEmpty());

        // The built-in sample, as text.
        const Run sample = markgrade({});
        QCOMPARE(sample.exitCode, 0);
        QVERIFY(sample.out.startsWith(QStringLiteral("Standard answer: :/samples/schedule-standard.json\n")));

        // A broken candidate is skipped (exit code 1) and reported in its place.
        const Run json = markgrade({"-f", "json", a, b, broken, a});
        QCOMPARE(json.exitCode, 1);
        QVERIFY2(json.err.contains(
                     QStringLiteral("markgrade: skipped %1: $: expected a JSON document").arg(broken)),
                 qPrintable(json.err));
        const QJsonArray candidates =
            QJsonDocument::fromJson(json.out.toUtf8())["reports"][0]["candidates"].toArray();
        QCOMPARE(candidates.size(), 3);
        QCOMPARE(candidates[0]["categories"].toArray().size(), 7);
        QCOMPARE(candidates[1]["file"].toString(), broken);
        QVERIFY(candidates[0]["graded"].toBool() && !candidates[1]["graded"].toBool() &&
                candidates[2]["graded"].toBool());

        // CSV: the rows, then a summary with the categories' titles.
        const Run csv = markgrade({"--format", "csv", a, a, b});
        QCOMPARE(csv.exitCode, 0);
        QVERIFY(csv.out.contains(
            QStringLiteral("\n\ncandidate,status,工作项完整性,工作项属性,逻辑关系,资源曲线图正确性,"
                           "横道图合理性,网络计划合理性,网络计划原则,total,full\n")));
    }
};

QTEST_GUILESS_MAIN(TestGrader)
#include "tst_grader.moc"
