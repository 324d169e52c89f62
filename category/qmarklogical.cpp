#include "qmarklogical.h"
#include "markrulecodes.h"

#include "categorytexts_p.h"
#include "heldobjects_p.h"
#include "qratingitem_sked_scene.h"
#include "skedcategory_p.h"

#include <QPointer>

using namespace MarkCode;

// One link matrix handed over by the host, and the rating items it was lent to. Only owning
// categories hold it strongly, so it lives exactly as long as its owner keeps it: destroying it frees
// the rows and detaches every item that still refers to it.
class LogicNetwork {
public:
    // The live network that holds these rows, or null.
    static QSharedPointer<LogicNetwork> find(int** rows);
    // The live network that holds these rows, or a new one.
    static QSharedPointer<LogicNetwork> hold(int** rows, int count);
    ~LogicNetwork();
    LogicNetwork(const LogicNetwork&) = delete;
    LogicNetwork& operator=(const LogicNetwork&) = delete;

    int** rows() const { return m_rows; }
    void lend(QRatingItemVirtual* item) { m_borrowers.append(item); }

private:
    LogicNetwork(int** rows, int count);

    int** m_rows;
    int m_rowCount;
    QList<QPointer<QRatingItemVirtual>> m_borrowers;
};

SKED_CATEGORY_CLASS(QMarkLogical, QMarkCategoryBase)
SKED_CATEGORY_ITEMS(QMarkLogical_Sked, QRatingItem_Sked)
SKED_CATEGORY_CLASS(QMarkLogical_Sked_Twin, QMarkLogical_Sked)
SKED_CATEGORY_CLASS(QMarkLogical_Sked_Site, QMarkLogical_Sked)

LogicNetwork::LogicNetwork(int** rows, int count) : m_rows(rows), m_rowCount(count) {}

LogicNetwork::~LogicNetwork() {
    QMultiMap<QString, int> noNodes;
    int noCount = 0;
    for (const QPointer<QRatingItemVirtual>& item : qAsConst(m_borrowers)) {
        if (item)
            item->SetRatingItemValue(noNodes, nullptr, noCount);
    }
    if (!m_rows)
        return;
    for (int row = 0; row < m_rowCount; ++row)
        delete[] m_rows[row];
    delete[] m_rows;
}

QSharedPointer<LogicNetwork> LogicNetwork::find(int** rows) {
    return rows ? HeldObjects::find<LogicNetwork>(rows) : QSharedPointer<LogicNetwork>();
}

QSharedPointer<LogicNetwork> LogicNetwork::hold(int** rows, int count) {
    return HeldObjects::hold<LogicNetwork>(rows, [rows, count] { return new LogicNetwork(rows, count); });
}

QMarkLogical_Sked::QMarkLogical_Sked(QObject* parent) : QMarkLogical(parent) {
    m_categoryType = CategoryLogical;
}

QMarkLogical_Sked::~QMarkLogical_Sked() {
    QMarkLogical_Sked::ClearLogicData();
}

QString QMarkLogical_Sked::GetClassName() {
    return SkedCategory::className(staticMetaObject);
}

void QMarkLogical_Sked::installRoot(QRatingItemVirtual* root) {
    root->SetRatingItemName(CategoryText::logicRoot());
    root->SetRatingItemValue(CategoryText::logicRootValue(), false);
    root->SetRatingItemLevel(1);
    root->SetRatingItemRemark(CategoryText::logicRootRemark());
    root->SetAttributeType(SkedLogicRoot);
    setRootItem(root);
}

bool QMarkLogical_Sked::hasNetwork() const {
    return !m_network.isNull();
}
QMultiMap<QString, int> QMarkLogical_Sked::nodeMap() const {
    return hasNetwork() ? m_nodeMap : QMultiMap<QString, int>();
}
int** QMarkLogical_Sked::linkMatrix() const {
    const QSharedPointer<LogicNetwork> network = m_network.toStrongRef();
    return network ? network->rows() : nullptr;
}
int QMarkLogical_Sked::nodeCount() const {
    return hasNetwork() ? m_nodeCount : 0;
}

void QMarkLogical_Sked::GetLogicList(QStringList& out) {
    out = m_logicList;
}

void QMarkLogical_Sked::SetLogicList(const QStringList& list) {
    m_logicList = list;
}

void QMarkLogical_Sked::ClearLogicData() {
    m_ownedNetwork.reset();
    m_network.clear();
    m_nodeCount = 0;
    m_logicList.clear();
    m_nodeMap.clear();
}

void QMarkLogical_Sked::SetLogicMatrix(QMultiMap<QString, int>& nodes, int** matrix, int& count) {
    // Held across the clear, so that handing back the matrix this category owns keeps it alive.
    const QSharedPointer<LogicNetwork> existing = LogicNetwork::find(matrix);
    const bool owner = !existing || existing == m_ownedNetwork;
    const QSharedPointer<LogicNetwork> network = LogicNetwork::hold(matrix, count); // existing, or new
    const QMultiMap<QString, int> nodeCopy = nodes; // nodes may be this category's own map
    ClearLogicData();
    m_network = network;
    if (owner)
        m_ownedNetwork = network;
    m_nodeMap = nodeCopy;
    m_nodeCount = count;
}

void QMarkLogical_Sked::InitMarkCategory(QMarkCategoryVirtual* other) {
    QMarkLogical_Sked* source = qobject_cast<QMarkLogical_Sked*>(other);
    if (!source)
        return;
    const QMultiMap<QString, int> sourceNodes = source->m_nodeMap;
    const QSharedPointer<LogicNetwork> network = source->m_network.toStrongRef();
    // A matrix of our own stays owned (items built on it keep scoring against it) until the next
    // SetLogicMatrix, ClearLogicData or the category's end.
    m_network = network;
    m_nodeCount = source->m_nodeCount;
    m_nodeMap.clear();
    QRatingItemVirtual* root = rootItem();
    if (!root) {
        m_nodeMap = sourceNodes;
        return;
    }
    for (auto it = sourceNodes.cbegin(); it != sourceNodes.cend(); ++it)
        m_nodeMap.insert(root->TransformTextToName(it.key()), it.value());
}

void QMarkLogical_Sked::UpdateCategory(void* data, const bool& flag) {
    QProjectDataVirtual* project = MarkPointer::projectData(data);
    if (!SkedCategory::beginBuild(m_created, m_projectData, data, project && rootItem()))
        return;
    QStringList names, displays, chains;
    project->GetLogicTexts(names, displays, chains);
    if (flag)
        rootItem()->SetRatingItemRemark(QString());
    const QSharedPointer<LogicNetwork> network = m_network.toStrongRef();
    const QMultiMap<QString, int> nodes = nodeMap();
    int** const matrix = linkMatrix();
    for (int i = 0; i < names.size(); ++i) {
        QRatingItemVirtual* item = SkedCategory::adoptItem(CreateRatingItem(nullptr));
        if (!item)
            continue;
        item->SetRatingItemName(names.at(i));
        if (flag) {
            QMultiMap<QString, int> itemNodes = nodes;
            int count = nodeCount();
            item->SetRatingItemValue(displays.value(i), false);
            item->SetRatingItemValue(itemNodes, matrix, count);
            if (network)
                network->lend(item);
        } else {
            item->SetRatingItemValue(displays.value(i), chains.value(i), false);
        }
        item->SetAttributeType(SkedLogicRelation);
        rootItem()->AddRatingItem(MarkPointer::fromItem(item), flag);
    }
    m_created = true;
}

void QMarkLogical_Sked_Site::InitMarkCategoryItem() {
    installRoot(new QRatingItem_Sked_Site());
}

void* QMarkLogical_Sked_Site::CreateRatingItem(QObject* parent) {
    return MarkPointer::fromItem(new QRatingItem_Sked_Site(parent));
}
