#include "qmarkganttchart.h"
#include "markrulecodes.h"

#include "categorytexts_p.h"
#include "qratingitem_sked_scene.h"
#include "skedcategory_p.h"

using namespace MarkCode;

SKED_CATEGORY_CLASS(QMarkGanttChart, QMarkCategoryBase)
SKED_CATEGORY_CLASS_TYPED(QMarkGanttChart_Sked, QMarkGanttChart, CategoryGanttChart)
SKED_CATEGORY_ITEMS(QMarkGanttChart_Sked, QRatingItem_Sked)
SKED_CATEGORY_CLASS(QMarkGanttChart_Sked_Twin, QMarkGanttChart_Sked)
SKED_CATEGORY_CLASS(QMarkGanttChart_Sked_Site, QMarkGanttChart_Sked)
SKED_CATEGORY_ITEMS(QMarkGanttChart_Sked_Site, QRatingItem_Sked_Site)

void QMarkGanttChart_Sked::installRoot(QRatingItemVirtual* root) {
    SkedCategory::nameRoot(root, CategoryText::ganttRoot(), SkedGanttRoot);
    setRootItem(root);
}

void QMarkGanttChart_Sked::SetMarkGanttTime(const QString& text) {
    m_ganttTime = text;
}
void QMarkGanttChart_Sked::SetMarkGanttChart(const QString& text) {
    m_ganttChart = text;
}
void QMarkGanttChart_Sked::SetMarkPerScreen(const int& rows) {
    m_rowsPerPage = rows;
}

void QMarkGanttChart_Sked::ClearMarkCategory() {
    m_ganttTime.clear();
    m_rowsPerPage = 0;
    m_ganttChart.clear();
}

void QMarkGanttChart_Sked::InitMarkCategory(QMarkCategoryVirtual* other) {
    const QMarkGanttChart_Sked* source = qobject_cast<QMarkGanttChart_Sked*>(other);
    if (!source)
        return;
    m_ganttTime = source->m_ganttTime;
    m_rowsPerPage = source->m_rowsPerPage;
    m_ganttChart = source->m_ganttChart;
}

void QMarkGanttChart_Sked::UpdateCategory(void* data, const bool& flag) {
    QProjectDataVirtual* project = MarkPointer::projectData(data);
    if (!SkedCategory::beginBuild(m_created, m_projectData, data, project && rootItem()))
        return;
    QString sequence = m_ganttChart;
    QString rows = QString::number(m_rowsPerPage);
    if (!flag) {
        m_ganttTime = CategoryText::ganttProjectWeek();
        QStringList names;
        project->GetWorkItemNameList(names);
        m_rowsPerPage = names.size();
        m_ganttChart = CategoryText::ganttOrderValue();
        rows = CategoryText::ganttRowsFormat().arg(names.size());
        sequence = names.join(QLatin1Char(';'));
    }
    QRatingItemVirtual* root = rootItem();
    using SkedCategory::addFixedNode;
    using SkedCategory::textValue;
    const auto orderValue = [this, &sequence](QRatingItemVirtual* node) {
        node->SetRatingItemValue(m_ganttChart, sequence, true);
    };
    if (!addFixedNode(CreateRatingItem(nullptr), root, CategoryText::ganttTimeUnit(), textValue(m_ganttTime),
                      SkedGanttTimeUnit, CategoryText::ganttTimeUnitRemark()) ||
        !addFixedNode(CreateRatingItem(nullptr), root, CategoryText::ganttRows(), textValue(rows),
                      SkedGanttRowsPerPage, CategoryText::ganttRowsRemark()) ||
        !addFixedNode(CreateRatingItem(nullptr), root, CategoryText::ganttOrder(), orderValue, SkedGanttOrder,
                      CategoryText::ganttOrderRemark()))
        return;
    m_created = true;
}
