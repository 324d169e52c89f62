// Entry points shared by every fuzz target: the libFuzzer callback and the target's seed inputs,
// which the mutation driver (built when libFuzzer is not) starts from.
#ifndef FUZZ_COMMON_H
#define FUZZ_COMMON_H

#include <QByteArray>
#include <QList>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);
QList<QByteArray> fuzzSeeds();

#endif // FUZZ_COMMON_H
