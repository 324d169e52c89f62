// The grader: reports of scored trees made by hand (text, JSON, CSV and the batch summary), the marks
// file, the command line, the streaming batch with a grading function of the test's own, and the
// markgrade command run as a separate process on small files.
#include "datarow.h"
#include "batch.h"
#include "csvreport.h"
#include "jsonreport.h"
#include "jsonwriter.h"
#include "marks.h"
#include "options.h"
#include "textreport.h"

#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <atomic>
#include <thread>

using namespace Grade;

namespace {

ScoredNode node(const QString& name, double obtained, double full, const QString& remark = QString(),
                const QVector<ScoredNode>& items = {}) {
    ScoredNode n;
    n.name = name;
    n.obtained = obtained;
    n.full = full;
    n.remark = remark;
    n.items = items;
    return n;
}

// The candidates graded against one standard answer.
struct ReportSection {
    QString standardFile;
    QList<CandidateResult> results;
};

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
             {{"c.json", true, QString(), QStringList(), {graded[0], graded[1]}, {}, {}},
              {"d.json",
               false,
               "d.json: $: expected a JSON document",
               QStringList(),
               QList<CategoryResult>(),
               {},
               {}}}}};
}

// What a sink writes for the sections, fed as a batch feeds it (each result prepared first, unless
// not prepared).
QString report(ReportSink& sink, const QList<ReportSection>& sections, bool prepared = true) {
    bool ok = true;
    for (const ReportSection& section : sections) {
        ok = ok && sink.beginSection({section.standardFile, {}, int(section.results.size())});
        for (CandidateResult result : section.results) {
            if (prepared)
                sink.prepare(result);
            ok = ok && sink.addCandidate(result);
        }
        ok = ok && sink.endSection();
    }
    return ok && sink.finish() ? QString() : sink.error();
}

std::unique_ptr<ReportOutput> into(QBuffer& buffer) {
    buffer.open(QIODevice::WriteOnly);
    return std::make_unique<ReportOutput>(&buffer, QStringLiteral("buffer"));
}

QString textReport(const QList<ReportSection>& sections, const TextOptions& options) {
    QBuffer buffer;
    TextSink sink(into(buffer), options);
    const QString error = report(sink, sections);
    return error.isEmpty() ? QString::fromUtf8(buffer.data()) : error;
}

// The rows and the summary of a CSV report with a summary file.
QPair<QString, QString> csvReports(const QList<ReportSection>& sections, bool prepared = true) {
    QBuffer rows, summary;
    CsvSink sink(into(rows), into(summary));
    const QString error = report(sink, sections, prepared);
    return qMakePair(error.isEmpty() ? QString::fromUtf8(rows.data()) : error,
                     QString::fromUtf8(summary.data()));
}

// A result of the file, graded with no categories.
CandidateResult made(const QString& file) {
    CandidateResult result;
    result.file = file;
    result.graded = true;
    return result;
}

struct Run {
    int exitCode = -1;
    QString out, err;
};

Run markgrade(const QStringList& arguments, const QString& standardOutput = QString()) {
    QProcess process;
    if (!standardOutput.isEmpty())
        process.setStandardOutputFile(standardOutput);
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
        QCOMPARE(::textReport(sections(), TextOptions()),
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
        TextOptions options;
        options.lostOnly = true;
        options.color = true;
        const QString lost = ::textReport(sections(), options);
        QVERIFY(!lost.contains(QStringLiteral("挖土"))); // nothing lost there
        QVERIFY(
            lost.contains(QStringLiteral("\x1b[31m   0.00 /    1.00 ✗   垫层 — 缺少评分项，不得分\x1b[0m")));
    }

    // Control characters of names, values, remarks and file names never reach the terminal raw.
    void textControlCharacters_data() {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("shown");
        row("escape in a name", QString("name"), QString("挖土\x1b[2J"), QString("挖土\\x1b[2J"));
        row("line break in a remark", QString("remark"), QString("a\nb\r"), QString("a\\x0ab\\x0d"));
        row("DEL in a value", QString("value"), QString("1\x7f"), QString("1\\x7f"));
        row("C1 CSI in a file name", QString("file"), QString("c\u009b31m.json"), QString("c\\x9b31m.json"));
        row("tab in an error", QString("error"), QString("d.json:\tbad"), QString("d.json:\\x09bad"));
    }

    void textControlCharacters() {
        QFETCH(QString, field);
        QFETCH(QString, text);
        QFETCH(QString, shown);
        QList<ReportSection> report = sections();
        CandidateResult& graded = report[0].results[0];
        ScoredNode& leaf = graded.categories[0].tree.items[0];
        if (field == "name" || field == "remark" || field == "value")
            (field == "name" ? leaf.name : field == "remark" ? leaf.remark : leaf.value) = text;
        else
            (field == "file" ? report[0].results[1].file : report[0].results[1].error) = text;
        const QString written = ::textReport(report, TextOptions());
        QVERIFY2(written.contains(shown), qPrintable(written));
        QVERIFY(!written.contains(text));
        QVERIFY(std::none_of(written.cbegin(), written.cend(), [](QChar c) {
            return c != QLatin1Char('\n') && (c < QChar(0x20) || (c >= QChar(0x7f) && c < QChar(0xa0)));
        }));
    }

    void jsonReport_data() {
        QTest::addColumn<bool>("pretty");
        row("compact", false);
        row("pretty", true);
    }

    void jsonReport() {
        QFETCH(bool, pretty);
        const QByteArray expected = R"({"reports":[{"standard":"s.json","candidates":[
            {"file":"c.json","graded":true,"notes":[],"full":2,"obtained":1,"categories":[
             {"type":1,"title":"工作项完整性","available":true,"full":2,"obtained":1,"tree":
              {"name":"工作项完整性","value":"","full":2,"obtained":1,"remark":"","lost":true,"items":[
               {"name":"挖土","value":"1","full":1,"obtained":1,"remark":"","lost":false,"items":[]},
               {"name":"垫层","value":"","full":1,"obtained":0,"remark":"缺少评分项，不得分","lost":true,"items":[]}]}},
             {"type":3,"title":"逻辑关系","available":false,"full":5,"obtained":0,"note":"not available: \u0022逻辑关系\u0022, none"}]},
            {"file":"d.json","graded":false,"error":"d.json: $: expected a JSON document"}]},
            {"standard":"t.json","candidates":[]}]})";
        QBuffer buffer;
        JsonSink sink(into(buffer), pretty);
        QCOMPARE(report(sink, sections() + QList<ReportSection>{{"t.json", {}}}), QString());
        QJsonParseError error;
        QCOMPARE(QJsonDocument::fromJson(buffer.data(), &error), QJsonDocument::fromJson(expected));
        QCOMPARE(error.error, QJsonParseError::NoError);
        // Compact is one line; pretty only adds line breaks, indentation and a space after each key.
        if (!pretty) {
            QCOMPARE(buffer.data().count('\n'), 1);
            return;
        }
        QBuffer compact;
        JsonSink compactSink(into(compact), false);
        report(compactSink, sections() + QList<ReportSection>{{"t.json", {}}});
        QByteArray unindented;
        for (const QByteArray& line : buffer.data().split('\n'))
            unindented += line.trimmed().replace("\": ", "\":");
        QCOMPARE(unindented, compact.data().trimmed());
        QVERIFY(buffer.data().count('\n') > 40);
    }

    // Every text reaches a JSON reader as it was, whatever characters it holds; numbers that are not
    // finite become null.
    void jsonValues_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        row("Chinese", QStringLiteral("工作项完整性"), QStringLiteral("工作项完整性"));
        row("quotes and backslashes", QStringLiteral(R"(a "b" \c\)"), QStringLiteral(R"(a "b" \c\)"));
        row("control characters",
            QStringLiteral("a\tb\nc\rd\x01"
                           "e\x1f"),
            QStringLiteral("a\tb\nc\rd\x01"
                           "e\x1f"));
        row("outside the BMP", QString::fromUtf8("\xF0\x9F\x8F\x97 tower"),
            QString::fromUtf8("\xF0\x9F\x8F\x97 tower"));
        row("lone surrogate", QString(QChar(0xD800)) + QStringLiteral("x"), QStringLiteral("\uFFFDx"));
    }

    void jsonValues() {
        QFETCH(QString, text);
        QFETCH(QString, expected);
        QByteArray bytes;
        JsonWriter out(false, 0, [&bytes](const QByteArray& block) {
            bytes += block;
            return true;
        });
        out.beginArray();
        out.value(text);
        out.value(std::numeric_limits<double>::infinity());
        out.value(-0.0);
        out.value(0.1);
        out.endArray();
        QVERIFY(out.flush());
        QJsonParseError error;
        const QJsonArray array = QJsonDocument::fromJson(bytes, &error).array();
        QCOMPARE(error.error, QJsonParseError::NoError);
        QCOMPARE(array, (QJsonArray{expected, QJsonValue::Null, 0, 0.1}));
        QVERIFY(bytes.endsWith(",null,0,0.1]"));
    }

    void csvReports() {
        const QPair<QString, QString> reports = ::csvReports(sections());
        QCOMPARE(reports.first,
                 QStringLiteral("candidate,path,full,obtained,remark,note\n"
                                "c.json,工作项完整性,2,1,,\n"
                                "c.json,工作项完整性 > 挖土,1,1,,\n"
                                "c.json,工作项完整性 > 垫层,1,0,缺少评分项，不得分,\n"
                                "c.json,逻辑关系,5,,,\"not available: \"\"逻辑关系\"\", none\"\n"
                                "d.json,,,,,not graded: d.json: $: expected a JSON document\n"));
        QCOMPARE(reports.second, QStringLiteral("candidate,status,工作项完整性,逻辑关系,total,full\n"
                                                "c.json,graded,1,,1,2\n"
                                                "d.json,not graded,,,,\n"));
        // Rows rendered on the worker (which then drops the trees) are the rows rendered when written.
        QCOMPARE(::csvReports(sections(), false), reports);
    }

    // A text cell that a spreadsheet would take for a formula is led by '; numbers stay numbers.
    void csvFormulas_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("cell");
        QTest::addColumn<QString>("path");
        row("equals", QString("=HYPERLINK(\"x\")"), QString("\"'=HYPERLINK(\"\"x\"\")\""),
            QString("\"工作项完整性 > =HYPERLINK(\"\"x\"\")\""));
        row("plus", QString("+1"), QString("'+1"), QString("工作项完整性 > +1"));
        row("minus", QString("-1"), QString("'-1"), QString("工作项完整性 > -1"));
        row("at", QString("@SUM(A1)"), QString("'@SUM(A1)"), QString("工作项完整性 > @SUM(A1)"));
        row("tab", QString("\tx"), QString("'\tx"), QString("工作项完整性 > \tx"));
        row("carriage return", QString("\rx"), QString("\"'\rx\""), QString("\"工作项完整性 > \rx\""));
        row("inside", QString("a=b-c"), QString("a=b-c"), QString("工作项完整性 > a=b-c"));
    }

    void csvFormulas() {
        QFETCH(QString, name);
        QFETCH(QString, cell);
        QFETCH(QString, path);
        QList<ReportSection> report = sections();
        CandidateResult& result = report[0].results[0];
        result.file = name;
        result.categories[0].tree.items = {node(name, -0.5, 0.0, name)}; // a deduction
        result.categories.removeLast();
        const QPair<QString, QString> reports = ::csvReports(report);
        QVERIFY2(reports.first.contains(QStringLiteral("\n%1,%2,0,-0.5,%1,\n").arg(cell, path)),
                 qPrintable(reports.first));
        QVERIFY2(reports.second.contains(QStringLiteral("\n%1,graded,1,1,2\n").arg(cell)),
                 qPrintable(reports.second));
    }

    // Marks keep twelve significant digits, as a spreadsheet reads them back.
    void csvNumbers_data() {
        QTest::addColumn<double>("obtained");
        QTest::addColumn<QString>("cell");
        row("third", 2.0 / 3, QString("0.666666666667"));
        row("negative zero", -0.0, QString("0"));
        row("tiny", 1e-7, QString("1e-07"));
        row("huge", 1234567890123.0, QString("1.23456789012e+12"));
    }

    void csvNumbers() {
        QFETCH(double, obtained);
        QFETCH(QString, cell);
        QList<ReportSection> report = sections();
        report[0].results[0].categories[0].tree.obtained = obtained;
        QVERIFY2(
            ::csvReports(report).first.contains(QStringLiteral("\nc.json,工作项完整性,2,%1,,\n").arg(cell)),
            qPrintable(::csvReports(report).first));
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

    // Short options take their value attached or apart; a value is never split, whatever it looks like.
    void options_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("parsed"); // format|output|jobs|files
        row("apart", QStringList{"-j", "2", "-f", "csv", "-o", "r.csv", "s", "c"},
            QString("csv|r.csv|2|s c"));
        row("attached", QStringList{"-j2", "-fcsv", "-or.csv", "s", "c"}, QString("csv|r.csv|2|s c"));
        row("long", QStringList{"--jobs=2", "--format", "csv", "-output", "r.csv", "s", "c"},
            QString("csv|r.csv|2|s c"));
        row("single-dash long", QStringList{"-jobs", "3", "-format", "json", "s", "c"},
            QString("json||3|s c"));
        row("value like an option", QStringList{"-o", "-j3", "s", "c"}, QString("text|-j3|0|s c"));
        row("files after --", QStringList{"-j2", "--", "-fcsv", "c"}, QString("text||2|-fcsv c"));
    }

    void options() {
        QFETCH(QStringList, arguments);
        QFETCH(QString, parsed);
        Options options;
        QString error;
        QVERIFY2(parseOptions(QStringList{"markgrade"} + arguments, options, error), qPrintable(error));
        QCOMPARE(QStringList({options.format, options.output, QString::number(options.jobs),
                              options.files.join(QLatin1Char(' '))})
                     .join(QLatin1Char('|')),
                 parsed);
    }

    // Results come in file order whatever order the workers finish in, no worker starts a file 2 ×
    // jobs or more ahead of the one delivered, and a candidate whose grading throws fails alone.
    void batchStreams_data() {
        QTest::addColumn<int>("jobs");
        row("one worker", 1);
        row("two workers", 2);
        row("four workers", 4);
    }

    void batchStreams() {
        QFETCH(int, jobs);
        QStringList files;
        for (int i = 0; i < 24; ++i)
            files << QString::number(i);
        std::atomic<int> delivered{0}, furthestAhead{0};
        BatchOptions options;
        options.jobs = jobs;
        options.grade = [&](const Host::ProjectFile&, const QString& file, const Marks&) {
            const int index = file.toInt();
            for (int ahead = furthestAhead; index - delivered > ahead;)
                furthestAhead.compare_exchange_weak(ahead, index - delivered);
            std::this_thread::sleep_for(std::chrono::milliseconds(index % 3)); // finishing out of order
            if (index == 7)
                throw std::bad_alloc();
            if (index == 11)
                throw std::runtime_error("disk on fire");
            return made(file);
        };
        QStringList order, errors;
        QVERIFY(gradeBatch(Host::ProjectFile(), files, Marks(), options, [&](const CandidateResult& result) {
            std::this_thread::sleep_for(std::chrono::milliseconds(3)); // a slow report
            order << result.file;
            if (!result.graded)
                errors << result.error;
            ++delivered;
            return true;
        }));
        QCOMPARE(order, files);
        QCOMPARE(errors, QStringList({"7: out of memory while grading", "11: grading failed: disk on fire"}));
        QVERIFY2(furthestAhead < 2 * jobs, qPrintable(QString::number(furthestAhead)));
    }

    // A report that fails to write stops the batch: no more files are started.
    void batchStopsOnWriteError() {
        QStringList files;
        for (int i = 0; i < 100; ++i)
            files << QStringLiteral("c.json");
        std::atomic<int> graded{0};
        BatchOptions options;
        options.jobs = 2;
        options.grade = [&](const Host::ProjectFile&, const QString& file, const Marks&) {
            ++graded;
            return made(file);
        };
        int delivered = 0;
        QVERIFY(!gradeBatch(Host::ProjectFile(), files, Marks(), options,
                            [&](const CandidateResult&) { return ++delivered < 3; }));
        QCOMPARE(delivered, 3);
        QVERIFY2(graded <= 3 + 2 * options.jobs, qPrintable(QString::number(graded)));
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
        QCOMPARE(json.out.count(QLatin1Char('\n')), 1); // compact by default

        // CSV on two workers: the rows, then a summary with the categories' titles and the candidates
        // in file order.
        const Run csv = markgrade({"--format", "csv", "-j2", a, a, b, a});
        QCOMPARE(csv.exitCode, 0);
        const QStringList summary =
            csv.out.section(QStringLiteral("\n\n"), 1).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QCOMPARE(summary.value(0),
                 QStringLiteral("candidate,status,工作项完整性,工作项属性,逻辑关系,资源曲线图正确性,"
                                "横道图合理性,网络计划合理性,网络计划原则,total,full"));
        QStringList order;
        for (const QString& line : summary.mid(1))
            order << line.section(QLatin1Char(','), 0, 0);
        QCOMPARE(order, QStringList({a, b, a}));
    }

    // A usage error exits with 2, a report that cannot be written whole with 1 and is not written at
    // all: a message naming the output and the reason, and no file (nor temporary file) left behind.
    void commandFails_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("standardOutput");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("message");
        row("unknown option", QStringList{"--frobnicate"}, QString(), 2,
            QString("Unknown option 'frobnicate'"));
        row("standard alone", QStringList{"a.json"}, QString(), 2,
            QString("a standard answer needs at least one candidate"));
        row("format", QStringList{"-fxml", "a.json", "b.json"}, QString(), 2,
            QString("unknown format \"xml\": use text, json, csv or html"));
        row("no workers", QStringList{"-j0", "a.json", "b.json"}, QString(), 2,
            QString("--jobs takes a number of at least 1"));
        row("standard output full", QStringList{}, QString("/dev/full"), 1,
            QString("standard output: cannot be written: No space left on device"));
        row("file full", QStringList{"-f", "json", "-o", "/dev/full"}, QString(), 1,
            QString("/dev/full: cannot be written: No space left on device"));
        row("no such directory", QStringList{"-f", "csv", "-o", "DIR/missing/r.csv"}, QString(), 1,
            QString("DIR/missing/r.csv: cannot be written: No such file or directory"));
        row("summary in no such directory",
            QStringList{"-f", "csv", "-o", "DIR/r.csv", "--summary", "DIR/missing/s.csv"}, QString(), 1,
            QString("DIR/missing/s.csv: cannot be written: No such file or directory"));
    }

    void commandFails() {
        QFETCH(QStringList, arguments);
        QFETCH(QString, standardOutput);
        QFETCH(int, exitCode);
        QFETCH(QString, message);
        QTemporaryDir dir;
        arguments.replaceInStrings(QStringLiteral("DIR"), dir.path());
        const Run run = markgrade(arguments, standardOutput); // no files: the built-in sample exam
        QCOMPARE(run.exitCode, exitCode);
        QVERIFY2(run.err.startsWith(QStringLiteral("markgrade: ") +
                                    message.replace(QStringLiteral("DIR"), dir.path())),
                 qPrintable(run.err));
        QVERIFY(run.out.isEmpty());
        QCOMPARE(QDir(dir.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 QStringList());
    }
};

QTEST_GUILESS_MAIN(TestGrader)
#include "tst_grader.moc"
