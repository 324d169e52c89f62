// The built-in sample exam graded end to end, against figures worked out by hand from the scoring
// rules, with the host's own derivations on it.
//
// The sample (grader/samples): a Site schedule of 30 work items, total duration 294 days (42 weeks),
// and a candidate that
//   - lacks 基坑支护 (so 垫层施工 has 土方开挖 as its only predecessor),
//   - adds 安全文明施工 (after 临建建造, listed last),
//   - gives 土方开挖 12 days instead of 14,
//   - leaves 二层柱钢筋 without its predecessor 一层梁板混凝土 (its arrow starts at a new node 32, and
//     node 18 after 一层梁板混凝土 becomes a dead end); its total duration drops to 147 days (21 weeks),
//   - draws no 木工 (模板工) curve,
//   - shows 20 rows per page for 30 work items.
// Full marks: integrity 15, attributes 20, logic 20, resource curves 15, Gantt 10, rationality 10,
// principles 10; every criterion of a level gets an equal share of its parent.
#include "grading.h"
#include "projectreader.h"
#include "samples.h"
#include "scheduleanalysis.h"

#include <QtTest>

using namespace Grade;

namespace {

template <typename... Cells> void row(const char* tag, const Cells&... cells) {
    (QTest::newRow(tag) << ... << cells);
}

Host::ProjectFile readSample(const QString& name) {
    Host::ProjectFile file;
    Host::ReadError error;
    if (!Host::readProjectFile(QStringLiteral(":/samples/") + name, file, error))
        qFatal("%s", qPrintable(error.toString()));
    return file;
}

// The library's normalisation of the names the sample writes (木工, 钢筋, 砼).
QString canonical(const QString& name) {
    static const QHash<QString, QString> names{
        {"木工", "模板工"}, {"钢筋", "钢筋原材"}, {"砼", "成品混凝土"}};
    return names.value(name, name);
}

// A scored node below the category root, its path written "a > b"; its value is checked when given.
struct Criterion {
    QString path;
    double obtained;
    QString remark;
    QString value;
};

Criterion c(const QString& path, double obtained, const QString& remark, const QString& value = QString()) {
    return {path, obtained, remark, value};
}

// Checks each criterion against the node its path reaches in tree.
void checkCriteria(const ScoredNode& tree, const QList<Criterion>& criteria) {
    for (const Criterion& criterion : criteria) {
        const ScoredNode* node = &tree;
        for (const QString& name : criterion.path.split(QStringLiteral(" > "))) {
            const auto next = std::find_if(node->items.cbegin(), node->items.cend(),
                                           [&name](const ScoredNode& child) { return child.name == name; });
            QVERIFY2(next != node->items.cend(), qPrintable(criterion.path));
            node = &*next;
        }
        QCOMPARE(node->obtained, criterion.obtained);
        QCOMPARE(node->remark, criterion.remark);
        if (!criterion.value.isNull())
            QCOMPARE(node->value, criterion.value);
    }
}

const QString missing = QStringLiteral("缺少评分项，不得分");
const QString surplus = QStringLiteral("存在多余评分项，扣分");

} // namespace

Q_DECLARE_METATYPE(QList<Criterion>)

class TestGraderSample : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        initSamples();
        m_standard = readSample(QStringLiteral("schedule-standard.json"));
        m_candidate = readSample(QStringLiteral("schedule-candidate.json"));
        m_schedule = gradeProject(m_standard, m_candidate, Marks());
        QVERIFY(m_schedule.graded);
        QCOMPARE(m_schedule.categories.size(), 7);
    }

    void hostDerivations() {
        const Host::ScheduleProject& standard = m_standard.schedule;
        const Host::ScheduleProject& candidate = m_candidate.schedule;
        QVERIFY(standard.workItems.size() == 30 && candidate.workItems.size() == 30);
        // Standard: the longest chain is every work item but 基坑支护, 屋面工程 and 水电安装:
        // 7+7+7+14 +7+14+7+7+14+7 +7+7+7+14+14+7 +7+7+7+14+14+7 +21+21+14+28+7 = 294.
        QCOMPARE(standard.totalDays, 294);
        // Candidate: 二层柱钢筋 starts at day 0, and the chain from it ends with 竣工验收 at
        // 7+7+7+14+14+7+21+21+14+28+7 = 147, after the first chain's 145 (2 days shorter at 土方开挖).
        QCOMPARE(candidate.totalDays, 147);

        const Host::LogicTexts texts = Host::logicTexts(standard.workItems);
        QCOMPARE(texts.chains[0], QStringLiteral("临建建造"));
        QCOMPARE(texts.chains[5], QStringLiteral("土方开挖;垫层施工&基坑支护;垫层施工"));
        QCOMPARE(texts.displays[5], QStringLiteral("土方开挖→垫层施工;基坑支护→垫层施工"));

        // The standard diagram is whole; the candidate's breaks where 二层柱钢筋 lost its predecessor.
        const Host::NetworkFindings clean = Host::analyseDiagram(standard.diagram, standard.hasDiagram);
        QVERIFY(clean.singleStartEnd && !clean.broken && !clean.surplusDummy);
        const Host::NetworkFindings findings = Host::analyseDiagram(candidate.diagram, candidate.hasDiagram);
        QVERIFY(!findings.singleStartEnd && !findings.surplusDummy);
        QCOMPARE(findings.startEndText, QStringLiteral("开始节点：1、32；结束节点：18、31"));
        QCOMPARE(findings.brokenText, QStringLiteral("断开处节点编号：18、32"));

        // Fluctuation on each project's own axis (weeks of 10080 minutes; a curve at level h over w of W
        // weeks has the variance h² w/W (1 - w/W)):
        //   standard, 42 weeks: labour 8+6+4 = 18 over weeks 6-24: 18² · 18/42 · 24/42 = 3888/49;
        //     rebar 5 over 4-20: 25 · 16/42 · 26/42 = 2600/441; concrete 3 over 8-24: 104/49;
        //     formwork 2 over 6-22: 416/441.
        //   candidate, 21 weeks (curves cut there): labour 8+4 = 12 over 6-21: 144 · 15/21 · 6/21 = 1440/49;
        //     rebar 5 over 4-20: 2000/441; concrete 3 over 8-21: 9 · 13/21 · 8/21 = 104/49, the standard's
        //     value exactly; formwork 2 over 6-21: 40/49.
        const QMap<int, double> standardValues =
            curveFluctuation(standard.curves, standard.totalDays, canonical);
        const QMap<int, double> candidateValues =
            curveFluctuation(candidate.curves, candidate.totalDays, canonical);
        const QList<double> expected{3888.0 / 49, 2600.0 / 441, 104.0 / 49, 416.0 / 441,
                                     1440.0 / 49, 2000.0 / 441, 104.0 / 49, 40.0 / 49};
        for (int type = 29; type <= 32; ++type) {
            QCOMPARE(standardValues.value(type), expected[type - 29]);
            QCOMPARE(candidateValues.value(type), expected[type - 25]);
        }
    }

    void scheduleCategory_data() {
        QTest::addColumn<int>("type");
        QTest::addColumn<double>("obtained");
        QTest::addColumn<QList<Criterion>>("criteria");

        // Integrity: 30 names at 0.5. 基坑支护 missing (0), 安全文明施工 surplus (-0.5): 14.5 - 0.5 = 14.
        row("integrity", 1, 14.0,
            QList<Criterion>{c("基坑支护", 0.0, missing), c("安全文明施工", -0.5, surplus),
                             c("土方开挖", 0.5, "", "1")});
        // Attributes: 30 work items at 2/3; nine attributes at 2/27 each (a fixed duration carries one at
        // 2/3). 土方开挖's 12 days are no whole number of weeks (-2/27); 基坑支护 missing (-2/3);
        // 安全文明施工 surplus (-2/3): 20 - 4/3 - 2/27 = 502/27.
        row("attributes", 2, 502.0 / 27,
            QList<Criterion>{c("土方开挖 > 持续时间", 0.0, "", "12"), c("土方开挖", 16.0 / 27, ""),
                             c("基础养护 > 持续时间", 2.0 / 3, "", "14"), c("基坑支护", 0.0, missing),
                             c("安全文明施工", -2.0 / 3, surplus)});
        // Logic: 30 names at 2/3. Lost: 基坑支护 (missing), 垫层施工 (its chain from 基坑支护 is not in the
        // candidate's network; the chain from 土方开挖 is), 二层柱钢筋 (no link from 一层梁板混凝土), and the
        // surplus 安全文明施工 (-2/3): 20 - 8/3 = 52/3.
        row("logic", 3, 52.0 / 3,
            QList<Criterion>{c("基坑支护", 0.0, missing), c("垫层施工", 0.0, "", "土方开挖→垫层施工"),
                             c("二层柱钢筋", 0.0, ""), c("二层柱模板", 2.0 / 3, "", "二层柱钢筋→二层柱模板"),
                             c("临建建造", 2.0 / 3, "", "临建建造"), c("安全文明施工", -2.0 / 3, surplus)});
        // Resource curves: the standard's ten resources give ten charts at 1.5. The candidate draws every
        // curve but 木工; the machines pass (generator and pump busy from 0 past 147 days; 16 rebar
        // machine-weeks for 50 / 5 = 10 needed; no cement or sand, so no mixer count needed): 13.5.
        row("resource curves", 4, 13.5,
            QList<Criterion>{c("模板工/木工曲线图", 0.0, "缺少\"模板工\"资源曲线", "不存在"),
                             c("钢筋工曲线图", 1.5, "", "存在"),
                             c("小型/大型发电机曲线图", 1.5, "", "满足条件"),
                             c("钢筋加工机曲线图", 1.5, "", "满足条件")});
        // Gantt: three criteria at 10/3. 20 rows for 30 work items fail; the order first differs at the
        // fifth name (垫层施工 where 基坑支护 stands): 10/3.
        row("gantt", 5, 10.0 / 3,
            QList<Criterion>{c("横道图时间单位", 10.0 / 3, "", "工程周"),
                             c("横道图完整性显示", 0.0, "横道图分页显示行数设置不够，不得分", "20"),
                             c("横道图完整性及排序", 0.0, "从工序垫层施工始顺序不一致，不得分")});
        // Rationality: five criteria at 2. 147 days is not longer than 294; three fluctuations of the
        // candidate are below the standard's, but the concrete one equals it (2.12245 both, see
        // hostDerivations), and an equal value fails: 8.
        row("rationality", 6, 8.0,
            QList<Criterion>{c("总工期", 2.0, "", "147"), c("总人力资源曲线", 2.0, "", "29.3878"),
                             c("成品钢筋/钢筋原材曲线", 2.0, "", "4.53515"),
                             c("成品混凝土/水泥、砂石资源曲线", 0.0, "超出标准方差上限，不得分", "2.12245"),
                             c("模板资源曲线", 2.0, "", "0.816327")});
        // Principles: three criteria at 10/3. Two start and two end nodes, and breaks at nodes 18 and 32;
        // no surplus dummy: 10/3.
        row("principles", 7, 10.0 / 3,
            QList<Criterion>{c("节点数", 0.0, "开始节点：1、32；结束节点：18、31", "起终节点数不唯一"),
                             c("线路完整性", 0.0, "断开处节点编号：18、32", "有线路断开"),
                             c("多余虚工作", 10.0 / 3, "", "无多余虚工作")});
    }

    void scheduleCategory() {
        QFETCH(int, type);
        QFETCH(double, obtained);
        QFETCH(QList<Criterion>, criteria);
        const CategoryResult& category = m_schedule.categories[type - 1];
        QVERIFY(category.available);
        QCOMPARE(category.obtained, obtained);
        checkCriteria(category.tree, criteria);
    }

    void scheduleTotal() {
        // 14 + 502/27 + 52/3 + 13.5 + 10/3 + 8 + 10/3 = 78.0926 of 100.
        QCOMPARE(m_schedule.full(), 100.0);
        QCOMPARE(m_schedule.obtained(), 14 + 502.0 / 27 + 52.0 / 3 + 13.5 + 10.0 / 3 + 8 + 10.0 / 3);
    }

    void trees_data() {
        QTest::addColumn<QString>("product");
        QTest::addColumn<double>("obtained");
        QTest::addColumn<QList<Criterion>>("criteria");
        // 100 down the tree: two groups at 50, four rates at 25. 挖一般土方 25.4 against 25 is 1.6% off
        // (within the 2% band): 25. 回填方 18.63 against 18 is 3.5% off: 25 × (5 - 3.5) / (5 - 2) = 12.5.
        // C30混凝土柱 missing: 0. C30混凝土梁 exact: 25. C25混凝土垫层 surplus: 0. Total 62.5.
        row("pricing", "pricing", 62.5,
            QList<Criterion>{c("土方工程", 37.5, ""), c("土方工程 > 回填方", 12.5, "偏差3.50%，扣12.50分"),
                             c("混凝土工程 > C30混凝土柱", 0.0, missing),
                             c("混凝土工程 > C25混凝土垫层", 0.0, "存在多余评分项，不得分")});
        // 100 over four criteria at 25. 墙体厚度 200 against 240, equality: 0. 混凝土强度等级 equal: 25.
        // 层高 3.09 against 3, 3% off in the 2-5% band: 25 × (5 - 3) / 3 = 50/3. 门窗数量 36 against 48,
        // value ratio 0.75: 18.75. Total 25 + 50/3 + 18.75 = 725/12.
        row("model", "model", 725.0 / 12,
            QList<Criterion>{c("墙体厚度", 0.0, ""), c("层高", 50.0 / 3, "偏差3.00%，扣8.33分"),
                             c("门窗数量", 18.75, "与标准值比例为75.00%")});
    }

    void trees() {
        QFETCH(QString, product);
        QFETCH(double, obtained);
        QFETCH(QList<Criterion>, criteria);
        const CandidateResult result =
            gradeProject(readSample(product + QStringLiteral("-standard.json")),
                         readSample(product + QStringLiteral("-candidate.json")), Marks());
        QCOMPARE(result.categories.size(), 1);
        QCOMPARE(result.categories[0].obtained, obtained);
        checkCriteria(result.categories[0].tree, criteria);
    }

private:
    Host::ProjectFile m_standard;
    Host::ProjectFile m_candidate;
    CandidateResult m_schedule;
};

QTEST_GUILESS_MAIN(TestGraderSample)
#include "tst_grader_sample.moc"
