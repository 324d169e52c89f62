// The tables a host reads from the library: resource names with their charts and variance curves,
// and the root names of the categories, checked against the roots that the category factory makes so
// that the two cannot drift apart.
#include "categorytest.h"
#include "datarow.h"
#include "markrule.h"

#include <QtTest>

using namespace MarkCode;

class TestTables : public QObject {
    Q_OBJECT
private slots:
    void resources_data();
    void resources();
    void everyCanonicalNameHasAChart();
    void categoryRoots_data();
    void categoryRoots();
};

void TestTables::resources_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("canonical");
    QTest::addColumn<QString>("chart");
    QTest::addColumn<int>("curve");
    row("labour synonym", QString("木工"), QString("模板工"), QString("模板工/木工曲线图"),
        int(SkedLabourCurve));
    row("labour", QString("钢筋工"), QString("钢筋工"), QString("钢筋工曲线图"), int(SkedLabourCurve));
    row("rebar synonym", QString("钢筋成品"), QString("成品钢筋"), QString("钢筋原材/成品钢筋计划曲线图"),
        int(SkedRebarCurve));
    row("concrete synonym", QString("砼"), QString("成品混凝土"), QString("混凝土/水泥、砂石计划曲线图"),
        int(SkedConcreteCurve));
    row("cement", QString("水泥原材"), QString("水泥"), QString("混凝土/水泥、砂石计划曲线图"),
        int(SkedConcreteCurve));
    row("formwork", QString("模板"), QString("模板"), QString("模板计划曲线图"), int(SkedFormworkCurve));
    row("machine, no curve", QString("发电机组(大)"), QString("发电机组"), QString("小型/大型发电机曲线图"),
        0);
    row("unknown", QString("塔吊"), QString("塔吊"), QString(), 0);
}

void TestTables::resources() {
    QFETCH(QString, text);
    QFETCH(QString, canonical);
    QFETCH(QString, chart);
    QFETCH(int, curve);
    QCOMPARE(MarkRuleTables::canonicalResourceName(text), canonical);
    QCOMPARE(MarkRuleTables::chartName(canonical), chart);
    QCOMPARE(MarkRuleTables::varianceCurveType(canonical), curve);
    QCOMPARE(MarkRuleTables::canonicalResourceNames().contains(canonical), !chart.isEmpty());
}

void TestTables::everyCanonicalNameHasAChart() {
    const QStringList names = MarkRuleTables::canonicalResourceNames();
    QVERIFY(!names.isEmpty());
    QCOMPARE(QSet<QString>(names.cbegin(), names.cend()).size(), names.size());
    for (const QString& name : names) {
        QVERIFY2(!MarkRuleTables::chartName(name).isEmpty(), qPrintable(name));
        QCOMPARE(MarkRuleTables::canonicalResourceName(name), name); // canonical names are fixed points
    }
}

void TestTables::categoryRoots_data() {
    QTest::addColumn<int>("type");
    for (int type = CategoryFirst; type <= CategoryLast; ++type)
        QTest::newRow(qPrintable(QString::number(type))) << type;
    QTest::newRow("unknown") << 8;
}

void TestTables::categoryRoots() {
    QFETCH(int, type);
    CategoryPtr category = makeCategory(SceneSite, type);
    const QString expected = category ? rootOf(category.get())->GetRatingItemName() : QString();
    QCOMPARE(MarkRuleTables::categoryRootName(type), expected);
    QCOMPARE(MarkRuleTables::categoryRootName(type).isEmpty(), !category);
}

QTEST_GUILESS_MAIN(TestTables)
#include "tst_tables.moc"
