// The built-in sample exam graded end to end, against figures worked out by hand from the scoring
// rules.
//
// The sample (grader/samples): a Site schedule of 30 work items, total duration 294 days, and a
// candidate that
//   - lacks 基坑支护 and adds 安全文明施工,
//   - gives 土方开挖 12 days instead of 14,
//   - leaves 二层柱钢筋 without its predecessor 一层梁板混凝土 (its arrow starts at a new node 32, and
//     node 18 after 一层梁板混凝土 becomes a dead end),
//   - draws no 木工 (模板工) curve,
//   - shows 20 rows per page for 30 work items.
#include "datarow.h"
#include "grading.h"
#include "projectreader.h"
#include "samples.h"

#include <QtTest>

using namespace Grade;

namespace {

CandidateResult gradeSample(const QString& product) {
    Host::ProjectFile files[2];
    Host::ReadError error;
    for (int i = 0; i < 2; ++i)
        if (!Host::readProjectFile(
                QStringLiteral(":/samples/%1-%2.json").arg(product, i ? "candidate" : "standard"), files[i],
                error))
            qFatal("%s", qPrintable(error.toString()));
    return gradeProject(files[0], files[1], Marks());
}

} // namespace

class TestGraderSample : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        initSamples();
        m_schedule = gradeSample(QStringLiteral("schedule"));
        QVERIFY(m_schedule.graded);
        QCOMPARE(m_schedule.categories.size(), 7);
    }

    // Each planted mistake, at the criterion (a path below the category root) that scores it.
    void plantedMistakes_data() {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("path");
        QTest::addColumn<double>("obtained");
        QTest::addColumn<QString>("remark");
        QTest::addColumn<QString>("value"); // null: not checked
        QTest::addColumn<QString>("note");  // the grader's explanation where the remark is empty
        // Integrity: 30 names at 0.5; a surplus one costs its share.
        row("missing work item", 1, QString("基坑支护"), 0.0, QString("缺少评分项，不得分"), QString(),
            QString());
        row("extra work item", 1, QString("安全文明施工"), -0.5, QString("存在多余评分项，扣分"), QString(),
            QString());
        // Attributes: 12 days are no whole number of weeks.
        row("wrong duration", 2, QString("土方开挖 > 持续时间"), 0.0, QString(), QString("12"),
            QString("duration 12 天 is not a whole number of weeks (a multiple of 7 days)"));
        row("attributes lost below", 2, QString("土方开挖"), 16.0 / 27, QString(), QString(),
            QString("marks lost in 持续时间"));
        // Logic: the chain that is missing is named.
        row("missing logic", 3, QString("二层柱钢筋"), 0.0, QString(), QString(),
            QString("missing logic 一层梁板混凝土→二层柱钢筋"));
        // Principles: the lost link leaves node 18 a dead end and starts a chain at node 32.
        row("broken logic chain", 7, QString("线路完整性"), 0.0, QString("断开处节点编号：18、32"),
            QString("有线路断开"), QString());
        row("missing resource curve", 4, QString("模板工/木工曲线图"), 0.0, QString("缺少\"模板工\"资源曲线"),
            QString("不存在"), QString());
        row("too few rows per page", 5, QString("横道图完整性显示"), 0.0,
            QString("横道图分页显示行数设置不够，不得分"), QString("20"), QString());
    }

    void plantedMistakes() {
        QFETCH(int, type);
        QFETCH(QString, path);
        QFETCH(double, obtained);
        QFETCH(QString, remark);
        QFETCH(QString, value);
        QFETCH(QString, note);
        const ScoredNode* node = &m_schedule.categories[type - 1].tree;
        for (const QString& name : path.split(QStringLiteral(" > "))) {
            const auto next = std::find_if(node->items.cbegin(), node->items.cend(),
                                           [&name](const ScoredNode& child) { return child.name == name; });
            QVERIFY2(next != node->items.cend(), qPrintable(path));
            node = &*next;
        }
        QCOMPARE(node->obtained, obtained);
        QCOMPARE(node->remark, remark);
        if (!value.isNull())
            QCOMPARE(node->value, value);
        QCOMPARE(node->note, note);
    }

    // Whoever reads a report learns why each mark was lost: from the remark, or else from the note.
    void everyLossExplained() {
        QStringList unexplained;
        const std::function<void(const ScoredNode&, const QString&)> walk = [&](const ScoredNode& n,
                                                                                const QString& path) {
            if (n.lost() && n.remark.isEmpty() && n.note.isEmpty())
                unexplained << path + n.name;
            for (const ScoredNode& child : n.items)
                walk(child, path + n.name + " > ");
        };
        for (const char* product : {"schedule", "pricing", "model"})
            for (const CategoryResult& category : gradeSample(product).categories)
                walk(category.tree, QString());
        QCOMPARE(unexplained, QStringList());
    }

    void totals_data() {
        QTest::addColumn<QString>("product");
        QTest::addColumn<double>("obtained");
        // Integrity 14.5 - 0.5 = 14; attributes 20 - 4/3 - 2/27 (two items of 2/3, one of nine
        // attributes); logic 20 - 8/3 (基坑支护, 垫层施工, 二层柱钢筋, surplus 安全文明施工); curves 15
        // - 1.5; Gantt 10/3 (rows and order fail); rationality 10 (the concrete fluctuation equals the
        // standard's, 104/49 both, which is within the standard's limit); principles 10/3 (two ends and a
        // break, no surplus dummy).
        row("schedule", "schedule", 14 + 502.0 / 27 + 52.0 / 3 + 13.5 + 10.0 / 3 + 10 + 10.0 / 3);
        // Four rates at 25: 25.4 against 25 within 2%: 25; 18.63 against 18 is 3.5% off:
        // 25 × (5 - 3.5) / 3 = 12.5; one missing, one surplus: 0; one exact: 25.
        row("pricing", "pricing", 62.5);
        // Four criteria at 25: thickness unequal 0; grade equal 25; height 3% off: 25 × 2 / 3;
        // 36 of 48 doors and windows: 18.75.
        row("model", "model", 725.0 / 12);
    }

    void totals() {
        QFETCH(QString, product);
        QFETCH(double, obtained);
        const CandidateResult result = product == "schedule" ? m_schedule : gradeSample(product);
        QCOMPARE(result.full(), 100.0);
        QCOMPARE(result.obtained(), obtained);
    }

private:
    CandidateResult m_schedule;
};

QTEST_GUILESS_MAIN(TestGraderSample)
#include "tst_grader_sample.moc"
