// QRatingItem_General: a describable, comparable criterion (name, code, unit, value with data type
// and precision, index rule, score rule, attribute type and data, tolerance band, lock). It scores a
// candidate's tree against the standard's generically: children pair up by index text, a standard
// child without partner yields a zero-score missing item, a candidate child without partner becomes a
// zero-score surplus item, parents sum their children and leaves are scored by a product hook. It
// also defines the item record (JSON object and QDataStream record).
#ifndef QRATINGITEM_GENERAL_H
#define QRATINGITEM_GENERAL_H

#include "qratingitembase.h"

#include <QVariant>

#include <functional>

namespace RecordIO {
class Fields;
}

class MARKRULE_EXPORT QRatingItem_General : public QRatingItemBase {
    Q_OBJECT
public:
    explicit QRatingItem_General(QObject* parent = nullptr);
    ~QRatingItem_General() override;

    QString GetRatingItemName() override;
    QString GetRatingItemUnit() override;
    QString GetRatingItemValue() override;
    QString GetRatingItemValueStd() override;
    void AddRatingItem(void* child, const bool& flag) override;
    void SetRatingItemLock(const bool& locked) override;
    bool GetRatingItemLock() override;
    void* GetRatingItemByIndex(const QString& text) override;
    void DoSerialize(QJsonObject& object, const bool& read) override;
    void DoSerialize(QDataStream& stream, const bool& read) override;
    double ExecuteDBScore(void* standardItem, const int& mode) override;
    void SetRatingItemName(const QString& name) override;
    void SetRatingItemUnit(const QString& unit) override;
    using QRatingItemBase::SetRatingItemValue;
    void SetRatingItemValue(const int& value) override;
    void SetRatingItemValue(const double& value) override;
    void SetRatingItemValue(const QString& text, const bool& flag) override;
    void SetAttributeType(const int& type) override;
    int GetAttributeType() override;
    void SetRatingItemAttribute(const QVariant& data) override;
    void GetRatingItemAttribute(QVariant& out) override;
    void SetRatingItemCode(const QString& code) override;
    void SetRatingItemPrecision(const int& precision) override;
    QString GetRatingItemCode(const QString& text) override;
    QString GetRatingItemCode() override;
    QString GetRatingItemIndex() override;
    void ClearLastRatingData() override;
    void SetRatingItemIndexRule(const int& rule) override;
    void SetRatingItemScoreRule(const int& rule) override;
    void DoSerializeItem(QJsonObject& object, const bool& read) override;

    virtual void SetRatingItemStatus(const int& status, void* standardItem);
    virtual void ScoreChildRatingItems(const int& mode, void* standardItem);
    virtual double CalculateRatingItemScore(void* standardItem);
    virtual bool IsSurplusIgnored();
    virtual bool SkipRatingItemMatch(QList<void*>& candidates, const bool& finished);
    virtual void MatchChildRatingItems(const int& mode, QMultiMap<QString, void*>& remaining,
                                       QList<void*>& standardChildren);
    virtual void HandleSurplusRatingItems(QMultiMap<QString, void*>& remaining,
                                          QList<void*>& standardChildren);
    virtual void DoSerializeExtra(QDataStream& stream, const bool& read);
    virtual void DoSerializeExtra(QJsonObject& object, const bool& read);

protected:
    // The scoring skeleton that every family's ExecuteDBScore ends with, once it has taken what it
    // needs from the standard: the status step, then the children when the standard has any (the
    // children list is rebuilt), else the leaf rule in ordinary mode. Returns the score.
    double scoreAgainst(QRatingItemVirtual& standard, void* standardItem, const int& mode);
    // Whether the candidate children left unmatched are handed to HandleSurplusRatingItems.
    using SurplusRule = std::function<bool(const QMultiMap<QString, void*>& remaining)>;
    // The child-scoring skeleton of every family's ScoreChildRatingItems: the score restarts at 0,
    // the children are matched against the standard's, the surplus step runs where surplusCounts
    // says so, and in ordinary mode the sign clamp follows.
    void scoreChildren(QRatingItemVirtual& standard, const int& mode, const SurplusRule& surplusCounts);
    // Appends a new item (CreateRatingItem) for a standard child the candidate lacks and adds its
    // missing-mode score; at nextLevel it sits one level below this item. False when no item came.
    bool addMissingChild(void* standardChild, bool nextLevel);

    // A stored value text as shown: numbers (MarkCode::DataDouble, DataInteger) formatted with the precision.
    QString formatValue(const QString& text) const;

    // The stream record of an item: its fields, then DoSerializeExtra where withExtra, then the child
    // records (children whose class inherits childClass; read through CreateRatingItem). Refused past
    // the nesting limit; reading stops at the first failed read.
    void serializeRecord(QDataStream& stream, bool read, const RecordIO::Fields& fields,
                         const QMetaObject& childClass, bool withExtra = true);

    // The child part of every item stream record: the number of children that have a record (those
    // whose class inherits recordClass), then each one's record in child order.
    void writeChildRecords(QDataStream& stream, const QMetaObject& recordClass);
    // Reads a child count, checked against the bytes left at minRecordBytes a child, and as many
    // child records; each child comes from CreateRatingItem and is added with AddRatingItem(child,
    // true). Reading stops at the first failed read or at the nesting limit; children read so far,
    // the broken one included, stay in the tree.
    void readChildRecords(QDataStream& stream, qint64 minRecordBytes);

private:
    // The item record's fields, bound to this item, in stream order.
    RecordIO::Fields recordFields();

protected:
    int m_dataType = 0;
    int m_indexRule = 0;
    int m_scoreRule = 0;
    QString m_value;
    QString m_code;
    QString m_name;
    double m_upperRange = 5.0;
    double m_lowerRange = 2.0;
    QString m_unit;
    int m_attributeType = 0;
    int m_precision = 0;
    bool m_locked = false;
    QVariant m_attribute;
};

#endif // QRATINGITEM_GENERAL_H
