// The general rating item: values and index texts, generic matching with missing, surplus and
// duplicate children, and its JSON and stream records, including hostile ones.
#include "testitem.h"

#include <QBuffer>
#include <QDate>
#include <QJsonArray>
#include <QtTest>

#include <functional>

namespace {

QByteArray streamOf(QRatingItemVirtual& item, QDataStream::Version version = QDataStream::Qt_5_15) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(version);
    item.DoSerialize(out, false);
    return bytes;
}

QDataStream::Status readInto(QRatingItemVirtual& item, const QByteArray& bytes,
                             QDataStream::Version version = QDataStream::Qt_5_15) {
    QDataStream in(bytes);
    in.setVersion(version);
    item.DoSerialize(in, true);
    return in.status();
}

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

// The scored state of an item in one line: name, score, standard score, remark.
QString scored(QRatingItemVirtual* item) {
    return QStringLiteral("%1|%2|%3|%4")
        .arg(item->GetRatingItemName())
        .arg(item->GetRatingItemScore())
        .arg(item->GetRatingItemScoreStd())
        .arg(item->GetRatingItemRemark());
}

// Adds the children written in the tree notation "name:score(children),..." under parent.
void build(TestItem* parent, const QString& spec) {
    int depth = 0, start = 0;
    for (int i = 0; i <= spec.size(); ++i) {
        const QChar c = i < spec.size() ? spec.at(i) : QLatin1Char(',');
        depth += c == QLatin1Char('(') ? 1 : c == QLatin1Char(')') ? -1 : 0;
        if (c != QLatin1Char(',') || depth != 0)
            continue;
        const QString node = spec.mid(start, i - start);
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

// The children of item depth first as name|score|remark, deeper levels marked with ">".
QStringList render(QRatingItemVirtual* item, const QString& prefix = QString()) {
    QStringList lines;
    for (QRatingItemVirtual* child : childrenOf(item)) {
        lines.append(prefix + QStringLiteral("%1|%2|%3")
                                  .arg(child->GetRatingItemName())
                                  .arg(child->GetRatingItemScore())
                                  .arg(child->GetRatingItemRemark()));
        lines.append(render(child, prefix + QLatin1Char('>')));
    }
    return lines;
}

} // namespace

class TstRatingItemGeneral : public QObject {
    Q_OBJECT
private slots:
    void valueText_data() {
        QTest::addColumn<QString>("setter");
        QTest::addColumn<QVariant>("input");
        QTest::addColumn<int>("precision");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("stored");
        QTest::newRow("integer, precision 2") << "int" << QVariant(3) << 2 << "3.00"
                                              << "3";
        QTest::newRow("negative integer") << "int" << QVariant(-40) << 0 << "-40"
                                          << "-40";
        QTest::newRow("double, ten decimals stored") << "double" << QVariant(2.5) << 1 << "2.5"
                                                     << "2.5000000000";
        QTest::newRow("double rounded for display") << "double" << QVariant(2.75) << 1 << "2.8"
                                                    << "2.7500000000";
        QTest::newRow("text on a new item") << "text" << QVariant(QStringLiteral(" 12 m ")) << 3 << " 12 m "
                                            << " 12 m ";
        QTest::newRow("text after an integer keeps the numeric type")
            << "int,text" << QVariant(QStringLiteral("abc")) << 2 << "0.00"
            << "abc";
    }

    void valueText() {
        QFETCH(QString, setter);
        QFETCH(QVariant, input);
        QFETCH(int, precision);
        QFETCH(QString, shown);
        QFETCH(QString, stored);
        QRatingItem_General item;
        item.SetRatingItemPrecision(precision);
        if (setter.startsWith(QLatin1String("int,"))) {
            item.SetRatingItemValue(7);
            item.SetRatingItemValue(input.toString(), true);
        } else if (setter == QLatin1String("int")) {
            item.SetRatingItemValue(input.toInt());
        } else if (setter == QLatin1String("double")) {
            item.SetRatingItemValue(input.toDouble());
        } else {
            item.SetRatingItemValue(input.toString(), false);
        }
        QCOMPARE(item.GetRatingItemValue(), shown);
        item.SetRatingItemIndexRule(5); // the index text shows the value as stored
        QCOMPARE(item.GetRatingItemIndex(), stored.simplified());
    }

    void indexText_data() {
        QTest::addColumn<int>("rule");
        QTest::addColumn<QString>("expected");
        QTest::newRow("0: code") << 0 << "C 1";
        QTest::newRow("1: name simplified") << 1 << "beam and column";
        QTest::newRow("2: none") << 2 << "";
        QTest::newRow("negative: none") << -1 << "";
        QTest::newRow("4: attribute list joined") << 4 << "x,y z";
        QTest::newRow("5: value") << 5 << "v";
    }

    void indexText() {
        QFETCH(int, rule);
        QFETCH(QString, expected);
        QRatingItem_General item;
        item.SetRatingItemCode(QStringLiteral(" C  1"));
        item.SetRatingItemName(QStringLiteral("  beam  and\tcolumn "));
        item.SetRatingItemValue(QStringLiteral("v "), false);
        item.SetRatingItemAttribute(QStringList{QStringLiteral("x"), QStringLiteral("y  z")});
        item.SetRatingItemIndexRule(rule);
        QCOMPARE(item.GetRatingItemIndex(), expected);
        QCOMPARE(item.GetRatingItemCode(QStringLiteral("t")),
                 rule == 4 || rule == 5 ? QStringLiteral("t") : QStringLiteral(" C  1"));
    }

    void childrenWithoutIndexTextAreListedButNotMapped() {
        TestItem parent;
        auto* hidden = new TestItem(QStringLiteral("hidden"));
        hidden->SetRatingItemIndexRule(2);
        parent.AddRatingItem(MarkPointer::fromItem(hidden), true);
        parent.AddRatingItem(nullptr, true);
        QCOMPARE(parent.GetChildItemCount(), 1);
        QCOMPARE(parent.GetRatingItemByIndex(QString()), nullptr);
        QCOMPARE(parent.GetRatingItemByIndex(QStringLiteral("hidden")), nullptr);
        TestItem* first = parent.add(QStringLiteral("same"));
        TestItem* second = parent.add(QStringLiteral("same"));
        QVERIFY(first != second);
        QCOMPARE(parent.GetRatingItemByIndex(QStringLiteral("same")), MarkPointer::fromItem(second));
    }

    void matchingPairsMissingAndSurplus() {
        TestItem standard(QStringLiteral("root"));
        TestItem* p = standard.add(QStringLiteral("b"), 4.0);
        p->SetRatingItemValue(QStringLiteral("ok"), false);
        p->SetRatingItemUnit(QStringLiteral("m"));
        TestItem* q = standard.add(QStringLiteral("c"), 6.0);
        q->SetRatingItemCode(QStringLiteral("QC"));
        q->SetRatingItemUnit(QStringLiteral("kg"));
        q->SetAttributeType(9);
        q->SetRatingItemValue(QStringLiteral("std"), false);
        standard.SetRatingItemScore(10.0);

        TestItem candidate(QStringLiteral("root"));
        TestItem* x = candidate.add(QStringLiteral("a"), 99.0);
        x->SetRatingItemRemark(QStringLiteral("old"));
        TestItem* y = candidate.add(QStringLiteral("b"));
        y->SetRatingItemValue(QStringLiteral("ok"), false);

        QCOMPARE(candidate.ExecuteDBScore(MarkPointer::fromItem(&standard), 1), 4.0);
        QCOMPARE(candidate.GetRatingItemScoreStd(), 10.0);
        const QList<QRatingItemVirtual*> children = childrenOf(&candidate);
        QCOMPARE(children.size(), 3);
        QCOMPARE(children.at(0), y);
        QCOMPARE(scored(y), QStringLiteral("b|4|4|"));
        QCOMPARE(y->GetRatingItemValueStd(), QStringLiteral("ok"));
        // The missing item copies the description but not the value.
        QRatingItemVirtual* missing = children.at(1);
        QCOMPARE(scored(missing), QStringLiteral("c|0|6|缺少评分项，不得分"));
        QCOMPARE(missing->GetRatingItemCode() + missing->GetRatingItemUnit() + missing->GetRatingItemValue(),
                 QStringLiteral("QCkg"));
        QCOMPARE(missing->GetAttributeType(), 9);
        QCOMPARE(children.at(2), x);
        QCOMPARE(scored(x), QStringLiteral("a|0|0|存在多余评分项，不得分"));

        // Scoring again starts from the answer-child map and gives the same picture.
        QCOMPARE(candidate.ExecuteDBScore(MarkPointer::fromItem(&standard), 1), 4.0);
        QCOMPARE(candidate.GetChildItemCount(), 3);
    }

    // Scoring scenarios in a small tree notation: "name:score(children)", siblings separated by
    // ","; the result lists the candidate's children depth first as name|score|remark.
    void scoringScenarios_data() {
        QTest::addColumn<QString>("standard");
        QTest::addColumn<QString>("candidate");
        QTest::addColumn<int>("mode");
        QTest::addColumn<double>("total");
        QTest::addColumn<QString>("children");
        QTest::addColumn<QString>("remark");
        const auto row = [](const char* name, const char* standard, const char* candidate, int mode,
                            double total, const char* children, const char* remark) {
            QTest::newRow(name) << QString::fromUtf8(standard) << QString::fromUtf8(candidate) << mode
                                << total << QString::fromUtf8(children) << QString::fromUtf8(remark);
        };
        row("last-added duplicate scored, the other dropped", "a:5", "a:1,a:2", 1, 5.0, "a|5|", "");
        row("standard children sharing a key score the candidate once", "a:5,a:5", "a", 1, 5.0, "a|5|", "");
        row("a missing subtree is generated whole", "a:6(a1:2,a2:4)", "", 1, 0.0,
            "a|0|缺少评分项，不得分; >a1|0|缺少评分项，不得分; >a2|0|缺少评分项，不得分", "");
        row("negative sum clamped", "a:-3", "a", 1, 0.0, "a|-3|", "分数扣减至0");
        row("other modes neither score leaves nor clamp", "a:-3", "a:-3", 3, -3.0, "a|-3|", "");
        row("a standard leaf leaves the candidate's children alone", "", "x(y)", 1, 10.0, "x|0|; >y|0|", "");
    }

    void scoringScenarios() {
        QFETCH(QString, standard);
        QFETCH(QString, candidate);
        QFETCH(int, mode);
        QFETCH(double, total);
        QFETCH(QString, children);
        QFETCH(QString, remark);
        TestItem standardRoot(QStringLiteral("root"));
        standardRoot.SetRatingItemScore(10.0);
        build(&standardRoot, standard);
        TestItem candidateRoot(QStringLiteral("root"));
        build(&candidateRoot, candidate);
        QCOMPARE(candidateRoot.ExecuteDBScore(MarkPointer::fromItem(&standardRoot), mode), total);
        QCOMPARE(render(&candidateRoot).join(QStringLiteral("; ")), children);
        QCOMPARE(candidateRoot.GetRatingItemScoreStd(), 10.0);
        QCOMPARE(candidateRoot.GetRatingItemRemark(), total == 0.0 && standard == QLatin1String("a:-3")
                                                          ? QStringLiteral("分数扣减至0")
                                                          : QString());
    }

    void nullOrForeignStandardChangesNothing() {
        TestItem candidate;
        candidate.SetRatingItemScore(7.0);
        candidate.SetRatingItemRemark(QStringLiteral("kept"));
        QObject foreign;
        QCOMPARE(candidate.ExecuteDBScore(nullptr, 1), 0.0);
        QCOMPARE(candidate.ExecuteDBScore(&foreign, 1), 0.0);
        QCOMPARE(scored(&candidate), QStringLiteral("|7|0|kept"));
    }

    void failedCreationEndsTheWalk() {
        TestItem standard;
        build(&standard, QStringLiteral("a:1,b:1"));
        TestItem candidate;
        build(&candidate, QStringLiteral("b,z"));
        TestItem::failCreate = true;
        candidate.ExecuteDBScore(MarkPointer::fromItem(&standard), 1);
        TestItem::failCreate = false;
        // "a" could not be generated: nothing after it was matched, but surplus handling still ran.
        QCOMPARE(render(&candidate), (QStringList{QStringLiteral("b|0|存在多余评分项，不得分"),
                                                  QStringLiteral("z|0|存在多余评分项，不得分")}));
    }

    void jsonRoundTrip() {
        TestItem item;
        item.SetAttributeType(4);
        item.SetRatingItemIndexRule(4);
        item.SetRatingItemScoreRule(101);
        item.SetRatingItemValue(2.5);
        item.SetRatingItemPrecision(3);
        item.SetRatingItemCode(QStringLiteral("code"));
        item.SetRatingItemName(QStringLiteral("名称"));
        item.SetRatingItemUnit(QStringLiteral("m³"));
        item.SetRatingItemRemark(QStringLiteral("备注"));
        item.SetRatingItemScore(1.25);
        item.SetRatingItemLock(true);
        item.SetRatingItemAttribute(QStringList{QStringLiteral("a"), QStringLiteral("b")});
        item.SetRatingItemLevel(7);
        item.SetRatingItemScoreStd(9.0);
        item.add(QStringLiteral("child"), 0.5);
        QJsonObject object;
        item.DoSerialize(object, false);
        QCOMPARE(object.value(QStringLiteral("upperrange")).toDouble(), 5.0);
        QCOMPARE(object.value(QStringLiteral("lowerrange")).toDouble(), 2.0);

        // Everything persisted comes back (the rewrite is identical); what is not resets.
        TestItem copy;
        copy.DoSerialize(object, true);
        QCOMPARE(copy.GetRatingItemValue(), QStringLiteral("2.500"));
        QCOMPARE(copy.GetRatingItemIndex(), QStringLiteral("a,b"));
        QCOMPARE(copy.GetRatingItemLevel(), 2);
        QCOMPARE(copy.GetRatingItemScoreStd(), 0.0);
        QCOMPARE(childrenOf(&copy).value(0)->GetRatingItemScore(), 0.5);
        QJsonObject again;
        copy.DoSerialize(again, false);
        QCOMPARE(again, object);
    }

    void jsonMissingAndMistypedKeysReadAsDefaults() {
        QJsonObject object{{QStringLiteral("attribute"), QStringLiteral("12")},
                           {QStringLiteral("name"), 5},
                           {QStringLiteral("locked"), QStringLiteral("true")},
                           {QStringLiteral("score"), QStringLiteral("3")}};
        TestItem item(QStringLiteral("before"));
        item.SetAttributeType(3);
        item.DoSerialize(object, true);
        QCOMPARE(item.GetAttributeType(), 0);
        QCOMPARE(item.GetRatingItemName(), QString());
        QVERIFY(!item.GetRatingItemLock());
        QCOMPARE(item.GetRatingItemScore(), 0.0);
        QJsonObject written;
        item.DoSerialize(written, false);
        QCOMPARE(written.value(QStringLiteral("upperrange")).toDouble(-1), 0.0); // not the constructor's 5.0
        QVERIFY(written.value(QStringLiteral("attridata")).isNull());
    }

    void streamRoundTrip_data() {
        QTest::addColumn<QVariant>("attribute");
        QTest::addColumn<int>("version");
        QTest::newRow("invalid") << QVariant() << int(QDataStream::Qt_5_15);
        QTest::newRow("int") << QVariant(-7) << int(QDataStream::Qt_5_15);
        QTest::newRow("unsigned long long") << QVariant(quint64(1) << 63) << int(QDataStream::Qt_5_15);
        QTest::newRow("double") << QVariant(0.1) << int(QDataStream::Qt_5_15);
        QTest::newRow("string list") << QVariant(QStringList{QStringLiteral("a"), QString()})
                                     << int(QDataStream::Qt_5_15);
        QTest::newRow("nested list and map")
            << QVariant(QVariantList{
                   1, QVariantMap{{QStringLiteral("k"), QVariantList{true, QStringLiteral("s")}}}})
            << int(QDataStream::Qt_5_15);
        QTest::newRow("list, Qt 4.8 encoding") << QVariant(QVariantList{1, 2.5}) << int(QDataStream::Qt_4_8);
    }

    void streamRoundTrip() {
        QFETCH(QVariant, attribute);
        QFETCH(int, version);
        const auto streamVersion = QDataStream::Version(version);
        TestItem item(QStringLiteral("名称"));
        item.SetAttributeType(11);
        item.SetRatingItemScoreRule(104);
        item.SetRatingItemValue(3);
        item.SetRatingItemPrecision(1);
        item.SetRatingItemCode(QStringLiteral("c"));
        item.SetRatingItemUnit(QStringLiteral("u"));
        item.SetRatingItemRemark(QStringLiteral("r"));
        item.SetRatingItemScore(-2.5);
        item.SetRatingItemLock(true);
        item.SetRatingItemAttribute(attribute);
        item.add(QStringLiteral("one"), 1.0)->add(QStringLiteral("deep"), 3.0);
        item.add(QStringLiteral("two"), 2.0);
        const QByteArray bytes = streamOf(item, streamVersion);

        // Read back and written again, the record is byte for byte the same.
        TestItem copy;
        QCOMPARE(readInto(copy, bytes, streamVersion), QDataStream::Ok);
        QCOMPARE(copy.GetRatingItemValue(), QStringLiteral("3.0"));
        QVariant readBack;
        copy.GetRatingItemAttribute(readBack);
        QCOMPARE(readBack, attribute);
        QCOMPARE(copy.GetRatingItemByIndex(QStringLiteral("two")),
                 MarkPointer::fromItem(childrenOf(&copy).at(1)));
        QCOMPARE(streamOf(copy, streamVersion), bytes);
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
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        item.DoSerialize(out, false);
        QCOMPARE(out.status(), QDataStream::WriteFailed);
    }

    void jsonNullAttributeStillStreams() {
        TestItem item;
        QJsonObject object{{QStringLiteral("attridata"), QJsonArray{QJsonValue(), 1}}};
        item.DoSerialize(object, true);
        TestItem copy;
        QCOMPARE(readInto(copy, streamOf(item)), QDataStream::Ok);
        QVariant readBack;
        copy.GetRatingItemAttribute(readBack);
        QCOMPARE(readBack.toList().size(), 2);
    }

    void everyTruncationStopsCleanly() {
        TestItem item(QStringLiteral("root"));
        item.SetRatingItemAttribute(QVariantMap{{QStringLiteral("k"), QStringList{QStringLiteral("v")}}});
        item.add(QStringLiteral("a"))->add(QStringLiteral("b"));
        const QByteArray bytes = streamOf(item);
        for (int length = 0; length < bytes.size(); ++length) {
            TestItem copy;
            QVERIFY2(readInto(copy, bytes.left(length)) != QDataStream::Ok,
                     qPrintable(QString::number(length)));
        }
    }

    void hostileCounts_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("child count 2^31-1")
            << record(true, [](QDataStream& out) { out << qint32(0x7fffffff); });
        QTest::newRow("negative child count") << record(true, [](QDataStream& out) { out << qint32(-1); });
        QTest::newRow("attribute of a refused type") << record(false, [](QDataStream& out) {
            out << quint32(QMetaType::QDate) << qint8(0) << qint64(12345) << qint32(0);
        });
        QTest::newRow("attribute list count 2^31-16") << record(false, [](QDataStream& out) {
            out << quint32(QMetaType::QVariantList) << qint8(0) << quint32(0x7ffffff0) << qint32(0);
        });
        QTest::newRow("attribute nested 100000 deep") << record(false, [](QDataStream& out) {
            for (int i = 0; i < 100000; ++i)
                out << quint32(QMetaType::QVariantList) << qint8(0) << quint32(1);
            out << quint32(QMetaType::Int) << qint8(0) << qint32(1) << qint32(0);
        });
    }

    void hostileCounts() {
        QFETCH(QByteArray, bytes);
        TestItem item;
        QCOMPARE(readInto(item, bytes), QDataStream::ReadCorruptData);
        QCOMPARE(item.GetChildItemCount(), 0);
    }

    void nestingDeeperThanTheLimitIsRefused() {
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        for (int i = 0; i < 100000; ++i) {
            writeBareFields(out);
            out << qint32(1);
        }
        writeBareFields(out);
        out << qint32(0);
        const int liveBefore = TestItem::liveCount;
        {
            TestItem item;
            QCOMPARE(readInto(item, bytes), QDataStream::ReadCorruptData);
            int depth = 1;
            QRatingItemVirtual* node = &item;
            while (QRatingItemVirtual* next = childrenOf(node).value(0)) {
                node = next;
                ++depth;
            }
            QCOMPARE(depth, 511);
        }
        QCOMPARE(TestItem::liveCount, liveBefore);
    }

    void jsonNestingIsCutAtTheLimit() {
        QJsonObject object{{QStringLiteral("name"), QStringLiteral("leaf")}};
        for (int i = 0; i < 2000; ++i)
            object = QJsonObject{{QStringLiteral("items"), QJsonArray{object}}};
        TestItem item;
        item.DoSerialize(object, true);
        int depth = 1;
        QRatingItemVirtual* node = &item;
        while (QRatingItemVirtual* next = childrenOf(node).value(0)) {
            node = next;
            ++depth;
        }
        QCOMPARE(depth, 511);
        QJsonObject written;
        item.DoSerialize(written, false);
        TestItem copy;
        copy.DoSerialize(written, true);
        QJsonObject again;
        copy.DoSerialize(again, false);
        QCOMPARE(again, written);
    }

    void treesWithinTheLimitRoundTrip() {
        TestItem root;
        TestItem* node = &root;
        for (int i = 1; i < 511; ++i)
            node = node->add(QString::number(i));
        QByteArray bytes = streamOf(root);
        TestItem copy;
        QCOMPARE(readInto(copy, bytes), QDataStream::Ok);
        node->add(QStringLiteral("one too deep"));
        QByteArray refused;
        QDataStream out(&refused, QIODevice::WriteOnly);
        root.DoSerialize(out, false);
        QCOMPARE(out.status(), QDataStream::WriteFailed);
    }
};

QTEST_GUILESS_MAIN(TstRatingItemGeneral)
#include "tst_ratingitem_general.moc"
