// Score movement through a criteria tree: equal distribution, redistribution around locks, the sign
// clamp, subtree deletion and the JSON children part.
#include "testitem.h"

#include <QJsonArray>
#include <QtTest>

class TstRatingItemBase : public QObject {
    Q_OBJECT
private slots:
    void init() { TestItem::destroyedCount = 0; }

    void assignScoreSplitsEquallyDownTheTree() {
        TestItem root;
        TestItem* first = root.add(QStringLiteral("a"));
        root.add(QStringLiteral("b"));
        root.add(QStringLiteral("c"));
        first->add(QStringLiteral("a1"));
        first->add(QStringLiteral("a2"));
        root.SetRatingItemLock(true); // locks do not matter to AssignScore
        root.AssignScore(9.0);
        QCOMPARE(root.GetRatingItemScore(), 9.0);
        for (QRatingItemVirtual* child : childrenOf(&root))
            QCOMPARE(child->GetRatingItemScore(), 3.0);
        for (QRatingItemVirtual* grandchild : childrenOf(first))
            QCOMPARE(grandchild->GetRatingItemScore(), 1.5);
    }

    void redistributeScore_data() {
        QTest::addColumn<bool>("rootLocked");
        QTest::addColumn<QList<bool>>("locked");
        QTest::addColumn<QList<double>>("before");
        QTest::addColumn<double>("expectedRoot");
        QTest::addColumn<QList<double>>("expected");
        using B = QList<bool>;
        using D = QList<double>;
        QTest::newRow("one locked") << false << B{true, false, false} << D{4, 0, 0} << 10.0 << D{4, 3, 3};
        QTest::newRow("no locks") << false << B{false, false, false, false} << D{9, 9, 9, 9} << 10.0
                                  << D{2.5, 2.5, 2.5, 2.5};
        QTest::newRow("every child locked") << false << B{true, true} << D{4, 2} << 10.0 << D{4, 2};
        QTest::newRow("locks exceed the total")
            << false << B{true, true, false, false} << D{7, 5, 0, 0} << 10.0 << D{7, 5, -1, -1};
        QTest::newRow("item itself locked") << true << B{false, false} << D{1, 2} << 0.0 << D{1, 2};
        QTest::newRow("no children") << false << B{} << D{} << 10.0 << D{};
    }

    void redistributeScore() {
        QFETCH(bool, rootLocked);
        QFETCH(QList<bool>, locked);
        QFETCH(QList<double>, before);
        QFETCH(double, expectedRoot);
        QFETCH(QList<double>, expected);
        TestItem root;
        root.SetRatingItemLock(rootLocked);
        QList<TestItem*> children;
        for (int i = 0; i < locked.size(); ++i) {
            children.append(root.add(QString::number(i)));
            children.last()->SetRatingItemScoreStd(before.at(i));
            children.last()->SetRatingItemLock(locked.at(i));
        }
        root.RedistributeScore(10.0);
        QCOMPARE(root.GetRatingItemScoreStd(), expectedRoot);
        for (int i = 0; i < children.size(); ++i)
            QCOMPARE(children.at(i)->GetRatingItemScoreStd(), expected.at(i));
    }

    void redistributeReachesGrandchildrenOfUnlockedChildren() {
        TestItem root;
        TestItem* open = root.add(QStringLiteral("open"));
        TestItem* closed = root.add(QStringLiteral("closed"));
        closed->SetRatingItemLock(true);
        closed->SetRatingItemScoreStd(6.0);
        TestItem* closedChild = closed->add(QStringLiteral("closed child"));
        closedChild->SetRatingItemScoreStd(42.0);
        open->add(QStringLiteral("x"));
        open->add(QStringLiteral("y"));
        root.RedistributeScore(10.0);
        QCOMPARE(open->GetRatingItemScoreStd(), 4.0);
        for (QRatingItemVirtual* grandchild : childrenOf(open))
            QCOMPARE(grandchild->GetRatingItemScoreStd(), 2.0);
        QCOMPARE(closedChild->GetRatingItemScoreStd(), 42.0);
    }

    void signClamp_data() {
        QTest::addColumn<double>("standard");
        QTest::addColumn<double>("score");
        QTest::addColumn<double>("expected");
        QTest::addColumn<bool>("clamped");
        QTest::newRow("negative under positive") << 5.0 << -2.0 << 0.0 << true;
        QTest::newRow("negative under zero") << 0.0 << -0.5 << 0.0 << true;
        QTest::newRow("positive under negative") << -5.0 << 1.0 << 0.0 << true;
        QTest::newRow("both negative") << -5.0 << -2.0 << -2.0 << false;
        QTest::newRow("both positive") << 5.0 << 2.0 << 2.0 << false;
        QTest::newRow("zero under negative") << -5.0 << 0.0 << 0.0 << false;
    }

    void signClamp() {
        QFETCH(double, standard);
        QFETCH(double, score);
        QFETCH(double, expected);
        QFETCH(bool, clamped);
        TestItem item;
        item.SetRatingItemRemark(QStringLiteral("before"));
        item.SetRatingItemScoreStd(standard);
        item.SetRatingItemScore(score);
        item.adjust();
        QCOMPARE(item.GetRatingItemScore(), expected);
        QCOMPARE(item.GetRatingItemRemark(),
                 clamped ? QStringLiteral("分数扣减至0") : QStringLiteral("before"));
    }

    void clearDeletesTheSubtreeDepthFirst() {
        TestItem root(QStringLiteral("root"));
        TestItem* a = root.add(QStringLiteral("a"));
        a->add(QStringLiteral("a1"));
        root.add(QStringLiteral("b"));
        QStringList order;
        for (QRatingItemVirtual* item : childrenOf(&root) + childrenOf(a)) {
            item->setObjectName(item->GetRatingItemName());
            connect(item, &QObject::destroyed, this, [&order](QObject* o) { order.append(o->objectName()); });
        }
        root.ClearRatingItemData();
        QCOMPARE(root.GetChildItemCount(), 0);
        QVERIFY(!root.HasChildRatingItem());
        QCOMPARE(root.GetRatingItemByIndex(QStringLiteral("a")), nullptr);
        QCOMPARE(order, (QStringList{QStringLiteral("a1"), QStringLiteral("a"), QStringLiteral("b")}));
        QCOMPARE(root.GetRatingItemName(), QStringLiteral("root"));
    }

    void clearListDeletesRepeatedEntriesOnce() {
        TestItem holder;
        auto* item = new TestItem(QStringLiteral("x"));
        QList<void*> list{MarkPointer::fromItem(item), nullptr, MarkPointer::fromItem(item)};
        holder.ClearRatingItemData(list);
        QCOMPARE(TestItem::destroyedCount, 1);
        QCOMPARE(list.size(), 3);
    }

    void everyItemEverHeldIsDeletedOnce() {
        // Duplicates, generated missing items and surplus items all end up owned by the parent.
        const int liveBefore = TestItem::liveCount;
        {
            TestItem standard(QStringLiteral("root"));
            standard.add(QStringLiteral("a"))->add(QStringLiteral("a1"));
            standard.add(QStringLiteral("b"));
            TestItem candidate(QStringLiteral("root"));
            candidate.add(QStringLiteral("a"));
            candidate.add(QStringLiteral("a")); // duplicate: drops out of the children list
            candidate.add(QStringLiteral("c")); // surplus
            for (int round = 0; round < 3; ++round)
                candidate.ExecuteDBScore(MarkPointer::fromItem(&standard), 1);
            // The last-added "a", a generated "b", the surplus "c".
            QCOMPARE(candidate.GetChildItemCount(), 3);
            QVERIFY(TestItem::liveCount > liveBefore + 4 + 6); // each round generated new missing items
        }
        QCOMPARE(TestItem::liveCount, liveBefore);
    }

    void jsonChildrenPart() {
        TestItem leaf(QStringLiteral("leaf"));
        QJsonObject empty;
        leaf.QRatingItemBase::DoSerialize(empty, false);
        QVERIFY(!empty.contains(QStringLiteral("items")));

        TestItem root(QStringLiteral("root"));
        root.add(QStringLiteral("first"), 1.0);
        root.add(QStringLiteral("second"), 2.0);
        QJsonObject object;
        root.DoSerialize(object, false);
        const QJsonArray items = object.value(QStringLiteral("items")).toArray();
        QCOMPARE(items.size(), 2);
        QCOMPARE(items.at(0).toObject().value(QStringLiteral("name")).toString(), QStringLiteral("first"));
        QCOMPARE(items.at(1).toObject().value(QStringLiteral("name")).toString(), QStringLiteral("second"));

        TestItem copy;
        copy.DoSerialize(object, true);
        const QList<QRatingItemVirtual*> children = childrenOf(&copy);
        QCOMPARE(children.size(), 2);
        QCOMPARE(children.at(1)->GetRatingItemName(), QStringLiteral("second"));
        QCOMPARE(children.at(1)->GetRatingItemScore(), 2.0);
        QCOMPARE(copy.GetRatingItemByIndex(QStringLiteral("first")), MarkPointer::fromItem(children.at(0)));
    }

    void jsonItemsOfTheWrongTypeAreIgnored() {
        QJsonObject object;
        object.insert(QStringLiteral("items"), QStringLiteral("not an array"));
        TestItem item;
        item.DoSerialize(object, true);
        QCOMPARE(item.GetChildItemCount(), 0);

        QJsonArray mixed{QJsonValue(7), QJsonObject{{QStringLiteral("name"), QStringLiteral("ok")}}};
        object.insert(QStringLiteral("items"), mixed);
        item.DoSerialize(object, true);
        // A non-object element reads as an empty record; the object element keeps its name.
        QCOMPARE(item.GetChildItemCount(), 2);
        QCOMPARE(childrenOf(&item).at(1)->GetRatingItemName(), QStringLiteral("ok"));
    }
};

QTEST_GUILESS_MAIN(TstRatingItemBase)
#include "tst_ratingitembase.moc"
