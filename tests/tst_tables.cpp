// The tables a host reads from the library: resource names with their charts and variance curves,
// and the root names of the categories. Each is checked against the library's own behaviour (the
// resource normaliser, the roots that the category factory makes), so the tables cannot drift from it.
#include "categorytest.h"
#include "markrule.h"

#include <QtTest>

#include <memory>

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
    QTest::newRow("labour synonym") << "木工"
                                    << "模板工"
                                    << "模板工/木工曲线图" << int(SkedLabourCurve);
    QTest::newRow("labour") << "钢筋工"
                            << "钢筋工"
                            << "钢筋工曲线图" << int(SkedLabourCurve);
    QTest::newRow("rebar synonym") << "钢筋成品"
                                   << "成品钢筋"
                                   << "钢筋原材/成品钢筋计划曲线图" << int(SkedRebarCurve);
    QTest::newRow("concrete synonym") << "砼"
                                      << "成品混凝土"
                                      << "混凝土/水泥、砂石计划曲线图" << int(SkedConcreteCurve);
    QTest::newRow("cement") << "水泥原材"
                            << "水泥"
                            << "混凝土/水泥、砂石计划曲线图" << int(SkedConcreteCurve);
    QTest::newRow("formwork") << "模板"
                              << "模板"
                              << "模板计划曲线图" << int(SkedFormworkCurve);
    QTest::newRow("machine, no curve") << "发电机组(大)"
                                       << "发电机组"
                                       << "小型/大型发电机曲线图" << 0;
    QTest::newRow("unknown") << "塔吊"
                             << "塔吊"
                             << "" << 0;
}

void TestTables::resources() {
    QFETCH(QString, text);
    QFETCH(QString, canonical);
    QFETCH(QString, chart);
    QFETCH(int, curve);
    QCOMPARE(MarkRuleTables::canonicalResourceName(text), canonical);
    std::unique_ptr<QResourceVirtual> normaliser(QResourceBase::CreateResource(ProductSked, ScenePlain));
    QCOMPARE(normaliser->TransformTextToName(text), canonical);
    QCOMPARE(MarkRuleTables::chartName(canonical), chart);
    QCOMPARE(MarkRuleTables::varianceCurveType(canonical), curve);
    QCOMPARE(MarkRuleTables::canonicalResourceNames().contains(canonical), !chart.isEmpty());
}

void TestTables::everyCanonicalNameHasAChart() {
    const QStringList names = MarkRuleTables::canonicalResourceNames();
    QCOMPARE(names.size(), 13);
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
