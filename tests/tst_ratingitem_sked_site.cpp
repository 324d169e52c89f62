// Site schedule item: JSON and stream records of a tree, hostile records, the logic owner chain.
#include "qratingitem_sked_scene.h"
#include "recordio_p.h"
#include "skeditems.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QScopedPointer>
#include <QtTest>

namespace {

// The fields of one Site stream record, written here independently of the library.
struct SiteFields {
    QString className = QStringLiteral("QRatingItem_Sked_Site");
    qint32 level = 2, type = 5;
    double scoreStd = 4.0, score = 1.5;
    QString name = QStringLiteral("持续时间"), unit = QStringLiteral("天"), valueStd = QStringLiteral("7"),
            uniqueValue = QStringLiteral("14"), value = QStringLiteral("14天");
    bool locked = true, editable = true;
    QString remark = QStringLiteral("r");
    double offset = 1.25;
    qint32 status = 3;
    bool identical = true;
};

void writeFields(QDataStream& out, const SiteFields& f, qint32 childCount) {
    out << f.className << f.level << f.type << f.scoreStd << f.score << f.name << f.unit << f.valueStd
        << f.uniqueValue << f.value << f.locked << f.editable << f.remark << f.offset << f.status
        << f.identical << childCount;
}

// A chain of depth records, each the only child of the one before.
QByteArray chainRecord(int depth) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    SiteFields fields;
    for (int i = 0; i < depth; ++i)
        writeFields(out, fields, i + 1 < depth ? 1 : 0);
    return bytes;
}

// Reads bytes into item and returns the stream status.
QDataStream::Status readInto(QRatingItem_Sked_Site& item, const QByteArray& bytes) {
    QDataStream in(bytes);
    item.DoSerialize(in, true);
    return in.status();
}

QByteArray streamBytes(QRatingItem_Sked_Site& item) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    item.DoSerialize(out, false);
    return bytes;
}

QJsonObject jsonOf(QRatingItem_Sked_Site& item) {
    QJsonObject object;
    item.DoSerialize(object, false);
    return object;
}

int treeDepth(QRatingItemVirtual* item) {
    int depth = 0;
    while (item) {
        ++depth;
        item = skedChildren(item).value(0);
    }
    return depth;
}

QJsonObject siteObject(const QString& name, int level, const QJsonArray& items) {
    return QJsonObject{{QStringLiteral("itemlevel"), level},
                       {QStringLiteral("attribute"), level + 2},
                       {QStringLiteral("scorestd"), 2.5 * level},
                       {QStringLiteral("itemname"), name},
                       {QStringLiteral("unit"), QStringLiteral("天")},
                       {QStringLiteral("value"), QStringLiteral("v%1").arg(level)},
                       {QStringLiteral("valuestd"), QStringLiteral("s%1").arg(level)},
                       {QStringLiteral("uniquevalue"), QStringLiteral("u%1").arg(level)},
                       {QStringLiteral("locked"), level == 2},
                       {QStringLiteral("editable"), level != 2},
                       {QStringLiteral("remark"), QStringLiteral("备注%1").arg(level)},
                       {QStringLiteral("identical"), level == 3},
                       {QStringLiteral("items"), items}};
}

// Three levels: a root, two children (the second named with a unit synonym), one grandchild.
QJsonObject threeLevelObject() {
    const QJsonArray grandChildren{siteObject(QStringLiteral("持续时间"), 3, {})};
    const QJsonArray children{siteObject(QStringLiteral("挖土"), 2, grandChildren),
                              siteObject(QStringLiteral("平米"), 2, {})};
    return siteObject(QStringLiteral("工作项属性"), 1, children);
}

class CycleSite : public QRatingItem_Sked_Site {
public:
    using QRatingItem_Sked_Site::QRatingItem_Sked_Site;
    void setOwner(QRatingItemVirtual* owner) { setLogicOwner(owner); }
};

} // namespace

class TestRatingItemSkedSite : public QObject {
    Q_OBJECT
private slots:
    void jsonRoundTripOfThreeLevels();
    void jsonWrongTypesReadAsMissing();
    void jsonNestingIsLimited();
    void streamRoundTripKeepsScoreStatusOffset();
    void streamTruncatedAtEveryByte();
    void streamHostileCounts_data();
    void streamHostileCounts();
    void streamNestingIsLimited_data();
    void streamNestingIsLimited();
    void streamWriterRefusesTooDeepTree();
    void logicListOfTheOwner();
    void createdAndLinkedItems();
};

void TestRatingItemSkedSite::jsonRoundTripOfThreeLevels() {
    const QJsonObject record = threeLevelObject();
    QRatingItem_Sked_Site item;
    QJsonObject input = record;
    item.DoSerialize(input, true);
    QCOMPARE(item.GetRatingItemLevel(), 1);
    QCOMPARE(item.GetAttributeType(), 3);
    QCOMPARE(item.GetRatingItemScoreStd(), 2.5);
    QCOMPARE(item.GetRatingItemName(), QStringLiteral("工作项属性"));
    QCOMPARE(item.GetRatingItemValue(), QStringLiteral("v1"));
    QCOMPARE(item.GetRatingItemValueStd(), QStringLiteral("s1"));
    QCOMPARE(item.GetRatingItemRemark(), QStringLiteral("备注1"));
    QCOMPARE(item.GetRatingItemEditable(), true);
    QCOMPARE(item.GetChildItemCount(), 2);
    // Children are keyed by their normalised names.
    auto* area =
        MarkPointer::item<QRatingItem_Sked_Site>(item.GetRatingItemByIndex(QStringLiteral("平方米")));
    QVERIFY(area);
    QCOMPARE(area->GetRatingItemLock(), true);
    QCOMPARE(treeDepth(&item), 3);

    item.SetRatingItemScore(9.0);
    const QJsonObject written = jsonOf(item);
    QCOMPARE(written, record);
    QVERIFY(!written.contains(QStringLiteral("score")));
    QRatingItem_Sked_Site copy;
    QJsonObject again = written;
    copy.DoSerialize(again, true);
    QCOMPARE(copy.GetRatingItemScore(), 0.0);
    QCOMPARE(jsonOf(copy), record);
}

void TestRatingItemSkedSite::jsonWrongTypesReadAsMissing() {
    QJsonObject record{
        {QStringLiteral("itemlevel"), QStringLiteral("3")},
        {QStringLiteral("scorestd"), true},
        {QStringLiteral("itemname"), 12},
        {QStringLiteral("locked"), 1},
        {QStringLiteral("items"), QJsonArray{1, QStringLiteral("x"), QJsonArray{}, QJsonObject{}}}};
    QRatingItem_Sked_Site item;
    item.SetRatingItemName(QStringLiteral("old"));
    item.DoSerialize(record, true);
    QCOMPARE(item.GetRatingItemLevel(), 0);
    QCOMPARE(item.GetRatingItemScoreStd(), 0.0);
    QCOMPARE(item.GetRatingItemName(), QString());
    QCOMPARE(item.GetRatingItemLock(), false);
    QCOMPARE(item.GetChildItemCount(), 1); // only the object element is a child

    QJsonObject notAnArray{
        {QStringLiteral("items"), QJsonObject{{QStringLiteral("itemname"), QStringLiteral("a")}}}};
    item.DoSerialize(notAnArray, true);
    QCOMPARE(item.GetChildItemCount(), 1);
}

void TestRatingItemSkedSite::jsonNestingIsLimited() {
    // 600 levels of objects: everything down to the nesting limit is read, nothing below it.
    QJsonObject record;
    for (int i = 0; i < 600; ++i)
        record = QJsonObject{{QStringLiteral("itemname"), QString::number(599 - i)},
                             {QStringLiteral("items"), QJsonArray{record}}};
    QRatingItem_Sked_Site item;
    item.DoSerialize(record, true);
    QCOMPARE(treeDepth(&item), RecordIO::kMaxDepth);
    QCOMPARE(item.GetRatingItemName(), QStringLiteral("0"));
    // Writing the loaded tree gives the same depth back.
    QRatingItem_Sked_Site copy;
    QJsonObject written = jsonOf(item);
    copy.DoSerialize(written, true);
    QCOMPARE(treeDepth(&copy), RecordIO::kMaxDepth);
}

void TestRatingItemSkedSite::streamRoundTripKeepsScoreStatusOffset() {
    QByteArray bytes;
    {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        SiteFields root;
        root.level = 1;
        root.name = QStringLiteral("工作项属性");
        writeFields(out, root, 2);
        SiteFields child;
        child.name = QStringLiteral("平米");
        child.offset = -3.5;
        child.status = 4;
        writeFields(out, child, 1);
        writeFields(out, SiteFields(), 0);
        writeFields(out, SiteFields(), 0);
    }
    QRatingItem_Sked_Site item;
    QCOMPARE(readInto(item, bytes), QDataStream::Ok);
    QCOMPARE(item.GetRatingItemScore(), 1.5);
    QCOMPARE(item.GetRatingItemOffset(), 1.25);
    QCOMPARE(item.GetChildItemCount(), 2);
    QCOMPARE(treeDepth(&item), 3);
    auto* area = MarkPointer::item(item.GetRatingItemByIndex(QStringLiteral("平方米")));
    QVERIFY(area);
    QCOMPARE(area->GetRatingItemOffset(), -3.5);

    const QByteArray written = streamBytes(item);
    QCOMPARE(written, bytes);
    QDataStream in(written);
    QString className;
    in >> className;
    QCOMPARE(className, QStringLiteral("QRatingItem_Sked_Site"));

    // The class name of a record is not checked.
    QByteArray renamed;
    QDataStream out(&renamed, QIODevice::WriteOnly);
    SiteFields fields;
    fields.className = QStringLiteral("Other");
    writeFields(out, fields, 0);
    QRatingItem_Sked_Site other;
    QCOMPARE(readInto(other, renamed), QDataStream::Ok);
    QCOMPARE(other.GetRatingItemName(), QStringLiteral("持续时间"));
}

void TestRatingItemSkedSite::streamTruncatedAtEveryByte() {
    QRatingItem_Sked_Site source;
    QJsonObject record = threeLevelObject();
    source.DoSerialize(record, true);
    const QByteArray bytes = streamBytes(source);
    for (int length = 0; length < bytes.size(); ++length) {
        QRatingItem_Sked_Site item;
        QVERIFY(readInto(item, bytes.left(length)) != QDataStream::Ok);
        // What was read stays: never more children than the record had.
        QVERIFY(item.GetChildItemCount() <= source.GetChildItemCount());
    }
    QRatingItem_Sked_Site whole;
    QCOMPARE(readInto(whole, bytes), QDataStream::Ok);
    QCOMPARE(streamBytes(whole), bytes);
}

void TestRatingItemSkedSite::streamHostileCounts_data() {
    QTest::addColumn<qint32>("count");
    QTest::newRow("2^31-1") << qint32(0x7fffffff);
    QTest::newRow("negative") << qint32(-1);
    QTest::newRow("one more than present") << qint32(2);
}

void TestRatingItemSkedSite::streamHostileCounts() {
    QFETCH(qint32, count);
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    writeFields(out, SiteFields(), count);
    writeFields(out, SiteFields(), 0);
    QRatingItem_Sked_Site item;
    QElapsedTimer timer;
    timer.start();
    QVERIFY(readInto(item, bytes) != QDataStream::Ok);
    QVERIFY(timer.elapsed() < 5000);
    QCOMPARE(item.GetRatingItemName(), QStringLiteral("持续时间"));
    QVERIFY(item.GetChildItemCount() <= 2); // the one present and the one that broke off
}

void TestRatingItemSkedSite::streamNestingIsLimited_data() {
    QTest::addColumn<int>("depth");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("at the limit") << RecordIO::kMaxDepth << true;
    QTest::newRow("one past the limit") << RecordIO::kMaxDepth + 1 << false;
    QTest::newRow("100000") << 100000 << false;
}

void TestRatingItemSkedSite::streamNestingIsLimited() {
    QFETCH(int, depth);
    QFETCH(bool, accepted);
    const QByteArray bytes = chainRecord(depth);
    QRatingItem_Sked_Site item;
    QCOMPARE(readInto(item, bytes) == QDataStream::Ok, accepted);
    // A refused record keeps the levels read up to the limit.
    QCOMPARE(treeDepth(&item), accepted ? depth : RecordIO::kMaxDepth);
}

void TestRatingItemSkedSite::streamWriterRefusesTooDeepTree() {
    QRatingItem_Sked_Site root;
    QRatingItemVirtual* parent = &root;
    for (int i = 0; i < 600; ++i)
        parent = addSked(parent, skedItem<QRatingItem_Sked_Site>(QString::number(i), 5));
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    root.DoSerialize(out, false);
    QCOMPARE(out.status(), QDataStream::WriteFailed);
}

void TestRatingItemSkedSite::logicListOfTheOwner() {
    QRatingItem_Sked_Site root;
    root.UpdateUniqueValue(QStringList{QStringLiteral("A;B")});
    auto* child = new QRatingItem_Sked_Site(static_cast<QObject*>(&root)); // deleted with root
    auto* grandChild = new QRatingItem_Sked_Site(static_cast<QObject*>(child));
    grandChild->UpdateUniqueValue(QStringList{QStringLiteral("own")});
    QStringList logic;
    grandChild->GetRatingItemLogic(logic);
    QCOMPARE(logic, QStringList{QStringLiteral("A;B")});

    // An owner that is a plain schedule item reports its own list.
    QRatingItem_Sked plain;
    plain.UpdateUniqueValue(QStringList{QStringLiteral("plain")});
    QRatingItem_Sked_Site underPlain(static_cast<QObject*>(&plain));
    underPlain.GetRatingItemLogic(logic);
    QCOMPARE(logic, QStringList{QStringLiteral("plain")});

    // Items made by CreateRatingItem or by loading report their own list.
    QScopedPointer<QRatingItemVirtual> created(MarkPointer::item(grandChild->CreateRatingItem(&root)));
    created->UpdateUniqueValue(QStringList{QStringLiteral("c")});
    created->GetRatingItemLogic(logic);
    QCOMPARE(logic, QStringList{QStringLiteral("c")});

    // An owner cycle ends instead of looping.
    CycleSite first, second(static_cast<QObject*>(&first));
    first.setOwner(&second);
    first.UpdateUniqueValue(QStringList{QStringLiteral("first")});
    second.GetRatingItemLogic(logic);
    QCOMPARE(logic, QStringList{QStringLiteral("first")});

    // A deleted owner counts as none.
    auto* owner = new QRatingItem_Sked_Site;
    QRatingItem_Sked_Site orphan(static_cast<QObject*>(owner));
    orphan.setParent(nullptr);
    delete owner;
    orphan.UpdateUniqueValue(QStringList{QStringLiteral("orphan")});
    orphan.GetRatingItemLogic(logic);
    QCOMPARE(logic, QStringList{QStringLiteral("orphan")});
}

void TestRatingItemSkedSite::createdAndLinkedItems() {
    QRatingItem_Sked_Site item(nullptr);
    QCOMPARE(item.GetClassName(), QStringLiteral("QRatingItem_Sked_Site"));
    QScopedPointer<QObject> created(MarkPointer::object(item.CreateRatingItem(&item)));
    QVERIFY(qobject_cast<QRatingItem_Sked_Site*>(created.data()));
    QVERIFY(!created->parent());

    // The line-width node is linked to the intensity node; once loaded from a record it is not.
    QScopedPointer<QRatingItem_Sked> standard(skedItem(QStringLiteral("工序线宽"), 11, QString(), 2.0));
    QRatingItem_Sked_Site intensity;
    intensity.UpdateUniqueValue(QStringLiteral("3"));
    QRatingItem_Sked_Site width(&intensity);
    QVERIFY(!width.parent());
    width.SetAttributeType(11);
    width.UpdateUniqueValue(QStringLiteral("3"));
    QCOMPARE(width.ExecuteDBScore(MarkPointer::fromItem(standard.data()), 1), 2.0);

    QRatingItem_Sked_Site loaded;
    QJsonObject record = jsonOf(width);
    loaded.DoSerialize(record, true);
    QCOMPARE(loaded.ExecuteDBScore(MarkPointer::fromItem(standard.data()), 1), 0.0);
    QCOMPARE(loaded.GetRatingItemRemark(), QStringLiteral("与人力资源强度值不一致，不得分"));
}

QTEST_GUILESS_MAIN(TestRatingItemSkedSite)
#include "tst_ratingitem_sked_site.moc"
