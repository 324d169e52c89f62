// Scenes: the Site catalogue and resource queries, element identifiers, logic chains, the
// combination of a work sequence into components, and the element types the Site scene has the
// host create. The Twin and plain scenes answer with empty values.
#include "fakeelementtype.h"
#include "fakeproject.h"
#include "qresource_sked_site.h"
#include "qscene_site.h"
#include "qscene_twin.h"

#include <QtTest>
#include <algorithm>
#include <memory>

using ComponentMap = QMap<QString, QSet<QString>>;

namespace {

void* asData(QObject* object) {
    return object;
}

QList<QResourceVirtual*> curveResources(QSceneVirtual& scene) {
    QList<QResourceVirtual*> list;
    scene.GetAllCurveResource(list);
    return list;
}

// "key <- a, b" per entry, the set sorted, so that a failed comparison shows the difference.
QStringList describe(const ComponentMap& map) {
    QStringList lines;
    for (auto it = map.cbegin(); it != map.cend(); ++it) {
        QStringList before = it.value().values();
        std::sort(before.begin(), before.end());
        lines.append(it.key() + QStringLiteral(" <- ") + before.join(QStringLiteral(", ")));
    }
    return lines;
}

// The expected calls for one fully built element type of the Site scene.
QStringList preparedTypeLines(const QString& type, bool first) {
    const QString item = type + QStringLiteral(".I1");
    QStringList lines = {QStringLiteral("project.CreateElementType(1)"),
                         type + ".SetElementScene(QScene_Site)",
                         type + (first ? ".SetElementKind(3)" : ".SetElementKind(4)"),
                         type + ".CreateElementItem(1)",
                         item + ".SetItemScene(QScene_Site)",
                         item + (first ? ".SetItemValue(3.5)" : ".SetItemValue(7.0)")};
    if (first)
        lines << item + ".SetItemName(临建建造)" << item + ".SetItemIndex(1)"
              << type + ".AddElementItem(" + item + ")" << type + ".SetNextName(钢筋准备)"
              << type + ".SetElementName(临建建造)";
    else
        lines << item + ".SetItemIndex(2)" << item + ".SetItemName(钢筋准备)"
              << type + ".AddElementItem(" + item + ")" << type + ".SetPrevName(临建建造)"
              << type + ".SetElementName(钢筋准备)";
    return lines;
}

QStringList typeWithNullItemLines(const QString& type, bool first) {
    return {QStringLiteral("project.CreateElementType(1)"), type + ".SetElementScene(QScene_Site)",
            type + (first ? ".SetElementKind(3)" : ".SetElementKind(4)"), type + ".CreateElementItem(1)"};
}

} // namespace

class TestScene : public QObject {
    Q_OBJECT
private slots:
    // Resource catalogue and queries
    void siteCatalogue_data();
    void siteCatalogue();
    void curveResourceListIsReplaced();
    void codesMatchExactly_data();
    void codesMatchExactly();
    void twinAndPlainScenesAreEmpty();

    // Element identifiers
    void labourByProcess_data();
    void labourByProcess();
    void elementToComponent_data();
    void elementToComponent();
    void elementLogic_data();
    void elementLogic();

    // Work sequences
    void combine_data();
    void combine();
    void combineUnitesWithExistingSets();
    void combineLongSequences();

    // Element types and ownership
    void elementTypeCalls();
    void elementTypeAnswers_data();
    void elementTypeAnswers();
    void withoutProjectData();
    void secondInitKeepsEverythingOwned();
};

void TestScene::siteCatalogue_data() {
    QTest::addColumn<int>("index"); // position in GetAllCurveResource
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("className");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("typeById");
    QTest::addColumn<int>("factor");
    QTest::addColumn<int>("sitePrice");
    QTest::addColumn<QString>("curve");
    QTest::addColumn<QStringList>("process"); // code, name, colour

    const QString rl = "QResource_Sked_Site_RL", cl = "QResource_Sked_Site_CL", jx = "QResource_Sked_Site_JX";
    QTest::newRow("RL1") << 0 << "SiteRLJZ00001" << rl << 1 << 1 << 5 << 10000 << "钢筋工曲线图"
                         << QStringList{"Qty01", "绑钢筋", "黄色"};
    QTest::newRow("RL2") << 1 << "SiteRLJZ00002" << rl << 1 << 1 << 5 << 10000 << "模板工/木工曲线图"
                         << QStringList{"Qty02", "支模板", "绿色"};
    QTest::newRow("RL3") << 2 << "SiteRLJZ00003" << rl << 1 << 1 << 10 << 10000 << "混凝土工/砼工曲线图"
                         << QStringList{"Qty03", "浇筑混凝土", "粉色"};
    const QStringList none = {"", "", ""};
    QTest::newRow("CL1") << 3 << "SiteCLJZ00001" << cl << 2 << 4 << 0 << 14000
                         << "钢筋原材/成品钢筋计划曲线图" << none;
    QTest::newRow("CL2") << 4 << "SiteCLJZ00002" << cl << 2 << 4 << 0 << 20000
                         << "钢筋原材/成品钢筋计划曲线图" << none;
    QTest::newRow("CL3") << 5 << "SiteCLJZ00003" << cl << 2 << 6 << 0 << 2000 << "模板计划曲线图" << none;
    QTest::newRow("CL4") << 6 << "SiteCLJZ00004" << cl << 2 << 5 << 0 << 14000
                         << "混凝土/水泥、砂石计划曲线图" << none;
    QTest::newRow("CL5") << 7 << "SiteCLJZ00005" << cl << 2 << 5 << 0 << 10000
                         << "混凝土/水泥、砂石计划曲线图" << none;
    QTest::newRow("CL6") << 8 << "SiteCLJZ00006" << cl << 2 << 5 << 0 << 10000
                         << "混凝土/水泥、砂石计划曲线图" << none;
    QTest::newRow("JX1") << 9 << "ZJX1" << jx << 3 << 0 << 0 << 10000 << "钢筋加工机曲线图" << none;
    QTest::newRow("JX2") << 10 << "ZJX2" << jx << 3 << 0 << 0 << 10000 << "混凝土搅拌机曲线图" << none;
    QTest::newRow("JX3") << 11 << "ZJX3" << jx << 3 << 0 << 0 << 10000 << "小型/大型发电机曲线图" << none;
    QTest::newRow("JX4") << 12 << "ZJX4" << jx << 3 << 0 << 0 << 10000 << "小型/大型发电机曲线图" << none;
    QTest::newRow("JX5") << 13 << "ZJX5" << jx << 3 << 0 << 0 << 10000 << "小型/大型供水泵机曲线图" << none;
    QTest::newRow("JX6") << 14 << "ZJX6" << jx << 3 << 0 << 0 << 10000 << "小型/大型供水泵机曲线图" << none;
}

void TestScene::siteCatalogue() {
    QFETCH(int, index);
    QFETCH(QString, code);
    QFETCH(QString, className);
    QFETCH(int, type);
    QFETCH(int, typeById);
    QFETCH(int, factor);
    QFETCH(int, sitePrice);
    QFETCH(QString, curve);
    QFETCH(QStringList, process);

    QScene_Site scene;
    scene.InitSceneInfo(nullptr);
    const QList<QResourceVirtual*> resources = curveResources(scene);
    QCOMPARE(resources.size(), 15);
    auto* resource = qobject_cast<QResource_Sked_Site*>(resources.at(index));
    QVERIFY(resource);
    QCOMPARE(resource->GetClassName(), className);
    QVERIFY(!resource->parent());
    QCOMPARE(resource->GetGeneralName(), curve);
    QCOMPARE(resource->GetResourceFactor(), factor);
    QCOMPARE(resource->sitePrice(), sitePrice);
    QCOMPARE((QStringList{resource->GetProjectCode(), resource->GetProjectName(), resource->GetGxColor()}),
             process);
    // The code is the table key only; the other fields keep their initial values.
    QVERIFY(resource->GetResourceCode().isEmpty());
    QVERIFY(resource->GetResourceName().isEmpty());
    QCOMPARE(resource->GetResPlanTotal(), 0);

    QCOMPARE(scene.GetResourceType(code), type);
    QCOMPARE(scene.GetResourceTypeById(code), typeById);
    QCOMPARE(scene.GetRLResourceFactor(code), type == 1 ? factor : 0);
}

void TestScene::curveResourceListIsReplaced() {
    QScene_Site scene;
    scene.InitSceneInfo(nullptr);
    QResource_Sked stray;
    QList<QResourceVirtual*> list = {&stray, nullptr};
    scene.GetAllCurveResource(list);
    const QList<QResourceVirtual*> first = list;
    QCOMPARE(first.size(), 15);
    QVERIFY(!first.contains(&stray));
    scene.GetAllCurveResource(list);
    QCOMPARE(list, first);

    QSet<QString> charts;
    for (QResourceVirtual* resource : first)
        charts.insert(resource->GetGeneralName());
    QCOMPARE(charts.size(), 10);
}

void TestScene::codesMatchExactly_data() {
    QTest::addColumn<QString>("code");
    for (const char* code : {"siterljz00001", "SITERLJZ00001", " SiteRLJZ00001", "SiteRLJZ00001 ",
                             "SiteRLJZ0001", "zjx1", "Qty01", "钢筋工", ""})
        QTest::newRow(code) << QString::fromUtf8(code);
}

void TestScene::codesMatchExactly() {
    QFETCH(QString, code);
    QScene_Site scene;
    scene.InitSceneInfo(nullptr);
    QCOMPARE(scene.GetResourceType(code), 0);
    QCOMPARE(scene.GetRLResourceFactor(code), 0);
    QCOMPARE(scene.GetResourceTypeById(code), 0);
}

void TestScene::twinAndPlainScenesAreEmpty() {
    FakeProjectData data;
    ClassifyCallLog log;
    data.elementTypeFactory = log.factory();
    QScene_Twin twin;
    QScene_Sked plain;
    QCOMPARE(twin.GetSceneType(), 2);
    QCOMPARE(twin.GetClassName(), QStringLiteral("QScene_Twin"));
    QCOMPARE(plain.GetSceneType(), 0);
    QCOMPARE(plain.GetClassName(), QStringLiteral("QScene_Sked"));
    QCOMPARE(QScene_Site().GetSceneType(), 1);
    QCOMPARE(QScene_Site().GetClassName(), QStringLiteral("QScene_Site"));

    QObject foreign;
    for (void* init : {static_cast<void*>(nullptr), asData(&data), asData(&foreign)}) {
        twin.InitSceneInfo(init);
        for (QScene_Sked* scene : {static_cast<QScene_Sked*>(&twin), &plain}) {
            QResource_Sked stray;
            QList<QResourceVirtual*> list = {&stray};
            scene->GetAllCurveResource(list);
            QVERIFY(list.isEmpty());
            QCOMPARE(scene->GetResourceType(QStringLiteral("SiteRLJZ00001")), 0);
            QCOMPARE(scene->GetRLResourceFactor(QStringLiteral("SiteRLJZ00001")), 0);
            QVERIFY(!scene->GetRLResource(QStringLiteral("JC-X-1")));
        }
    }
    QVERIFY(log.calls.isEmpty());
}

void TestScene::labourByProcess_data() {
    QTest::addColumn<QString>("id");
    QTest::addColumn<int>("labour"); // index of the labour resource, -1 for none
    QTest::addColumn<QString>("name");

    QTest::newRow("JC 1") << "JC-X-1" << 0 << "钢筋工";
    QTest::newRow("JC 2") << "JC-X-2" << 1 << "模板工";
    QTest::newRow("JC 3") << "JC-X-3" << 2 << "混凝土工";
    QTest::newRow("D 1") << "D-X-1" << 0 << "钢筋工";
    QTest::newRow("D 3") << "D-X-3" << 2 << "混凝土工";
    QTest::newRow("B 1") << "B-X-1" << 1 << "模板工";
    QTest::newRow("B 2") << "B-X-2" << 0 << "钢筋工";
    QTest::newRow("B 3") << "B-X-3" << 2 << "混凝土工";
    QTest::newRow("one dash") << "JC-1" << 0 << "钢筋工";
    QTest::newRow("many dashes") << "B-a-b-c-2" << 0 << "钢筋工";
    QTest::newRow("digit 0") << "JC-X-0" << -1 << "";
    QTest::newRow("digit 4") << "JC-X-4" << -1 << "";
    QTest::newRow("letter") << "JC-X-a" << -1 << "";
    QTest::newRow("full-width digit") << "JC-X-１" << -1 << "";
    QTest::newRow("prefix alone") << "JC" << -1 << "";
    QTest::newRow("longer prefix") << "JCX-1" << -1 << "";
    QTest::newRow("lower case") << "jc-X-1" << -1 << "";
    QTest::newRow("leading blank") << " JC-X-1" << -1 << "";
    QTest::newRow("work item") << "临建建造" << -1 << "";
    QTest::newRow("empty") << "" << -1 << "";
}

void TestScene::labourByProcess() {
    QFETCH(QString, id);
    QFETCH(int, labour);
    QFETCH(QString, name);

    QScene_Site scene;
    scene.InitSceneInfo(nullptr);
    const QList<QResourceVirtual*> resources = curveResources(scene);
    QCOMPARE(scene.GetRLResourceNameById(id), name);
    void* expected = labour < 0 ? nullptr : static_cast<QObject*>(resources.at(labour));
    QCOMPARE(scene.GetRLResource(id), expected);
}

void TestScene::elementToComponent_data() {
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("component");

    QTest::newRow("JC first") << "JC-X-1"
                              << "JC-X";
    QTest::newRow("D first") << "D-Y-1"
                             << "D-Y";
    QTest::newRow("B first") << "B-Z-1"
                             << "B-Z";
    QTest::newRow("empty middle") << "B--1"
                                  << "B-";
    QTest::newRow("second process") << "JC-X-2"
                                    << "";
    QTest::newRow("third process") << "JC-X-3"
                                   << "";
    QTest::newRow("prefix alone") << "JC"
                                  << "";
    QTest::newRow("one dash") << "JC-1"
                              << "";
    QTest::newRow("three dashes") << "JC-X-Y-1"
                                  << "";
    QTest::newRow("work item") << "临建建造"
                               << "临建建造";
    QTest::newRow("not an element") << "JCX-A-1"
                                    << "JCX-A-1";
    QTest::newRow("empty") << ""
                           << "";
}

void TestScene::elementToComponent() {
    QFETCH(QString, id);
    QFETCH(QString, component);
    QCOMPARE(QScene_Site().TransformElementToComp(id), component);
}

void TestScene::elementLogic_data() {
    QTest::addColumn<QString>("element");
    QTest::addColumn<QString>("predecessors");
    QTest::addColumn<QString>("logic");

    QTest::newRow("no predecessor") << "JC-X"
                                    << ""
                                    << "JC-X-1;JC-X-2;JC-X-3";
    QTest::newRow("two predecessors") << "B-X"
                                      << "JC-X;临建建造"
                                      << "JC-X-1;JC-X-2;JC-X-3;B-X-1;B-X-2;B-X-3&临建建造;B-X-1;B-X-2;B-X-3";
    QTest::newRow("trailing separator") << "D-Y"
                                        << "JC-X;"
                                        << "JC-X-1;JC-X-2;JC-X-3;D-Y-1;D-Y-2;D-Y-3&;D-Y-1;D-Y-2;D-Y-3";
    QTest::newRow("work items") << "临建建造"
                                << "钢筋准备"
                                << "钢筋准备;临建建造";
    QTest::newRow("work item alone") << "临建建造"
                                     << ""
                                     << "临建建造";
    QTest::newRow("case counts") << "jc-X"
                                 << "b-Y"
                                 << "b-Y;jc-X";
}

void TestScene::elementLogic() {
    QFETCH(QString, element);
    QFETCH(QString, predecessors);
    QFETCH(QString, logic);
    QCOMPARE(QScene_Site().GetElementLogic(element, predecessors), logic);
}

void TestScene::combine_data() {
    QTest::addColumn<QString>("sequence");
    QTest::addColumn<QStringList>("components");

    QTest::newRow("chained") << "临建建造;JC-X-1;JC-X-2;JC-X-3;B-X-1;B-X-2;B-X-3"
                             << QStringList{"B-X <- JC-X, 临建建造", "JC-X <- 临建建造", "临建建造 <- "};
    QTest::newRow("missing second") << "JC-X-1;JC-X-3" << QStringList();
    QTest::newRow("missing third") << "JC-X-1;JC-X-2" << QStringList();
    QTest::newRow("second before first") << "JC-X-2;JC-X-1;JC-X-3" << QStringList();
    QTest::newRow("third only earlier") << "JC-X-3;JC-X-1;JC-X-2" << QStringList();
    QTest::newRow("stray third first") << "JC-X-3;JC-X-1;JC-X-2;JC-X-3" << QStringList{"JC-X <- "};
    QTest::newRow("later processes alone") << "JC-X-2;JC-X-3" << QStringList();
    QTest::newRow("one dash") << "JC-1;JC-2;JC-3" << QStringList();
    QTest::newRow("repeated chain") << "临建建造;JC-X-1;JC-X-2;JC-X-3;JC-X-1;JC-X-2;JC-X-3"
                                    << QStringList{"JC-X <- 临建建造", "临建建造 <- "};
    QTest::newRow("first copy broken, second complete")
        << "JC-X-1;B-Y-1;B-Y-2;B-Y-3;JC-X-1;JC-X-2;JC-X-3" << QStringList{"B-Y <- ", "JC-X <- "};
    QTest::newRow("transitive") << "JC-A-1;JC-A-2;JC-A-3;JC-B-1;JC-B-2;JC-B-3;D-C-1;D-C-2;D-C-3"
                                << QStringList{"D-C <- JC-A, JC-B", "JC-A <- ", "JC-B <- JC-A"};
    QTest::newRow("overlapping") << "JC-A-1;JC-B-1;JC-A-2;JC-B-2;JC-A-3;JC-B-3;B-C-1;B-C-2;B-C-3"
                                 << QStringList{"B-C <- JC-A, JC-B", "JC-A <- ", "JC-B <- "};
    // The set of a repeated component only looks at entries before its first occurrence.
    QTest::newRow("repeat looks before first occurrence")
        << "JC-E-3;JC-C-1;JC-C-2;JC-C-3;JC-E-1;JC-E-2;JC-E-3;JC-C-1;JC-C-2;JC-C-3"
        << QStringList{"JC-C <- ", "JC-E <- JC-C"};
    QTest::newRow("work items") << "a;b;a;c" << QStringList{"a <- ", "b <- a", "c <- a, b"};
    QTest::newRow("not element identifiers")
        << "jc-X-1;jc-X-2;jc-X-3"
        << QStringList{"jc-X-1 <- ", "jc-X-2 <- jc-X-1", "jc-X-3 <- jc-X-1, jc-X-2"};
    QTest::newRow("empty parts") << ";;临建建造;" << QStringList{"临建建造 <- "};
    QTest::newRow("empty text") << "" << QStringList();
}

void TestScene::combine() {
    QFETCH(QString, sequence);
    QFETCH(QStringList, components);

    ComponentMap result;
    QScene_Site().CombineElementToComp(sequence, result);
    QCOMPARE(describe(result), components);
}

void TestScene::combineUnitesWithExistingSets() {
    ComponentMap result = {{"JC-X", {"旧"}}, {"其他", {"a"}}};
    QScene_Site scene;
    scene.CombineElementToComp(QStringLiteral("临建建造;JC-X-1;JC-X-2;JC-X-3"), result);
    QCOMPARE(describe(result), (QStringList{"JC-X <- 临建建造, 旧", "临建建造 <- ", "其他 <- a"}));
    scene.CombineElementToComp(QStringLiteral("JC-X-1;JC-X-2;JC-X-3"), result);
    QCOMPARE(describe(result), (QStringList{"JC-X <- 临建建造, 旧", "临建建造 <- ", "其他 <- a"}));
}

void TestScene::combineLongSequences() {
    QScene_Site scene;

    // Twenty thousand components worked on side by side: all first processes, then all second and
    // third ones, then a closing work item.
    const int parallel = 20000;
    QStringList parts;
    for (int process = 1; process <= 3; ++process) {
        for (int i = 0; i < parallel; ++i)
            parts.append(QStringLiteral("JC-%1-%2").arg(i).arg(process));
    }
    parts.append(QStringLiteral("验收"));
    ComponentMap result;
    scene.CombineElementToComp(parts.join(QLatin1Char(';')), result);
    QCOMPARE(result.size(), parallel + 1);
    QCOMPARE(result.value(QStringLiteral("验收")).size(), parallel);
    QVERIFY(std::all_of(result.cbegin(), result.cend() - 1,
                        [](const QSet<QString>& set) { return set.isEmpty(); }));
    QVERIFY(result.value(QStringLiteral("验收")).contains(QStringLiteral("JC-19999")));

    // Three hundred components one after the other: each follows all earlier ones.
    const int serial = 300;
    parts.clear();
    for (int i = 0; i < serial; ++i) {
        for (int process = 1; process <= 3; ++process)
            parts.append(QStringLiteral("B-%1-%2").arg(i).arg(process));
    }
    result.clear();
    scene.CombineElementToComp(parts.join(QLatin1Char(';')), result);
    QCOMPARE(result.size(), serial);
    for (int i = 0; i < serial; i += 37) {
        const QSet<QString> before = result.value(QStringLiteral("B-%1").arg(i));
        QCOMPARE(before.size(), i);
        QVERIFY(i == 0 || before.contains(QStringLiteral("B-%1").arg(i - 1)));
    }
}

void TestScene::elementTypeCalls() {
    ClassifyCallLog log;
    FakeProjectData data;
    data.elementTypeFactory = log.factory();
    auto scene = std::make_unique<QScene_Site>();
    scene->InitSceneInfo(asData(&data));

    QCOMPARE(log.lines(), preparedTypeLines("E1", true) + preparedTypeLines("E2", false));
    QCOMPARE(data.elementTypeKinds, (QList<int>{1, 1}));
    for (const ClassifyCall& call : qAsConst(log.calls)) {
        if (call.operation.endsWith(QLatin1String("Scene")))
            QCOMPARE(call.argument.value<QObject*>(), scene.get());
    }
    QCOMPARE(log.elementTypes[0]->addedItems.size(), 1);

    QList<QClassifyVirtual*> list = {nullptr};
    scene->GetElementTypeList(list);
    QCOMPARE(list, (QList<QClassifyVirtual*>{log.elementTypes[0], log.elementTypes[1]}));

    // The scene owns the element types it recorded.
    scene.reset();
    QVERIFY(!log.elementTypes[0] && !log.elementTypes[1]);
}

void TestScene::elementTypeAnswers_data() {
    QTest::addColumn<QList<ClassifyCallLog::Answer>>("answers");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QStringList>("recorded");

    using L = ClassifyCallLog;
    const QString create = "project.CreateElementType(1)";
    QTest::newRow("first null") << QList<L::Answer>{L::NullElementType, L::ElementType}
                                << QStringList(create) + preparedTypeLines("E1", false) << QStringList{"E1"};
    QTest::newRow("second null") << QList<L::Answer>{L::ElementType, L::NullElementType}
                                 << preparedTypeLines("E1", true) + QStringList(create) << QStringList{"E1"};
    QTest::newRow("both null") << QList<L::Answer>{L::NullElementType, L::NullElementType}
                               << QStringList{create, create} << QStringList();
    QTest::newRow("first item null") << QList<L::Answer>{L::ElementTypeWithNullItem, L::ElementType}
                                     << typeWithNullItemLines("E1", true) + preparedTypeLines("E2", false)
                                     << QStringList{"E2"};
    QTest::newRow("second item null")
        << QList<L::Answer>{L::ElementType, L::ElementTypeWithNullItem}
        << preparedTypeLines("E1", true) + typeWithNullItemLines("E2", false) << QStringList{"E1"};
}

void TestScene::elementTypeAnswers() {
    QFETCH(QList<ClassifyCallLog::Answer>, answers);
    QFETCH(QStringList, lines);
    QFETCH(QStringList, recorded);

    ClassifyCallLog log;
    FakeProjectData data;
    data.elementTypeFactory = log.factory(answers);
    QScene_Site scene;
    scene.InitSceneInfo(asData(&data));
    QCOMPARE(log.lines(), lines);

    QList<QClassifyVirtual*> list;
    scene.GetElementTypeList(list);
    QStringList labels;
    for (QClassifyVirtual* type : qAsConst(list))
        labels.append(qobject_cast<FakeElementType*>(type)->label);
    QCOMPARE(labels, recorded);
    // An element type that is not recorded is deleted at once.
    for (const QPointer<FakeElementType>& type : qAsConst(log.elementTypes))
        QCOMPARE(!type.isNull(), list.contains(type.data()));
    QCOMPARE(curveResources(scene).size(), 15);
}

void TestScene::withoutProjectData() {
    QObject foreign;
    for (void* data : {static_cast<void*>(nullptr), asData(&foreign)}) {
        QScene_Site scene;
        scene.InitSceneInfo(data);
        QList<QClassifyVirtual*> list = {nullptr};
        scene.GetElementTypeList(list);
        QVERIFY(list.isEmpty());
        QCOMPARE(curveResources(scene).size(), 15);
    }
}

void TestScene::secondInitKeepsEverythingOwned() {
    ClassifyCallLog log;
    FakeProjectData data;
    data.elementTypeFactory = log.factory();
    auto scene = std::make_unique<QScene_Site>();
    scene->InitSceneInfo(asData(&data));
    QList<QPointer<QObject>> firstResources;
    for (QResourceVirtual* resource : curveResources(*scene))
        firstResources.append(resource);

    scene->InitSceneInfo(asData(&data));
    const QList<QResourceVirtual*> second = curveResources(*scene);
    QCOMPARE(second.size(), 15);
    QList<QClassifyVirtual*> types;
    scene->GetElementTypeList(types);
    QCOMPARE(types.size(), 4);
    // Replaced resources stay valid as long as the scene lives, and go with it.
    for (const QPointer<QObject>& resource : qAsConst(firstResources))
        QVERIFY(resource && !second.contains(qobject_cast<QResourceVirtual*>(resource.data())));
    scene.reset();
    for (const QPointer<QObject>& resource : qAsConst(firstResources))
        QVERIFY(!resource);
    for (const QPointer<FakeElementType>& type : qAsConst(log.elementTypes))
        QVERIFY(!type);
}

QTEST_GUILESS_MAIN(TestScene)
#include "tst_scene.moc"
