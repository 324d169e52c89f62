#include "options.h"

#include "formats.h"
#include "projectreader.h"

#include <QCommandLineParser>

#include <unistd.h>

namespace Grade {

namespace {

QCommandLineOption makeOption(const char* names, const char* valueName = nullptr) {
    const QStringList list = QString::fromLatin1(names).split(QLatin1Char('|'));
    return valueName ? QCommandLineOption(list, QString(), QString::fromLatin1(valueName))
                     : QCommandLineOption(list);
}

// Every option; the help text describes them.
struct CommandOptions {
    QCommandLineOption format = makeOption("f|format", "FORMAT");
    QCommandLineOption output = makeOption("o|output", "PATH");
    QCommandLineOption marks = makeOption("m|marks", "FILE");
    QCommandLineOption settings = makeOption("settings", "FILE");
    QCommandLineOption scene = makeOption("scene", "SCENE");
    QCommandLineOption dedupe = makeOption("dedupe-names");
    QCommandLineOption summary = makeOption("summary", "FILE");
    QCommandLineOption lostOnly = makeOption("lost-only");
    QCommandLineOption color = makeOption("color", "WHEN");
    QCommandLineOption pretty = makeOption("pretty");
    QCommandLineOption jobs = makeOption("j|jobs", "N");
    QCommandLineOption generate = makeOption("generate-batch", "DIR");
    QCommandLineOption stages = makeOption("stages", "K");
    QCommandLineOption help = makeOption("h|help");

    QList<QCommandLineOption> all() const {
        return {format,   output, marks,  settings, scene,    dedupe, summary,
                lostOnly, color,  pretty, jobs,     generate, stages, help};
    }
};

// A whole number of at least 1 from an option's value or an argument.
bool positiveNumber(const QString& text, int& number) {
    bool isNumber = false;
    number = text.toInt(&isNumber);
    return isNumber && number >= 1;
}

bool readReportOptions(const QCommandLineParser& parser, const CommandOptions& known, Options& options,
                       QString& error) {
    if (parser.isSet(known.format))
        options.format = parser.value(known.format);
    const ReportFormat* format = findFormat(options.format);
    if (!format) {
        error = QStringLiteral("unknown format \"%1\": use %2").arg(options.format, formatNames());
        return false;
    }
    options.output = parser.value(known.output);
    if (format->outputIsDirectory && options.output.isEmpty()) {
        error = QStringLiteral("-f %1 writes a directory: name it with -o DIR").arg(format->name);
        return false;
    }
    options.marksFile = parser.value(known.marks);
    options.settingsFile = parser.value(known.settings);
    options.dedupeNames = parser.isSet(known.dedupe);
    options.scene = parser.value(known.scene);
    if (parser.isSet(known.scene) && Host::sceneCode(options.scene) < 0) {
        error = QStringLiteral("unknown --scene \"%1\": use plain, Site or Twin").arg(options.scene);
        return false;
    }
    options.summary = parser.value(known.summary);
    options.lostOnly = parser.isSet(known.lostOnly);
    options.pretty = parser.isSet(known.pretty);
    const QString color = parser.isSet(known.color) ? parser.value(known.color) : QStringLiteral("auto");
    const QStringList colors{QStringLiteral("auto"), QStringLiteral("always"), QStringLiteral("never")};
    if (!colors.contains(color)) {
        error = QStringLiteral("unknown --color \"%1\": use auto, always or never").arg(color);
        return false;
    }
    options.color = ColorWhen(colors.indexOf(color));
    return true;
}

bool readGenerateOptions(const QCommandLineParser& parser, const CommandOptions& known, Options& options,
                         QString& error) {
    options.command = Command::Generate;
    options.generateDir = parser.value(known.generate);
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() != 1 || !positiveNumber(arguments[0], options.generateCount)) {
        error = QStringLiteral("--generate-batch DIR takes one more argument, the number of candidates "
                               "(1 or more)");
        return false;
    }
    if (parser.isSet(known.stages) && !positiveNumber(parser.value(known.stages), options.stages)) {
        error = QStringLiteral("--stages takes a number of at least 1");
        return false;
    }
    return true;
}

} // namespace

bool Options::colorWanted() const {
    return color == ColorWhen::Always ||
           (color == ColorWhen::Auto && output.isEmpty() && isatty(STDOUT_FILENO));
}

QStringList splitAttachedValues(const QStringList& arguments) {
    QStringList valued, names; // the names of options that take a value; of all options
    for (const QCommandLineOption& option : CommandOptions().all()) {
        names += option.names();
        if (!option.valueName().isEmpty())
            valued += option.names();
    }
    QStringList split = arguments.mid(0, 1); // the program
    for (int i = 1; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        if (argument == QLatin1String("--")) { // the rest are files
            split += arguments.mid(i);
            break;
        }
        const bool option = argument.size() > 1 && argument.startsWith(QLatin1Char('-'));
        const bool shortForm = option && !argument.startsWith(QLatin1String("--"));
        const QString name = argument.mid(shortForm ? 1 : 2);
        if (option && valued.contains(name)) {
            split << argument << arguments.mid(i + 1, 1); // the value, whatever it looks like
            ++i;
        } else if (shortForm && valued.contains(name.left(1)) &&
                   !names.contains(name.section(QLatin1Char('='), 0, 0))) {
            split << argument.left(2) << argument.mid(2);
        } else {
            split << argument;
        }
    }
    return split;
}

bool parseOptions(const QStringList& arguments, Options& options, QString& error) {
    const CommandOptions known;
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addOptions(known.all());
    if (!parser.parse(splitAttachedValues(arguments))) {
        error = parser.errorText();
        return false;
    }
    if (parser.isSet(known.help)) {
        options.command = Command::Help;
        return true;
    }
    if (!readReportOptions(parser, known, options, error))
        return false;
    if (parser.isSet(known.generate))
        return readGenerateOptions(parser, known, options, error);
    if (parser.isSet(known.jobs) && !positiveNumber(parser.value(known.jobs), options.jobs)) {
        error = QStringLiteral("--jobs takes a number of at least 1");
        return false;
    }
    options.files = parser.positionalArguments();
    if (options.files.size() == 1) {
        error = QStringLiteral("a standard answer needs at least one candidate");
        return false;
    }
    return true;
}

QString helpText() {
    QString formats;
    for (const ReportFormat& format : reportFormats())
        formats +=
            QStringLiteral("  %1 %2%3\n")
                .arg(format.name, -6)
                .arg(format.description,
                     format.outputIsDirectory ? QStringLiteral(" (into the directory -o names)") : QString());
    return QStringLiteral(
               "Usage: markgrade [options] STANDARD CANDIDATE...\n"
               "       (MS Project XML, GanttProject, Primavera P6 XER, MPX, GNOME Planner or our JSON)\n"
               "       markgrade --generate-batch DIR N [--stages K]\n"
               "       markgrade\n\n"
               "Grades one or many candidates' project files against one standard answer: the seven "
               "schedule\n"
               "categories of the standard's scene, or the pricing or building-model tree. With no "
               "arguments,\n"
               "grades the built-in sample exam (a Site schedule, a pricing file and a building model). A "
               "batch\n"
               "is reported candidate by candidate, in the order of the files, as grading goes.\n\n"
               "Options:\n"
               "  -f, --format FORMAT     %1 (default %2; below)\n"
               "  -o, --output PATH       write the report to PATH instead of standard output; a file "
               "appears\n"
               "                          whole when the report is done, or not at all\n"
               "  -m, --marks FILE        full marks per category (JSON; see docs/project-format.md)\n"
               "      --settings FILE     course settings: scene, durations, Gantt settings, resource "
               "names,\n"
               "                          curve limits, network limit (JSON; see docs/importing.md)\n"
               "      --scene SCENE       plain, Site or Twin, for files that state no scene (every format\n"
               "                          but our JSON); overrides the settings\n"
               "      --dedupe-names      number work items whose names repeat: \"Task 1 (2)\"\n"
               "      --summary FILE      csv: write the per-candidate summary to FILE instead of after the "
               "rows\n"
               "      --lost-only         text: show only the branches where marks were lost\n"
               "      --color WHEN        auto (default), always or never: colour lost marks in the text "
               "report\n"
               "      --pretty            json: indent the document\n"
               "  -j, --jobs N            graders working at once (default: one per core); also -jN\n"
               "      --generate-batch DIR N\n"
               "                          write a standard answer and N sample candidates (one of them "
               "broken)\n"
               "                          to DIR\n"
               "      --stages K          with --generate-batch: chain K copies of the sample's 30 work "
               "items\n"
               "                          in every file (default 1), for batches of large schedules\n"
               "  -h, --help              show this help\n\n"
               "Formats:\n%3\n"
               "Exit codes: 0 every candidate graded; 1 bad input (unreadable standard, marks or candidate "
               "file;\n"
               "the other candidates are still graded and reported) or a report that could not be written "
               "(a\n"
               "report file is then not left behind); 2 wrong usage.\n")
        .arg(formatNames(), reportFormats().first().name, formats);
}

} // namespace Grade
