// Scoring a candidate's schedule against the standard's as the project grows: the Site integrity,
// attribute and Gantt-chart categories are built from n work items on both sides and scored. The
// whole road should grow about linearly with n (Google Benchmark fits the complexity).
#include "markrule.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace {

class BenchWorkItem : public QWorkItemVirtual {
public:
    explicit BenchWorkItem(const QString& name, int days) : m_name(name), m_days(QString::number(days)) {}
    QString GetWorkItemName() override { return m_name; }
    QString GetUnit() override { return QStringLiteral("平米"); }
    double GetPlannedQuantity() override { return 120.0; }
    void GetDuration(QString& out) override { out = m_days; }
    QString GetColor() override { return QStringLiteral("黄色"); }
    QString GetLineWidth() override { return QStringLiteral("2"); }
    QString GetLabourIntensity(QString& crew) override {
        crew = QStringLiteral("钢筋班组");
        return QStringLiteral("2");
    }

private:
    QString m_name;
    QString m_days;
};

// n work items with distinct names; the candidate drops every tenth and changes every seventh
// duration, so that matching meets missing, surplus and failing criteria.
class BenchProject : public QProjectDataVirtual {
public:
    BenchProject(int n, bool candidate) {
        for (int i = 0; i < n; ++i) {
            if (candidate && i % 10 == 9)
                continue;
            const QString name = candidate && i % 10 == 8 ? QStringLiteral("多余工序%1").arg(i)
                                                          : QStringLiteral("工序%1").arg(i);
            m_items.emplace_back(std::make_unique<BenchWorkItem>(name, candidate && i % 7 == 0 ? 5 : 14));
            m_names.append(name);
        }
    }
    void GetWorkItemList(QList<void*>& items) override {
        for (const auto& item : m_items)
            items.append(static_cast<QObject*>(item.get()));
    }
    void GetWorkItemNameList(QStringList& names) override { names = m_names; }
    QString order() const { return m_names.join(QLatin1Char(';')); }
    void GetWorkItemsByName(QMultiMap<QString, void*>& items) override {
        for (const auto& item : m_items)
            items.insert(item->GetWorkItemName(), static_cast<QObject*>(item.get()));
    }

private:
    std::vector<std::unique_ptr<BenchWorkItem>> m_items;
    QStringList m_names;
};

void BM_SiteScheduleScoring(benchmark::State& state) {
    const int n = int(state.range(0));
    BenchProject standardProject(n, false);
    BenchProject candidateProject(n, true);
    for (auto _ : state) {
        double total = 0.0;
        for (int type : {1, 2, 5}) {
            std::unique_ptr<QMarkCategoryVirtual> standard(
                QMarkCategoryBase::CreateMarkCategoryByType(5, 1, type));
            std::unique_ptr<QMarkCategoryVirtual> candidate(
                QMarkCategoryBase::CreateMarkCategoryByType(5, 1, type));
            standard->UpdateCategory(static_cast<QObject*>(&standardProject), false);
            candidate->SetMarkGanttTime(QStringLiteral("工程周"));
            candidate->SetMarkGanttChart(candidateProject.order());
            candidate->UpdateCategory(static_cast<QObject*>(&candidateProject), true);
            standard->AssignScore(100.0);
            total += candidate->ExecuteDBScore(standard.get());
        }
        benchmark::DoNotOptimize(total);
    }
    state.SetComplexityN(n);
}
BENCHMARK(BM_SiteScheduleScoring)
    ->RangeMultiplier(4)
    ->Range(64, 16384)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

} // namespace

BENCHMARK_MAIN();
