// Logic-chain search of the schedule rating item (attribute type 16) on an adversarial network:
// layers of nodes that all share one work-item name, every node linked to every node of the next
// layer, and a chain one name longer than the network is deep. No chain exists, so the search has to
// rule out every path; a plain depth-first search walks width^layers paths.
#include "markpointer.h"
#include "qratingitem_sked.h"

#include <benchmark/benchmark.h>

#include <QMultiMap>
#include <QStringList>

#include <vector>

namespace {

class LayeredNetwork {
public:
    LayeredNetwork(int width, int layers)
        : m_count(width * layers), m_cells(size_t(m_count) * size_t(m_count), 0), m_rows(size_t(m_count)) {
        for (int p = 0; p < m_count; ++p) {
            m_rows[size_t(p)] = m_cells.data() + size_t(p) * size_t(m_count);
            m_nodes.insert(QStringLiteral("工序"), p);
        }
        for (int layer = 0; layer + 1 < layers; ++layer)
            for (int i = 0; i < width; ++i)
                for (int j = 0; j < width; ++j)
                    m_rows[size_t(layer * width + i)][(layer + 1) * width + j] = 1;
    }
    int count() const { return m_count; }
    int** matrix() { return m_rows.data(); }
    QMultiMap<QString, int>& nodes() { return m_nodes; }
    bool linked(int p, int q) const { return m_rows[size_t(p)][q] == 1; }

private:
    int m_count;
    std::vector<int> m_cells;
    std::vector<int*> m_rows;
    QMultiMap<QString, int> m_nodes;
};

QString chainOfLength(int length) {
    QStringList names;
    for (int i = 0; i < length; ++i)
        names.append(QStringLiteral("工序"));
    return names.join(QLatin1Char(';'));
}

// The searched pair: a standard logic item holding the chain and a candidate's item on the network.
struct LogicPair {
    QRatingItem_Sked standard;
    QRatingItem_Sked item;

    LogicPair(LayeredNetwork& network, int chainLength) {
        standard.SetAttributeType(16);
        standard.SetRatingItemScoreStd(1.0);
        standard.SetRatingItemValue(QStringLiteral("chain"), chainOfLength(chainLength), false);
        item.SetAttributeType(16);
        int count = network.count();
        item.SetRatingItemValue(network.nodes(), network.matrix(), count);
    }
    double score() { return item.ExecuteDBScore(MarkPointer::fromItem(&standard), 1); }
};

// Searches a chain one longer than a network of range(0) x range(1) nodes; the complexity is fitted
// against range(sizeArgument).
void searchLayeredNetwork(benchmark::State& state, int sizeArgument) {
    const int width = int(state.range(0));
    const int layers = int(state.range(1));
    LayeredNetwork network(width, layers);
    LogicPair pair(network, layers + 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(pair.score());
    if (pair.score() != 0.0)
        state.SkipWithError("a chain longer than the network was found");
    state.counters["nodes"] = network.count();
    state.SetComplexityN(state.range(sizeArgument));
}

void BM_LogicChainByWidth(benchmark::State& state) {
    searchLayeredNetwork(state, 0);
}
BENCHMARK(BM_LogicChainByWidth)
    ->ArgsProduct({{4, 8, 16, 32, 64, 128}, {8}})
    ->Unit(benchmark::kMicrosecond)
    ->Complexity();

void BM_LogicChainByLayers(benchmark::State& state) {
    searchLayeredNetwork(state, 1);
}
BENCHMARK(BM_LogicChainByLayers)
    ->ArgsProduct({{8}, {4, 8, 16, 32, 64}})
    ->Unit(benchmark::kMicrosecond)
    ->Complexity();

// For comparison: the plain depth-first search without memory, on the same kind of network.
bool plainContinues(const LayeredNetwork& network, const QVector<int>& candidates, int node, int depth,
                    int length) {
    if (depth >= length)
        return true;
    for (int next : candidates) {
        if (network.linked(node, next) && plainContinues(network, candidates, next, depth + 1, length))
            return true;
    }
    return false;
}

void BM_PlainSearchByWidth(benchmark::State& state) {
    const int width = int(state.range(0));
    const int layers = int(state.range(1));
    LayeredNetwork network(width, layers);
    const QVector<int> candidates = network.nodes().values(QStringLiteral("工序")).toVector();
    for (auto _ : state) {
        bool found = false;
        for (int node : candidates)
            found = found || plainContinues(network, candidates, node, 1, layers + 1);
        benchmark::DoNotOptimize(found);
    }
    state.counters["nodes"] = network.count();
}
BENCHMARK(BM_PlainSearchByWidth)->ArgsProduct({{2, 3, 4, 5, 6}, {8}})->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
