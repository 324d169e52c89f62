// Fuzz target for the GanttProject reader: the input is a whole file, seeded with house.gan.
#include "fuzz_document.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    return FuzzDocument::read(data, size);
}

QList<QByteArray> fuzzSeeds() {
    return FuzzDocument::fixtures({"house.gan"});
}
