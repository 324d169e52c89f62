// Gantt chart (MarkCode::CategoryGanttChart): three criteria under the root "横道图合理性": the chart's time
// unit is the project week, a printed page shows at least as many rows as there are work items, and the chart
// lists the work items completely and in the standard's order. The host sets the judged chart's settings; on
// the standard side the category replaces them by the required values.
#ifndef QMARKGANTTCHART_H
#define QMARKGANTTCHART_H

#include "qmarkcategorybase.h"

// Family base; never made by a factory.
class MARKRULE_EXPORT QMarkGanttChart : public QMarkCategoryBase {
    Q_OBJECT
protected:
    explicit QMarkGanttChart(QObject* parent = nullptr);

public:
    ~QMarkGanttChart() override;

    QString GetClassName() override;
};

// Plain schedule scene; criteria are QRatingItem_Sked.
class MARKRULE_EXPORT QMarkGanttChart_Sked : public QMarkGanttChart {
    Q_OBJECT
public:
    explicit QMarkGanttChart_Sked(QObject* parent = nullptr);
    ~QMarkGanttChart_Sked() override;

    // Builds the three criteria once. Standard side (flag false): the settings first become the
    // required ones ("工程周", the number of work items, "完整性工序顺序") and the order criterion
    // compares the work-item names joined with ";". Judged side: the settings as the host set them.
    // A creator that yields no item stops the build, which stays undone.
    void UpdateCategory(void* data, const bool& flag) override;
    // Empties the three settings.
    void ClearMarkCategory() override;
    void SetMarkGanttTime(const QString& text) override;
    void SetMarkGanttChart(const QString& text) override;
    void SetMarkPerScreen(const int& rows) override;
    // Copies another Gantt-chart category's settings. Null or another kind: no effect.
    void InitMarkCategory(QMarkCategoryVirtual* other) override;
    void InitMarkCategoryItem() override;
    void* CreateRatingItem(QObject* parent) override;
    QString GetClassName() override;

protected:
    void installRoot(QRatingItemVirtual* root);

    QString m_ganttTime;
    QString m_ganttChart;
    int m_rowsPerPage = 0;
};

// Twin scene: as the plain scene.
class MARKRULE_EXPORT QMarkGanttChart_Sked_Twin : public QMarkGanttChart_Sked {
    Q_OBJECT
public:
    explicit QMarkGanttChart_Sked_Twin(QObject* parent = nullptr);
    ~QMarkGanttChart_Sked_Twin() override;

    QString GetClassName() override;
};

// Site scene; criteria are QRatingItem_Sked_Site.
class MARKRULE_EXPORT QMarkGanttChart_Sked_Site : public QMarkGanttChart_Sked {
    Q_OBJECT
public:
    explicit QMarkGanttChart_Sked_Site(QObject* parent = nullptr);
    ~QMarkGanttChart_Sked_Site() override;

    void InitMarkCategoryItem() override;
    void* CreateRatingItem(QObject* parent) override;
    QString GetClassName() override;
};

#endif // QMARKGANTTCHART_H
