// Rating-item factories: pricing and building-model items by product code or item type.
#include "qratingitem_shape.h"
#include "markrulecodes.h"
#include "qratingitem_tally.h"

using namespace MarkCode;

QRatingItemBase* QRatingItemBase::CreateMarkRatingItem(const int& product) {
    switch (product) {
    case ProductAsh:
        return new QRatingItem_Ash(nullptr);
    case ProductElm:
        return new QRatingItem_Elm(nullptr);
    case ProductFir:
        return new QRatingItem_Fir(nullptr);
    case ProductYew:
        return new QRatingItem_Yew(nullptr);
    case ProductOak:
        return new QRatingItem_Oak(nullptr);
    case ProductShape:
        return new QRatingItem_Shape(nullptr);
    default:
        return nullptr;
    }
}

// Item types are their own number space (13 is the Fir product but an Ash item type); this table
// is their only use.
QRatingItemBase* QRatingItemBase::CreateRatingItemByType(const int& itemType) {
    switch (itemType) {
    case 12:
    case 13:
    case 14:
    case 31:
        return new QRatingItem_Ash(nullptr);
    case 15:
    case 16:
    case 17:
    case 32:
        return new QRatingItem_Elm(nullptr);
    case 18:
    case 19:
    case 20:
    case 33:
        return new QRatingItem_Yew(nullptr);
    case 21:
    case 22:
    case 23:
    case 34:
        return new QRatingItem_Oak(nullptr);
    case 24:
    case 25:
    case 26:
    case 35:
        return new QRatingItem_Fir(nullptr);
    case 27:
    case 28:
    case 29:
    case 30:
        return new QRatingItem_Shape(nullptr);
    default:
        return nullptr;
    }
}
