// The host's project data as the library sees it through the host contract, its element types, and
// one side of a schedule made through the category factory.
#include "hostprojectdata.h"
#include "projectreader.h"
#include "schedulecategories.h"

#include "markpointer.h"
#include "qmarkcategorybase.h"
#include "qresourcebase.h"

#include <QPointer>
#include <QtTest>

using namespace Host;

namespace {

ScheduleProject sampleProject() {
    const QByteArray document = R"({"product":"schedule","scene":"Site","workItems":[
        {"id":1,"name":"挖土","quantityCode":"010101","quantityName":"挖一般土方","unit":"m³","plannedQuantity":7.99,
         "duration":14,"color":"255,0,0","lineWidth":"2","labourIntensity":"2","crew":"土方班","materialTotal":0.5},
        {"id":2,"name":"垫层","duration":7,"fixedDuration":true,"predecessors":[1]},
        {"id":3,"name":"挖土","duration":3}],
      "arrowDiagram":{"nodes":[1,2,3],"arrows":[{"from":1,"to":2,"workItem":1},{"from":2,"to":3,"workItem":2},
                                               {"from":1,"to":3,"workItem":3},{"from":1,"to":2,"dummy":true}]},
      "gantt":{"timeUnit":"工程周","rowsPerPage":2,"order":["垫层","挖土"]},
      "resources":[{"name":"砼","plannedTotal":40},{"name":"钢筋工","plannedTotal":12}],
      "resourceCurves":[{"name":"钢筋工","drawnByCandidate":true,"points":[{"minute":10080,"amount":2}]}]})";
    ProjectFile file;
    ReadError error;
    if (!readProjectDocument(document, QStringLiteral("sample.json"), file, error))
        qFatal("%s", qPrintable(error.toString()));
    return file.schedule;
}

} // namespace

class TestHostProjectData : public QObject {
    Q_OBJECT
private slots:
    void workItemsThroughTheContract();
    void listsForTheCategories();
    void elementTypesOwnTheirItems();
    void resourcesThroughTheFactory();
    void sideHandsOverFindings();
    void sideWithoutFactories();
};

void TestHostProjectData::workItemsThroughTheContract() {
    HostProjectData data(sampleProject());
    QProjectDataVirtual* contract = MarkPointer::projectData(data.handle());
    QCOMPARE(contract, static_cast<QProjectDataVirtual*>(&data));

    QList<void*> items{nullptr}; // the library passes lists empty; a stale entry must not survive
    contract->GetWorkItemList(items);
    QCOMPARE(items.size(), 3);
    QWorkItemVirtual* dig = MarkPointer::workItem(items[0]);
    QVERIFY(dig);
    QCOMPARE(dig->GetWorkItemName(), QStringLiteral("挖土"));
    QCOMPARE(dig->GetQuantityCode(), QStringLiteral("010101"));
    QCOMPARE(dig->GetQuantityName(), QStringLiteral("挖一般土方"));
    QCOMPARE(dig->GetUnit(), QStringLiteral("m³"));
    QCOMPARE(dig->GetPlannedQuantity(), 7.99);
    QString duration;
    dig->GetDuration(duration);
    QCOMPARE(duration, QStringLiteral("14"));
    QCOMPARE(dig->GetColor(), QStringLiteral("255,0,0"));
    QCOMPARE(dig->GetLineWidth(), QStringLiteral("2"));
    QString crew;
    QCOMPARE(dig->GetLabourIntensity(crew), QStringLiteral("2"));
    QCOMPARE(crew, QStringLiteral("土方班"));
    QCOMPARE(dig->GetMaterialTotal(), 0.5);
    QCOMPARE(dig->IsFixedDuration(), 0);
    QCOMPARE(MarkPointer::workItem(items[1])->IsFixedDuration(), 1);

    QMultiMap<QString, void*> byName;
    contract->GetWorkItemsByName(byName);
    QCOMPARE(byName.count(QStringLiteral("挖土")), 2);
    QCOMPARE(byName.count(QStringLiteral("垫层")), 1);
    QVERIFY(byName.values(QStringLiteral("挖土")).contains(items[2]));
}

void TestHostProjectData::listsForTheCategories() {
    HostProjectData data(sampleProject());
    QStringList names;
    data.GetWorkItemNameList(names);
    QCOMPARE(names, (QStringList{QStringLiteral("垫层"), QStringLiteral("挖土")}));
    QCOMPARE(data.GetTotalDays(), 21); // 挖土 14 then 垫层 7; the second 挖土 runs beside them

    QStringList logicNames, displays, chains;
    data.GetLogicTexts(logicNames, displays, chains);
    QCOMPARE(logicNames, (QStringList{QStringLiteral("挖土"), QStringLiteral("垫层")}));
    QCOMPARE(chains, (QStringList{QStringLiteral("挖土"), QStringLiteral("挖土;垫层")}));
    QCOMPARE(displays, (QStringList{QStringLiteral("挖土"), QStringLiteral("挖土→垫层")}));

    data.SetWorkItemNameList({QStringLiteral("x")});
    QCOMPARE(data.receivedNames(), QStringList{QStringLiteral("x")});
}

void TestHostProjectData::elementTypesOwnTheirItems() {
    HostProjectData data(sampleProject());
    QClassifyVirtual* type = data.CreateElementType(1);
    QClassifyVirtual* other = data.CreateElementType(1);
    QVERIFY(type && other && type != other); // a fresh object per call
    QPointer<QClassifyItemVirtual> added = type->CreateElementItem(1);
    QPointer<QClassifyItemVirtual> dropped = type->CreateElementItem(1);
    added->SetItemName(QStringLiteral("临建建造"));
    added->SetItemIndex(2);
    added->SetItemValue(3.5);
    type->AddElementItem(added);
    type->AddElementItem(nullptr);
    type->SetElementKind(3);
    type->SetPrevName(QStringLiteral("a"));
    type->SetNextName(QStringLiteral("b"));
    type->SetElementName(QStringLiteral("c"));
    auto* host = qobject_cast<HostElementType*>(type);
    QVERIFY(host);
    QCOMPARE(host->kind, 3);
    QCOMPARE(host->createdKind, 1);
    QCOMPARE(host->items.size(), 1);
    auto* item = qobject_cast<HostElementItem*>(host->items[0]);
    QCOMPARE(item->name, QStringLiteral("临建建造"));
    QCOMPARE(item->index, 2);
    QCOMPARE(item->value, 3.5);
    QCOMPARE(host->prevName + host->nextName + host->name, QStringLiteral("abc"));
    delete type; // the caller owns element types; they take their items with them
    delete other;
    QVERIFY(added.isNull());
    QVERIFY(dropped.isNull());
}

void TestHostProjectData::resourcesThroughTheFactory() {
    HostProjectData data(sampleProject());
    QList<QResourceVirtual*> resources;
    data.GetResourceList(resources);
    QResourceVirtual* probe = QResourceBase::CreateResource(ScheduleProduct, SiteScene);
    if (!probe) {
        QVERIFY(!data.resourcesAvailable());
        QVERIFY(resources.isEmpty());
        QCOMPARE(data.canonicalName(QStringLiteral("砼")),
                 QStringLiteral("砼")); // unchanged without the factory
        QSKIP("the resource factory gives no object yet");
    }
    delete probe;
    QVERIFY(data.resourcesAvailable());
    QCOMPARE(resources.size(), 2);
    QCOMPARE(resources[0]->GetResourceName(), QStringLiteral("成品混凝土"));
    QCOMPARE(resources[0]->GetResPlanTotal(), 40);
    QCOMPARE(resources[0]->GetGeneralName(), QStringLiteral("混凝土/水泥、砂石计划曲线图"));
    QCOMPARE(resources[1]->GetGeneralName(), QStringLiteral("钢筋工曲线图"));
    QCOMPARE(data.canonicalName(QStringLiteral("砼")), QStringLiteral("成品混凝土"));
}

void TestHostProjectData::sideHandsOverFindings() {
    // The diagram has one start (1) and one end (3), and the dummy 1-2 lies beside 挖土's arrow.
    ScheduleSide side(sampleProject(), SiteScene, true);
    QMarkCategoryVirtual* principles = side.category(7);
    if (!principles)
        QSKIP("the category factory gives no network-plan principle category yet");
    QVERIFY(principles->GetMarkBeginEndOnlyDot());
    QCOMPARE(side.category(7), principles); // made once
}

void TestHostProjectData::sideWithoutFactories() {
    // Whatever the factories give, a side is made, asked for every category and destroyed without
    // leaks or crashes; curves that found no holder are named in the notes.
    ScheduleSide side(sampleProject(), SiteScene, true);
    for (int type : ScheduleSide::categoryTypes())
        side.category(type);
    if (QMarkCategoryVirtual* probe =
            QMarkCategoryBase::CreateMarkCategoryByType(ScheduleProduct, SiteScene, 4)) {
        delete probe;
        QVERIFY(!side.notes().join(QLatin1Char('\n')).contains(QStringLiteral("resource curve")));
    } else {
        QVERIFY(!side.category(4));
        QVERIFY(side.notes().isEmpty()); // no scoring category: no holders were wanted
    }
}

QTEST_GUILESS_MAIN(TestHostProjectData)
#include "tst_host_projectdata.moc"
