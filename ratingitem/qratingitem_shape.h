// QRatingItem_Shape: the rating item of the building-model product. Trees, matching, missing and
// surplus criteria are the general item's; a leaf compares its value with the standard's by its score
// rule (text, number, interval, containment, value ratio or segment table), and a parent reports the
// attribute types of its children and the score rate of the first child of a type.
#ifndef QRATINGITEM_SHAPE_H
#define QRATINGITEM_SHAPE_H

#include "qratingitem_general.h"

class MARKRULE_EXPORT QRatingItem_Shape : public QRatingItem_General {
    Q_OBJECT
public:
    explicit QRatingItem_Shape(QObject* parent = nullptr);
    ~QRatingItem_Shape() override;

    void* CreateRatingItem(QObject* parent) override;
    void GetRatingItemTypeList(QList<int>& out) override;
    double GetRatingItemScoreRate(const int& type) override;
    double CalculateRatingItemScore(void* standardItem) override;
};

#endif // QRATINGITEM_SHAPE_H
