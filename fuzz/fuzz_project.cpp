// Fuzz target for our own JSON project format (schedules, pricing files and building models) through
// the shared finishing step: each input is a whole file; seeds are the house schedule and the sample exam.
#include "fuzz_document.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    return FuzzDocument::read(data, size);
}

QList<QByteArray> fuzzSeeds() {
    return FuzzDocument::fixtures({"house.json"}) + FuzzDocument::samples();
}
