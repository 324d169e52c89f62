// Reading project files: valid files of each product and the error messages of bad ones.
#include "projectreader.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace Host;

namespace {

QByteArray schedule(const QByteArray& workItems, const QByteArray& extra = QByteArray()) {
    return "{\"product\":\"schedule\",\"scene\":\"Site\",\"workItems\":" + workItems + extra + "}";
}

const QByteArray twoItems =
    R"([{"id":1,"name":"A","duration":3},{"id":2,"name":"B","duration":4,"predecessors":[1]}])";

} // namespace

class TestHostReader : public QObject {
    Q_OBJECT
private slots:
    void readsSchedule();
    void readsPricingAndModel();
    void errors_data();
    void errors();
    void unreadableFile();
    void failedReadLeavesNothing();
};

void TestHostReader::readsSchedule() {
    const QByteArray doc = schedule(
        R"([{"id":10,"name":"挖土","quantityCode":"010101","quantityName":"挖一般土方","unit":"m³",
            "plannedQuantity":12.5,"duration":14,"fixedDuration":true,"color":"255,0,0","lineWidth":2,
            "labourIntensity":"2","crew":"土方班","materialTotal":3.5},
           {"id":20,"name":"垫层","duration":7,"predecessors":[10,10]}])",
        R"(,"arrowDiagram":{"nodes":[1,2,3],"arrows":[{"from":1,"to":2,"workItem":10},{"from":2,"to":3,"workItem":20}]},
           "gantt":{"timeUnit":"工程周","rowsPerPage":30,"order":["垫层","挖土"]},
           "resources":[{"name":"砼","plannedTotal":40,"code":"R1","unit":"m³"}],
           "resourceCurves":[{"name":"钢筋工","drawnByCandidate":true,"points":[{"minute":1440,"amount":2},{"minute":2880,"amount":0}]}])");
    ProjectFile file;
    ReadError error;
    QVERIFY2(readProjectDocument(doc, QStringLiteral("s.json"), file, error), qPrintable(error.toString()));
    QCOMPARE(file.kind, ProjectKind::Schedule);
    const ScheduleProject& p = file.schedule;
    QCOMPARE(p.scene, int(SiteScene));
    QCOMPARE(p.workItems.size(), 2);
    const WorkItemData& dig = p.workItems[0];
    QCOMPARE(dig.name, QStringLiteral("挖土"));
    QCOMPARE(dig.unit, QStringLiteral("m³"));
    QCOMPARE(dig.plannedQuantity, 12.5);
    QVERIFY(dig.fixedDuration);
    QCOMPARE(dig.lineWidth, QStringLiteral("2")); // a number becomes text
    QCOMPARE(dig.crew, QStringLiteral("土方班"));
    QCOMPARE(p.workItems[1].predecessors, QList<int>{0}); // ids resolved to positions, repeats dropped
    QCOMPARE(p.totalDays, 21);
    QVERIFY(p.hasDiagram);
    QCOMPARE(p.diagram.arrows.size(), 2);
    QCOMPARE(p.diagram.arrows[1].workItem, 1);
    QCOMPARE(p.gantt.order, (QStringList{QStringLiteral("垫层"), QStringLiteral("挖土")}));
    QCOMPARE(p.gantt.rowsPerPage, 30);
    QCOMPARE(p.resources[0].plannedTotal, 40);
    QCOMPARE(p.curves[0].points[1].minute, 2880);
    QVERIFY(p.curves[0].drawnByCandidate);

    // Defaults: plain scene, no diagram, Gantt order from the work items.
    QVERIFY(readProjectDocument("{\"product\":\"schedule\",\"workItems\":" + twoItems + "}",
                                QStringLiteral("d.json"), file, error));
    QCOMPARE(file.schedule.scene, int(PlainScene));
    QVERIFY(!file.schedule.hasDiagram);
    QCOMPARE(file.schedule.gantt.order, (QStringList{QStringLiteral("A"), QStringLiteral("B")}));
    QCOMPARE(file.schedule.totalDays, 7);
}

void TestHostReader::readsPricingAndModel() {
    ProjectFile file;
    ReadError error;
    QVERIFY(readProjectDocument(R"({"product":"Yew","root":{"name":"工程","items":[
        {"name":"土方","code":"01","attribute":10,"rate":12.5,"upperLimit":6,"lowerLimit":1,"precision":3}]}})",
                                QStringLiteral("p.json"), file, error));
    QCOMPARE(file.kind, ProjectKind::Pricing);
    QCOMPARE(file.product, int(Yew));
    QCOMPARE(file.root.items[0].rate, 12.5);
    QVERIFY(file.root.items[0].hasLimits);
    QCOMPARE(file.root.items[0].precision, 3);
    QVERIFY(!file.root.hasLimits);

    QVERIFY(readProjectDocument(R"({"product":"Shape","root":{"name":"模型","items":[
        {"name":"墙厚","value":240},{"name":"材质","value":"C30"},{"name":"层数","value":"5","dataType":"integer",
         "indexRule":4,"attributeData":["a","b"],"scoreRule":1}]}})",
                                QStringLiteral("m.json"), file, error));
    QCOMPARE(file.kind, ProjectKind::Model);
    QCOMPARE(file.root.items[0].dataType, int(TreeItemData::Number));
    QCOMPARE(file.root.items[0].value, QStringLiteral("240"));
    QCOMPARE(file.root.items[1].dataType, int(TreeItemData::Text));
    QCOMPARE(file.root.items[2].dataType, int(TreeItemData::Integer));
    QCOMPARE(file.root.items[2].attributeData, (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    QCOMPARE(file.root.items[1].indexRule, 1); // matched by name unless said otherwise
}

void TestHostReader::errors_data() {
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("message");

    QTest::newRow("syntax") << QByteArray("{\n  \"product\": \"schedule\",\n  \"workItems\": [,]\n}") << "$"
                            << "expected a JSON document, but illegal value at line 3, column 18";
    QTest::newRow("not an object") << QByteArray("[1]") << "$"
                                   << "expected an object, found an array";
    QTest::newRow("no product") << QByteArray("{}") << "$.product"
                                << "expected a text, found nothing";
    QTest::newRow("unknown product")
        << QByteArray("{\"product\":\"Pine\"}") << "$.product"
        << "expected \"schedule\", \"Ash\", \"Elm\", \"Fir\", \"Yew\", \"Oak\" or "
           "\"Shape\", found \"Pine\"";
    QTest::newRow("version") << QByteArray("{\"formatVersion\":2,\"product\":\"Ash\",\"root\":{}}")
                             << "$.formatVersion"
                             << "expected 1, found 2";
    QTest::newRow("unknown key") << schedule(twoItems, ",\"gant\":{}") << "$.gant"
                                 << "unknown key; expected one of formatVersion, product, scene, workItems, "
                                    "arrowDiagram, gantt, resources, resourceCurves";
    QTest::newRow("scene") << QByteArray("{\"product\":\"schedule\",\"scene\":\"site\",\"workItems\":[]}")
                           << "$.scene"
                           << "expected \"plain\", \"Site\" or \"Twin\", found \"site\"";
    QTest::newRow("no work items") << QByteArray("{\"product\":\"schedule\"}") << "$.workItems"
                                   << "expected an array, found nothing";
    QTest::newRow("duration text") << schedule(R"([{"id":1,"name":"A","duration":"14天"}])")
                                   << "$.workItems[0].duration"
                                   << "expected a whole number of days of at least 0, found \"14天\"";
    QTest::newRow("duration fraction")
        << schedule(R"([{"id":1,"name":"A","duration":2.5}])") << "$.workItems[0].duration"
        << "expected a whole number of days of at least 0, found 2.5";
    QTest::newRow("name separator") << schedule(R"([{"id":1,"name":"A;B","duration":1}])")
                                    << "$.workItems[0].name"
                                    << "expected a non-empty text without ';' or '&', found \"A;B\"";
    QTest::newRow("duplicate id")
        << schedule(R"([{"id":1,"name":"A","duration":1},{"id":1,"name":"B","duration":1}])")
        << "$.workItems[1].id"
        << "expected an id not used before, found 1, the id of $.workItems[0]";
    QTest::newRow("unknown predecessor")
        << schedule(R"([{"id":1,"name":"A","duration":1,"predecessors":[7]}])")
        << "$.workItems[0].predecessors[0]"
        << "expected the id of a work item, found 7, which no work item has";
    QTest::newRow("fixed flag") << schedule(R"([{"id":1,"name":"A","duration":1,"fixedDuration":"yes"}])")
                                << "$.workItems[0].fixedDuration"
                                << "expected true or false, found \"yes\"";
    QTest::newRow("colour") << schedule(R"([{"id":1,"name":"A","duration":1,"color":[255,0,0]}])")
                            << "$.workItems[0].color"
                            << "expected a text or a number, found an array";
    QTest::newRow("cycle") << schedule(R"([{"id":1,"name":"A","duration":1,"predecessors":[3]},
                                          {"id":2,"name":"B","duration":1,"predecessors":[1]},
                                          {"id":3,"name":"C","duration":1,"predecessors":[2]}])")
                           << "$.workItems"
                           << "expected predecessors without a cycle, found the cycle A → B → C → A";
    QTest::newRow("self cycle") << schedule(R"([{"id":1,"name":"A","duration":1,"predecessors":[1]}])")
                                << "$.workItems"
                                << "expected predecessors without a cycle, found the cycle A → A";
    QTest::newRow("arrow node")
        << schedule(twoItems, R"(,"arrowDiagram":{"nodes":[1,2],"arrows":[{"from":1,"to":5,"workItem":1}]})")
        << "$.arrowDiagram.arrows[0].to"
        << "expected a node number listed in $.arrowDiagram.nodes, found 5";
    QTest::newRow("arrow kind") << schedule(twoItems,
                                            R"(,"arrowDiagram":{"nodes":[1,2],"arrows":[{"from":1,"to":2}]})")
                                << "$.arrowDiagram.arrows[0]"
                                << "expected either \"workItem\" or \"dummy\": true, found neither";
    QTest::newRow("arrow loop")
        << schedule(twoItems, R"(,"arrowDiagram":{"nodes":[1,2],"arrows":[{"from":2,"to":2,"dummy":true}]})")
        << "$.arrowDiagram.arrows[0].to"
        << "expected a node other than \"from\", found 2";
    QTest::newRow("arrow work item")
        << schedule(twoItems, R"(,"arrowDiagram":{"nodes":[1,2],"arrows":[{"from":1,"to":2,"workItem":9}]})")
        << "$.arrowDiagram.arrows[0].workItem"
        << "expected the id of a work item, found 9, which no work item has";
    QTest::newRow("repeated node") << schedule(twoItems, R"(,"arrowDiagram":{"nodes":[1,2,1],"arrows":[]})")
                                   << "$.arrowDiagram.nodes[2]"
                                   << "expected a node number not listed before, found 1";
    QTest::newRow("diagram cycle")
        << schedule(twoItems, R"(,"arrowDiagram":{"nodes":[1,2,3],"arrows":[{"from":1,"to":2,"workItem":1},
                                 {"from":2,"to":3,"workItem":2},{"from":3,"to":2,"dummy":true}]})")
        << "$.arrowDiagram.arrows"
        << "expected arrows without a cycle, found the cycle through nodes 2 → 3 → 2";
    QTest::newRow("rows") << schedule(twoItems, R"(,"gantt":{"rowsPerPage":-1})") << "$.gantt.rowsPerPage"
                          << "expected a whole number of at least 0, found -1";
    QTest::newRow("gantt order") << schedule(twoItems, R"(,"gantt":{"order":["A",2]})") << "$.gantt.order[1]"
                                 << "expected a text, found 2";
    QTest::newRow("resource name") << schedule(twoItems, R"(,"resources":[{"plannedTotal":3}])")
                                   << "$.resources[0].name"
                                   << "expected a text, found nothing";
    QTest::newRow("curve order")
        << schedule(
               twoItems,
               R"(,"resourceCurves":[{"name":"钢筋","points":[{"minute":100,"amount":1},{"minute":100,"amount":2}]}])")
        << "$.resourceCurves[0].points[1].minute"
        << "expected a whole number of minutes after 100, found 100";
    QTest::newRow("curve amount")
        << schedule(twoItems, R"(,"resourceCurves":[{"name":"钢筋","points":[{"minute":100,"amount":-1}]}])")
        << "$.resourceCurves[0].points[0].amount"
        << "expected a number of at least 0, found -1";
    QTest::newRow("pricing root") << QByteArray("{\"product\":\"Ash\"}") << "$.root"
                                  << "expected an object, found nothing";
    QTest::newRow("pricing child") << QByteArray(R"({"product":"Oak","root":{"items":[{"rate":"x"}]}})")
                                   << "$.root.items[0].rate"
                                   << "expected a number, found \"x\"";
    QTest::newRow("half a band") << QByteArray(R"({"product":"Elm","root":{"upperLimit":3}})")
                                 << "$.root.lowerLimit"
                                 << "expected a number, given together with \"upperLimit\", found nothing";
    QTest::newRow("pricing key in model")
        << QByteArray(R"({"product":"Shape","root":{"rate":3}})") << "$.root.rate"
        << "unknown key; expected one of name, code, unit, value, dataType, "
           "indexRule, scoreRule, attribute, upperLimit, lowerLimit, precision, "
           "attributeData, items";
    QTest::newRow("data type") << QByteArray(R"({"product":"Shape","root":{"dataType":"float"}})")
                               << "$.root.dataType"
                               << "expected \"text\", \"number\" or \"integer\", found \"float\"";
    QTest::newRow("precision") << QByteArray(R"({"product":"Fir","root":{"precision":11}})")
                               << "$.root.precision"
                               << "expected a whole number from 0 to 10, found 11";
}

void TestHostReader::errors() {
    QFETCH(QByteArray, document);
    QFETCH(QString, path);
    QFETCH(QString, message);
    ProjectFile file;
    ReadError error;
    QVERIFY(!readProjectDocument(document, QStringLiteral("cand.json"), file, error));
    QCOMPARE(error.file, QStringLiteral("cand.json"));
    QCOMPARE(error.path, path);
    QCOMPARE(error.message, message);
    QCOMPARE(error.toString(), QStringLiteral("cand.json: %1: %2").arg(path, message));
}

void TestHostReader::unreadableFile() {
    QTemporaryDir dir;
    const QString missing = dir.filePath(QStringLiteral("missing.json"));
    ProjectFile file;
    ReadError error;
    QVERIFY(!readProjectFile(missing, file, error));
    QCOMPARE(error.file, missing);
    QVERIFY(error.path.isEmpty());
    QVERIFY(error.message.startsWith(QStringLiteral("cannot be read: ")));
    QVERIFY(error.toString().startsWith(missing + QStringLiteral(": cannot be read")));
}

void TestHostReader::failedReadLeavesNothing() {
    // An error late in the file must not leave the earlier part behind in the output.
    ProjectFile file;
    ReadError error;
    QVERIFY(readProjectDocument(schedule(twoItems), QStringLiteral("a.json"), file, error));
    QVERIFY(!readProjectDocument(schedule(twoItems, R"(,"resources":[{"name":1}])"), QStringLiteral("b.json"),
                                 file, error));
    QVERIFY(file.schedule.workItems.isEmpty());
    QVERIFY(file.fileName.isEmpty());
}

QTEST_GUILESS_MAIN(TestHostReader)
#include "tst_host_reader.moc"
