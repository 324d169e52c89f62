// Fuzz target for the MPX reader, seeded with the MPX fixtures (comma and semicolon delimited).
#include "formatfuzzing.h"
#include "fuzz_common.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    return FormatFuzzing::readDocument(data, size);
}

QList<QByteArray> fuzzSeeds() {
    return FormatFuzzing::fixtures({QStringLiteral("house.mpx"), QStringLiteral("house-semicolon.mpx")});
}
