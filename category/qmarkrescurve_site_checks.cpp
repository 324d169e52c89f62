// Criteria of the Site resource-curve category: the charts the standard expects and the checks of
// the judged project's curves.
#include "qmarkrescurve.h"
#include "markrulecodes.h"

#include "qresourcebase.h"
#include "rescurvemath_p.h"
#include "rescurvetexts_p.h"
#include "skedcategory_p.h"

#include <QHash>

#include <memory>

using namespace MarkCode;

namespace {

constexpr int minutesPerDay = 1440;
// Planned material one machine handles: raw rebar per rebar processor, raw concrete material per mixer.
constexpr double rebarPerProcessor = 5.0;
constexpr double concretePerMixer = 10.0;
// The resource whose name normalisation turns a drawn curve's name into a canonical resource name.

void addToTotal(int& total, int amount) {
    total = ResCurveMath::clampToInt(double(total) + double(amount));
}

// The partners of a planned name followed by the name itself, all taken out of the planned set. Sand
// and cement always go together, whether or not the project plans both.
QStringList takeGroup(const QString& name, QSet<QString>& planned) {
    using namespace ResCurveText;
    planned.remove(name);
    QStringList group;
    const auto takeIfPlanned = [&](const QString& partner) {
        if (planned.remove(partner))
            group.append(partner);
    };
    const auto takeAlways = [&](const QString& partner) {
        planned.remove(partner);
        group.append(partner);
    };
    if (name == rawRebar()) {
        takeIfPlanned(finishedRebar());
    } else if (name == finishedRebar()) {
        takeIfPlanned(rawRebar());
    } else if (name == readyConcrete()) {
        takeIfPlanned(sandGravel());
        takeIfPlanned(cement());
    } else if (name == sandGravel()) {
        takeIfPlanned(readyConcrete());
        takeAlways(cement());
    } else if (name == cement()) {
        takeIfPlanned(readyConcrete());
        takeAlways(sandGravel());
    }
    group.append(name);
    return group;
}

QString missingCurves(const QStringList& names) {
    return ResCurveText::missingCurveFormat().arg(names.join(ResCurveText::missingSeparator()));
}

// The finding for a group whose curves were all drawn: sand and cement are only drawn together.
QString groupFinding(const QStringList& group) {
    const bool sand = group.contains(ResCurveText::sandGravel());
    const bool cement = group.contains(ResCurveText::cement());
    if (sand && !cement)
        return missingCurves({ResCurveText::cement()});
    if (cement && !sand)
        return missingCurves({ResCurveText::sandGravel()});
    return QString();
}

} // namespace

struct QMarkResCurve_Sked_Site::DrawnCurves {
    // How many curves of each name no check has claimed yet: a curve answers one check at most.
    QHash<QString, int> unclaimed;
    // The first curve of each name that the student drew (custom).
    QHash<QString, QMarkCategoryVirtual*> firstCustom;

    bool claim(const QString& name) {
        const auto found = unclaimed.find(name);
        if (found == unclaimed.end() || *found == 0)
            return false;
        --*found;
        return true;
    }
};

QMarkResCurve_Sked_Site::DrawnCurves QMarkResCurve_Sked_Site::drawnCurves() const {
    DrawnCurves curves;
    const std::unique_ptr<QResourceVirtual> namer(QResourceBase::CreateResource(ProductSked, ScenePlain));
    for (QMarkCategoryVirtual* curve : subCategories()) {
        if (!curve)
            continue;
        QString name = curve->GetMarkCurveName();
        if (namer)
            name = namer->TransformTextToName(name);
        ++curves.unclaimed[name];
        // Without canonical names the machine checks find no curve.
        if (namer && curve->IsCustomResCurve() && !curves.firstCustom.contains(name))
            curves.firstCustom.insert(name, curve);
    }
    return curves;
}

bool QMarkResCurve_Sked_Site::addCurveItem(const QString& chart, const QString& value,
                                           const QString& remark) {
    return SkedCategory::addFixedNode(CreateRatingItem(nullptr), rootItem(), chart,
                                      SkedCategory::textValue(value), SkedCurve, remark, true);
}

void QMarkResCurve_Sked_Site::BuildCurveItemsStd(QList<QResourceVirtual*>& resources) {
    if (!rootItem())
        return;
    QSet<QString> charts;
    for (QResourceVirtual* resource : qAsConst(resources)) {
        if (!resource)
            continue;
        const QString chart = resource->GetGeneralName();
        if (charts.contains(chart))
            continue;
        const QString criterion = ResCurveText::machineCriterion(chart);
        const QString value = criterion.isEmpty() ? ResCurveText::exists() : ResCurveText::satisfied();
        if (!addCurveItem(chart, value, criterion))
            return;
        charts.insert(chart);
    }
}

void QMarkResCurve_Sked_Site::BuildCurveItems(QList<QResourceVirtual*>& resources) {
    m_rawRebarTotal = 0;
    m_concreteRawTotal = 0;
    // The planned names, walked in the order the resources first list them: a QSet's own order
    // changes from run to run, and the items and findings must not.
    QSet<QString> planned;
    QStringList order;
    for (QResourceVirtual* resource : qAsConst(resources)) {
        if (!resource)
            continue;
        const QString name = resource->GetResourceName();
        if (name == ResCurveText::rawRebar())
            addToTotal(m_rawRebarTotal, resource->GetResPlanTotal());
        else if (name == ResCurveText::cement() || name == ResCurveText::sandGravel())
            addToTotal(m_concreteRawTotal, resource->GetResPlanTotal());
        if (!planned.contains(name)) {
            planned.insert(name);
            order.append(name);
        }
    }
    if (!rootItem())
        return;
    DrawnCurves curves = drawnCurves();
    for (const ResCurveText::MachineChart& machine : ResCurveText::machineCharts())
        planned.remove(machine.machine);
    buildPlannedItems(order, planned, curves);
    buildMachineItems(curves);
}

void QMarkResCurve_Sked_Site::buildPlannedItems(const QStringList& order, QSet<QString>& planned,
                                                DrawnCurves& curves) {
    for (const QString& name : order) {
        if (!planned.contains(name)) // a machine, or taken as a partner
            continue;
        const QStringList group = takeGroup(name, planned);
        QStringList missing;
        for (const QString& member : group) {
            if (!curves.claim(member))
                missing.append(member);
        }
        const QString remark = missing.isEmpty() ? groupFinding(group) : missingCurves(missing);
        const QString value = remark.isEmpty() ? ResCurveText::exists() : ResCurveText::absent();
        if (!addCurveItem(ResCurveText::chartOf(name), value, remark))
            return;
    }
}

void QMarkResCurve_Sked_Site::buildMachineItems(DrawnCurves& curves) {
    for (const ResCurveText::MachineChart& machine : ResCurveText::machineCharts()) {
        const QString& name = machine.machine;
        QString remark;
        QString value;
        if (curves.claim(name)) {
            value =
                machineCheck(name, curves, remark) ? ResCurveText::satisfied() : ResCurveText::unsatisfied();
        } else if ((name == ResCurveText::rebarProcessor() && m_rawRebarTotal == 0) ||
                   (name == ResCurveText::concreteMixer() && m_concreteRawTotal == 0)) {
            value = ResCurveText::satisfied(); // no material, so no machine is needed
        } else {
            remark = missingCurves({name});
            value = ResCurveText::absent();
        }
        if (!addCurveItem(machine.chart, value, remark))
            return;
    }
}

bool QMarkResCurve_Sked_Site::machineCheck(const QString& machine, const DrawnCurves& curves,
                                           QString& remark) const {
    QMarkCategoryVirtual* curve = curves.firstCustom.value(machine);
    if (!curve)
        return false;
    if (machine == ResCurveText::generator() || machine == ResCurveText::waterPump()) {
        // Runs from the project start to its end.
        int start = 0;
        int end = 0;
        const int busy = curve->GetResCurveTotalTime(start, end);
        if (start > 0) {
            remark = ResCurveText::notFromStartFormat().arg(machine);
            return false;
        }
        const qint64 projectMinutes = qint64(m_totalDays) * minutesPerDay;
        if (end >= projectMinutes && busy >= projectMinutes)
            return true;
        remark = ResCurveText::shorterThanProjectFormat().arg(machine);
        return false;
    }
    // Enough machine-weeks for the planned material.
    int required = 0;
    if (machine == ResCurveText::rebarProcessor())
        required = ResCurveMath::roundHalfUp(m_rawRebarTotal / rebarPerProcessor);
    else if (machine == ResCurveText::concreteMixer())
        required = ResCurveMath::roundHalfUp(m_concreteRawTotal / concretePerMixer);
    else
        return false;
    if (required > curve->GetJxResUsedCount()) {
        remark = ResCurveText::machineShortage();
        return false;
    }
    return true;
}
