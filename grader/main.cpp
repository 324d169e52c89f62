// markgrade: grades candidates' schedules, pricing files or building-model files against a standard
// answer through the MarkRule library, and reports where and why marks were lost.
#include "allocator.h"
#include "options.h"
#include "run.h"

#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("markgrade"));

    Grade::Options options;
    QString error;
    if (!Grade::parseOptions(QCoreApplication::arguments(), options, error)) {
        QTextStream(stderr) << "markgrade: " << error << "\n(markgrade --help tells how to use it)\n";
        return Grade::Usage;
    }
    switch (options.command) {
    case Grade::Command::Help:
        QTextStream(stdout) << Grade::helpText();
        return Grade::Graded;
    case Grade::Command::Generate:
        return Grade::runGenerate(options);
    case Grade::Command::Grade:
        break;
    }
    if (options.files.size() == 2) // a lone pair
        Grade::keepFreedPages();
    return Grade::runGrading(options);
}
