// The Site resource-curve criteria: the charts the standard expects, the curve checks of the judged
// project (partner curves, machinery), creation failures, and a candidate scored against a standard.
#include "categorytest.h"

#include <QtTest>

#include <vector>

using S = QString;
using Points = QList<QPair<int, double>>;
Q_DECLARE_METATYPE(Points)

namespace {

const S generatorChart("小型/大型发电机曲线图");
const S pumpChart("小型/大型供水泵机曲线图");
const S processorChart("钢筋加工机曲线图");
const S mixerChart("混凝土搅拌机曲线图");
const QStringList machineCharts{generatorChart, pumpChart, processorChart, mixerChart};

// A project's resources and drawn curves, and the Site curve category built from them.
struct SiteProject {
    FakeProjectData project;
    std::vector<std::unique_ptr<QResourceVirtual>> owned;
    CategoryPtr category = makeCategory(1, 4);

    explicit SiteProject(int totalDays = 10) { project.totalDays = totalDays; }

    // A resource as the host makes it; a chart name makes it a standard answer's resource.
    void plan(const S& text, int total = 0, const S& chart = S()) {
        owned.emplace_back(QResourceBase::CreateResource(5, 1));
        owned.back()->SetResourceName(text);
        owned.back()->SetResPlanTotal(total);
        qobject_cast<QResourceBase*>(owned.back().get())->SetGeneralName(chart);
        project.resources.append(owned.back().get());
    }
    void draw(const S& name, bool custom = true, const Points& points = {}) {
        QMarkCategoryVirtual* curve = QMarkCategoryBase::CreateMarkCategoryByType(5, 1, 4);
        curve->SetMarkCurveName(name);
        curve->SetMarkCurveCustomType(custom);
        for (const auto& point : points)
            curve->AddResCurveRecord(new ResCurveRecord{point.first, point.second});
        category->AddMarkCategory(curve);
    }
    QRatingItemVirtual* build(bool judged) {
        project.resources.append(nullptr);
        category->UpdateCategory(static_cast<QObject*>(&project), judged);
        return rootOf(category.get());
    }
};

// "name|value|remark" of every child; a child that is not a curve criterion is marked.
QStringList describe(QRatingItemVirtual* root) {
    QStringList rows;
    for (QRatingItemVirtual* item : itemsOf(root)) {
        rows.append((item->GetAttributeType() == 22 ? S() : S("type? ")) + item->GetRatingItemName() + '|' +
                    item->GetRatingItemValue() + '|' + item->GetRatingItemRemark());
    }
    return rows;
}

// The one row of the chart, or how many there are.
S describeChild(QRatingItemVirtual* root, const S& chart) {
    const QStringList rows =
        describe(root).filter(QRegularExpression('^' + QRegularExpression::escape(chart + '|')));
    return rows.size() == 1 ? rows.first() : S("%1 items").arg(rows.size());
}

// A Site curve category whose item creator fails (null, or an object that is not an item) on one call.
class FailingCreator : public QMarkResCurve_Sked_Site {
public:
    FailingCreator(int failingCall, bool foreign) : failingCall(failingCall), foreign(foreign) {
        InitMarkCategoryItem();
    }
    void* CreateRatingItem(QObject* parent) override {
        if (++calls != failingCall)
            return QMarkResCurve_Sked_Site::CreateRatingItem(parent);
        return foreign ? static_cast<void*>(new QObject) : nullptr;
    }
    int failingCall, calls = 0;
    bool foreign;
};

} // namespace

class TstResCurveSite : public QObject {
    Q_OBJECT
private slots:
    void standardExpectsEachChartOnce() {
        SiteProject standard;
        for (const S& chart : QStringList{S("钢筋工曲线图"), S("脚手架"), S("钢筋工曲线图")} + machineCharts)
            standard.plan(S("钢筋工"), 0, chart);
        standard.plan(S("钢筋原材"), 0, generatorChart);
        QCOMPARE(describe(standard.build(false)),
                 (QStringList{
                     S("钢筋工曲线图|存在|"), S("脚手架|存在|"),
                     generatorChart + S("|满足条件|资源曲线图存在且发电机配置时间和工程起止时间一致"),
                     pumpChart + S("|满足条件|资源曲线图存在且供水泵机配置时间和工程起止时间一致"),
                     processorChart + S("|满足条件|资源曲线图存在且钢筋加工机数量＞=钢筋原材总量/产能"),
                     mixerChart + S("|满足条件|资源曲线图存在且混凝土加工机数量＞=混凝土原材总量/产能")}));
    }

    void runningMachines_data() {
        QTest::addColumn<S>("drawnAs");
        QTest::addColumn<bool>("custom");
        QTest::addColumn<Points>("points");
        QTest::addColumn<S>("expected");
        const S notFromStart("|不满足|\"发电机组\"未从工期起始时间使用");
        const S tooShort("|不满足|\"发电机组\"使用时间小于总工期");
        QTest::newRow("busy to the end") << S("小型发电机") << true << Points{{7200, 1.0}, {14400, 2.0}}
                                         << generatorChart + S("|满足条件|");
        QTest::newRow("idle first day")
            << S("发电机组") << true << Points{{1440, 0.0}, {14400, 1.0}} << generatorChart + notFromStart;
        QTest::newRow("ends early") << S("发电机组(大)") << true << Points{{12960, 1.0}}
                                    << generatorChart + tooShort;
        QTest::newRow("idle in between")
            << S("发电机组") << true << Points{{7200, 1.0}, {8640, 0.5}, {14400, 1.0}}
            << generatorChart + tooShort;
        QTest::newRow("not drawn by the student")
            << S("发电机组") << false << Points{{14400, 1.0}} << generatorChart + S("|不满足|");
        QTest::newRow("pump past the end")
            << S("供水泵机（小）") << true << Points{{20000, 1.0}} << pumpChart + S("|满足条件|");
        QTest::newRow("pump idle first day") << S("大型供水泵机") << true << Points{{1440, 0.0}, {14400, 1.0}}
                                             << pumpChart + S("|不满足|\"供水泵机\"未从工期起始时间使用");
    }
    void runningMachines() {
        QFETCH(S, drawnAs);
        QFETCH(bool, custom);
        QFETCH(Points, points);
        QFETCH(S, expected);
        SiteProject judged(10);
        judged.draw(drawnAs, custom, points);
        QCOMPARE(describeChild(judged.build(true), expected.section('|', 0, 0)), expected);
    }

    void machinesForTheMaterial_data() {
        QTest::addColumn<QStringList>("materials"); // "name=total"
        QTest::addColumn<S>("drawnAs");
        QTest::addColumn<int>("machineWeeks");
        QTest::addColumn<S>("expected");
        const S processorOk = processorChart + S("|满足条件|");
        const S processorShort = processorChart + S("|不满足|机械资源配置不合理");
        QTest::newRow("rebar 12, 2") << QStringList{"钢筋原材=12"} << S("钢筋加工机械") << 2 << processorOk;
        QTest::newRow("rebar 13, 2") << QStringList{"钢筋原材=13"} << S("钢筋加工") << 2 << processorShort;
        QTest::newRow("rebar 13, 3") << QStringList{"钢筋原材=13"} << S("钢筋加工机") << 3 << processorOk;
        QTest::newRow("rebar summed")
            << QStringList{"钢筋=7", "原材钢筋=6", "成品钢筋=40"} << S("钢筋加工机") << 2 << processorShort;
        QTest::newRow("no raw rebar, no curve") << QStringList{"成品钢筋=50"} << S() << 0 << processorOk;
        QTest::newRow("rebar, no curve") << QStringList{"钢筋原材=12"} << S() << 0
                                         << processorChart + S("|不存在|缺少\"钢筋加工机\"资源曲线");
        QTest::newRow("concrete 25, 2")
            << QStringList{"砂石=15", "水泥原材=10", "成品混凝土=90"} << S("混凝土搅拌") << 2
            << mixerChart + S("|不满足|机械资源配置不合理");
        QTest::newRow("concrete 25, 3")
            << QStringList{"砂石=15", "水泥=10"} << S("混凝土机械") << 3 << mixerChart + S("|满足条件|");
    }
    void machinesForTheMaterial() {
        QFETCH(QStringList, materials);
        QFETCH(S, drawnAs);
        QFETCH(int, machineWeeks);
        QFETCH(S, expected);
        SiteProject judged;
        for (const S& material : materials)
            judged.plan(material.section('=', 0, 0), material.section('=', 1).toInt());
        if (!drawnAs.isEmpty())
            judged.draw(drawnAs, true, {{10080, 0.0}, {20160, double(machineWeeks)}});
        QCOMPARE(describeChild(judged.build(true), expected.section('|', 0, 0)), expected);
    }

    void plannedResourcesAndPartners_data() {
        QTest::addColumn<QStringList>("planned");
        QTest::addColumn<QStringList>("drawn");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("rebar pair, one drawn")
            << QStringList{"钢筋原材", "成品钢筋"} << QStringList{"钢筋"}
            << QStringList{"钢筋原材/成品钢筋计划曲线图|不存在|缺少\"成品钢筋\"资源曲线"};
        QTest::newRow("rebar pair, both drawn")
            << QStringList{"钢筋成品", "钢筋原材"} << QStringList{"钢筋成品", "原材钢筋"}
            << QStringList{"钢筋原材/成品钢筋计划曲线图|存在|"};
        QTest::newRow("sand without cement")
            << QStringList{"砂石"} << QStringList{"砂石"}
            << QStringList{"混凝土/水泥、砂石计划曲线图|不存在|缺少\"水泥\"资源曲线"};
        QTest::newRow("concrete and sand drawn, no cement planned")
            << QStringList{"砼", "砂石原材"} << QStringList{"混凝土", "砂石"}
            << QStringList{"混凝土/水泥、砂石计划曲线图|不存在|缺少\"水泥\"资源曲线"};
        QTest::newRow("cement and concrete, nothing drawn")
            << QStringList{"水泥", "成品混凝土"} << QStringList{}
            << QStringList{"混凝土/水泥、砂石计划曲线图|不存在|缺少\"成品混凝土、砂石、水泥\"资源曲线"};
        QTest::newRow("labour and others in planned order")
            << QStringList{"木工", "脚手架", "砼工", "模板", "钢筋工", "木工"}
            << QStringList{"钢筋工", "木工", "砼工", "模板", "模板"}
            << QStringList{"模板工/木工曲线图|存在|", "脚手架|不存在|缺少\"脚手架\"资源曲线",
                           "混凝土工/砼工曲线图|存在|", "模板计划曲线图|存在|", "钢筋工曲线图|存在|"};
        QTest::newRow("machines get machinery items only")
            << QStringList{"小型发电机", "钢筋加工机", "供水泵机"} << QStringList{} << QStringList{};
    }
    void plannedResourcesAndPartners() {
        QFETCH(QStringList, planned);
        QFETCH(QStringList, drawn);
        QFETCH(QStringList, expected);
        SiteProject judged;
        for (const S& name : planned)
            judged.plan(name);
        for (const S& name : drawn)
            judged.draw(name);
        const QStringList items = describe(judged.build(true));
        QStringList machines;
        for (const S& machine : items.mid(expected.size()))
            machines.append(machine.section('|', 0, 0));
        QCOMPARE(items.mid(0, expected.size()), expected);
        QCOMPARE(machines, machineCharts);
    }

    void failedCreationStopsItsGroup_data() {
        QTest::addColumn<bool>("judged");
        QTest::addColumn<int>("failingCall");
        QTest::addColumn<bool>("foreign");
        QTest::addColumn<QStringList>("expected");
        QTest::addColumn<int>("calls");
        QTest::newRow("standard stops") << false << 2 << false << QStringList{"钢筋工曲线图"} << 2;
        QTest::newRow("standard, foreign object") << false << 1 << true << QStringList{} << 1;
        QTest::newRow("labour stops, machinery built")
            << true << 2 << false << QStringList{"钢筋工曲线图"} + machineCharts << 6;
        QTest::newRow("machinery stops")
            << true << 5 << true << QStringList{"钢筋工曲线图", "模板计划曲线图", "脚手架", generatorChart}
            << 5;
    }
    void failedCreationStopsItsGroup() {
        QFETCH(bool, judged);
        QFETCH(int, failingCall);
        QFETCH(bool, foreign);
        QFETCH(QStringList, expected);
        QFETCH(int, calls);
        SiteProject resources;
        resources.plan(S("钢筋工"), 0, S("钢筋工曲线图"));
        resources.plan(S("模板"), 0, S("模板计划曲线图"));
        resources.plan(S("脚手架"), 0, S("脚手架"));
        FailingCreator category(failingCall, foreign);
        category.UpdateCategory(static_cast<QObject*>(&resources.project), judged);
        QCOMPARE(namesOf(rootOf(&category)), expected);
        QCOMPARE(category.calls, calls);
        QVERIFY(isBuilt(&category));
    }

    void candidateScoredAgainstTheSiteCatalogue() {
        // The standard answer: every chart of the Site scene's catalogue, 10 marks each.
        QScene_Site scene;
        scene.InitSceneInfo(nullptr);
        SiteProject standard;
        scene.GetAllCurveResource(standard.project.resources);
        QCOMPARE(itemsOf(standard.build(false)).size(), 10);

        SiteProject candidate(10);
        for (const char* name : {"钢筋工", "木工", "砼工", "钢筋", "钢筋成品", "混凝土", "砂石原材", "水泥"})
            candidate.plan(S(name), S(name) == S("钢筋") ? 10 : 20);
        for (const char* name : {"钢筋工", "木工", "砼工", "钢筋", "钢筋成品", "混凝土", "砂石"})
            candidate.draw(S(name));
        candidate.draw(S("小型发电机"), true, {{14400, 1.0}});
        candidate.draw(S("供水泵机"), false, {{14400, 1.0}});
        candidate.draw(S("钢筋加工机"), true, {{20160, 1.0}});
        candidate.build(true);

        standard.category->AssignScore(100.0);
        QCOMPARE(candidate.category->ExecuteDBScore(standard.category.get()), 60.0);
        QRatingItemVirtual* root = rootOf(candidate.category.get());
        QCOMPARE(describeChild(root, S("模板计划曲线图")), S("模板计划曲线图|不存在|缺少评分项，不得分"));
        QCOMPARE(describeChild(root, S("混凝土/水泥、砂石计划曲线图")),
                 S("混凝土/水泥、砂石计划曲线图|不存在|缺少\"水泥\"资源曲线"));
        QCOMPARE(describeChild(root, pumpChart), pumpChart + S("|不满足|"));
        QCOMPARE(describeChild(root, mixerChart), mixerChart + S("|不存在|缺少\"混凝土搅拌机\"资源曲线"));
        QCOMPARE(childNamed(root, processorChart)->GetRatingItemScore(), 10.0);
        QCOMPARE(childNamed(root, mixerChart)->GetRatingItemScore(), 0.0);
    }
};

QTEST_GUILESS_MAIN(TstResCurveSite)
#include "tst_rescurve_site.moc"
