// Large schedules: the judged network holds only the work items the standard's chains name and
// stops at its limit, surplus dummies found block by block agree with a direct search per dummy,
// limits are reported per category instead of aborting, and curve fluctuations stay finite so that
// no overflow can earn a mark.
#include "grading.h"
#include "projectdump.h"
#include "scoredtree.h"
#include "projectreader.h"
#include "scheduleanalysis.h"
#include "schedulecategories.h"

#include "markpointer.h"
#include "qmarkcategoryvirtual.h"

#include <QtTest>

#include <random>

using namespace Host;
using Arrows = QList<QPair<int, int>>;
Q_DECLARE_METATYPE(QList<Host::CurveData>)

namespace {

ArrowData arrow(int from, int to, int workItem) {
    ArrowData out;
    out.from = from;
    out.to = to;
    out.workItem = workItem;
    return out;
}

// An acyclic diagram of random arrows between randomly numbered nodes; dummyPercent of them dummies.
ArrowDiagram randomDiagram(std::mt19937& random, int nodes, int arrows, int dummyPercent) {
    QVector<int> numbers(nodes);
    std::iota(numbers.begin(), numbers.end(), 1);
    std::shuffle(numbers.begin(), numbers.end(), random);
    ArrowDiagram out;
    out.nodes = QList<int>(numbers.begin(), numbers.end());
    std::uniform_int_distribution<int> node(0, nodes - 1);
    while (out.arrows.size() < arrows) {
        const int a = node(random);
        const int b = node(random);
        if (a == b)
            continue;
        const bool dummy = int(random() % 100) < dummyPercent;
        out.arrows << arrow(numbers[std::min(a, b)], numbers[std::max(a, b)], dummy ? -1 : out.arrows.size());
    }
    return out;
}

// Surplus dummies by their definition, one search per question.
Arrows surplusByDirectSearch(const ArrowDiagram& diagram) {
    QMultiHash<int, int> out; // node -> arrow
    for (int a = 0; a < diagram.arrows.size(); ++a)
        out.insert(diagram.arrows[a].from, a);
    const auto reaches = [&](int from, int to) {
        QSet<int> seen{from};
        QList<int> queue{from};
        while (!queue.isEmpty())
            for (int a : out.values(queue.takeFirst())) {
                if (diagram.arrows[a].to == to)
                    return true;
                if (!seen.contains(diagram.arrows[a].to))
                    queue << diagram.arrows[a].to, seen << diagram.arrows[a].to;
            }
        return false;
    };
    const auto work = [&](const std::function<bool(const ArrowData&)>& test) {
        return std::any_of(diagram.arrows.begin(), diagram.arrows.end(),
                           [&](const ArrowData& a) { return !a.isDummy() && test(a); });
    };
    const auto degree = [&](int node, bool outgoing) {
        return std::count_if(diagram.arrows.begin(), diagram.arrows.end(),
                             [&](const ArrowData& a) { return (outgoing ? a.from : a.to) == node; });
    };
    Arrows surplus;
    for (int d = 0; d < diagram.arrows.size(); ++d) {
        const ArrowData& dummy = diagram.arrows[d];
        if (!dummy.isDummy())
            continue;
        bool implied = false;
        for (int a : out.values(dummy.from))
            implied =
                implied ||
                (a != d && (diagram.arrows[a].to == dummy.to || reaches(diagram.arrows[a].to, dummy.to)));
        const bool endBefore =
            work([&](const ArrowData& a) { return a.to == dummy.from || reaches(a.to, dummy.from); });
        const bool startAfter =
            work([&](const ArrowData& a) { return a.from == dummy.to || reaches(dummy.to, a.from); });
        if (implied ||
            ((!endBefore || !startAfter) && degree(dummy.from, true) > 1 && degree(dummy.to, false) > 1))
            surplus << qMakePair(dummy.from, dummy.to);
    }
    return surplus;
}

ProjectFile readSchedule(const QByteArray& json) {
    ProjectFile file;
    ReadError error;
    if (!readProjectDocument(json, QStringLiteral("s.json"), file, error))
        qWarning() << error.toString();
    return file;
}

// A Site schedule of the named items, each after the one before it.
ProjectFile chain(const QStringList& names) {
    QByteArray items;
    for (int i = 0; i < names.size(); ++i)
        items += QStringLiteral(R"(%1{"id":%2,"name":"%3","duration":7%4})")
                     .arg(i ? "," : "")
                     .arg(i + 1)
                     .arg(names[i], i ? QStringLiteral(R"(,"predecessors":[%1])").arg(i) : QString())
                     .toUtf8();
    return readSchedule(R"({"product":"schedule","scene":"Site","workItems":[)" + items + "]}");
}

CurveData curve(const QString& name, QList<CurvePoint> points) {
    CurveData out;
    out.name = name;
    out.points = points;
    return out;
}

const Grade::CategoryResult& categoryOf(const Grade::CandidateResult& result, int type) {
    static const Grade::CategoryResult none;
    for (const Grade::CategoryResult& category : result.categories)
        if (category.type == type)
            return category;
    return none;
}

} // namespace

class TestScale : public QObject {
    Q_OBJECT
private slots:
    void surplusDummiesMatchDirectSearch_data() {
        QTest::addColumn<int>("nodes");
        QTest::addColumn<int>("arrows");
        QTest::addColumn<qint64>("reachWords");
        QTest::addColumn<int>("rounds");
        QTest::newRow("one block") << 12 << 24 << NetworkLimits().reachWords << 40;
        QTest::newRow("dense, one block") << 30 << 120 << NetworkLimits().reachWords << 40;
        // One word per node: blocks of 64 dummy targets, so the targets span several blocks.
        QTest::newRow("blocks of 64 targets") << 300 << 700 << qint64(300) << 4;
    }

    void surplusDummiesMatchDirectSearch() {
        QFETCH(int, nodes);
        QFETCH(int, arrows);
        QFETCH(qint64, reachWords);
        QFETCH(int, rounds);
        NetworkLimits limits;
        limits.reachWords = reachWords;
        std::mt19937 random(20240601);
        int surplusSeen = 0;
        for (int round = 0; round < rounds; ++round) {
            const ArrowDiagram diagram = randomDiagram(random, nodes, arrows, 40);
            const Arrows expected = surplusByDirectSearch(diagram);
            QCOMPARE(analyseDiagram(diagram, true, limits).surplusArrows, expected);
            surplusSeen += expected.size();
        }
        QVERIFY(surplusSeen > 0); // the diagrams do exercise the search
        if (reachWords < nodes * 64) {
            QSet<int> targets;
            for (const ArrowData& a : randomDiagram(random, nodes, arrows, 40).arrows)
                if (a.isDummy())
                    targets << a.to;
            QVERIFY(targets.size() > 128); // three blocks or more
        }
    }

    // Work item A, then a chain of dummies through nodes 1 to n, a shortcut dummy 1 → n beside it,
    // then work item B: only the shortcut is surplus. 5,000 targets span two blocks of 4,096.
    void longDummyChain_data() {
        QTest::addColumn<int>("length");
        QTest::newRow("two blocks") << 5000;
        QTest::newRow("371,000 nodes") << 371000;
    }

    void longDummyChain() {
        QFETCH(int, length);
        ArrowDiagram diagram;
        for (int node = 0; node <= length + 1; ++node)
            diagram.nodes << node;
        diagram.arrows << arrow(0, 1, 0);
        for (int node = 1; node < length; ++node)
            diagram.arrows << arrow(node, node + 1, -1);
        diagram.arrows << arrow(1, length, -1) << arrow(length, length + 1, 1);
        const NetworkFindings findings = analyseDiagram(diagram, true);
        QCOMPARE(findings.surplusArrows, (Arrows{{1, length}}));
        QVERIFY(findings.singleStartEnd && !findings.broken);
    }

    void diagramBeyondItsLimit() {
        ProjectFile standard = chain({"A", "B"});
        ProjectFile candidate = standard;
        candidate.schedule.hasDiagram = true;
        candidate.schedule.diagram.nodes = {1, 2, 3, 4};
        candidate.schedule.diagram.arrows = {arrow(1, 2, 0), arrow(2, 3, -1), arrow(3, 4, 1)};
        standard = candidate; // a standard without a diagram would leave the principles ungraded anyway
        Grade::Marks marks;
        marks.limits.diagramNodes = 3;
        const Grade::CandidateResult result = Grade::gradeProject(standard, candidate, marks);
        const Grade::CategoryResult& principles = categoryOf(result, 7);
        QCOMPARE(principles.note,
                 QStringLiteral("not gradable: the arrow diagram has 4 nodes; at most 3 are supported"));
        QVERIFY(!principles.available);
        // The principles' 10 marks are left out, and the curves' 15: without resources the Site
        // category has no criteria.
        QCOMPARE(result.full(), 75.0);
        marks.limits.diagramNodes = 4;
        QVERIFY(categoryOf(Grade::gradeProject(standard, candidate, marks), 7).available);
    }

    // A pair graded on two threads (sides built at once, a large root copied in halves) gives the same
    // result as on one, every criterion, value and remark included.
    void twoThreadsGradeAsOne() {
        QStringList names;
        for (int i = 0; i < 4200; ++i)
            names << QStringLiteral("item %1").arg(i);
        const ProjectFile standard = chain(names);
        names[10] = QStringLiteral("renamed");
        names.removeAt(4000);
        names.move(20, 30);
        const ProjectFile candidate = chain(names);
        const Grade::CandidateResult one = Grade::gradeProject(standard, candidate, Grade::Marks());
        const Grade::CandidateResult two =
            Grade::gradeProject(standard, candidate, Grade::Marks(), Grade::Sides::Together);
        QVERIFY(one.obtained() < one.full());
        QCOMPARE(TestDump::graded(two), TestDump::graded(one));
    }

    // The candidate's extra items (X, Y) are left out of its network; the logic marks stay the same.
    void networkOfChainNamesOnly() {
        const ProjectFile standard = chain({"A", "B", "C"});
        const ProjectFile candidate = chain({"X", "A", "B", "Y", "C"});
        const QSet<QString> names = chainNames(logicTexts(standard.schedule.workItems).chains);
        QCOMPARE(names, (QSet<QString>{"A", "B", "C"}));
        const QList<WorkItemData>& items = candidate.schedule.workItems;
        QCOMPARE(networkItems(items, names), (QVector<int>{1, 2, 4}));

        QList<Grade::ScoredNode> trees;
        for (bool filtered : {false, true}) {
            ScheduleSide standardSide(standard.schedule, MarkCode::SceneSite, false);
            ScheduleSide candidateSide(candidate.schedule, MarkCode::SceneSite, true);
            if (filtered)
                candidateSide.setChainNames(standardSide.chainNames());
            QMarkCategoryVirtual* standardCategory = standardSide.category(3);
            standardCategory->AssignScore(20.0);
            candidateSide.category(3)->ExecuteDBScore(standardCategory);
            trees << Grade::copyTree(MarkPointer::item(candidateSide.category(3)->GetRatingItemPtr()));
        }
        QStringList found[2];
        for (int t = 0; t < 2; ++t)
            for (const Grade::ScoredNode& item : trees[t].items)
                found[t] << item.name + QLatin1Char('=') + item.value + QLatin1Char('/') +
                                QString::number(item.obtained);
        QCOMPARE(found[1], found[0]);
        QVERIFY(found[0].contains(QStringLiteral("B=A→B/") + QString::number(trees[0].items[1].obtained)));
        QVERIFY(found[0].contains(QStringLiteral("C=/0"))); // B → C is not a direct link
    }

    void networkBeyondItsLimit() {
        const ProjectFile standard = chain({"A", "B", "C"});
        Grade::Marks marks;
        marks.limits.judgedItems = 2;
        const Grade::CandidateResult result = Grade::gradeProject(standard, standard, marks);
        const Grade::CategoryResult& logic = categoryOf(result, 3);
        QVERIFY(!logic.available);
        QCOMPARE(logic.note, QStringLiteral("not gradable: 3 work items exceed the network limit 2"));
        // Left out besides the logic: the curves (no resources, no criteria) and the principles (no
        // arrow diagram in the standard).
        QCOMPARE(result.full(), 55.0);
        for (const Grade::CategoryResult& category : result.categories)
            QCOMPARE(category.available, category.type != 3 && category.type != 4 && category.type != 7);
        // A candidate of other names has no network to judge, whatever its size.
        const Grade::CandidateResult other = Grade::gradeProject(standard, chain({"X", "Y", "Z"}), marks);
        QVERIFY(categoryOf(other, 3).available);
    }

    void fluctuationStaysFinite_data() {
        QTest::addColumn<QList<CurveData>>("curves");
        QTest::addColumn<double>("value");
        const double inf = std::numeric_limits<double>::infinity();
        // Axis of 2 days; amounts in the first day only.
        QTest::newRow("sum beyond a double")
            << QList<CurveData>{curve("钢筋工", {{1440, 1e308}}), curve("模板工", {{1440, 1e308}})}
            << fluctuationOverflow;
        QTest::newRow("variance beyond a double")
            << QList<CurveData>{curve("钢筋工", {{1440, 1e300}})} << fluctuationOverflow;
        QTest::newRow("infinite amount")
            << QList<CurveData>{curve("钢筋工", {{1440, inf}})} << fluctuationOverflow;
        QTest::newRow("huge but finite") << QList<CurveData>{curve("钢筋工", {{1440, 1e150}})} << 2.5e299;
    }

    void fluctuationStaysFinite() {
        QFETCH(QList<CurveData>, curves);
        QFETCH(double, value);
        const double found = curveFluctuation(curves, 2, nullptr).value(29);
        QVERIFY(std::isfinite(found));
        QCOMPARE(found, value);
    }

    // A labour curve whose fluctuation overflows fails its criterion, where a flat one scores.
    void overflowEarnsNoMark() {
        ProjectFile standard = chain({"A", "B"});
        standard.schedule.curves = {curve("钢筋工", {{1440, 4.0}})};
        QList<double> labour;
        for (double amount : {1.0, 1e308}) {
            ProjectFile candidate = standard;
            candidate.schedule.curves = {curve("钢筋工", {{1440, amount}, {20160, 0.0}}),
                                         curve("混凝土工", {{1440, amount}, {20160, 0.0}})};
            const Grade::CandidateResult result = Grade::gradeProject(standard, candidate, Grade::Marks());
            const Grade::ScoredNode& tree = categoryOf(result, 6).tree;
            QCOMPARE(tree.items.size(), 5); // total duration, then the curve groups 29 to 32
            labour << tree.items[1].obtained;
            for (const Grade::CategoryResult& category : result.categories)
                QVERIFY(std::isfinite(category.obtained));
        }
        QVERIFY(labour[0] > 0.0);
        QCOMPARE(labour[1], 0.0);
    }
};

QTEST_GUILESS_MAIN(TestScale)
#include "tst_scale.moc"
