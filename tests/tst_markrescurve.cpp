// The resource-curve category: curve figures, sub-categories shared through InitMarkCategory released
// once, and the Site chart criteria on the standard and the judged side.
#include "categorytest.h"

#include <QtTest>

#include <climits>
#include <cmath>
#include <vector>

using S = QString;
using Points = QList<QPair<int, double>>;
Q_DECLARE_METATYPE(Points)

namespace {

const S generatorChart("小型/大型发电机曲线图");
const S pumpChart("小型/大型供水泵机曲线图");
const S processorChart("钢筋加工机曲线图");
const S mixerChart("混凝土搅拌机曲线图");

const int kWeek = 10080;

// Idle in the first week and n in use in the second: n machine-weeks.
Points weeks(double n) {
    return {{kWeek, 0.0}, {2 * kWeek, n}};
}

void addPoints(QMarkCategoryVirtual* curve, const Points& points) {
    for (const auto& point : points)
        curve->AddResCurveRecord(new ResCurveRecord{point.first, point.second});
}

// A curve holder that counts its destruction.
class CurveProbe : public QMarkResCurve_Sked {
public:
    explicit CurveProbe(const Points& points = {}) { addPoints(this, points); }
    ~CurveProbe() override { ++destroyed; }
    using QMarkResCurve_Sked::subCategories;
    static int destroyed;
};
int CurveProbe::destroyed = 0;

// Start, end and total of the busy time, and the machine-weeks.
QList<int> figuresOf(QMarkCategoryVirtual* curve) {
    int start = -1, end = -1;
    const int total = curve->GetResCurveTotalTime(start, end);
    return {start, end, total, curve->GetJxResUsedCount()};
}

// A project's resources and drawn curves, and the Site curve category built from them.
struct SiteProject {
    FakeProjectData project;
    std::vector<std::unique_ptr<QResourceVirtual>> owned;
    CategoryPtr category = makeCategory(1, 4);

    SiteProject() { project.totalDays = 10; }

    // A resource "name=planned total" as the host makes it; a chart name makes it a standard's resource.
    void plan(const S& text, const S& chart = S()) {
        owned.emplace_back(QResourceBase::CreateResource(5, 1));
        owned.back()->SetResourceName(text.section('=', 0, 0));
        owned.back()->SetResPlanTotal(text.section('=', 1).toInt());
        qobject_cast<QResourceBase*>(owned.back().get())->SetGeneralName(chart);
        project.resources.append(owned.back().get());
    }
    void draw(const S& name, bool custom = true, const Points& points = {}) {
        QMarkCategoryVirtual* curve = QMarkCategoryBase::CreateMarkCategoryByType(5, 1, 4);
        curve->SetMarkCurveName(name);
        curve->SetMarkCurveCustomType(custom);
        addPoints(curve, points);
        category->AddMarkCategory(curve);
    }
    QRatingItemVirtual* build(bool judged) {
        project.resources.append(nullptr);
        category->UpdateCategory(dataOf(project), judged);
        return rootOf(category.get());
    }
};

// The one row of the chart, or how many there are.
S rowOf(QRatingItemVirtual* root, const S& chart) {
    const QStringList rows =
        rowsOf(root).filter(QRegularExpression('^' + QRegularExpression::escape(chart + '|')));
    return rows.size() == 1 ? rows.first() : S("%1 rows").arg(rows.size());
}

} // namespace

class TstMarkResCurve : public QObject {
    Q_OBJECT
private slots:
    void curveFigures_data() {
        QTest::addColumn<Points>("points");
        QTest::addColumn<QList<int>>("figures");
        QTest::newRow("four weeks") << Points{{10080, 0.0}, {20160, 2.0}, {30240, 1.0}, {40320, 0.5}}
                                    << QList<int>{kWeek, 3 * kWeek, 2 * kWeek, 4};
        QTest::newRow("half a week busy") << Points{{5040, 1.0}} << QList<int>{0, 5040, 5040, 1};
        QTest::newRow("just under half") << Points{{5039, 1.0}} << QList<int>{0, 5039, 5039, 0};
        QTest::newRow("negative amount") << Points{{5040, -3.0}} << QList<int>{5040, 0, 0, 0};
        QTest::newRow("no points") << Points{} << QList<int>{0, 0, 0, 0};
        QTest::newRow("idle again") << Points{{1440, 0.0}, {2880, 1.0}, {4320, 0.0}, {5760, 3.0}}
                                    << QList<int>{1440, 5760, 2880, 1};
        QTest::newRow("not a number")
            << Points{{1440, std::nan("")}, {2880, 1.0}} << QList<int>{1440, 2880, 1440, 0};
        QTest::newRow("extreme times")
            << Points{{INT_MIN, 5.0}, {INT_MAX, 5.0}} << QList<int>{0, INT_MAX, INT_MAX, 1065220};
    }
    void curveFigures() {
        QFETCH(Points, points);
        QFETCH(QList<int>, figures);
        CategoryPtr curve = makeCategory(1, 4);
        addPoints(curve.get(), points);
        curve->AddResCurveRecord(nullptr);
        QCOMPARE(figuresOf(curve.get()), figures);
    }

    void sharedCurvesAreReleasedOnce_data() {
        QTest::addColumn<bool>("sourceFirst");
        QTest::newRow("source destroyed first") << true;
        QTest::newRow("receiver destroyed first") << false;
    }
    void sharedCurvesAreReleasedOnce() {
        QFETCH(bool, sourceFirst);
        CurveProbe::destroyed = 0;
        auto source = std::make_unique<CurveProbe>(Points{{kWeek, 2.0}});
        auto* sub = new CurveProbe(Points{{kWeek, 1.0}, {2 * kWeek, 1.0}});
        source->AddMarkCategory(sub);
        auto receiver = std::make_unique<CurveProbe>(Points{{5, 1.0}});
        receiver->AddMarkCategory(new CurveProbe);
        receiver->InitMarkCategory(source.get());
        QCOMPARE(CurveProbe::destroyed, 1); // the receiver's own sub-category was let go
        QCOMPARE(receiver->subCategories(), QList<QMarkCategoryVirtual*>{sub});
        (sourceFirst ? source : receiver).reset();
        CurveProbe* survivor = sourceFirst ? receiver.get() : source.get();
        QCOMPARE(CurveProbe::destroyed, 2);
        QCOMPARE(figuresOf(survivor), (QList<int>{0, kWeek, kWeek, 2}));
        QCOMPARE(figuresOf(survivor->subCategories().first()), (QList<int>{0, 2 * kWeek, 2 * kWeek, 2}));
        receiver.reset();
        source.reset();
        QCOMPARE(CurveProbe::destroyed, 4);
    }
    void standardExpectsEachChartOnce() {
        SiteProject standard;
        for (const S& chart : {S("钢筋工曲线图"), S("脚手架"), S("钢筋工曲线图"), generatorChart, pumpChart,
                               processorChart, mixerChart})
            standard.plan(S("钢筋工"), chart);
        QCOMPARE(
            rowsOf(standard.build(false)),
            (QStringList{"钢筋工曲线图|存在|0|", "脚手架|存在|0|",
                         generatorChart + "|满足条件|0|资源曲线图存在且发电机配置时间和工程起止时间一致",
                         pumpChart + "|满足条件|0|资源曲线图存在且供水泵机配置时间和工程起止时间一致",
                         processorChart + "|满足条件|0|资源曲线图存在且钢筋加工机数量＞=钢筋原材总量/产能",
                         mixerChart + "|满足条件|0|资源曲线图存在且混凝土加工机数量＞=混凝土原材总量/产能"}));
    }

    void judgedCurveChecks_data() {
        QTest::addColumn<QStringList>("planned");
        QTest::addColumn<QStringList>("drawn");
        QTest::addColumn<Points>("points");
        QTest::addColumn<S>("expected");
        const QStringList none;
        const S fine("|满足条件|0|"), tooFew("|不满足|0|机械资源配置不合理");
        // 10 days are 14400 minutes
        QTest::newRow("generator idle first day")
            << none << QStringList{"发电机组"} << Points{{1440, 0.0}, {14400, 1.0}}
            << generatorChart + "|不满足|0|\"发电机组\"未从工期起始时间使用";
        QTest::newRow("generator ends early") << none << QStringList{"发电机组(大)"} << Points{{12960, 1.0}}
                                              << generatorChart + "|不满足|0|\"发电机组\"使用时间小于总工期";
        QTest::newRow("pump past the end")
            << none << QStringList{"供水泵机（小）"} << Points{{20000, 1.0}} << pumpChart + fine;
        // rebar / 5 and concrete raw material / 10 machines, rounded half up
        QTest::newRow("rebar 12, 2") << QStringList{"钢筋原材=12"} << QStringList{"钢筋加工机械"} << weeks(2)
                                     << processorChart + fine;
        QTest::newRow("rebar 13, 2") << QStringList{"钢筋原材=13"} << QStringList{"钢筋加工"} << weeks(2)
                                     << processorChart + tooFew;
        QTest::newRow("concrete 25, 2") << QStringList{"砂石=15", "水泥原材=10", "成品混凝土=90"}
                                        << QStringList{"混凝土搅拌"} << weeks(2) << mixerChart + tooFew;
        QTest::newRow("no raw rebar, no curve")
            << QStringList{"成品钢筋=50"} << none << Points() << processorChart + fine;
        // partners are drawn together, and taken as a partner they get no row of their own
        QTest::newRow("rebar pair, one drawn")
            << QStringList{"钢筋原材", "成品钢筋"} << QStringList{"钢筋"} << Points()
            << "钢筋原材/成品钢筋计划曲线图|不存在|0|缺少\"成品钢筋\"资源曲线";
    }
    void judgedCurveChecks() {
        QFETCH(QStringList, planned);
        QFETCH(QStringList, drawn);
        QFETCH(Points, points);
        QFETCH(S, expected);
        SiteProject judged;
        for (const S& resource : planned)
            judged.plan(resource);
        for (const S& curve : drawn)
            judged.draw(curve, true, points);
        QCOMPARE(rowOf(judged.build(true), expected.section('|', 0, 0)), expected);
    }

    void candidateScoredAgainstTheSiteCatalogue() {
        // The standard answer: every chart of the Site scene's catalogue, 10 marks each.
        QScene_Site scene;
        scene.InitSceneInfo(nullptr);
        SiteProject standard, candidate;
        scene.GetAllCurveResource(standard.project.resources);
        standard.build(false);
        for (const char* name :
             {"钢筋工", "木工", "砼工", "钢筋=10", "钢筋成品=20", "混凝土=20", "砂石原材=20", "水泥=20"})
            candidate.plan(S(name));
        for (const char* name : {"钢筋工", "木工", "砼工", "钢筋", "钢筋成品", "混凝土", "砂石"})
            candidate.draw(S(name));
        candidate.draw(S("小型发电机"), true, {{14400, 1.0}});
        candidate.draw(S("供水泵机"), false, {{14400, 1.0}});
        candidate.draw(S("钢筋加工机"), true, {{20160, 1.0}});
        candidate.build(true);
        standard.category->AssignScore(100.0);
        QCOMPARE(candidate.category->ExecuteDBScore(standard.category.get()), 60.0);
        QCOMPARE(rowsOf(rootOf(candidate.category.get())),
                 (QStringList{
                     "钢筋工曲线图|存在|10|", "模板工/木工曲线图|存在|10|", "混凝土工/砼工曲线图|存在|10|",
                     "钢筋原材/成品钢筋计划曲线图|存在|10|", "模板计划曲线图|不存在|0|缺少评分项，不得分",
                     "混凝土/水泥、砂石计划曲线图|不存在|0|缺少\"水泥\"资源曲线",
                     processorChart + "|满足条件|10|", mixerChart + "|不存在|0|缺少\"混凝土搅拌机\"资源曲线",
                     generatorChart + "|满足条件|10|", pumpChart + "|不满足|0|"}));
    }
};

QTEST_GUILESS_MAIN(TstMarkResCurve)
#include "tst_markrescurve.moc"
