// Shared by every fuzz target: the libFuzzer callback and the target's seed inputs, which the
// mutation driver (built when libFuzzer is not) starts from, and the objects the targets read records
// into, chosen by the first input byte.
#ifndef FUZZ_COMMON_H
#define FUZZ_COMMON_H

#include "markrule.h"

#include <QByteArray>
#include <QList>

#include <cstddef>
#include <cstdint>
#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);
QList<QByteArray> fuzzSeeds();

namespace Fuzz {

// A general item whose children are general items again, so that every record field is reached.
class GeneralItem : public QRatingItem_General {
public:
    void* CreateRatingItem(QObject*) override { return MarkPointer::fromItem(new GeneralItem); }
};

// The kinds of object a record is read into: the seven categories of the Site scene, the rating
// items of item types 12 to 35 and the general item.
constexpr int kCategories = MarkCode::CategoryLast - MarkCode::CategoryFirst + 1;
constexpr int kFirstItemType = 12;
constexpr int kItemTypes = 35 - kFirstItemType + 1;
constexpr int kKinds = kCategories + kItemTypes + 1;

inline std::unique_ptr<QObject> makeObject(int kind) {
    if (kind < kCategories)
        return std::unique_ptr<QObject>(QMarkCategoryBase::CreateMarkCategoryByType(
            MarkCode::ProductSked, MarkCode::SceneSite, MarkCode::CategoryFirst + kind));
    if (kind < kCategories + kItemTypes)
        return std::unique_ptr<QObject>(
            QRatingItemBase::CreateRatingItemByType(kFirstItemType + kind - kCategories));
    return std::make_unique<GeneralItem>();
}

// Reads or writes the record of a category or a rating item (JSON object or stream).
template <class Record> void serialize(QObject* object, Record& record, bool read) {
    if (auto* category = qobject_cast<QMarkCategoryVirtual*>(object))
        category->DoSerialize(record, read);
    else if (auto* item = qobject_cast<QRatingItemVirtual*>(object))
        item->DoSerialize(record, read);
}

// Scores candidate against standard, both of one kind, after giving the standard its marks.
inline void score(QObject* candidate, QObject* standard) {
    if (auto* category = qobject_cast<QMarkCategoryVirtual*>(candidate)) {
        auto* other = qobject_cast<QMarkCategoryVirtual*>(standard);
        other->AssignScore(10.0);
        category->ExecuteDBScore(other);
    } else if (auto* item = qobject_cast<QRatingItemVirtual*>(candidate)) {
        auto* other = qobject_cast<QRatingItemVirtual*>(standard);
        other->RedistributeScore(10.0);
        item->ExecuteDBScore(MarkPointer::fromItem(other), MarkCode::StatusOrdinary);
    }
}

} // namespace Fuzz

#endif // FUZZ_COMMON_H
