// MarkCore interface of a rating item (a criterion of a scoring tree). Every operation's own body is
// the interface default: no effect, and a zero, false, null or empty result. The 77 operations stand
// in the slot order of the host contract, in eight groups of ten (the last of seven).
#ifndef QRATINGITEMVIRTUAL_H
#define QRATINGITEMVIRTUAL_H

#include "markrule_global.h"

#include <QDataStream>
#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>

class MARKCORE_EXPORT QRatingItemVirtual : public QObject {
    Q_OBJECT
protected:
    explicit QRatingItemVirtual(QObject* parent = nullptr);

public:
    ~QRatingItemVirtual() override;

    // 1
    virtual QString GetRatingItemName() { return QString(); }
    virtual QString GetRatingItemUnit() { return QString(); }
    virtual QString GetRatingItemValue() { return QString(); }
    virtual QString GetRatingItemValueStd() { return QString(); }
    virtual double GetRatingItemScore() { return 0.0; }
    virtual double GetRatingItemScoreStd() { return 0.0; }
    virtual bool GetRatingItemUnitProject() { return false; }
    virtual double GetRatingItemOffset() { return 0.0; }
    virtual int GetRatingItemLevel() { return 0; }
    virtual void GetRatingItemList(QList<void*>&) {}
    // 2
    virtual void AddRatingItem(void*, const bool&) {}
    virtual void SetRatingItemLock(const bool&) {}
    virtual bool GetRatingItemLock() { return false; }
    virtual void* GetRatingItemByIndex(const QString&) { return nullptr; }
    virtual QString GetRatingItemNumber(const int&) { return QString(); }
    virtual QString GetRatingItemRemark() { return QString(); }
    virtual void SetRatingItemScoreStd(const double&) {}
    virtual void SetRatingItemScore(const double&) {}
    virtual void GetCalculateData(void*) {}
    virtual void SetCalculateData(void*) {}
    // 3
    virtual void DoSerialize(QJsonObject&, const bool&) {}
    virtual void DoSerialize(QDataStream&, const bool&) {}
    virtual double ExecuteDBScore(void*, const int&) { return 0.0; }
    virtual void SetRatingItemName(const QString&) {}
    virtual void SetRatingItemUnit(const QString&) {}
    virtual void SetRatingItemValue(QMultiMap<QString, int>&, int**, int&) {}
    virtual void SetRatingItemValue(const QString&, const QString&, const bool&) {}
    virtual void SetRatingItemValue(const int&) {}
    virtual void SetRatingItemValue(const double&) {}
    virtual void SetRatingItemValue(const QString&, const bool&) {}
    // 4
    virtual void SetRatingItemRemark(const QString&) {}
    virtual void SetAttributeType(const int&) {}
    virtual int GetAttributeType() { return 0; }
    virtual void SetRatingItemAttribute(const QVariant&) {}
    virtual void GetRatingItemAttribute(QVariant&) {}
    virtual void SetRatingItemLevel(const int&) {}
    virtual void ClearRatingItemData() {}
    virtual bool GetRatingItemEditable() { return false; }
    virtual void SetRatingItemEditable(const bool&) {}
    virtual QString TransformTextToName(const QString&) { return QString(); }
    // 5
    virtual void TransformTextToName(QStringList&) {}
    virtual void UpdateUniqueValue(const QStringList&) {}
    virtual void UpdateUniqueValue(const QString&) {}
    virtual void SetValueIdentical(const bool&) {}
    virtual void GetRatingItemLogic(QStringList&) {}
    virtual void RedistributeScore(const double&) {}
    virtual void AssignScore(const double&) {}
    virtual void SetRatingItemUnitProject(const bool&) {}
    virtual void SetRatingItemCode(const QString&) {}
    virtual void SetRatingItemFeature(const QString&) {}
    // 6
    virtual void SetRatingItemQuantity(const double&) {}
    virtual void SetRatingItemRate(const double&) {}
    virtual void SetRatingItemPrecision(const int&) {}
    virtual void SetRatingItemRatio(const double&) {}
    virtual void SetRatingItemLimit(const double&, const double&) {}
    virtual double GetRatingItemRatio() { return 0.0; }
    virtual double GetRatingItemUpperLimit() { return 0.0; }
    virtual double GetRatingItemLowerLimit() { return 0.0; }
    virtual QString GetRatingItemCode(const QString&) { return QString(); }
    virtual QString GetRatingItemCode() { return QString(); }
    // 7
    virtual double GetRatingItemAmount() { return 0.0; }
    virtual QString GetRatingItemFeature() { return QString(); }
    virtual double GetRatingItemQuantity() { return 0.0; }
    virtual bool IsRatingItemExist(const QString&) { return false; }
    virtual QString GetRatingItemIndex() { return QString(); }
    virtual int GetChildItemCount() { return 0; }
    virtual void SetRatingItemUpperLimit(const double&, const bool&) {}
    virtual void SetRatingItemLowerLimit(const double&, const bool&) {}
    virtual void ClearLastRatingData() {}
    virtual bool HasChildRatingItem() { return false; }
    // 8
    virtual int GetRatingItemColor() { return 0; }
    virtual void* CreateRatingItem(QObject*) { return nullptr; }
    virtual void SetRatingItemIndexRule(const int&) {}
    virtual void SetRatingItemScoreRule(const int&) {}
    virtual void GetRatingItemTypeList(QList<int>&) {}
    virtual double GetRatingItemScoreRate(const int&) { return 0.0; }
    virtual void DoSerializeItem(QJsonObject&, const bool&) {}
};

#endif // QRATINGITEMVIRTUAL_H
