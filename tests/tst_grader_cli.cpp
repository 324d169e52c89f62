// The markgrade command: exit codes, usage errors, bad inputs and the output formats, run as a
// separate process on small files.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Run {
    int exitCode = -1;
    QString out;
    QString err;
};

Run markgrade(const QStringList& arguments) {
    QProcess process;
    process.start(QStringLiteral(MARKGRADE_PATH), arguments);
    Run run;
    if (!process.waitForFinished(120000))
        return run;
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2;
    run.out = QString::fromUtf8(process.readAllStandardOutput());
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}

const QByteArray scheduleA = R"({"product":"schedule","scene":"Site","workItems":[
    {"id":1,"name":"挖土","duration":14},{"id":2,"name":"垫层","duration":7,"predecessors":[1]}]})";
const QByteArray scheduleB = R"({"product":"schedule","scene":"Site","workItems":[
    {"id":1,"name":"挖土","duration":10}]})";
const QByteArray pricing = R"({"product":"Elm","root":{"name":"工程","items":[{"name":"土方","rate":10}]}})";

} // namespace

class TestGraderCli : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void help();
    void usageErrors_data();
    void usageErrors();
    void badStandard();
    void badMarks();
    void badCandidateIsSkipped();
    void productMismatchIsBadInput();
    void csvBatchWithSummary();
    void outputFile();
    void builtInSample();
    void generatedBatch();

private:
    QString write(const QString& name, const QByteArray& bytes);
    QTemporaryDir m_dir;
};

QString TestGraderCli::write(const QString& name, const QByteArray& bytes) {
    const QString path = m_dir.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

void TestGraderCli::initTestCase() {
    QVERIFY(m_dir.isValid());
    write(QStringLiteral("a.json"), scheduleA);
    write(QStringLiteral("b.json"), scheduleB);
    write(QStringLiteral("p.json"), pricing);
}

void TestGraderCli::help() {
    const Run run = markgrade({QStringLiteral("--help")});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.out.startsWith(QStringLiteral("Usage: markgrade [options] STANDARD CANDIDATE...")));
    QVERIFY(run.out.contains(QStringLiteral("Exit codes: 0")));
    QVERIFY(run.err.isEmpty());
}

void TestGraderCli::usageErrors_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");
    QTest::newRow("unknown option") << QStringList{QStringLiteral("--frobnicate")}
                                    << "Unknown option 'frobnicate'";
    QTest::newRow("standard alone") << QStringList{QStringLiteral("a.json")}
                                    << "a standard answer needs at least one candidate";
    QTest::newRow("format") << QStringList{QStringLiteral("-f"), QStringLiteral("xml"),
                                           QStringLiteral("a.json"), QStringLiteral("b.json")}
                            << "unknown format \"xml\": use text, json or csv";
    QTest::newRow("jobs") << QStringList{QStringLiteral("-j"), QStringLiteral("0"), QStringLiteral("a.json"),
                                         QStringLiteral("b.json")}
                          << "--jobs takes a number of at least 1";
    QTest::newRow("color") << QStringList{QStringLiteral("--color"), QStringLiteral("red"),
                                          QStringLiteral("a.json"), QStringLiteral("b.json")}
                           << "unknown --color \"red\": use auto, always or never";
    QTest::newRow("batch count") << QStringList{QStringLiteral("--generate-batch"), QStringLiteral("out")}
                                 << "--generate-batch DIR takes one more argument";
    QTest::newRow("option value") << QStringList{QStringLiteral("a.json"), QStringLiteral("--marks")}
                                  << "Missing value after '--marks'";
}

void TestGraderCli::usageErrors() {
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    const Run run = markgrade(arguments);
    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.startsWith(QStringLiteral("markgrade: ") + message), qPrintable(run.err));
    QVERIFY(run.out.isEmpty());
}

void TestGraderCli::badStandard() {
    const QString bad =
        write(QStringLiteral("bad-standard.json"), R"({"product":"schedule","workItems":[{"id":1}]})");
    const Run run = markgrade({bad, m_dir.filePath(QStringLiteral("b.json"))});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(
        run.err.trimmed(),
        QStringLiteral("markgrade: standard answer %1: $.workItems[0].name: expected a text, found nothing")
            .arg(bad));
    QVERIFY(run.out.isEmpty());

    const Run missing =
        markgrade({m_dir.filePath(QStringLiteral("nothing.json")), m_dir.filePath(QStringLiteral("b.json"))});
    QCOMPARE(missing.exitCode, 1);
    QVERIFY(missing.err.contains(QStringLiteral("nothing.json: cannot be read")));
}

void TestGraderCli::badMarks() {
    const QString marks = write(QStringLiteral("marks.json"), R"({"schedule":{"logic":-5}})");
    const Run run = markgrade({QStringLiteral("-m"), marks, m_dir.filePath(QStringLiteral("a.json")),
                               m_dir.filePath(QStringLiteral("b.json"))});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.err.trimmed(),
             QStringLiteral("markgrade: %1: $.schedule.logic: expected a number of at least 0, found -5")
                 .arg(marks));
}

void TestGraderCli::badCandidateIsSkipped() {
    const QString broken =
        write(QStringLiteral("broken.json"), R"({"product":"schedule","workItems":[{"id":1,"name":"x",)");
    const QString a = m_dir.filePath(QStringLiteral("a.json"));
    const QString b = m_dir.filePath(QStringLiteral("b.json"));
    const Run run = markgrade({QStringLiteral("-f"), QStringLiteral("json"), a, b, broken, a});
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(
        run.err.contains(QStringLiteral("markgrade: skipped %1: $: expected a JSON document").arg(broken)),
        qPrintable(run.err));
    const QJsonObject report = QJsonDocument::fromJson(run.out.toUtf8()).object();
    const QJsonArray reports = report.value(QStringLiteral("reports")).toArray();
    QCOMPARE(reports.size(), 1);
    QCOMPARE(reports[0].toObject().value(QStringLiteral("standard")).toString(), a);
    const QJsonArray candidates = reports[0].toObject().value(QStringLiteral("candidates")).toArray();
    QCOMPARE(candidates.size(), 3); // in the order given, the broken one reported in its place
    QCOMPARE(candidates[0].toObject().value(QStringLiteral("file")).toString(), b);
    QVERIFY(candidates[0].toObject().value(QStringLiteral("graded")).toBool());
    QCOMPARE(candidates[0].toObject().value(QStringLiteral("categories")).toArray().size(), 7);
    QVERIFY(!candidates[1].toObject().value(QStringLiteral("graded")).toBool());
    QVERIFY(candidates[1]
                .toObject()
                .value(QStringLiteral("error"))
                .toString()
                .startsWith(broken + QStringLiteral(": $: ")));
    QVERIFY(candidates[2].toObject().value(QStringLiteral("graded")).toBool());
}

void TestGraderCli::productMismatchIsBadInput() {
    const Run run =
        markgrade({m_dir.filePath(QStringLiteral("a.json")), m_dir.filePath(QStringLiteral("p.json"))});
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(
        run.err.contains(QStringLiteral("p.json: holds product Elm, the standard answer product schedule")),
        qPrintable(run.err));
    QVERIFY(run.out.contains(QStringLiteral("not graded: ")));
}

void TestGraderCli::csvBatchWithSummary() {
    const QString a = m_dir.filePath(QStringLiteral("a.json"));
    const QString b = m_dir.filePath(QStringLiteral("b.json"));
    const Run run = markgrade({QStringLiteral("--format"), QStringLiteral("csv"), a, a, b});
    QCOMPARE(run.exitCode, 0);
    const QStringList blocks = run.out.split(QStringLiteral("\n\n"));
    QCOMPARE(blocks.size(), 2);
    QVERIFY(blocks[0].startsWith(QStringLiteral("candidate,path,full,obtained,remark\n")));
    const QStringList summary = blocks[1].trimmed().split(QLatin1Char('\n'));
    QCOMPARE(summary[0],
             QStringLiteral("candidate,status,工作项完整性,工作项属性,逻辑关系,资源曲线图正确性,横道图合理性,"
                            "网络计划合理性,网络计划原则,total,full"));
    QCOMPARE(summary.size(), 3); // one row per candidate
    QVERIFY(summary[1].startsWith(a + QStringLiteral(",graded,")));
    QVERIFY(summary[2].startsWith(b + QStringLiteral(",graded,")));
    QCOMPARE(summary[2].count(QLatin1Char(',')), summary[0].count(QLatin1Char(',')));

    // With --summary the summary goes to its own file.
    const QString summaryFile = m_dir.filePath(QStringLiteral("summary.csv"));
    const Run split = markgrade(
        {QStringLiteral("-f"), QStringLiteral("csv"), QStringLiteral("--summary"), summaryFile, a, a, b});
    QCOMPARE(split.exitCode, 0);
    QVERIFY(!split.out.contains(QStringLiteral("\n\n")));
    QFile file(summaryFile);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(file.readAll()).trimmed(), blocks[1].trimmed());
}

void TestGraderCli::outputFile() {
    const QString report = m_dir.filePath(QStringLiteral("report.txt"));
    const Run run = markgrade({QStringLiteral("-o"), report, m_dir.filePath(QStringLiteral("p.json")),
                               m_dir.filePath(QStringLiteral("p.json"))});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.out.isEmpty());
    QFile file(report);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    QVERIFY(text.startsWith(QStringLiteral("Standard answer: ") + m_dir.filePath(QStringLiteral("p.json"))));
    QVERIFY(text.contains(QStringLiteral("Elm pricing")));
    QVERIFY(!text.contains(QStringLiteral("\x1b["))); // no colours in a file

    const Run unwritable =
        markgrade({QStringLiteral("-o"), m_dir.filePath(QStringLiteral("no/such/dir/r.txt")),
                   m_dir.filePath(QStringLiteral("p.json")), m_dir.filePath(QStringLiteral("p.json"))});
    QCOMPARE(unwritable.exitCode, 1);
    QVERIFY(unwritable.err.contains(QStringLiteral("cannot be written")));
}

void TestGraderCli::builtInSample() {
    const Run run = markgrade({});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.out.startsWith(QStringLiteral("Standard answer: :/samples/schedule-standard.json\n")));
    QVERIFY(run.out.contains(QStringLiteral("Candidate: :/samples/pricing-candidate.json")));
    QVERIFY(run.out.contains(QStringLiteral("Candidate: :/samples/model-candidate.json")));
    QVERIFY(run.err.isEmpty()); // no progress line when stderr is not a terminal

    const Run json = markgrade({QStringLiteral("--format"), QStringLiteral("json")});
    QCOMPARE(json.exitCode, 0);
    QCOMPARE(
        QJsonDocument::fromJson(json.out.toUtf8()).object().value(QStringLiteral("reports")).toArray().size(),
        3);
}

void TestGraderCli::generatedBatch() {
    const QString dir = m_dir.filePath(QStringLiteral("batch"));
    const Run made = markgrade({QStringLiteral("--generate-batch"), dir, QStringLiteral("5")});
    QCOMPARE(made.exitCode, 0);
    QStringList candidates;
    for (int k = 1; k <= 5; ++k)
        candidates << QStringLiteral("%1/candidate-%2.json").arg(dir).arg(k, 4, 10, QLatin1Char('0'));
    const Run run = markgrade(
        QStringList{QStringLiteral("-f"), QStringLiteral("csv"), dir + QStringLiteral("/standard.json")} +
        candidates);
    QCOMPARE(run.exitCode, 1); // the middle one is cut short
    QCOMPARE(run.err.count(QStringLiteral("skipped")), 1);
    QVERIFY(run.err.contains(QStringLiteral("candidate-0003.json: $: expected a JSON document")));
    const QStringList summary =
        run.out.split(QStringLiteral("\n\n")).value(1).trimmed().split(QLatin1Char('\n'));
    QCOMPARE(summary.size(), 6);
    QCOMPARE(summary.filter(QStringLiteral(",not graded,")).size(), 1);
}

QTEST_GUILESS_MAIN(TestGraderCli)
#include "tst_grader_cli.moc"
