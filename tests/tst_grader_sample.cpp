// The built-in sample exam graded end to end, against figures worked out by hand from the scoring
// rules. The host's own derivations are checked at once; each category's scores are checked as soon
// as the library's factory gives that category (until then that row is skipped).
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

#include "qmarkcategorybase.h"
#include "qratingitembase.h"
#include "qresourcebase.h"

#include <QtTest>

using namespace Grade;

namespace {

Host::ProjectFile readSample(const QString& name) {
    Host::ProjectFile file;
    Host::ReadError error;
    if (!Host::readProjectFile(QStringLiteral(":/samples/") + name, file, error))
        qFatal("%s", qPrintable(error.toString()));
    return file;
}

// The node under the category root reached by the names, or null.
const ScoredNode* find(const ScoredNode& root, const QStringList& path) {
    const ScoredNode* node = &root;
    for (const QString& name : path) {
        const ScoredNode* next = nullptr;
        for (const ScoredNode& child : node->items)
            if (child.name == name)
                next = &child;
        if (!next)
            return nullptr;
        node = next;
    }
    return node;
}

// The library's normalisation of the names the sample writes (木工, 钢筋, 砼).
QString canonical(const QString& name) {
    if (name == QStringLiteral("木工"))
        return QStringLiteral("模板工");
    if (name == QStringLiteral("钢筋"))
        return QStringLiteral("钢筋原材");
    if (name == QStringLiteral("砼"))
        return QStringLiteral("成品混凝土");
    return name;
}

struct Criterion {
    QStringList path;
    double obtained;
    QString value; // checked when not null
    QString remark;
};

} // namespace

Q_DECLARE_METATYPE(QList<Criterion>)

class TestGraderSample : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void hostDerivations();
    void scheduleCategory_data();
    void scheduleCategory();
    void scheduleTotal();
    void pricing();
    void model();

private:
    Host::ProjectFile m_standard;
    Host::ProjectFile m_candidate;
    CandidateResult m_schedule;
};

void TestGraderSample::initTestCase() {
    initSamples();
    m_standard = readSample(QStringLiteral("schedule-standard.json"));
    m_candidate = readSample(QStringLiteral("schedule-candidate.json"));
    m_schedule = gradeProject(m_standard, m_candidate, Marks());
    QVERIFY(m_schedule.graded);
    QCOMPARE(m_schedule.categories.size(), 7);
}

void TestGraderSample::hostDerivations() {
    const Host::ScheduleProject& standard = m_standard.schedule;
    const Host::ScheduleProject& candidate = m_candidate.schedule;
    QCOMPARE(standard.workItems.size(), 30);
    QCOMPARE(candidate.workItems.size(), 30);
    // Standard: the longest chain is every work item but 基坑支护, 屋面工程 and 水电安装:
    // 7+7+7+14 +7+14+7+7+14+7 +7+7+7+14+14+7 +7+7+7+14+14+7 +21+21+14+28+7 = 294.
    QCOMPARE(standard.totalDays, 294);
    // Candidate: 二层柱钢筋 starts at day 0, and the chain from it ends with 竣工验收 at
    // 7+7+7+14+14+7+21+21+14+28+7 = 147, after the first chain's 145 (2 days shorter at 土方开挖).
    QCOMPARE(candidate.totalDays, 147);

    const Host::LogicTexts texts = Host::logicTexts(standard.workItems);
    QCOMPARE(texts.chains[5], QStringLiteral("土方开挖;垫层施工&基坑支护;垫层施工"));
    QCOMPARE(texts.displays[5], QStringLiteral("土方开挖→垫层施工;基坑支护→垫层施工"));
    QCOMPARE(texts.chains[0], QStringLiteral("临建建造"));

    // The standard diagram is whole; the candidate's breaks where 二层柱钢筋 lost its predecessor.
    const Host::NetworkFindings clean = Host::analyseDiagram(standard.diagram, standard.hasDiagram);
    QVERIFY(clean.singleStartEnd);
    QVERIFY(!clean.broken);
    QVERIFY(!clean.surplusDummy);
    const Host::NetworkFindings findings = Host::analyseDiagram(candidate.diagram, candidate.hasDiagram);
    QVERIFY(!findings.singleStartEnd);
    QCOMPARE(findings.startEndText, QStringLiteral("开始节点：1、32；结束节点：18、31"));
    QCOMPARE(findings.brokenText, QStringLiteral("断开处节点编号：18、32"));
    QVERIFY(!findings.surplusDummy);

    // Fluctuation on each project's own axis (weeks of 10080 minutes; a curve at level h over w of W
    // weeks has the variance h² w/W (1 - w/W)):
    //   standard, 42 weeks: labour 8+6+4 = 18 over weeks 6-24: 18² · 18/42 · 24/42 = 3888/49;
    //     rebar 5 over 4-20: 25 · 16/42 · 26/42 = 2600/441; concrete 3 over 8-24: 104/49;
    //     formwork 2 over 6-22: 416/441.
    //   candidate, 21 weeks (curves cut there): labour 8+4 = 12 over 6-21: 144 · 15/21 · 6/21 = 1440/49;
    //     rebar 5 over 4-20: 2000/441; concrete 3 over 8-21: 9 · 13/21 · 8/21 = 104/49, the standard's
    //     value exactly; formwork 2 over 6-21: 40/49.
    const QMap<int, double> standardValues =
        Host::curveFluctuation(standard.curves, standard.totalDays, canonical);
    QCOMPARE(standardValues.value(29), 3888.0 / 49);
    QCOMPARE(standardValues.value(30), 2600.0 / 441);
    QCOMPARE(standardValues.value(31), 104.0 / 49);
    QCOMPARE(standardValues.value(32), 416.0 / 441);
    const QMap<int, double> candidateValues =
        Host::curveFluctuation(candidate.curves, candidate.totalDays, canonical);
    QCOMPARE(candidateValues.value(29), 1440.0 / 49);
    QCOMPARE(candidateValues.value(30), 2000.0 / 441);
    QCOMPARE(candidateValues.value(31), 104.0 / 49);
    QCOMPARE(candidateValues.value(32), 40.0 / 49);
}

void TestGraderSample::scheduleCategory_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("obtained");
    QTest::addColumn<QList<Criterion>>("criteria");
    const QString missing = QStringLiteral("缺少评分项，不得分");
    const QString surplus = QStringLiteral("存在多余评分项，扣分");

    // Integrity: 30 names at 0.5. 基坑支护 missing (0), 安全文明施工 surplus (-0.5): 14.5 - 0.5 = 14.
    QTest::newRow("integrity") << 1 << 14.0
                               << QList<Criterion>{
                                      {{QStringLiteral("基坑支护")}, 0.0, QString(), missing},
                                      {{QStringLiteral("安全文明施工")}, -0.5, QString(), surplus},
                                      {{QStringLiteral("土方开挖")}, 0.5, QStringLiteral("1"), QString()}};
    // Attributes: 30 work items at 2/3; nine attributes at 2/27 each (a fixed duration carries one at
    // 2/3). 土方开挖's 12 days are no whole number of weeks (-2/27); 基坑支护 missing (-2/3);
    // 安全文明施工 surplus (-2/3): 20 - 4/3 - 2/27 = 502/27.
    QTest::newRow("attributes") << 2 << 502.0 / 27
                                << QList<Criterion>{
                                       {{QStringLiteral("土方开挖"), QStringLiteral("持续时间")},
                                        0.0,
                                        QStringLiteral("12"),
                                        QString()},
                                       {{QStringLiteral("土方开挖")}, 16.0 / 27, QString(), QString()},
                                       {{QStringLiteral("基础养护"), QStringLiteral("持续时间")},
                                        2.0 / 3,
                                        QStringLiteral("14"),
                                        QString()},
                                       {{QStringLiteral("基坑支护")}, 0.0, QString(), missing},
                                       {{QStringLiteral("安全文明施工")}, -2.0 / 3, QString(), surplus}};
    // Logic: 30 names at 2/3. Lost: 基坑支护 (missing), 垫层施工 (its chain from 基坑支护 is not in the
    // candidate's network; the chain from 土方开挖 is), 二层柱钢筋 (no link from 一层梁板混凝土), and the
    // surplus 安全文明施工 (-2/3): 20 - 8/3 = 52/3.
    QTest::newRow("logic")
        << 3 << 52.0 / 3
        << QList<Criterion>{
               {{QStringLiteral("基坑支护")}, 0.0, QString(), missing},
               {{QStringLiteral("垫层施工")}, 0.0, QStringLiteral("土方开挖→垫层施工"), QString()},
               {{QStringLiteral("二层柱钢筋")}, 0.0, QString(), QString()},
               {{QStringLiteral("二层柱模板")}, 2.0 / 3, QStringLiteral("二层柱钢筋→二层柱模板"), QString()},
               {{QStringLiteral("临建建造")}, 2.0 / 3, QStringLiteral("临建建造"), QString()},
               {{QStringLiteral("安全文明施工")}, -2.0 / 3, QString(), surplus}};
    // Resource curves: the standard's ten resources give ten charts at 1.5. The candidate draws every
    // curve but 木工; the machines pass (generator and pump busy from 0 past 147 days; 16 rebar
    // machine-weeks for 50 / 5 = 10 needed; no cement or sand, so no mixer count needed): 13.5.
    QTest::newRow("resource curves")
        << 4 << 13.5
        << QList<Criterion>{
               {{QStringLiteral("模板工/木工曲线图")},
                0.0,
                QStringLiteral("不存在"),
                QStringLiteral("缺少\"模板工\"资源曲线")},
               {{QStringLiteral("钢筋工曲线图")}, 1.5, QStringLiteral("存在"), QString()},
               {{QStringLiteral("小型/大型发电机曲线图")}, 1.5, QStringLiteral("满足条件"), QString()},
               {{QStringLiteral("钢筋加工机曲线图")}, 1.5, QStringLiteral("满足条件"), QString()}};
    // Gantt: three criteria at 10/3. 20 rows for 30 work items fail; the order first differs at the
    // fifth name (垫层施工 where 基坑支护 stands): 10/3.
    QTest::newRow("gantt") << 5 << 10.0 / 3
                           << QList<Criterion>{{{QStringLiteral("横道图时间单位")},
                                                10.0 / 3,
                                                QStringLiteral("工程周"),
                                                QString()},
                                               {{QStringLiteral("横道图完整性显示")},
                                                0.0,
                                                QStringLiteral("20"),
                                                QStringLiteral("横道图分页显示行数设置不够，不得分")},
                                               {{QStringLiteral("横道图完整性及排序")},
                                                0.0,
                                                QString(),
                                                QStringLiteral("从工序垫层施工始顺序不一致，不得分")}};
    // Rationality: five criteria at 2. 147 days is not longer than 294; three fluctuations of the
    // candidate are below the standard's, but the concrete one equals it (2.12245 both, see
    // hostDerivations), and an equal value fails: 8.
    QTest::newRow("rationality")
        << 6 << 8.0
        << QList<Criterion>{
               {{QStringLiteral("总工期")}, 2.0, QStringLiteral("147"), QString()},
               {{QStringLiteral("总人力资源曲线")}, 2.0, QStringLiteral("29.3878"), QString()},
               {{QStringLiteral("成品钢筋/钢筋原材曲线")}, 2.0, QStringLiteral("4.53515"), QString()},
               {{QStringLiteral("成品混凝土/水泥、砂石资源曲线")},
                0.0,
                QStringLiteral("2.12245"),
                QStringLiteral("超出标准方差上限，不得分")},
               {{QStringLiteral("模板资源曲线")}, 2.0, QStringLiteral("0.816327"), QString()}};
    // Principles: three criteria at 10/3. Two start and two end nodes, and breaks at nodes 18 and 32;
    // no surplus dummy: 10/3.
    QTest::newRow("principles") << 7 << 10.0 / 3
                                << QList<Criterion>{{{QStringLiteral("节点数")},
                                                     0.0,
                                                     QStringLiteral("起终节点数不唯一"),
                                                     QStringLiteral("开始节点：1、32；结束节点：18、31")},
                                                    {{QStringLiteral("线路完整性")},
                                                     0.0,
                                                     QStringLiteral("有线路断开"),
                                                     QStringLiteral("断开处节点编号：18、32")},
                                                    {{QStringLiteral("多余虚工作")},
                                                     10.0 / 3,
                                                     QStringLiteral("无多余虚工作"),
                                                     QString()}};
}

void TestGraderSample::scheduleCategory() {
    QFETCH(int, type);
    QFETCH(double, obtained);
    QFETCH(QList<Criterion>, criteria);
    QMarkCategoryVirtual* probe =
        QMarkCategoryBase::CreateMarkCategoryByType(Host::ScheduleProduct, Host::SiteScene, type);
    if (!probe)
        QSKIP("the library gives no Site category of this type yet");
    delete probe;
    if ((type == 4 || type == 6) && !QResourceBase::CreateResource(Host::ScheduleProduct, Host::SiteScene))
        QSKIP("curves need the library's resource names, and the resource factory gives no object yet");
    const CategoryResult& category = m_schedule.categories[type - 1];
    QVERIFY(category.available);
    QCOMPARE(category.obtained, obtained);
    for (const Criterion& criterion : criteria) {
        const ScoredNode* node = find(category.tree, criterion.path);
        QVERIFY2(node, qPrintable(criterion.path.join(QStringLiteral(" > "))));
        QCOMPARE(node->obtained, criterion.obtained);
        if (!criterion.value.isNull())
            QCOMPARE(node->value, criterion.value);
        QCOMPARE(node->remark, criterion.remark);
    }
}

void TestGraderSample::scheduleTotal() {
    for (const CategoryResult& category : m_schedule.categories)
        if (!category.available)
            QSKIP("not every schedule category is available yet");
    // 14 + 502/27 + 52/3 + 13.5 + 10/3 + 8 + 10/3 = 78.0926 of 100.
    QCOMPARE(m_schedule.full(), 100.0);
    QCOMPARE(m_schedule.obtained(), 14 + 502.0 / 27 + 52.0 / 3 + 13.5 + 10.0 / 3 + 8 + 10.0 / 3);
}

void TestGraderSample::pricing() {
    if (QRatingItemBase* probe = QRatingItemBase::CreateMarkRatingItem(Host::Ash))
        delete probe;
    else
        QSKIP("the library gives no Ash rating item yet");
    const CandidateResult result =
        gradeProject(readSample(QStringLiteral("pricing-standard.json")),
                     readSample(QStringLiteral("pricing-candidate.json")), Marks());
    // 100 down the tree: two groups at 50, four rates at 25. 挖一般土方 25.4 against 25 is 1.6% off (within
    // the 2% band): 25. 回填方 18.63 against 18 is 3.5% off: 25 × (5 - 3.5) / (5 - 2) = 12.5.
    // C30混凝土柱 missing: 0. C30混凝土梁 exact: 25. C25混凝土垫层 surplus: 0. Total 62.5.
    const CategoryResult& tree = result.categories.value(0);
    QCOMPARE(tree.obtained, 62.5);
    const QList<Criterion> criteria{{{QStringLiteral("土方工程")}, 37.5, QString(), QString()},
                                    {{QStringLiteral("土方工程"), QStringLiteral("回填方")},
                                     12.5,
                                     QString(),
                                     QStringLiteral("偏差3.50%，扣12.50分")},
                                    {{QStringLiteral("混凝土工程"), QStringLiteral("C30混凝土柱")},
                                     0.0,
                                     QString(),
                                     QStringLiteral("缺少评分项，不得分")},
                                    {{QStringLiteral("混凝土工程"), QStringLiteral("C25混凝土垫层")},
                                     0.0,
                                     QString(),
                                     QStringLiteral("存在多余评分项，不得分")}};
    for (const Criterion& criterion : criteria) {
        const ScoredNode* node = find(tree.tree, criterion.path);
        QVERIFY2(node, qPrintable(criterion.path.join(QStringLiteral(" > "))));
        QVERIFY(qAbs(node->obtained - criterion.obtained) < 1e-9);
        QCOMPARE(node->remark, criterion.remark);
    }
}

void TestGraderSample::model() {
    if (QRatingItemBase* probe = QRatingItemBase::CreateMarkRatingItem(Host::Shape))
        delete probe;
    else
        QSKIP("the library gives no Shape rating item yet");
    const CandidateResult result = gradeProject(readSample(QStringLiteral("model-standard.json")),
                                                readSample(QStringLiteral("model-candidate.json")), Marks());
    // 100 over four criteria at 25. 墙体厚度 200 against 240, equality: 0. 混凝土强度等级 equal: 25.
    // 层高 3.09 against 3, 3% off in the 2-5% band: 25 × (5 - 3) / 3 = 50/3. 门窗数量 36 against 48,
    // value ratio 0.75: 18.75. Total 25 + 50/3 + 18.75 = 725/12.
    const CategoryResult& tree = result.categories.value(0);
    QVERIFY(qAbs(tree.obtained - 725.0 / 12) < 1e-9);
    const QList<Criterion> criteria{
        {{QStringLiteral("墙体厚度")}, 0.0, QString(), QString()},
        {{QStringLiteral("层高")}, 50.0 / 3, QString(), QStringLiteral("偏差3.00%，扣8.33分")},
        {{QStringLiteral("门窗数量")}, 18.75, QString(), QStringLiteral("与标准值比例为75.00%")}};
    for (const Criterion& criterion : criteria) {
        const ScoredNode* node = find(tree.tree, criterion.path);
        QVERIFY2(node, qPrintable(criterion.path.join(QStringLiteral(" > "))));
        QVERIFY(qAbs(node->obtained - criterion.obtained) < 1e-9);
        QCOMPARE(node->remark, criterion.remark);
    }
}

QTEST_GUILESS_MAIN(TestGraderSample)
#include "tst_grader_sample.moc"
