// Reports of scored trees (text, JSON, CSV and the batch summary), the marks file and the progress
// line, on results made by hand.
#include "batch.h"
#include "marks.h"
#include "report.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

using namespace Grade;

namespace {

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

// One candidate: integrity 1.0 of 2 (a missing work item), and an unavailable second category.
CandidateResult sampleResult(const QString& file) {
    CandidateResult result;
    result.file = file;
    result.graded = true;
    CategoryResult integrity;
    integrity.type = 1;
    integrity.title = QStringLiteral("工作项完整性");
    integrity.full = 2.0;
    integrity.obtained = 1.0;
    integrity.tree = node(QStringLiteral("工作项完整性"), 1.0, 2.0, QString(),
                          {node(QStringLiteral("挖土"), 1.0, 1.0),
                           node(QStringLiteral("垫层"), 0.0, 1.0, QStringLiteral("缺少评分项，不得分"))});
    integrity.tree.items[0].value = QStringLiteral("1");
    CategoryResult logic;
    logic.type = 3;
    logic.title = QStringLiteral("逻辑关系");
    logic.full = 5.0;
    logic.available = false;
    logic.note = QStringLiteral("not available: no category");
    result.categories = {integrity, logic};
    return result;
}

CandidateResult unreadable(const QString& file) {
    CandidateResult result;
    result.file = file;
    result.error = file + QStringLiteral(": $: expected a JSON document");
    return result;
}

} // namespace

class TestGraderReport : public QObject {
    Q_OBJECT
private slots:
    void lostMarks();
    void totalsLeaveOutUnavailable();
    void textTree();
    void textLostOnlyAndColour();
    void json();
    void csvRows();
    void csvSummaryColumns();
    void csvQuoting_data();
    void csvQuoting();
    void marksFile_data();
    void marksFile();
    void progress_data();
    void progress();
};

void TestGraderReport::lostMarks() {
    QVERIFY(node(QString(), 0.5, 1.0).lost());
    QVERIFY(node(QString(), -0.5, 0.0).lost()); // a deduction
    QVERIFY(!node(QString(), 1.0, 1.0).lost());
    QVERIFY(!node(QString(), 1.0 - 1e-12, 1.0).lost()); // rounding is not a loss
    QVERIFY(!node(QString(), 0.0, 0.0).lost());
}

void TestGraderReport::totalsLeaveOutUnavailable() {
    const CandidateResult result = sampleResult(QStringLiteral("c.json"));
    QCOMPARE(result.full(), 2.0);
    QCOMPARE(result.obtained(), 1.0);
}

void TestGraderReport::textTree() {
    const QString text =
        textReport({{QStringLiteral("s.json"), {sampleResult(QStringLiteral("c.json"))}}}, ReportOptions());
    const QStringList lines = text.split(QLatin1Char('\n'));
    QCOMPARE(lines[0], QStringLiteral("Standard answer: s.json"));
    QCOMPARE(lines[2], QStringLiteral("Candidate: c.json"));
    QCOMPARE(lines[4], QStringLiteral("   1.00 /    2.00 ✗ 工作项完整性"));
    QCOMPARE(lines[5], QStringLiteral("   1.00 /    1.00     挖土 [1]"));
    QCOMPARE(lines[6], QStringLiteral("   0.00 /    1.00 ✗   垫层 — 缺少评分项，不得分"));
    QCOMPARE(lines[7], QStringLiteral("      -- /    5.00   逻辑关系: not available: no category"));
    QCOMPARE(lines[8], QStringLiteral("   1.00 /    2.00   Total (1 of 2 categories not available)"));
    QVERIFY(!text.contains(QStringLiteral("Summary"))); // one candidate: no summary

    const QString batch =
        textReport({{QStringLiteral("s.json"),
                     {sampleResult(QStringLiteral("c.json")), unreadable(QStringLiteral("d.json"))}}},
                   ReportOptions());
    QVERIFY(batch.contains(
        QStringLiteral("Candidate: d.json\n  not graded: d.json: $: expected a JSON document\n")));
    QVERIFY(
        batch.endsWith(QStringLiteral("Summary\n   1.00 /    2.00   c.json\n     not graded   d.json\n")));
}

void TestGraderReport::textLostOnlyAndColour() {
    ReportOptions options;
    options.lostOnly = true;
    options.color = true;
    const QString text =
        textReport({{QStringLiteral("s.json"), {sampleResult(QStringLiteral("c.json"))}}}, options);
    QVERIFY(!text.contains(QStringLiteral("挖土"))); // nothing lost there
    QVERIFY(text.contains(QStringLiteral("\x1b[31m   0.00 /    1.00 ✗   垫层 — 缺少评分项，不得分\x1b[0m")));
    QVERIFY(text.contains(QStringLiteral("\x1b[31m   1.00 /    2.00   Total")));
}

void TestGraderReport::json() {
    const QByteArray bytes =
        jsonReport({{QStringLiteral("s.json"),
                     {sampleResult(QStringLiteral("c.json")), unreadable(QStringLiteral("d.json"))}}});
    const QJsonObject section =
        QJsonDocument::fromJson(bytes).object()[QStringLiteral("reports")].toArray()[0].toObject();
    QCOMPARE(section[QStringLiteral("standard")].toString(), QStringLiteral("s.json"));
    const QJsonArray candidates = section[QStringLiteral("candidates")].toArray();
    const QJsonObject graded = candidates[0].toObject();
    QCOMPARE(graded[QStringLiteral("full")].toDouble(), 2.0);
    QCOMPARE(graded[QStringLiteral("obtained")].toDouble(), 1.0);
    const QJsonArray categories = graded[QStringLiteral("categories")].toArray();
    QCOMPARE(categories.size(), 2);
    const QJsonObject tree = categories[0].toObject()[QStringLiteral("tree")].toObject();
    const QJsonObject missing = tree[QStringLiteral("items")].toArray()[1].toObject();
    QCOMPARE(missing[QStringLiteral("name")].toString(), QStringLiteral("垫层"));
    QCOMPARE(missing[QStringLiteral("full")].toDouble(), 1.0);
    QCOMPARE(missing[QStringLiteral("obtained")].toDouble(), 0.0);
    QCOMPARE(missing[QStringLiteral("remark")].toString(), QStringLiteral("缺少评分项，不得分"));
    QVERIFY(missing[QStringLiteral("lost")].toBool());
    QVERIFY(!categories[1].toObject()[QStringLiteral("available")].toBool());
    QVERIFY(!categories[1].toObject().contains(QStringLiteral("tree")));
    const QJsonObject failed = candidates[1].toObject();
    QVERIFY(!failed[QStringLiteral("graded")].toBool());
    QCOMPARE(failed[QStringLiteral("error")].toString(),
             QStringLiteral("d.json: $: expected a JSON document"));
}

void TestGraderReport::csvRows() {
    const QString csv =
        csvReport({{QStringLiteral("s.json"),
                    {sampleResult(QStringLiteral("c.json")), unreadable(QStringLiteral("d.json"))}}});
    QCOMPARE(csv.split(QLatin1Char('\n')),
             (QStringList{QStringLiteral("candidate,path,full,obtained,remark"),
                          QStringLiteral("c.json,工作项完整性,2,1,"),
                          QStringLiteral("c.json,工作项完整性 > 挖土,1,1,"),
                          QStringLiteral("c.json,工作项完整性 > 垫层,1,0,缺少评分项，不得分"),
                          QStringLiteral("c.json,逻辑关系,5,,not available: no category"),
                          QStringLiteral("d.json,,,,not graded: d.json: $: expected a JSON document"),
                          QString()}));
}

void TestGraderReport::csvSummaryColumns() {
    CandidateResult other = sampleResult(QStringLiteral("e.json"));
    other.categories[1].available = true;
    other.categories[1].obtained = 2.5;
    const QString csv =
        csvSummary({{QStringLiteral("s.json"),
                     {sampleResult(QStringLiteral("c.json")), unreadable(QStringLiteral("d.json")), other}}});
    QCOMPARE(csv.split(QLatin1Char('\n')),
             (QStringList{QStringLiteral("candidate,status,工作项完整性,逻辑关系,total,full"),
                          QStringLiteral("c.json,graded,1,,1,2"), QStringLiteral("d.json,not graded,,,,"),
                          QStringLiteral("e.json,graded,1,2.5,3.5,7"), QString()}));
}

void TestGraderReport::csvQuoting_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("field");
    QTest::newRow("plain") << "缺少评分项，不得分"
                           << "缺少评分项，不得分"; // a full-width comma needs no quotes
    QTest::newRow("comma") << "a,b"
                           << "\"a,b\"";
    QTest::newRow("quote") << "缺少\"水泥\"资源曲线"
                           << "\"缺少\"\"水泥\"\"资源曲线\"";
    QTest::newRow("line break") << "a\nb"
                                << "\"a\nb\"";
    QTest::newRow("empty") << ""
                           << "";
}

void TestGraderReport::csvQuoting() {
    QFETCH(QString, text);
    QFETCH(QString, field);
    QCOMPARE(csvField(text), field);
}

void TestGraderReport::marksFile_data() {
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("error");
    QTest::addColumn<double>("logic");
    QTest::addColumn<double>("pricing");
    QTest::newRow("defaults") << QByteArray("{}") << QString() << 20.0 << 100.0;
    QTest::newRow("some set") << QByteArray(R"({"schedule":{"logic":30},"pricing":50})") << QString() << 30.0
                              << 50.0;
    QTest::newRow("unknown category")
        << QByteArray(R"({"schedule":{"logics":30}})")
        << "m.json: $.schedule.logics: unknown key; expected one of integrity, attributes, "
           "logic, resourceCurves, gantt, rationality, principles"
        << 0.0 << 0.0;
    QTest::newRow("negative") << QByteArray(R"({"model":-1})")
                              << "m.json: $.model: expected a number of at least 0, found -1" << 0.0 << 0.0;
}

void TestGraderReport::marksFile() {
    QFETCH(QByteArray, document);
    QFETCH(QString, error);
    QFETCH(double, logic);
    QFETCH(double, pricing);
    Marks marks;
    marks.schedule[3] = -7.0; // must survive a failed read
    Host::ReadError readError;
    const bool ok = readMarksDocument(document, QStringLiteral("m.json"), marks, readError);
    QCOMPARE(ok, error.isEmpty());
    if (!ok) {
        QCOMPARE(readError.toString(), error);
        QCOMPARE(marks.schedule.value(3), -7.0);
        return;
    }
    QCOMPARE(marks.schedule.value(3), logic);
    QCOMPARE(marks.pricing, pricing);
    QCOMPARE(marks.schedule.value(1), 15.0);
    QCOMPARE(Marks::scheduleKey(4), QStringLiteral("resourceCurves"));
}

void TestGraderReport::progress_data() {
    QTest::addColumn<int>("done");
    QTest::addColumn<int>("secondsLeft");
    QTest::addColumn<QString>("line");
    QTest::newRow("start") << 0 << -1 << "graded 0/650, estimating time left";
    QTest::newRow("minutes") << 120 << 125 << "graded 120/650, about 2:05 left";
    QTest::newRow("seconds") << 649 << 0 << "graded 649/650, about 0:00 left";
}

void TestGraderReport::progress() {
    QFETCH(int, done);
    QFETCH(int, secondsLeft);
    QFETCH(QString, line);
    QCOMPARE(progressLine(done, 650, secondsLeft), line);
}

QTEST_GUILESS_MAIN(TestGraderReport)
#include "tst_grader_report.moc"
