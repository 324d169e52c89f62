// Fuzz target for the JSON records: the input is parsed as a JSON document (Qt limits its nesting)
// and read into a category of each type in the Site scene, a rating item of each item type, or the
// general item; the result is written, read again and scored.
#include "fuzz_common.h"

#include <QJsonDocument>

#include <memory>

using namespace Fuzz;

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
    score(second.get(), first.get());
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
