// Rating-item factories: the class for every product code and item type, and the refused codes.
#include "markrule.h"

#include <QtTest>

#include <limits>
#include <memory>

namespace {

const char* const kAsh = "QRatingItem_Ash";
const char* const kElm = "QRatingItem_Elm";
const char* const kFir = "QRatingItem_Fir";
const char* const kYew = "QRatingItem_Yew";
const char* const kOak = "QRatingItem_Oak";
const char* const kShape = "QRatingItem_Shape";

void checkMade(QRatingItemBase* made, const QByteArray& className) {
    std::unique_ptr<QRatingItemBase> item(made);
    if (className.isEmpty()) {
        QCOMPARE(item.get(), nullptr);
        return;
    }
    QVERIFY(item);
    QCOMPARE(QByteArray(item->metaObject()->className()), className);
    QCOMPARE(item->GetClassName(), QStringLiteral("QRatingItemBase"));
    QCOMPARE(item->parent(), nullptr);
    QVERIFY(item->inherits("QRatingItem_General"));
    QCOMPARE(item->inherits("QRatingItem_Tally"), className != kShape);
    // A fresh item: nothing was called on it beyond construction.
    QCOMPARE(item->GetChildItemCount(), 0);
    QCOMPARE(item->GetRatingItemLevel(), 2);
}

} // namespace

class TestRatingItemFactory : public QObject {
    Q_OBJECT
private slots:
    void byProduct_data();
    void byProduct();
    void byItemType_data();
    void byItemType();
};

void TestRatingItemFactory::byProduct_data() {
    QTest::addColumn<int>("product");
    QTest::addColumn<QByteArray>("className");
    const QMap<int, const char*> products{{9, kAsh},  {11, kElm}, {13, kFir},
                                          {15, kYew}, {17, kOak}, {20, kShape}};
    for (int product = -1; product <= 40; ++product)
        QTest::addRow("product %d", product) << product << QByteArray(products.value(product, ""));
    QTest::newRow("INT_MAX") << std::numeric_limits<int>::max() << QByteArray();
}

void TestRatingItemFactory::byProduct() {
    QFETCH(int, product);
    QFETCH(QByteArray, className);
    checkMade(QRatingItemBase::CreateMarkRatingItem(product), className);
}

void TestRatingItemFactory::byItemType_data() {
    QTest::addColumn<int>("itemType");
    QTest::addColumn<QByteArray>("className");
    const QMap<int, const char*> types{{12, kAsh},   {13, kAsh},   {14, kAsh},   {31, kAsh},  {15, kElm},
                                       {16, kElm},   {17, kElm},   {32, kElm},   {18, kYew},  {19, kYew},
                                       {20, kYew},   {33, kYew},   {21, kOak},   {22, kOak},  {23, kOak},
                                       {34, kOak},   {24, kFir},   {25, kFir},   {26, kFir},  {35, kFir},
                                       {27, kShape}, {28, kShape}, {29, kShape}, {30, kShape}};
    QCOMPARE(types.size(), 24); // every type from 12 to 35
    for (int type = -1; type <= 40; ++type)
        QTest::addRow("type %d", type) << type << QByteArray(types.value(type, ""));
    QTest::newRow("INT_MIN") << std::numeric_limits<int>::min() << QByteArray();
}

void TestRatingItemFactory::byItemType() {
    QFETCH(int, itemType);
    QFETCH(QByteArray, className);
    checkMade(QRatingItemBase::CreateRatingItemByType(itemType), className);
}

QTEST_GUILESS_MAIN(TestRatingItemFactory)
#include "tst_ratingitemfactory.moc"
