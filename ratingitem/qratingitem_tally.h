// QRatingItem_Tally: the rating item of the pricing products. A leaf compares the candidate's amount
// (its rate) with the standard's inside the standard's tolerance band; children match by name, code,
// or code and name, and the attribute type decides whether unmatched standard children count as
// missing, whether surplus children are penalised and how a unit project spreads its score.
// QRatingItem_Ash, _Elm, _Fir, _Yew and _Oak are the classes the factories create, one per product.
#ifndef QRATINGITEM_TALLY_H
#define QRATINGITEM_TALLY_H

#include "qratingitem_general.h"

class MARKRULE_EXPORT QRatingItem_Tally : public QRatingItem_General {
    Q_OBJECT
public:
    explicit QRatingItem_Tally(QObject* parent = nullptr);
    ~QRatingItem_Tally() override;

    QString GetRatingItemValue() override;
    QString GetRatingItemValueStd() override;
    bool GetRatingItemUnitProject() override;
    void AddRatingItem(void* child, const bool& flag) override;
    void DoSerialize(QJsonObject& object, const bool& load) override;
    void DoSerialize(QDataStream& stream, const bool& load) override;
    double ExecuteDBScore(void* standardItem, const int& mode) override;
    void RedistributeScore(const double& score) override;
    void AssignScore(const double& score) override;
    void SetRatingItemUnitProject(const bool& unitProject) override;
    void SetRatingItemFeature(const QString& feature) override;
    void SetRatingItemQuantity(const double& quantity) override;
    void SetRatingItemRate(const double& rate) override;
    void SetRatingItemRatio(const double& ratio) override;
    void SetRatingItemLimit(const double& upper, const double& lower) override;
    double GetRatingItemRatio() override;
    double GetRatingItemUpperLimit() override;
    double GetRatingItemLowerLimit() override;
    double GetRatingItemAmount() override;
    QString GetRatingItemFeature() override;
    double GetRatingItemQuantity() override;
    bool IsRatingItemExist(const QString& key) override;
    QString GetRatingItemIndex() override;
    void SetRatingItemUpperLimit(const double& value, const bool& recursive) override;
    void SetRatingItemLowerLimit(const double& value, const bool& recursive) override;
    int GetRatingItemColor() override;
    double CalculateRatingItemScore(void* standardItem) override;
    bool IsSurplusIgnored() override;
    bool SkipRatingItemMatch(QList<void*>& candidates, const bool& finished) override;

protected:
    // An amount as shown: two decimals, a trailing ".00" dropped, "0" for a zero amount.
    static QString amountText(double amount);

    bool m_unitProject = false;
    QString m_feature;
    double m_quantity = 0.0;
    double m_rate = 0.0;
    double m_ratio = 0.0;

private:
    // The pricing record's fields, bound to this item, in stream order.
    RecordIO::Fields recordFields();
    // Unit project: the first child takes the standard score, its children a share by their ratio.
    void distributeUnitProject(double score, void (QRatingItemVirtual::*distribute)(const double&));
    // Sets a tolerance bound unless it is already there (compared in single precision).
    void setLimit(double& bound, double value, bool recursive,
                  void (QRatingItemVirtual::*setter)(const double&, const bool&));
    // The added-children list, forgotten once ClearRatingItemData has released the children.
    const QList<void*>& addedChildren();

    // Every child ever added, in order; each is also owned through the base.
    QList<void*> m_addedChildren;
};

class MARKRULE_EXPORT QRatingItem_Ash : public QRatingItem_Tally {
    Q_OBJECT
public:
    explicit QRatingItem_Ash(QObject* parent = nullptr);
    ~QRatingItem_Ash() override;

    void GetCalculateData(void* record) override;
    void* CreateRatingItem(QObject* parent) override;
};

class MARKRULE_EXPORT QRatingItem_Elm : public QRatingItem_Tally {
    Q_OBJECT
public:
    explicit QRatingItem_Elm(QObject* parent = nullptr);
    ~QRatingItem_Elm() override;

    void* CreateRatingItem(QObject* parent) override;
};

class MARKRULE_EXPORT QRatingItem_Fir : public QRatingItem_Tally {
    Q_OBJECT
public:
    explicit QRatingItem_Fir(QObject* parent = nullptr);
    ~QRatingItem_Fir() override;

    void* CreateRatingItem(QObject* parent) override;
};

class MARKRULE_EXPORT QRatingItem_Yew : public QRatingItem_Tally {
    Q_OBJECT
public:
    explicit QRatingItem_Yew(QObject* parent = nullptr);
    ~QRatingItem_Yew() override;

    QString GetRatingItemValue() override;
    void* CreateRatingItem(QObject* parent) override;
    void DoSerializeExtra(QDataStream& stream, const bool& load) override;
    void DoSerializeExtra(QJsonObject& object, const bool& load) override;
};

class MARKRULE_EXPORT QRatingItem_Oak : public QRatingItem_Tally {
    Q_OBJECT
public:
    explicit QRatingItem_Oak(QObject* parent = nullptr);
    ~QRatingItem_Oak() override;

    void* CreateRatingItem(QObject* parent) override;
};

#endif // QRATINGITEM_TALLY_H
