#include "run.h"

#include "batch.h"
#include "coursesettings.h"
#include "grading.h"
#include "pooltask.h"
#include "formats.h"
#include "projectreader.h"
#include "report.h"
#include "samples.h"

#include <QTextStream>

#include <atomic>
#include <cstdio>
#include <future>
#include <unistd.h>

namespace Grade {

namespace {

void tell(const QString& message) {
    QTextStream(stderr) << "markgrade: " << message << '\n';
}

// The progress line on a terminal's standard error; messages are written above it. It is not shown
// while the report itself streams onto a terminal, where the two would mix.
class Progress {
public:
    Progress(int candidates, const Options& options)
        : m_shown(candidates > 1 && isatty(STDERR_FILENO) &&
                  !(options.output.isEmpty() && isatty(STDOUT_FILENO))) {}
    void update(int done, int total, int secondsLeft) {
        if (m_shown)
            QTextStream(stderr) << '\r' << progressLine(done, total, secondsLeft) << "\x1b[K"
                                << (done == total ? "\r\x1b[K" : "") << Qt::flush;
    }
    void message(const QString& text) {
        if (m_shown)
            QTextStream(stderr) << "\r\x1b[K";
        tell(text);
    }
    bool shown() const { return m_shown; }

private:
    bool m_shown;
};

struct GradeJob {
    QString standardFile;
    QStringList candidates;
};

// The pairs to grade: the arguments, or the built-in sample exam.
QList<GradeJob> gradeJobs(const Options& options) {
    if (!options.files.isEmpty())
        return {{options.files.first(), options.files.mid(1)}};
    initSamples();
    QList<GradeJob> jobs;
    for (const auto& pair : samplePairs())
        jobs.append({pair.first, {pair.second}});
    return jobs;
}

// The first candidate, read on a second thread while the standard answer is read, and handed to the
// worker that grades that file.
class EarlyRead {
public:
    EarlyRead(const QString& path, const Host::ImportOptions& import)
        : m_path(path), m_read(poolTask([path, import] { return readCandidate(path, import); })) {}
    ~EarlyRead() {
        if (m_read.valid()) // not taken: the standard answer could not be read, or the batch stopped
            m_read.wait();
    }
    // The file as read, the first time path is asked for; false for any other file or later call.
    bool take(const QString& path, CandidateFile& file) {
        if (path != m_path || m_taken.test_and_set())
            return false;
        file = m_read.get();
        return true;
    }

private:
    const QString m_path;
    std::future<CandidateFile> m_read;
    std::atomic_flag m_taken = ATOMIC_FLAG_INIT;
};

enum class SectionOutcome { AllGraded, SomeSkipped, StandardUnreadable, WriteFailed };

SectionOutcome gradeSection(const GradeJob& job, const Marks& marks, const Host::ImportOptions& import,
                            const Options& options, ReportSink& sink) {
    const int threads = batchThreads(options.jobs);
    std::unique_ptr<EarlyRead> early;
    if (threads > 1 && !job.candidates.isEmpty())
        early = std::make_unique<EarlyRead>(job.candidates.first(), import);
    auto standard = QSharedPointer<Host::ProjectFile>::create();
    Host::ReadError error;
    if (!Host::readProjectFile(job.standardFile, *standard, error, import)) {
        tell(QStringLiteral("standard answer ") + escapeControls(error.toString()));
        return SectionOutcome::StandardUnreadable;
    }
    if (!sink.beginSection({job.standardFile, standard, int(job.candidates.size())}))
        return SectionOutcome::WriteFailed;
    Progress progress(job.candidates.size(), options);
    BatchOptions batch;
    batch.jobs = options.jobs;
    // Cores that the candidates leave idle build the standard's side of each pair.
    const Sides sides = job.candidates.size() < threads ? Sides::Together : Sides::OneThread;
    batch.grade = [&early, import, sides](const Host::ProjectFile& standard, const QString& file,
                                          const Marks& marks) {
        CandidateFile candidate;
        if (!early || !early->take(file, candidate))
            candidate = readCandidate(file, import);
        return gradeCandidate(standard, candidate, marks, sides);
    };
    batch.prepare = [&sink](CandidateResult& result) { sink.prepare(result); };
    if (progress.shown())
        batch.progress = [&progress](int done, int total, int left) { progress.update(done, total, left); };
    bool skipped = false;
    const bool written =
        gradeBatch(*standard, job.candidates, marks, batch, [&](const CandidateResult& result) {
            if (!result.graded) {
                progress.message(QStringLiteral("skipped ") + escapeControls(result.error));
                skipped = true;
            }
            return sink.addCandidate(result);
        });
    if (!written || !sink.endSection())
        return SectionOutcome::WriteFailed;
    return skipped ? SectionOutcome::SomeSkipped : SectionOutcome::AllGraded;
}

// The marks file and the course settings; false after telling what is wrong with them.
bool readCourseFiles(const Options& options, Marks& marks, Host::ImportOptions& import) {
    Host::ReadError error;
    if (!options.marksFile.isEmpty() && !readMarksFile(options.marksFile, marks, error)) {
        tell(escapeControls(error.toString()));
        return false;
    }
    Host::CourseSettings settings;
    if (!options.settingsFile.isEmpty() &&
        !Host::readCourseSettingsFile(options.settingsFile, settings, error)) {
        tell(escapeControls(error.toString()));
        return false;
    }
    import = settings.import;
    if (!options.scene.isEmpty())
        import.scene = Host::sceneCode(options.scene);
    import.dedupeNames = options.dedupeNames;
    marks.curveLimits = settings.curveLimits;
    if (settings.networkLimit)
        marks.limits.judgedItems = *settings.networkLimit;
    return true;
}

} // namespace

int runGrading(const Options& options) {
    Marks marks;
    Host::ImportOptions import;
    if (!readCourseFiles(options, marks, import))
        return BadInput;
    const std::unique_ptr<ReportSink> sink = findFormat(options.format)->create(options);
    int exitCode = Graded;
    for (const GradeJob& job : gradeJobs(options)) {
        switch (gradeSection(job, marks, import, options, *sink)) {
        case SectionOutcome::AllGraded:
            break;
        case SectionOutcome::SomeSkipped:
            exitCode = BadInput;
            break;
        case SectionOutcome::StandardUnreadable:
            return BadInput; // the report is not finished, so a report file is not left behind
        case SectionOutcome::WriteFailed:
            tell(escapeControls(sink->error()));
            return BadInput;
        }
    }
    if (!sink->finish()) {
        tell(escapeControls(sink->error()));
        return BadInput;
    }
    return exitCode;
}

int runGenerate(const Options& options) {
    QStringList files;
    QString error;
    if (!generateBatch(options.generateDir, options.generateCount, files, error, options.stages)) {
        tell(error);
        return BadInput;
    }
    QTextStream(stdout) << "wrote " << options.generateDir << "/standard.json and " << files.size()
                        << " candidates\n";
    return Graded;
}

} // namespace Grade
