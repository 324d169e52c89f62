// Writing the HTML report of a generated batch (markgrade --generate-batch) against the CSV report
// of the same graded candidates, and against grading them. The batch is generated and graded once;
// each report iteration writes every page (or the CSV rows and summary) to a fresh directory.
#include "batch.h"
#include "htmlreport.h"
#include "projectreader.h"
#include "report.h"
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
    made.results = gradeBatch(*made.standard, made.files, Marks(), BatchOptions());
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
        benchmark::DoNotOptimize(gradeBatch(*graded.standard, graded.files, Marks(), BatchOptions()));
}
BENCHMARK(BM_GradeBatch)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

void BM_CsvReport(benchmark::State& state) {
    GradedBatch& graded = batch();
    const QList<ReportSection> sections{
        {graded.dir.filePath(QStringLiteral("batch/standard.json")), graded.results}};
    for (auto _ : state) {
        QFile file(freshDirectory(QStringLiteral("rows.csv")));
        if (!file.open(QIODevice::WriteOnly) ||
            file.write((csvReport(sections) + QLatin1Char('\n') + csvSummary(sections)).toUtf8()) < 0)
            state.SkipWithError("cannot write the CSV report");
    }
}
BENCHMARK(BM_CsvReport)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_HtmlReport(benchmark::State& state) {
    GradedBatch& graded = batch();
    for (auto _ : state) {
        state.PauseTiming();
        const QString out = freshDirectory(QStringLiteral("html"));
        state.ResumeTiming();
        HtmlReportSink sink(out);
        bool written =
            sink.beginSection(SectionStart{QStringLiteral("standard.json"), graded.standard, candidates});
        for (const CandidateResult& result : graded.results)
            written = written && sink.addCandidate(result);
        if (!written || !sink.endSection() || !sink.finish())
            state.SkipWithError(qPrintable(sink.error()));
    }
}
BENCHMARK(BM_HtmlReport)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

} // namespace

BENCHMARK_MAIN();
