// The HTML report without a browser: the schedule comparisons its figures show, the cohort
// statistics of the index, and the pages the sink writes, read back as XML.
#include "datarow.h"
#include "htmlcohort.h"
#include "htmlcompare.h"
#include "htmlpage.h"
#include "htmlreport.h"

#include <QDir>
#include <QDomDocument>
#include <QTemporaryDir>
#include <QtTest>

using namespace Grade;

namespace {

// Work items from "name:start:duration>predecessor name,...", e.g. "B:5:3>A".
Host::ScheduleProject schedule(const QString& items) {
    Host::ScheduleProject project;
    for (const QString& entry : items.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QStringList parts = entry.section(QLatin1Char('>'), 0, 0).split(QLatin1Char(':'));
        Host::WorkItemData item;
        item.name = parts[0];
        item.start = parts.value(1).toInt();
        item.duration = parts.value(2).toInt();
        item.finish = item.start + item.duration;
        for (const QString& predecessor :
             entry.section(QLatin1Char('>'), 1).split(QLatin1Char(','), Qt::SkipEmptyParts))
            for (int i = 0; i < project.workItems.size(); ++i)
                if (project.workItems[i].name == predecessor)
                    item.predecessors.append(i);
        project.workItems.append(item);
    }
    return project;
}

QString linkTexts(const QList<NamedLink>& links) {
    QStringList texts;
    for (const NamedLink& link : links)
        texts << link.predecessor + QStringLiteral("→") + link.successor;
    return texts.join(QLatin1Char(' '));
}

ScoredNode node(const QString& name, double obtained, double full, const QVector<ScoredNode>& items = {}) {
    ScoredNode n;
    n.name = name;
    n.obtained = obtained;
    n.full = full;
    n.items = items;
    return n;
}

CandidateResult graded(const QString& file, const QList<CategoryResult>& categories) {
    CandidateResult result;
    result.file = file;
    result.graded = true;
    result.categories = categories;
    return result;
}

CandidateResult broken(const QString& file) {
    CandidateResult result;
    result.file = file;
    result.error = file + QStringLiteral(": $: expected a JSON document");
    return result;
}

// A category of type 1 with two criteria, "挖土" and "垫层 <A&B>", scored as given.
CategoryResult integrity(double first, double second) {
    const QString title = QStringLiteral("工作项完整性");
    const ScoredNode tree =
        node(title, first + second, 2.0,
             {node(QStringLiteral("挖土"), first, 1.0), node(QStringLiteral("垫层 <A&B>"), second, 1.0)});
    return CategoryResult{1, title, true, QString(), 2.0, first + second, tree};
}

QDomDocument readPage(const QString& path) {
    QFile file(path);
    QDomDocument document;
    QString error;
    if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file, &error))
        qWarning("%s: %s", qPrintable(path), qPrintable(error));
    return document;
}

// The elements of a tag whose class attribute holds every class given.
QList<QDomElement> elements(const QDomDocument& page, const QString& tag, const QStringList& classes = {}) {
    QList<QDomElement> found;
    const QDomNodeList list = page.elementsByTagName(tag);
    for (int i = 0; i < list.size(); ++i) {
        const QDomElement element = list.at(i).toElement();
        const QStringList own = element.attribute(QStringLiteral("class")).split(QLatin1Char(' '));
        if (std::all_of(classes.cbegin(), classes.cend(),
                        [&own](const QString& c) { return own.contains(c); }))
            found.append(element);
    }
    return found;
}

} // namespace

class TestHtmlReport : public QObject {
    Q_OBJECT
private slots:
    // Rows as name and state: = same, ~ changed, - missing, + extra.
    void workItems_data() {
        QTest::addColumn<QString>("standard");
        QTest::addColumn<QString>("candidate");
        QTest::addColumn<QString>("rows");
        row("same", QString("A:0:5 B:5:3"), QString("A:0:5 B:5:3"), QString("A= B="));
        row("duration changed", QString("A:0:5"), QString("A:0:4"), QString("A~"));
        row("start changed", QString("A:0:5 B:5:3"), QString("A:0:5 B:6:3"), QString("A= B~"));
        row("missing and extra", QString("A:0:5 B:5:3"), QString("C:0:1 A:0:5"), QString("A= B- C+"));
        row("repeated name, fewer", QString("A:0:5 A:5:5"), QString("A:5:5"), QString("A~ A-"));
        row("repeated name, more", QString("A:0:5"), QString("A:0:5 A:0:5"), QString("A= A+"));
    }
    void workItems() {
        QFETCH(QString, standard);
        QFETCH(QString, candidate);
        QFETCH(QString, rows);
        const Host::ScheduleProject standardProject = schedule(standard);
        const Host::ScheduleProject candidateProject = schedule(candidate);
        QStringList actual;
        for (const GanttRow& ganttRow : compareWorkItems(standardProject, candidateProject)) {
            actual << ganttRow.name + QString("=-+~").at(static_cast<int>(ganttRow.change));
            QCOMPARE(ganttRow.standard != nullptr, ganttRow.change != ItemChange::Extra);
            QCOMPARE(ganttRow.candidate != nullptr, ganttRow.change != ItemChange::Missing);
        }
        QCOMPARE(actual.join(QLatin1Char(' ')), rows);
    }

    void logic_data() {
        QTest::addColumn<QString>("standard");
        QTest::addColumn<QString>("candidate");
        QTest::addColumn<QString>("missing");
        QTest::addColumn<QString>("extra");
        row("same links", QString("A B>A C>A,B"), QString("A B>A C>B,A"), QString(), QString());
        row("lost and added", QString("A B>A C>B"), QString("A C>A B>C"), QString("A→B B→C"),
            QString("A→C C→B"));
        row("a repeated pair counts once", QString("A B>A B>A"), QString("A B"), QString("A→B"), QString());
    }
    void logic() {
        QFETCH(QString, standard);
        QFETCH(QString, candidate);
        QFETCH(QString, missing);
        QFETCH(QString, extra);
        const LogicDifferences differences = compareLogic(schedule(standard), schedule(candidate));
        QCOMPARE(linkTexts(differences.missing), missing);
        QCOMPARE(linkTexts(differences.extra), extra);
    }

    void curves() {
        Host::ScheduleProject standard, candidate;
        standard.curves = {{QStringLiteral("钢筋工"), true, {{1440, 2}, {4320, 5}}},
                           {QStringLiteral("木工"), true, {}}};
        candidate.curves = {{QStringLiteral("砼"), true, {}}, {QStringLiteral("钢筋工"), true, {}}};
        const QList<CurvePair> pairs = pairCurves(standard, candidate);
        QCOMPARE(pairs.size(), 3);
        QCOMPARE(pairs[0].name, QStringLiteral("钢筋工"));
        QVERIFY(pairs[0].standard == &standard.curves[0] && pairs[0].candidate == &candidate.curves[1]);
        QVERIFY(pairs[1].standard == &standard.curves[1] && !pairs[1].candidate);
        QVERIFY(!pairs[2].standard && pairs[2].candidate == &candidate.curves[0]);
        const QVector<Svg::Step> steps = curveSteps(standard.curves[0]);
        QCOMPARE(steps.size(), 2);
        QCOMPARE(steps[1].until, 3.0); // minutes become days
        QCOMPARE(steps[1].level, 5.0);
        QCOMPARE(curveEndDay(standard.curves[0]), 3.0);
    }

    void summaries_data() {
        QTest::addColumn<QVector<double>>("values");
        QTest::addColumn<QVector<double>>("summary"); // mean, median, min, max
        row("none", QVector<double>(), QVector<double>{0, 0, 0, 0});
        row("odd count", QVector<double>{9, 1, 5}, QVector<double>{5, 5, 1, 9});
        row("even count", QVector<double>{4, 1, 10, 3}, QVector<double>{4.5, 3.5, 1, 10});
    }
    void summaries() {
        QFETCH(QVector<double>, values);
        QFETCH(QVector<double>, summary);
        const Summary actual = summarize(values);
        QCOMPARE(actual.count, values.size());
        QCOMPARE((QVector<double>{actual.mean, actual.median, actual.min, actual.max}), summary);
    }

    void cohort() {
        CohortStats stats(QStringLiteral("s.json"));
        CategoryResult logic{
            3, QStringLiteral("逻辑关系"), false, QStringLiteral("not available"), 5.0, 0.0, ScoredNode()};
        stats.add(graded(QStringLiteral("a.json"), {integrity(1.0, 0.0), logic}),
                  QStringLiteral("0001-a.html"));
        stats.add(broken(QStringLiteral("b.json")), QString());
        CategoryResult twice = integrity(0.0, 0.0);
        twice.tree.items.append(node(QStringLiteral("挖土"), 0.0, 1.0)); // the same path again
        stats.add(graded(QStringLiteral("c.json"), {twice}), QStringLiteral("0003-c.html"));
        QCOMPARE(stats.graded(), 2);
        QCOMPARE(stats.rows().size(), 3);
        QCOMPARE(stats.totals(), (QVector<double>{1.0, 0.0}));
        QCOMPARE(stats.columns().size(), 1); // a category never scored has no column
        QCOMPARE(stats.columns()[0].scores, (QVector<double>{1.0, 0.0}));
        QVERIFY(std::isnan(stats.rows()[1].category(0)));
        const QList<CriterionLoss> lost = stats.mostLost(5);
        QCOMPARE(lost.size(), 2);
        QCOMPARE(lost[0].path, QStringLiteral("工作项完整性 > 垫层 <A&B>"));
        QCOMPARE(lost[0].candidates, 2);
        QCOMPARE(lost[0].marksLost, 2.0);
        QCOMPARE(lost[1].candidates, 1); // counted once for c.json
        QCOMPARE(stats.mostLost(1).size(), 1);
    }

    void pageNames_data() {
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("page");
        row("resource", 1, QString(":/samples/schedule-candidate.json"),
            QString("0001-schedule-candidate.html"));
        row("Chinese and spaces", 12, QString("/x/考生 01.json"), QString("0012-___01.html"));
        row("two dots", 650, QString("c.v2.json"), QString("0650-c_v2.html"));
    }
    void pageNames() {
        QFETCH(int, number);
        QFETCH(QString, file);
        QFETCH(QString, page);
        QCOMPARE(HtmlReportSink::pageName(number, file), page);
    }

    // The style sheet and script are element text: anything the writer escapes would break them.
    void inlineCodeNeedsNoEscaping() {
        for (const QString& code : {Html::styleSheet(), Html::sortScript()})
            for (QChar c : {QLatin1Char('<'), QLatin1Char('>'), QLatin1Char('&'), QLatin1Char('"')})
                QVERIFY2(!code.contains(c), qPrintable(QString(c)));
    }

    void pages() {
        QTemporaryDir dir;
        const QString out = dir.filePath(QStringLiteral("report"));
        HtmlReportSink sink(out);
        QVERIFY(sink.beginSection(SectionStart{QStringLiteral("s.json"), nullptr, 3}));
        QVERIFY(sink.addCandidate(graded(QStringLiteral("a.json"), {integrity(1.0, 0.0)})));
        QVERIFY(sink.addCandidate(broken(QStringLiteral("b.json"))));
        QVERIFY(sink.addCandidate(graded(QStringLiteral("c.json"), {integrity(1.0, 1.0)})));
        QVERIFY(sink.endSection());
        QVERIFY(sink.finish());
        QCOMPARE(QDir(out).entryList(QDir::Files), (QStringList{"0001-a.html", "0003-c.html", "index.html"}));

        const QDomDocument a = readPage(QDir(out).filePath(QStringLiteral("0001-a.html")));
        const QList<QDomElement> lostLeaves =
            elements(a, QStringLiteral("div"), {QStringLiteral("crit"), QStringLiteral("lost")});
        QCOMPARE(lostLeaves.size(), 1);
        QVERIFY(lostLeaves[0].text().contains(QStringLiteral("垫层 <A&B>")));
        QVERIFY(lostLeaves[0].text().contains(QStringLiteral("0.00 / 1.00")));
        QCOMPARE(elements(a, QStringLiteral("details"))[0].attribute(QStringLiteral("open")),
                 QStringLiteral("open"));
        QVERIFY(elements(a, QStringLiteral("svg")).isEmpty()); // no schedules given: no figures

        const QDomDocument c = readPage(QDir(out).filePath(QStringLiteral("0003-c.html")));
        QVERIFY(!elements(c, QStringLiteral("details"))[0].hasAttribute(QStringLiteral("open")));

        const QDomDocument index = readPage(QDir(out).filePath(QStringLiteral("index.html")));
        QCOMPARE(elements(index, QStringLiteral("ul"), {QStringLiteral("broken")}).value(0).text(),
                 broken(QStringLiteral("b.json")).error);
    }

    void schedulePage() {
        auto standard = QSharedPointer<Host::ProjectFile>::create();
        standard->schedule = schedule(QStringLiteral("A:0:5 B:5:3>A"));
        standard->schedule.curves = {{QStringLiteral("钢筋工"), true, {{7200, 2}}},
                                     {QStringLiteral("木工"), true, {}}};
        auto candidate = QSharedPointer<Host::ProjectFile>::create();
        candidate->schedule = schedule(QStringLiteral("A:0:5 C:0:2"));
        candidate->schedule.curves = {{QStringLiteral("钢筋工"), true, {{4320, 3}}}};
        CandidateResult result = graded(QStringLiteral("c.json"), {integrity(1.0, 1.0)});
        result.project = candidate;
        QTemporaryDir dir;
        HtmlReportSink sink(dir.path());
        QVERIFY(sink.beginSection(SectionStart{QStringLiteral("s.json"), standard, 1}));
        QVERIFY(sink.addCandidate(result));
        QVERIFY(sink.finish());
        const QDomDocument page = readPage(dir.filePath(QStringLiteral("0001-c.html")));
        QCOMPARE(elements(page, QStringLiteral("text"), {QStringLiteral("name"), QStringLiteral("missing")})
                     .value(0)
                     .text(),
                 QStringLiteral("✗ B"));
        QCOMPARE(elements(page, QStringLiteral("text"), {QStringLiteral("name"), QStringLiteral("extra")})
                     .value(0)
                     .text(),
                 QStringLiteral("+ C"));
        const QString logic =
            elements(page, QStringLiteral("section"), {QStringLiteral("logic")}).value(0).text();
        QVERIFY2(logic.contains(QStringLiteral("A → B")), qPrintable(logic));
    }

    void writeErrors_data() {
        QTest::addColumn<QString>("blocked"); // a directory made where this file goes
        QTest::addColumn<int>("candidates");
        row("the index", QString("index.html"), 0);
        row("a page", QString("0001-a.html"), 1);
        row("a page, more following", QString("0001-a.html"), 3);
    }
    void writeErrors() {
        QFETCH(QString, blocked);
        QFETCH(int, candidates);
        QTemporaryDir dir;
        QVERIFY(QDir(dir.path()).mkpath(QStringLiteral("out/") + blocked));
        HtmlReportSink sink(dir.filePath(QStringLiteral("out")));
        QVERIFY(sink.beginSection(SectionStart{QStringLiteral("s.json"), nullptr, candidates}));
        bool written = sink.addCandidate(graded(QStringLiteral("a.json"), {integrity(1.0, 0.0)}));
        // Pages are written in the background: the failure fails a later call, finish() at the latest.
        for (int i = 1; i < candidates && written; ++i)
            written = sink.addCandidate(graded(QStringLiteral("b%1.json").arg(i), {integrity(1.0, 0.0)}));
        QVERIFY(!written || !sink.finish());
        QVERIFY2(sink.error().contains(blocked), qPrintable(sink.error()));
    }

    void unusableDirectory() {
        QTemporaryDir dir;
        QFile blocker(dir.filePath(QStringLiteral("file")));
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        HtmlReportSink sink(blocker.fileName());
        QVERIFY(!sink.beginSection(SectionStart{QStringLiteral("s.json"), nullptr, 1}));
        QVERIFY(sink.error().contains(blocker.fileName()));
    }
};

QTEST_APPLESS_MAIN(TestHtmlReport)
#include "tst_htmlreport.moc"
