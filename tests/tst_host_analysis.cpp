// The host's derivations on small schedules worked out by hand: total duration, logic texts, the
// judged network, the arrow-diagram findings and the curve fluctuation values.
#include "scheduleanalysis.h"

#include <QtTest>

using namespace Host;

namespace {

// "A:3;B:4:A;D:1:B,C": name, duration and predecessor names, per work item.
QList<WorkItemData> items(const QString& spec) {
    QList<WorkItemData> out;
    QHash<QString, int> position;
    const QStringList entries = spec.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString& entry : entries) {
        const QStringList parts = entry.split(QLatin1Char(':'));
        WorkItemData item;
        item.id = out.size() + 1;
        item.name = parts[0];
        item.duration = parts[1].toInt();
        position.insert(item.name, out.size());
        out.append(item);
    }
    for (int i = 0; i < entries.size(); ++i) {
        const QStringList parts = entries[i].split(QLatin1Char(':'));
        if (parts.size() > 2)
            for (const QString& name : parts[2].split(QLatin1Char(',')))
                out[i].predecessors.append(position.value(name));
    }
    return out;
}

// "1>2 A,2>3 d": arrows with a work-item position (A = 0, B = 1, ...) or d for a dummy; extra
// isolated nodes after a "|".
ArrowDiagram diagram(const QString& spec) {
    ArrowDiagram out;
    const QStringList halves = spec.split(QLatin1Char('|'));
    auto addNode = [&out](int n) {
        if (!out.nodes.contains(n))
            out.nodes.append(n);
    };
    for (const QString& text : halves[0].split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const QStringList parts = text.split(QLatin1Char(' '));
        const QStringList ends = parts[0].split(QLatin1Char('>'));
        ArrowData arrow;
        arrow.from = ends[0].toInt();
        arrow.to = ends[1].toInt();
        arrow.workItem = parts[1] == QLatin1String("d") ? -1 : parts[1].at(0).unicode() - 'A';
        addNode(arrow.from);
        addNode(arrow.to);
        out.arrows.append(arrow);
    }
    if (halves.size() > 1)
        for (const QString& node : halves[1].split(QLatin1Char(','), Qt::SkipEmptyParts))
            addNode(node.toInt());
    return out;
}

CurveData curve(const QString& name, const QList<QPair<int, double>>& points) {
    CurveData out;
    out.name = name;
    for (const auto& point : points)
        out.points.append(CurvePoint{point.first, point.second});
    return out;
}

using Points = QList<QPair<int, double>>;

} // namespace

class TestHostAnalysis : public QObject {
    Q_OBJECT
private slots:
    void totalDuration_data();
    void totalDuration();
    void cycles_data();
    void cycles();
    void logicTextsPerName();
    void linkMatrixOfPredecessors();
    void diagramFindings_data();
    void diagramFindings();
    void diagramNotDrawn();
    void fluctuation_data();
    void fluctuation();
    void fluctuationGroups();
    void chartNames();
};

void TestHostAnalysis::totalDuration_data() {
    QTest::addColumn<QString>("spec");
    QTest::addColumn<int>("total");
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("one") << "A:5" << 5;
    QTest::newRow("chain beside a longer single") << "A:3;B:4:A;C:5" << 7;
    QTest::newRow("diamond") << "A:2;B:3:A;C:6:A;D:1:B,C" << 9;
    QTest::newRow("predecessor listed later") << "D:1:B,C;B:3:A;C:6:A;A:2" << 9;
    QTest::newRow("zero durations") << "A:0;B:0:A" << 0;
    QTest::newRow("two ends") << "A:4;B:10:A;C:1:A" << 14;
}

void TestHostAnalysis::totalDuration() {
    QFETCH(QString, spec);
    QFETCH(int, total);
    int days = -1;
    QVector<int> cycle;
    QVERIFY(forwardPass(items(spec), days, cycle));
    QCOMPARE(days, total);
    QVERIFY(cycle.isEmpty());
}

void TestHostAnalysis::cycles_data() {
    QTest::addColumn<QString>("spec");
    QTest::addColumn<QVector<int>>("cycle");
    QTest::newRow("three") << "A:1:C;B:1:A;C:1:B" << QVector<int>{0, 1, 2, 0};
    QTest::newRow("self") << "A:1;B:1:B" << QVector<int>{1, 1};
    QTest::newRow("cycle behind a tail") << "A:1;B:1:A,D;C:1:B;D:1:C;E:1:D" << QVector<int>{1, 2, 3, 1};
}

void TestHostAnalysis::cycles() {
    QFETCH(QString, spec);
    QFETCH(QVector<int>, cycle);
    int days = -1;
    QVector<int> found;
    QVERIFY(!forwardPass(items(spec), days, found));
    QCOMPARE(found, cycle);
}

void TestHostAnalysis::logicTextsPerName() {
    // 基础 appears twice: its entries are the distinct predecessors of both, in first-seen order.
    QList<WorkItemData> list = items(QStringLiteral("挖土:5;垫层:2:挖土;基础:7:垫层;基础:3:挖土,垫层"));
    const LogicTexts texts = logicTexts(list);
    QCOMPARE(texts.names,
             (QStringList{QStringLiteral("挖土"), QStringLiteral("垫层"), QStringLiteral("基础")}));
    QCOMPARE(texts.chains, (QStringList{QStringLiteral("挖土"), QStringLiteral("挖土;垫层"),
                                        QStringLiteral("垫层;基础&挖土;基础")}));
    QCOMPARE(texts.displays, (QStringList{QStringLiteral("挖土"), QStringLiteral("挖土→垫层"),
                                          QStringLiteral("垫层→基础;挖土→基础")}));
    // One display text per chain entry, as the logic rule reads them.
    for (int i = 0; i < texts.names.size(); ++i)
        QCOMPARE(texts.displays[i].split(QLatin1Char(';')).size(),
                 texts.chains[i].split(QLatin1Char('&')).size());
}

void TestHostAnalysis::linkMatrixOfPredecessors() {
    LinkMatrix links = linkMatrix(items(QStringLiteral("挖土:5;垫层:2:挖土;基础:7:垫层;基础:3:挖土,垫层")));
    QCOMPARE(links.count, 4);
    QCOMPARE(links.nodes.values(QStringLiteral("基础")), (QList<int>{3, 2})); // most recent first
    QCOMPARE(links.nodes.value(QStringLiteral("挖土")), 0);
    QSet<QPair<int, int>> ones;
    for (int p = 0; p < links.count; ++p)
        for (int q = 0; q < links.count; ++q)
            if (links.matrix[p][q])
                ones.insert(qMakePair(p, q));
    QCOMPARE(ones, (QSet<QPair<int, int>>{{0, 1}, {1, 2}, {0, 3}, {1, 3}}));
    freeLinkMatrix(links);
    QVERIFY(!links.matrix);
    QCOMPARE(links.count, 0);

    LinkMatrix none = linkMatrix({});
    QVERIFY(!none.matrix);
    QCOMPARE(none.count, 0);
}

void TestHostAnalysis::diagramFindings_data() {
    QTest::addColumn<QString>("spec");
    QTest::addColumn<bool>("single");
    QTest::addColumn<QString>("startEndText");
    QTest::addColumn<QList<int>>("broken");
    QTest::addColumn<QString>("surplus");

    QTest::newRow("dummy that carries B to D")
        << "1>2 A,2>3 B,2>4 C,3>4 d,4>5 D" << true << QString() << QList<int>{} << QString();
    QTest::newRow("dummy beside a path")
        << "1>2 A,2>3 B,3>4 C,2>4 d" << true << QString() << QList<int>{} << QStringLiteral("2-4");
    QTest::newRow("dummy beside a work item")
        << "1>2 A,1>2 d" << true << QString() << QList<int>{} << QStringLiteral("1-2");
    QTest::newRow("dummy that separates parallel work")
        << "1>2 A,1>3 B,2>3 d,3>4 C" << true << QString() << QList<int>{} << QString();
    QTest::newRow("dummy into the end with nothing after")
        << "1>2 A,1>3 B,2>5 C,3>4 D,3>5 d" << false << QStringLiteral("开始节点：1；结束节点：4、5")
        << QList<int>{4} << QStringLiteral("3-5");
    QTest::newRow("two starts") << "1>3 A,2>3 B,3>4 C" << false
                                << QStringLiteral("开始节点：1、2；结束节点：4") << QList<int>{2}
                                << QString();
    QTest::newRow("isolated node") << "1>2 A|3" << false << QStringLiteral("开始节点：1、3；结束节点：2、3")
                                   << QList<int>{3} << QString();
    QTest::newRow("dead end in the middle")
        << "1>2 A,2>3 B,2>4 C,4>5 D" << false << QStringLiteral("开始节点：1；结束节点：3、5")
        << QList<int>{3} << QString();
    QTest::newRow("chain cut, shortcut to the end")
        << "1>2 A,2>3 B,4>5 C,5>6 D,2>6 E" << false << QStringLiteral("开始节点：1、4；结束节点：3、6")
        << QList<int>{3, 4} << QString();
    QTest::newRow("dummies of one node apart in the list")
        << "1>2 A,1>3 d,2>3 B,1>4 C,1>3 d" << false << QStringLiteral("开始节点：1；结束节点：3、4")
        << QList<int>{3} << QStringLiteral("1-3、1-3");
    QTest::newRow("no arrows") << "|7" << true << QString() << QList<int>{} << QString();
    QTest::newRow("two surplus") << "1>2 A,2>3 B,1>3 d,2>3 d" << true << QString() << QList<int>{}
                                 << QStringLiteral("1-3、2-3");
}

void TestHostAnalysis::diagramFindings() {
    QFETCH(QString, spec);
    QFETCH(bool, single);
    QFETCH(QString, startEndText);
    QFETCH(QList<int>, broken);
    QFETCH(QString, surplus);
    const NetworkFindings findings = analyseDiagram(diagram(spec), true);
    QCOMPARE(findings.singleStartEnd, single);
    QCOMPARE(findings.startEndText, startEndText);
    QCOMPARE(findings.brokenNodes, broken);
    QCOMPARE(findings.broken, !broken.isEmpty());
    QStringList brokenTexts;
    for (int node : broken)
        brokenTexts << QString::number(node);
    QCOMPARE(findings.brokenText,
             broken.isEmpty() ? QString()
                              : QStringLiteral("断开处节点编号：") + brokenTexts.join(QStringLiteral("、")));
    QCOMPARE(findings.surplusNodes, surplus);
    QCOMPARE(findings.surplusDummy, !surplus.isEmpty());
}

void TestHostAnalysis::diagramNotDrawn() {
    NetworkFindings findings = analyseDiagram(ArrowDiagram(), false);
    QVERIFY(!findings.singleStartEnd);
    QCOMPARE(findings.startEndText, QStringLiteral("未绘制网络图"));
    QVERIFY(!findings.broken);
    QVERIFY(!findings.surplusDummy);

    findings = analyseDiagram(ArrowDiagram(), true);
    QVERIFY(!findings.singleStartEnd);
    QCOMPARE(findings.startEndText, QStringLiteral("开始节点：无；结束节点：无"));
}

void TestHostAnalysis::fluctuation_data() {
    QTest::addColumn<int>("days");
    QTest::addColumn<Points>("points");
    QTest::addColumn<double>("variance");
    // Axis of 2 days = 2880 minutes.
    QTest::newRow("constant") << 2 << Points{{2880, 3.0}} << 0.0;
    QTest::newRow("first half only") << 2 << Points{{1440, 4.0}, {2880, 0.0}} << 4.0;
    QTest::newRow("ends before the axis") << 2 << Points{{1440, 2.0}} << 1.0;
    QTest::newRow("cut at the axis") << 2 << Points{{1440, 1.0}, {4320, 3.0}} << 1.0;
    QTest::newRow("quarters") << 1 << Points{{360, 0.0}, {1080, 2.0}, {1440, 0.0}} << 1.0;
    QTest::newRow("zero duration") << 0 << Points{{1440, 4.0}} << -1.0;
}

void TestHostAnalysis::fluctuation() {
    QFETCH(int, days);
    QFETCH(Points, points);
    QFETCH(double, variance);
    const QMap<int, double> values =
        curveFluctuation({curve(QStringLiteral("钢筋工"), points)}, days, nullptr);
    QCOMPARE(values.value(29), variance);
    QCOMPARE(values.keys(), (QList<int>{29, 30, 31, 32}));
    QCOMPARE(values.value(30), -1.0); // no curve in the group
}

void TestHostAnalysis::fluctuationGroups() {
    // 钢筋工 and 木工 (a form worker once normalised) add up to a flat 4: no fluctuation in 29.
    // 钢筋 and 成品钢筋 add up to 2 then 6 over two days: mean 4, variance 4.
    const QList<CurveData> curves{curve(QStringLiteral("钢筋工"), {{1440, 4.0}}),
                                  curve(QStringLiteral("木工"), {{1440, 0.0}, {2880, 4.0}}),
                                  curve(QStringLiteral("钢筋"), {{2880, 2.0}}),
                                  curve(QStringLiteral("成品钢筋"), {{1440, 0.0}, {2880, 4.0}}),
                                  curve(QStringLiteral("模板"), {{2880, 1.0}}),
                                  curve(QStringLiteral("发电机组"), {{1440, 9.0}})};
    const auto canonical = [](const QString& name) {
        if (name == QStringLiteral("木工"))
            return QStringLiteral("模板工");
        if (name == QStringLiteral("钢筋"))
            return QStringLiteral("钢筋原材");
        return name;
    };
    const QMap<int, double> values = curveFluctuation(curves, 2, canonical);
    QCOMPARE(values.value(29), 0.0);
    QCOMPARE(values.value(30), 4.0);
    QCOMPARE(values.value(31), -1.0);
    QCOMPARE(values.value(32), 0.0);
    // Without normalisation 木工 belongs to no group and the labour curve fluctuates.
    QCOMPARE(curveFluctuation(curves, 2, nullptr).value(29), 4.0);
}

void TestHostAnalysis::chartNames() {
    QCOMPARE(chartName(QStringLiteral("成品钢筋")), QStringLiteral("钢筋原材/成品钢筋计划曲线图"));
    QCOMPARE(chartName(QStringLiteral("水泥")), QStringLiteral("混凝土/水泥、砂石计划曲线图"));
    QCOMPARE(chartName(QStringLiteral("供水泵机")), QStringLiteral("小型/大型供水泵机曲线图"));
    QCOMPARE(chartName(QStringLiteral("塔吊")), QStringLiteral("塔吊"));
}

QTEST_GUILESS_MAIN(TestHostAnalysis)
#include "tst_host_analysis.moc"
