// Building-model rating items: which CalcAlgorithm function each score rule and data type reaches and
// with which arguments, the children's type list and score rate. CalcAlgorithm is the recording double.
#include "calcrecorder.h"
#include "markpointer.h"
#include "qratingitem_shape.h"

#include <QtTest>

#include <memory>

namespace {

using Item = std::unique_ptr<QRatingItem_Shape>;

// A value text with a data type: 1 and 5 are set through the number setters, then the text is put
// back unchanged (the text setter keeps the data type).
QRatingItem_Shape* shape(int dataType, const QString& value, int scoreRule = 0) {
    auto* item = new QRatingItem_Shape;
    if (dataType == 1)
        item->SetRatingItemValue(0.0);
    else if (dataType == 5)
        item->SetRatingItemValue(0);
    else if (dataType != 0) {
        QJsonObject record{{"datatype", dataType}};
        item->DoSerializeItem(record, true);
    }
    item->SetRatingItemValue(value, false);
    item->SetRatingItemScoreRule(scoreRule);
    return item;
}

QVariantList segmentTable() {
    return {QVariantList{0.9, 1.0, 1.0}, QVariantList{0.8, 0.9, 0.8}, QVariantList{0.5, 0.8, 0.6},
            QVariantList{0.3, 0.5, 0.4}, QVariantList{0.1, 0.3, 0.2}, QVariantList{0.0, 0.1, 0.0}};
}

QRatingItem_Shape* childOfType(QRatingItemVirtual* parent, int type, double score = 0.0,
                               double scoreStd = 0.0) {
    auto* child = new QRatingItem_Shape;
    child->SetAttributeType(type);
    child->SetRatingItemScore(score);
    child->SetRatingItemScoreStd(scoreStd);
    parent->AddRatingItem(MarkPointer::fromItem(child), false);
    return child;
}

} // namespace

class TestShapeItem : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QVERIFY(CalcRecorder::substitutedInMarkRule()); }
    void init() { CalcRecorder::reset(); }

    void comparison_data();
    void comparison();
    void scoredThroughTree();
    void segmentTableEveryCall();
    void valueText();
    void typeList();
    void scoreRate_data();
    void scoreRate();
    void createsShape();
};

void TestShapeItem::comparison_data() {
    QTest::addColumn<int>("scoreRule");
    QTest::addColumn<int>("dataType");
    QTest::addColumn<QString>("studentValue");
    QTest::addColumn<QString>("function"); // empty: no call
    QTest::addColumn<QVariantList>("args");
    QTest::addColumn<bool>("writesRemark");

    const QString none;
    QTest::newRow("0, text") << 0 << 0 << "12.5"
                             << "CAL_Contrast" << QVariantList{"12.5", "10", 6.0, true} << false;
    QTest::newRow("0, number") << 0 << 1 << "12.5"
                               << "CAL_Contrast" << QVariantList{12.5, 10.0, 6.0} << false;
    QTest::newRow("0, integer") << 0 << 5 << "12"
                                << "CAL_Contrast" << QVariantList{12.0, 10.0, 6.0} << false;
    QTest::newRow("0, unreadable number") << 0 << 1 << "abc"
                                          << "CAL_Contrast" << QVariantList{0.0, 10.0, 6.0} << false;
    QTest::newRow("1, number: upper then lower")
        << 1 << 1 << "12.5"
        << "CAL_Interval" << QVariantList{12.5, 10.0, 6.0, 7.5, 1.5} << true;
    QTest::newRow("1, integer") << 1 << 5 << "12"
                                << "CAL_Interval" << QVariantList{12.0, 10.0, 6.0, 7.5, 1.5} << true;
    for (int dataType : {0, 1, 5, 3})
        QTest::addRow("101, data type %d", dataType)
            << 101 << dataType << "a;b"
            << "CAL_Contain_Ratio" << QVariantList{"a;b", "10", 6.0, true} << false;
    QTest::newRow("103, number") << 103 << 1 << "12.5"
                                 << "CAL_Value_Ratio" << QVariantList{12.5, 10.0, 6.0} << true;
    QTest::newRow("103, integer") << 103 << 5 << "12"
                                  << "CAL_Value_Ratio" << QVariantList{12.0, 10.0, 6.0} << true;
    QTest::newRow("104, number") << 104 << 1 << "12.5"
                                 << "CAL_Segment_Ratio"
                                 << QVariantList{12.5, 10.0, 6.0, QVariant(segmentTable())} << true;
    QTest::newRow("104, integer") << 104 << 5 << "12"
                                  << "CAL_Segment_Ratio"
                                  << QVariantList{12.0, 10.0, 6.0, QVariant(segmentTable())} << true;

    // Combinations that score 0 without a call.
    const QList<QPair<int, int>> noCall{{0, 3},   {1, 0},   {1, 3},   {2, 1},   {2, 0},
                                        {50, 1},  {100, 1}, {102, 0}, {102, 1}, {103, 0},
                                        {104, 0}, {104, 3}, {105, 1}, {-1, 1},  {-1, 0}};
    for (const auto& rule : noCall)
        QTest::addRow("no call: rule %d, data type %d", rule.first, rule.second)
            << rule.first << rule.second << "12.5" << none << QVariantList() << false;
}

void TestShapeItem::comparison() {
    QFETCH(int, scoreRule);
    QFETCH(int, dataType);
    QFETCH(QString, studentValue);
    QFETCH(QString, function);
    QFETCH(QVariantList, args);
    QFETCH(bool, writesRemark);

    // The standard's data type and score rule do not matter: the student's decide.
    // The points are the standard's score, not its standard score.
    Item standard(new QRatingItem_Shape);
    QJsonObject record{{"upperrange", 7.5}, {"lowerrange", 1.5}, {"value", "10"},
                       {"score", 6.0},      {"datatype", 3},     {"scorerule", 7}};
    standard->DoSerializeItem(record, true);
    standard->SetRatingItemScoreStd(99.0);
    Item student(shape(dataType, studentValue, scoreRule));
    student->SetRatingItemRemark(QStringLiteral("before"));
    CalcRecorder::setResponder([](const CalcCall&) { return 2.25; });
    CalcRecorder::setRemark(QStringLiteral("written"));

    const double score = student->CalculateRatingItemScore(MarkPointer::fromItem(standard.get()));
    const QList<CalcCall>& calls = CalcRecorder::calls();
    if (function.isEmpty()) {
        QVERIFY(calls.isEmpty());
        QCOMPARE(score, 0.0);
        QCOMPARE(student->GetRatingItemRemark(), QStringLiteral("before"));
        return;
    }
    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls.first().function, function);
    QCOMPARE(calls.first().args, args);
    QCOMPARE(calls.first().hasRemark, writesRemark);
    QCOMPARE(score, 2.25);
    if (writesRemark) {
        QCOMPARE(calls.first().remarkIn, QStringLiteral("before"));
        QCOMPARE(student->GetRatingItemRemark(), QStringLiteral("written"));
    }
    QCOMPARE(student->CalculateRatingItemScore(nullptr), 0.0);
}

void TestShapeItem::scoredThroughTree() {
    // The general scoring stores the leaf result as the score and sums it into the parent.
    Item standard(new QRatingItem_Shape), student(new QRatingItem_Shape);
    for (QRatingItem_Shape* root : {standard.get(), student.get()}) {
        QRatingItem_Shape* leaf =
            shape(1, root == standard.get() ? QStringLiteral("4") : QStringLiteral("3"), 103);
        leaf->SetRatingItemCode(QStringLiteral("wall"));
        leaf->SetRatingItemScore(root == standard.get() ? 8.0 : 0.0);
        root->AddRatingItem(MarkPointer::fromItem(leaf), false);
    }
    CalcRecorder::setResponder([](const CalcCall& call) {
        return call.args.at(0).toDouble() / call.args.at(1).toDouble() * call.args.at(2).toDouble();
    });
    QCOMPARE(student->ExecuteDBScore(MarkPointer::fromItem(standard.get()), 1), 6.0);
    QCOMPARE(CalcRecorder::calls().size(), 1);
    QCOMPARE(CalcRecorder::calls().first().args, (QVariantList{3.0, 4.0, 8.0}));
    QCOMPARE(student->GetRatingItemScoreRate(0), 75.0);
    QCOMPARE(student->GetClassName(), QStringLiteral("QRatingItemBase"));
}

void TestShapeItem::segmentTableEveryCall() {
    Item standard(shape(1, QStringLiteral("10"))), student(shape(1, QStringLiteral("5"), 104));
    for (int i = 0; i < 3; ++i)
        student->CalculateRatingItemScore(MarkPointer::fromItem(standard.get()));
    QCOMPARE(CalcRecorder::calls().size(), 3);
    for (const CalcCall& call : CalcRecorder::calls())
        QCOMPARE(call.args.at(3).toList(), segmentTable());
}

void TestShapeItem::valueText() {
    // Numbers are shown through Double2String with the item's precision; the standard's value is
    // shown with the student's precision.
    Item standard(shape(1, QStringLiteral("2.75"))), student(new QRatingItem_Shape);
    student->SetRatingItemValue(7);
    student->SetRatingItemPrecision(3);
    QCOMPARE(student->GetRatingItemValue(), CalcRecorder::double2StringText(7.0, 3));
    student->ExecuteDBScore(MarkPointer::fromItem(standard.get()), 3); // no leaf comparison
    QCOMPARE(student->GetRatingItemValueStd(), CalcRecorder::double2StringText(2.75, 3));
    const QList<CalcCall>& calls = CalcRecorder::calls();
    QCOMPARE(calls.size(), 2);
    QCOMPARE(calls.at(0).args, (QVariantList{7.0, 3}));
    QCOMPARE(calls.at(1).args, (QVariantList{2.75, 3}));

    Item text(shape(0, QStringLiteral(" 2.5 ")));
    QCOMPARE(text->GetRatingItemValue(), QStringLiteral(" 2.5 "));
    QCOMPARE(calls.size(), 2);
}

void TestShapeItem::typeList() {
    Item parent(new QRatingItem_Shape);
    QList<int> types{42};
    parent->GetRatingItemTypeList(types);
    QVERIFY(types.isEmpty());
    for (int type : {3, 3, 5})
        childOfType(parent.get(), type);
    parent->GetRatingItemTypeList(types);
    QCOMPARE(types, (QList<int>{3, 3, 5}));
}

void TestShapeItem::scoreRate_data() {
    QTest::addColumn<double>("score");
    QTest::addColumn<double>("scoreStd");
    QTest::addColumn<double>("rate");
    QTest::newRow("full") << 5.0 << 5.0 << 100.0;
    QTest::newRow("half") << 2.5 << 5.0 << 50.0;
    QTest::newRow("none of zero") << 1.0 << 0.0 << 0.0;
    QTest::newRow("zero of zero") << 0.0 << 0.0 << 100.0;
    QTest::newRow("equal within 1e-10") << 5.0 << 5.0 + 1e-12 << 100.0;
    QTest::newRow("negative") << -1.0 << 4.0 << -25.0;
    // 9.9999999e-11 is below the threshold in double precision but not once rounded to single.
    QTest::newRow("single precision") << 0.0 << 9.9999999e-11 << 0.0;
    QTest::newRow("near-zero standard, single precision")
        << -1e-10 << 9.9999999e-11 << -1e-10 / 9.9999999e-11 * 100.0;
}

void TestShapeItem::scoreRate() {
    QFETCH(double, score);
    QFETCH(double, scoreStd);
    QFETCH(double, rate);
    Item parent(new QRatingItem_Shape);
    childOfType(parent.get(), 3, 1.0, 1.0);
    childOfType(parent.get(), 7, score, scoreStd);
    childOfType(parent.get(), 7, 1.0, 2.0); // later children of the type are not looked at
    QCOMPARE(parent->GetRatingItemScoreRate(7), rate);
    QCOMPARE(parent->GetRatingItemScoreRate(8), 0.0);
}

void TestShapeItem::createsShape() {
    QRatingItem_Shape item;
    std::unique_ptr<QObject> made(MarkPointer::object(item.CreateRatingItem(&item)));
    QCOMPARE(made->metaObject()->className(), "QRatingItem_Shape");
    QCOMPARE(made->parent(), nullptr);
}

QTEST_GUILESS_MAIN(TestShapeItem)
#include "tst_shapeitem.moc"
