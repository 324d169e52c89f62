// Fuzz target for the JSON records: the input is parsed as a JSON document (Qt limits its nesting)
// and read into a category of each type in the Site scene, a rating item of each item type, or the
// general item; the result is written, read again and scored.
#include "fuzz_common.h"

#include "markrule.h"

#include <QJsonDocument>

#include <memory>

namespace {

const int kKinds = 7 + 24 + 1;

class FuzzItem : public QRatingItem_General {
public:
    void* CreateRatingItem(QObject*) override { return MarkPointer::fromItem(new FuzzItem); }
};

std::unique_ptr<QObject> makeObject(int kind) {
    if (kind < 7)
        return std::unique_ptr<QObject>(QMarkCategoryBase::CreateMarkCategoryByType(5, 1, kind + 1));
    if (kind < 31)
        return std::unique_ptr<QObject>(QRatingItemBase::CreateRatingItemByType(12 + kind - 7));
    return std::make_unique<FuzzItem>();
}

void serialize(QObject* object, QJsonObject& json, bool read) {
    if (auto* category = qobject_cast<QMarkCategoryVirtual*>(object))
        category->DoSerialize(json, read);
    else if (auto* item = qobject_cast<QRatingItemVirtual*>(object))
        item->DoSerialize(json, read);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 1)
        return 0;
    const int kind = data[0] % kKinds;
    const QJsonDocument document = QJsonDocument::fromJson(
        QByteArray::fromRawData(reinterpret_cast<const char*>(data) + 1, int(size - 1)));
    if (!document.isObject())
        return 0;
    std::unique_ptr<QObject> first = makeObject(kind);
    if (!first)
        return 0;
    QJsonObject object = document.object();
    serialize(first.get(), object, true);
    QJsonObject written;
    serialize(first.get(), written, false);
    std::unique_ptr<QObject> second = makeObject(kind);
    serialize(second.get(), written, true);
    if (auto* item = qobject_cast<QRatingItemVirtual*>(second.get()))
        item->ExecuteDBScore(MarkPointer::fromItem(qobject_cast<QRatingItemVirtual*>(first.get())), 1);
    else if (auto* category = qobject_cast<QMarkCategoryVirtual*>(second.get()))
        category->ExecuteDBScore(qobject_cast<QMarkCategoryVirtual*>(first.get()));
    return 0;
}

QList<QByteArray> fuzzSeeds() {
    QList<QByteArray> seeds;
    const QByteArray tree = R"({"name":"root","itemname":"root","attribute":1,"indexrule":1,"attridata":["x"],
        "items":[{"name":"a","itemname":"a","value":"3","score":2.5,"items":[{"name":"b"}]},{"name":"c"}],
        "categorytype":1,"iscreated":true})";
    for (int kind = 0; kind < kKinds; ++kind)
        seeds.append(QByteArray(1, char(kind)) + tree);
    return seeds;
}
