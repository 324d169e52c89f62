// Score movement through a criteria tree (equal distribution, redistribution around locks, the sign
// clamp) and ownership of the subtree: every item held is deleted once.
#include "itemtrees.h"

#include <QtTest>

namespace {

// Children a (with a1 and a2), b and c.
void build(TestItem* root) {
    TestItem* a = root->add("a");
    root->add("b");
    root->add("c");
    a->add("a1");
    a->add("a2");
}

} // namespace

class TstRatingItemBase : public QObject {
    Q_OBJECT
private slots:
    void init() { TestItem::destroyedCount = 0; }

    void assignScoreSplitsEquallyDownTheTree() {
        TestItem root;
        build(&root);
        root.SetRatingItemLock(true); // locks do not matter to AssignScore
        root.AssignScore(9.0);
        QCOMPARE(root.GetRatingItemScore(), 9.0);
        for (QRatingItemVirtual* child : childrenOf(&root))
            QCOMPARE(child->GetRatingItemScore(), 3.0);
        for (QRatingItemVirtual* grandchild : childrenOf(childrenOf(&root).first()))
            QCOMPARE(grandchild->GetRatingItemScore(), 1.5);
    }

    // Every child has one grandchild that starts at 42: a locked child keeps its subtree, an unlocked
    // one passes its share on.
    void redistributeScore_data() {
        QTest::addColumn<bool>("rootLocked");
        QTest::addColumn<QList<bool>>("locked");
        QTest::addColumn<QList<double>>("before");
        QTest::addColumn<double>("expectedRoot");
        QTest::addColumn<QList<double>>("expected");
        QTest::addColumn<QList<double>>("grandchildren");
        using B = QList<bool>;
        using D = QList<double>;
        QTest::newRow("one locked") << false << B{true, false, false} << D{4, 0, 0} << 10.0 << D{4, 3, 3}
                                    << D{42, 3, 3};
        QTest::newRow("no locks") << false << B{false, false, false, false} << D{9, 9, 9, 9} << 10.0
                                  << D{2.5, 2.5, 2.5, 2.5} << D{2.5, 2.5, 2.5, 2.5};
        QTest::newRow("every child locked")
            << false << B{true, true} << D{4, 2} << 10.0 << D{4, 2} << D{42, 42};
        QTest::newRow("locks exceed the total") << false << B{true, true, false, false} << D{7, 5, 0, 0}
                                                << 10.0 << D{7, 5, -1, -1} << D{42, 42, -1, -1};
        QTest::newRow("item itself locked")
            << true << B{false, false} << D{1, 2} << 0.0 << D{1, 2} << D{42, 42};
        QTest::newRow("no children") << false << B{} << D{} << 10.0 << D{} << D{};
    }

    void redistributeScore() {
        QFETCH(bool, rootLocked);
        QFETCH(QList<bool>, locked);
        QFETCH(QList<double>, before);
        QFETCH(double, expectedRoot);
        QFETCH(QList<double>, expected);
        QFETCH(QList<double>, grandchildren);
        TestItem root;
        root.SetRatingItemLock(rootLocked);
        for (int i = 0; i < locked.size(); ++i) {
            TestItem* child = root.add(QString::number(i));
            child->SetRatingItemScoreStd(before.at(i));
            child->SetRatingItemLock(locked.at(i));
            child->add("grandchild")->SetRatingItemScoreStd(42.0);
        }
        root.RedistributeScore(10.0);
        QCOMPARE(root.GetRatingItemScoreStd(), expectedRoot);
        QList<double> children, grand;
        for (QRatingItemVirtual* child : childrenOf(&root)) {
            children.append(child->GetRatingItemScoreStd());
            grand.append(childrenOf(child).first()->GetRatingItemScoreStd());
        }
        QCOMPARE(children, expected);
        QCOMPARE(grand, grandchildren);
    }

    void signClamp_data() {
        QTest::addColumn<double>("standard");
        QTest::addColumn<double>("score");
        QTest::addColumn<double>("expected");
        QTest::addColumn<bool>("clamped");
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
        item.SetRatingItemRemark("before");
        item.SetRatingItemScoreStd(standard);
        item.SetRatingItemScore(score);
        item.adjust();
        QCOMPARE(item.GetRatingItemScore(), expected);
        QCOMPARE(item.GetRatingItemRemark(), QString(clamped ? "分数扣减至0" : "before"));
    }

    void clearDeletesEachItemOnceAndForgetsIt() {
        TestItem root("root");
        build(&root);
        root.ClearRatingItemData();
        QCOMPARE(TestItem::destroyedCount, 5);
        QVERIFY(!root.HasChildRatingItem() && root.GetChildItemCount() == 0);
        QCOMPARE(root.GetRatingItemByIndex("a"), nullptr);
        QCOMPARE(root.GetRatingItemName(), QString("root"));
        // A list naming an item twice deletes it once.
        void* item = MarkPointer::fromItem(new TestItem("x"));
        QList<void*> list{item, nullptr, item};
        root.ClearRatingItemData(list);
        QCOMPARE(TestItem::destroyedCount, 6);
    }

    // Items handed over again and again, in and out of order, are still deleted once each.
    void repeatedHandOversDeleteOnce() {
        TestItem root("root");
        QList<TestItem*> items;
        for (int i = 0; i < 40; ++i)
            items << root.add(QString::number(i));
        for (int round = 0; round < 5; ++round)
            for (int i = round; i < items.size(); i += 3)
                root.AddRatingItem(MarkPointer::fromItem(items[i]), false);
        root.ClearRatingItemData();
        QCOMPARE(TestItem::destroyedCount, 40);
    }

    void everyItemEverHeldIsDeletedOnce() {
        const int liveBefore = TestItem::liveCount;
        {
            TestItem standard("root"), candidate("root");
            standard.add("a")->add("a1");
            standard.add("b");
            candidate.add("a");
            candidate.add("a"); // a duplicate drops out of the children list
            candidate.add("c"); // surplus
            for (int round = 0; round < 3; ++round)
                scoreAgainst(&candidate, &standard);
            // The last-added "a", a generated "b", the surplus "c"; each round generated new ones.
            QCOMPARE(candidate.GetChildItemCount(), 3);
            QVERIFY(TestItem::liveCount > liveBefore + 4 + 6);
        }
        QCOMPARE(TestItem::liveCount, liveBefore);
    }
};

QTEST_GUILESS_MAIN(TstRatingItemBase)
#include "tst_ratingitembase.moc"
