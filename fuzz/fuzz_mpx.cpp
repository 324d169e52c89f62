// Fuzz target for the MPX reader, seeded with the MPX fixtures (comma and semicolon delimited).
#include "fuzz_document.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    return FuzzDocument::read(data, size);
}

QList<QByteArray> fuzzSeeds() {
    return FuzzDocument::fixtures({"house.mpx", "house-semicolon.mpx"});
}
