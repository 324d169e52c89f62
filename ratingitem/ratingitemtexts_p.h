// Remarks that the generic rating items leave on criteria.
#ifndef RATINGITEMTEXTS_P_H
#define RATINGITEMTEXTS_P_H

#include <QString>

namespace RatingItemText {

inline QString scoreClamped() {
    return QStringLiteral("分数扣减至0");
}
inline QString missing() {
    return QStringLiteral("缺少评分项，不得分");
}
inline QString surplus() {
    return QStringLiteral("存在多余评分项，不得分");
}

} // namespace RatingItemText

#endif // RATINGITEMTEXTS_P_H
