// Writing the HTML report of a generated batch (markgrade --generate-batch) against the CSV report
// of the same graded candidates, and against grading them. The batch is generated and graded once;
// each report iteration writes every page (or the CSV rows and summary) to a fresh directory.
#include "batch.h"
#include "htmlreport.h"
#include "projectreader.h"
#include "csvreport.h"
#include "output.h"
#include "samples.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdlib>

using namespace Grade;

namespace {

const int candidates = 650;

struct GradedBatch {
    QTemporaryDir dir;
    QSharedPointer<Host::ProjectFile> standard = QSharedPointer<Host::ProjectFile>::create();
    QStringList files;
    QList<CandidateResult> results;
};

void prepare(GradedBatch& made) {
    initSamples();
    QString error;
    Host::ReadError readError;
    if (!generateBatch(made.dir.filePath(QStringLiteral("batch")), candidates, made.files, error) ||
        !Host::readProjectFile(made.dir.filePath(QStringLiteral("batch/standard.json")), *made.standard,
                               readError)) {
        std::fprintf(stderr, "cannot prepare the batch: %s%s\n", qPrintable(error),
                     qPrintable(readError.toString()));
        std::exit(1);
    }
    gradeBatch(*made.standard, made.files, Marks(), BatchOptions(), [&made](const CandidateResult& result) {
        made.results.append(result);
        return true;
    });
}

GradedBatch& batch() {
    static GradedBatch graded;
    static const bool prepared = (prepare(graded), true);
    (void)prepared;
    return graded;
}

QString freshDirectory(const QString& name) {
    const QString path = batch().dir.filePath(name);
    QDir(path).removeRecursively();
    return path;
}

void BM_GradeBatch(benchmark::State& state) {
    GradedBatch& graded = batch();
    for (auto _ : state)
        benchmark::DoNotOptimize(gradeBatch(*graded.standard, graded.files, Marks(), BatchOptions(),
                                            [](const CandidateResult&) { return true; }));
}
BENCHMARK(BM_GradeBatch)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

// The same candidates through both sinks, so that the two differ only in what they write.
bool writeAll(ReportSink& sink) {
    GradedBatch& graded = batch();
    bool written =
        sink.beginSection(SectionStart{QStringLiteral("standard.json"), graded.standard, candidates});
    for (const CandidateResult& result : graded.results)
        written = written && sink.addCandidate(result);
    return written && sink.endSection() && sink.finish();
}

void BM_CsvReport(benchmark::State& state) {
    for (auto _ : state) {
        CsvSink sink(std::make_unique<ReportOutput>(freshDirectory(QStringLiteral("rows.csv"))),
                     std::make_unique<ReportOutput>(freshDirectory(QStringLiteral("summary.csv"))));
        if (!writeAll(sink))
            state.SkipWithError(qPrintable(sink.error()));
    }
}
BENCHMARK(BM_CsvReport)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_HtmlReport(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        const QString out = freshDirectory(QStringLiteral("html"));
        state.ResumeTiming();
        HtmlReportSink sink(out);
        if (!writeAll(sink))
            state.SkipWithError(qPrintable(sink.error()));
    }
}
BENCHMARK(BM_HtmlReport)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

} // namespace

BENCHMARK_MAIN();
