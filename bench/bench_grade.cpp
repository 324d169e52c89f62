// Grading a generated Site schedule end to end as markgrade does for a lone pair (read both files at
// once, grade the seven categories with the two sides on two threads, write the JSON report and
// drop it), against the floor of the same run: parsing and serialising the same two files with
// QJsonDocument on one thread. Both should grow about linearly with the number of work items; both
// are timed on the wall clock.
//
//   bench_grade [benchmark options]             run the benchmarks
//   bench_grade --write DIR STANDARD CANDIDATE  write DIR/standard.json and DIR/candidate.json, the
//                                               standard of STANDARD items and the candidate of
//                                               CANDIDATE items, for measuring markgrade itself
#include "schedulegen.h"

#include "allocator.h"
#include "grading.h"
#include "projectreader.h"
#include "jsonreport.h"
#include "output.h"
#include "pooltask.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <future>

namespace {

bool writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size();
}

// The generated pair of one size, written once per process into a temporary folder.
struct Pair {
    QString standard;
    QString candidate;
};

Pair pairFiles(int standardItems, int candidateItems) {
    static QTemporaryDir dir;
    static QMap<QPair<int, int>, Pair> made;
    const auto key = qMakePair(standardItems, candidateItems);
    auto found = made.constFind(key);
    if (found != made.constEnd())
        return found.value();
    Pair pair{dir.filePath(QStringLiteral("std-%1-%2.json").arg(standardItems).arg(candidateItems)),
              dir.filePath(QStringLiteral("cand-%1-%2.json").arg(standardItems).arg(candidateItems))};
    if (!writeFile(pair.standard, BenchGen::siteStandard(standardItems)) ||
        !writeFile(pair.candidate, BenchGen::siteCandidate(candidateItems)))
        return Pair();
    made.insert(key, pair);
    return pair;
}

// Where the report goes: counted, then dropped, as markgrade's output to /dev/null would be.
class Discard : public QIODevice {
public:
    qint64 written = 0;

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char*, qint64 size) override {
        written += size;
        return size;
    }
};

QByteArray readAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void gradePair(benchmark::State& state, int standardItems, int candidateItems) {
    const Pair pair = pairFiles(standardItems, candidateItems);
    if (pair.standard.isEmpty()) {
        state.SkipWithError("cannot write the generated files");
        return;
    }
    qint64 reportBytes = 0;
    for (auto _ : state) {
        std::future<Grade::CandidateFile> candidate =
            Grade::poolTask([&pair] { return Grade::readCandidate(pair.candidate); });
        Host::ProjectFile standard;
        Host::ReadError error;
        if (!Host::readProjectFile(pair.standard, standard, error)) {
            state.SkipWithError(qPrintable(error.toString()));
            candidate.wait();
            return;
        }
        const Grade::CandidateResult result =
            Grade::gradeCandidate(standard, candidate.get(), Grade::Marks(), Grade::Sides::Together);
        if (!result.graded) {
            state.SkipWithError(qPrintable(result.error));
            return;
        }
        Discard report;
        report.open(QIODevice::WriteOnly);
        Grade::JsonSink sink(std::make_unique<Grade::ReportOutput>(&report, QStringLiteral("report")), false);
        sink.beginSection(Grade::SectionStart{pair.standard, {}, 1});
        sink.addCandidate(result);
        sink.endSection();
        if (!sink.finish()) {
            state.SkipWithError("the report was not written whole");
            return;
        }
        reportBytes = report.written;
    }
    state.counters["items"] = candidateItems;
    state.counters["reportMiB"] = double(reportBytes) / (1 << 20);
    state.SetComplexityN(candidateItems);
}

// The floor: what a plain JSON parse and serialise of the two input files costs.
void jsonFloor(benchmark::State& state, int standardItems, int candidateItems) {
    const Pair pair = pairFiles(standardItems, candidateItems);
    for (auto _ : state) {
        for (const QString& path : {pair.standard, pair.candidate}) {
            const QJsonDocument document = QJsonDocument::fromJson(readAll(path));
            const QByteArray bytes = document.toJson(QJsonDocument::Compact);
            benchmark::DoNotOptimize(bytes.constData());
        }
    }
    state.SetComplexityN(candidateItems);
}

void BM_Grade(benchmark::State& state) {
    gradePair(state, int(state.range(0)), int(state.range(0)));
}

void BM_JsonFloor(benchmark::State& state) {
    jsonFloor(state, int(state.range(0)), int(state.range(0)));
}

// A large candidate against a small standard: only the items the standard's logic names enter the
// judged network.
void BM_GradeLargeCandidate(benchmark::State& state) {
    gradePair(state, 1000, int(state.range(0)));
}

void BM_JsonFloorLargeCandidate(benchmark::State& state) {
    jsonFloor(state, 1000, int(state.range(0)));
}

const std::vector<int64_t> sizes{1000, 10000, 50000, 100000};

BENCHMARK(BM_Grade)->ArgsProduct({sizes})->Unit(benchmark::kMillisecond)->UseRealTime()->Complexity();
BENCHMARK(BM_JsonFloor)->ArgsProduct({sizes})->Unit(benchmark::kMillisecond)->UseRealTime()->Complexity();
BENCHMARK(BM_GradeLargeCandidate)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_JsonFloorLargeCandidate)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();

int writePair(const char* dir, const char* standardItems, const char* candidateItems) {
    const QDir folder(QString::fromLocal8Bit(dir));
    const int standard = QByteArray(standardItems).toInt();
    const int candidate = QByteArray(candidateItems).toInt();
    if (standard <= 0 || candidate <= 0 || !folder.exists()) {
        std::fprintf(stderr,
                     "bench_grade --write DIR STANDARD CANDIDATE: an existing folder and two counts\n");
        return 2;
    }
    if (!writeFile(folder.filePath(QStringLiteral("standard.json")), BenchGen::siteStandard(standard)) ||
        !writeFile(folder.filePath(QStringLiteral("candidate.json")), BenchGen::siteCandidate(candidate))) {
        std::fprintf(stderr, "bench_grade: cannot write to %s\n", dir);
        return 1;
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 5 && std::strcmp(argv[1], "--write") == 0)
        return writePair(argv[2], argv[3], argv[4]);
    Grade::keepFreedPages(); // as markgrade does for a lone pair
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
