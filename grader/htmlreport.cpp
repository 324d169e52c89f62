#include "htmlreport.h"

#include "htmlcandidate.h"
#include "htmlindex.h"
#include "htmlpage.h"

#include <QDir>
#include <QFileInfo>

namespace Grade {

namespace {

const QString indexName = QStringLiteral("index.html");

} // namespace

HtmlReportSink::HtmlReportSink(const QString& outputDir) : m_dir(outputDir) {}

QString HtmlReportSink::pageName(int number, const QString& candidateFile) {
    QString base = QFileInfo(candidateFile).completeBaseName();
    for (QChar& c : base)
        if (!(c.isDigit() || (c.unicode() < 128 && c.isLetter()) || c == QLatin1Char('-') ||
              c == QLatin1Char('_')))
            c = QLatin1Char('_');
    return QStringLiteral("%1-%2.html").arg(number, 4, 10, QLatin1Char('0')).arg(base.left(60));
}

bool HtmlReportSink::ensureDirectory() {
    if (m_dirReady)
        return true;
    if (!QDir().mkpath(m_dir) || !QFileInfo(m_dir).isDir())
        return fail(QStringLiteral("%1: the report directory cannot be made").arg(m_dir));
    m_dirReady = true;
    return true;
}

bool HtmlReportSink::beginSection(const SectionStart& section) {
    m_section = section;
    m_cohorts.append(CohortStats(section.standardFile));
    return ensureDirectory();
}

bool HtmlReportSink::addCandidate(const CandidateResult& result) {
    const QString error = m_writer.error(); // an earlier page that could not be written
    if (!error.isEmpty())
        return fail(error);
    if (m_cohorts.isEmpty())
        m_cohorts.append(CohortStats(m_section.standardFile));
    ++m_candidates;
    QString page;
    if (result.graded) {
        if (!ensureDirectory())
            return false;
        page = pageName(m_candidates, result.file);
        const Html::CandidatePage content{&result, m_section.standardFile, m_section.standard.data(),
                                          indexName};
        m_writer.write(QDir(m_dir).filePath(page),
                       Html::renderPage(result.file, false, [&content](QXmlStreamWriter& out) {
                           Html::writeCandidateBody(out, content);
                       }));
    }
    m_cohorts.last().add(result, page);
    return true;
}

bool HtmlReportSink::endSection() {
    m_section = SectionStart();
    return true;
}

bool HtmlReportSink::finish() {
    if (!ensureDirectory())
        return false;
    QString error;
    if (!m_writer.wait(error))
        return fail(error);
    const QByteArray index =
        Html::renderPage(QStringLiteral("Cohort report"), true,
                         [this](QXmlStreamWriter& out) { Html::writeIndexBody(out, m_cohorts); });
    if (!Html::saveFile(QDir(m_dir).filePath(indexName), index, error))
        return fail(error);
    return true;
}

std::unique_ptr<ReportSink> makeHtmlReport(const QString& outputDir) {
    return std::make_unique<HtmlReportSink>(outputDir);
}

} // namespace Grade
