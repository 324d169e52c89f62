#include "qscene_site.h"
#include "markrulecodes.h"

#include "markpointer.h"
#include "qclassifyitemvirtual.h"
#include "qclassifyvirtual.h"
#include "qresource_sked_site.h"
#include "scenetexts_p.h"

#include <QVector>

using namespace MarkCode;

namespace {

// The Site catalogue, each table in code order.
struct LabourRow {
    QString code;
    QString name;
    QString processCode;
    QString processName;
    QString processColor;
    QString curveName;
    int factor;
    int price;
};

struct MaterialRow {
    QString code;
    int price;
    QString curveName;
    int typeById;
};

struct MachineRow {
    QString code;
    QString curveName;
};

const QVector<LabourRow>& labourRows() {
    using namespace SceneText;
    static const QVector<LabourRow> rows = {
        {QStringLiteral("SiteRLJZ00001"), rebarWorker(), QStringLiteral("Qty01"), tieRebar(), yellow(),
         rebarWorkerCurve(), 5, 10000},
        {QStringLiteral("SiteRLJZ00002"), formworkWorker(), QStringLiteral("Qty02"), erectFormwork(), green(),
         formworkWorkerCurve(), 5, 10000},
        {QStringLiteral("SiteRLJZ00003"), concreteWorker(), QStringLiteral("Qty03"), pourConcrete(), pink(),
         concreteWorkerCurve(), 10, 10000},
    };
    return rows;
}

// Materials, with their resource type by id (rebar, concrete or formwork).
const QVector<MaterialRow>& materialRows() {
    using namespace SceneText;
    static const QVector<MaterialRow> rows = {
        {QStringLiteral("SiteCLJZ00001"), 14000, rebarMaterialCurve(), ResourceRebar},
        {QStringLiteral("SiteCLJZ00002"), 20000, rebarMaterialCurve(), ResourceRebar},
        {QStringLiteral("SiteCLJZ00003"), 2000, formworkMaterialCurve(), ResourceFormwork},
        {QStringLiteral("SiteCLJZ00004"), 14000, concreteMaterialCurve(), ResourceConcrete},
        {QStringLiteral("SiteCLJZ00005"), 10000, concreteMaterialCurve(), ResourceConcrete},
        {QStringLiteral("SiteCLJZ00006"), 10000, concreteMaterialCurve(), ResourceConcrete},
    };
    return rows;
}

const QVector<MachineRow>& machineRows() {
    using namespace SceneText;
    static const QVector<MachineRow> rows = {
        {QStringLiteral("ZJX1"), rebarMachineCurve()}, {QStringLiteral("ZJX2"), mixerCurve()},
        {QStringLiteral("ZJX3"), generatorCurve()},    {QStringLiteral("ZJX4"), generatorCurve()},
        {QStringLiteral("ZJX5"), waterPumpCurve()},    {QStringLiteral("ZJX6"), waterPumpCurve()},
    };
    return rows;
}

// The two preparatory element types. A null name is not set.
struct Preparation {
    int elementKind;
    double itemValue;
    QString name;
    int itemIndex;
    bool nameBeforeIndex;
    QString prevName;
    QString nextName;
};

constexpr int elementTypeKind = 1;
constexpr int elementItemKind = 1;

const QVector<Preparation>& preparations() {
    using namespace SceneText;
    static const QVector<Preparation> rows = {
        {3, 3.5, temporaryWorks(), 1, true, QString(), rebarPreparation()},
        {4, 7.0, rebarPreparation(), 2, false, temporaryWorks(), QString()},
    };
    return rows;
}

// Element identifiers.

constexpr QChar separator = QLatin1Char('-');

bool isElementId(const QString& text) {
    const int dash = text.indexOf(separator);
    const QStringRef prefix = dash < 0 ? QStringRef(&text) : text.leftRef(dash);
    return prefix == QLatin1String("JC") || prefix == QLatin1String("D") || prefix == QLatin1String("B");
}

// The work-process number: the last character as a decimal digit, 0 for anything else.
int processNumber(const QString& id) {
    if (id.isEmpty())
        return 0;
    const QChar last = id.back();
    return last >= QLatin1Char('0') && last <= QLatin1Char('9') ? last.unicode() - '0' : 0;
}

// Index in labourRows() of the labour responsible for the work process id, or -1.
int labourIndex(const QString& id) {
    if (!isElementId(id))
        return -1;
    const int process = processNumber(id);
    if (process < 1 || process > 3)
        return -1;
    // Work processes 1 and 2 swap their labour on "B" elements.
    static const int onB[] = {1, 0, 2};
    static const int onJcOrD[] = {0, 1, 2};
    return id.startsWith(QLatin1Char('B')) ? onB[process - 1] : onJcOrD[process - 1];
}

bool isFirstProcess(const QString& text) {
    return isElementId(text) && text.count(separator) == 2 && text.endsWith(QLatin1Char('1'));
}

QString componentOf(const QString& firstProcess) {
    return firstProcess.left(firstProcess.lastIndexOf(separator));
}

QString processOf(const QString& component, int process) {
    return component + separator + QChar(QLatin1Char('0').unicode() + process);
}

// "C-1;C-2;C-3" for an element identifier C, any other text itself.
QString expansion(const QString& text) {
    if (!isElementId(text))
        return text;
    return processOf(text, 1) + QLatin1Char(';') + processOf(text, 2) + QLatin1Char(';') + processOf(text, 3);
}

// The work process after the part: "…1" gives "…2", "…2" gives "…3", "…3" is its own next; a null
// text for any other part.
QString nextProcess(const QString& part) {
    const int process = processNumber(part);
    if (process < 1 || process > 3)
        return QString();
    if (process == 3)
        return part;
    QString next = part;
    next.back() = QChar(QLatin1Char('0').unicode() + process + 1);
    return next;
}

} // namespace

QScene_Site::QScene_Site(QObject* parent) : QScene_Sked(parent) {}

QScene_Site::~QScene_Site() {
    qDeleteAll(m_listElementType);
}

void QScene_Site::InitSceneInfo(void* data) {
    fillCatalogue();
    createElementTypes(data);
}

void QScene_Site::fillCatalogue() {
    for (const LabourRow& row : labourRows()) {
        auto* resource = new QResource_Sked_Site_RL(nullptr);
        resource->SetPrice(row.price);
        resource->SetProjectCode(row.processCode);
        resource->SetProjectName(row.processName);
        resource->SetGxColor(row.processColor);
        resource->SetCurveName(row.curveName);
        resource->SetFactor(row.factor);
        addResource(m_mapRLResource, row.code, resource);
    }
    for (const MaterialRow& row : materialRows()) {
        auto* resource = new QResource_Sked_Site_CL(nullptr);
        resource->SetPrice(row.price);
        resource->SetCurveName(row.curveName);
        addResource(m_mapCLResource, row.code, resource);
    }
    for (const MachineRow& row : machineRows()) {
        auto* resource = new QResource_Sked_Site_JX(nullptr);
        resource->SetCurveName(row.curveName);
        addResource(m_mapJXResource, row.code, resource);
    }
}

void QScene_Site::createElementTypes(void* data) {
    QProjectDataVirtual* project = MarkPointer::projectData(data);
    if (!project)
        return;
    for (const Preparation& preparation : preparations()) {
        QClassifyVirtual* type = project->CreateElementType(elementTypeKind);
        if (!type)
            continue;
        type->SetElementScene(this);
        type->SetElementKind(preparation.elementKind);
        QClassifyItemVirtual* item = type->CreateElementItem(elementItemKind);
        if (!item) {
            delete type; // not recorded, so nobody else would free it
            continue;
        }
        item->SetItemScene(this);
        item->SetItemValue(preparation.itemValue);
        if (preparation.nameBeforeIndex) {
            item->SetItemName(preparation.name);
            item->SetItemIndex(preparation.itemIndex);
        } else {
            item->SetItemIndex(preparation.itemIndex);
            item->SetItemName(preparation.name);
        }
        type->AddElementItem(item);
        if (!preparation.prevName.isNull())
            type->SetPrevName(preparation.prevName);
        if (!preparation.nextName.isNull())
            type->SetNextName(preparation.nextName);
        type->SetElementName(preparation.name);
        m_listElementType.append(type);
    }
}

void* QScene_Site::GetRLResource(const QString& id) {
    const int index = labourIndex(id);
    if (index < 0)
        return nullptr;
    QResourceVirtual* resource = m_mapRLResource.value(labourRows().at(index).code, nullptr);
    return static_cast<QObject*>(resource);
}

void QScene_Site::GetElementTypeList(QList<QClassifyVirtual*>& list) {
    list = m_listElementType;
}

int QScene_Site::GetSceneType() {
    return SceneSite;
}

QString QScene_Site::GetRLResourceNameById(const QString& id) {
    const int index = labourIndex(id);
    return index < 0 ? QString() : labourRows().at(index).name;
}

QString QScene_Site::GetElementLogic(const QString& element, const QString& predecessors) {
    const QString chainEnd = expansion(element);
    if (predecessors.isEmpty())
        return chainEnd;
    QStringList chains;
    for (const QString& predecessor : predecessors.split(QLatin1Char(';'), Qt::KeepEmptyParts))
        chains.append(expansion(predecessor) + QLatin1Char(';') + chainEnd);
    return chains.join(QLatin1Char('&'));
}

QString QScene_Site::TransformElementToComp(const QString& id) {
    if (!isElementId(id))
        return id;
    return isFirstProcess(id) ? componentOf(id) : QString();
}

// Cost: O(|S| + |L| log |L| + the number of set entries written), in hash and map operations on the
// parts' texts, for S the parts of the sequence and L its components. Three things keep it linear
// where a direct reading of the rules would be quadratic:
// - one pass from the end of S gives, for every position, the first later occurrence of its next work
//   process, and so the completeness of every chain (memoised per position, each resolved from an
//   already resolved later position); the same pass leaves the first position of every text;
// - the set of a component depends only on the entries of L before its first occurrence, so it is
//   built once, at that first occurrence (a repeated entry would unite the same set again);
// - the entries met so far are kept ordered by the first position of their last work process, so
//   the entries that finished before a component's first work process are a prefix of that order.
void QScene_Site::CombineElementToComp(const QString& text, QMap<QString, QSet<QString>>& result) {
    const QStringList sequence = text.split(QLatin1Char(';'), Qt::KeepEmptyParts);

    QVector<bool> complete(sequence.size(), false);
    QHash<QString, int> firstPosition; // during the pass: the nearest position to the right
    for (int i = sequence.size() - 1; i >= 0; --i) {
        const QString& part = sequence.at(i);
        const QString next = nextProcess(part);
        if (next == part) {
            complete[i] = true;
        } else if (!next.isNull()) {
            const auto later = firstPosition.constFind(next);
            complete[i] = later != firstPosition.constEnd() && complete.at(*later);
        }
        firstPosition.insert(part, i);
    }

    QStringList components;
    for (int i = 0; i < sequence.size(); ++i) {
        const QString& part = sequence.at(i);
        if (!isElementId(part)) {
            if (!part.isEmpty())
                components.append(part);
        } else if (isFirstProcess(part) && complete.at(i)) {
            components.append(componentOf(part));
        }
    }

    QMultiMap<int, QString> finished; // entries met so far, by the first position of their last process
    QSet<QString> done;
    for (const QString& component : qAsConst(components)) {
        if (done.contains(component))
            continue;
        done.insert(component);
        const bool element = isElementId(component);
        const int start = firstPosition.value(element ? processOf(component, 1) : component, 0);
        QSet<QString>& before = result[component];
        for (auto it = finished.constBegin(); it != finished.constEnd() && it.key() < start; ++it)
            before.insert(it.value());
        const auto end = firstPosition.constFind(element ? processOf(component, 3) : component);
        if (end != firstPosition.constEnd())
            finished.insert(*end, component);
    }
}

int QScene_Site::GetResourceTypeById(const QString& code) {
    for (const LabourRow& row : labourRows()) {
        if (row.code == code)
            return ResourceLabour;
    }
    for (const MaterialRow& row : materialRows()) {
        if (row.code == code)
            return row.typeById;
    }
    return 0;
}

QString QScene_Site::GetClassName() {
    return QStringLiteral("QScene_Site");
}
