// The parsed content of a project file: plain values, no library objects. A parsed project is never
// changed after reading, so one instance may be read by several threads at once.
#ifndef PROJECTMODEL_H
#define PROJECTMODEL_H

#include "markrulecodes.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace Host {

// How a link ties a successor to its predecessor, with a lag in working days (negative: a lead).
enum class LinkType { FinishToStart, StartToStart, FinishToFinish, StartToFinish };

struct LinkData {
    int predecessor = 0; // position in ScheduleProject::workItems
    LinkType type = LinkType::FinishToStart;
    int lagDays = 0;
};

struct WorkItemData {
    int id = 0;
    QString name;
    QString quantityCode;
    QString quantityName;
    QString unit;
    double plannedQuantity = 0.0;
    int duration = 0;
    bool fixedDuration = false;
    QString color;
    QString lineWidth;
    QString labourIntensity;
    QString crew;
    double materialTotal = 0.0;
    QList<LinkData> links;   // every link into this item, as the file gives them
    QList<int> predecessors; // distinct direct predecessors of the links, positions in workItems
    // Worked out from the links when the file is read: early start and finish in working days from
    // the project start, and whether the item has no float (it lies on a critical path).
    int start = 0;
    int finish = 0;
    bool critical = false;
};

struct ArrowData {
    int from = 0; // node numbers
    int to = 0;
    int workItem = -1; // position in ScheduleProject::workItems; -1 for a dummy arrow
    bool isDummy() const { return workItem < 0; }
};

struct ArrowDiagram {
    QList<int> nodes; // node numbers, distinct
    QList<ArrowData> arrows;
};

struct GanttSettings {
    QString timeUnit;
    int rowsPerPage = 0;
    QStringList order;
};

struct ResourceData {
    QString name;
    int plannedTotal = 0;
    QString code;
    QString unit;
};

struct CurvePoint {
    int minute = 0;
    double amount = 0.0;
};

struct CurveData {
    QString name;
    bool drawnByCandidate = false;
    QList<CurvePoint> points; // minutes strictly increasing
};

struct ScheduleProject {
    int scene = MarkCode::ScenePlain;
    QList<WorkItemData> workItems;
    bool hasDiagram = false;
    ArrowDiagram diagram;
    GanttSettings gantt;
    QList<ResourceData> resources;
    QList<CurveData> curves;
    int totalDays = 0;    // the latest early finish, computed while reading
    QStringList warnings; // what the reader noticed but did not refuse (names that occur twice)
};

// One node of a pricing or building-model tree; each product reads the fields it knows.
struct TreeItemData {
    QString name;
    QString code;
    QString unit;
    int attribute = 0;
    int precision = 2;
    bool hasLimits = false;
    double upperLimit = 5.0;
    double lowerLimit = 2.0;
    // pricing
    QString feature;
    double quantity = 0.0;
    double rate = 0.0;
    double ratio = 0.0;
    bool unitProject = false;
    // building model
    enum DataType {
        Text = MarkCode::DataText,
        Number = MarkCode::DataDouble,
        Integer = MarkCode::DataInteger
    };
    QString value;
    int dataType = Text;
    int indexRule = MarkCode::IndexByName;
    int scoreRule = MarkCode::ScoreContrast;
    QStringList attributeData;
    QList<TreeItemData> items;
};

enum class ProjectKind { Schedule, Pricing, Model };

struct ProjectFile {
    QString fileName; // as given, for messages
    ProjectKind kind = ProjectKind::Schedule;
    int product = MarkCode::ProductSked;
    ScheduleProject schedule;
    TreeItemData root; // pricing and model files
};

} // namespace Host

#endif // PROJECTMODEL_H
