// The general rating item: values and index texts, generic matching with missing, surplus and
// duplicate children, and its JSON and stream records, including hostile ones.
#include "itemtrees.h"
#include "recordio_p.h"

#include <QDate>
#include <QJsonArray>
#include <QtTest>

#include <functional>

namespace {

const QString kMissing = "缺少评分项，不得分";
const QString kSurplus = "存在多余评分项，不得分";

// The fixed fields of one item record with empty texts and, when asked, an invalid attribute; the
// child count is not written.
void writeBareFields(QDataStream& out, bool withAttribute = true) {
    out << qint32(0) << qint32(1) << qint32(0) << qint32(0) << qint32(0);
    for (int i = 0; i < 5; ++i)
        out << QString();
    out << 0.0 << 5.0 << 2.0 << false;
    if (withAttribute)
        out << QVariant();
}

// A record made of the bare fields followed by what tail writes.
QByteArray record(bool withAttribute, const std::function<void(QDataStream&)>& tail) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    writeBareFields(out, withAttribute);
    tail(out);
    return bytes;
}

// An item with every persisted field set and three descendants.
void fill(TestItem& item, const QVariant& attribute) {
    item.SetRatingItemName("名称");
    item.SetAttributeType(11);
    item.SetRatingItemIndexRule(4);
    item.SetRatingItemScoreRule(104);
    item.SetRatingItemValue(2.5);
    item.SetRatingItemPrecision(3);
    item.SetRatingItemCode("c");
    item.SetRatingItemUnit("m³");
    item.SetRatingItemRemark("备注");
    item.SetRatingItemScore(-2.5);
    item.SetRatingItemLock(true);
    item.SetRatingItemAttribute(attribute);
    item.SetRatingItemLevel(7);
    item.SetRatingItemScoreStd(9.0);
    item.add("one", 1.0)->add("deep", 3.0);
    item.add("two", 2.0);
}

// Adds the children written in the tree notation "name:score(children),..." under parent.
void build(TestItem* parent, const QString& notation) {
    int depth = 0, start = 0;
    for (int i = 0; i <= notation.size(); ++i) {
        const QChar c = i < notation.size() ? notation.at(i) : QLatin1Char(',');
        depth += c == QLatin1Char('(') ? 1 : c == QLatin1Char(')') ? -1 : 0;
        if (c != QLatin1Char(',') || depth != 0)
            continue;
        const QString node = notation.mid(start, i - start);
        start = i + 1;
        if (node.isEmpty())
            continue;
        const int open = node.indexOf(QLatin1Char('('));
        const QStringList head = node.left(open < 0 ? node.size() : open).split(QLatin1Char(':'));
        TestItem* child = parent->add(head.at(0), head.value(1).toDouble());
        if (open >= 0)
            build(child, node.mid(open + 1, node.size() - open - 2));
    }
}

// The descendants of item depth first as name|score|remark, deeper levels marked with ">".
QStringList render(QRatingItemVirtual* item, const QString& prefix = QString()) {
    QStringList lines;
    for (QRatingItemVirtual* child : childrenOf(item)) {
        const QString score = QString::number(child->GetRatingItemScore());
        lines.append(
            prefix +
            QString("%1|%2|%3").arg(child->GetRatingItemName(), score, child->GetRatingItemRemark()));
        lines.append(render(child, prefix + QLatin1Char('>')));
    }
    return lines;
}

} // namespace

class TstRatingItemGeneral : public QObject {
    Q_OBJECT
private slots:
    // Each value goes to the setter of its type (int, double or text); the index text follows the
    // rule and is simplified, the code shown in the index rules 4 and 5 is the text passed in.
    void valueAndIndexText_data() {
        QTest::addColumn<QVariantList>("values");
        QTest::addColumn<int>("precision");
        QTest::addColumn<int>("rule");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("index");
        const auto row = [](const char* name, const QVariantList& values, int precision, int rule,
                            const char* shown, const char* index) {
            QTest::newRow(name) << values << precision << rule << QString(shown) << QString(index);
        };
        row("integer at precision 2, rule 5: value", {3}, 2, 5, "3.00", "3");
        row("double rounded, stored with ten decimals", {2.75}, 1, 5, "2.8", "2.7500000000");
        row("text on a new item", {" 12 m "}, 3, 5, " 12 m ", "12 m");
        row("text after an integer keeps the numeric type", {7, "abc"}, 2, 5, "0.00", "abc");
        row("rule 0: code", {}, 0, 0, "", "C 1");
        row("rule 1: name", {}, 0, 1, "", "beam and column");
        row("rule 2: none", {}, 0, 2, "", "");
        row("rule 4: attribute list joined", {}, 0, 4, "", "x,y z");
    }

    void valueAndIndexText() {
        QFETCH(QVariantList, values);
        QFETCH(int, precision);
        QFETCH(int, rule);
        QFETCH(QString, shown);
        QFETCH(QString, index);
        QRatingItem_General item;
        item.SetRatingItemCode(" C  1");
        item.SetRatingItemName("  beam  and\tcolumn ");
        item.SetRatingItemAttribute(QStringList{"x", "y  z"});
        item.SetRatingItemPrecision(precision);
        item.SetRatingItemIndexRule(rule);
        for (const QVariant& value : values) {
            if (value.userType() == QMetaType::Int)
                item.SetRatingItemValue(value.toInt());
            else if (value.userType() == QMetaType::Double)
                item.SetRatingItemValue(value.toDouble());
            else
                item.SetRatingItemValue(value.toString(), false);
        }
        QCOMPARE(item.GetRatingItemValue(), shown);
        QCOMPARE(item.GetRatingItemIndex(), index);
        QCOMPARE(item.GetRatingItemCode("t"), QString(rule == 4 || rule == 5 ? "t" : " C  1"));
    }

    void childrenWithoutIndexTextAreListedButNotMapped() {
        TestItem parent;
        auto* hidden = new TestItem("hidden");
        hidden->SetRatingItemIndexRule(2);
        parent.AddRatingItem(MarkPointer::fromItem(hidden), true);
        parent.AddRatingItem(nullptr, true);
        QCOMPARE(parent.GetChildItemCount(), 1);
        QCOMPARE(parent.GetRatingItemByIndex(QString()), nullptr);
        QCOMPARE(parent.GetRatingItemByIndex("hidden"), nullptr);
        parent.add("same");
        TestItem* second = parent.add("same");
        QCOMPARE(parent.GetRatingItemByIndex("same"), MarkPointer::fromItem(second));
    }

    // Scoring scenarios in a small tree notation: "name:score(children)", siblings separated by
    // ","; the result lists the candidate's descendants depth first as name|score|remark. Scoring a
    // second time gives the same result.
    void scoringScenarios_data() {
        QTest::addColumn<QString>("standard");
        QTest::addColumn<QString>("candidate");
        QTest::addColumn<int>("mode");
        QTest::addColumn<double>("total");
        QTest::addColumn<QString>("children");
        QTest::addColumn<QString>("remark");
        const auto row = [](const char* name, const char* standard, const char* candidate, int mode,
                            double total, const QString& children, const char* remark = "") {
            QTest::newRow(name) << QString(standard) << QString(candidate) << mode << total << children
                                << QString(remark);
        };
        row("matched, then missing, then surplus", "b:4,c:6", "a:99,b", 1, 4.0,
            "b|4|; c|0|" + kMissing + "; a|0|" + kSurplus);
        row("last-added duplicate scored, the other dropped", "a:5", "a:1,a:2", 1, 5.0, "a|5|");
        row("a candidate two standard children share is scored for each, listed once", "a:5,a:5", "a", 1,
            10.0, "a|5|");
        row("a missing subtree is generated whole", "a:6(a1:2,a2:4)", "", 1, 0.0,
            "a|0|" + kMissing + "; >a1|0|" + kMissing + "; >a2|0|" + kMissing);
        row("negative sum clamped", "a:-3", "a", 1, 0.0, "a|-3|", "分数扣减至0");
        row("other modes neither score leaves nor clamp", "a:-3", "a:-3", 3, -3.0, "a|-3|");
        row("a standard leaf leaves the candidate's children alone", "", "x(y)", 1, 10.0, "x|0|; >y|0|");
    }

    void scoringScenarios() {
        QFETCH(QString, standard);
        QFETCH(QString, candidate);
        QFETCH(int, mode);
        QFETCH(double, total);
        QFETCH(QString, children);
        QFETCH(QString, remark);
        TestItem standardRoot("root"), candidateRoot("root");
        standardRoot.SetRatingItemScore(10.0);
        build(&standardRoot, standard);
        build(&candidateRoot, candidate);
        for (int round = 0; round < 2; ++round) {
            QCOMPARE(scoreAgainst(&candidateRoot, &standardRoot, mode), total);
            QCOMPARE(render(&candidateRoot).join("; "), children);
            QCOMPARE(candidateRoot.GetRatingItemScoreStd(), 10.0);
            QCOMPARE(candidateRoot.GetRatingItemRemark(), remark);
        }
    }

    void missingItemCopiesTheDescriptionButNotTheValue() {
        TestItem standard, candidate;
        standard.add("b", 4.0)->SetRatingItemValue(QString("ok"), false);
        TestItem* c = standard.add("c", 6.0);
        c->SetRatingItemCode("QC");
        c->SetRatingItemUnit("kg");
        c->SetAttributeType(9);
        c->SetRatingItemValue(QString("std"), false);
        TestItem* b = candidate.add("b");
        b->SetRatingItemValue(QString("no"), false);
        QCOMPARE(scoreAgainst(&candidate, &standard), 0.0);
        QCOMPARE(b->GetRatingItemValueStd(), QString("ok"));
        QRatingItemVirtual* missing = childrenOf(&candidate).value(1);
        QCOMPARE(QStringList({missing->GetRatingItemCode(), missing->GetRatingItemUnit(),
                              missing->GetRatingItemValue(), QString::number(missing->GetAttributeType())}),
                 QStringList({"QC", "kg", "", "9"}));
    }

    void nullOrForeignStandardChangesNothing() {
        TestItem candidate;
        candidate.SetRatingItemScore(7.0);
        candidate.SetRatingItemRemark("kept");
        QObject foreign;
        QCOMPARE(candidate.ExecuteDBScore(nullptr, 1), 0.0);
        QCOMPARE(candidate.ExecuteDBScore(&foreign, 1), 0.0);
        QVERIFY(candidate.GetRatingItemScore() == 7.0 && candidate.GetRatingItemRemark() == "kept");
    }

    void failedCreationEndsTheWalk() {
        TestItem standard, candidate;
        build(&standard, "a:1,b:1");
        build(&candidate, "b,z");
        TestItem::failCreate = true;
        scoreAgainst(&candidate, &standard);
        TestItem::failCreate = false;
        // "a" could not be generated: nothing after it was matched, but surplus handling still ran.
        QCOMPARE(render(&candidate), QStringList({"b|0|" + kSurplus, "z|0|" + kSurplus}));
    }

    void jsonRoundTrip() {
        TestItem item, copy;
        fill(item, QStringList{"a", "b"});
        QJsonObject object = jsonOf(&item);
        // Everything persisted comes back (the rewrite is identical); level and standard score do not.
        copy.DoSerialize(object, true);
        QCOMPARE(jsonOf(&copy), object);
        QCOMPARE(copy.GetRatingItemLevel(), 2);
        QCOMPARE(copy.GetRatingItemScoreStd(), 0.0);
        QCOMPARE(copy.GetRatingItemByIndex("two"), MarkPointer::fromItem(childrenOf(&copy).value(1)));
    }

    void jsonOddRecordsReadAsDefaults() {
        // Mistyped keys read as missing, a child that is not an object as an empty record, "items"
        // that is not an array as no children.
        QJsonObject object{{"attribute", "12"},
                           {"name", 5},
                           {"locked", "true"},
                           {"score", "3"},
                           {"attridata", QJsonArray{QJsonValue(), 1}},
                           {"items", QJsonArray{7, QJsonObject{{"name", "ok"}, {"items", "not an array"}}}}};
        TestItem item("before");
        item.SetAttributeType(3);
        item.DoSerialize(object, true);
        QVERIFY(item.GetAttributeType() == 0 && item.GetRatingItemName().isEmpty());
        QVERIFY(!item.GetRatingItemLock() && item.GetRatingItemScore() == 0.0);
        QCOMPARE(jsonOf(&item).value("upperrange").toDouble(-1), 0.0); // not the constructor's 5.0
        QCOMPARE(render(&item), QStringList({"|0|", "ok|0|"}));
        QVERIFY(jsonOf(childrenOf(&item).value(1)).value("attridata").isNull());
    }

    void streamRoundTrip_data() {
        QTest::addColumn<QVariant>("attribute");
        QTest::addColumn<int>("version");
        const int qt5 = QDataStream::Qt_5_15;
        QTest::newRow("invalid") << QVariant() << qt5;
        QTest::newRow("JSON null") << QVariant::fromValue(nullptr) << qt5;
        QTest::newRow("list holding a JSON null")
            << QVariant(QVariantList{QVariant::fromValue(nullptr), 1}) << qt5;
        QTest::newRow("unsigned long long") << QVariant(quint64(1) << 63) << qt5;
        QTest::newRow("double") << QVariant(0.1) << qt5;
        QTest::newRow("string list") << QVariant(QStringList{"a", QString()}) << qt5;
        QTest::newRow("nested list and map")
            << QVariant(QVariantList{1, QVariantMap{{"k", QVariantList{true, "s"}}}}) << qt5;
        QTest::newRow("list, Qt 4.8 encoding") << QVariant(QVariantList{1, 2.5}) << int(QDataStream::Qt_4_8);
    }

    void streamRoundTrip() {
        QFETCH(QVariant, attribute);
        QFETCH(int, version);
        TestItem item, copy;
        fill(item, attribute);
        QByteArray bytes, again;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out.setVersion(version);
        item.DoSerialize(out, false);
        // The attribute is in Qt's own encoding, which a host may have written itself.
        QByteArray qtEncoding;
        QDataStream qtOut(&qtEncoding, QIODevice::WriteOnly);
        qtOut.setVersion(version);
        qtOut << attribute;
        QVERIFY(bytes.contains(qtEncoding));
        // Read back and written again, the record is byte for byte the same.
        QDataStream in(bytes), rewrite(&again, QIODevice::WriteOnly);
        in.setVersion(version);
        rewrite.setVersion(version);
        copy.DoSerialize(in, true);
        copy.DoSerialize(rewrite, false);
        QCOMPARE(in.status(), QDataStream::Ok);
        QCOMPARE(again, bytes);
        QVariant readBack;
        copy.GetRatingItemAttribute(readBack);
        QCOMPARE(readBack, attribute);
        QCOMPARE(copy.GetRatingItemByIndex("two"), MarkPointer::fromItem(childrenOf(&copy).value(1)));
    }

    void unsupportedAttributeIsRefusedOnWrite_data() {
        QTest::addColumn<QVariant>("attribute");
        QTest::newRow("date") << QVariant(QDate(2026, 1, 1));
        QTest::newRow("byte array") << QVariant(QByteArray("x"));
        QTest::newRow("list holding a date") << QVariant(QVariantList{1, QDate(2026, 1, 1)});
    }

    void unsupportedAttributeIsRefusedOnWrite() {
        QFETCH(QVariant, attribute);
        TestItem item;
        item.SetRatingItemAttribute(attribute);
        QVERIFY(bytesOf(&item).isEmpty()); // the write failed
    }

    void everyTruncationStopsCleanly() {
        TestItem item("root");
        item.SetRatingItemAttribute(QVariantMap{{"k", QStringList{"v"}}});
        item.add("a")->add("b");
        const QByteArray bytes = bytesOf(&item);
        for (int length = 0; length < bytes.size(); ++length) {
            TestItem copy;
            QVERIFY2(readBytes(&copy, bytes.left(length)) != QDataStream::Ok,
                     qPrintable(QString::number(length)));
        }
    }

    // Records that claim more than they hold are refused; what was read up to there stays a tree
    // that is freed once.
    void hostileRecords_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("depth");
        QTest::newRow("child count 2^31-1")
            << record(true, [](QDataStream& out) { out << qint32(0x7fffffff); }) << 1;
        QTest::newRow("negative child count")
            << record(true, [](QDataStream& out) { out << qint32(-1); }) << 1;
        QTest::newRow("attribute of a refused type") << record(false, [](QDataStream& out) {
            out << quint32(QMetaType::QDate) << qint8(0) << qint64(12345) << qint32(0);
        }) << 1;
        QTest::newRow("attribute list count 2^31-16") << record(false, [](QDataStream& out) {
            out << quint32(QMetaType::QVariantList) << qint8(0) << quint32(0x7ffffff0) << qint32(0);
        }) << 1;
        QTest::newRow("attribute nested 100000 deep") << record(false, [](QDataStream& out) {
            for (int i = 0; i < 100000; ++i)
                out << quint32(QMetaType::QVariantList) << qint8(0) << quint32(1);
            out << quint32(QMetaType::Int) << qint8(0) << qint32(1) << qint32(0);
        }) << 1;
        QTest::newRow("items nested 100001 deep") << record(true, [](QDataStream& out) {
            for (int i = 0; i < 100000; ++i) {
                out << qint32(1);
                writeBareFields(out);
            }
            out << qint32(0);
        }) << RecordIO::kMaxDepth;
    }

    void hostileRecords() {
        QFETCH(QByteArray, bytes);
        QFETCH(int, depth);
        const int liveBefore = TestItem::liveCount;
        {
            TestItem item;
            QCOMPARE(readBytes(&item, bytes), QDataStream::ReadCorruptData);
            QCOMPARE(depthOf(&item), depth);
        }
        QCOMPARE(TestItem::liveCount, liveBefore);
    }

    void nestingLimit() {
        QJsonObject object{{"name", "leaf"}};
        for (int i = 0; i < 2000; ++i)
            object = QJsonObject{{"items", QJsonArray{object}}};
        TestItem item, fromJson, fromStream;
        item.DoSerialize(object, true);
        QCOMPARE(depthOf(&item), RecordIO::kMaxDepth);
        // At the limit both records read back whole; one level deeper the stream writer refuses.
        object = jsonOf(&item);
        fromJson.DoSerialize(object, true);
        QCOMPARE(jsonOf(&fromJson), object);
        QCOMPARE(readBytes(&fromStream, bytesOf(&item)), QDataStream::Ok);
        QCOMPARE(depthOf(&fromStream), RecordIO::kMaxDepth);
        TestItem* node = &fromStream;
        while (node->HasChildRatingItem())
            node = childrenOf<TestItem>(node).first();
        node->add("one too deep");
        QVERIFY(bytesOf(&fromStream).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TstRatingItemGeneral)
#include "tst_ratingitem_general.moc"
