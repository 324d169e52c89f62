// What the host works out from a schedule before the library sees it: the logic texts of the
// standard side, the judged side's network, the findings on the arrow diagram, the total duration and
// the curve fluctuation values. Pure functions over parsed data; no library object is touched.
#ifndef SCHEDULEANALYSIS_H
#define SCHEDULEANALYSIS_H

#include "networklimits.h"
#include "projectmodel.h"
#include "scheduletiming.h"

#include <QList>
#include <QMap>
#include <QMultiMap>
#include <QPair>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <limits>

namespace Host {

// Logic texts, filled in parallel: one entry per distinct work-item name in first-seen order.
struct LogicTexts {
    QStringList names;
    QStringList displays;
    QStringList chains;
};
LogicTexts logicTexts(const QList<WorkItemData>& items);

// The work-item names that the logic rule looks up in a judged network: every ";"-separated name of
// every "&"-separated entry of the chain texts.
QSet<QString> chainNames(const QStringList& chains);

// Positions, in schedule order, of the work items whose names are among names: the judged network's
// nodes. Items of other names can never stand in a standard chain, so they are left out.
QVector<int> networkItems(const QList<WorkItemData>& items, const QSet<QString>& names);

// The network of direct links between the given work items (positions in items), in the form the
// logic category takes over: node i is items[positions[i]]; rows allocated with new int*[k], each row
// with new int[k]; null for no work items.
struct LinkMatrix {
    QMultiMap<QString, int> nodes;
    int** matrix = nullptr;
    int count = 0;
};
// False, with nothing allocated, when the k × k matrix cannot be allocated (k beyond int, or memory
// refused).
bool linkMatrix(const QList<WorkItemData>& items, const QVector<int>& positions, LinkMatrix& links);
// Frees a matrix made by linkMatrix that was not handed to a category.
void freeLinkMatrix(LinkMatrix& links);

// Findings on the arrow diagram (network-plan principles).
struct NetworkFindings {
    bool singleStartEnd = false;
    QString startEndText; // empty when the rule holds
    bool broken = false;
    QString brokenText;
    bool surplusDummy = false;
    QString surplusNodes; // "2-3、7-8"
    QList<int> startNodes;
    QList<int> endNodes;
    QList<int> brokenNodes;
    QList<QPair<int, int>> surplusArrows;
    // Why the diagram was not analysed (it exceeds a limit); empty when it was.
    QString error;
};
NetworkFindings analyseDiagram(const ArrowDiagram& diagram, bool drawn,
                               const NetworkLimits& limits = NetworkLimits());

// False with the closed cycle of node numbers when the arrows form a cycle.
bool diagramIsAcyclic(const ArrowDiagram& diagram, QVector<int>& cycleNodes);

// Curve fluctuation values by variance curve (MarkCode::SkedLabourCurve to SkedFormworkCurve): the
// time-weighted variance of each group's summed curve over [0, totalDays × 1440] minutes; -1 for a group
// without curves or a zero duration. A value too large for a double is fluctuationOverflow, the worst value a
// rule can meet. canonical turns a curve name into a canonical resource name.
QMap<int, double> curveFluctuation(const QList<CurveData>& curves, int totalDays,
                                   const std::function<QString(const QString&)>& canonical);

// The fluctuation reported when the true value is not a finite double (huge or non-finite amounts).
const double fluctuationOverflow = std::numeric_limits<double>::max();

// Time-weighted variance of the sum of the curves over [0, axisMinutes]; -1 when axisMinutes <= 0.
// Never NaN or infinite: fluctuationOverflow stands for any value beyond a double.
double timeWeightedVariance(const QList<const CurveData*>& curves, qint64 axisMinutes);

// The chart name of a canonical resource name (a name without a chart of its own is its own chart).
QString chartName(const QString& canonicalName);

} // namespace Host

#endif // SCHEDULEANALYSIS_H
