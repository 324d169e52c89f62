#include "qmarkrescurve.h"
#include "markrulecodes.h"

#include "categorytexts_p.h"
#include "heldobjects_p.h"
#include "qratingitem_sked_scene.h"
#include "rescurvemath_p.h"
#include "skedcategory_p.h"

#include <QSet>
#include <QWeakPointer>

using namespace MarkCode;

namespace {

template <class T> QSharedPointer<T> share(T* object) {
    return HeldObjects::hold<T>(object, [object] { return object; });
}

template <class T> QList<T*> rawList(const QList<QSharedPointer<T>>& list) {
    QList<T*> raw;
    raw.reserve(list.size());
    for (const QSharedPointer<T>& entry : list)
        raw.append(entry.data());
    return raw;
}

// The host's curve point: a plain struct, not an object, so MarkPointer cannot check it; the host
// contract guarantees the type of a non-null record.
ResCurveRecord* curveRecord(void* record) {
    return static_cast<ResCurveRecord*>(record);
}

} // namespace

SKED_CATEGORY_CLASS(QMarkResCurve, QMarkCategoryBase)
SKED_CATEGORY_CLASS_TYPED(QMarkResCurve_Sked, QMarkResCurve, CategoryResCurve)
SKED_CATEGORY_ITEMS(QMarkResCurve_Sked, QRatingItem_Sked)
SKED_CATEGORY_CLASS(QMarkResCurve_Sked_Twin, QMarkResCurve_Sked)
SKED_CATEGORY_CLASS(QMarkResCurve_Sked_Site, QMarkResCurve_Sked)
SKED_CATEGORY_ITEMS(QMarkResCurve_Sked_Site, QRatingItem_Sked_Site)

void QMarkResCurve_Sked::installRoot(QRatingItemVirtual* root) {
    SkedCategory::nameRoot(root, CategoryText::curveRoot(), SkedCurveRoot);
    setRootItem(root);
}

void QMarkResCurve_Sked::BuildCurveItemsStd(QList<QResourceVirtual*>&) {}
void QMarkResCurve_Sked::BuildCurveItems(QList<QResourceVirtual*>&) {}

QString QMarkResCurve_Sked::GetMarkCurveName() {
    return m_curveName;
}
void QMarkResCurve_Sked::SetMarkCurveName(const QString& name) {
    m_curveName = name;
}
void QMarkResCurve_Sked::SetMarkCurveCustomType(const bool& custom) {
    m_customCurve = custom;
}
bool QMarkResCurve_Sked::IsCustomResCurve() {
    return m_customCurve;
}

QList<ResCurveRecord*> QMarkResCurve_Sked::records() const {
    return rawList(m_records);
}
QList<QMarkCategoryVirtual*> QMarkResCurve_Sked::subCategories() const {
    return rawList(m_subCategories);
}

bool QMarkResCurve_Sked::reachableFrom(QMarkCategoryVirtual* category) const {
    QSet<QMarkCategoryVirtual*> visited;
    QList<QMarkCategoryVirtual*> pending{category};
    while (!pending.isEmpty()) {
        QMarkCategoryVirtual* next = pending.takeLast();
        if (next == this)
            return true;
        if (!next || visited.contains(next))
            continue;
        visited.insert(next);
        if (const QMarkResCurve_Sked* holder = qobject_cast<QMarkResCurve_Sked*>(next))
            pending.append(holder->subCategories());
    }
    return false;
}

void QMarkResCurve_Sked::AddMarkCategory(QMarkCategoryVirtual* category) {
    // A category that would end up holding itself could never be released.
    if (!category || reachableFrom(category))
        return;
    m_subCategories.append(share(category));
}

void QMarkResCurve_Sked::AddResCurveRecord(void* record) {
    if (!record)
        return;
    m_records.append(share(curveRecord(record)));
}

void QMarkResCurve_Sked::InitMarkCategory(QMarkCategoryVirtual* other) {
    const QMarkResCurve_Sked* source = qobject_cast<QMarkResCurve_Sked*>(other);
    if (!source || source == this)
        return;
    for (QMarkCategoryVirtual* category : source->subCategories()) {
        if (category && reachableFrom(category))
            return;
    }
    m_subCategories = source->m_subCategories;
    m_records = source->m_records;
}

void QMarkResCurve_Sked::UpdateCategory(void* data, const bool& flag) {
    if (m_created)
        return;
    m_projectData = data;
    QProjectDataVirtual* project = MarkPointer::projectData(data);
    if (project && rootItem()) {
        QList<QResourceVirtual*> resources;
        project->GetResourceList(resources);
        m_totalDays = project->GetTotalDays();
        if (flag)
            BuildCurveItems(resources);
        else
            BuildCurveItemsStd(resources);
    }
    m_created = true;
}

int QMarkResCurve_Sked::GetResCurveTotalTime(int& start, int& end) {
    start = 0;
    end = 0;
    // Differences of two ints do not fit an int: sum in 64 bits.
    qint64 total = 0;
    qint64 previous = 0;
    bool busy = false;
    for (const QSharedPointer<ResCurveRecord>& record : qAsConst(m_records)) {
        if (!record)
            continue;
        const int time = record->time;
        if (record->value >= 1.0) {
            total += time - previous;
            end = time;
            busy = true;
        } else if (!busy) {
            start = time;
        }
        previous = time;
    }
    return ResCurveMath::clampToInt(double(total));
}

int QMarkResCurve_Sked::GetJxResUsedCount() {
    double sum = 0.0;
    qint64 previous = 0;
    for (const QSharedPointer<ResCurveRecord>& record : qAsConst(m_records)) {
        if (!record)
            continue;
        if (record->value > 0.0)
            sum += double(record->time - previous) / 10080.0 * record->value;
        previous = record->time;
    }
    return ResCurveMath::roundHalfUp(sum);
}
