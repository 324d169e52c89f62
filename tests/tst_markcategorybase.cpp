// The category base: standard-score split, scoring against the standard category, and the JSON and
// stream category records.
#include "itemtrees.h"

#include <QPointer>
#include <QtTest>

namespace {

QByteArray streamOf(QMarkCategoryVirtual& category) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    category.DoSerialize(out, false);
    return bytes;
}

} // namespace

class TstMarkCategoryBase : public QObject {
    Q_OBJECT
private slots:
    void assignScoreGivesEqualSharesPerLevel() {
        TestCategory category;
        TestItem* root = category.root();
        TestItem* a = root->add("a");
        root->add("b");
        root->add("c");
        a->add("a1");
        a->add("a2")->SetRatingItemLock(true); // locks are ignored
        category.AssignScore(10.0);
        QCOMPARE(root->GetRatingItemScoreStd(), 10.0);
        for (QRatingItemVirtual* child : childrenOf(root))
            QCOMPARE(child->GetRatingItemScoreStd(), 10.0 / 3);
        for (QRatingItemVirtual* grandchild : childrenOf(a))
            QCOMPARE(grandchild->GetRatingItemScoreStd(), 10.0 / 3 / 2);
    }

    void operationsWithoutRootDoNothing() {
        TestCategory category(false), standard;
        category.AssignScore(10.0);
        category.ClearRatingItemData();
        QCOMPARE(category.GetRatingItemPtr(), nullptr);
        QCOMPARE(category.ExecuteDBScore(&standard), 0.0);
        QCOMPARE(jsonOf(&category).size(), 2);
    }

    void executeScoresTheRootAgainstTheStandardRoot() {
        TestCategory standard, candidate, rootless(false);
        standard.root()->add("a", 4.0);
        standard.root()->SetRatingItemScore(4.0);
        QPointer<TestItem> child = candidate.root()->add("a");
        QCOMPARE(candidate.ExecuteDBScore(nullptr), 0.0);
        // A standard without a root hands a null standard item to the root: nothing is scored.
        QCOMPARE(candidate.ExecuteDBScore(&rootless), 0.0);
        QCOMPARE(candidate.root()->GetRatingItemScoreStd(), 0.0);
        QCOMPARE(candidate.ExecuteDBScore(&standard), 4.0);
        QCOMPARE(candidate.root()->GetRatingItemScoreStd(), 4.0);
        // Clearing keeps the root and deletes its children.
        candidate.ClearRatingItemData();
        QVERIFY(candidate.root() && candidate.root()->GetChildItemCount() == 0 && child.isNull());
    }

    void jsonRecordSharesTheObjectWithTheRoot() {
        TestCategory category, copy;
        category.setCreated(true);
        category.root()->add("a", 2.0);
        QJsonObject object = jsonOf(&category);
        copy.root()->SetRatingItemName(QString());
        copy.DoSerialize(object, true);
        QVERIFY(copy.categoryType() == 3 && copy.created());
        QCOMPARE(jsonOf(&copy), object);
    }

    void streamRecordReplacesTheRoot() {
        TestCategory category, copy;
        category.setCreated(true);
        category.root()->add("a", 2.0);
        const QByteArray bytes = streamOf(category);
        QPointer<TestItem> oldRoot = copy.root();
        QDataStream in(bytes);
        copy.DoSerialize(in, true);
        QCOMPARE(in.status(), QDataStream::Ok);
        QVERIFY(oldRoot.isNull() && copy.created());
        QCOMPARE(childrenOf(copy.root()).value(0)->GetRatingItemScore(), 2.0);
        QCOMPARE(streamOf(copy), bytes);
    }

    // A header cut short leaves the old root in place.
    void truncatedHeaderKeepsTheRoot() {
        TestCategory category, copy;
        QPointer<TestItem> root = copy.root();
        QDataStream in(streamOf(category).left(6));
        copy.DoSerialize(in, true);
        QVERIFY(in.status() != QDataStream::Ok);
        QCOMPARE(copy.root(), root.data());
    }
};

QTEST_GUILESS_MAIN(TstMarkCategoryBase)
#include "tst_markcategorybase.moc"
