// markgrade's command line: what to grade, how to report it, and the batch generator.
#ifndef OPTIONS_H
#define OPTIONS_H

#include <QString>
#include <QStringList>

namespace Grade {

enum ExitCode { Graded = 0, BadInput = 1, Usage = 2 };

enum class Command { Grade, Generate, Help };
enum class ColorWhen { Auto, Always, Never };

struct Options {
    Command command = Command::Grade;
    QString format = QStringLiteral("text");
    QString output; // empty: standard output
    QString marksFile;
    QString settingsFile; // a course settings file (docs/importing.md)
    QString scene;        // for files that state none: plain, Site or Twin; empty: the settings' or plain
    bool dedupeNames = false;
    QString summary; // csv: the summary's own file
    bool lostOnly = false;
    ColorWhen color = ColorWhen::Auto;
    bool pretty = false;
    int jobs = 0; // 0: one worker per core
    int stages = 1;
    QString generateDir;
    int generateCount = 0;
    QStringList files; // the standard answer, then its candidates; none: the built-in sample exam

    // Whether the text report colours lost marks: always, or when it goes to a terminal.
    bool colorWanted() const;
};

// Reads the arguments as QCoreApplication::arguments() gives them, the program first. False with a
// message on wrong usage.
bool parseOptions(const QStringList& arguments, Options& options, QString& error);

// "-j2", "-fcsv", "-oFILE" as "-j 2", "-f csv", "-o FILE": the parser reads a word after one dash as
// a long option ("-jobs"), so the attached forms would be refused.
QStringList splitAttachedValues(const QStringList& arguments);

QString helpText();

} // namespace Grade

#endif // OPTIONS_H
