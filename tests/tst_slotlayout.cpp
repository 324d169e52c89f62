// The virtual-table layout that hosts compile against: every class's virtual operations must sit in
// the slots of the host contract, in order and without gaps. Pointers to virtual members carry their
// slot in the Itanium C++ ABI (1 + byte offset in the virtual table), which is what is checked here.
#include "markrule.h"

#include <QtTest>

#include <cstring>

namespace {

// QObject's own virtual operations take slots 0 to 11: metaObject, qt_metacast, qt_metacall, the two
// destructor entries, event, eventFilter, timerEvent, childEvent, customEvent, connectNotify and
// disconnectNotify.
constexpr int kFirstSlot = 12;

template <class Member> int slotOf(Member member) {
    static_assert(sizeof(Member) == 2 * sizeof(quintptr), "Itanium member-function pointer expected");
    quintptr raw[2];
    std::memcpy(raw, &member, sizeof raw);
    if ((raw[0] & 1) == 0)
        return -1; // not a virtual function
    return int((raw[0] - 1) / sizeof(void*));
}

void checkConsecutive(const QList<int>& slotList, int first) {
    for (int i = 0; i < slotList.size(); ++i)
        QVERIFY2(slotList.at(i) == first + i,
                 qPrintable(QStringLiteral("operation %1 sits in slot %2, expected %3")
                                .arg(i + 1)
                                .arg(slotList.at(i))
                                .arg(first + i)));
}

} // namespace

class TstSlotLayout : public QObject {
    Q_OBJECT
private slots:
    void qobjectEndsAtSlotEleven() {
        QCOMPARE(slotOf(&QObject::metaObject), 0);
        QCOMPARE(slotOf(&QObject::eventFilter), 6);
    }

    void ratingItemInterface() {
        // the 77 operations, right after QObject's own
        checkConsecutive(
            {
                slotOf(
                    static_cast<QString (QRatingItemVirtual::*)()>(&QRatingItemVirtual::GetRatingItemName)),
                slotOf(
                    static_cast<QString (QRatingItemVirtual::*)()>(&QRatingItemVirtual::GetRatingItemUnit)),
                slotOf(
                    static_cast<QString (QRatingItemVirtual::*)()>(&QRatingItemVirtual::GetRatingItemValue)),
                slotOf(static_cast<QString (QRatingItemVirtual::*)()>(
                    &QRatingItemVirtual::GetRatingItemValueStd)),
                slotOf(
                    static_cast<double (QRatingItemVirtual::*)()>(&QRatingItemVirtual::GetRatingItemScore)),
                slotOf(static_cast<double (QRatingItemVirtual::*)()>(
                    &QRatingItemVirtual::GetRatingItemScoreStd)),
                slotOf(static_cast<bool (QRatingItemVirtual::*)()>(
                    &QRatingItemVirtual::GetRatingItemUnitProject)),
                slotOf(
                    static_cast<double (QRatingItemVirtual::*)()>(&QRatingItemVirtual::GetRatingItemOffset)),
                slotOf(static_cast<int (QRatingItemVirtual::*)()>(&QRatingItemVirtual::GetRatingItemLevel)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(QList<void*>&)>(
                    &QRatingItemVirtual::GetRatingItemList)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(void*, const bool&)>(
                    &QRatingItemVirtual::AddRatingItem)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const bool&)>(
                    &QRatingItemVirtual::SetRatingItemLock)),
                slotOf(static_cast<bool (QRatingItemVirtual::*)()>(&QRatingItemVirtual::GetRatingItemLock)),
                slotOf(static_cast<void* (QRatingItemVirtual::*)(const QString&)>(
                    &QRatingItemVirtual::GetRatingItemByIndex)),
                slotOf(static_cast<QString (QRatingItemVirtual::*)(const int&)>(
                    &QRatingItemVirtual::GetRatingItemNumber)),
                slotOf(
                    static_cast<QString (QRatingItemVirtual::*)()>(&QRatingItemVirtual::GetRatingItemRemark)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const double&)>(
                    &QRatingItemVirtual::SetRatingItemScoreStd)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const double&)>(
                    &QRatingItemVirtual::SetRatingItemScore)),
                slotOf(
                    static_cast<void (QRatingItemVirtual::*)(void*)>(&QRatingItemVirtual::GetCalculateData)),
                slotOf(
                    static_cast<void (QRatingItemVirtual::*)(void*)>(&QRatingItemVirtual::SetCalculateData)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(QJsonObject&, const bool&)>(
                    &QRatingItemVirtual::DoSerialize)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(QDataStream&, const bool&)>(
                    &QRatingItemVirtual::DoSerialize)),
                slotOf(static_cast<double (QRatingItemVirtual::*)(void*, const int&)>(
                    &QRatingItemVirtual::ExecuteDBScore)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const QString&)>(
                    &QRatingItemVirtual::SetRatingItemName)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const QString&)>(
                    &QRatingItemVirtual::SetRatingItemUnit)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(QMultiMap<QString, int>&, int**, int&)>(
                    &QRatingItemVirtual::SetRatingItemValue)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const QString&, const QString&, const bool&)>(
                    &QRatingItemVirtual::SetRatingItemValue)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const int&)>(
                    &QRatingItemVirtual::SetRatingItemValue)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const double&)>(
                    &QRatingItemVirtual::SetRatingItemValue)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const QString&, const bool&)>(
                    &QRatingItemVirtual::SetRatingItemValue)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const QString&)>(
                    &QRatingItemVirtual::SetRatingItemRemark)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const int&)>(
                    &QRatingItemVirtual::SetAttributeType)),
                slotOf(static_cast<int (QRatingItemVirtual::*)()>(&QRatingItemVirtual::GetAttributeType)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const QVariant&)>(
                    &QRatingItemVirtual::SetRatingItemAttribute)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(QVariant&)>(
                    &QRatingItemVirtual::GetRatingItemAttribute)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const int&)>(
                    &QRatingItemVirtual::SetRatingItemLevel)),
                slotOf(static_cast<void (QRatingItemVirtual::*)()>(&QRatingItemVirtual::ClearRatingItemData)),
                slotOf(
                    static_cast<bool (QRatingItemVirtual::*)()>(&QRatingItemVirtual::GetRatingItemEditable)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const bool&)>(
                    &QRatingItemVirtual::SetRatingItemEditable)),
                slotOf(static_cast<QString (QRatingItemVirtual::*)(const QString&)>(
                    &QRatingItemVirtual::TransformTextToName)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(QStringList&)>(
                    &QRatingItemVirtual::TransformTextToName)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const QStringList&)>(
                    &QRatingItemVirtual::UpdateUniqueValue)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const QString&)>(
                    &QRatingItemVirtual::UpdateUniqueValue)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const bool&)>(
                    &QRatingItemVirtual::SetValueIdentical)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(QStringList&)>(
                    &QRatingItemVirtual::GetRatingItemLogic)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const double&)>(
                    &QRatingItemVirtual::RedistributeScore)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const double&)>(
                    &QRatingItemVirtual::AssignScore)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const bool&)>(
                    &QRatingItemVirtual::SetRatingItemUnitProject)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const QString&)>(
                    &QRatingItemVirtual::SetRatingItemCode)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const QString&)>(
                    &QRatingItemVirtual::SetRatingItemFeature)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const double&)>(
                    &QRatingItemVirtual::SetRatingItemQuantity)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const double&)>(
                    &QRatingItemVirtual::SetRatingItemRate)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const int&)>(
                    &QRatingItemVirtual::SetRatingItemPrecision)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const double&)>(
                    &QRatingItemVirtual::SetRatingItemRatio)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const double&, const double&)>(
                    &QRatingItemVirtual::SetRatingItemLimit)),
                slotOf(
                    static_cast<double (QRatingItemVirtual::*)()>(&QRatingItemVirtual::GetRatingItemRatio)),
                slotOf(static_cast<double (QRatingItemVirtual::*)()>(
                    &QRatingItemVirtual::GetRatingItemUpperLimit)),
                slotOf(static_cast<double (QRatingItemVirtual::*)()>(
                    &QRatingItemVirtual::GetRatingItemLowerLimit)),
                slotOf(static_cast<QString (QRatingItemVirtual::*)(const QString&)>(
                    &QRatingItemVirtual::GetRatingItemCode)),
                slotOf(
                    static_cast<QString (QRatingItemVirtual::*)()>(&QRatingItemVirtual::GetRatingItemCode)),
                slotOf(
                    static_cast<double (QRatingItemVirtual::*)()>(&QRatingItemVirtual::GetRatingItemAmount)),
                slotOf(static_cast<QString (QRatingItemVirtual::*)()>(
                    &QRatingItemVirtual::GetRatingItemFeature)),
                slotOf(static_cast<double (QRatingItemVirtual::*)()>(
                    &QRatingItemVirtual::GetRatingItemQuantity)),
                slotOf(static_cast<bool (QRatingItemVirtual::*)(const QString&)>(
                    &QRatingItemVirtual::IsRatingItemExist)),
                slotOf(
                    static_cast<QString (QRatingItemVirtual::*)()>(&QRatingItemVirtual::GetRatingItemIndex)),
                slotOf(static_cast<int (QRatingItemVirtual::*)()>(&QRatingItemVirtual::GetChildItemCount)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const double&, const bool&)>(
                    &QRatingItemVirtual::SetRatingItemUpperLimit)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const double&, const bool&)>(
                    &QRatingItemVirtual::SetRatingItemLowerLimit)),
                slotOf(static_cast<void (QRatingItemVirtual::*)()>(&QRatingItemVirtual::ClearLastRatingData)),
                slotOf(static_cast<bool (QRatingItemVirtual::*)()>(&QRatingItemVirtual::HasChildRatingItem)),
                slotOf(static_cast<int (QRatingItemVirtual::*)()>(&QRatingItemVirtual::GetRatingItemColor)),
                slotOf(static_cast<void* (QRatingItemVirtual::*)(QObject*)>(
                    &QRatingItemVirtual::CreateRatingItem)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const int&)>(
                    &QRatingItemVirtual::SetRatingItemIndexRule)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(const int&)>(
                    &QRatingItemVirtual::SetRatingItemScoreRule)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(QList<int>&)>(
                    &QRatingItemVirtual::GetRatingItemTypeList)),
                slotOf(static_cast<double (QRatingItemVirtual::*)(const int&)>(
                    &QRatingItemVirtual::GetRatingItemScoreRate)),
                slotOf(static_cast<void (QRatingItemVirtual::*)(QJsonObject&, const bool&)>(
                    &QRatingItemVirtual::DoSerializeItem)),
            },
            kFirstSlot);
    }
    void ratingItemBaseAppends() {
        // three operations after the interface
        checkConsecutive(
            {
                slotOf(static_cast<QString (QRatingItemBase::*)()>(&QRatingItemBase::GetClassName)),
                slotOf(static_cast<void (QRatingItemBase::*)(QList<void*>&)>(
                    &QRatingItemBase::ClearRatingItemData)),
                slotOf(static_cast<int (QRatingItemBase::*)(double&)>(&QRatingItemBase::EliminateLockItem)),
            },
            kFirstSlot + 77);
    }
    void generalItemAppends() {
        // nine operations after the base's
        checkConsecutive(
            {
                slotOf(static_cast<void (QRatingItem_General::*)(const int&, void*)>(
                    &QRatingItem_General::SetRatingItemStatus)),
                slotOf(static_cast<void (QRatingItem_General::*)(const int&, void*)>(
                    &QRatingItem_General::ScoreChildRatingItems)),
                slotOf(static_cast<double (QRatingItem_General::*)(void*)>(
                    &QRatingItem_General::CalculateRatingItemScore)),
                slotOf(static_cast<bool (QRatingItem_General::*)()>(&QRatingItem_General::IsSurplusIgnored)),
                slotOf(static_cast<bool (QRatingItem_General::*)(QList<void*>&, const bool&)>(
                    &QRatingItem_General::SkipRatingItemMatch)),
                slotOf(static_cast<void (QRatingItem_General::*)(const int&, QMultiMap<QString, void*>&,
                                                                 QList<void*>&)>(
                    &QRatingItem_General::MatchChildRatingItems)),
                slotOf(static_cast<void (QRatingItem_General::*)(QMultiMap<QString, void*>&, QList<void*>&)>(
                    &QRatingItem_General::HandleSurplusRatingItems)),
                slotOf(static_cast<void (QRatingItem_General::*)(QDataStream&, const bool&)>(
                    &QRatingItem_General::DoSerializeExtra)),
                slotOf(static_cast<void (QRatingItem_General::*)(QJsonObject&, const bool&)>(
                    &QRatingItem_General::DoSerializeExtra)),
            },
            kFirstSlot + 80);
    }
    void categoryInterface() {
        // the 33 operations
        checkConsecutive(
            {
                slotOf(static_cast<void (QMarkCategoryVirtual::*)()>(
                    &QMarkCategoryVirtual::ClearRatingItemData)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(void*, const bool&)>(
                    &QMarkCategoryVirtual::UpdateCategory)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(QJsonObject&, const bool&)>(
                    &QMarkCategoryVirtual::DoSerialize)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(QDataStream&, const bool&)>(
                    &QMarkCategoryVirtual::DoSerialize)),
                slotOf(
                    static_cast<void* (QMarkCategoryVirtual::*)()>(&QMarkCategoryVirtual::GetRatingItemPtr)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(const double&)>(
                    &QMarkCategoryVirtual::AssignScore)),
                slotOf(static_cast<double (QMarkCategoryVirtual::*)(QMarkCategoryVirtual*)>(
                    &QMarkCategoryVirtual::ExecuteDBScore)),
                slotOf(
                    static_cast<void (QMarkCategoryVirtual::*)()>(&QMarkCategoryVirtual::ClearMarkCategory)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(const QString&)>(
                    &QMarkCategoryVirtual::SetMarkGanttTime)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(const QString&)>(
                    &QMarkCategoryVirtual::SetMarkGanttChart)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(const int&)>(
                    &QMarkCategoryVirtual::SetMarkPerScreen)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(QMarkCategoryVirtual*)>(
                    &QMarkCategoryVirtual::AddMarkCategory)),
                slotOf(static_cast<QString (QMarkCategoryVirtual::*)()>(
                    &QMarkCategoryVirtual::GetMarkCurveName)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(const QString&)>(
                    &QMarkCategoryVirtual::SetMarkCurveName)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(const bool&)>(
                    &QMarkCategoryVirtual::SetMarkCurveCustomType)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(QMarkCategoryVirtual*)>(
                    &QMarkCategoryVirtual::InitMarkCategory)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(const int&)>(
                    &QMarkCategoryVirtual::SetMarkTotalTime)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(const QMap<int, double>&)>(
                    &QMarkCategoryVirtual::SetMarkCurveVariance)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)()>(
                    &QMarkCategoryVirtual::InitMarkCategoryItem)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(const bool&)>(
                    &QMarkCategoryVirtual::UpdateCategoryItem)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(const QString&)>(
                    &QMarkCategoryVirtual::SetMarkBeginEndOnlyDot)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(const bool&)>(
                    &QMarkCategoryVirtual::SetMarkBeginEndOnlyDot)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(const bool&, const QString&)>(
                    &QMarkCategoryVirtual::SetMarkSurplusVirJob)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(const QString&)>(
                    &QMarkCategoryVirtual::SetMarkNetLineBreak)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(const bool&)>(
                    &QMarkCategoryVirtual::SetMarkNetLineBreak)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(QStringList&)>(
                    &QMarkCategoryVirtual::GetLogicList)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(const QStringList&)>(
                    &QMarkCategoryVirtual::SetLogicList)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(QMultiMap<QString, int>&, int**, int&)>(
                    &QMarkCategoryVirtual::SetLogicMatrix)),
                slotOf(static_cast<bool (QMarkCategoryVirtual::*)()>(
                    &QMarkCategoryVirtual::GetMarkBeginEndOnlyDot)),
                slotOf(static_cast<void (QMarkCategoryVirtual::*)(void*)>(
                    &QMarkCategoryVirtual::AddResCurveRecord)),
                slotOf(
                    static_cast<bool (QMarkCategoryVirtual::*)()>(&QMarkCategoryVirtual::IsCustomResCurve)),
                slotOf(static_cast<int (QMarkCategoryVirtual::*)(int&, int&)>(
                    &QMarkCategoryVirtual::GetResCurveTotalTime)),
                slotOf(
                    static_cast<int (QMarkCategoryVirtual::*)()>(&QMarkCategoryVirtual::GetJxResUsedCount)),
            },
            kFirstSlot);
    }
    void categoryBaseAppends() {
        // two operations after the interface
        checkConsecutive(
            {
                slotOf(static_cast<void* (QMarkCategoryBase::*)(QObject*)>(
                    &QMarkCategoryBase::CreateRatingItem)),
                slotOf(static_cast<QString (QMarkCategoryBase::*)()>(&QMarkCategoryBase::GetClassName)),
            },
            kFirstSlot + 33);
    }
    void scheduleCategoryAppends() {
        // operations of their own, after the base's GetClassName
        checkConsecutive({slotOf(static_cast<void (QMarkAttribute_Sked::*)(void*, void*)>(
                             &QMarkAttribute_Sked::FillWorkItemAttributes))},
                         kFirstSlot + 35);
        checkConsecutive(
            {slotOf(static_cast<void (QMarkLogical_Sked::*)()>(&QMarkLogical_Sked::ClearLogicData))},
            kFirstSlot + 35);
        checkConsecutive(
            {
                slotOf(static_cast<void (QMarkResCurve_Sked::*)(QList<QResourceVirtual*>&)>(
                    &QMarkResCurve_Sked::BuildCurveItemsStd)),
                slotOf(static_cast<void (QMarkResCurve_Sked::*)(QList<QResourceVirtual*>&)>(
                    &QMarkResCurve_Sked::BuildCurveItems)),
            },
            kFirstSlot + 35);
        // scene classes override but add nothing
        QCOMPARE(slotOf(&QMarkAttribute_Sked_Site::FillWorkItemAttributes), kFirstSlot + 35);
        QCOMPARE(slotOf(&QMarkResCurve_Sked_Site::BuildCurveItems), kFirstSlot + 36);
        QCOMPARE(slotOf(&QMarkNetRationality_Sked_Site::UpdateCategoryItem), kFirstSlot + 19);
        QCOMPARE(slotOf(&QMarkIntegrity_Sked_Site::GetClassName), kFirstSlot + 34);
    }
    void resourceInterface() {
        // the 17 operations
        checkConsecutive(
            {
                slotOf(static_cast<int (QResourceVirtual::*)()>(&QResourceVirtual::GetResourceFactor)),
                slotOf(static_cast<int (QResourceVirtual::*)()>(&QResourceVirtual::GetResPlanTotal)),
                slotOf(static_cast<QString (QResourceVirtual::*)()>(&QResourceVirtual::GetResourceName)),
                slotOf(static_cast<QString (QResourceVirtual::*)()>(&QResourceVirtual::GetResourceCode)),
                slotOf(static_cast<void (QResourceVirtual::*)(const QString&)>(
                    &QResourceVirtual::SetResourceCode)),
                slotOf(static_cast<void (QResourceVirtual::*)(const QString&)>(
                    &QResourceVirtual::SetResourceName)),
                slotOf(
                    static_cast<void (QResourceVirtual::*)(const int&)>(&QResourceVirtual::SetResPlanTotal)),
                slotOf(static_cast<void (QResourceVirtual::*)(const double&)>(
                    &QResourceVirtual::SetResPlanStrength)),
                slotOf(
                    static_cast<void (QResourceVirtual::*)(const int&)>(&QResourceVirtual::SetResourceReal)),
                slotOf(
                    static_cast<void (QResourceVirtual::*)(const int&)>(&QResourceVirtual::SetResourcePrice)),
                slotOf(static_cast<void (QResourceVirtual::*)(const QString&)>(
                    &QResourceVirtual::SetResourceUnit)),
                slotOf(static_cast<QString (QResourceVirtual::*)()>(&QResourceVirtual::GetGeneralName)),
                slotOf(static_cast<QString (QResourceVirtual::*)()>(&QResourceVirtual::GetProjectCode)),
                slotOf(static_cast<QString (QResourceVirtual::*)()>(&QResourceVirtual::GetProjectName)),
                slotOf(static_cast<QString (QResourceVirtual::*)()>(&QResourceVirtual::GetGxColor)),
                slotOf(static_cast<QString (QResourceVirtual::*)(const QString&)>(
                    &QResourceVirtual::TransformTextToName)),
                slotOf(static_cast<QStringList (QResourceVirtual::*)(const QStringList&)>(
                    &QResourceVirtual::TransformTextToName)),
            },
            kFirstSlot);
    }
    void resourceBaseAppends() {
        // the class name, then nine setters
        checkConsecutive(
            {
                slotOf(static_cast<QString (QResourceBase::*)()>(&QResourceBase::GetClassName)),
                slotOf(static_cast<void (QResourceBase::*)(const int&)>(&QResourceBase::SetFactor)),
                slotOf(static_cast<void (QResourceBase::*)(const int&)>(&QResourceBase::SetPrice)),
                slotOf(static_cast<void (QResourceBase::*)(const QString&)>(&QResourceBase::SetUnit)),
                slotOf(static_cast<void (QResourceBase::*)(QResourceBase*)>(&QResourceBase::SetResource)),
                slotOf(static_cast<void (QResourceBase::*)(const QString&)>(&QResourceBase::SetGeneralName)),
                slotOf(static_cast<void (QResourceBase::*)(const QString&)>(&QResourceBase::SetCurveName)),
                slotOf(static_cast<void (QResourceBase::*)(const QString&)>(&QResourceBase::SetProjectCode)),
                slotOf(static_cast<void (QResourceBase::*)(const QString&)>(&QResourceBase::SetProjectName)),
                slotOf(static_cast<void (QResourceBase::*)(const QString&)>(&QResourceBase::SetGxColor)),
            },
            kFirstSlot + 17);
    }
    void sceneInterface() {
        // the 12 operations
        checkConsecutive(
            {
                slotOf(static_cast<void (QSceneVirtual::*)(void*)>(&QSceneVirtual::InitSceneInfo)),
                slotOf(static_cast<void* (QSceneVirtual::*)(const QString&)>(&QSceneVirtual::GetRLResource)),
                slotOf(static_cast<void (QSceneVirtual::*)(QList<QClassifyVirtual*>&)>(
                    &QSceneVirtual::GetElementTypeList)),
                slotOf(
                    static_cast<int (QSceneVirtual::*)(const QString&)>(&QSceneVirtual::GetRLResourceFactor)),
                slotOf(static_cast<void (QSceneVirtual::*)(QList<QResourceVirtual*>&)>(
                    &QSceneVirtual::GetAllCurveResource)),
                slotOf(static_cast<int (QSceneVirtual::*)()>(&QSceneVirtual::GetSceneType)),
                slotOf(static_cast<int (QSceneVirtual::*)(const QString&)>(&QSceneVirtual::GetResourceType)),
                slotOf(static_cast<QString (QSceneVirtual::*)(const QString&)>(
                    &QSceneVirtual::GetRLResourceNameById)),
                slotOf(static_cast<QString (QSceneVirtual::*)(const QString&, const QString&)>(
                    &QSceneVirtual::GetElementLogic)),
                slotOf(static_cast<QString (QSceneVirtual::*)(const QString&)>(
                    &QSceneVirtual::TransformElementToComp)),
                slotOf(static_cast<void (QSceneVirtual::*)(const QString&, QMap<QString, QSet<QString>>&)>(
                    &QSceneVirtual::CombineElementToComp)),
                slotOf(
                    static_cast<int (QSceneVirtual::*)(const QString&)>(&QSceneVirtual::GetResourceTypeById)),
            },
            kFirstSlot);
    }
    void sceneBaseAppends() {
        // the class name
        checkConsecutive(
            {
                slotOf(static_cast<QString (QSceneBase::*)()>(&QSceneBase::GetClassName)),
            },
            kFirstSlot + 12);
    }
    void elementTypeInterface() {
        // the seven element-type operations
        checkConsecutive(
            {
                slotOf(static_cast<void (QClassifyVirtual::*)(QClassifyItemVirtual*)>(
                    &QClassifyVirtual::AddElementItem)),
                slotOf(static_cast<QClassifyItemVirtual* (QClassifyVirtual::*)(const int&)>(
                    &QClassifyVirtual::CreateElementItem)),
                slotOf(
                    static_cast<void (QClassifyVirtual::*)(const int&)>(&QClassifyVirtual::SetElementKind)),
                slotOf(static_cast<void (QClassifyVirtual::*)(QSceneVirtual*)>(
                    &QClassifyVirtual::SetElementScene)),
                slotOf(
                    static_cast<void (QClassifyVirtual::*)(const QString&)>(&QClassifyVirtual::SetPrevName)),
                slotOf(
                    static_cast<void (QClassifyVirtual::*)(const QString&)>(&QClassifyVirtual::SetNextName)),
                slotOf(static_cast<void (QClassifyVirtual::*)(const QString&)>(
                    &QClassifyVirtual::SetElementName)),
            },
            kFirstSlot);
    }
    void elementItemContract() {
        // the four item operations
        checkConsecutive(
            {
                slotOf(static_cast<void (QClassifyItemVirtual::*)(const QString&)>(
                    &QClassifyItemVirtual::SetItemName)),
                slotOf(static_cast<void (QClassifyItemVirtual::*)(const int&)>(
                    &QClassifyItemVirtual::SetItemIndex)),
                slotOf(static_cast<void (QClassifyItemVirtual::*)(QSceneVirtual*)>(
                    &QClassifyItemVirtual::SetItemScene)),
                slotOf(static_cast<void (QClassifyItemVirtual::*)(const double&)>(
                    &QClassifyItemVirtual::SetItemValue)),
            },
            kFirstSlot);
    }
    void projectDataContract() {
        // the eight project-data operations
        checkConsecutive(
            {
                slotOf(static_cast<void (QProjectDataVirtual::*)(QStringList&, QStringList&, QStringList&)>(
                    &QProjectDataVirtual::GetLogicTexts)),
                slotOf(static_cast<QClassifyVirtual* (QProjectDataVirtual::*)(const int&)>(
                    &QProjectDataVirtual::CreateElementType)),
                slotOf(static_cast<void (QProjectDataVirtual::*)(QList<QResourceVirtual*>&)>(
                    &QProjectDataVirtual::GetResourceList)),
                slotOf(static_cast<void (QProjectDataVirtual::*)(QList<void*>&)>(
                    &QProjectDataVirtual::GetWorkItemList)),
                slotOf(static_cast<void (QProjectDataVirtual::*)(QStringList&)>(
                    &QProjectDataVirtual::GetWorkItemNameList)),
                slotOf(static_cast<void (QProjectDataVirtual::*)(const QStringList&)>(
                    &QProjectDataVirtual::SetWorkItemNameList)),
                slotOf(static_cast<void (QProjectDataVirtual::*)(QMultiMap<QString, void*>&)>(
                    &QProjectDataVirtual::GetWorkItemsByName)),
                slotOf(static_cast<int (QProjectDataVirtual::*)()>(&QProjectDataVirtual::GetTotalDays)),
            },
            kFirstSlot);
    }
    void workItemContract() {
        // the eleven work-item operations
        checkConsecutive(
            {
                slotOf(static_cast<QString (QWorkItemVirtual::*)()>(&QWorkItemVirtual::GetQuantityCode)),
                slotOf(static_cast<QString (QWorkItemVirtual::*)()>(&QWorkItemVirtual::GetQuantityName)),
                slotOf(static_cast<QString (QWorkItemVirtual::*)()>(&QWorkItemVirtual::GetWorkItemName)),
                slotOf(static_cast<QString (QWorkItemVirtual::*)()>(&QWorkItemVirtual::GetUnit)),
                slotOf(static_cast<double (QWorkItemVirtual::*)()>(&QWorkItemVirtual::GetPlannedQuantity)),
                slotOf(static_cast<void (QWorkItemVirtual::*)(QString&)>(&QWorkItemVirtual::GetDuration)),
                slotOf(static_cast<QString (QWorkItemVirtual::*)()>(&QWorkItemVirtual::GetColor)),
                slotOf(static_cast<QString (QWorkItemVirtual::*)()>(&QWorkItemVirtual::GetLineWidth)),
                slotOf(static_cast<QString (QWorkItemVirtual::*)(QString&)>(
                    &QWorkItemVirtual::GetLabourIntensity)),
                slotOf(static_cast<double (QWorkItemVirtual::*)()>(&QWorkItemVirtual::GetMaterialTotal)),
                slotOf(static_cast<int (QWorkItemVirtual::*)()>(&QWorkItemVirtual::IsFixedDuration)),
            },
            kFirstSlot);
    }
};

QTEST_GUILESS_MAIN(TstSlotLayout)
#include "tst_slotlayout.moc"
