// One side (standard answer or candidate) of a schedule: the project data and the seven categories
// of its scene, made through the library's factory, given the settings the host works out, and built.
#ifndef SCHEDULECATEGORIES_H
#define SCHEDULECATEGORIES_H

#include "hostprojectdata.h"
#include "projectmodel.h"

#include <QMap>
#include <QStringList>

class QMarkCategoryVirtual;

namespace Host {

class ScheduleSide {
public:
    // Category types 1 to 7, in the order the factory knows them.
    static QList<int> categoryTypes() { return {1, 2, 3, 4, 5, 6, 7}; }

    // candidate: false for the standard answer, true for the project being judged.
    ScheduleSide(const ScheduleProject& project, int scene, bool candidate);
    ~ScheduleSide();
    ScheduleSide(const ScheduleSide&) = delete;
    ScheduleSide& operator=(const ScheduleSide&) = delete;

    // Creates the category of the type, hands it the settings and builds it once; null when the
    // factory gives no category of that type. The side owns it.
    QMarkCategoryVirtual* category(int type);

    HostProjectData& data() { return m_data; }
    // Things the host could not hand over (a factory that gave nothing), for the report.
    const QStringList& notes() const { return m_notes; }

private:
    void configure(int type, QMarkCategoryVirtual* category);
    void addCurves(QMarkCategoryVirtual* category);

    HostProjectData m_data;
    int m_scene;
    bool m_candidate;
    QMap<int, QMarkCategoryVirtual*> m_categories;
    QStringList m_notes;
};

} // namespace Host

#endif // SCHEDULECATEGORIES_H
