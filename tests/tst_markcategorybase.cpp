// The category base: standard-score split, scoring against the standard category, and the JSON and
// stream category records.
#include "testitem.h"

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
        TestItem* a = root->add(QStringLiteral("a"));
        root->add(QStringLiteral("b"));
        root->add(QStringLiteral("c"));
        a->add(QStringLiteral("a1"));
        a->add(QStringLiteral("a2"))->SetRatingItemLock(true); // locks are ignored
        category.AssignScore(10.0);
        QCOMPARE(root->GetRatingItemScoreStd(), 10.0);
        for (QRatingItemVirtual* child : childrenOf(root))
            QCOMPARE(child->GetRatingItemScoreStd(), 10.0 / 3);
        for (QRatingItemVirtual* grandchild : childrenOf(a))
            QCOMPARE(grandchild->GetRatingItemScoreStd(), 10.0 / 3 / 2);
    }

    void operationsWithoutRootDoNothing() {
        TestCategory category(false);
        category.AssignScore(10.0);
        category.ClearRatingItemData();
        QCOMPARE(category.GetRatingItemPtr(), nullptr);
        TestCategory standard;
        QCOMPARE(category.ExecuteDBScore(&standard), 0.0);
        QJsonObject object;
        category.DoSerialize(object, false);
        QCOMPARE(object.size(), 2);
    }

    void executeScoresTheRootAgainstTheStandardRoot() {
        TestCategory standard;
        standard.root()->add(QStringLiteral("a"), 4.0);
        standard.root()->SetRatingItemScore(4.0);
        TestCategory candidate;
        candidate.root()->add(QStringLiteral("a"));
        TestCategory rootless(false);

        QCOMPARE(candidate.ExecuteDBScore(nullptr), 0.0);
        QCOMPARE(candidate.root()->GetRatingItemScoreStd(), 0.0);
        // A standard without a root hands a null standard item to the root: nothing is scored.
        QCOMPARE(candidate.ExecuteDBScore(&rootless), 0.0);
        QCOMPARE(candidate.ExecuteDBScore(&standard), 4.0);
        QCOMPARE(candidate.root()->GetRatingItemScoreStd(), 4.0);
    }

    void clearKeepsTheRootAndDropsItsChildren() {
        TestCategory category;
        QPointer<TestItem> child = category.root()->add(QStringLiteral("a"));
        category.ClearRatingItemData();
        QVERIFY(category.root());
        QCOMPARE(category.root()->GetChildItemCount(), 0);
        QVERIFY(child.isNull());
    }

    void jsonRecordSharesTheObjectWithTheRoot() {
        TestCategory category;
        category.setCreated(true);
        category.root()->add(QStringLiteral("a"), 2.0);
        QJsonObject object;
        category.DoSerialize(object, false);
        QCOMPARE(object.value(QStringLiteral("categorytype")).toInt(), 3);
        QCOMPARE(object.value(QStringLiteral("iscreated")).toBool(), true);
        QCOMPARE(object.value(QStringLiteral("name")).toString(), QStringLiteral("root"));
        QVERIFY(object.value(QStringLiteral("items")).isArray());

        TestCategory copy;
        copy.root()->SetRatingItemName(QString());
        copy.DoSerialize(object, true);
        QCOMPARE(copy.categoryType(), 3);
        QVERIFY(copy.created());
        QCOMPARE(copy.root()->GetRatingItemName(), QStringLiteral("root"));
        QCOMPARE(copy.root()->GetChildItemCount(), 1);

        QJsonObject mistyped{{QStringLiteral("categorytype"), QStringLiteral("3")},
                             {QStringLiteral("iscreated"), 1}};
        copy.DoSerialize(mistyped, true);
        QCOMPARE(copy.categoryType(), 0);
        QVERIFY(!copy.created());
    }

    void streamRecordReplacesTheRoot() {
        TestCategory category;
        category.setCreated(true);
        category.root()->add(QStringLiteral("a"), 2.0);
        const QByteArray bytes = streamOf(category);
        {
            QDataStream in(bytes);
            qint32 type = 0;
            QString className;
            in >> type >> className;
            QCOMPARE(type, 3);
            QCOMPARE(className, QStringLiteral("TestCategory"));
        }
        TestCategory copy(true);
        copy.setCreated(false);
        QPointer<TestItem> oldRoot = copy.root();
        QDataStream in(bytes);
        copy.DoSerialize(in, true);
        QCOMPARE(in.status(), QDataStream::Ok);
        QVERIFY(oldRoot.isNull());
        QVERIFY(copy.created());
        QCOMPARE(copy.root()->GetRatingItemName(), QStringLiteral("root"));
        QCOMPARE(childrenOf(copy.root()).value(0)->GetRatingItemScore(), 2.0);
        QCOMPARE(streamOf(copy), bytes);
    }

    void truncatedHeaderKeepsTheRoot() {
        TestCategory category;
        const QByteArray bytes = streamOf(category);
        TestCategory copy;
        QPointer<TestItem> root = copy.root();
        QDataStream in(bytes.left(6));
        copy.DoSerialize(in, true);
        QVERIFY(in.status() != QDataStream::Ok);
        QCOMPARE(copy.root(), root.data());
    }

    void hostileRootRecordLeavesAConsistentTree() {
        TestCategory category;
        TestItem* node = category.root();
        for (int i = 0; i < 5; ++i)
            node = node->add(QString::number(i));
        const QByteArray bytes = streamOf(category);
        for (int length = 0; length < bytes.size(); length += 7) {
            TestCategory copy;
            QDataStream in(bytes.left(length));
            copy.DoSerialize(in, true);
            QVERIFY(in.status() != QDataStream::Ok);
            copy.AssignScore(1.0); // the tree that was read is usable
        }
    }
};

QTEST_GUILESS_MAIN(TstMarkCategoryBase)
#include "tst_markcategorybase.moc"
