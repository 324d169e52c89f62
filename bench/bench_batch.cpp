// A batch graded by markgrade as a user runs it: a generated standard answer and N candidates of
// about a thousand work items each (34 chained copies of the sample schedule), graded on 1 or 2
// workers into a CSV report file. markgrade runs as a child process, so that its peak memory (the
// kernel's high-water mark of resident memory, VmHWM, as wait4 reports it) is its own; the time is
// the child's wall time, with its CPU time and peak memory as counters.
#include "samples.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <chrono>
#include <fcntl.h>
#include <map>
#include <memory>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <vector>

extern char** environ;

namespace {

struct Batch {
    QTemporaryDir dir;
    QStringList files; // the standard answer, then the candidates
};

// One generated batch per size, kept for the whole run.
const Batch* batchOf(int candidates, int stages) {
    static std::map<std::pair<int, int>, std::unique_ptr<Batch>> batches;
    auto& batch = batches[{candidates, stages}];
    if (!batch) {
        batch = std::make_unique<Batch>();
        QString error;
        if (!batch->dir.isValid() ||
            !Grade::generateBatch(batch->dir.path(), candidates, batch->files, error, stages))
            return nullptr;
        batch->files.prepend(QDir(batch->dir.path()).filePath(QStringLiteral("standard.json")));
    }
    return batch.get();
}

struct ChildRun {
    int exitCode = -1;
    double seconds = 0.0;
    rusage usage{};
};

// Runs markgrade with the arguments, its standard error (the skipped candidate) to /dev/null.
ChildRun runMarkgrade(const QStringList& arguments) {
    std::vector<QByteArray> bytes{QByteArray(MARKGRADE_PATH)};
    for (const QString& argument : arguments)
        bytes.push_back(argument.toLocal8Bit());
    std::vector<char*> argv;
    for (QByteArray& argument : bytes)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    ChildRun run;
    const auto start = std::chrono::steady_clock::now();
    pid_t pid = 0;
    int status = 0;
    if (posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ) == 0 &&
        wait4(pid, &status, 0, &run.usage) == pid && WIFEXITED(status))
        run.exitCode = WEXITSTATUS(status);
    run.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    posix_spawn_file_actions_destroy(&actions);
    return run;
}

double cpuSeconds(const rusage& usage) {
    return usage.ru_utime.tv_sec + usage.ru_stime.tv_sec +
           (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

// Arguments: candidates, chained copies of the sample (30 work items each), workers.
void BM_MarkgradeBatch(benchmark::State& state) {
    const int candidates = int(state.range(0));
    const Batch* batch = batchOf(candidates, int(state.range(1)));
    QTemporaryDir out;
    if (!batch || !out.isValid()) {
        state.SkipWithError("cannot write the batch");
        return;
    }
    const QString report = out.filePath(QStringLiteral("report.csv"));
    const QStringList arguments = QStringList{QStringLiteral("-j"), QString::number(state.range(2)),
                                              QStringLiteral("-f"), QStringLiteral("csv"),
                                              QStringLiteral("-o"), report} +
                                  batch->files;
    for (auto _ : state) {
        const ChildRun run = runMarkgrade(arguments);
        // Exit code 1: the generated batch holds one broken candidate, reported as skipped.
        if (run.exitCode != 1 || QFileInfo(report).size() == 0) {
            state.SkipWithError("markgrade failed");
            return;
        }
        state.SetIterationTime(run.seconds);
        state.counters["cpu_s"] = cpuSeconds(run.usage);
        state.counters["peak_MiB"] = run.usage.ru_maxrss / 1024.0;
        state.counters["candidates_per_s"] = candidates / run.seconds;
    }
}

BENCHMARK(BM_MarkgradeBatch)
    ->ArgNames({"candidates", "copies", "jobs"})
    ->Args({650, 34, 1})
    ->Args({650, 34, 2})
    ->Args({2000, 34, 2})
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kSecond);

} // namespace

BENCHMARK_MAIN();
