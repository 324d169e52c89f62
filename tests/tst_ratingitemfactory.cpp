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

} // namespace

class TestRatingItemFactory : public QObject {
    Q_OBJECT
private slots:
    void made_data();
    void made();
};

// Each row: by item type or by product code, the code, and the class made (empty: refused).
void TestRatingItemFactory::made_data() {
    QTest::addColumn<bool>("byType");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("className");
    const QMap<int, const char*> products{{9, kAsh},  {11, kElm}, {13, kFir},
                                          {15, kYew}, {17, kOak}, {20, kShape}};
    for (int product = -1; product <= 40; ++product)
        QTest::addRow("product %d", product) << false << product << QByteArray(products.value(product, ""));
    QTest::newRow("product INT_MAX") << false << std::numeric_limits<int>::max() << QByteArray();
    const QMap<int, const char*> types{{12, kAsh},   {13, kAsh},   {14, kAsh},   {31, kAsh},  {15, kElm},
                                       {16, kElm},   {17, kElm},   {32, kElm},   {18, kYew},  {19, kYew},
                                       {20, kYew},   {33, kYew},   {21, kOak},   {22, kOak},  {23, kOak},
                                       {34, kOak},   {24, kFir},   {25, kFir},   {26, kFir},  {35, kFir},
                                       {27, kShape}, {28, kShape}, {29, kShape}, {30, kShape}};
    for (int type = -1; type <= 40; ++type)
        QTest::addRow("type %d", type) << true << type << QByteArray(types.value(type, ""));
    QTest::newRow("type INT_MIN") << true << std::numeric_limits<int>::min() << QByteArray();
}

void TestRatingItemFactory::made() {
    QFETCH(bool, byType);
    QFETCH(int, code);
    QFETCH(QByteArray, className);
    std::unique_ptr<QRatingItemBase> item(byType ? QRatingItemBase::CreateRatingItemByType(code)
                                                 : QRatingItemBase::CreateMarkRatingItem(code));
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

QTEST_GUILESS_MAIN(TestRatingItemFactory)
#include "tst_ratingitemfactory.moc"
