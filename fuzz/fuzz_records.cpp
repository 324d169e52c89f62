// Fuzz target for the QDataStream records of every persistent class: categories of each type in
// the Site scene, rating items of each item type, and the general item. The first input byte picks
// the class, the second the stream version; the rest is the record. A record that reads is written
// back, read again into a fresh object and scored against the first.
#include "fuzz_common.h"

using namespace Fuzz;

namespace {

const QDataStream::Version kVersions[] = {QDataStream::Qt_5_15, QDataStream::Qt_5_0, QDataStream::Qt_4_8};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2)
        return 0;
    const int kind = data[0] % kKinds;
    const QDataStream::Version version = kVersions[data[1] % 3];
    std::unique_ptr<QObject> first = makeObject(kind);
    if (!first)
        return 0;
    const QByteArray record = QByteArray::fromRawData(reinterpret_cast<const char*>(data) + 2, int(size - 2));
    QDataStream in(record);
    in.setVersion(version);
    serialize(first.get(), in, true);
    if (in.status() != QDataStream::Ok)
        return 0;

    QByteArray written;
    QDataStream out(&written, QIODevice::WriteOnly);
    out.setVersion(version);
    serialize(first.get(), out, false);
    std::unique_ptr<QObject> second = makeObject(kind);
    QDataStream again(written);
    again.setVersion(version);
    serialize(second.get(), again, true);
    score(second.get(), first.get());
    return 0;
}

QList<QByteArray> fuzzSeeds() {
    QList<QByteArray> seeds;
    for (int kind = 0; kind < kKinds; ++kind) {
        std::unique_ptr<QObject> object = makeObject(kind);
        if (!object)
            continue;
        if (auto* item = qobject_cast<QRatingItemVirtual*>(object.get())) {
            for (const char* name : {"a", "b"}) {
                void* child = item->CreateRatingItem(nullptr);
                if (QRatingItemVirtual* typed = MarkPointer::item(child)) {
                    typed->SetRatingItemName(QString::fromLatin1(name));
                    typed->SetRatingItemAttribute(QStringList{QString::fromLatin1(name)});
                    item->AddRatingItem(child, true);
                }
            }
        }
        QByteArray bytes;
        bytes.append(char(kind)).append(char(0));
        QByteArray record;
        QDataStream out(&record, QIODevice::WriteOnly);
        serialize(object.get(), out, false);
        seeds.append(bytes + record);
    }
    return seeds;
}
