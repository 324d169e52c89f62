// The Site resource-curve checks of a judged project with many planned resources and drawn curves:
// every planned name looks for its curve among all the drawn ones, so a scan of the drawn list per
// name would grow with the square of the project.
#include "markrule.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace {

// A project that plans range(0) resources of distinct names and lists them with the four machines.
class ManyResources : public QProjectDataVirtual {
public:
    explicit ManyResources(int count) {
        for (int i = 0; i < count; ++i)
            plan(QStringLiteral("资源%1").arg(i));
        for (const QString& machine : machines())
            plan(machine);
    }
    static QStringList machines() {
        return {QStringLiteral("发电机组"), QStringLiteral("供水泵机"), QStringLiteral("钢筋加工机"),
                QStringLiteral("混凝土搅拌机")};
    }
    void GetResourceList(QList<QResourceVirtual*>& list) override { list = m_list; }
    int GetTotalDays() override { return 10; }
    const QList<QResourceVirtual*>& resources() const { return m_list; }

private:
    void plan(const QString& name) {
        m_owned.emplace_back(QResourceBase::CreateResource(5, 1));
        m_owned.back()->SetResourceName(name);
        m_owned.back()->SetResPlanTotal(20);
        m_list.append(m_owned.back().get());
    }
    std::vector<std::unique_ptr<QResourceVirtual>> m_owned;
    QList<QResourceVirtual*> m_list;
};

// A judged category holding one curve per planned resource, drawn in the reverse order.
std::unique_ptr<QMarkCategoryVirtual> judgedCategory(const ManyResources& project) {
    std::unique_ptr<QMarkCategoryVirtual> category(QMarkCategoryBase::CreateMarkCategoryByType(5, 1, 4));
    const QList<QResourceVirtual*>& resources = project.resources();
    for (auto it = resources.crbegin(); it != resources.crend(); ++it) {
        QMarkCategoryVirtual* curve = QMarkCategoryBase::CreateMarkCategoryByType(5, 1, 4);
        curve->SetMarkCurveName((*it)->GetResourceName());
        curve->SetMarkCurveCustomType(true);
        curve->AddResCurveRecord(new ResCurveRecord{20160, 5.0});
        category->AddMarkCategory(curve);
    }
    return category;
}

void BM_SiteCurveChecks(benchmark::State& state) {
    ManyResources project(int(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        std::unique_ptr<QMarkCategoryVirtual> category = judgedCategory(project);
        state.ResumeTiming();
        category->UpdateCategory(static_cast<QObject*>(&project), true);
        state.PauseTiming();
        category.reset();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_SiteCurveChecks)
    ->RangeMultiplier(4)
    ->Range(64, 16384)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity();

} // namespace

BENCHMARK_MAIN();
