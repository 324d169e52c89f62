#include "qmarknetprinciple.h"
#include "markrulecodes.h"

#include "categorytexts_p.h"
#include "qratingitem_sked_scene.h"
#include "skedcategory_p.h"

using namespace MarkCode;

SKED_CATEGORY_CLASS(QMarkNetPrinciple, QMarkCategoryBase)
SKED_CATEGORY_ITEMS(QMarkNetPrinciple_Sked, QRatingItem_Sked)
SKED_CATEGORY_CLASS(QMarkNetPrinciple_Sked_Twin, QMarkNetPrinciple_Sked)
SKED_CATEGORY_CLASS(QMarkNetPrinciple_Sked_Site, QMarkNetPrinciple_Sked)
SKED_CATEGORY_ITEMS(QMarkNetPrinciple_Sked_Site, QRatingItem_Sked_Site)

QMarkNetPrinciple_Sked::QMarkNetPrinciple_Sked(QObject* parent)
    : QMarkNetPrinciple(parent), m_startEndText(CategoryText::startEndDefault()) {
    m_categoryType = CategoryNetPrinciple;
}
QMarkNetPrinciple_Sked::~QMarkNetPrinciple_Sked() = default;
QString QMarkNetPrinciple_Sked::GetClassName() {
    return SkedCategory::className(staticMetaObject);
}

void QMarkNetPrinciple_Sked::installRoot(QRatingItemVirtual* root) {
    SkedCategory::nameRoot(root, CategoryText::principleRoot(), SkedPrincipleRoot);
    setRootItem(root);
}

void QMarkNetPrinciple_Sked::SetMarkBeginEndOnlyDot(const QString& text) {
    m_startEndText = text;
}
void QMarkNetPrinciple_Sked::SetMarkBeginEndOnlyDot(const bool& single) {
    m_singleStartEnd = single;
}
bool QMarkNetPrinciple_Sked::GetMarkBeginEndOnlyDot() {
    return m_singleStartEnd;
}
void QMarkNetPrinciple_Sked::SetMarkNetLineBreak(const QString& text) {
    m_lineBreakText = text;
}
void QMarkNetPrinciple_Sked::SetMarkNetLineBreak(const bool& broken) {
    m_lineBreak = broken;
}

void QMarkNetPrinciple_Sked::SetMarkSurplusVirJob(const bool& found, const QString& nodes) {
    m_surplusDummyText.clear();
    m_surplusDummy = found;
    if (found)
        m_surplusDummyText = CategoryText::surplusDummyNodesFormat().arg(nodes);
}

void QMarkNetPrinciple_Sked::InitMarkCategory(QMarkCategoryVirtual* other) {
    const QMarkNetPrinciple_Sked* source = qobject_cast<QMarkNetPrinciple_Sked*>(other);
    if (!source)
        return;
    m_singleStartEnd = source->m_singleStartEnd;
    m_startEndText = source->m_startEndText;
    m_surplusDummy = source->m_surplusDummy;
    m_surplusDummyText = source->m_surplusDummyText;
    m_lineBreak = source->m_lineBreak;
    m_lineBreakText = source->m_lineBreakText;
}

void QMarkNetPrinciple_Sked::UpdateCategory(void* data, const bool& flag) {
    if (!SkedCategory::beginBuild(m_created, m_projectData, data, data && rootItem()))
        return;
    QRatingItemVirtual* root = rootItem();
    using SkedCategory::addFixedNode;
    using SkedCategory::textValue;
    const QString nodes =
        !flag || m_singleStartEnd ? CategoryText::singleStartEnd() : CategoryText::notSingleStartEnd();
    const QString lines = flag && m_lineBreak ? CategoryText::brokenLine() : CategoryText::noBrokenLine();
    const QString dummy =
        flag && m_surplusDummy ? CategoryText::surplusDummyFound() : CategoryText::noSurplusDummy();
    if (!addFixedNode(CreateRatingItem(nullptr), root, CategoryText::nodeCount(), textValue(nodes),
                      SkedNodeCount, m_startEndText, true) ||
        !addFixedNode(CreateRatingItem(nullptr), root, CategoryText::lineIntegrity(), textValue(lines),
                      SkedLineIntegrity, m_lineBreakText) ||
        !addFixedNode(CreateRatingItem(nullptr), root, CategoryText::surplusDummy(), textValue(dummy),
                      SkedSurplusDummy, m_surplusDummyText))
        return;
    m_created = true;
}
