// QRatingItem_Sked: the criterion of every schedule scoring category. Children are matched with the
// standard's children by name (optionally after normalising unit and wording synonyms); a leaf is
// judged by the rule its attribute type selects (counts, durations, colour, line width, rows per
// page, order of processes, total duration, curve variance, logic chains in the candidate's
// network); missing, duplicate and surplus criteria get fixed remarks and lose or withhold marks.
//
// Status and mode numbers, attribute types: MarkCode::ScoreStatus and MarkCode::SkedAttribute.
#ifndef QRATINGITEM_SKED_H
#define QRATINGITEM_SKED_H

#include "qratingitem_general.h"

#include <QMultiMap>
#include <QPointer>
#include <QStringList>

#include <cstddef>

class MARKRULE_EXPORT QRatingItem_Sked : public QRatingItem_General {
    Q_OBJECT
public:
    explicit QRatingItem_Sked(QObject* parent = nullptr);
    // A parentless item whose line-width rule compares with linkedItem's comparison key. The linked
    // item is not owned; once it is deleted the item behaves as if it had none.
    explicit QRatingItem_Sked(QRatingItem_Sked* linkedItem);
    // Lets `new QRatingItem_Sked(nullptr)` pick the parent constructor.
    explicit QRatingItem_Sked(std::nullptr_t);
    ~QRatingItem_Sked() override;

    QString GetRatingItemValue() override;
    QString GetRatingItemValueStd() override;
    double GetRatingItemOffset() override;
    void AddRatingItem(void* child, const bool& transform) override;
    QString GetRatingItemNumber(const int& number) override;
    void GetCalculateData(void* record) override;
    void SetCalculateData(void* record) override;
    // Plain and Twin schedule items are not persisted: both records do nothing.
    void DoSerialize(QJsonObject& object, const bool& read) override;
    void DoSerialize(QDataStream& stream, const bool& read) override;
    double ExecuteDBScore(void* standardItem, const int& mode) override;
    using QRatingItem_General::SetRatingItemValue;
    // The candidate's network for the logic rule: the map is copied, the matrix is borrowed (the
    // caller keeps it alive while the item is scored); entry [p][q] == 1 links node p to node q.
    void SetRatingItemValue(QMultiMap<QString, int>& nodes, int** matrix, int& count) override;
    void SetRatingItemValue(const QString& text, const QString& key, const bool& transform) override;
    void SetRatingItemValue(const QString& text, const bool& transform) override;
    bool GetRatingItemEditable() override;
    void SetRatingItemEditable(const bool& editable) override;
    QString TransformTextToName(const QString& text) override;
    void TransformTextToName(QStringList& texts) override;
    void UpdateUniqueValue(const QStringList& logic) override;
    void UpdateUniqueValue(const QString& key) override;
    void SetValueIdentical(const bool& identical) override;
    void GetRatingItemLogic(QStringList& out) override;
    void* CreateRatingItem(QObject* parent) override;

    QString GetClassName() override;

    void SetRatingItemStatus(const int& status, void* standardItem) override;
    void ScoreChildRatingItems(const int& mode, void* standardItem) override;
    double CalculateRatingItemScore(void* standardItem) override;
    void MatchChildRatingItems(const int& mode, QMultiMap<QString, void*>& remaining,
                               QList<void*>& standardChildren) override;
    void HandleSurplusRatingItems(QMultiMap<QString, void*>& remaining,
                                  QList<void*>& standardChildren) override;

protected:
    // Leaf rules by attribute type; each returns the score and sets the remark where the rule says.
    double fullScore(const QRatingItem_Sked& standard);
    double scoreFixedOrWeeklyDuration(const QRatingItem_Sked& standard);
    double scoreLineWidth(const QRatingItem_Sked& standard);
    double scoreLogicChains(const QRatingItem_Sked& standard);
    double scoreRowsPerPage(const QRatingItem_Sked& standard);
    double scoreProcessOrder(const QRatingItem_Sked& standard);
    double scoreTotalDuration(const QRatingItem_Sked& standard);
    double scoreCurveVariance(const QRatingItem_Sked& standard);
    // True when the chain of work-item names runs through the candidate's network.
    bool chainExists(const QStringList& chain) const;

    // The small fields sit together: a schedule has ten or more of these items per work item, and
    // padding would take the Site item past a 256-byte allocation.
    QString m_uniqueValue;
    QStringList m_logic;
    double m_offset = 0.0;
    QPointer<QRatingItem_Sked> m_linkedItem;
    QMultiMap<QString, int> m_nodeMap;
    int** m_linkMatrix = nullptr;
    int m_nodeCount = 0;
    bool m_editable = false;
    bool m_identical = false;

private:
    void reset(QRatingItem_Sked* linkedItem);
    // Status steps: a missing item copies the standard's description; a surplus item is deducted
    // or, for the attributes of a work item, has its score withheld.
    void takeMissing(const QRatingItem_Sked& standard);
    void takeSurplus(const QRatingItem_Sked& standard);
    void withholdScore(const QString& valueStd);
};

#endif // QRATINGITEM_SKED_H
