#include "formats.h"

#include "csvreport.h"
#include "htmlreport.h"
#include "jsonreport.h"
#include "textreport.h"

namespace Grade {

namespace {

std::unique_ptr<ReportOutput> outputOf(const Options& options) {
    return std::make_unique<ReportOutput>(options.output);
}

std::unique_ptr<ReportSink> makeText(const Options& options) {
    TextOptions text;
    text.color = options.colorWanted();
    text.lostOnly = options.lostOnly;
    return std::make_unique<TextSink>(outputOf(options), text);
}

std::unique_ptr<ReportSink> makeJson(const Options& options) {
    return std::make_unique<JsonSink>(outputOf(options), options.pretty);
}

std::unique_ptr<ReportSink> makeCsv(const Options& options) {
    return std::make_unique<CsvSink>(
        outputOf(options),
        options.summary.isEmpty() ? nullptr : std::make_unique<ReportOutput>(options.summary));
}

std::unique_ptr<ReportSink> makeHtml(const Options& options) {
    return makeHtmlReport(options.output);
}

} // namespace

const QList<ReportFormat>& reportFormats() {
    // The first entry is the default; a format that writes a directory sets outputIsDirectory.
    static const QList<ReportFormat> formats{
        {QStringLiteral("text"), QStringLiteral("the scored trees, lost marks marked ✗, and a summary"),
         false, makeText},
        {QStringLiteral("json"), QStringLiteral("every scored tree in one document, compact unless --pretty"),
         false, makeJson},
        {QStringLiteral("csv"),
         QStringLiteral(
             "criterion rows, then candidate rows; text cells starting = + - @ tab CR get a leading '"),
         false, makeCsv},
        {QStringLiteral("html"),
         QStringLiteral("a page per candidate with its Gantt chart and curves, and a cohort index.html"),
         true, makeHtml},
    };
    return formats;
}

const ReportFormat* findFormat(const QString& name) {
    for (const ReportFormat& format : reportFormats())
        if (format.name == name)
            return &format;
    return nullptr;
}

QString formatNames() {
    QStringList names;
    for (const ReportFormat& format : reportFormats())
        names << format.name;
    const QString last = names.takeLast();
    return names.isEmpty() ? last : names.join(QStringLiteral(", ")) + QStringLiteral(" or ") + last;
}

} // namespace Grade
