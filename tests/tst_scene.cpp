// Scenes and resources: the scene registry, the Site catalogue, element identifiers and chains, the
// element types the Site scene has the host create, resource names and what each resource class keeps.
#include "datarow.h"
#include "fakeelementtype.h"
#include "fakeproject.h"
#include "qresource_sked_site.h"
#include "qscene_site.h"
#include "qscene_twin.h"

#include <QtTest>
#include <memory>

using ComponentMap = QMap<QString, QSet<QString>>;
using Resource = std::shared_ptr<QResourceBase>;
Q_DECLARE_METATYPE(Resource)

namespace {

QList<QResourceVirtual*> curveResources(QSceneVirtual& scene) {
    QList<QResourceVirtual*> list;
    scene.GetAllCurveResource(list);
    return list;
}

// The calls that build the first or second preparatory element type (@ in the text, its item #)
// for a scene named "site"; they stop after CreateElementItem when the host gives no item.
QStringList typeLines(const QString& type, bool first, bool withItem = true) {
    QString calls =
        QStringLiteral("project.CreateElementType(1) @.SetElementScene(site) @.SetElementKind(%1) "
                       "@.CreateElementItem(1)")
            .arg(first ? 3 : 4);
    if (withItem && first)
        calls += " #.SetItemScene(site) #.SetItemValue(3.5) #.SetItemName(临建建造) #.SetItemIndex(1) "
                 "@.AddElementItem(#) @.SetNextName(钢筋准备) @.SetElementName(临建建造)";
    else if (withItem)
        calls += " #.SetItemScene(site) #.SetItemValue(7) #.SetItemIndex(2) #.SetItemName(钢筋准备) "
                 "@.AddElementItem(#) @.SetPrevName(临建建造) @.SetElementName(钢筋准备)";
    return calls.replace(QLatin1Char('#'), type + ".I1")
        .replace(QLatin1Char('@'), type)
        .split(QLatin1Char(' '));
}

// Reads the size of the registry, to show that lookups add no key.
struct Registry : QSceneBase {
    static int size() { return m_mapScene.size(); }
};

QList<QSceneVirtual*> registered() {
    return {QSceneBase::GetScenePtrByType(1), QSceneBase::GetScenePtrByType(2)};
}

Resource created(int product, int scene) {
    return Resource(qobject_cast<QResourceBase*>(QResourceBase::CreateResource(product, scene)));
}

} // namespace

class TestScene : public QObject {
    Q_OBJECT
private slots:
    void registryAndProducts() {
        FakeProjectData data;
        void* project = static_cast<QObject*>(&data);
        for (int product : {0, 4, 7, 9})
            QSceneBase::CreateSceneInfo(product, project);
        QCOMPARE(registered(), (QList<QSceneVirtual*>{nullptr, nullptr}));
        QCOMPARE(Registry::size(), 0);
        QVERIFY(!created(4, 1) && !created(6, 1) && !created(9, 1)); // resources for product 5 only

        // A later call replaces the registered scenes; the host frees them all, never the registry.
        QList<QPointer<QSceneVirtual>> previous;
        for (int product : {6, 5}) {
            QSceneBase::CreateSceneInfo(product, project);
            const QList<QSceneVirtual*> scenes = registered();
            QVERIFY(qobject_cast<QScene_Site*>(scenes[0]) && qobject_cast<QScene_Twin*>(scenes[1]) &&
                    !previous.contains(scenes[0]) && !previous.contains(scenes[1]));
            previous << scenes[0] << scenes[1];
            QCOMPARE(Registry::size(), 2);
            QCOMPARE((QList<int>{scenes[0]->GetSceneType(), scenes[1]->GetSceneType()}), (QList<int>{1, 2}));
        }
        QVERIFY(previous[0] && previous[1]);
        qDeleteAll(previous);
        QCOMPARE(data.elementTypeKinds, (QList<int>{1, 1, 1, 1})); // each Site scene made its element types
    }

    // Code, class, type, type by id, factor, labour factor, site price, curve chart and a labour's work
    // process of each resource, in the order of GetAllCurveResource.
    void siteCatalogue() {
        const QStringList entries = {
            "SiteRLJZ00001 RL 1 1 5 5 10000 钢筋工曲线图 Qty01 绑钢筋 黄色",
            "SiteRLJZ00002 RL 1 1 5 5 10000 模板工/木工曲线图 Qty02 支模板 绿色",
            "SiteRLJZ00003 RL 1 1 10 10 10000 混凝土工/砼工曲线图 Qty03 浇筑混凝土 粉色",
            "SiteCLJZ00001 CL 2 4 0 0 14000 钢筋原材/成品钢筋计划曲线图",
            "SiteCLJZ00002 CL 2 4 0 0 20000 钢筋原材/成品钢筋计划曲线图",
            "SiteCLJZ00003 CL 2 6 0 0 2000 模板计划曲线图",
            "SiteCLJZ00004 CL 2 5 0 0 14000 混凝土/水泥、砂石计划曲线图",
            "SiteCLJZ00005 CL 2 5 0 0 10000 混凝土/水泥、砂石计划曲线图",
            "SiteCLJZ00006 CL 2 5 0 0 10000 混凝土/水泥、砂石计划曲线图",
            "ZJX1 JX 3 0 0 0 10000 钢筋加工机曲线图",
            "ZJX2 JX 3 0 0 0 10000 混凝土搅拌机曲线图",
            "ZJX3 JX 3 0 0 0 10000 小型/大型发电机曲线图",
            "ZJX4 JX 3 0 0 0 10000 小型/大型发电机曲线图",
            "ZJX5 JX 3 0 0 0 10000 小型/大型供水泵机曲线图",
            "ZJX6 JX 3 0 0 0 10000 小型/大型供水泵机曲线图"};
        QScene_Site scene;
        scene.InitSceneInfo(nullptr);
        const QList<QResourceVirtual*> resources = curveResources(scene);
        QCOMPARE(resources.size(), entries.size());
        for (int i = 0; i < entries.size(); ++i) {
            const QString code = entries[i].section(QLatin1Char(' '), 0, 0);
            auto* resource = qobject_cast<QResource_Sked_Site*>(resources[i]);
            QVERIFY(resource && !resource->parent());
            QStringList seen{code, resource->GetClassName().remove(QStringLiteral("QResource_Sked_Site_"))};
            for (int number :
                 {scene.GetResourceType(code), scene.GetResourceTypeById(code), resource->GetResourceFactor(),
                  scene.GetRLResourceFactor(code), resource->sitePrice()})
                seen << QString::number(number);
            seen << resource->GetGeneralName() << resource->GetProjectCode() << resource->GetProjectName()
                 << resource->GetGxColor();
            QCOMPARE(seen.join(QLatin1Char(' ')).trimmed(), entries[i]);
        }
        // Asking again gives the same list, replacing what the list held.
        QList<QResourceVirtual*> list = {resources[0], nullptr};
        scene.GetAllCurveResource(list);
        QCOMPARE(list, resources);
    }

    void elementIds_data() {
        QTest::addColumn<QString>("id");
        QTest::addColumn<int>("labour"); // index of the labour resource, -1 for none
        QTest::addColumn<QString>("component");
        row("JC first", "JC-X-1", 0, "JC-X");
        row("JC second", "JC-X-2", 1, "");
        row("D first", "D-Y-1", 0, "D-Y");
        row("B first takes formwork", "B-Z-1", 1, "B-Z");
        row("B second takes rebar", "B-Z-2", 0, "");
        row("one dash", "JC-1", 0, "");
        row("three dashes", "JC-X-Y-1", 0, "");
        row("digit 4", "JC-X-4", -1, "");
        row("full-width digit", "JC-X-１", -1, "");
        row("longer prefix", "JCX-A-1", -1, "JCX-A-1");
        row("lower case", "jc-X-1", -1, "jc-X-1");
        row("empty", "", -1, "");
    }

    void elementIds() {
        QFETCH(QString, id);
        QFETCH(int, labour);
        QFETCH(QString, component);
        QScene_Site scene;
        scene.InitSceneInfo(nullptr);
        void* resource = labour < 0 ? nullptr : static_cast<QObject*>(curveResources(scene).at(labour));
        QCOMPARE(scene.GetRLResource(id), resource);
        QCOMPARE(scene.GetRLResourceNameById(id),
                 (QStringList{"钢筋工", "模板工", "混凝土工"}).value(labour));
        QCOMPARE(scene.TransformElementToComp(id), component);
    }

    void elementLogic() {
        QScene_Site scene;
        QCOMPARE(scene.GetElementLogic("JC-X", ""), QStringLiteral("JC-X-1;JC-X-2;JC-X-3"));
        QCOMPARE(scene.GetElementLogic("B-X", "JC-X;临建建造"),
                 QStringLiteral("JC-X-1;JC-X-2;JC-X-3;B-X-1;B-X-2;B-X-3&临建建造;B-X-1;B-X-2;B-X-3"));
        QCOMPARE(scene.GetElementLogic("D-Y", "JC-X;"),
                 QStringLiteral("JC-X-1;JC-X-2;JC-X-3;D-Y-1;D-Y-2;D-Y-3&;D-Y-1;D-Y-2;D-Y-3"));
        QCOMPARE(scene.GetElementLogic("临建建造", "钢筋准备"), QStringLiteral("钢筋准备;临建建造"));
    }

    void combine_data() {
        QTest::addColumn<QString>("sequence");
        QTest::addColumn<ComponentMap>("components");
        row("chained", "临建建造;JC-X-1;JC-X-2;JC-X-3;B-X-1;B-X-2;B-X-3",
            ComponentMap{{"B-X", {"JC-X", "临建建造"}}, {"JC-X", {"临建建造"}}, {"临建建造", {}}});
        row("missing second", "JC-X-1;JC-X-3", ComponentMap());
        row("second before first", "JC-X-2;JC-X-1;JC-X-3", ComponentMap());
        row("stray third first", "JC-X-3;JC-X-1;JC-X-2;JC-X-3", ComponentMap{{"JC-X", {}}});
        row("repeated chain", "临建建造;JC-X-1;JC-X-2;JC-X-3;JC-X-1;JC-X-2;JC-X-3",
            ComponentMap{{"JC-X", {"临建建造"}}, {"临建建造", {}}});
        row("first copy broken, second complete", "JC-X-1;B-Y-1;B-Y-2;B-Y-3;JC-X-1;JC-X-2;JC-X-3",
            ComponentMap{{"B-Y", {}}, {"JC-X", {}}});
        // The set of a repeated component only looks at entries before its first occurrence.
        row("repeat looks before first occurrence",
            "JC-E-3;JC-C-1;JC-C-2;JC-C-3;JC-E-1;JC-E-2;JC-E-3;JC-C-1;JC-C-2;JC-C-3",
            ComponentMap{{"JC-C", {}}, {"JC-E", {"JC-C"}}});
        row("work items", "a;b;a;c", ComponentMap{{"a", {}}, {"b", {"a"}}, {"c", {"a", "b"}}});
        row("empty parts", ";;临建建造;", ComponentMap{{"临建建造", {}}});
        // Three hundred components one after the other: each follows all earlier ones.
        QString sequence;
        ComponentMap serial;
        for (int i = 0; i < 300; ++i) {
            sequence += QStringLiteral("B-%1-1;B-%1-2;B-%1-3;").arg(i);
            const QStringList before = serial.keys();
            serial.insert(QStringLiteral("B-%1").arg(i), QSet<QString>(before.begin(), before.end()));
        }
        row("long sequence", sequence, serial);
    }

    void combine() {
        QFETCH(QString, sequence);
        QFETCH(ComponentMap, components);
        ComponentMap result;
        QScene_Site().CombineElementToComp(sequence, result);
        QCOMPARE(result, components);
    }

    void elementTypes_data() {
        QTest::addColumn<QString>("answers"); // see ClassifyCallLog::factory
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<QStringList>("recorded");
        const QStringList create = {"project.CreateElementType(1)"};
        row("both made", "", typeLines("E1", true) + typeLines("E2", false), QStringList{"E1", "E2"});
        row("first null", "n", create + typeLines("E1", false), QStringList{"E1"});
        row("second null", "en", typeLines("E1", true) + create, QStringList{"E1"});
        row("first item null", "i", typeLines("E1", true, false) + typeLines("E2", false), QStringList{"E2"});
        row("second item null", "ei", typeLines("E1", true) + typeLines("E2", false, false),
            QStringList{"E1"});
    }

    void elementTypes() {
        QFETCH(QString, answers);
        QFETCH(QStringList, lines);
        QFETCH(QStringList, recorded);
        ClassifyCallLog log;
        FakeProjectData data;
        data.elementTypeFactory = log.factory(answers);
        auto scene = std::make_unique<QScene_Site>();
        scene->setObjectName(QStringLiteral("site"));
        scene->InitSceneInfo(static_cast<QObject*>(&data));
        QCOMPARE(log.lines, lines);

        QList<QClassifyVirtual*> list = {nullptr};
        scene->GetElementTypeList(list);
        QStringList names;
        for (QClassifyVirtual* type : qAsConst(list))
            names << type->objectName();
        QCOMPARE(names, recorded);
        // An element type the scene does not record is deleted at once; the others go with the scene.
        for (const QPointer<FakeElementType>& type : qAsConst(log.elementTypes))
            QCOMPARE(!type.isNull(), list.contains(type.data()));
        scene.reset();
        for (const QPointer<FakeElementType>& type : qAsConst(log.elementTypes))
            QVERIFY(!type);
    }

    // Each row: the texts (separated by "|") whose canonical name is the row's name.
    void normalisedName_data() {
        QTest::addColumn<QString>("texts");
        row("模板工", "木工");
        row("混凝土工", "砼工");
        row("钢筋原材", "钢筋|原材钢筋");
        row("成品混凝土", "混凝土|砼|混凝土成品");
        row("成品钢筋", "钢筋成品");
        row("砂石", "砂石原材");
        row("水泥", "水泥原材");
        row("钢筋加工机", "钢筋加工|钢筋加工机械");
        row("混凝土搅拌机", "混凝土加工机|混凝土搅拌|混凝土机械|混凝土搅拌机械");
        row("发电机组", "大型发电机|小型发电机|发电机组（大）|发电机组(大)|发电机组（小）|发电机组(小)");
        row("供水泵机", "大型供水泵机|小型供水泵机|供水泵机（小）|供水泵机(小)|供水泵机（大）|供水泵机(大)");
        // Texts that are their own name: canonical names, near misses, untrimmed or differently cased.
        row("", "钢筋工|模板|发电机组| 木工|发电机组[大]|Steel|");
    }

    void normalisedName() {
        QFETCH(QString, texts);
        const QString name = QString::fromUtf8(QTest::currentDataTag());
        const QStringList list = texts.split(QLatin1Char('|'));
        QStringList names;
        QResource_Sked_Site_RL resource;
        for (const QString& text : list) {
            names << (name.isEmpty() ? text : name);
            QCOMPARE(resource.TransformTextToName(text), names.last());
            resource.SetResourceName(text);
            QCOMPARE(resource.GetResourceName(), names.last());
        }
        QCOMPARE(resource.TransformTextToName(list), names);
    }

    // What each class keeps of the values the setters give: factor, general name, work process,
    // schedule price, site price and base resource.
    void setters_data() {
        QTest::addColumn<Resource>("resource");
        QTest::addColumn<QString>("kept");
        row("QResource_Sked", created(5, 3), "0 40"); // CreateResource gives the scene's general class
        row("QResource_Sked_Twin", created(5, 2), "0 40");
        row("QResource_Sked_Site", created(5, 1), "7 钢筋工曲线图 40 99 base");
        row("QResource_Sked_Site_RL", Resource(new QResource_Sked_Site_RL),
            "7 钢筋工曲线图 Qty01 绑钢筋 黄色 40 99 base");
    }

    void setters() {
        QFETCH(Resource, resource);
        QFETCH(QString, kept);
        QVERIFY(resource && !resource->parent());
        QCOMPARE(resource->GetClassName(), QString::fromLatin1(QTest::currentDataTag()));
        QResource_Sked_Twin base;
        resource->SetResourcePrice(40);
        resource->SetFactor(7);
        resource->SetPrice(99);
        resource->SetResource(&base);
        resource->SetGeneralName(QStringLiteral("X"));
        resource->SetCurveName(QStringLiteral("钢筋工曲线图")); // one field with the general name
        resource->SetProjectCode(QStringLiteral("Qty01"));
        resource->SetProjectName(QStringLiteral("绑钢筋"));
        resource->SetGxColor(QStringLiteral("黄色"));
        QStringList seen(QString::number(resource->GetResourceFactor()));
        seen << resource->GetGeneralName() << resource->GetProjectCode() << resource->GetProjectName()
             << resource->GetGxColor()
             << QString::number(qobject_cast<QResource_Sked*>(resource.get())->price());
        if (auto* site = qobject_cast<QResource_Sked_Site*>(resource.get()))
            seen << QString::number(site->sitePrice()) << (site->baseResource() == &base ? "base" : "other");
        QCOMPARE(seen.join(QLatin1Char(' ')).simplified(), kept);
    }
};

QTEST_GUILESS_MAIN(TestScene)
#include "tst_scene.moc"
