// The reference host: reading project files and the error messages of bad ones, the derivations on
// small schedules worked out by hand (forward pass, logic texts, link matrix, arrow-diagram
// findings, curve fluctuation) and the project data as the library sees it.
#include "datarow.h"
#include "hostprojectdata.h"
#include "projectreader.h"
#include "scheduleanalysis.h"

#include "markpointer.h"
#include "qresourcevirtual.h"

#include <QtTest>

using namespace Host;
using Points = QList<QPair<int, double>>;
using Curves = QList<CurveData>;
using Values = QList<double>;
Q_DECLARE_METATYPE(QList<Host::CurveData>)

namespace {

QByteArray schedule(const QByteArray& workItems, const QByteArray& extra = QByteArray()) {
    return R"({"product":"schedule","scene":"Site","workItems":)" + workItems + extra + "}";
}

// Two work items, A (3 days) and B (4 days, after A), with the text of more keys after them.
QByteArray twoItems(const QByteArray& extra = QByteArray()) {
    return schedule(
        R"([{"id":1,"name":"A","duration":3},{"id":2,"name":"B","duration":4,"predecessors":[1]}])", extra);
}

// The same with an arrow diagram of the nodes 1 to 3 and the arrows given.
QByteArray arrows(const QByteArray& list) {
    return twoItems(R"(,"arrowDiagram":{"nodes":[1,2,3],"arrows":[)" + list + "]}");
}

// "A:3;B:4:A;D:1:B,C": name, duration and predecessor names of each work item.
QList<WorkItemData> items(const QString& notation) {
    const QStringList entries = notation.split(';', Qt::SkipEmptyParts);
    QStringList names;
    for (const QString& entry : entries)
        names << entry.section(':', 0, 0);
    QList<WorkItemData> out;
    for (const QString& entry : entries) {
        WorkItemData item;
        item.id = out.size() + 1;
        item.name = names[out.size()];
        item.duration = entry.section(':', 1, 1).toInt();
        // A predecessor may carry its link type and lag: "A/ss2" is start-to-start with 2 days.
        for (const QString& link : entry.section(':', 2).split(',', Qt::SkipEmptyParts)) {
            const int p = names.indexOf(link.section('/', 0, 0));
            const QString kind = link.section('/', 1).left(2);
            const LinkType type = kind == "ss"   ? LinkType::StartToStart
                                  : kind == "ff" ? LinkType::FinishToFinish
                                  : kind == "sf" ? LinkType::StartToFinish
                                                 : LinkType::FinishToStart;
            item.predecessors << p;
            item.links << LinkData{p, type, link.section('/', 1).mid(2).toInt()};
        }
        out << item;
    }
    return out;
}

// "1>2 A,2>3 d|7": arrows carrying a work item (A is the first) or a dummy (d), then isolated nodes.
ArrowDiagram diagram(const QString& notation) {
    ArrowDiagram out;
    QList<int> nodes;
    for (const QString& text : notation.section('|', 0, 0).split(',', Qt::SkipEmptyParts)) {
        ArrowData arrow;
        arrow.from = text.section('>', 0, 0).toInt();
        arrow.to = text.section('>', 1).section(' ', 0, 0).toInt();
        arrow.workItem = text.endsWith('d') ? -1 : text.back().unicode() - 'A';
        nodes << arrow.from << arrow.to;
        out.arrows << arrow;
    }
    for (const QString& node : notation.section('|', 1).split(',', Qt::SkipEmptyParts))
        nodes << node.toInt();
    for (int node : qAsConst(nodes))
        if (!out.nodes.contains(node))
            out.nodes << node;
    return out;
}

CurveData curve(const QString& name, const Points& points) {
    CurveData out;
    out.name = name;
    for (const auto& point : points)
        out.points << CurvePoint{point.first, point.second};
    return out;
}

} // namespace

class TestHost : public QObject {
    Q_OBJECT
private slots:
    // A schedule read from its file, and as the library sees it through the project data.
    void readsProjects() {
        ProjectFile file;
        ReadError error;
        QVERIFY(readProjectDocument(
            R"({"product":"schedule","scene":"Site","workItems":[{"id":10,"name":"挖土","duration":14,"lineWidth":2},
            {"id":20,"name":"垫层","duration":7,"predecessors":[10,10]},{"id":30,"name":"挖土","duration":3}],
            "arrowDiagram":{"nodes":[1,2],"arrows":[{"from":1,"to":2,"workItem":20}]},
            "gantt":{"order":["垫层","挖土"]},"resources":[{"name":"砼","plannedTotal":40}]})",
            "s.json", file, error));
        QCOMPARE(file.schedule.workItems[0].lineWidth, QStringLiteral("2")); // a number becomes text
        QCOMPARE(file.schedule.workItems[1].predecessors, QList<int>{0});    // ids to positions, once
        QCOMPARE(file.schedule.diagram.arrows[0].workItem, 1);
        HostProjectData data(file.schedule);
        QProjectDataVirtual* contract = MarkPointer::projectData(data.handle());
        QList<void*> items{nullptr}; // a stale entry must not survive
        contract->GetWorkItemList(items);
        QMultiMap<QString, void*> byName;
        contract->GetWorkItemsByName(byName);
        QVERIFY(items.size() == 3 && byName.size() == 3 && byName.contains("挖土", items[0]) &&
                byName.contains("挖土", items[2]) && byName.contains("垫层", items[1]));
        QStringList names;
        contract->GetWorkItemNameList(names);
        QCOMPARE(names, (QStringList{"垫层", "挖土"}));
        QCOMPARE(contract->GetTotalDays(), 21); // 挖土 then 垫层; the second 挖土 runs beside them
        QList<QResourceVirtual*> resources;
        contract->GetResourceList(resources);
        QCOMPARE(resources.size(), 1);
        QCOMPARE(resources[0]->GetResourceName(), QStringLiteral("成品混凝土"));
        QCOMPARE(resources[0]->GetGeneralName(), QStringLiteral("混凝土/水泥、砂石计划曲线图"));

        // Defaults: plain scene, no diagram, Gantt order from the work items.
        QVERIFY(readProjectDocument(twoItems().replace(R"("scene":"Site",)", ""), "d.json", file, error));
        QVERIFY(file.schedule.scene == MarkCode::ScenePlain && !file.schedule.hasDiagram);
        QCOMPARE(file.schedule.gantt.order, (QStringList{"A", "B"}));
        QVERIFY(!readProjectFile(QStringLiteral("/no/such/file.json"), file, error));
        QVERIFY(error.toString().startsWith(QStringLiteral("/no/such/file.json: cannot be read: ")));
    }

    void errors_data() {
        QTest::addColumn<QByteArray>("document");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("message");
        row("syntax", QByteArray("{\n  \"product\": \"schedule\",\n  \"workItems\": [,]\n}"), "$",
            "expected a JSON document, but illegal value at line 3, column 18");
        row("not an object", QByteArray("[1]"), "$", "expected an object, found an array");
        row("unknown product", QByteArray(R"({"product":"Pine"})"), "$.product",
            R"(expected "schedule", "Ash", "Elm", "Fir", "Yew", "Oak" or "Shape", found "Pine")");
        row("unknown key", twoItems(R"(,"gant":{})"), "$.gant",
            "unknown key; expected one of formatVersion, product, scene, workItems, arrowDiagram, gantt, "
            "resources, resourceCurves");
        row("duration fraction", schedule(R"([{"id":1,"name":"A","duration":2.5}])"),
            "$.workItems[0].duration", "expected a whole number of days from 0 to 1000000, found 2.5");
        row("duplicate id",
            schedule(R"([{"id":1,"name":"A","duration":1},{"id":1,"name":"B","duration":1}])"),
            "$.workItems[1]", "expected an id not used before, found 1, the id of $.workItems[0]");
        row("unknown predecessor", schedule(R"([{"id":1,"name":"A","duration":1,"predecessors":[7]}])"),
            "$.workItems[0].predecessors[0]", "expected the id of a task, found 7, which no task has");
        row("cycle", schedule(R"([{"id":1,"name":"A","duration":1,"predecessors":[2]},
                                  {"id":2,"name":"B","duration":1,"predecessors":[1]}])"),
            "$.workItems", "expected predecessors without a cycle, found the cycle A → B → A");
        row("arrow node", arrows(R"({"from":1,"to":5,"workItem":1})"), "$.arrowDiagram.arrows[0].to",
            "expected a node number listed in $.arrowDiagram.nodes, found 5");
        row("arrow kind", arrows(R"({"from":1,"to":2})"), "$.arrowDiagram.arrows[0]",
            "expected either \"workItem\" or \"dummy\": true, found neither");
        row("diagram cycle", arrows(R"({"from":1,"to":2,"workItem":1},{"from":2,"to":3,"dummy":true},
                                       {"from":3,"to":2,"workItem":2})"),
            "$.arrowDiagram.arrows",
            "expected arrows without a cycle, found the cycle through nodes 2 → 3 → 2");
        row("curve amount beyond any site",
            twoItems(R"(,"resourceCurves":[{"name":"钢筋","points":[{"minute":9,"amount":1e308}]}])"),
            "$.resourceCurves[0].points[0].amount", "expected a number from 0 to 1000000000, found 1e+308");
        row("curve order", twoItems(R"(,"resourceCurves":[{"name":"钢筋","points":[{"minute":9,"amount":1},
                                                                                   {"minute":9,"amount":2}]}])"),
            "$.resourceCurves[0].points[1].minute", "expected a whole number of minutes after 9, found 9");
        row("half a band", QByteArray(R"({"product":"Elm","root":{"upperLimit":3}})"), "$.root.lowerLimit",
            "expected a number, given together with \"upperLimit\", found nothing");
    }

    void errors() {
        QFETCH(QByteArray, document);
        QFETCH(QString, path);
        QFETCH(QString, message);
        ProjectFile file;
        ReadError error;
        QVERIFY(readProjectDocument(twoItems(), QStringLiteral("a.json"), file, error));
        QVERIFY(!readProjectDocument(document, QStringLiteral("cand.json"), file, error));
        QCOMPARE(error.toString(), QStringLiteral("cand.json: %1: %2").arg(path, message));
        QVERIFY(file.schedule.workItems.isEmpty() && file.fileName.isEmpty()); // nothing half read is left
    }

    // Forward pass over typed links with lags and leads, or the cycle that stops it.
    void scheduleTimes_data() {
        QTest::addColumn<QString>("workItems"); // in the notation of items()
        QTest::addColumn<QString>("dates");     // start-finish of each item, "*" after a critical one
        QTest::addColumn<int>("total");
        QTest::addColumn<QVector<int>>("cycle"); // positions around a cycle, first repeated at the end
        row("diamond, predecessors listed later", "D:1:B,C;B:3:A;C:6:A;A:2", "8-9* 2-5 2-8* 0-2*", 9,
            QVector<int>());
        row("start-to-start with lag, finish-to-finish, start-to-finish", "A:5;B:3:A/ss2;C:2:B/ff1;D:4:A/sf0",
            "0-5* 2-5* 4-6* 0-4", 6, QVector<int>());
        row("lead never starts before day 0", "A:2;B:3:A/fs-4", "0-2 0-3*", 3, QVector<int>());
        row("lag on finish-to-start; parallel branch has float", "A:1;B:2:A/fs3;C:1:A", "0-1* 4-6* 1-2", 6,
            QVector<int>());
        row("cycle", "A:1:C;B:1:A;C:1:B", "", -1, QVector<int>{0, 1, 2, 0});
        row("self", "A:1;B:1:B", "", -1, QVector<int>{1, 1});
        row("cycle behind a tail", "A:1;B:1:A,D;C:1:B;D:1:C;E:1:D", "", -1, QVector<int>{1, 2, 3, 1});
    }

    void scheduleTimes() {
        QFETCH(QString, workItems);
        QFETCH(QString, dates);
        QFETCH(int, total);
        QFETCH(QVector<int>, cycle);
        int days = -1;
        QVector<int> found;
        QList<WorkItemData> list = items(workItems);
        QCOMPARE(Host::scheduleTimes(list, days, found), cycle.isEmpty());
        QCOMPARE(found, cycle);
        if (!cycle.isEmpty())
            return;
        QCOMPARE(days, total);
        QStringList times;
        for (const WorkItemData& item : list)
            times << QStringLiteral("%1-%2%3").arg(item.start).arg(item.finish).arg(item.critical ? "*" : "");
        QCOMPARE(times.join(' '), dates);
    }

    void logicTextsAndLinks() {
        // 基础 appears twice: its entries are the distinct predecessors of both, in first-seen order.
        const QList<WorkItemData> list = items("挖土:5;垫层:2:挖土;基础:7:垫层;基础:3:挖土,垫层");
        const LogicTexts texts = logicTexts(list);
        QCOMPARE(texts.names, (QStringList{"挖土", "垫层", "基础"}));
        QCOMPARE(texts.chains, (QStringList{"挖土", "挖土;垫层", "垫层;基础&挖土;基础"}));
        QCOMPARE(texts.displays, (QStringList{"挖土", "挖土→垫层", "垫层→基础;挖土→基础"}));

        LinkMatrix links;
        QVERIFY(linkMatrix(list, networkItems(list, chainNames(texts.chains)), links));
        QCOMPARE(links.nodes.values(QStringLiteral("基础")), (QList<int>{3, 2})); // most recent first
        QSet<QPair<int, int>> ones;
        for (int p = 0; p < links.count; ++p)
            for (int q = 0; q < links.count; ++q)
                if (links.matrix[p][q])
                    ones.insert(qMakePair(p, q));
        QCOMPARE(ones, (QSet<QPair<int, int>>{{0, 1}, {1, 2}, {0, 3}, {1, 3}}));
        freeLinkMatrix(links);
        QVERIFY(!links.matrix && !links.count);
    }

    void diagramFindings_data() {
        QTest::addColumn<QString>("layout"); // in the notation of diagram(); "-": not drawn
        QTest::addColumn<QString>("startEnd");
        QTest::addColumn<QString>("broken");
        QTest::addColumn<QString>("surplus");
        row("dummy that carries B to D", "1>2 A,2>3 B,2>4 C,3>4 d,4>5 D", "", "", "");
        row("dummy beside a path", "1>2 A,2>3 B,3>4 C,2>4 d", "", "", "2-4");
        row("dummy into the end with nothing after", "1>2 A,1>3 B,2>5 C,3>4 D,3>5 d",
            "开始节点：1；结束节点：4、5", "断开处节点编号：4", "3-5");
        row("isolated node", "1>2 A|3", "开始节点：1、3；结束节点：2、3", "断开处节点编号：3", "");
        row("chain cut, shortcut to the end", "1>2 A,2>3 B,4>5 C,5>6 D,2>6 E",
            "开始节点：1、4；结束节点：3、6", "断开处节点编号：3、4", "");
        row("two surplus", "1>2 A,2>3 B,1>3 d,2>3 d", "", "", "1-3、2-3");
        row("empty", "", "开始节点：无；结束节点：无", "", "");
        row("not drawn", "-", "未绘制网络图", "", "");
    }

    void diagramFindings() {
        QFETCH(QString, layout);
        QFETCH(QString, startEnd);
        QFETCH(QString, broken);
        QFETCH(QString, surplus);
        const NetworkFindings findings = analyseDiagram(diagram(layout), layout != QLatin1String("-"));
        QCOMPARE((QStringList{findings.startEndText, findings.brokenText, findings.surplusNodes}),
                 (QStringList{startEnd, broken, surplus}));
        QCOMPARE((QList<bool>{findings.singleStartEnd, findings.broken, findings.surplusDummy}),
                 (QList<bool>{startEnd.isEmpty(), !broken.isEmpty(), !surplus.isEmpty()}));
    }

    void fluctuation_data() {
        QTest::addColumn<int>("days");
        QTest::addColumn<Curves>("curves");
        QTest::addColumn<Values>("values"); // of the groups 29 to 32, -1 for a group without curves
        // Axis of 2 days = 2880 minutes.
        row("first half only", 2, Curves{curve("钢筋工", {{1440, 4.0}, {2880, 0.0}})}, Values{4, -1, -1, -1});
        row("ends before the axis", 2, Curves{curve("钢筋工", {{1440, 2.0}})}, Values{1, -1, -1, -1});
        row("cut at the axis", 2, Curves{curve("钢筋工", {{1440, 1.0}, {4320, 3.0}})}, Values{1, -1, -1, -1});
        row("zero duration", 0, Curves{curve("钢筋工", {{1440, 4.0}})}, Values{-1, -1, -1, -1});
        // 钢筋工 and 木工 (a form worker once normalised) add up to a flat 4: no fluctuation in 29.
        // 钢筋 (rebar material once normalised) and 成品钢筋 add up to 2 then 6: mean 4, variance 4.
        row("groups", 2,
            Curves{curve("钢筋工", {{1440, 4.0}}), curve("木工", {{1440, 0.0}, {2880, 4.0}}),
                   curve("钢筋", {{2880, 2.0}}), curve("成品钢筋", {{1440, 0.0}, {2880, 4.0}}),
                   curve("模板", {{2880, 1.0}})},
            Values{0, 4, -1, 0});
    }

    void fluctuation() {
        QFETCH(int, days);
        QFETCH(Curves, curves);
        QFETCH(Values, values);
        const QHash<QString, QString> names{{"木工", "模板工"}, {"钢筋", "钢筋原材"}};
        const auto canonical = [&names](const QString& name) { return names.value(name, name); };
        QCOMPARE(curveFluctuation(curves, days, canonical).values(), values);
    }
};

QTEST_GUILESS_MAIN(TestHost)
#include "tst_host.moc"
