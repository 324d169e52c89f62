// Rating-item factories: pricing and building-model items by product code or item type.
#include "qratingitembase.h"

QRatingItemBase* QRatingItemBase::CreateMarkRatingItem(const int&) {
    return nullptr;
}

QRatingItemBase* QRatingItemBase::CreateRatingItemByType(const int&) {
    return nullptr;
}
