// One side (standard answer or candidate) of a schedule: the project data and the seven categories
// of its scene, made through the library's factory, given the settings the host works out, and built.
#ifndef SCHEDULECATEGORIES_H
#define SCHEDULECATEGORIES_H

#include "hostprojectdata.h"
#include "networklimits.h"
#include "projectmodel.h"
#include "scheduleanalysis.h"

#include <QMap>
#include <QSet>
#include <QStringList>

class QMarkCategoryVirtual;

namespace Host {

class ScheduleSide {
public:
    // The category types, in the order the factory knows them.
    static QList<int> categoryTypes() {
        QList<int> types;
        for (int type = MarkCode::CategoryFirst; type <= MarkCode::CategoryLast; ++type)
            types.append(type);
        return types;
    }

    // candidate: false for the standard answer, true for the project being judged.
    ScheduleSide(const ScheduleProject& project, int scene, bool candidate,
                 const NetworkLimits& limits = NetworkLimits());
    ~ScheduleSide();
    ScheduleSide(const ScheduleSide&) = delete;
    ScheduleSide& operator=(const ScheduleSide&) = delete;

    // Creates the category of the type, hands it the settings and builds it once; null when the
    // factory gives no category of that type. The side owns it.
    QMarkCategoryVirtual* category(int type);

    // The work-item names that the chains of this side's logic texts use (of interest on the standard
    // side).
    QSet<QString> chainNames();
    // Judged side: only work items of these names (the standard's chain names) enter the judged
    // network; call before category(3). Until it is called every work item does.
    void setChainNames(const QSet<QString>& names);

    // Works out what the category of the type needs and cannot be made without (the judged network,
    // the diagram findings) and says why it cannot be graded, e.g. a network beyond its limit; empty
    // when it can. category() asks it too, and makes no category that cannot be graded.
    QString ungradable(int type);

    // Standard side: explicit upper limits of the curve fluctuation by curve group, where the course
    // gives them; other groups get the standard's own value raised just enough (curvelimits.h).
    void setCurveLimits(const QMap<int, double>& limits) { m_curveLimits = limits; }

    // Deletes the category of the type, once its scores are read, to keep one category's trees in
    // memory at a time; a later category() makes it anew.
    void release(int type);

    HostProjectData& data() { return m_data; }
    // Things the host could not hand over (a factory that gave nothing), for the report.
    const QStringList& notes() const { return m_notes; }

private:
    void configure(int type, QMarkCategoryVirtual* category);
    void addCurves(QMarkCategoryVirtual* category);
    void markDiagramAbsent(QMarkCategoryVirtual* category);
    QString prepareNetwork();

    HostProjectData m_data;
    int m_scene;
    bool m_candidate;
    NetworkLimits m_limits;
    QMap<int, double> m_curveLimits;
    bool m_allNames = true; // every work item enters the network
    QSet<QString> m_chainNames;
    QMap<int, QString> m_ungradable; // settled types
    LinkMatrix m_links;              // until handed to the logic category
    NetworkFindings m_findings;
    QMap<int, QMarkCategoryVirtual*> m_categories;
    QStringList m_notes;
};

} // namespace Host

#endif // SCHEDULECATEGORIES_H
