// Leaf rules of the schedule rating item by attribute type, and the logic-chain search.
#include "skeditems.h"

#include <QRandomGenerator>
#include <QScopedPointer>
#include <QtTest>

#include <vector>

namespace {

const double kStandardScore = 4.0;

// An adjacency matrix the items borrow, as the host hands it over. Each row is its own allocation, so
// that the sanitizer build catches a read past a row or past the last row.
class Network {
public:
    explicit Network(int count) : m_cells(size_t(count), std::vector<int>(size_t(count), 0)), m_count(count) {
        for (std::vector<int>& row : m_cells)
            m_rows.push_back(row.data());
    }
    void link(int from, int to) { m_cells[size_t(from)][size_t(to)] = 1; }
    bool linked(int from, int to) const { return m_cells[size_t(from)][size_t(to)] == 1; }
    int** matrix() { return m_rows.data(); }
    int count() const { return m_count; }

private:
    std::vector<std::vector<int>> m_cells;
    std::vector<int*> m_rows;
    int m_count;
};

// The plain depth-first search the memoised one must agree with.
bool plainChainExists(const QStringList& chain, const QMultiMap<QString, int>& nodes, const Network& network,
                      int node, int depth) {
    if (depth >= chain.size())
        return true;
    for (int next : nodes.values(chain.at(depth))) {
        if (network.linked(node, next) && plainChainExists(chain, nodes, network, next, depth + 1))
            return true;
    }
    return false;
}

} // namespace

class TestRatingItemSkedRules : public QObject {
    Q_OBJECT
private slots:
    void leafRule_data();
    void leafRule();
    void lineWidthFollowsTheLinkedItem();
    void logicChains_data();
    void logicChains();
    void logicChainsAgreeWithPlainSearch();
};

void TestRatingItemSkedRules::leafRule_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("standardKey");
    QTest::addColumn<bool>("identical");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("scores");
    QTest::addColumn<QString>("remark"); // "prior" where the rule leaves the remark alone

    const QString prior = QStringLiteral("prior");
    const QString none;
    auto row = [](const char* tag, int type, const QString& standardKey, const QString& key, bool scores,
                  const QString& remark) {
        QTest::newRow(tag) << type << standardKey << false << QStringLiteral("挖土") << key << scores
                           << remark;
    };
    row("count equal", 2, "1", "1", true, none);
    row("count 2", 2, "1", "2", false, QStringLiteral("存在重复工作项，不得分"));
    row("count 0", 2, "1", "0", false, prior);
    row("count text", 2, "1", "abc", false, prior);
    row("weekly 14", 5, "7", "14", true, none);
    row("weekly 10", 5, "7", "10", false, prior);
    row("weekly 0", 5, "7", "0", false, prior);
    row("weekly -7", 5, "7", "-7", false, prior);
    QTest::newRow("fixed equal") << 5 << "12" << true << "挖土"
                                 << "12" << true << none;
    QTest::newRow("fixed 14") << 5 << "12" << true << "挖土"
                              << "14" << false << QStringLiteral("\"挖土\"为固定时长12天");
    QTest::newRow("fixed, name with %2") << 5 << "12" << true << "%2"
                                         << "14" << false << QStringLiteral("\"为固定时长\"为固定时长12天");
    row("colour equal", 10, "255,0,0", "255,0,0", true, none);
    row("colour case", 10, "FF0000", "ff0000", false, QStringLiteral("不存在颜色"));
    row("line width 0", 11, "", "0", false, QStringLiteral("线宽为非大于0的整数"));
    row("line width text", 11, "", "wide", false, QStringLiteral("线宽为非大于0的整数"));
    row("line width unlinked", 11, "", "3", false, QStringLiteral("与人力资源强度值不一致，不得分"));
    row("intensity 1", 12, "", "1", true, none);
    row("intensity 0", 12, "", "0", false, prior);
    row("rows enough", 19, " >=20 ", "20", true, none);
    row("rows too few", 19, ">=20", "19", false, QStringLiteral("横道图分页显示行数设置不够，不得分"));
    row("rows text", 19, ">=0", "many", true, none);
    row("order equal, trimmed", 20, "a;b;c", " a;b ;c", true, none);
    row("order differs", 20, "a;b;c", "a;c;b", false, QStringLiteral("从工序c始顺序不一致，不得分"));
    row("order empty part", 20, "a;b;c", "a;;c", false, QStringLiteral("从工序始顺序不一致，不得分"));
    row("order count", 20, "a;b;c", "a;b", false, QStringLiteral("工序数量不一致，不得分"));
    row("total 90 of 100", 28, "100", "90", true, none);
    row("total 103 of 100", 28, "100", "103", false, QStringLiteral("工作延期3天"));
    row("total 100.5 of 100", 28, "100", "100.5", false, QStringLiteral("工作延期0.5天"));
    row("total 'g' format", 28, "0", "1234567", false, QStringLiteral("工作延期1.23457e+06天"));
    row("total 0 of 100", 28, "100", "0", false, QStringLiteral("总工期为0"));
    row("total 0 of 0", 28, "0", "0", true, none);
    row("variance below", 29, "3", "2", true, none);
    row("variance equal", 30, "3", "3", false, QStringLiteral("超出标准方差上限，不得分"));
    row("variance above", 31, "3", "3.5", false, QStringLiteral("超出标准方差上限，不得分"));
    row("variance negative", 32, "3", "-1", false, QStringLiteral("不存在资源数据，不得分"));
    row("variance text", 32, "3", "n/a", true, none);
    row("plain equal", 7, "钢筋", "钢筋", true, none);
    row("plain differs", 7, "钢筋", "钢材", false, prior);
    row("untyped differs", 0, "1", "01", false, prior);
}

void TestRatingItemSkedRules::leafRule() {
    QFETCH(int, type);
    QFETCH(QString, standardKey);
    QFETCH(bool, identical);
    QFETCH(QString, name);
    QFETCH(QString, key);
    QFETCH(bool, scores);
    QFETCH(QString, remark);
    QScopedPointer<QRatingItem_Sked> standard(skedItem(name, type, standardKey, kStandardScore));
    standard->SetValueIdentical(identical);
    standard->SetRatingItemUnit(QStringLiteral("天"));
    QScopedPointer<QRatingItem_Sked> item(skedItem(name, type, key));
    item->SetRatingItemRemark(QStringLiteral("prior"));

    QCOMPARE(item->ExecuteDBScore(MarkPointer::fromItem(standard.data()), 1), scores ? kStandardScore : 0.0);
    QCOMPARE(item->GetRatingItemScore(), scores ? kStandardScore : 0.0);
    QCOMPARE(item->GetRatingItemRemark(), remark);
}

void TestRatingItemSkedRules::lineWidthFollowsTheLinkedItem() {
    QScopedPointer<QRatingItem_Sked> standard(skedItem(QStringLiteral("工序线宽"), 11, QString(), 2.0));
    auto* intensity = skedItem(QStringLiteral("人力资源（强度）"), 12, QStringLiteral("3"));
    QRatingItem_Sked width(intensity);
    width.SetAttributeType(11);
    width.UpdateUniqueValue(QStringLiteral("3"));
    QCOMPARE(width.ExecuteDBScore(MarkPointer::fromItem(standard.data()), 1), 2.0);
    intensity->UpdateUniqueValue(QStringLiteral("4"));
    QCOMPARE(width.ExecuteDBScore(MarkPointer::fromItem(standard.data()), 1), 0.0);
    QCOMPARE(width.GetRatingItemRemark(), QStringLiteral("与人力资源强度值不一致，不得分"));
    intensity->UpdateUniqueValue(QStringLiteral("3"));
    delete intensity; // a deleted linked item counts as none
    QCOMPARE(width.ExecuteDBScore(MarkPointer::fromItem(standard.data()), 1), 0.0);
}

void TestRatingItemSkedRules::logicChains_data() {
    QTest::addColumn<QString>("entries");
    QTest::addColumn<QString>("texts");
    QTest::addColumn<bool>("withMatrix");
    QTest::addColumn<bool>("scores");
    QTest::addColumn<QString>("value");
    // Network: A(0) -> B(1) -> C(2), B(1) -> A(0), a second A(4) -> D(3); X is node 9 and Y node -1,
    // outside the node count of 5.
    QTest::newRow("all found") << "A;B;C&A;B"
                               << "abc;ab" << true << true << "abc;ab";
    QTest::newRow("two of three") << "A;B;C&A;C&B;C"
                                  << "abc;ac;bc" << true << false << "abc;bc";
    QTest::newRow("none") << "C;A&D;A"
                          << "ca;da" << true << false << "";
    QTest::newRow("second A continues") << "A;D"
                                        << "ad" << true << true << "ad";
    QTest::newRow("round a cycle") << "A;B;A;B;C"
                                   << "loop" << true << true << "loop";
    QTest::newRow("single name") << "D"
                                 << "d" << true << true << "d";
    QTest::newRow("unknown name") << "A;Z"
                                  << "az" << true << false << "";
    QTest::newRow("index past count") << "A;X&X;A&Y;A&A;Y"
                                      << "1;2;3;4" << true << false << "";
    QTest::newRow("index past count, last") << "X"
                                            << "x" << true << true << "x";
    QTest::newRow("fewer texts") << "A;B&B;C"
                                 << "ab" << true << true << "ab;";
    QTest::newRow("empty entry") << "A;B&"
                                 << "ab;e" << true << false << "ab";
    QTest::newRow("no matrix") << "C;A;D&Z"
                               << "cad;z" << false << false << "cad";
}

void TestRatingItemSkedRules::logicChains() {
    QFETCH(QString, entries);
    QFETCH(QString, texts);
    QFETCH(bool, withMatrix);
    QFETCH(bool, scores);
    QFETCH(QString, value);
    Network network(5);
    network.link(0, 1);
    network.link(1, 2);
    network.link(1, 0);
    network.link(4, 3);
    QMultiMap<QString, int> nodes;
    const QStringList names{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C"),
                            QStringLiteral("D"), QStringLiteral("A")};
    for (int i = 0; i < names.size(); ++i)
        nodes.insert(names.at(i), i);
    nodes.insert(QStringLiteral("X"), 9);
    nodes.insert(QStringLiteral("Y"), -1);
    int count = network.count();

    QScopedPointer<QRatingItem_Sked> standard(skedItem(QStringLiteral("逻辑"), 16, entries, kStandardScore));
    standard->SetRatingItemValue(texts, entries, false);
    QScopedPointer<QRatingItem_Sked> item(skedItem(QStringLiteral("逻辑"), 16));
    item->SetRatingItemValue(QStringLiteral("stale"), false);
    item->SetRatingItemRemark(QStringLiteral("prior"));
    item->SetRatingItemValue(nodes, withMatrix ? network.matrix() : nullptr, count);

    QCOMPARE(item->ExecuteDBScore(MarkPointer::fromItem(standard.data()), 1), scores ? kStandardScore : 0.0);
    QCOMPARE(item->GetRatingItemValue(), value);
    QCOMPARE(item->GetRatingItemRemark(), scores ? QString() : QStringLiteral("prior"));
}

void TestRatingItemSkedRules::logicChainsAgreeWithPlainSearch() {
    // Small random networks with few names, so that names repeat and chains branch.
    QRandomGenerator random(20240611);
    const QStringList alphabet{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
    int found = 0;
    const int rounds = 2000;
    for (int round = 0; round < rounds; ++round) {
        int count = 1 + int(random.bounded(12));
        Network network(count);
        QMultiMap<QString, int> nodes;
        for (int p = 0; p < count; ++p) {
            nodes.insert(alphabet.at(int(random.bounded(alphabet.size()))), p);
            for (int q = 0; q < count; ++q) {
                if (random.bounded(3) == 0)
                    network.link(p, q);
            }
        }
        QStringList chain;
        const int length = 1 + int(random.bounded(9));
        for (int i = 0; i < length; ++i)
            chain.append(alphabet.at(int(random.bounded(alphabet.size()))));
        bool expected = false;
        for (int node : nodes.values(chain.first()))
            expected = expected || plainChainExists(chain, nodes, network, node, 1);

        QScopedPointer<QRatingItem_Sked> standard(skedItem(QString(), 16, chain.join(QLatin1Char(';')), 1.0));
        standard->SetRatingItemValue(QStringLiteral("t"), chain.join(QLatin1Char(';')), false);
        QScopedPointer<QRatingItem_Sked> item(skedItem(QString(), 16));
        item->SetRatingItemValue(nodes, network.matrix(), count);
        const bool exists = item->ExecuteDBScore(MarkPointer::fromItem(standard.data()), 1) == 1.0;
        QVERIFY2(exists == expected, qPrintable(chain.join(QLatin1Char(';'))));
        found += exists ? 1 : 0;
    }
    // Both outcomes occur, so the comparison means something.
    QVERIFY(found > rounds / 10 && found < rounds * 9 / 10);
}

QTEST_GUILESS_MAIN(TestRatingItemSkedRules)
#include "tst_ratingitem_sked_rules.moc"
