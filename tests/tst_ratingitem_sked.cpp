// Schedule rating items: matching, duplicate, missing and surplus criteria, the calculation record, leaf
// rules, the logic-chain search, and the Site item's records and line-width link.
#include "itemtrees.h"
#include "markpublic.h"
#include "markrecords.h"
#include "qratingitem_sked_scene.h"
#include "recordio_p.h"

#include <QJsonArray>
#include <QRandomGenerator>
#include <QtTest>

#include <functional>
#include <memory>
#include <vector>

namespace {

using Sked = std::unique_ptr<QRatingItem_Sked>;
const QString kDeducted = "存在多余评分项，扣分";
const QString kMissing = "缺少评分项，不得分";

// An item's name, unit, value, standard value, remark, level, attribute type, score and standard score.
QString describe(QRatingItemVirtual* item) {
    return QString("%1|%2|%3|%4|%5|%6|%7|%8|%9")
        .arg(item->GetRatingItemName(), item->GetRatingItemUnit(), item->GetRatingItemValue(),
             item->GetRatingItemValueStd(), item->GetRatingItemRemark(),
             QString::number(item->GetRatingItemLevel()), QString::number(item->GetAttributeType()),
             QString::number(item->GetRatingItemScore()), QString::number(item->GetRatingItemScoreStd()));
}

// Whether the item's comparison key equals key: the plain rule scores only equal keys.
bool keyEquals(QRatingItem_Sked* item, const QString& key) {
    Sked standard(skedItem("", 0, key, 1.0));
    item->SetAttributeType(0);
    return scoreAgainst(item, standard.get()) == 1.0;
}

// A leaf rule case: against one standard, a student key that earns the full score (none for a rule
// that cannot pass here) and one that fails with the remark ("prior": the remark is left alone).
struct Leaf {
    int type;
    const char *standardKey, *pass, *fail, *remark;
    bool fixed = false;
    const char* name = "挖土";
};

// An adjacency matrix the items borrow. Each row is its own allocation, so that the sanitizer build
// catches a read past a row or past the last row.
struct Network {
    explicit Network(int count) : cells(size_t(count), std::vector<int>(size_t(count), 0)) {
        for (std::vector<int>& row : cells)
            rows.push_back(row.data());
    }
    std::vector<std::vector<int>> cells;
    std::vector<int*> rows;
};

// Scores a logic item on the network against a standard of "&"-separated chains with display texts;
// the item then holds the found texts as its value. Its remark was "prior".
double scoreChains(Sked& item, const QString& entries, const QString& texts, QMultiMap<QString, int> nodes,
                   Network* network) {
    Sked standard(skedItem("", 16, entries, 4.0));
    standard->SetRatingItemValue(texts, entries, false);
    item.reset(skedItem("", 16));
    item->SetRatingItemValue("stale", false);
    item->SetRatingItemRemark("prior");
    int count = network ? int(network->rows.size()) : 5;
    item->SetRatingItemValue(nodes, network ? network->rows.data() : nullptr, count);
    return scoreAgainst(item.get(), standard.get());
}

// The fields of a record of the given level, as a JSON object; the stream record below holds the
// same fields. The flags differ pairwise between levels 1 to 3.
QJsonObject siteObject(const QString& name, int level, const QJsonArray& items = QJsonArray()) {
    return QJsonObject{{"itemlevel", level},     {"attribute", level + 2}, {"scorestd", 2.5 * level},
                       {"itemname", name},       {"unit", "天"},           {"value", "v"},
                       {"valuestd", "s"},        {"uniquevalue", "u"},     {"locked", level == 2},
                       {"editable", level != 3}, {"remark", "备注"},       {"identical", level == 3},
                       {"items", items}};
}

// One Site stream record, written field by field independently of the library, with score 1.5,
// offset 1.25 and status 3.
void writeSite(QDataStream& out, const QString& name, int level, qint32 children) {
    out << QString("QRatingItem_Sked_Site") << qint32(level) << qint32(level + 2) << 2.5 * level << 1.5
        << name << QString("天") << QString("s") << QString("u") << QString("v") << (level == 2)
        << (level != 3) << QString("备注") << 1.25 << qint32(3) << (level == 3) << children;
}

// Three levels: a root, two children (the second named with a unit synonym), one grandchild.
QJsonObject threeLevelObject() {
    return siteObject("工作项属性", 1,
                      {siteObject("挖土", 2, {siteObject("持续时间", 3)}), siteObject("平米", 2)});
}

} // namespace

Q_DECLARE_METATYPE(Leaf)

class TestRatingItemSked : public QObject {
    Q_OBJECT
private slots:
    void transformTextToName() {
        // Each ";"-separated part is replaced only when it is a synonym as a whole.
        const QString text =
            "立方;m³;平米;㎡;平方;t;临设建造;临时建造;临建建设;临时设施;临设建设;混凝土;;平米 ;tt;T;m3";
        const QString expected =
            "立方米;立方米;平方米;平方米;平方米;吨;临建建造;临建建造;临建建造;临建建造;临建建造;"
            "混凝土;;平米 ;tt;T;m3";
        QRatingItem_Sked item;
        QCOMPARE(item.TransformTextToName(text), expected);
        QStringList list = text.split(';');
        item.TransformTextToName(list);
        QCOMPARE(list, expected.split(';'));
    }

    void matchingNormalisesTheStandardName_data() {
        QTest::addColumn<QStringList>("names"); // the standard child's and the student child's
        QTest::addColumn<bool>("transform");
        QTest::addColumn<bool>("matched");
        QTest::newRow("standard 平米") << QStringList{"平米", "平方米"} << false << true;
        QTest::newRow("student normalised") << QStringList{"平方米", "平米"} << true << true;
        QTest::newRow("parts") << QStringList{"浇筑;m³", "浇筑;立方米"} << false << true;
        QTest::newRow("exact name first") << QStringList{"平米", "平米"} << false << true;
        QTest::newRow("student not normalised") << QStringList{"平方米", "平米"} << false << false;
    }
    void matchingNormalisesTheStandardName() {
        QFETCH(QStringList, names);
        QFETCH(bool, transform);
        QFETCH(bool, matched);
        QRatingItem_Sked standard, student;
        addChild(&standard, skedItem(names[0], 2, "1", 2.0));
        QRatingItem_Sked* child = addChild(&student, skedItem(names[1], 2, "1"), transform);
        QCOMPARE(scoreAgainst(&student, &standard), matched ? 2.0 : 0.0);
        QCOMPARE(childrenOf(&student).first() == child, matched);
    }

    void duplicatesAndTwinItems() {
        // In a Twin tree too, the last-added student item of a name is scored and the others deduct the
        // standard score; a missing criterion yields a plain schedule item. Neither kind is persisted.
        QRatingItem_Sked_Twin standard, student;
        addChild(&standard, skedItem("挖土", 2, "1", 5.0));
        addChild(&standard, skedItem("回填", 2, "1", 1.0));
        QRatingItem_Sked* older = addChild(&student, skedItem("挖土", 2, "1"));
        QRatingItem_Sked* newer = addChild(&student, skedItem("挖土", 2, "1"));
        QCOMPARE(scoreAgainst(&student, &standard), 0.0);
        QList<QRatingItemVirtual*> children = childrenOf(&student);
        QCOMPARE(children.mid(0, 2), (QList<QRatingItemVirtual*>{newer, older}));
        QVERIFY(newer->GetRatingItemScore() == 5.0 && older->GetRatingItemScore() == -5.0);
        QCOMPARE(older->GetRatingItemRemark(), QString("评分项重复存在，扣分"));
        QCOMPARE(QString(children.value(2)->metaObject()->className()) + student.GetClassName(),
                 QString("QRatingItem_Sked") + "QRatingItem_Sked_Twin");
        QVERIFY(jsonOf(&student).isEmpty() && bytesOf(&student).isEmpty());
        // A duplicate parent passes mode 3 down, and only mode 1 clamps a negative sum.
        QCOMPARE(scoreAgainst(&student, &standard, 3), -10.0);
        // A null or foreign standard changes nothing.
        QRatingItem_General foreign;
        QVERIFY(student.ExecuteDBScore(nullptr, 1) == -10.0 && scoreAgainst(&student, &foreign, 2) == -10.0);
        QVERIFY(student.CalculateRatingItemScore(nullptr) == 0.0 && children.size() == 3);
    }

    void standardChildrenSharingANameEachScoreTheStudentItem() {
        // "平米" and "平方米" meet under one normalised key: the one student item answers both standard
        // children, is listed for each, and no missing item is generated.
        QRatingItem_Sked standard, student;
        addChild(&standard, skedItem("平米", 2, "1", 2.0));
        addChild(&standard, skedItem("平方米", 2, "1", 3.0));
        QRatingItem_Sked* answer = addChild(&student, skedItem("平米", 2, "1"), true);
        QCOMPARE(scoreAgainst(&student, &standard), 5.0);
        QCOMPARE(childrenOf(&student), (QList<QRatingItemVirtual*>{answer, answer}));
    }

    void missingSubtreeIsGeneratedOneLevelDeeper_data() {
        QTest::addColumn<int>("leafType");
        QTest::addColumn<QString>("leafValue");
        QTest::newRow("duration") << 5 << "0";
        QTest::newRow("work item") << 4 << "";
        QTest::newRow("logic") << 16 << "";
        QTest::newRow("curve") << 22 << "不存在";
    }
    void missingSubtreeIsGeneratedOneLevelDeeper() {
        QFETCH(int, leafType);
        QFETCH(QString, leafValue);
        QRatingItem_Sked_Site standard, student;
        student.SetRatingItemLevel(1);
        QRatingItem_Sked* node = addChild(&standard, skedItem("挖土", 4, "", 6.0));
        addChild(node, skedItem("持续时间", leafType, "9", 6.0))->SetRatingItemUnit("天");
        QCOMPARE(scoreAgainst(&student, &standard), 0.0);
        QRatingItemVirtual* generated = childrenOf(&student).value(0);
        QRatingItemVirtual* leaf = childrenOf(generated).value(0);
        // Numbering follows the level.
        QCOMPARE(student.GetRatingItemNumber(12) + generated->GetRatingItemNumber(12) +
                     leaf->GetRatingItemNumber(12),
                 ConvertIntToUString(12) + "12" + ConvertIntToTString(12));
        QCOMPARE(describe(generated), "挖土||||" + kMissing + "|2|4|0|6");
        QCOMPARE(describe(leaf),
                 QString("持续时间|天|%1||%2|3|%3|0|6").arg(leafValue, kMissing).arg(leafType));
    }

    void surplus_data() {
        QTest::addColumn<int>("parentType");
        QTest::addColumn<int>("locked"); // 1: the first standard child is locked, 2: the second
        QTest::addColumn<bool>("identical");
        QTest::addColumn<double>("deduction");
        // Under the attribute root the template is the first unlocked standard child, else the last.
        QTest::newRow("root, first unlocked") << 3 << 0 << false << 3.0;
        QTest::newRow("root, second unlocked") << 3 << 1 << false << 2.0;
        QTest::newRow("root, all locked") << 3 << 3 << false << 2.0;
        QTest::newRow("root, identical standard") << 3 << 0 << true << 0.0;
        // Under a work item: the status of the first standard child, neither listed nor counted.
        QTest::newRow("work item") << 4 << 0 << false << 3.0;
        QTest::newRow("other parent: dropped") << 17 << 0 << false << 0.0;
    }
    void surplus() {
        QFETCH(int, parentType);
        QFETCH(int, locked);
        QFETCH(bool, identical);
        QFETCH(double, deduction);
        QRatingItem_Sked standard, student;
        student.SetAttributeType(parentType);
        standard.SetValueIdentical(identical);
        for (int i = 0; i < 2; ++i) {
            QRatingItem_Sked* templ = addChild(&standard, skedItem(QString::number(i), 4, "", 3.0 - i));
            templ->SetRatingItemLock(locked & (1 << i));
            addChild(templ, skedItem("持续时间", 5, "7", 1.5));
            addChild(&student, skedItem(QString::number(i), 4));
        }
        QRatingItem_Sked* extra = addChild(&student, skedItem("回填", 4));
        for (int type : {2, 5, 6, 17}) // one attribute of each kind of surplus status
            addChild(extra, skedItem("属性", type, "", 9.0))->SetRatingItemValue("old", false);
        // The matched work items miss their attribute and score 0; only a listed surplus counts.
        const bool listed = parentType == 3 && !identical;
        QCOMPARE(scoreAgainst(&student, &standard), 0.0);
        QCOMPARE(student.GetRatingItemRemark(), listed ? QString("分数扣减至0") : QString());
        QCOMPARE(childrenOf(&student).contains(extra), listed);
        QCOMPARE(extra->GetRatingItemScore(), -deduction);
        QCOMPARE(extra->GetRatingItemRemark(), deduction > 0.0 ? kDeducted : QString());
        // The surplus work item's own attributes are surplus against the template's first child: by
        // their type deducted, or cleared with a standard value of "0" or none.
        QStringList attributes;
        for (QRatingItemVirtual* attribute : childrenOf(extra))
            attributes << describe(attribute);
        const QStringList expected{"属性||old|0|" + kDeducted + "|2|2|-1.5|9", "属性||old|0||2|5|0|0",
                                   "属性||old|||2|6|0|0", "属性||old||" + kDeducted + "|2|17|-1.5|9"};
        const QStringList untouched{"属性||old|old||2|2|0|9", "属性||old|old||2|5|0|9",
                                    "属性||old|old||2|6|0|9", "属性||old|old||2|17|0|9"};
        QCOMPARE(attributes, listed ? expected : untouched);
    }

    void calculationRecord() {
        for (bool editable : {true, false}) {
            QRatingItem_Sked item;
            item.SetRatingItemEditable(editable);
            item.SetRatingItemValue("mine", false);
            item.SetRatingItemScoreStd(4.0);
            item.SetRatingItemLock(true);
            CalculateRecord record{0.0, false, "host"};
            item.GetCalculateData(&record);
            QVERIFY(record.scoreStd == 4.0 && record.locked && record.value == (editable ? "mine" : "host"));
            record = CalculateRecord{7.0, false, "平米"};
            item.SetCalculateData(&record);
            QVERIFY(item.GetRatingItemScoreStd() == 7.0 && !item.GetRatingItemLock());
            QCOMPARE(item.GetRatingItemValueStd(), QString(editable ? "平米" : "mine"));
            QVERIFY(keyEquals(&item, editable ? "平方米" : "mine"));
            item.GetCalculateData(nullptr);
            item.SetCalculateData(nullptr);
            // The text-and-key setter normalises the key only when asked.
            item.SetRatingItemValue("t", "平方", editable);
            QVERIFY(keyEquals(&item, editable ? "平方米" : "平方"));
        }
    }

    void leafRule_data() {
        QTest::addColumn<Leaf>("leaf");
        QTest::newRow("count 0") << Leaf{2, "1", "1", "0", "prior"};
        QTest::newRow("weekly 0") << Leaf{5, "7", "14", "0", "prior"};
        QTest::newRow("fixed, %2") << Leaf{5, "12", "12", "14", "\"为固定时长\"为固定时长12天", true, "%2"};
        QTest::newRow("colour case") << Leaf{10, "FF0000", "FF0000", "ff0000", "不存在颜色"};
        QTest::newRow("line width 0") << Leaf{11, "", nullptr, "0", "线宽为非大于0的整数"};
        QTest::newRow("intensity 0") << Leaf{12, "", "1", "0", "prior"};
        QTest::newRow("rows too few") << Leaf{19, " >=20 ", "20", "19", "横道图分页显示行数设置不够，不得分"};
        QTest::newRow("order differs")
            << Leaf{20, "a;b;c", " a;b ;c", "a;c;b", "从工序c始顺序不一致，不得分"};
        QTest::newRow("total 'g' format") << Leaf{28, "0", "0", "1234567", "工作延期1.23457e+06天"};
        QTest::newRow("total 0 of 100") << Leaf{28, "100", "100", "0", "总工期为0"};
        QTest::newRow("plain differs") << Leaf{7, "钢筋", "钢筋", "钢材", "prior"};
    }
    void leafRule() {
        QFETCH(Leaf, leaf);
        Sked standard(skedItem(leaf.name, leaf.type, leaf.standardKey, 4.0));
        standard->SetValueIdentical(leaf.fixed);
        standard->SetRatingItemUnit("天");
        for (const char* key : {leaf.pass, leaf.fail}) {
            if (!key)
                continue;
            const bool passes = key == leaf.pass;
            Sked item(skedItem(leaf.name, leaf.type, key));
            item->SetRatingItemRemark("prior");
            QCOMPARE(scoreAgainst(item.get(), standard.get()), passes ? 4.0 : 0.0);
            QCOMPARE(item->GetRatingItemScore(), passes ? 4.0 : 0.0);
            QCOMPARE(item->GetRatingItemRemark(), QString(passes ? "" : leaf.remark));
        }
    }

    void logicChains_data() {
        // Network: A(0) -> B(1) -> C(2), B(1) -> A(0), a second A(4) -> D(3); X is node 9 and Y node -1,
        // outside the node count of 5. Each case: the chains, their texts and the texts of those found.
        QTest::addColumn<QStringList>("c");
        QTest::newRow("all found") << QStringList{"A;B;C&A;B", "abc;ab", "abc;ab"};
        QTest::newRow("none") << QStringList{"C;A&D;A", "ca;da", ""};
        QTest::newRow("unknown name") << QStringList{"A;Z", "az", ""};
        QTest::newRow("index past count") << QStringList{"A;X&X;A&Y;A&A;Y", "1;2;3;4", ""};
        QTest::newRow("fewer texts: all found") << QStringList{"A;B&B;C", "ab", "ab;"};
        QTest::newRow("empty entry") << QStringList{"A;B&", "ab;e", "ab"};
        QTest::newRow("no matrix") << QStringList{"C;A;D&Z", "cad;z", "cad"};
    }
    void logicChains() {
        QFETCH(QStringList, c);
        const bool scores = !c[2].isEmpty() && c[2].count(';') == c[0].count('&'); // all found
        Network network(5);
        for (const auto& link : {qMakePair(0, 1), qMakePair(1, 2), qMakePair(1, 0), qMakePair(4, 3)})
            network.cells[size_t(link.first)][size_t(link.second)] = 1;
        QMultiMap<QString, int> nodes{{"A", 0}, {"B", 1}, {"C", 2}, {"D", 3}, {"X", 9}, {"Y", -1}};
        nodes.insert("A", 4);
        Sked item;
        const bool withMatrix = qstrcmp(QTest::currentDataTag(), "no matrix") != 0;
        QCOMPARE(scoreChains(item, c[0], c[1], nodes, withMatrix ? &network : nullptr), scores ? 4.0 : 0.0);
        QCOMPARE(item->GetRatingItemValue(), c[2]);
        QCOMPARE(item->GetRatingItemRemark(), QString(scores ? "" : "prior"));
    }

    void logicChainsAgreeWithPlainSearch() {
        // Small random networks with few names, so that names repeat and chains branch, against a plain
        // depth-first search.
        QRandomGenerator random(20240611);
        int found = 0;
        for (int round = 0; round < 2000; ++round) {
            Network network(1 + int(random.bounded(12)));
            QMultiMap<QString, int> nodes;
            for (size_t p = 0; p < network.cells.size(); ++p) {
                nodes.insert(QString(QChar('a' + random.bounded(3))), int(p));
                for (int& cell : network.cells[p])
                    cell = random.bounded(3) == 0 ? 1 : 0;
            }
            QStringList chain;
            for (int i = 0, length = 1 + int(random.bounded(9)); i < length; ++i)
                chain.append(QString(QChar('a' + random.bounded(3))));
            std::function<bool(int, int)> continues = [&](int node, int depth) {
                for (int next : depth < chain.size() ? nodes.values(chain.at(depth)) : QList<int>()) {
                    if (network.cells[size_t(node)][size_t(next)] && continues(next, depth + 1))
                        return true;
                }
                return depth >= chain.size();
            };
            bool expected = false;
            for (int node : nodes.values(chain.first()))
                expected = expected || continues(node, 1);
            Sked item;
            QCOMPARE(scoreChains(item, chain.join(';'), "t", nodes, &network), expected ? 4.0 : 0.0);
            found += expected ? 1 : 0;
        }
        QVERIFY(found > 200 && found < 1800); // both outcomes occur, so the comparison means something
    }

    void siteRecords() {
        // A JSON record read and written again comes back unchanged; it has no score.
        QJsonObject record = threeLevelObject();
        QRatingItem_Sked_Site item;
        item.DoSerialize(record, true);
        QVERIFY(item.GetRatingItemLevel() == 1 && item.GetAttributeType() == 3 &&
                item.GetRatingItemValue() == "v");
        QVERIFY(item.GetRatingItemEditable() && !item.GetRatingItemLock());
        auto* area = MarkPointer::item(item.GetRatingItemByIndex("平方米")); // keyed by the normalised name
        QVERIFY(area && area->GetRatingItemLock());
        item.SetRatingItemScore(9.0);
        QCOMPARE(jsonOf(&item), threeLevelObject());
        // The stream record holds the same fields, and the score, offset and status besides.
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        writeSite(out, "工作项属性", 1, 2);
        writeSite(out, "挖土", 2, 1);
        writeSite(out, "持续时间", 3, 0);
        writeSite(out, "平米", 2, 0);
        QRatingItem_Sked_Site fromStream;
        QCOMPARE(readBytes(&fromStream, bytes), QDataStream::Ok);
        QCOMPARE(jsonOf(&fromStream), threeLevelObject());
        QVERIFY(fromStream.GetRatingItemScore() == 1.5 && fromStream.GetRatingItemOffset() == 1.25);
        QCOMPARE(bytesOf(&fromStream), bytes);
    }

    void jsonNestingIsLimited() {
        // 600 levels of objects: everything down to the nesting limit is read, nothing below it.
        QJsonObject record;
        for (int i = 0; i < 600; ++i)
            record = QJsonObject{{"itemname", QString::number(599 - i)}, {"items", QJsonArray{record}}};
        QRatingItem_Sked_Site item;
        item.DoSerialize(record, true);
        QCOMPARE(depthOf(&item), RecordIO::kMaxDepth);
        QCOMPARE(item.GetRatingItemName(), QString("0"));
    }

    void linkedAndLoadedLineWidth() {
        // The line-width node is linked to the intensity node; made by CreateRatingItem and loaded
        // from a record, or once the intensity node is gone, it is not.
        std::unique_ptr<QRatingItem_Sked> standard(skedItem("工序线宽", 11, "", 2.0));
        auto* intensity = skedItem<QRatingItem_Sked_Site>("人力资源（强度）", 12, "3");
        QRatingItem_Sked_Site width(intensity);
        QVERIFY(!width.parent() && width.GetClassName() == "QRatingItem_Sked_Site");
        width.SetAttributeType(11);
        width.UpdateUniqueValue("3");
        QCOMPARE(scoreAgainst(&width, standard.get()), 2.0);
        QJsonObject record = jsonOf(&width);
        std::unique_ptr<QObject> created(MarkPointer::object(width.CreateRatingItem(&width)));
        auto* loaded = qobject_cast<QRatingItem_Sked_Site*>(created.get());
        QVERIFY(loaded && !loaded->parent());
        loaded->DoSerialize(record, true);
        QCOMPARE(scoreAgainst(loaded, standard.get()), 0.0);
        QCOMPARE(loaded->GetRatingItemRemark(), QString("与人力资源强度值不一致，不得分"));
        delete intensity;
        QCOMPARE(scoreAgainst(&width, standard.get()), 0.0);
    }
};

QTEST_GUILESS_MAIN(TestRatingItemSked)
#include "tst_ratingitem_sked.moc"
