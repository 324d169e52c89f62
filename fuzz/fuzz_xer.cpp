// Fuzz target for the Primavera P6 XER reader, seeded with the XER fixtures.
#include "fuzz_document.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    return FuzzDocument::read(data, size);
}

QList<QByteArray> fuzzSeeds() {
    return FuzzDocument::fixtures({"house.xer"});
}
