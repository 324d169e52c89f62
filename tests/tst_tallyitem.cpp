// Pricing rating items: value texts, keys and matching, the attribute-type hooks, unit projects,
// tolerance setters, the records and hostile stream records. CalcAlgorithm is the recording double.
#include "calcrecorder.h"
#include "markpointer.h"
#include "markrecords.h"
#include "qratingitem_tally.h"

#include <QElapsedTimer>
#include <QtTest>

#include <memory>

namespace {

using Item = std::unique_ptr<QRatingItem_Tally>;

QRatingItem_Tally* tally(const QString& name, double rate = 0.0, int attributeType = 0,
                         const QString& code = QString()) {
    auto* item = new QRatingItem_Ash;
    item->SetRatingItemName(name);
    item->SetRatingItemRate(rate);
    item->SetAttributeType(attributeType);
    item->SetRatingItemCode(code);
    return item;
}

QRatingItem_Tally* add(QRatingItemVirtual* parent, QRatingItem_Tally* child) {
    parent->AddRatingItem(MarkPointer::fromItem(child), false);
    return child;
}

QList<QRatingItemVirtual*> childItems(QRatingItemVirtual* item) {
    QList<void*> pointers;
    item->GetRatingItemList(pointers);
    QList<QRatingItemVirtual*> out;
    for (void* pointer : pointers)
        out.append(MarkPointer::item(pointer));
    return out;
}

QList<CalcCall> intervalCalls() {
    QList<CalcCall> out;
    for (const CalcCall& call : CalcRecorder::calls()) {
        if (call.function == QLatin1String("CAL_Interval"))
            out.append(call);
    }
    return out;
}

const QString kMissing = QStringLiteral("缺少评分项，不得分");
const QString kSurplus = QStringLiteral("存在多余评分项，不得分");

QRatingItem_Tally* create(const QByteArray& className) {
    const QList<QRatingItem_Tally*> prototypes{new QRatingItem_Ash, new QRatingItem_Elm, new QRatingItem_Fir,
                                               new QRatingItem_Yew, new QRatingItem_Oak};
    QRatingItem_Tally* made = nullptr;
    for (QRatingItem_Tally* prototype : prototypes) {
        if (className == prototype->metaObject()->className())
            made = MarkPointer::item<QRatingItem_Tally>(prototype->CreateRatingItem(nullptr));
    }
    qDeleteAll(prototypes);
    return made;
}

// A tree with every field of the record set away from its default, children included.
QRatingItem_Tally* fullTree(const QByteArray& className) {
    QRatingItem_Tally* root = create(className);
    // Status and standard value are results of scoring (status 3 leaves everything else alone).
    Item standard(create(className));
    standard->SetRatingItemRate(4.5);
    int n = 0;
    for (QRatingItem_Tally* item : {root, create(className), create(className)}) {
        ++n;
        item->ExecuteDBScore(MarkPointer::fromItem(standard.get()), 3);
        item->SetRatingItemLevel(n);
        item->SetAttributeType(9 + n);
        item->SetRatingItemName(QStringLiteral("名称%1").arg(n));
        item->SetRatingItemScore(1.25 * n);
        item->SetRatingItemScoreStd(2.5 * n);
        item->SetRatingItemUnit(QStringLiteral("m3"));
        item->SetRatingItemLock(true);
        item->SetRatingItemRemark(QStringLiteral("备注%1").arg(n));
        item->SetRatingItemUnitProject(true);
        item->SetRatingItemCode(QStringLiteral("C%1").arg(n));
        item->SetRatingItemFeature(QStringLiteral("feature %1").arg(n));
        item->SetRatingItemQuantity(3.5 * n);
        item->SetRatingItemRate(12.75 * n);
        item->SetRatingItemRatio(0.25 * n);
        item->SetRatingItemLimit(6.5 + n, 1.5 + n);
        item->SetRatingItemPrecision(3 + n);
        if (item != root)
            add(root, item);
    }
    return root;
}

QJsonObject toJson(QRatingItemVirtual* item) {
    QJsonObject object;
    item->DoSerialize(object, false);
    return object;
}

QByteArray toBytes(QRatingItemVirtual* item) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    item->DoSerialize(stream, false);
    return bytes;
}

QDataStream::Status readBytes(QRatingItemVirtual* item, const QByteArray& bytes) {
    QDataStream stream(bytes);
    item->DoSerialize(stream, true);
    return stream.status();
}

// The fixed part of a pricing item's stream record, written field by field, without children.
void writeRecordHead(QDataStream& stream, const QString& name) {
    stream << qint32(0) << qint32(2) << name << 0.0 << 0.0 << QString() << false << qint32(0) << QString()
           << QString() << false << QString() << QString() << 0.0 << 0.0 << 0.0 << 5.0 << 2.0;
}

int depth(QRatingItemVirtual* item) {
    int levels = 0;
    while (item) {
        ++levels;
        const QList<QRatingItemVirtual*> list = childItems(item);
        item = list.isEmpty() ? nullptr : list.first();
    }
    return levels;
}

} // namespace

class TestTallyItem : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QVERIFY(CalcRecorder::substitutedInMarkRule()); }
    void init() { CalcRecorder::reset(); }

    void defaults();
    void valueText_data();
    void valueText();
    void yewValueText_data();
    void yewValueText();
    void keys_data();
    void keys();
    void matching_data();
    void matching();
    void intervalCallSite();
    void intervalNotCalled_data();
    void intervalNotCalled();
    void sharedKeyScoresLatest();
    void typeOneFallsBackToFirstInKeyOrder();
    void addedChildrenRestored_data();
    void addedChildrenRestored();
    void addedChildrenAfterClear();
    void surplus_data();
    void surplus();
    void unitProject_data();
    void unitProject();
    void plainDistribution();
    void limits_data();
    void limits();
    void limitRecursion();
    void colour_data();
    void colour();
    void calculateData();
    void jsonRoundTrip_data();
    void jsonRoundTrip();
    void jsonMissingKeys();
    void streamRoundTrip_data();
    void streamRoundTrip();
    void streamLayout();
    void truncatedStream();
    void hostileCounts_data();
    void hostileCounts();
    void deepNesting();
};

void TestTallyItem::defaults() {
    QRatingItem_Oak item;
    QCOMPARE(item.GetRatingItemUpperLimit(), 5.0);
    QCOMPARE(item.GetRatingItemLowerLimit(), 2.0);
    QCOMPARE(item.GetRatingItemCode(), QString());
    QCOMPARE(item.GetClassName(), QStringLiteral("QRatingItemBase"));
    QRatingItem_Yew yew; // precision 2: the two-decimal text
    yew.SetRatingItemRate(2.5);
    QCOMPARE(yew.GetRatingItemValue(), QStringLiteral("2.50"));
}

void TestTallyItem::valueText_data() {
    QTest::addColumn<double>("rate");
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << 0.0 << "0";
    QTest::newRow("below threshold") << 1e-11 << "0";
    QTest::newRow("negative below threshold") << -1e-11 << "0";
    QTest::newRow("two decimals") << 2.5 << "2.50";
    QTest::newRow("whole") << 7.0 << "7";
    QTest::newRow("rounded up to whole") << 6.999 << "7";
    QTest::newRow("twelve and a half") << 12.5 << "12.50";
    QTest::newRow("negative") << -3.0 << "-3";
    QTest::newRow("hundreds") << 100.0 << "100";
}

void TestTallyItem::valueText() {
    QFETCH(double, rate);
    QFETCH(QString, text);
    for (QByteArray name : {"QRatingItem_Ash", "QRatingItem_Elm", "QRatingItem_Fir", "QRatingItem_Oak"}) {
        Item item(create(name));
        item->SetRatingItemRate(rate);
        QCOMPARE(item->GetRatingItemValue(), text);
        QCOMPARE(item->GetRatingItemAmount(), rate);
    }
    // The standard value takes the standard's amount in the same format.
    Item standard(tally(QString(), rate)), student(tally(QString()));
    student->ExecuteDBScore(MarkPointer::fromItem(standard.get()), 2);
    QCOMPARE(student->GetRatingItemValueStd(), text);
}

void TestTallyItem::yewValueText_data() {
    QTest::addColumn<int>("precision");
    QTest::addColumn<double>("rate");
    QTest::addColumn<QString>("text");
    QTest::newRow("precision 2") << 2 << 1234567.0 << "1234567";
    QTest::newRow("precision 2, zero") << 2 << 0.0 << "0";
    QTest::newRow("precision 3") << 3 << 2.5 << "2.5";
    QTest::newRow("precision 0, whole") << 0 << 7.0 << "7";
    QTest::newRow("six significant digits") << 4 << 3.14159265 << "3.14159";
    QTest::newRow("exponent") << 1 << 1234567.0 << "1.23457e+06";
    QTest::newRow("small") << 5 << 0.0001 << "0.0001";
}

void TestTallyItem::yewValueText() {
    QFETCH(int, precision);
    QFETCH(double, rate);
    QFETCH(QString, text);
    QRatingItem_Yew yew;
    yew.SetRatingItemPrecision(precision);
    yew.SetRatingItemRate(rate);
    QCOMPARE(yew.GetRatingItemValue(), text);
}

void TestTallyItem::keys_data() {
    QTest::addColumn<int>("attributeType");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("key");
    QTest::newRow("name") << 0 << "C1"
                          << "  土方  开挖 "
                          << "土方 开挖";
    QTest::newRow("code") << 10 << " C 1 "
                          << "x"
                          << "C 1";
    QTest::newRow("code then name") << 11 << "C1"
                                    << "x"
                                    << "C1x";
    QTest::newRow("code then name, simplified") << 11 << " C1 "
                                                << " x "
                                                << "C1 x";
    QTest::newRow("other type: name") << 12 << "C1"
                                      << "x"
                                      << "x";
}

void TestTallyItem::keys() {
    QFETCH(int, attributeType);
    QFETCH(QString, code);
    QFETCH(QString, name);
    QFETCH(QString, key);
    Item parent(tally(QStringLiteral("parent")));
    QRatingItem_Tally* child = add(parent.get(), tally(name, 0.0, attributeType, code));
    QCOMPARE(child->GetRatingItemIndex(), key);
    QCOMPARE(parent->GetRatingItemByIndex(key), MarkPointer::fromItem(child));
    QVERIFY(parent->IsRatingItemExist(QStringLiteral("  ") + key + QStringLiteral(" ")));
    QVERIFY(!parent->IsRatingItemExist(key + QStringLiteral("?")));
}

void TestTallyItem::matching_data() {
    QTest::addColumn<int>("attributeType");
    QTest::addColumn<QString>("standardCode");
    QTest::addColumn<QString>("standardName");
    QTest::addColumn<QString>("studentCode");
    QTest::addColumn<QString>("studentName");
    QTest::addColumn<bool>("paired");
    QTest::newRow("name, codes differ") << 0 << "A"
                                        << "x"
                                        << "B"
                                        << "x" << true;
    QTest::newRow("name differs") << 0 << "A"
                                  << "x"
                                  << "A"
                                  << "y" << false;
    QTest::newRow("name, white space") << 0 << "A"
                                       << " a  b"
                                       << "A"
                                       << "a b " << true;
    QTest::newRow("code, names differ") << 10 << "A"
                                        << "x"
                                        << "A"
                                        << "y" << true;
    QTest::newRow("code differs") << 10 << "A"
                                  << "x"
                                  << "B"
                                  << "x" << false;
    QTest::newRow("code and name") << 11 << "A"
                                   << "x"
                                   << "A"
                                   << "x" << true;
    QTest::newRow("code and name, name differs") << 11 << "A"
                                                 << "x"
                                                 << "A"
                                                 << "y" << false;
    QTest::newRow("code and name joined") << 11 << "A"
                                          << "Bx"
                                          << "AB"
                                          << "x" << true;
}

void TestTallyItem::matching() {
    QFETCH(int, attributeType);
    QFETCH(QString, standardCode);
    QFETCH(QString, standardName);
    QFETCH(QString, studentCode);
    QFETCH(QString, studentName);
    QFETCH(bool, paired);
    Item standard(tally(QStringLiteral("root"))), student(tally(QStringLiteral("root")));
    QRatingItem_Tally* standardChild =
        add(standard.get(), tally(standardName, 1.0, attributeType, standardCode));
    standardChild->SetRatingItemScoreStd(4.0);
    QRatingItem_Tally* studentChild = add(student.get(), tally(studentName, 9.0, attributeType, studentCode));

    const double score = student->ExecuteDBScore(MarkPointer::fromItem(standard.get()), 1);
    const QList<QRatingItemVirtual*> list = childItems(student.get());
    if (paired) {
        QCOMPARE(list, QList<QRatingItemVirtual*>{studentChild});
        QCOMPARE(studentChild->GetRatingItemValueStd(), QStringLiteral("1"));
        QCOMPARE(intervalCalls().size(), 1);
        QCOMPARE(score, 4.0); // the double's default: full points
        return;
    }
    QCOMPARE(list.size(), 2);
    QCOMPARE(list.at(0)->GetRatingItemRemark(), kMissing);
    QCOMPARE(list.at(0)->GetRatingItemName(), standardName);
    QCOMPARE(list.at(0)->GetRatingItemScore(), 0.0);
    QCOMPARE(list.at(0)->metaObject()->className(), "QRatingItem_Ash");
    QCOMPARE(list.at(1), studentChild);
    QCOMPARE(studentChild->GetRatingItemRemark(), kSurplus);
    QVERIFY(intervalCalls().isEmpty());
    QCOMPARE(score, 0.0);
}

void TestTallyItem::intervalCallSite() {
    Item standard(tally(QStringLiteral("x"), 100.0)), student(tally(QStringLiteral("x"), 103.0));
    standard->SetRatingItemScoreStd(8.0);
    standard->SetRatingItemScore(99.0); // not the points
    standard->SetRatingItemLimit(6.5, 1.5);
    student->SetRatingItemLimit(0.2, 0.1); // the student's own band is not used
    student->SetRatingItemRemark(QStringLiteral("old"));
    CalcRecorder::setResponder([](const CalcCall&) { return 3.75; });
    CalcRecorder::setRemark(QStringLiteral("偏差"));

    QCOMPARE(student->ExecuteDBScore(MarkPointer::fromItem(standard.get()), 1), 3.75);
    const QList<CalcCall> calls = intervalCalls();
    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls.first().args, (QVariantList{103.0, 100.0, 8.0, 1.5, 6.5}));
    QCOMPARE(calls.first().remarkIn, QString()); // ordinary scoring cleared it first
    QCOMPARE(student->GetRatingItemScore(), 3.75);
    QCOMPARE(student->GetRatingItemRemark(), QStringLiteral("偏差"));
    QCOMPARE(student->GetRatingItemScoreStd(), 8.0);
    QCOMPARE(student->GetRatingItemValueStd(), QStringLiteral("100"));
    QCOMPARE(student->GetRatingItemColor(), int(Qt::black));

    // The same leaf hook on its own.
    CalcRecorder::reset();
    QCOMPARE(student->CalculateRatingItemScore(MarkPointer::fromItem(standard.get())), 8.0);
    QCOMPARE(intervalCalls().size(), 1);
}

void TestTallyItem::intervalNotCalled_data() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("nullStandard");
    QTest::newRow("missing") << 2 << false;
    QTest::newRow("surplus") << 4 << false;
    QTest::newRow("null standard") << 1 << true;
}

void TestTallyItem::intervalNotCalled() {
    QFETCH(int, mode);
    QFETCH(bool, nullStandard);
    Item standard(tally(QStringLiteral("x"), 100.0)), student(tally(QStringLiteral("x"), 103.0));
    standard->SetRatingItemScoreStd(8.0);
    student->SetRatingItemScore(5.0);
    void* pointer = nullStandard ? nullptr : MarkPointer::fromItem(standard.get());
    const double score = student->ExecuteDBScore(pointer, mode);
    QVERIFY(intervalCalls().isEmpty());
    QCOMPARE(score, 0.0);
    QCOMPARE(student->GetRatingItemScore(), nullStandard ? 5.0 : 0.0);
    QCOMPARE(student->CalculateRatingItemScore(nullptr), 0.0);
}

void TestTallyItem::sharedKeyScoresLatest() {
    Item standard(tally(QStringLiteral("root"))), student(tally(QStringLiteral("root")));
    add(standard.get(), tally(QStringLiteral("s"), 1.0, 10, QStringLiteral("A")));
    QRatingItem_Tally* first =
        add(student.get(), tally(QStringLiteral("first"), 2.0, 10, QStringLiteral("A")));
    QRatingItem_Tally* last = add(student.get(), tally(QStringLiteral("last"), 3.0, 10, QStringLiteral("A")));
    first->SetRatingItemRemark(QStringLiteral("untouched"));

    student->ExecuteDBScore(MarkPointer::fromItem(standard.get()), 1);
    QCOMPARE(childItems(student.get()), QList<QRatingItemVirtual*>{last});
    QCOMPARE(intervalCalls().size(), 1);
    QCOMPARE(intervalCalls().first().args.first().toDouble(), 3.0);
    QCOMPARE(first->GetRatingItemRemark(), QStringLiteral("untouched")); // neither scored nor surplus
}

void TestTallyItem::typeOneFallsBackToFirstInKeyOrder() {
    Item standard(tally(QStringLiteral("root"))), student(tally(QStringLiteral("root"), 0.0, 1));
    add(standard.get(), tally(QStringLiteral("a"), 1.0));
    add(standard.get(), tally(QStringLiteral("d"), 4.0));
    QRatingItem_Tally* c = add(student.get(), tally(QStringLiteral("c"), 30.0));
    QRatingItem_Tally* b1 = add(student.get(), tally(QStringLiteral("b"), 20.0));
    QRatingItem_Tally* b2 = add(student.get(), tally(QStringLiteral("b"), 21.0));
    QRatingItem_Tally* d = add(student.get(), tally(QStringLiteral("d"), 40.0));
    c->SetRatingItemRemark(QStringLiteral("untouched"));

    student->ExecuteDBScore(MarkPointer::fromItem(standard.get()), 1);
    // "a" has no counterpart: the first in key order ("b", the later one first) takes its place.
    const QList<CalcCall> calls = intervalCalls();
    QCOMPARE(calls.size(), 2);
    QCOMPARE(calls.at(0).args.mid(0, 2), (QVariantList{21.0, 1.0}));
    QCOMPARE(calls.at(1).args.mid(0, 2), (QVariantList{40.0, 4.0}));
    QCOMPARE(childItems(student.get()), (QList<QRatingItemVirtual*>{b2, d}));
    QCOMPARE(b2->GetRatingItemValueStd(), QStringLiteral("1"));
    // No missing item; the others are not reported as surplus.
    QCOMPARE(c->GetRatingItemRemark(), QStringLiteral("untouched"));
    QVERIFY(b1->GetRatingItemRemark().isEmpty());
}

void TestTallyItem::addedChildrenRestored_data() {
    QTest::addColumn<int>("attributeType");
    for (int type : {2, 3, 4, 15, 17, 18})
        QTest::addRow("type %d", type) << type;
}

void TestTallyItem::addedChildrenRestored() {
    QFETCH(int, attributeType);
    Item standard(tally(QStringLiteral("root"))), student(tally(QStringLiteral("root"), 0.0, attributeType));
    add(standard.get(), tally(QStringLiteral("z"), 1.0))->SetRatingItemScoreStd(2.0);
    add(standard.get(), tally(QStringLiteral("q"), 1.0))->SetRatingItemScoreStd(6.0);
    QRatingItem_Tally* p = add(student.get(), tally(QStringLiteral("p"), 5.0));
    QRatingItem_Tally* q = add(student.get(), tally(QStringLiteral("q"), 5.0));
    QRatingItem_Tally* r = add(student.get(), tally(QStringLiteral("r"), 5.0));
    QRatingItem_Tally* rChild = add(r, tally(QStringLiteral("r1")));
    for (QRatingItem_Tally* item : {p, r, rChild}) { // results of an earlier scoring
        item->SetRatingItemScore(3.0);
        item->SetRatingItemScoreStd(3.0);
        item->SetRatingItemRemark(QStringLiteral("stale"));
    }

    for (int round = 0; round < 2; ++round) {
        CalcRecorder::reset();
        QCOMPARE(student->ExecuteDBScore(MarkPointer::fromItem(standard.get()), 1), 6.0);
        QCOMPARE(childItems(student.get()), (QList<QRatingItemVirtual*>{p, q, r}));
        QCOMPARE(intervalCalls().size(), 1);
        QCOMPARE(q->GetRatingItemScore(), 6.0);
        for (QRatingItem_Tally* item : {p, r, rChild}) {
            QCOMPARE(item->GetRatingItemScore(), 0.0);
            QCOMPARE(item->GetRatingItemScoreStd(), 0.0);
            QCOMPARE(item->GetRatingItemRemark(), QString());
        }
    }
}

void TestTallyItem::addedChildrenAfterClear() {
    // Children released by ClearRatingItemData are not restored later; newly added ones are.
    Item standard(tally(QStringLiteral("root"))), student(tally(QStringLiteral("root"), 0.0, 3));
    add(standard.get(), tally(QStringLiteral("q"), 1.0));
    add(student.get(), tally(QStringLiteral("old")));
    student->ClearRatingItemData();
    QRatingItem_Tally* fresh = add(student.get(), tally(QStringLiteral("new")));
    student->ExecuteDBScore(MarkPointer::fromItem(standard.get()), 1);
    QCOMPARE(childItems(student.get()), QList<QRatingItemVirtual*>{fresh});
}

void TestTallyItem::surplus_data() {
    QTest::addColumn<int>("attributeType");
    QTest::addColumn<bool>("listed");
    QTest::addColumn<QString>("remark");
    QTest::newRow("type 0") << 0 << true << kSurplus;
    QTest::newRow("type 5") << 5 << true << kSurplus;
    QTest::newRow("type 16") << 16 << true << kSurplus;
    QTest::newRow("type 1: ignored") << 1 << false << "before";
    for (int type : {2, 3, 4, 15, 17, 18})
        QTest::addRow("type %d: restored, cleared", type) << type << true << "";
}

void TestTallyItem::surplus() {
    QFETCH(int, attributeType);
    QFETCH(bool, listed);
    QFETCH(QString, remark);
    Item standard(tally(QStringLiteral("root"))), student(tally(QStringLiteral("root"), 0.0, attributeType));
    add(standard.get(), tally(QStringLiteral("y"), 1.0))->SetRatingItemScoreStd(2.0);
    QRatingItem_Tally* y = add(student.get(), tally(QStringLiteral("y"), 1.0));
    QRatingItem_Tally* x = add(student.get(), tally(QStringLiteral("x"), 1.0));
    x->SetRatingItemRemark(QStringLiteral("before"));
    x->SetRatingItemScore(1.0);

    QCOMPARE(student->ExecuteDBScore(MarkPointer::fromItem(standard.get()), 1), 2.0);
    QCOMPARE(student->IsSurplusIgnored(), remark != kSurplus);
    QCOMPARE(childItems(student.get()).contains(x), listed);
    QCOMPARE(childItems(student.get()).first(), y);
    QCOMPARE(x->GetRatingItemRemark(), remark);
    QCOMPARE(x->GetRatingItemScore(), listed ? 0.0 : 1.0);
}

void TestTallyItem::unitProject_data() {
    QTest::addColumn<bool>("redistribute");
    QTest::newRow("AssignScore") << false;
    QTest::newRow("RedistributeScore") << true;
}

void TestTallyItem::unitProject() {
    QFETCH(bool, redistribute);
    Item root(tally(QStringLiteral("project")));
    root->SetRatingItemUnitProject(true);
    QRatingItem_Tally* first = add(root.get(), tally(QStringLiteral("first")));
    QRatingItem_Tally* other = add(root.get(), tally(QStringLiteral("other")));
    QRatingItem_Tally* a = add(first, tally(QStringLiteral("a")));
    QRatingItem_Tally* b = add(first, tally(QStringLiteral("b")));
    QRatingItem_Tally* a1 = add(a, tally(QStringLiteral("a1")));
    QRatingItem_Tally* a2 = add(a, tally(QStringLiteral("a2")));
    a->SetRatingItemRatio(0.3);
    b->SetRatingItemRatio(0.7);
    for (QRatingItem_Tally* item : {root.get(), first, other, a, b, a1, a2}) {
        item->SetRatingItemScore(-1.0);
        item->SetRatingItemScoreStd(-1.0);
    }

    if (redistribute)
        root->RedistributeScore(100.0);
    else
        root->AssignScore(100.0);
    QCOMPARE(root->GetRatingItemScoreStd(), 100.0);
    QCOMPARE(first->GetRatingItemScoreStd(), 100.0);
    QCOMPARE(first->GetRatingItemScore(), -1.0); // its own score is not assigned
    QCOMPARE(a->GetRatingItemScoreStd(), 30.0);
    QCOMPARE(b->GetRatingItemScoreStd(), 70.0);
    QCOMPARE(other->GetRatingItemScoreStd(), -1.0);
    QCOMPARE(other->GetRatingItemScore(), -1.0);
    // Below the ratio items the chosen distribution runs on: scores or standard scores.
    QCOMPARE(a->GetRatingItemScore(), redistribute ? -1.0 : 30.0);
    QCOMPARE(a1->GetRatingItemScoreStd(), 15.0);
    QCOMPARE(a1->GetRatingItemScore(), redistribute ? -1.0 : 15.0);
    QCOMPARE(root->GetRatingItemScore(), -1.0);

    Item empty(tally(QStringLiteral("empty")));
    empty->SetRatingItemUnitProject(true);
    empty->AssignScore(5.0);
    QCOMPARE(empty->GetRatingItemScoreStd(), 5.0);
    QCOMPARE(empty->GetRatingItemScore(), 0.0);
}

void TestTallyItem::plainDistribution() {
    Item root(tally(QStringLiteral("root")));
    QRatingItem_Tally* a = add(root.get(), tally(QStringLiteral("a")));
    QRatingItem_Tally* b = add(root.get(), tally(QStringLiteral("b")));
    QRatingItem_Tally* c = add(root.get(), tally(QStringLiteral("c")));
    QRatingItem_Tally* a1 = add(a, tally(QStringLiteral("a1")));
    root->AssignScore(9.0);
    for (QRatingItem_Tally* item : {a, b, c}) {
        QCOMPARE(item->GetRatingItemScore(), 3.0);
        QCOMPARE(item->GetRatingItemScoreStd(), 3.0);
    }
    QCOMPARE(root->GetRatingItemScoreStd(), 9.0);
    QCOMPARE(a1->GetRatingItemScoreStd(), 3.0);

    a->SetRatingItemLock(true);
    a->SetRatingItemScoreStd(4.0);
    root->RedistributeScore(10.0);
    QCOMPARE(a->GetRatingItemScoreStd(), 4.0);
    QCOMPARE(b->GetRatingItemScoreStd(), 3.0);
    QCOMPARE(c->GetRatingItemScoreStd(), 3.0);
}

void TestTallyItem::limits_data() {
    QTest::addColumn<double>("current");
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("changes");
    QTest::newRow("same value") << 5.0 << 5.0 << false;
    QTest::newRow("1e-12 above") << 5.0 << 5.0 + 1e-12 << false;
    QTest::newRow("a whole unit") << 5.0 << 6.0 << true;
    QTest::newRow("9.9e-11 away") << 0.0 << 9.9e-11 << false;
    // 1e-10 is not above the threshold in double precision, but is once rounded to single precision.
    QTest::newRow("1e-10 away") << 0.0 << 1e-10 << true;
    QTest::newRow("9.9999999e-11 away") << 0.0 << 9.9999999e-11 << true;
}

void TestTallyItem::limits() {
    QFETCH(double, current);
    QFETCH(double, value);
    QFETCH(bool, changes);
    Item item(tally(QStringLiteral("x")));
    QRatingItem_Tally* child = add(item.get(), tally(QStringLiteral("c")));
    item->SetRatingItemLimit(current, current);
    child->SetRatingItemLimit(-7.0, -8.0);

    item->SetRatingItemUpperLimit(value, true);
    QCOMPARE(item->GetRatingItemUpperLimit(), changes ? value : current);
    QCOMPARE(child->GetRatingItemUpperLimit(), changes ? value : -7.0);
    item->SetRatingItemLowerLimit(value, true);
    QCOMPARE(item->GetRatingItemLowerLimit(), changes ? value : current);
    QCOMPARE(child->GetRatingItemLowerLimit(), changes ? value : -8.0);
}

void TestTallyItem::limitRecursion() {
    Item root(tally(QStringLiteral("root")));
    QRatingItem_Tally* child = add(root.get(), tally(QStringLiteral("c")));
    QRatingItem_Tally* grandchild = add(child, tally(QStringLiteral("g")));
    root->SetRatingItemUpperLimit(7.0, false);
    root->SetRatingItemLowerLimit(1.0, false);
    QCOMPARE(child->GetRatingItemUpperLimit(), 5.0);
    QCOMPARE(child->GetRatingItemLowerLimit(), 2.0);

    root->SetRatingItemUpperLimit(8.0, true);
    QCOMPARE(root->GetRatingItemUpperLimit(), 8.0);
    QCOMPARE(child->GetRatingItemUpperLimit(), 8.0);
    QCOMPARE(grandchild->GetRatingItemUpperLimit(), 8.0);
    QCOMPARE(grandchild->GetRatingItemLowerLimit(), 2.0);
    // An item that already has the value stops the recursion, at the root or below.
    grandchild->SetRatingItemLimit(9.0, 9.0);
    root->SetRatingItemUpperLimit(8.0, true);
    QCOMPARE(grandchild->GetRatingItemUpperLimit(), 9.0);
    child->SetRatingItemLimit(6.0, 2.0);
    root->SetRatingItemUpperLimit(6.0, true);
    QCOMPARE(root->GetRatingItemUpperLimit(), 6.0);
    QCOMPARE(grandchild->GetRatingItemUpperLimit(), 9.0);
}

void TestTallyItem::colour_data() {
    QTest::addColumn<double>("score");
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("colour");
    QTest::newRow("zero, level 1") << 0.0 << 1 << int(Qt::red);
    QTest::newRow("below threshold") << 0.5e-10 << 2 << int(Qt::red);
    QTest::newRow("negative") << -1.0 << 1 << int(Qt::red);
    QTest::newRow("level 1") << 1.0 << 1 << int(Qt::blue);
    QTest::newRow("level 2") << 1.0 << 2 << int(Qt::black);
    QTest::newRow("level 0") << 1.0 << 0 << int(Qt::black);
}

void TestTallyItem::colour() {
    QFETCH(double, score);
    QFETCH(int, level);
    QFETCH(int, colour);
    QRatingItem_Fir item;
    item.SetRatingItemScore(score);
    item.SetRatingItemLevel(level);
    QCOMPARE(item.GetRatingItemColor(), colour);
}

void TestTallyItem::calculateData() {
    QRatingItem_Ash ash;
    ash.SetRatingItemScoreStd(6.5);
    ash.SetRatingItemLock(true);
    CalculateRecord record{0.0, false, QStringLiteral("keep")};
    ash.GetCalculateData(&record);
    QCOMPARE(record.scoreStd, 6.5);
    QCOMPARE(record.locked, true);
    QCOMPARE(record.value, QStringLiteral("keep"));
    ash.GetCalculateData(nullptr);

    QRatingItem_Elm elm; // the other products keep the interface's no-op
    elm.SetRatingItemScoreStd(6.5);
    CalculateRecord untouched{1.0, false, QString()};
    elm.GetCalculateData(&untouched);
    QCOMPARE(untouched.scoreStd, 1.0);
}

void TestTallyItem::jsonRoundTrip_data() {
    QTest::addColumn<QByteArray>("className");
    for (const char* name :
         {"QRatingItem_Ash", "QRatingItem_Elm", "QRatingItem_Fir", "QRatingItem_Yew", "QRatingItem_Oak"})
        QTest::newRow(name) << QByteArray(name);
}

void TestTallyItem::jsonRoundTrip() {
    QFETCH(QByteArray, className);
    const bool yew = className == "QRatingItem_Yew";
    Item original(fullTree(className));
    const QJsonObject written = toJson(original.get());
    const QJsonObject expected{
        {"itemlevel", 1},         {"attribute", 10},     {"itemname", QStringLiteral("名称1")},
        {"scorestd", 2.5},        {"score", 1.25},       {"unit", "m3"},
        {"locked", true},         {"status", 3},         {"remark", QStringLiteral("备注1")},
        {"valuestd", "4.50"},     {"unitproject", true}, {"code", "C1"},
        {"feature", "feature 1"}, {"quantity", 3.5},     {"rate", 12.75},
        {"ratio", 0.25},          {"upperrange", 7.5},   {"lowerrange", 2.5}};
    for (auto it = expected.begin(); it != expected.end(); ++it)
        QCOMPARE(written.value(it.key()), it.value());
    QCOMPARE(written.value(QStringLiteral("items")).toArray().size(), 2);
    QCOMPARE(written.size(), expected.size() + 1 + (yew ? 1 : 0));
    QCOMPARE(written.value(QStringLiteral("precision")),
             yew ? QJsonValue(4) : QJsonValue(QJsonValue::Undefined));

    Item loaded(create(className));
    QJsonObject input = written;
    loaded->DoSerialize(input, true);
    QCOMPARE(toJson(loaded.get()), written);
    QCOMPARE(loaded->GetRatingItemValueStd(), QStringLiteral("4.50"));
    const QList<QRatingItemVirtual*> list = childItems(loaded.get());
    QCOMPARE(list.size(), 2);
    QCOMPARE(list.at(1)->metaObject()->className(), className.constData());
    QCOMPARE(list.at(1)->GetRatingItemAmount(), 38.25);
    QCOMPARE(list.at(1)->GetRatingItemFeature(), QStringLiteral("feature 3"));
    QCOMPARE(list.at(1)->GetRatingItemLevel(), 3);
    // Loaded children are matchable under their keys again.
    QVERIFY(loaded->IsRatingItemExist(QStringLiteral("C2名称2")));
    if (yew) {
        QJsonObject precision{{"precision", 3}, {"rate", 2.5}};
        loaded->DoSerialize(precision, true);
        QCOMPARE(loaded->GetRatingItemValue(), QStringLiteral("2.5")); // not 2.50: precision 3
    }
}

void TestTallyItem::jsonMissingKeys() {
    QRatingItem_Yew item;
    QJsonObject empty{{"upperrange", "5"}}; // wrong type reads as missing
    item.DoSerialize(empty, true);
    QCOMPARE(item.GetRatingItemUpperLimit(), 0.0);
    QCOMPARE(item.GetRatingItemLowerLimit(), 0.0);
    QCOMPARE(item.GetRatingItemLevel(), 0);
    QCOMPARE(item.GetRatingItemAmount(), 0.0);
    QCOMPARE(item.GetRatingItemName(), QString());
    QVERIFY(!item.GetRatingItemLock());
    QVERIFY(!item.HasChildRatingItem());
    item.SetRatingItemRate(2.5);
    QCOMPARE(item.GetRatingItemValue(), QStringLiteral("2.5")); // precision read as 0: 'g' format
}

void TestTallyItem::streamRoundTrip_data() {
    QTest::addColumn<QByteArray>("className");
    QTest::addColumn<bool>("singlePrecision");
    for (const char* name :
         {"QRatingItem_Ash", "QRatingItem_Elm", "QRatingItem_Fir", "QRatingItem_Yew", "QRatingItem_Oak"})
        QTest::newRow(name) << QByteArray(name) << false;
    QTest::newRow("Yew, single precision") << QByteArray("QRatingItem_Yew") << true;
}

void TestTallyItem::streamRoundTrip() {
    QFETCH(QByteArray, className);
    QFETCH(bool, singlePrecision);
    Item original(fullTree(className));
    QByteArray bytes;
    {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        if (singlePrecision)
            out.setFloatingPointPrecision(QDataStream::SinglePrecision);
        original->DoSerialize(out, false);
        QCOMPARE(out.status(), QDataStream::Ok);
    }
    Item loaded(create(className));
    QDataStream in(bytes);
    if (singlePrecision)
        in.setFloatingPointPrecision(QDataStream::SinglePrecision);
    loaded->DoSerialize(in, true);
    QCOMPARE(in.status(), QDataStream::Ok);
    QVERIFY(in.atEnd());
    // Every field of both records, children and Yew's precision included, compared through the
    // JSON record, which holds them all.
    QCOMPARE(toJson(loaded.get()), toJson(original.get()));
    QCOMPARE(childItems(loaded.get()).size(), 2);
}

void TestTallyItem::streamLayout() {
    for (const char* name : {"QRatingItem_Oak", "QRatingItem_Yew"}) {
        Item item(fullTree(name));
        const QByteArray bytes = toBytes(item.get());
        QDataStream in(bytes);
        qint32 attribute = 0, level = 0, status = 0, precision = -1, count = 0;
        QString itemName, unit, remark, valueStd, code, feature;
        double score = 0, scoreStd = 0, quantity = 0, rate = 0, ratio = 0, upper = 0, lower = 0;
        bool locked = false, unitProject = false;
        in >> attribute >> level >> itemName >> score >> scoreStd >> unit >> locked >> status >> remark >>
            valueStd >> unitProject >> code >> feature >> quantity >> rate >> ratio >> upper >> lower;
        if (qstrcmp(name, "QRatingItem_Yew") == 0)
            in >> precision;
        in >> count;
        QCOMPARE(in.status(), QDataStream::Ok);
        QCOMPARE(attribute, 10);
        QCOMPARE(level, 1);
        QCOMPARE(itemName, QStringLiteral("名称1"));
        QCOMPARE(score, 1.25);
        QCOMPARE(scoreStd, 2.5);
        QCOMPARE(unit, QStringLiteral("m3"));
        QVERIFY(locked);
        QCOMPARE(status, 3);
        QCOMPARE(remark, QStringLiteral("备注1"));
        QCOMPARE(valueStd, QStringLiteral("4.50"));
        QVERIFY(unitProject);
        QCOMPARE(code, QStringLiteral("C1"));
        QCOMPARE(feature, QStringLiteral("feature 1"));
        QCOMPARE((QList<double>{quantity, rate, ratio, upper, lower}),
                 (QList<double>{3.5, 12.75, 0.25, 7.5, 2.5}));
        QCOMPARE(precision, qstrcmp(name, "QRatingItem_Yew") == 0 ? 4 : -1);
        QCOMPARE(count, 2);
        // The first child's record follows at once.
        in >> attribute >> level;
        QCOMPARE(attribute, 11);
        QCOMPARE(level, 2);
    }
}

void TestTallyItem::truncatedStream() {
    Item original(fullTree("QRatingItem_Yew"));
    const QByteArray bytes = toBytes(original.get());
    for (int length = 0; length < bytes.size(); ++length) {
        Item item(new QRatingItem_Yew);
        QVERIFY2(readBytes(item.get(), bytes.left(length)) != QDataStream::Ok,
                 qPrintable(QString::number(length)));
        QVERIFY(item->GetChildItemCount() <= 2);
    }
}

void TestTallyItem::hostileCounts_data() {
    QTest::addColumn<qint32>("count");
    QTest::addColumn<bool>("oddString");
    QTest::newRow("2^31-1 children") << qint32(0x7fffffff) << false;
    QTest::newRow("negative count") << qint32(-1) << false;
    QTest::newRow("one child, more than is there") << qint32(3) << false;
    QTest::newRow("odd string length in a child") << qint32(1) << true;
}

void TestTallyItem::hostileCounts() {
    QFETCH(qint32, count);
    QFETCH(bool, oddString);
    QByteArray bytes;
    {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        writeRecordHead(out, QStringLiteral("root"));
        out << count;
        if (oddString)
            out << qint32(0) << qint32(2) << quint32(0x7ffffff1) << QByteArray(200, 'x');
        else
            writeRecordHead(out, QStringLiteral("child"));
        out << qint32(0);
    }
    QRatingItem_Ash item;
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(readBytes(&item, bytes), QDataStream::ReadCorruptData);
    QVERIFY(timer.elapsed() < 5000);
    QVERIFY(item.GetChildItemCount() <= 1);
    QCOMPARE(item.GetRatingItemName(), QStringLiteral("root"));
}

void TestTallyItem::deepNesting() {
    // Ten thousand levels of one child each, built as bytes: refused below the depth limit, without
    // exhausting the stack.
    const int levels = 10000;
    QByteArray bytes;
    {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        for (int i = 0; i < levels; ++i) {
            writeRecordHead(out, QStringLiteral("n"));
            out << qint32(i + 1 < levels ? 1 : 0);
        }
    }
    QRatingItem_Oak item;
    QCOMPARE(readBytes(&item, bytes), QDataStream::ReadCorruptData);
    const int depthRead = depth(&item);
    QVERIFY2(depthRead > 1 && depthRead < 1000, qPrintable(QString::number(depthRead)));
    // Writing so deep a tree is refused alike, instead of producing an unreadable record.
    QByteArray written;
    QDataStream out(&written, QIODevice::WriteOnly);
    QRatingItemVirtual* bottom = &item;
    while (!childItems(bottom).isEmpty())
        bottom = childItems(bottom).first();
    for (int i = 0; i < 600; ++i)
        bottom = add(bottom, tally(QStringLiteral("m")));
    item.DoSerialize(out, false);
    QCOMPARE(out.status(), QDataStream::WriteFailed);
}

QTEST_GUILESS_MAIN(TestTallyItem)
#include "tst_tallyitem.moc"
