#include "schedulecategories.h"

#include "scheduleanalysis.h"

#include "markrecords.h"
#include "qmarkcategorybase.h"

namespace Host {

namespace {
const int resourceCurveType = 4;
}

ScheduleSide::ScheduleSide(const ScheduleProject& project, int scene, bool candidate)
    : m_data(project), m_scene(scene), m_candidate(candidate) {}

ScheduleSide::~ScheduleSide() {
    // Categories keep a pointer to the project data but never free it: delete them first.
    qDeleteAll(m_categories);
}

QMarkCategoryVirtual* ScheduleSide::category(int type) {
    auto found = m_categories.constFind(type);
    if (found != m_categories.constEnd())
        return found.value();
    QMarkCategoryVirtual* made = QMarkCategoryBase::CreateMarkCategoryByType(ScheduleProduct, m_scene, type);
    m_categories.insert(type, made);
    if (made) {
        configure(type, made);
        made->UpdateCategory(m_data.handle(), m_candidate);
    }
    return made;
}

void ScheduleSide::configure(int type, QMarkCategoryVirtual* category) {
    const ScheduleProject& project = m_data.project();
    switch (type) {
    case 3:
        // Only the judged side's items look for chains in a network.
        if (m_candidate) {
            LinkMatrix links = linkMatrix(project.workItems);
            category->SetLogicMatrix(links.nodes, links.matrix, links.count); // the category frees it
        }
        break;
    case resourceCurveType:
        addCurves(category);
        break;
    case 5:
        category->SetMarkGanttTime(project.gantt.timeUnit);
        category->SetMarkGanttChart(project.gantt.order.join(QLatin1Char(';')));
        category->SetMarkPerScreen(project.gantt.rowsPerPage);
        break;
    case 6:
        category->SetMarkTotalTime(project.totalDays);
        category->SetMarkCurveVariance(
            curveFluctuation(project.curves, project.totalDays,
                             [this](const QString& name) { return m_data.canonicalName(name); }));
        break;
    case 7: {
        const NetworkFindings findings = analyseDiagram(project.diagram, project.hasDiagram);
        category->SetMarkBeginEndOnlyDot(findings.singleStartEnd);
        if (!findings.startEndText.isEmpty())
            category->SetMarkBeginEndOnlyDot(findings.startEndText);
        category->SetMarkNetLineBreak(findings.broken);
        category->SetMarkNetLineBreak(findings.brokenText);
        category->SetMarkSurplusVirJob(findings.surplusDummy, findings.surplusNodes);
        break;
    }
    default:
        break;
    }
}

void ScheduleSide::addCurves(QMarkCategoryVirtual* category) {
    for (const CurveData& curve : m_data.project().curves) {
        QMarkCategoryVirtual* holder =
            QMarkCategoryBase::CreateMarkCategoryByType(ScheduleProduct, m_scene, resourceCurveType);
        if (!holder) {
            m_notes << QStringLiteral("resource curve \"%1\" not handed over: no curve holder available")
                           .arg(curve.name);
            continue;
        }
        holder->SetMarkCurveName(curve.name);
        holder->SetMarkCurveCustomType(curve.drawnByCandidate);
        for (const CurvePoint& point : curve.points)
            holder->AddResCurveRecord(new ResCurveRecord{point.minute, point.amount}); // the holder owns it
        category->AddMarkCategory(holder); // the category owns the holder
    }
    if (!m_data.resourcesAvailable())
        m_notes << QStringLiteral("resources not handed over: the resource factory gave no object");
}

} // namespace Host
