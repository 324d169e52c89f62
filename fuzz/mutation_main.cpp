// A deterministic stand-in for libFuzzer when the compiler has none: every seed of the target is
// run, then mutated a fixed number of times (bit flips, truncation, bytes forced to 0x00 or 0xff, a
// repeated chunk) and run again. It runs under the sanitizer build as part of the test suite.
#include "fuzz_common.h"

#include <QtGlobal>

#include <cstdio>
#include <cstdlib>
#include <random>

namespace {

QByteArray mutate(const QByteArray& seed, std::mt19937& random) {
    QByteArray bytes = seed;
    // The first two bytes select the class and the version: only the record after them changes.
    if (bytes.size() <= 2)
        return bytes + char(random());
    const auto position = [&] { return 2 + int(random() % quint32(bytes.size() - 2)); };
    const quint32 kind = random() % 5;
    switch (kind) {
    case 0: // flip a few bits
        for (int i = 0, n = 1 + int(random() % 4); i < n; ++i) {
            const int at = position();
            bytes[at] = char(bytes.at(at) ^ (1 << (random() % 8)));
        }
        break;
    case 1: // cut the record short
        bytes.truncate(position());
        break;
    case 2: // a count or length of all ones
    case 3: // or of zeros
        for (int i = 0, at = position(); i < 4 && at + i < bytes.size(); ++i)
            bytes[at + i] = kind == 2 ? char(0xff) : char(0x00);
        break;
    default: { // repeat a chunk, as nested records do
        const int at = position();
        bytes.insert(at, bytes.mid(at, int(random() % 64)));
        break;
    }
    }
    return bytes;
}

} // namespace

int main(int argc, char** argv) {
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 300;
    std::mt19937 random(20261123);
    int runs = 0;
    for (const QByteArray& seed : fuzzSeeds()) {
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(seed.constData()), size_t(seed.size()));
        ++runs;
        QByteArray current = seed;
        for (int i = 0; i < rounds; ++i) {
            // Walk: mutations build on each other, restarting from the seed now and then.
            current = (i % 16 == 0) ? mutate(seed, random) : mutate(current, random);
            LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(current.constData()),
                                   size_t(current.size()));
            ++runs;
        }
    }
    std::printf("%d inputs run\n", runs);
    return runs > 0 ? 0 : 1;
}
