// Schedule rating item: name matching, duplicate, missing and surplus criteria, values, numbering,
// the calculation record and ownership of everything a tree ever held.
#include "markpublic.h"
#include "markrecords.h"
#include "qratingitem_sked_scene.h"
#include "skeditems.h"

#include <QScopedPointer>
#include <QSignalSpy>
#include <QtTest>

namespace {

// Whether the item's comparison key equals key: the plain rule scores only equal keys.
bool keyEquals(QRatingItem_Sked* item, const QString& key) {
    QScopedPointer<QRatingItem_Sked> standard(skedItem(QString(), 0, key, 1.0));
    item->SetAttributeType(0);
    return item->ExecuteDBScore(MarkPointer::fromItem(standard.data()), 1) == 1.0;
}

} // namespace

class TestRatingItemSked : public QObject {
    Q_OBJECT
private slots:
    void transformTextToName_data();
    void transformTextToName();
    void addRatingItemKeys();
    void duplicatesDeductTheStandardScore();
    void matchingNormalisesTheStandardName_data();
    void matchingNormalisesTheStandardName();
    void missingSubtreeIsGeneratedOneLevelDeeper_data();
    void missingSubtreeIsGeneratedOneLevelDeeper();
    void surplusUnderRootDeductsTemplateScore_data();
    void surplusUnderRootDeductsTemplateScore();
    void surplusAttributesOfAWorkItem_data();
    void surplusAttributesOfAWorkItem();
    void surplusDroppedUnderOtherParents();
    void negativeSumIsClamped();
    void nullOrForeignStandardChangesNothing();
    void numberingByLevel();
    void calculationRecord_data();
    void calculationRecord();
    void valuesAreStoredAsGiven();
    void twinTreeGeneratesPlainItems();
    void plainItemsAreNotPersisted();
    void everyItemIsDeletedOnce();
};

void TestRatingItemSked::transformTextToName_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("立方") << QStringLiteral("立方") << QStringLiteral("立方米");
    QTest::newRow("m³") << QStringLiteral("m³") << QStringLiteral("立方米");
    QTest::newRow("平米") << QStringLiteral("平米") << QStringLiteral("平方米");
    QTest::newRow("㎡") << QStringLiteral("㎡") << QStringLiteral("平方米");
    QTest::newRow("平方") << QStringLiteral("平方") << QStringLiteral("平方米");
    QTest::newRow("t") << QStringLiteral("t") << QStringLiteral("吨");
    QTest::newRow("临设建造") << QStringLiteral("临设建造") << QStringLiteral("临建建造");
    QTest::newRow("临时建造") << QStringLiteral("临时建造") << QStringLiteral("临建建造");
    QTest::newRow("临建建设") << QStringLiteral("临建建设") << QStringLiteral("临建建造");
    QTest::newRow("临时设施") << QStringLiteral("临时设施") << QStringLiteral("临建建造");
    QTest::newRow("临设建设") << QStringLiteral("临设建设") << QStringLiteral("临建建造");
    QTest::newRow("parts") << QStringLiteral("混凝土;m³;;t") << QStringLiteral("混凝土;立方米;;吨");
    QTest::newRow("whole parts only") << QStringLiteral("平米 ;tt;T;m3") << QStringLiteral("平米 ;tt;T;m3");
    QTest::newRow("empty") << QString() << QString();
}

void TestRatingItemSked::transformTextToName() {
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QRatingItem_Sked item;
    QCOMPARE(item.TransformTextToName(text), expected);
    QStringList list{QStringLiteral("x"), text};
    item.TransformTextToName(list);
    QCOMPARE(list, (QStringList{QStringLiteral("x"), expected}));
}

void TestRatingItemSked::addRatingItemKeys() {
    QRatingItem_Sked parent;
    QRatingItem_Sked* plain = addSked(&parent, skedItem(QStringLiteral("平米"), 2));
    QRatingItem_Sked* normalised = addSked(&parent, skedItem(QStringLiteral("㎡"), 2), true);
    parent.AddRatingItem(nullptr, true);
    QCOMPARE(parent.GetChildItemCount(), 2);
    QCOMPARE(parent.GetRatingItemByIndex(QStringLiteral("平米")), MarkPointer::fromItem(plain));
    QCOMPARE(parent.GetRatingItemByIndex(QStringLiteral("平方米")), MarkPointer::fromItem(normalised));
    QVERIFY(!parent.GetRatingItemByIndex(QStringLiteral("㎡")));
}

void TestRatingItemSked::duplicatesDeductTheStandardScore() {
    QRatingItem_Sked standard, student;
    standard.SetAttributeType(1);
    student.SetAttributeType(1);
    addSked(&standard, skedItem(QStringLiteral("挖土"), 2, QStringLiteral("1"), 5.0));
    QRatingItem_Sked* older = addSked(&student, skedItem(QStringLiteral("挖土"), 2, QStringLiteral("1")));
    QRatingItem_Sked* newer = addSked(&student, skedItem(QStringLiteral("挖土"), 2, QStringLiteral("1")));

    QCOMPARE(student.ExecuteDBScore(MarkPointer::fromItem(&standard), 1), 0.0);
    QCOMPARE(skedChildren(&student), (QList<QRatingItemVirtual*>{newer, older}));
    QCOMPARE(newer->GetRatingItemScore(), 5.0);
    QCOMPARE(newer->GetRatingItemRemark(), QString());
    QCOMPARE(older->GetRatingItemScore(), -5.0);
    QCOMPARE(older->GetRatingItemRemark(), QStringLiteral("评分项重复存在，扣分"));
    QCOMPARE(older->GetRatingItemScoreStd(), 5.0);
}

void TestRatingItemSked::matchingNormalisesTheStandardName_data() {
    QTest::addColumn<QString>("standardName");
    QTest::addColumn<QString>("studentName");
    QTest::addColumn<bool>("transform");
    QTest::addColumn<bool>("matched");
    QTest::newRow("standard 平米") << QStringLiteral("平米") << QStringLiteral("平方米") << false << true;
    QTest::newRow("student normalised") << QStringLiteral("平方米") << QStringLiteral("平米") << true << true;
    QTest::newRow("parts") << QStringLiteral("浇筑;m³") << QStringLiteral("浇筑;立方米") << false << true;
    QTest::newRow("exact name first") << QStringLiteral("平米") << QStringLiteral("平米") << false << true;
    QTest::newRow("student not normalised")
        << QStringLiteral("平方米") << QStringLiteral("平米") << false << false;
}

void TestRatingItemSked::matchingNormalisesTheStandardName() {
    QFETCH(QString, standardName);
    QFETCH(QString, studentName);
    QFETCH(bool, transform);
    QFETCH(bool, matched);
    QRatingItem_Sked standard, student;
    standard.SetAttributeType(1);
    student.SetAttributeType(1);
    addSked(&standard, skedItem(standardName, 2, QStringLiteral("1"), 2.0));
    QRatingItem_Sked* child = addSked(&student, skedItem(studentName, 2, QStringLiteral("1")), transform);

    const double score = student.ExecuteDBScore(MarkPointer::fromItem(&standard), 1);
    QCOMPARE(score, matched ? 2.0 : 0.0);
    QCOMPARE(skedChildren(&student).first() == child, matched);
    QCOMPARE(child->GetRatingItemScore(), matched ? 2.0 : -2.0);
}

void TestRatingItemSked::missingSubtreeIsGeneratedOneLevelDeeper_data() {
    QTest::addColumn<int>("leafType");
    QTest::addColumn<QString>("leafValue");
    QTest::newRow("duration") << 5 << QStringLiteral("0");
    QTest::newRow("count") << 2 << QStringLiteral("0");
    QTest::newRow("work item") << 4 << QString();
    QTest::newRow("logic") << 16 << QString();
    QTest::newRow("curve") << 22 << QStringLiteral("不存在");
}

void TestRatingItemSked::missingSubtreeIsGeneratedOneLevelDeeper() {
    QFETCH(int, leafType);
    QFETCH(QString, leafValue);
    QRatingItem_Sked_Site standard, student;
    standard.SetAttributeType(3);
    student.SetAttributeType(3);
    student.SetRatingItemLevel(1);
    QRatingItem_Sked* node = addSked(&standard, skedItem(QStringLiteral("挖土"), 4, QString(), 6.0));
    QRatingItem_Sked* leaf =
        addSked(node, skedItem(QStringLiteral("持续时间"), leafType, QStringLiteral("9"), 6.0));
    leaf->SetRatingItemUnit(QStringLiteral("天"));

    QCOMPARE(student.ExecuteDBScore(MarkPointer::fromItem(&standard), 1), 0.0);
    QCOMPARE(student.GetChildItemCount(), 1);
    QRatingItemVirtual* generatedNode = skedChildren(&student).first();
    QCOMPARE(generatedNode->GetRatingItemLevel(), 2);
    QCOMPARE(generatedNode->GetRatingItemName(), QStringLiteral("挖土"));
    QCOMPARE(generatedNode->GetRatingItemValue(), QString());
    QCOMPARE(generatedNode->GetRatingItemRemark(), QStringLiteral("缺少评分项，不得分"));
    QCOMPARE(generatedNode->GetAttributeType(), 4);
    QCOMPARE(generatedNode->GetRatingItemScoreStd(), 6.0);

    QRatingItemVirtual* generatedLeaf = skedChildren(generatedNode).value(0);
    QVERIFY(generatedLeaf);
    QCOMPARE(qobject_cast<QRatingItem_Sked_Site*>(generatedLeaf) != nullptr, true);
    QCOMPARE(generatedLeaf->GetRatingItemLevel(), 3);
    QCOMPARE(generatedLeaf->GetRatingItemName(), QStringLiteral("持续时间"));
    QCOMPARE(generatedLeaf->GetRatingItemUnit(), QStringLiteral("天"));
    QCOMPARE(generatedLeaf->GetAttributeType(), leafType);
    QCOMPARE(generatedLeaf->GetRatingItemValue(), leafValue);
    QCOMPARE(generatedLeaf->GetRatingItemScore(), 0.0);
    QCOMPARE(generatedLeaf->GetRatingItemRemark(), QStringLiteral("缺少评分项，不得分"));
}

void TestRatingItemSked::surplusUnderRootDeductsTemplateScore_data() {
    QTest::addColumn<bool>("firstLocked");
    QTest::addColumn<bool>("secondLocked");
    QTest::addColumn<bool>("identical");
    QTest::addColumn<double>("deduction");
    QTest::newRow("first unlocked") << false << false << false << 3.0;
    QTest::newRow("second unlocked") << true << false << false << 2.0;
    QTest::newRow("all locked: last") << true << true << false << 2.0;
    QTest::newRow("identical standard") << false << false << true << 0.0;
}

void TestRatingItemSked::surplusUnderRootDeductsTemplateScore() {
    QFETCH(bool, firstLocked);
    QFETCH(bool, secondLocked);
    QFETCH(bool, identical);
    QFETCH(double, deduction);
    QRatingItem_Sked standard, student;
    standard.SetAttributeType(1);
    student.SetAttributeType(1);
    standard.SetValueIdentical(identical);
    addSked(&standard, skedItem(QStringLiteral("A"), 2, QStringLiteral("1"), 3.0))
        ->SetRatingItemLock(firstLocked);
    addSked(&standard, skedItem(QStringLiteral("B"), 2, QStringLiteral("1"), 2.0))
        ->SetRatingItemLock(secondLocked);
    addSked(&student, skedItem(QStringLiteral("A"), 2, QStringLiteral("1")));
    addSked(&student, skedItem(QStringLiteral("B"), 2, QStringLiteral("1")));
    QRatingItem_Sked* extra = addSked(&student, skedItem(QStringLiteral("C"), 2, QStringLiteral("1")));

    QCOMPARE(student.ExecuteDBScore(MarkPointer::fromItem(&standard), 1), 5.0 - deduction);
    QCOMPARE(student.GetChildItemCount(), identical ? 2 : 3);
    if (!identical) {
        QCOMPARE(skedChildren(&student).last(), extra);
        QCOMPARE(extra->GetRatingItemScore(), -deduction);
        QCOMPARE(extra->GetRatingItemRemark(), QStringLiteral("存在多余评分项，扣分"));
        QCOMPARE(extra->GetRatingItemValueStd(), QStringLiteral("0"));
    }
}

void TestRatingItemSked::surplusAttributesOfAWorkItem_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("valueStd");
    QTest::addColumn<double>("score");
    QTest::addColumn<double>("scoreStd");
    QTest::addColumn<QString>("remark");
    const QString deducted = QStringLiteral("存在多余评分项，扣分");
    QTest::newRow("count") << 2 << QStringLiteral("0") << -1.5 << 9.0 << deducted;
    QTest::newRow("duration") << 5 << QStringLiteral("0") << 0.0 << 0.0 << QString();
    QTest::newRow("planned") << 8 << QStringLiteral("0") << 0.0 << 0.0 << QString();
    QTest::newRow("material") << 13 << QStringLiteral("0") << 0.0 << 0.0 << QString();
    QTest::newRow("code") << 6 << QString() << 0.0 << 0.0 << QString();
    QTest::newRow("colour") << 10 << QString() << 0.0 << 0.0 << QString();
    QTest::newRow("other") << 17 << QString() << -1.5 << 9.0 << deducted;
}

void TestRatingItemSked::surplusAttributesOfAWorkItem() {
    QFETCH(int, type);
    QFETCH(QString, valueStd);
    QFETCH(double, score);
    QFETCH(double, scoreStd);
    QFETCH(QString, remark);
    // A surplus work item under the attribute root: its attributes take the status of a surplus.
    QRatingItem_Sked standard, student;
    standard.SetAttributeType(3);
    student.SetAttributeType(3);
    QRatingItem_Sked* templ = addSked(&standard, skedItem(QStringLiteral("挖土"), 4, QString(), 4.0));
    addSked(templ, skedItem(QStringLiteral("持续时间"), 5, QStringLiteral("7"), 1.5));
    QRatingItem_Sked* extra = addSked(&student, skedItem(QStringLiteral("回填"), 4));
    QRatingItem_Sked* attribute =
        addSked(extra, skedItem(QStringLiteral("属性"), type, QStringLiteral("7"), 9.0));
    attribute->SetRatingItemValue(QStringLiteral("old"), false);
    attribute->SetRatingItemRemark(QStringLiteral("old"));

    QCOMPARE(student.ExecuteDBScore(MarkPointer::fromItem(&standard), 1), 0.0); // -4 clamped
    QCOMPARE(student.GetRatingItemRemark(), QStringLiteral("分数扣减至0"));
    QCOMPARE(extra->GetRatingItemScore(), -4.0);
    QCOMPARE(extra->GetRatingItemRemark(), QStringLiteral("存在多余评分项，扣分"));
    QCOMPARE(skedChildren(extra), (QList<QRatingItemVirtual*>{attribute}));
    QCOMPARE(attribute->GetRatingItemValueStd(), valueStd);
    QCOMPARE(attribute->GetRatingItemScore(), score);
    QCOMPARE(attribute->GetRatingItemScoreStd(), scoreStd);
    QCOMPARE(attribute->GetRatingItemRemark(), remark);
}

void TestRatingItemSked::surplusDroppedUnderOtherParents() {
    // Under a matched work item (type 4) a surplus attribute takes the status of the first standard
    // child but is neither listed nor counted; under other parents it just drops out.
    QRatingItem_Sked standard, student;
    standard.SetAttributeType(4);
    student.SetAttributeType(4);
    addSked(&standard, skedItem(QStringLiteral("持续时间"), 5, QStringLiteral("7"), 2.0));
    addSked(&student, skedItem(QStringLiteral("持续时间"), 5, QStringLiteral("14")));
    QRatingItem_Sked* extra = addSked(&student, skedItem(QStringLiteral("多余"), 17, QString(), 0.0));
    QCOMPARE(student.ExecuteDBScore(MarkPointer::fromItem(&standard), 1), 2.0);
    QCOMPARE(student.GetChildItemCount(), 1);
    QCOMPARE(extra->GetRatingItemScore(), -2.0);

    student.SetAttributeType(17);
    extra->SetRatingItemScore(7.0);
    QCOMPARE(student.ExecuteDBScore(MarkPointer::fromItem(&standard), 1), 2.0);
    QCOMPARE(student.GetChildItemCount(), 1);
    QCOMPARE(extra->GetRatingItemScore(), 7.0);
}

void TestRatingItemSked::negativeSumIsClamped() {
    QRatingItem_Sked standard, student;
    standard.SetAttributeType(1);
    student.SetAttributeType(1);
    addSked(&standard, skedItem(QStringLiteral("A"), 2, QStringLiteral("1"), 5.0));
    for (int i = 0; i < 3; ++i)
        addSked(&student, skedItem(QStringLiteral("A"), 2, QStringLiteral("3")));
    QCOMPARE(student.ExecuteDBScore(MarkPointer::fromItem(&standard), 1), 0.0);
    QCOMPARE(student.GetRatingItemRemark(), QStringLiteral("分数扣减至0"));
    // A duplicate parent passes mode 3 down and is not clamped.
    QCOMPARE(student.ExecuteDBScore(MarkPointer::fromItem(&standard), 3), -15.0);
}

void TestRatingItemSked::nullOrForeignStandardChangesNothing() {
    QRatingItem_Sked item;
    QRatingItem_General foreign;
    item.SetRatingItemScore(2.5);
    item.SetRatingItemRemark(QStringLiteral("r"));
    QCOMPARE(item.ExecuteDBScore(nullptr, 1), 2.5);
    QCOMPARE(item.ExecuteDBScore(MarkPointer::fromItem(&foreign), 2), 2.5);
    item.SetRatingItemStatus(2, nullptr);
    QCOMPARE(item.CalculateRatingItemScore(nullptr), 0.0);
    QCOMPARE(item.GetRatingItemRemark(), QStringLiteral("r"));
    QCOMPARE(item.GetRatingItemScore(), 2.5);
}

void TestRatingItemSked::numberingByLevel() {
    QRatingItem_Sked item;
    const QList<QPair<int, QString>> expected{{1, ConvertIntToUString(12)},
                                              {2, QStringLiteral("12")},
                                              {3, ConvertIntToTString(12)},
                                              {4, QStringLiteral("12")}};
    for (const auto& level : expected) {
        item.SetRatingItemLevel(level.first);
        QCOMPARE(item.GetRatingItemNumber(12), level.second);
    }
}

void TestRatingItemSked::calculationRecord_data() {
    QTest::addColumn<bool>("editable");
    QTest::newRow("editable") << true;
    QTest::newRow("not editable") << false;
}

void TestRatingItemSked::calculationRecord() {
    QFETCH(bool, editable);
    QRatingItem_Sked item;
    item.SetRatingItemEditable(editable);
    item.SetRatingItemValue(QStringLiteral("mine"), false);
    item.SetRatingItemScoreStd(4.0);
    item.SetRatingItemLock(true);
    CalculateRecord record{0.0, false, QStringLiteral("host")};
    item.GetCalculateData(&record);
    QCOMPARE(record.scoreStd, 4.0);
    QCOMPARE(record.locked, true);
    QCOMPARE(record.value, editable ? QStringLiteral("mine") : QStringLiteral("host"));

    record = CalculateRecord{7.0, false, QStringLiteral("平米")};
    item.SetCalculateData(&record);
    QCOMPARE(item.GetRatingItemScoreStd(), 7.0);
    QCOMPARE(item.GetRatingItemLock(), false);
    QCOMPARE(item.GetRatingItemValue(), editable ? QStringLiteral("平米") : QStringLiteral("mine"));
    QCOMPARE(item.GetRatingItemValueStd(), editable ? QStringLiteral("平米") : QStringLiteral("mine"));
    QVERIFY(keyEquals(&item, editable ? QStringLiteral("平方米") : QStringLiteral("mine")));
    item.GetCalculateData(nullptr);
    item.SetCalculateData(nullptr);
}

void TestRatingItemSked::valuesAreStoredAsGiven() {
    QRatingItem_Sked item;
    item.SetRatingItemValue(3);
    item.SetRatingItemPrecision(2);
    QCOMPARE(item.GetRatingItemValue(), QStringLiteral("3"));
    item.SetRatingItemValue(QStringLiteral("t"), QStringLiteral("平方"), true);
    QCOMPARE(item.GetRatingItemValue(), QStringLiteral("t"));
    QCOMPARE(item.GetRatingItemValueStd(), QStringLiteral("t"));
    QVERIFY(keyEquals(&item, QStringLiteral("平方米")));
    item.SetRatingItemValue(QStringLiteral("t"), QStringLiteral("平方"), false);
    QVERIFY(keyEquals(&item, QStringLiteral("平方")));
    item.SetRatingItemValue(QStringLiteral("t"), true);
    QVERIFY(keyEquals(&item, QStringLiteral("吨")));
    item.UpdateUniqueValue(QStringLiteral("t")); // taken as it is
    QVERIFY(keyEquals(&item, QStringLiteral("t")));
}

void TestRatingItemSked::twinTreeGeneratesPlainItems() {
    QRatingItem_Sked_Twin standard, student;
    QCOMPARE(student.GetClassName(), QStringLiteral("QRatingItem_Sked_Twin"));
    addSked(&standard, skedItem<QRatingItem_Sked_Twin>(QStringLiteral("挖土"), 2, QStringLiteral("1"), 1.0));
    student.ExecuteDBScore(MarkPointer::fromItem(&standard), 1);
    QRatingItemVirtual* generated = skedChildren(&student).value(0);
    QVERIFY(generated);
    QCOMPARE(QString::fromLatin1(generated->metaObject()->className()), QStringLiteral("QRatingItem_Sked"));
    QCOMPARE(qobject_cast<QRatingItem_Sked*>(generated)->GetClassName(), QStringLiteral("QRatingItem_Sked"));
    QCOMPARE(generated->GetRatingItemRemark(), QStringLiteral("缺少评分项，不得分"));
}

void TestRatingItemSked::plainItemsAreNotPersisted() {
    QRatingItem_Sked item;
    item.SetRatingItemName(QStringLiteral("x"));
    addSked(&item, skedItem(QStringLiteral("y"), 2));
    QJsonObject object;
    item.DoSerialize(object, false);
    QVERIFY(object.isEmpty());
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    item.DoSerialize(out, false);
    QVERIFY(bytes.isEmpty());
}

void TestRatingItemSked::everyItemIsDeletedOnce() {
    // Duplicates, generated missing items and surplus items that drop out are all owned by the tree.
    QRatingItem_Sked standard;
    auto* student = new QRatingItem_Sked();
    standard.SetAttributeType(4);
    student->SetAttributeType(4);
    addSked(&standard, skedItem(QStringLiteral("A"), 5, QStringLiteral("7"), 1.0));
    addSked(&standard, skedItem(QStringLiteral("B"), 10, QStringLiteral("x"), 1.0));
    QList<QObject*> created{student};
    for (const QString& name : {QStringLiteral("A"), QStringLiteral("A"), QStringLiteral("C")})
        created.append(addSked(student, skedItem(name, 5)));
    for (int pass = 0; pass < 2; ++pass) { // each pass generates a new item for B
        student->ExecuteDBScore(MarkPointer::fromItem(&standard), 1);
        for (QRatingItemVirtual* child : skedChildren(student)) {
            if (!created.contains(child))
                created.append(child);
        }
    }
    QCOMPARE(created.size(), 6);

    QMap<QObject*, int> destroyed;
    for (QObject* object : created)
        connect(object, &QObject::destroyed, this, [&destroyed, object] { ++destroyed[object]; });
    delete student;
    QCOMPARE(destroyed.size(), created.size());
    for (int count : destroyed)
        QCOMPARE(count, 1);
}

QTEST_GUILESS_MAIN(TestRatingItemSked)
#include "tst_ratingitem_sked.moc"
