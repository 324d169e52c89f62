// Fuzz target for the Primavera P6 XER reader, seeded with the XER fixtures.
#include "formatfuzzing.h"
#include "fuzz_common.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    return FormatFuzzing::readDocument(data, size);
}

QList<QByteArray> fuzzSeeds() {
    return FormatFuzzing::fixtures({QStringLiteral("house.xer")});
}
