// The virtual-table layout that hosts compile against: every class's virtual operations must sit in
// the slots of the host contract, in order and without gaps. Pointers to virtual members carry their
// slot in the Itanium C++ ABI (1 + byte offset in the virtual table), which is what is checked here.
#include "markrule.h"

#include <QtTest>

#include <cstring>

namespace {

// QObject's own virtual operations take slots 0 to 11 (its destructor two of them).
constexpr int kFirstSlot = 12;

// The slot of a virtual member, -1 for a non-virtual one.
template <class Member> int slotOf(Member member) {
    static_assert(sizeof(Member) == 2 * sizeof(quintptr), "Itanium member-function pointer expected");
    quintptr raw[2];
    std::memcpy(raw, &member, sizeof raw);
    return (raw[0] & 1) ? int((raw[0] - 1) / sizeof(void*)) : -1;
}

// Picks one overload of a member function by its signature.
template <class Signature, class Class> auto pick(Signature Class::*member) {
    return member;
}

// The members must occupy the slots first, first + 1, ... in the order given.
template <class... Members> void checkSlots(int first, Members... members) {
    QList<int> expected;
    for (int i = 0; i < int(sizeof...(members)); ++i)
        expected.append(first + i);
    QCOMPARE(QList<int>{slotOf(members)...}, expected);
}

} // namespace

class TstSlotLayout : public QObject {
    Q_OBJECT
private slots:
    void ratingItemInterface() {
        using C = QRatingItemVirtual;
        checkSlots(
            kFirstSlot, &C::GetRatingItemName, &C::GetRatingItemUnit, &C::GetRatingItemValue,
            &C::GetRatingItemValueStd, &C::GetRatingItemScore, &C::GetRatingItemScoreStd,
            &C::GetRatingItemUnitProject, &C::GetRatingItemOffset, &C::GetRatingItemLevel,
            &C::GetRatingItemList, &C::AddRatingItem, &C::SetRatingItemLock, &C::GetRatingItemLock,
            &C::GetRatingItemByIndex, &C::GetRatingItemNumber, &C::GetRatingItemRemark,
            &C::SetRatingItemScoreStd, &C::SetRatingItemScore, &C::GetCalculateData, &C::SetCalculateData,
            pick<void(QJsonObject&, const bool&)>(&C::DoSerialize),
            pick<void(QDataStream&, const bool&)>(&C::DoSerialize), &C::ExecuteDBScore, &C::SetRatingItemName,
            &C::SetRatingItemUnit, pick<void(QMultiMap<QString, int>&, int**, int&)>(&C::SetRatingItemValue),
            pick<void(const QString&, const QString&, const bool&)>(&C::SetRatingItemValue),
            pick<void(const int&)>(&C::SetRatingItemValue), pick<void(const double&)>(&C::SetRatingItemValue),
            pick<void(const QString&, const bool&)>(&C::SetRatingItemValue), &C::SetRatingItemRemark,
            &C::SetAttributeType, &C::GetAttributeType, &C::SetRatingItemAttribute,
            &C::GetRatingItemAttribute, &C::SetRatingItemLevel, &C::ClearRatingItemData,
            &C::GetRatingItemEditable, &C::SetRatingItemEditable,
            pick<QString(const QString&)>(&C::TransformTextToName),
            pick<void(QStringList&)>(&C::TransformTextToName),
            pick<void(const QStringList&)>(&C::UpdateUniqueValue),
            pick<void(const QString&)>(&C::UpdateUniqueValue), &C::SetValueIdentical, &C::GetRatingItemLogic,
            &C::RedistributeScore, &C::AssignScore, &C::SetRatingItemUnitProject, &C::SetRatingItemCode,
            &C::SetRatingItemFeature, &C::SetRatingItemQuantity, &C::SetRatingItemRate,
            &C::SetRatingItemPrecision, &C::SetRatingItemRatio, &C::SetRatingItemLimit,
            &C::GetRatingItemRatio, &C::GetRatingItemUpperLimit, &C::GetRatingItemLowerLimit,
            pick<QString(const QString&)>(&C::GetRatingItemCode), pick<QString()>(&C::GetRatingItemCode),
            &C::GetRatingItemAmount, &C::GetRatingItemFeature, &C::GetRatingItemQuantity,
            &C::IsRatingItemExist, &C::GetRatingItemIndex, &C::GetChildItemCount, &C::SetRatingItemUpperLimit,
            &C::SetRatingItemLowerLimit, &C::ClearLastRatingData, &C::HasChildRatingItem,
            &C::GetRatingItemColor, &C::CreateRatingItem, &C::SetRatingItemIndexRule,
            &C::SetRatingItemScoreRule, &C::GetRatingItemTypeList, &C::GetRatingItemScoreRate,
            &C::DoSerializeItem);
    }
    void baseAndGeneralItemAppend() {
        using C = QRatingItem_General;
        checkSlots(kFirstSlot + 77, &C::GetClassName,
                   pick<void(QList<void*>&)>(&QRatingItemBase::ClearRatingItemData), &C::EliminateLockItem,
                   &C::SetRatingItemStatus, &C::ScoreChildRatingItems, &C::CalculateRatingItemScore,
                   &C::IsSurplusIgnored, &C::SkipRatingItemMatch, &C::MatchChildRatingItems,
                   &C::HandleSurplusRatingItems, pick<void(QDataStream&, const bool&)>(&C::DoSerializeExtra),
                   pick<void(QJsonObject&, const bool&)>(&C::DoSerializeExtra));
    }
    void categoryInterface() {
        using C = QMarkCategoryVirtual;
        checkSlots(kFirstSlot, &C::ClearRatingItemData, &C::UpdateCategory,
                   pick<void(QJsonObject&, const bool&)>(&C::DoSerialize),
                   pick<void(QDataStream&, const bool&)>(&C::DoSerialize), &C::GetRatingItemPtr,
                   &C::AssignScore, &C::ExecuteDBScore, &C::ClearMarkCategory, &C::SetMarkGanttTime,
                   &C::SetMarkGanttChart, &C::SetMarkPerScreen, &C::AddMarkCategory, &C::GetMarkCurveName,
                   &C::SetMarkCurveName, &C::SetMarkCurveCustomType, &C::InitMarkCategory,
                   &C::SetMarkTotalTime, &C::SetMarkCurveVariance, &C::InitMarkCategoryItem,
                   &C::UpdateCategoryItem, pick<void(const QString&)>(&C::SetMarkBeginEndOnlyDot),
                   pick<void(const bool&)>(&C::SetMarkBeginEndOnlyDot), &C::SetMarkSurplusVirJob,
                   pick<void(const QString&)>(&C::SetMarkNetLineBreak),
                   pick<void(const bool&)>(&C::SetMarkNetLineBreak), &C::GetLogicList, &C::SetLogicList,
                   &C::SetLogicMatrix, &C::GetMarkBeginEndOnlyDot, &C::AddResCurveRecord,
                   &C::IsCustomResCurve, &C::GetResCurveTotalTime, &C::GetJxResUsedCount);
    }
    void resourceInterface() {
        using C = QResourceVirtual;
        checkSlots(kFirstSlot, &C::GetResourceFactor, &C::GetResPlanTotal, &C::GetResourceName,
                   &C::GetResourceCode, &C::SetResourceCode, &C::SetResourceName, &C::SetResPlanTotal,
                   &C::SetResPlanStrength, &C::SetResourceReal, &C::SetResourcePrice, &C::SetResourceUnit,
                   &C::GetGeneralName, &C::GetProjectCode, &C::GetProjectName, &C::GetGxColor,
                   pick<QString(const QString&)>(&C::TransformTextToName),
                   pick<QStringList(const QStringList&)>(&C::TransformTextToName));
    }
    void resourceBaseAppends() {
        using C = QResourceBase;
        checkSlots(kFirstSlot + 17, &C::GetClassName, &C::SetFactor, &C::SetPrice, &C::SetUnit,
                   &C::SetResource, &C::SetGeneralName, &C::SetCurveName, &C::SetProjectCode,
                   &C::SetProjectName, &C::SetGxColor);
    }
    void sceneInterface() {
        using C = QSceneVirtual;
        checkSlots(kFirstSlot, &C::InitSceneInfo, &C::GetRLResource, &C::GetElementTypeList,
                   &C::GetRLResourceFactor, &C::GetAllCurveResource, &C::GetSceneType, &C::GetResourceType,
                   &C::GetRLResourceNameById, &C::GetElementLogic, &C::TransformElementToComp,
                   &C::CombineElementToComp, &C::GetResourceTypeById);
    }
    void elementTypeInterface() {
        using C = QClassifyVirtual;
        checkSlots(kFirstSlot, &C::AddElementItem, &C::CreateElementItem, &C::SetElementKind,
                   &C::SetElementScene, &C::SetPrevName, &C::SetNextName, &C::SetElementName);
    }
    void elementItemContract() {
        using C = QClassifyItemVirtual;
        checkSlots(kFirstSlot, &C::SetItemName, &C::SetItemIndex, &C::SetItemScene, &C::SetItemValue);
    }
    void projectDataContract() {
        using C = QProjectDataVirtual;
        checkSlots(kFirstSlot, &C::GetLogicTexts, &C::CreateElementType, &C::GetResourceList,
                   &C::GetWorkItemList, &C::GetWorkItemNameList, &C::SetWorkItemNameList,
                   &C::GetWorkItemsByName, &C::GetTotalDays);
    }
    void workItemContract() {
        using C = QWorkItemVirtual;
        checkSlots(kFirstSlot, &C::GetQuantityCode, &C::GetQuantityName, &C::GetWorkItemName, &C::GetUnit,
                   &C::GetPlannedQuantity, &C::GetDuration, &C::GetColor, &C::GetLineWidth,
                   &C::GetLabourIntensity, &C::GetMaterialTotal, &C::IsFixedDuration);
    }

    // Short additions, and overrides in scene classes that must not add slots.
    void singleSlots() {
        QCOMPARE(slotOf(&QObject::metaObject), 0);
        QCOMPARE(slotOf(&QObject::eventFilter), 6);
        checkSlots(kFirstSlot + 33, &QMarkCategoryBase::CreateRatingItem, &QMarkCategoryBase::GetClassName);
        QCOMPARE(slotOf(&QSceneBase::GetClassName), kFirstSlot + 12);
        QCOMPARE(slotOf(&QMarkAttribute_Sked::FillWorkItemAttributes), kFirstSlot + 35);
        QCOMPARE(slotOf(&QMarkLogical_Sked::ClearLogicData), kFirstSlot + 35);
        checkSlots(kFirstSlot + 35, &QMarkResCurve_Sked::BuildCurveItemsStd,
                   &QMarkResCurve_Sked::BuildCurveItems);
        QCOMPARE(slotOf(&QMarkAttribute_Sked_Site::FillWorkItemAttributes), kFirstSlot + 35);
        QCOMPARE(slotOf(&QMarkResCurve_Sked_Site::BuildCurveItems), kFirstSlot + 36);
        QCOMPARE(slotOf(&QMarkNetRationality_Sked_Site::UpdateCategoryItem), kFirstSlot + 19);
        QCOMPARE(slotOf(&QMarkIntegrity_Sked_Site::GetClassName), kFirstSlot + 34);
        QCOMPARE(slotOf(&QRatingItem_Sked_Site::HandleSurplusRatingItems), kFirstSlot + 86);
    }
};

QTEST_GUILESS_MAIN(TstSlotLayout)
#include "tst_slotlayout.moc"
