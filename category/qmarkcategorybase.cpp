#include "qmarkcategorybase.h"
#include "markrulecodes.h"

#include "markpointer.h"
#include "qratingitembase.h"
#include "recordio_p.h"

using namespace MarkCode;

namespace {

// Standard-score split: every node gets an equal share of its parent's standard score.
void assignStandardScore(QRatingItemVirtual* node, double amount) {
    if (!node)
        return;
    QList<void*> children;
    node->GetRatingItemList(children);
    node->SetRatingItemScoreStd(amount);
    if (children.isEmpty())
        return;
    const double share = amount / children.size();
    for (void* child : children)
        assignStandardScore(MarkPointer::item(child), share);
}

} // namespace

QMarkCategoryBase::QMarkCategoryBase(QObject* parent) : QMarkCategoryVirtual(parent) {}

QMarkCategoryBase::~QMarkCategoryBase() {
    delete m_root;
    m_root = nullptr;
}

void QMarkCategoryBase::setRootItem(QRatingItemVirtual* root) {
    if (root == m_root)
        return;
    delete m_root;
    m_root = root;
}

void* QMarkCategoryBase::GetRatingItemPtr() {
    return MarkPointer::fromItem(m_root);
}

void* QMarkCategoryBase::CreateRatingItem(QObject*) {
    return MarkPointer::fromItem(new QRatingItemBase(nullptr));
}

QString QMarkCategoryBase::GetClassName() {
    return QStringLiteral("QMarkCategoryBase");
}

void QMarkCategoryBase::ClearRatingItemData() {
    if (m_root)
        m_root->ClearRatingItemData();
}

void QMarkCategoryBase::AssignScore(const double& total) {
    // The recursion follows the tree; record readers bound its depth.
    assignStandardScore(m_root, total);
}

double QMarkCategoryBase::ExecuteDBScore(QMarkCategoryVirtual* standard) {
    if (!standard || !m_root)
        return 0.0;
    return m_root->ExecuteDBScore(standard->GetRatingItemPtr(), StatusOrdinary);
}

void QMarkCategoryBase::DoSerialize(QJsonObject& object, const bool& read) {
    const QString typeKey = QStringLiteral("categorytype");
    const QString createdKey = QStringLiteral("iscreated");
    if (read) {
        m_categoryType = RecordIO::jsonInt(object, typeKey);
        m_created = RecordIO::jsonBool(object, createdKey);
    } else {
        object.insert(typeKey, m_categoryType);
        object.insert(createdKey, m_created);
    }
    if (m_root)
        m_root->DoSerialize(object, read);
}

void QMarkCategoryBase::DoSerialize(QDataStream& stream, const bool& read) {
    if (!read) {
        stream << qint32(m_categoryType) << GetClassName() << m_created;
        if (m_root)
            m_root->DoSerialize(stream, false);
        return;
    }
    qint32 type = 0;
    QString className;
    bool created = false;
    stream >> type >> className >> created;
    if (!RecordIO::good(stream))
        return;
    m_categoryType = type;
    m_created = created;
    void* pointer = CreateRatingItem(nullptr);
    QRatingItemVirtual* root = MarkPointer::item(pointer);
    if (!root)
        delete MarkPointer::object(pointer);
    setRootItem(root);
    if (root)
        root->DoSerialize(stream, true);
}
