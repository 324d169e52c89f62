#include "schedulecategories.h"

#include "curvelimits.h"
#include "hosttexts_p.h"
#include "scheduleanalysis.h"

#include "markpointer.h"
#include "qratingitemvirtual.h"

#include "markrecords.h"
#include "qmarkcategorybase.h"

#include <numeric>

namespace Host {

ScheduleSide::ScheduleSide(const ScheduleProject& project, int scene, bool candidate,
                           const NetworkLimits& limits)
    : m_data(project), m_scene(scene), m_candidate(candidate), m_limits(limits) {}

ScheduleSide::~ScheduleSide() {
    // Categories keep a pointer to the project data but never free it: delete them first.
    qDeleteAll(m_categories);
    freeLinkMatrix(m_links);
}

QSet<QString> ScheduleSide::chainNames() {
    QStringList names;
    QStringList displays;
    QStringList chains;
    m_data.GetLogicTexts(names, displays, chains);
    return Host::chainNames(chains);
}

void ScheduleSide::setChainNames(const QSet<QString>& names) {
    m_chainNames = names;
    m_allNames = false;
}

QString ScheduleSide::ungradable(int type) {
    auto settled = m_ungradable.constFind(type);
    if (settled != m_ungradable.constEnd())
        return settled.value();
    QString why;
    if (type == MarkCode::CategoryLogical && m_candidate) {
        why = prepareNetwork();
    } else if (type == MarkCode::CategoryNetPrinciple) {
        const ScheduleProject& project = m_data.project();
        m_findings = analyseDiagram(project.diagram, project.hasDiagram, m_limits);
        if (m_candidate && !m_findings.error.isEmpty()) // the standard's values do not depend on it
            why = QStringLiteral("not gradable: ") + m_findings.error;
    }
    m_ungradable.insert(type, why);
    return why;
}

// The judged network: the work items that the standard's chains can name, as a dense matrix.
QString ScheduleSide::prepareNetwork() {
    const QList<WorkItemData>& items = m_data.project().workItems;
    QVector<int> positions;
    if (m_allNames) {
        positions.resize(items.size());
        std::iota(positions.begin(), positions.end(), 0);
    } else {
        positions = networkItems(items, m_chainNames);
    }
    if (positions.size() > m_limits.judgedItems)
        return QStringLiteral("not gradable: %1 work items exceed the network limit %2")
            .arg(positions.size())
            .arg(m_limits.judgedItems);
    if (!linkMatrix(items, positions, m_links))
        return QStringLiteral("not gradable: no memory for the network of %1 work items")
            .arg(positions.size());
    return QString();
}

QMarkCategoryVirtual* ScheduleSide::category(int type) {
    auto found = m_categories.constFind(type);
    if (found != m_categories.constEnd())
        return found.value();
    if (!ungradable(type).isEmpty())
        return nullptr;
    QMarkCategoryVirtual* made =
        QMarkCategoryBase::CreateMarkCategoryByType(MarkCode::ProductSked, m_scene, type);
    m_categories.insert(type, made);
    if (made) {
        configure(type, made);
        made->UpdateCategory(m_data.handle(), m_candidate);
        if (type == MarkCode::CategoryNetPrinciple && m_candidate && !m_data.project().hasDiagram)
            markDiagramAbsent(made);
    }
    return made;
}

void ScheduleSide::release(int type) {
    delete m_categories.take(type);
}

void ScheduleSide::configure(int type, QMarkCategoryVirtual* category) {
    const ScheduleProject& project = m_data.project();
    switch (type) {
    case MarkCode::CategoryLogical:
        // Only the judged side's items look for chains in a network.
        if (m_candidate) {
            category->SetLogicMatrix(m_links.nodes, m_links.matrix, m_links.count); // the category frees it
            m_links = LinkMatrix();
        }
        break;
    case MarkCode::CategoryResCurve:
        addCurves(category);
        break;
    case MarkCode::CategoryGanttChart:
        category->SetMarkGanttTime(project.gantt.timeUnit);
        category->SetMarkGanttChart(project.gantt.order.join(QLatin1Char(';')));
        category->SetMarkPerScreen(project.gantt.rowsPerPage);
        break;
    case MarkCode::CategoryNetRationality: {
        category->SetMarkTotalTime(project.totalDays);
        const QMap<int, double> values =
            curveFluctuation(project.curves, project.totalDays,
                             [this](const QString& name) { return m_data.canonicalName(name); });
        // The standard's values are upper limits that an equal value must pass.
        category->SetMarkCurveVariance(m_candidate ? values : curveLimits(values, m_curveLimits));
        break;
    }
    case MarkCode::CategoryNetPrinciple: {
        NetworkFindings findings = m_findings;
        if (m_candidate && !project.hasDiagram) { // nothing drawn: every principle fails
            findings.broken = findings.surplusDummy = true;
            findings.brokenText = HostTexts::diagramNotDrawn;
        }
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

// A candidate that drew no arrow diagram fails every principle for that one reason, which each
// criterion states instead of its usual finding.
void ScheduleSide::markDiagramAbsent(QMarkCategoryVirtual* category) {
    QRatingItemVirtual* root = MarkPointer::item(category->GetRatingItemPtr());
    QList<void*> children;
    if (root)
        root->GetRatingItemList(children);
    for (void* pointer : children)
        if (QRatingItemVirtual* criterion = MarkPointer::item(pointer))
            criterion->SetRatingItemRemark(HostTexts::diagramNotDrawn);
}

void ScheduleSide::addCurves(QMarkCategoryVirtual* category) {
    for (const CurveData& curve : m_data.project().curves) {
        QMarkCategoryVirtual* holder = QMarkCategoryBase::CreateMarkCategoryByType(
            MarkCode::ProductSked, m_scene, MarkCode::CategoryResCurve);
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
