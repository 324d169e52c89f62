// The HTML report of the built-in sample exam rendered by a real browser (headless Chromium): the
// DOM it builds holds the totals, every lost criterion and the figures; screenshots are not blank; the
// pages load nothing from outside; printed to PDF they come out on A4 with the expected pages.
// Skips when no Chromium is installed (scripts/deps.sh --test installs it).
#include "batch.h"
#include "grading.h"
#include "htmlcompare.h"
#include "htmlreport.h"
#include "projectreader.h"
#include "report.h"
#include "samples.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUrl>
#include <QtTest>

using namespace Grade;

namespace {

const int browserTimeout = 180000;
const int browsersAtOnce = 3;
const int batchSize = 8;

struct BrowserRun {
    QStringList arguments;
    QByteArray output;
    QString failure; // empty when the browser ran and exited with 0
};

// A page of iframes, one per report page, that writes what report(frame) says of each into
// <pre id="out"> once all have loaded (the browser is run with file access between files).
QByteArray probePage(const QStringList& pages, const char* report) {
    QByteArray html = "<!DOCTYPE html><html><body><pre id='out'>pending</pre>\n";
    for (const QString& page : pages)
        html += "<iframe src='" + QUrl::fromLocalFile(page).toEncoded() + "'></iframe>\n";
    html += "<script>\nfunction report(frame) {\n" + QByteArray(report) + "\n}\n";
    // The window's load event waits for every frame; a frame's own event may fire before a listener
    // on it exists.
    html += R"(window.addEventListener('load', function () {
  var frames = Array.from(document.querySelectorAll('iframe'));
  document.getElementById('out').textContent = frames.map(report).join('\n');
});
</script></body></html>)";
    return html;
}

// How many resources each page fetched, and which.
const char* const resourceReport = R"(
  var entries = frame.contentWindow.performance.getEntriesByType('resource');
  return frame.src.split('/').pop() + ' resources=' + entries.length +
         entries.map(function (e) { return ' ' + e.name; }).join('');)";

// The candidate table's totals as listed, after one click on the Total header and after another.
const char* const sortReport = R"(
  var table = frame.contentDocument.querySelector('table.sortable');
  var totals = function () {
    return Array.from(table.tBodies[0].rows).map(function (row) { return row.cells[1].dataset.sort; }).join(' ');
  };
  var button = table.querySelectorAll('th button')[1];
  var lines = ['listed ' + totals()];
  button.click();
  lines.push('ascending ' + totals());
  button.click();
  lines.push('descending ' + totals());
  return lines.join('\n');)";

// The values after a label line "label v1 v2 ...".
QList<double> listed(const QString& text, const QString& label) {
    QList<double> values;
    for (const QString& line : text.split(QLatin1Char('\n')))
        if (line.startsWith(label + QLatin1Char(' ')))
            for (const QString& value : line.mid(label.size() + 1).split(QLatin1Char(' ')))
                values << value.toDouble();
    return values;
}

// The names of the lost criteria of a tree, the root's own included.
void lostNames(const ScoredNode& node, QStringList& names) {
    if (node.lost())
        names << node.name;
    for (const ScoredNode& child : node.items)
        lostNames(child, names);
}

// Chromium's serialisation of text: &, < and > escaped.
QString domText(const QString& text) {
    QString escaped = text;
    return escaped.replace(QLatin1Char('&'), QStringLiteral("&amp;"))
        .replace(QLatin1Char('<'), QStringLiteral("&lt;"))
        .replace(QLatin1Char('>'), QStringLiteral("&gt;"));
}

QString runTool(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(60000);
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace

class TestHtmlBrowser : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        for (const char* name : {"chromium", "chromium-browser", "google-chrome", "chrome"})
            if (m_browser.isEmpty())
                m_browser = QStandardPaths::findExecutable(QString::fromLatin1(name));
        if (m_browser.isEmpty())
            QSKIP("no Chromium browser installed (bash scripts/deps.sh --test installs Debian's chromium)");
        QVERIFY(m_dir.isValid());
        writeSampleReport();
        writeBatchReport();
        m_pages = QDir(m_report).entryList({QStringLiteral("*.html")}, QDir::Files, QDir::Name);
        QCOMPARE(m_pages.size(), m_results.size() + 1);
        runBrowsers();
    }

    void candidateDom_data() {
        QTest::addColumn<int>("candidate");
        for (int i = 0; i < 3; ++i)
            QTest::newRow(qPrintable(QFileInfo(m_pages.value(i)).baseName())) << i;
    }
    // The DOM holds the total, every lost criterion with its marks, one Gantt chart and one SVG per
    // curve for a schedule, no figure for a pricing or model file.
    void candidateDom() {
        QFETCH(int, candidate);
        const CandidateResult& result = m_results[candidate];
        const QString dom = dump(m_pages[candidate]);
        QVERIFY2(dom.contains(
                     QStringLiteral("%1 / %2").arg(marksText(result.obtained()), marksText(result.full()))),
                 "the total");
        QStringList lost;
        for (const CategoryResult& category : result.categories) {
            ScoredNode root = category.tree;
            root.obtained = category.obtained;
            root.full = category.full;
            lostNames(root, lost);
        }
        QVERIFY(!lost.isEmpty()); // the sample's candidates all lose marks
        for (const QString& name : lost)
            QVERIFY2(dom.contains(domText(name)), qPrintable(name));
        QCOMPARE(dom.count(QStringLiteral("class=\"crit lost\"")), lost.size());
        const bool schedule = result.project->kind == Host::ProjectKind::Schedule;
        QCOMPARE(dom.count(QStringLiteral("<svg class=\"gantt\"")), schedule ? 1 : 0);
        const int curves =
            schedule ? pairCurves(m_standards[candidate]->schedule, result.project->schedule).size() : 0;
        QCOMPARE(dom.count(QStringLiteral("<svg class=\"curve\"")), curves);
        QCOMPARE(dom.count(QStringLiteral("<svg")), (schedule ? 1 : 0) + curves);
    }

    void indexDom() {
        const QString dom = dump(QStringLiteral("index.html"));
        QCOMPARE(dom.count(QStringLiteral("<svg class=\"histogram\"")), m_results.size());
        for (int i = 0; i < m_results.size(); ++i) {
            QVERIFY2(dom.contains(QStringLiteral("href=\"%1\"").arg(m_pages[i])), qPrintable(m_pages[i]));
            QVERIFY(dom.contains(marksText(m_results[i].obtained())));
        }
    }

    // No page names anything outside the report, and in the browser none loads a resource at all.
    void selfContained() {
        const QRegularExpression reference(QStringLiteral("(?:src|href)\\s*=\\s*[\"']([^\"']*)"));
        for (const QString& page : m_pages) {
            QFile file(QDir(m_report).filePath(page));
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QString html = QString::fromUtf8(file.readAll());
            QVERIFY2(!html.contains(QStringLiteral("http://")) && !html.contains(QStringLiteral("https://")),
                     qPrintable(page));
            QVERIFY2(!html.contains(QStringLiteral("url(")) && !html.contains(QStringLiteral("@import")),
                     qPrintable(page));
            for (auto match = reference.globalMatch(html); match.hasNext();) {
                const QString target = match.next().captured(1);
                const bool inPage = target.startsWith(QLatin1Char('#')) &&
                                    html.contains(QStringLiteral("id=\"%1\"").arg(target.mid(1)));
                QVERIFY2(inPage || m_pages.contains(target),
                         qPrintable(page + QStringLiteral(": ") + target));
            }
        }
        const QString probe = probeOutput(QStringLiteral("probe"));
        QVERIFY2(probe.count(QStringLiteral(" resources=0")) == m_pages.size(), qPrintable(probe));
        QVERIFY2(!probe.contains(QRegularExpression(QStringLiteral(" resources=[1-9]"))), qPrintable(probe));
    }

    // Clicking the Total header sorts the candidates by total, a second click the other way round;
    // the broken candidate sorts as -1.
    void sortableTable() {
        const QString sort = probeOutput(QStringLiteral("sort"));
        QList<double> listed = ::listed(sort, QStringLiteral("listed"));
        QCOMPARE(listed.size(), batchSize);
        const QList<double> ascending = ::listed(sort, QStringLiteral("ascending"));
        const QList<double> descending = ::listed(sort, QStringLiteral("descending"));
        std::sort(listed.begin(), listed.end());
        QCOMPARE(ascending, listed);
        std::reverse(listed.begin(), listed.end());
        QCOMPARE(descending, listed);
        QVERIFY(ascending.first() < ascending.last()); // the totals differ, so the order means something
    }

    void screenshots_data() {
        QTest::addColumn<QString>("shot");
        QTest::newRow("candidate") << QStringLiteral("candidate.png");
        QTest::newRow("index") << QStringLiteral("index.png");
    }
    void screenshots() {
        QFETCH(QString, shot);
        QVERIFY2(m_runs.value(shot).failure.isEmpty(), qPrintable(m_runs.value(shot).failure));
        const QImage image(m_dir.filePath(shot));
        QVERIFY(!image.isNull());
        int inked = 0, samples = 0;
        QSet<QRgb> colours;
        for (int y = 0; y < image.height(); y += 3)
            for (int x = 0; x < image.width(); x += 3, ++samples) {
                const QRgb pixel = image.pixel(x, y);
                colours.insert(pixel);
                inked += qGray(pixel) < 200 ? 1 : 0;
            }
        QVERIFY2(inked > samples / 100, qPrintable(QStringLiteral("%1 of %2 dark").arg(inked).arg(samples)));
        QVERIFY2(colours.size() > 20, "hardly any colours");
        QVERIFY2(!runTool(QStringLiteral("fc-list"), {QStringLiteral(":lang=zh")}).trimmed().isEmpty(),
                 "no Chinese font installed: Chinese text shows as boxes (install fonts-noto-cjk)");
    }

    // Printed on A4: the pricing and model pages fit one page each; the schedule page's Gantt chart
    // starts a new page.
    void print_data() {
        QTest::addColumn<int>("candidate");
        QTest::addColumn<int>("pages"); // 0: at least two, one of them starting with the Gantt chart
        QTest::newRow("schedule") << 0 << 0;
        QTest::newRow("pricing") << 1 << 1;
        QTest::newRow("model") << 2 << 1;
    }
    void print() {
        QFETCH(int, candidate);
        QFETCH(int, pages);
        if (QStandardPaths::findExecutable(QStringLiteral("pdfinfo")).isEmpty())
            QSKIP("pdfinfo not installed (poppler-utils)");
        const QString pdf = m_dir.filePath(QStringLiteral("%1.pdf").arg(candidate));
        QVERIFY2(m_runs.value(pdf).failure.isEmpty(), qPrintable(m_runs.value(pdf).failure));
        const QString info = runTool(QStringLiteral("pdfinfo"), {pdf});
        QVERIFY2(info.contains(QRegularExpression(QStringLiteral("Page size:.*\\(A4\\)"))), qPrintable(info));
        const int printed =
            QRegularExpression(QStringLiteral("Pages:\\s+(\\d+)")).match(info).captured(1).toInt();
        if (pages > 0) {
            QCOMPARE(printed, pages);
            return;
        }
        QVERIFY(printed >= 2);
        bool ganttStartsPage = false;
        for (int page = 2; page <= printed && !ganttStartsPage; ++page) {
            const QString text = runTool(QStringLiteral("pdftotext"),
                                         {QStringLiteral("-f"), QString::number(page), QStringLiteral("-l"),
                                          QString::number(page), pdf, QStringLiteral("-")});
            ganttStartsPage = text.trimmed().startsWith(QStringLiteral("Gantt chart"));
        }
        QVERIFY(ganttStartsPage);
    }

private:
    void writeSampleReport() {
        initSamples();
        m_report = m_dir.filePath(QStringLiteral("report"));
        HtmlReportSink sink(m_report);
        for (const auto& pair : samplePairs()) {
            auto standard = QSharedPointer<Host::ProjectFile>::create();
            Host::ReadError error;
            QVERIFY2(Host::readProjectFile(pair.first, *standard, error), qPrintable(error.toString()));
            const CandidateResult result = gradeFile(*standard, pair.second, Marks());
            QVERIFY2(result.graded, qPrintable(result.error));
            QVERIFY(sink.beginSection(SectionStart{pair.first, standard, 1}));
            QVERIFY2(sink.addCandidate(result), qPrintable(sink.error()));
            QVERIFY(sink.endSection());
            m_results.append(result);
            m_standards.append(standard);
        }
        QVERIFY2(sink.finish(), qPrintable(sink.error()));
    }

    QString url(const QString& page) const {
        return QUrl::fromLocalFile(QDir(m_report).filePath(page)).toString();
    }

    // What the browser run of key wrote to standard output.
    QString dump(const QString& key) const {
        const BrowserRun run = m_runs.value(key);
        if (!run.failure.isEmpty())
            qWarning("%s", qPrintable(run.failure));
        return QString::fromUtf8(run.output);
    }

    void runBrowsers() {
        for (const QString& page : m_pages)
            m_runs[page].arguments = QStringList{QStringLiteral("--dump-dom"), url(page)};
        for (const QString& page : {m_pages[0], QStringLiteral("index.html")}) {
            const QString shot =
                page == m_pages[0] ? QStringLiteral("candidate.png") : QStringLiteral("index.png");
            m_runs[shot].arguments =
                QStringList{QStringLiteral("--window-size=1000,1400"),
                            QStringLiteral("--screenshot=") + m_dir.filePath(shot), url(page)};
        }
        for (int i = 0; i < 3; ++i) {
            const QString pdf = m_dir.filePath(QStringLiteral("%1.pdf").arg(i));
            m_runs[pdf].arguments = QStringList{QStringLiteral("--no-pdf-header-footer"),
                                                QStringLiteral("--print-to-pdf=") + pdf, url(m_pages[i])};
        }
        QStringList pagePaths;
        for (const QString& page : m_pages)
            pagePaths << QDir(m_report).filePath(page);
        addProbe(QStringLiteral("probe"), pagePaths, resourceReport);
        addProbe(QStringLiteral("sort"), {QDir(m_batchReport).filePath(QStringLiteral("index.html"))},
                 sortReport);
        QStringList keys = m_runs.keys();
        for (int first = 0; first < keys.size(); first += browsersAtOnce)
            runBatch(keys.mid(first, browsersAtOnce));
    }

    // What a probe page wrote into <pre id="out">.
    QString probeOutput(const QString& key) const {
        const QRegularExpression out(QStringLiteral("<pre id=\"out\">([^<]*)</pre>"));
        return out.match(dump(key)).captured(1);
    }

    void addProbe(const QString& key, const QStringList& pages, const char* report) {
        QFile probe(m_dir.filePath(key + QStringLiteral(".html")));
        QVERIFY(probe.open(QIODevice::WriteOnly));
        probe.write(probePage(pages, report));
        probe.close();
        m_runs[key].arguments = QStringList{
            QStringLiteral("--allow-file-access-from-files"), QStringLiteral("--virtual-time-budget=10000"),
            QStringLiteral("--dump-dom"), QUrl::fromLocalFile(probe.fileName()).toString()};
    }

    // A generated batch's report, for the candidate table's sorting.
    void writeBatchReport() {
        QStringList files;
        QString error;
        QVERIFY2(generateBatch(m_dir.filePath(QStringLiteral("batch")), batchSize, files, error),
                 qPrintable(error));
        auto standard = QSharedPointer<Host::ProjectFile>::create();
        Host::ReadError readError;
        QVERIFY(Host::readProjectFile(m_dir.filePath(QStringLiteral("batch/standard.json")), *standard,
                                      readError));
        m_batchReport = m_dir.filePath(QStringLiteral("batch-report"));
        HtmlReportSink sink(m_batchReport);
        QVERIFY(sink.beginSection(SectionStart{QStringLiteral("standard.json"), standard, batchSize}));
        QVERIFY2(gradeBatch(*standard, files, Marks(), BatchOptions(),
                            [&sink](const CandidateResult& result) { return sink.addCandidate(result); }),
                 qPrintable(sink.error()));
        QVERIFY2(sink.endSection() && sink.finish(), qPrintable(sink.error()));
    }

    // Runs several browsers at once, each with its own profile, the network shut off by resolving
    // no host name.
    void runBatch(const QStringList& keys) {
        QList<QProcess*> processes;
        for (const QString& key : keys) {
            auto* process = new QProcess(this);
            const QString profile = m_dir.filePath(QStringLiteral("profile-%1").arg(m_profiles++));
            QStringList arguments = QStringLiteral("--headless --no-sandbox --disable-gpu --hide-scrollbars "
                                                   "--no-first-run --disable-background-networking "
                                                   "--disable-component-update")
                                        .split(QLatin1Char(' '));
            arguments << QStringLiteral("--host-resolver-rules=MAP * ~NOTFOUND")
                      << QStringLiteral("--user-data-dir=") + profile;
            process->start(m_browser, arguments + m_runs[key].arguments);
            processes.append(process);
        }
        for (int i = 0; i < keys.size(); ++i) {
            QProcess* process = processes[i];
            BrowserRun& run = m_runs[keys[i]];
            if (!process->waitForFinished(browserTimeout) || process->exitStatus() != QProcess::NormalExit ||
                process->exitCode() != 0)
                run.failure = QStringLiteral("%1 %2 failed: %3")
                                  .arg(m_browser, run.arguments.join(QLatin1Char(' ')),
                                       QString::fromUtf8(process->readAllStandardError().right(2000)));
            run.output = process->readAllStandardOutput();
            process->kill();
            process->waitForFinished();
            delete process;
        }
    }

    QTemporaryDir m_dir;
    QString m_browser;
    QString m_report;
    QString m_batchReport;
    QStringList m_pages; // the candidates' pages in order, then index.html
    QList<CandidateResult> m_results;
    QList<QSharedPointer<Host::ProjectFile>> m_standards;
    QMap<QString, BrowserRun> m_runs;
    int m_profiles = 0;
};

QTEST_GUILESS_MAIN(TestHtmlBrowser)
#include "tst_htmlbrowser.moc"
