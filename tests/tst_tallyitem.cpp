// Pricing and model rating items: keys and matching, the attribute-type hooks, unit projects,
// tolerance setters, the records of the pricing items, and the model item's comparison table.
// CalcAlgorithm is the recording double, which checks each call site.
#include "calcrecorder.h"
#include "itemtrees.h"
#include "qratingitem_shape.h"
#include "qratingitem_tally.h"

#include <QtTest>

#include <memory>

namespace {

using Item = std::unique_ptr<QRatingItem_Tally>;
const QString kSurplus = "存在多余评分项，不得分";

QRatingItem_Tally* tally(const QString& name, double rate = 0.0, int type = 0, const QString& code = {}) {
    auto* item = new QRatingItem_Ash;
    item->SetRatingItemName(name);
    item->SetRatingItemRate(rate);
    item->SetAttributeType(type);
    item->SetRatingItemCode(code);
    return item;
}

// Student and standard roots; the student's has the given attribute type.
struct Roots {
    explicit Roots(int type = 0) { student->SetAttributeType(type); }
    double score() { return scoreAgainst(student.get(), standard.get()); }
    QList<QRatingItemVirtual*> children() { return childrenOf(student.get()); }
    Item standard{tally("root")}, student{tally("root")};
};

} // namespace

class TestTallyItem : public QObject {
    Q_OBJECT
private slots:
    void init() { CalcRecorder::reset(); }

    void matching_data() {
        QTest::addColumn<int>("type");
        QTest::addColumn<QStringList>("c"); // standard child's code and name, student child's, its key
        QTest::addColumn<bool>("paired");
        QTest::newRow("name, codes differ") << 0 << QStringList{"A", " a  b", "B", "a b ", "a b"} << true;
        QTest::newRow("name differs") << 0 << QStringList{"A", "x", "A", "y", "y"} << false;
        QTest::newRow("code, names differ") << 10 << QStringList{" C 1", "x", " C 1 ", "y", "C 1"} << true;
        QTest::newRow("code differs") << 10 << QStringList{"A", "x", "B", "x", "B"} << false;
        QTest::newRow("code then name") << 11 << QStringList{"A", "Bx", "AB", "x", "ABx"} << true;
        QTest::newRow("code then name, trimmed")
            << 11 << QStringList{"C1", " x", " C1 ", " x ", "C1 x"} << true;
        QTest::newRow("other type: name") << 12 << QStringList{"A", "x", "B", "x", "x"} << true;
    }
    void matching() {
        QFETCH(int, type);
        QFETCH(QStringList, c);
        QFETCH(bool, paired);
        Roots roots;
        addChild(roots.standard.get(), tally(c[1], 1.0, type, c[0]))->SetRatingItemScoreStd(4.0);
        QRatingItem_Tally* child = addChild(roots.student.get(), tally(c[3], 9.0, type, c[2]));
        QCOMPARE(child->GetRatingItemIndex(), c[4]);
        QVERIFY(roots.student->IsRatingItemExist(" " + c[4] + " ") &&
                !roots.student->IsRatingItemExist(c[4] + "?"));
        // Paired: scored through the interval; else a missing item and the student's as surplus.
        QCOMPARE(roots.score(), paired ? 4.0 : 0.0);
        QVERIFY(CalcRecorder::calls.size() == (paired ? 1 : 0) &&
                roots.children().size() == (paired ? 1 : 2));
        QCOMPARE(roots.children().last(), child);
        QCOMPARE(child->GetRatingItemRemark(), paired ? QString() : kSurplus);
    }

    void intervalCallSite() {
        Item standard(tally("x", 100.5)), student(tally("x", 103.0));
        standard->SetRatingItemScoreStd(8.0);
        standard->SetRatingItemScore(99.0);    // not the points
        student->SetRatingItemLimit(0.2, 0.1); // the band is the standard's, here its defaults
        student->SetRatingItemRemark("old");
        CalcRecorder::respond = [](const CalcCall&) { return 3.75; };
        CalcRecorder::remark = "偏差";
        QCOMPARE(scoreAgainst(student.get(), standard.get()), 3.75);
        // Ordinary scoring cleared the remark before the call: lower, then upper bound.
        QCOMPARE(CalcRecorder::calls.value(0).args, (QVariantList{103.0, 100.5, 8.0, 2.0, 5.0, QString()}));
        QCOMPARE(student->GetRatingItemRemark(), QString("偏差"));
        QVERIFY(student->GetRatingItemScoreStd() == 8.0 && student->GetRatingItemValueStd() == "100.50");
        QCOMPARE(student->GetRatingItemValue(), QString("103"));
        // Missing, surplus or no standard: no call.
        const double others = scoreAgainst(student.get(), standard.get(), 2) +
                              scoreAgainst(student.get(), standard.get(), 4) +
                              student->ExecuteDBScore(nullptr, 1);
        QVERIFY(others == 0.0 && CalcRecorder::calls.size() == 1 &&
                !student->CalculateRatingItemScore(nullptr));
        student->SetRatingItemRate(-1e-11);
        QCOMPARE(student->GetRatingItemValue(), QString("0"));
        // The standard value has no zero rule: two decimals, ".00" removed.
        standard->SetRatingItemRate(-1e-11);
        scoreAgainst(student.get(), standard.get(), 3);
        QCOMPARE(student->GetRatingItemValueStd(), QString("-0"));
    }

    void typeOneFallsBackToFirstInKeyOrder() {
        Roots roots(1);
        addChild(roots.standard.get(), tally("a", 1.0));
        addChild(roots.standard.get(), tally("b", 2.0));
        addChild(roots.standard.get(), tally("d", 4.0));
        QRatingItem_Tally* c = addChild(roots.student.get(), tally("c", 30.0));
        addChild(roots.student.get(), tally("b", 20.0));
        QRatingItem_Tally* b = addChild(roots.student.get(), tally("b", 21.0));
        QRatingItem_Tally* d = addChild(roots.student.get(), tally("d", 40.0));
        c->SetRatingItemRemark("untouched");
        roots.score();
        // "a" has no counterpart: the first in key order ("b", the later one first) takes its place and
        // is scored against its own standard child too, but listed once; no missing item, and the rest
        // are not reported as surplus.
        QVariantList args;
        for (const CalcCall& call : CalcRecorder::calls)
            args += call.args.mid(0, 2);
        QCOMPARE(args, (QVariantList{21.0, 1.0, 21.0, 2.0, 40.0, 4.0}));
        QCOMPARE(roots.children(), (QList<QRatingItemVirtual*>{b, d}));
        QCOMPARE(c->GetRatingItemRemark(), QString("untouched"));
    }

    void unmatchedChildren_data() {
        QTest::addColumn<int>("type");
        for (int type : {0, 5, 16, 2, 3, 4, 15, 17, 18})
            QTest::addRow("type %d", type) << type;
    }
    void unmatchedChildren() {
        QFETCH(int, type);
        const bool restored = type != 0 && type != 5 && type != 16;
        Roots roots(type);
        addChild(roots.standard.get(), tally("z", 1.0))->SetRatingItemScoreStd(2.0);
        addChild(roots.standard.get(), tally("q", 1.0))->SetRatingItemScoreStd(6.0);
        QRatingItem_Tally* p = addChild(roots.student.get(), tally("p", 5.0));
        QRatingItem_Tally* older = addChild(roots.student.get(), tally("q", 4.0));
        QRatingItem_Tally* q = addChild(roots.student.get(), tally("q", 5.0));
        QRatingItem_Tally* r = addChild(roots.student.get(), tally("r", 5.0));
        QRatingItem_Tally* r1 = addChild(r, tally("r1"));
        for (QRatingItem_Tally* item : {p, older, r, r1}) { // results of an earlier scoring
            item->SetRatingItemScore(3.0);
            item->SetRatingItemScoreStd(3.0);
            item->SetRatingItemRemark("stale");
        }
        QCOMPARE(roots.student->IsSurplusIgnored(), restored);
        // Only the later "q" is scored; the older one is neither scored nor surplus. Without a
        // counterpart, "z" is missing, or skipped where the added children are restored (cleared).
        QCOMPARE(roots.score(), 6.0);
        QCOMPARE(CalcRecorder::calls.value(0).args.mid(0, 2), (QVariantList{5.0, 1.0}));
        QList<QRatingItemVirtual*> children = roots.children();
        if (!restored)
            QCOMPARE(children.takeFirst()->GetRatingItemRemark(), QString("缺少评分项，不得分"));
        QCOMPARE(children, (restored ? QList<QRatingItemVirtual*>{p, older, q, r}
                                     : QList<QRatingItemVirtual*>{q, p, r}));
        QCOMPARE(older->GetRatingItemRemark(), QString(restored ? "" : "stale"));
        for (QRatingItem_Tally* item : {p, r, r1}) {
            QVERIFY(item->GetRatingItemScore() == 0.0 && item->GetRatingItemScoreStd() == 0.0);
            QCOMPARE(item->GetRatingItemRemark(), restored || item == r1 ? QString() : kSurplus);
        }
        // Children released by ClearRatingItemData are not restored later.
        roots.student->ClearRatingItemData();
        QRatingItem_Tally* fresh = addChild(roots.student.get(), tally("q"));
        roots.score();
        QVERIFY(roots.children().last() == fresh && roots.children().size() == (restored ? 1 : 2));
    }

    void unitProject_data() {
        QTest::addColumn<bool>("redistribute");
        QTest::newRow("AssignScore") << false;
        QTest::newRow("RedistributeScore") << true;
    }
    void unitProject() {
        QFETCH(bool, redistribute);
        Item root(tally("project"));
        root->SetRatingItemUnitProject(true);
        QRatingItem_Tally* first = addChild(root.get(), tally("first"));
        QRatingItem_Tally* other = addChild(root.get(), tally("other"));
        QRatingItem_Tally* a = addChild(first, tally("a"));
        addChild(first, tally("b"))->SetRatingItemRatio(0.7);
        a->SetRatingItemRatio(0.3);
        QRatingItem_Tally* a1 = addChild(a, tally("a1"));
        addChild(a, tally("a2"));
        redistribute ? root->RedistributeScore(100.0) : root->AssignScore(100.0);
        // The first child takes the standard score but no score, its children their ratio's share, and
        // below them the chosen distribution runs on: scores or standard scores. The rest stay alone.
        QCOMPARE(
            (QList<double>{root->GetRatingItemScoreStd(), first->GetRatingItemScoreStd(),
                           childrenOf(first).last()->GetRatingItemScoreStd(), a->GetRatingItemScoreStd(),
                           a1->GetRatingItemScoreStd(), a1->GetRatingItemScore(), root->GetRatingItemScore(),
                           first->GetRatingItemScore(), other->GetRatingItemScoreStd()}),
            (QList<double>{100, 100, 70, 30, 15, redistribute ? 0.0 : 15.0, 0, 0, 0}));
        // Without the flag: the base distribution, then the standard score.
        root->SetRatingItemUnitProject(false);
        root->AssignScore(8.0);
        QVERIFY(root->GetRatingItemScoreStd() == 8.0 && other->GetRatingItemScoreStd() == 4.0);
    }

    void limits_data() {
        QTest::addColumn<double>("value");
        QTest::addColumn<bool>("recursive");
        QTest::addColumn<bool>("changes");
        QTest::newRow("same value") << 0.0 << true << false;
        QTest::newRow("not recursive") << 1.0 << false << true;
        QTest::newRow("9.9e-11 away") << 9.9e-11 << true << false;
        // 1e-10 is not above the threshold in double precision, but is once rounded to single precision.
        QTest::newRow("1e-10 away") << 1e-10 << true << true;
    }
    void limits() {
        QFETCH(double, value);
        QFETCH(bool, recursive);
        QFETCH(bool, changes);
        Item item(tally("x"));
        QRatingItem_Tally* child = addChild(item.get(), tally("c"));
        QRatingItem_Tally* grandchild = addChild(child, tally("g"));
        item->SetRatingItemLimit(0.0, 0.0);
        child->SetRatingItemLimit(-7.0, -8.0);
        item->SetRatingItemUpperLimit(value, recursive);
        item->SetRatingItemLowerLimit(value, recursive);
        const bool reached = changes && recursive;
        QCOMPARE((QList<double>{item->GetRatingItemUpperLimit(), item->GetRatingItemLowerLimit(),
                                child->GetRatingItemUpperLimit(), child->GetRatingItemLowerLimit(),
                                grandchild->GetRatingItemUpperLimit()}),
                 (QList<double>{changes ? value : 0, changes ? value : 0, reached ? value : -7,
                                reached ? value : -8, reached ? value : 5}));
    }

    void records_data() {
        QTest::addColumn<int>("product");
        for (int product : {MarkCode::ProductAsh, MarkCode::ProductElm, MarkCode::ProductFir,
                            MarkCode::ProductYew, MarkCode::ProductOak})
            QTest::addRow("product %d", product) << product;
    }
    void records() {
        QFETCH(int, product);
        Item item(qobject_cast<QRatingItem_Tally*>(QRatingItemBase::CreateMarkRatingItem(product)));
        auto create = [&] { return MarkPointer::item<QRatingItem_Tally>(item->CreateRatingItem(nullptr)); };
        // Both records of a childless item, written here independently of the library.
        QJsonObject json{{"itemlevel", 1},    {"attribute", 11},    {"itemname", "名称"},  {"scorestd", 2.5},
                         {"score", 1.25},     {"unit", "m3"},       {"locked", true},      {"status", 3},
                         {"remark", "备注"},  {"valuestd", "4.50"}, {"unitproject", true}, {"code", "C1"},
                         {"feature", "特征"}, {"quantity", 3.5},    {"rate", 12.5},        {"ratio", 0.25},
                         {"upperrange", 7.5}, {"lowerrange", 2.5},  {"precision", 4}};
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << qint32(11) << qint32(1) << QString("名称") << 1.25 << 2.5 << QString("m3") << true << qint32(3)
            << QString("备注") << QString("4.50") << true << QString("C1") << QString("特征") << 3.5 << 12.5
            << 0.25 << 7.5 << 2.5;
        if (product == MarkCode::ProductYew) // Yew keeps its precision, and shows the rate by it
            out << qint32(4);
        else
            json.remove("precision");
        out << qint32(0);
        item->DoSerialize(json, true);
        QCOMPARE(jsonOf(item.get()), json);
        QCOMPARE(bytesOf(item.get()), bytes);
        QCOMPARE(item->GetRatingItemValue(), QString(product == 15 ? "12.5" : "12.50"));
        // With a child, the stream record reads back into a new item of the class and writes the same.
        addChild(item.get(), create())->SetRatingItemName("child");
        Item fromStream(create());
        QCOMPARE(readBytes(fromStream.get(), bytesOf(item.get())), QDataStream::Ok);
        QCOMPARE(bytesOf(fromStream.get()), bytesOf(item.get()));
        QCOMPARE(childrenOf(fromStream.get()).value(0)->metaObject(), item->metaObject());
        QVERIFY(fromStream->IsRatingItemExist("child"));
    }

    void shapeComparison_data() {
        QTest::addColumn<int>("scoreRule");
        QTest::addColumn<int>("dataType");
        QTest::addColumn<QString>("function"); // empty: no call
        QTest::addColumn<QVariantList>("args");
        auto row = [](int rule, int dataType, const char* function, const QVariantList& args) {
            QTest::addRow("rule %d, data type %d", rule, dataType) << rule << dataType << function << args;
        };
        const double table[] = {0.9, 1.0, 1.0, 0.8, 0.9, 0.8, 0.5, 0.8, 0.6,
                                0.3, 0.5, 0.4, 0.1, 0.3, 0.2, 0,   0.1, 0};
        QVariantList segments; // (lower, upper, factor) in this order
        for (int i = 0; i < 18; i += 3)
            segments.append(QVariant(QVariantList{table[i], table[i + 1], table[i + 2]}));
        const QString remark = "before"; // the student's remark, passed last where a function takes one
        row(0, 0, "CAL_Contrast", {"12.5", "10", 6.0, true});
        for (int dataType : {0, 1, 5, 3})
            row(101, dataType, "CAL_Contain_Ratio", {"12.5", "10", 6.0, true});
        for (int dataType : {1, 5}) {
            row(0, dataType, "CAL_Contrast", {12.5, 10.0, 6.0});
            row(1, dataType, "CAL_Interval", {12.5, 10.0, 6.0, 7.5, 1.5, remark}); // upper, then lower
            row(103, dataType, "CAL_Value_Ratio", {12.5, 10.0, 6.0, remark});
            row(104, dataType, "CAL_Segment_Ratio", {12.5, 10.0, 6.0, QVariant(segments), remark});
        }
        // Combinations that score 0 without a call.
        const QList<QPair<int, int>> noCall{{0, 3},   {1, 0},   {1, 3},   {2, 1},   {2, 0},
                                            {50, 1},  {100, 1}, {102, 0}, {102, 1}, {103, 0},
                                            {104, 0}, {104, 3}, {105, 1}, {-1, 1},  {-1, 0}};
        for (const auto& rule : noCall)
            row(rule.first, rule.second, "", {});
    }
    void shapeComparison() {
        QFETCH(int, scoreRule);
        QFETCH(int, dataType);
        QFETCH(QString, function);
        QFETCH(QVariantList, args);
        // The student's data type and score rule decide; the points are the standard's score.
        std::unique_ptr<QRatingItem_Shape> standard(new QRatingItem_Shape), student(new QRatingItem_Shape);
        QJsonObject record{{"upperrange", 7.5}, {"lowerrange", 1.5}, {"value", "10"},
                           {"score", 6.0},      {"datatype", 3},     {"scorerule", 7}};
        standard->DoSerializeItem(record, true);
        standard->SetRatingItemScoreStd(99.0);
        QJsonObject type{{"datatype", dataType}, {"value", "12.5"}, {"scorerule", scoreRule}};
        student->DoSerializeItem(type, true);
        CalcRecorder::respond = [](const CalcCall&) { return 2.25; };
        CalcRecorder::remark = "written";
        const bool writesRemark = !args.isEmpty() && args.last().userType() == QMetaType::QString;
        for (int round = 0; round < 2; ++round) { // the segment table is built anew for each call
            student->SetRatingItemRemark("before");
            QCOMPARE(student->CalculateRatingItemScore(MarkPointer::fromItem(standard.get())),
                     function.isEmpty() ? 0.0 : 2.25);
            QCOMPARE(student->GetRatingItemRemark(), QString(writesRemark ? "written" : "before"));
        }
        QCOMPARE(CalcRecorder::calls.size(), function.isEmpty() ? 0 : 2);
        for (const CalcCall& call : CalcRecorder::calls)
            QCOMPARE(QVariantList{call.function} + call.args, QVariantList{function} + args);
        QCOMPARE(student->CalculateRatingItemScore(nullptr), 0.0);
    }
};

QTEST_GUILESS_MAIN(TestTallyItem)
#include "tst_tallyitem.moc"
