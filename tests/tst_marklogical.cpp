// The logic-relation category: its tree on both sides, logic chains scored in a candidate network,
// and who frees the link matrix (the sanitizer build reports any leak, double free or stale read).
#include "categorytest.h"

#include <QtTest>

namespace {

// A link matrix as the host allocates it, with the given links p -> q.
int** newMatrix(int nodes, const QList<QPair<int, int>>& links) {
    int** rows = new int*[nodes];
    for (int p = 0; p < nodes; ++p)
        rows[p] = new int[nodes]();
    for (const auto& link : links)
        rows[link.first][link.second] = 1;
    return rows;
}

// Nodes A=0, B=1, C=2, D=3 with A -> B -> C.
QMultiMap<QString, int> abcdNodes() {
    return {{"A", 0}, {"B", 1}, {"C", 2}, {"D", 3}};
}

// Standard logic: A must precede B; B must precede C and D.
void fillStandard(FakeProjectData& project) {
    project.logicNames = QStringList{"A", "B"};
    project.logicDisplays = QStringList{"A在B之前", "B在C之前;B在D之前"};
    project.logicChains = QStringList{"A;B", "B;C&B;D"};
}

// Exposes the network as the category hands it on.
class LogicProbe : public QMarkLogical_Sked {
public:
    explicit LogicProbe(bool withRoot = true) {
        if (withRoot)
            InitMarkCategoryItem();
    }
    using QMarkLogical_Sked::linkMatrix;
    using QMarkLogical_Sked::nodeCount;
    using QMarkLogical_Sked::nodeMap;

    void setNetwork(int** matrix, int count, QMultiMap<QString, int> nodes = abcdNodes()) {
        SetLogicMatrix(nodes, matrix, count);
    }
};

// Scores a candidate logic category, built from the candidate project, against a built standard.
double scoreCandidate(QMarkCategoryVirtual* candidate, QMarkCategoryVirtual* standard) {
    FakeProjectData project;
    project.logicNames = QStringList{"A", "B"};
    project.logicDisplays = QStringList{"a", "b"};
    candidate->UpdateCategory(static_cast<QObject*>(&project), true);
    return candidate->ExecuteDBScore(standard);
}

CategoryPtr builtStandard() {
    FakeProjectData project;
    fillStandard(project);
    CategoryPtr standard = makeCategory(1, 3);
    standard->UpdateCategory(static_cast<QObject*>(&project), false);
    standard->AssignScore(10.0);
    return standard;
}

} // namespace

class TstMarkLogical : public QObject {
    Q_OBJECT
private slots:
    void standardSideCarriesChains() {
        CategoryPtr standard = builtStandard();
        QRatingItemVirtual* root = rootOf(standard.get());
        QCOMPARE(root->GetRatingItemValue(), QStringLiteral("前置构件"));
        QCOMPARE(root->GetRatingItemRemark(),
                 QStringLiteral("构件关系在工序关系内体现，只用箭头依赖，不考虑时间"));
        QCOMPARE(namesOf(root), (QStringList{"A", "B"}));
        QRatingItemVirtual* b = itemsOf(root)[1];
        QCOMPARE(b->GetRatingItemValue(), QStringLiteral("B在C之前;B在D之前"));
        QCOMPARE(jsonOf(b).value("uniquevalue").toString(), QStringLiteral("B;C&B;D"));
        QCOMPARE(b->GetAttributeType(), 16);
    }

    void candidateChainsAreSearchedInItsNetwork() {
        CategoryPtr standard = builtStandard();
        LogicProbe candidate;
        candidate.setNetwork(newMatrix(4, {{0, 1}, {1, 2}}), 4);
        QCOMPARE(scoreCandidate(&candidate, standard.get()), 5.0);
        QRatingItemVirtual* root = rootOf(&candidate);
        QCOMPARE(root->GetRatingItemRemark(), QString());
        QCOMPARE(itemsOf(root)[0]->GetRatingItemScore(), 5.0);
        // B -> D is missing: no score, and the value lists the relation that was found
        QCOMPARE(itemsOf(root)[1]->GetRatingItemScore(), 0.0);
        QCOMPARE(itemsOf(root)[1]->GetRatingItemValue(), QStringLiteral("B在C之前"));
    }

    void replacedMatrixDetachesTheItemsBuiltOnIt() {
        CategoryPtr standard = builtStandard();
        LogicProbe candidate;
        candidate.setNetwork(newMatrix(4, {{0, 1}, {1, 2}, {1, 3}}), 4);
        QCOMPARE(scoreCandidate(&candidate, standard.get()), 10.0);
        // The first matrix is freed; the items built on it no longer see a network.
        candidate.setNetwork(newMatrix(4, {{0, 1}, {1, 2}, {1, 3}}), 4);
        QCOMPARE(candidate.ExecuteDBScore(standard.get()), 0.0);
        QCOMPARE(candidate.nodeCount(), 4);
        candidate.SetLogicList(QStringList{"A->B"});
        QStringList list;
        candidate.GetLogicList(list);
        QCOMPARE(list, QStringList{"A->B"});
        candidate.ClearLogicData();
        candidate.GetLogicList(list);
        QVERIFY(list.isEmpty());
        QCOMPARE(candidate.linkMatrix(), nullptr);
        QVERIFY(candidate.nodeMap().isEmpty());
    }

    void resettingTheOwnMatrixKeepsIt() {
        LogicProbe category;
        int** matrix = newMatrix(4, {{0, 1}});
        category.setNetwork(matrix, 4);
        category.setNetwork(matrix, 4, {{"A", 0}});
        QCOMPARE(category.linkMatrix(), matrix);
        QCOMPARE(category.nodeMap().size(), 1);
    }

    void borrowerScoresUntilTheOwnerFreesTheMatrix_data() {
        QTest::addColumn<bool>("ownerFirst");
        QTest::newRow("owner destroyed first") << true;
        QTest::newRow("borrower destroyed first") << false;
    }
    void borrowerScoresUntilTheOwnerFreesTheMatrix() {
        QFETCH(bool, ownerFirst);
        CategoryPtr standard = builtStandard();
        auto owner = std::make_unique<LogicProbe>();
        owner->setNetwork(newMatrix(4, {{0, 1}, {1, 2}, {1, 3}}), 4);
        auto borrower = std::make_unique<LogicProbe>();
        borrower->InitMarkCategory(owner.get());
        QCOMPARE(borrower->linkMatrix(), owner->linkMatrix());
        QCOMPARE(scoreCandidate(borrower.get(), standard.get()), 10.0);
        QCOMPARE(scoreCandidate(owner.get(), standard.get()), 10.0);
        if (ownerFirst) {
            owner.reset();
            QCOMPARE(borrower->linkMatrix(), nullptr);
            QCOMPARE(borrower->ExecuteDBScore(standard.get()), 0.0);
        } else {
            // the borrower's clear lets the matrix go without freeing it
            borrower->ClearLogicData();
            borrower.reset();
            QCOMPARE(owner->ExecuteDBScore(standard.get()), 10.0);
        }
    }

    void matrixOwnedElsewhereIsBorrowed() {
        LogicProbe owner, other;
        int** matrix = newMatrix(2, {{0, 1}});
        owner.setNetwork(matrix, 2);
        other.setNetwork(matrix, 2);
        QCOMPARE(other.linkMatrix(), matrix);
        owner.ClearLogicData();
        QCOMPARE(other.linkMatrix(), nullptr);
        QVERIFY(other.nodeMap().isEmpty());
    }

    void takingOverNormalisesNames() {
        LogicProbe source;
        source.setNetwork(newMatrix(3, {}), 3, {{"平米", 0}, {"平方米", 1}, {"A", 2}});
        source.SetLogicList(QStringList{"x"});
        LogicProbe withRoot, rootless(false);
        withRoot.InitMarkCategory(&source);
        rootless.InitMarkCategory(&source);
        QCOMPARE(withRoot.nodeMap().values(QStringLiteral("平方米")).size(), 2);
        QCOMPARE(withRoot.nodeMap().size(), 3);
        QCOMPARE(rootless.nodeMap(), source.nodeMap());
        QCOMPARE(rootless.nodeCount(), 3);
        QStringList list;
        withRoot.GetLogicList(list);
        QVERIFY(list.isEmpty());

        QCOMPARE(withRoot.linkMatrix(), source.linkMatrix());
        // nothing, or a category of another kind, leaves the network as it is
        CategoryPtr gantt = makeCategory(1, 5);
        withRoot.InitMarkCategory(nullptr);
        withRoot.InitMarkCategory(gantt.get());
        QCOMPARE(withRoot.nodeCount(), 3);
        QCOMPARE(withRoot.nodeMap().size(), 3);
    }

    void siteItemsCanHaveAParent() {
        CategoryPtr site = makeCategory(1, 3);
        auto* base = qobject_cast<QMarkCategoryBase*>(site.get());
        QRatingItem_Sked_Site owner;
        owner.UpdateUniqueValue(QStringList{"logic"});
        QRatingItemVirtual* child = MarkPointer::item(base->CreateRatingItem(&owner));
        QCOMPARE(child->parent(), &owner);
        QStringList logic;
        child->GetRatingItemLogic(logic);
        QCOMPARE(logic, QStringList{"logic"});
    }
};

QTEST_GUILESS_MAIN(TstMarkLogical)
#include "tst_marklogical.moc"
