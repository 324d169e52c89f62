// markgrade: grades candidates' schedules, pricing files or building-model files against a standard
// answer through the MarkRule library, and reports where and why marks were lost.
#include "batch.h"
#include "grading.h"
#include "marks.h"
#include "projectreader.h"
#include "report.h"
#include "samples.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

#include <cstdio>
#include <unistd.h>

namespace {

enum ExitCode { Graded = 0, BadInput = 1, Usage = 2 };

const char* const helpText = R"(Usage: markgrade [options] STANDARD CANDIDATE...
       markgrade --generate-batch DIR N
       markgrade

Grades one or many candidates' project files against one standard answer: the seven schedule
categories of the standard's scene, or the pricing or building-model tree. With no arguments, grades
the built-in sample exam (a Site schedule, a pricing file and a building model).

Options:
  -f, --format FORMAT     text (default), json or csv
  -o, --output FILE       write the report to FILE instead of standard output
  -m, --marks FILE        full marks per category (JSON; see docs/project-format.md)
      --summary FILE      csv: write the per-candidate summary to FILE instead of after the rows
      --lost-only         text: show only the branches where marks were lost
      --color WHEN        auto (default), always or never: colour lost marks in the text report
  -j, --jobs N            graders working at once (default: one per core)
      --generate-batch DIR N
                          write a standard answer and N sample candidates (one of them broken) to DIR
      --stages K          with --generate-batch: chain K copies of the sample's 30 work items in
                          every file (default 1), for batches of large schedules
  -h, --help              show this help

Exit codes: 0 every candidate graded; 1 bad input (unreadable standard, marks or candidate file; the
other candidates are still graded and reported); 2 wrong usage.
)";

int usageError(const QString& message) {
    QTextStream(stderr) << "markgrade: " << message << "\n(markgrade --help tells how to use it)\n";
    return Usage;
}

bool writeOutput(const QString& path, const QByteArray& bytes) {
    if (path.isEmpty()) {
        QFile out;
        return out.open(stdout, QIODevice::WriteOnly) && out.write(bytes) == bytes.size();
    }
    QFile out(path);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate) || out.write(bytes) != bytes.size()) {
        QTextStream(stderr) << "markgrade: " << path << ": cannot be written: " << out.errorString() << '\n';
        return false;
    }
    return true;
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("markgrade"));
    Grade::initSamples();

    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QCommandLineOption formatOption({QStringLiteral("f"), QStringLiteral("format")}, QString(),
                                          QStringLiteral("FORMAT"), QStringLiteral("text"));
    const QCommandLineOption outputOption({QStringLiteral("o"), QStringLiteral("output")}, QString(),
                                          QStringLiteral("FILE"));
    const QCommandLineOption marksOption({QStringLiteral("m"), QStringLiteral("marks")}, QString(),
                                         QStringLiteral("FILE"));
    const QCommandLineOption summaryOption(QStringLiteral("summary"), QString(), QStringLiteral("FILE"));
    const QCommandLineOption lostOnlyOption(QStringLiteral("lost-only"));
    const QCommandLineOption colorOption(QStringLiteral("color"), QString(), QStringLiteral("WHEN"),
                                         QStringLiteral("auto"));
    const QCommandLineOption jobsOption({QStringLiteral("j"), QStringLiteral("jobs")}, QString(),
                                        QStringLiteral("N"));
    const QCommandLineOption generateOption(QStringLiteral("generate-batch"), QString(),
                                            QStringLiteral("DIR"));
    const QCommandLineOption helpOption(QStringList{QStringLiteral("h"), QStringLiteral("help")});
    const QCommandLineOption stagesOption(QStringLiteral("stages"), QString(), QStringLiteral("K"),
                                          QStringLiteral("1"));
    parser.addOptions({formatOption, outputOption, marksOption, summaryOption, lostOnlyOption, colorOption,
                       jobsOption, generateOption, stagesOption, helpOption});
    if (!parser.parse(QCoreApplication::arguments()))
        return usageError(parser.errorText());
    if (parser.isSet(helpOption)) {
        QTextStream(stdout) << helpText;
        return Graded;
    }
    const QStringList arguments = parser.positionalArguments();

    if (parser.isSet(generateOption)) {
        bool isNumber = false;
        const int count = arguments.size() == 1 ? arguments[0].toInt(&isNumber) : 0;
        if (!isNumber || count < 1)
            return usageError(QStringLiteral(
                "--generate-batch DIR takes one more argument, the number of candidates (1 or more)"));
        const int stages = parser.value(stagesOption).toInt(&isNumber);
        if (!isNumber || stages < 1)
            return usageError(QStringLiteral("--stages takes a number of at least 1"));
        QStringList files;
        QString error;
        if (!Grade::generateBatch(parser.value(generateOption), count, files, error, stages)) {
            QTextStream(stderr) << "markgrade: " << error << '\n';
            return BadInput;
        }
        QTextStream(stdout) << "wrote " << parser.value(generateOption) << "/standard.json and "
                            << files.size() << " candidates\n";
        return Graded;
    }

    const QString format = parser.value(formatOption);
    if (format != QLatin1String("text") && format != QLatin1String("json") && format != QLatin1String("csv"))
        return usageError(QStringLiteral("unknown format \"%1\": use text, json or csv").arg(format));
    const QString color = parser.value(colorOption);
    if (color != QLatin1String("auto") && color != QLatin1String("always") && color != QLatin1String("never"))
        return usageError(QStringLiteral("unknown --color \"%1\": use auto, always or never").arg(color));
    int jobs = 0;
    if (parser.isSet(jobsOption)) {
        bool isNumber = false;
        jobs = parser.value(jobsOption).toInt(&isNumber);
        if (!isNumber || jobs < 1)
            return usageError(QStringLiteral("--jobs takes a number of at least 1"));
    }
    if (arguments.size() == 1)
        return usageError(QStringLiteral("a standard answer needs at least one candidate"));

    int exitCode = Graded;
    Grade::Marks marks;
    if (parser.isSet(marksOption)) {
        Host::ReadError error;
        if (!Grade::readMarksFile(parser.value(marksOption), marks, error)) {
            QTextStream(stderr) << "markgrade: " << error.toString() << '\n';
            return BadInput;
        }
    }

    // The pairs to grade: the arguments, or the built-in sample exam.
    QList<QPair<QString, QStringList>> jobsToGrade;
    if (arguments.isEmpty()) {
        for (const auto& pair : Grade::samplePairs())
            jobsToGrade.append(qMakePair(pair.first, QStringList{pair.second}));
    } else {
        jobsToGrade.append(qMakePair(arguments[0], arguments.mid(1)));
    }

    const bool progressShown = isatty(fileno(stderr));
    QList<Grade::ReportSection> sections;
    for (const auto& job : jobsToGrade) {
        Host::ProjectFile standard;
        Host::ReadError error;
        if (!Host::readProjectFile(job.first, standard, error)) {
            QTextStream(stderr) << "markgrade: standard answer " << error.toString() << '\n';
            return BadInput;
        }
        Grade::BatchOptions options;
        options.jobs = jobs;
        if (progressShown && job.second.size() > 1)
            options.progress = [](int done, int total, int left) {
                QTextStream(stderr) << '\r' << Grade::progressLine(done, total, left) << "\x1b[K"
                                    << Qt::flush;
                if (done == total)
                    QTextStream(stderr) << "\r\x1b[K" << Qt::flush;
            };
        Grade::ReportSection section{job.first, Grade::gradeBatch(standard, job.second, marks, options)};
        for (const Grade::CandidateResult& result : section.results) {
            if (!result.graded) {
                QTextStream(stderr) << "markgrade: skipped " << result.error << '\n';
                exitCode = BadInput;
            }
        }
        sections.append(section);
    }

    Grade::ReportOptions reportOptions;
    reportOptions.lostOnly = parser.isSet(lostOnlyOption);
    reportOptions.color =
        color == QLatin1String("always") ||
        (color == QLatin1String("auto") && !parser.isSet(outputOption) && isatty(fileno(stdout)));
    QByteArray bytes;
    const bool batch = sections.size() > 1 || sections.value(0).results.size() > 1;
    if (format == QLatin1String("json")) {
        bytes = Grade::jsonReport(sections);
    } else if (format == QLatin1String("csv")) {
        QString text = Grade::csvReport(sections);
        if (batch && !parser.isSet(summaryOption))
            text += QLatin1Char('\n') + Grade::csvSummary(sections);
        bytes = text.toUtf8();
        if (parser.isSet(summaryOption) &&
            !writeOutput(parser.value(summaryOption), Grade::csvSummary(sections).toUtf8()))
            return BadInput;
    } else {
        bytes = Grade::textReport(sections, reportOptions).toUtf8();
    }
    if (!writeOutput(parser.value(outputOption), bytes))
        return BadInput;
    return exitCode;
}
