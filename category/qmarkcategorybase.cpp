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

RecordIO::Fields QMarkCategoryBase::recordFields(QString& className) {
    return {{"categorytype", m_categoryType}, {nullptr, className}, {"iscreated", m_created}};
}

void QMarkCategoryBase::DoSerialize(QJsonObject& object, const bool& read) {
    QString className;
    recordFields(className).serialize(object, read);
    if (m_root)
        m_root->DoSerialize(object, read);
}

void QMarkCategoryBase::DoSerialize(QDataStream& stream, const bool& read) {
    QString className = GetClassName(); // read to keep the stream aligned, then dropped
    if (!recordFields(className).serialize(stream, read))
        return;
    if (!read) {
        if (m_root)
            m_root->DoSerialize(stream, false);
        return;
    }
    void* pointer = CreateRatingItem(nullptr);
    QRatingItemVirtual* root = MarkPointer::item(pointer);
    if (!root)
        delete MarkPointer::object(pointer);
    setRootItem(root);
    if (root)
        root->DoSerialize(stream, true);
}
