#include "csvreport.h"

#include <charconv>

namespace Grade {

namespace {

const QString pathSeparator = QStringLiteral(" > ");

// As QString::number(value, 'g', 12) writes it (negative zero as 0), in a fraction of the time: this
// runs for every criterion on the thread that writes the report, which the workers wait for.
QString number(double value) {
    char digits[32];
    const char* end = std::to_chars(digits, digits + sizeof digits, value == 0.0 ? 0.0 : value,
                                    std::chars_format::general, 12)
                          .ptr;
    return QString::fromLatin1(digits, int(end - digits));
}

// Rows are appended to one string, without a QTextStream: this runs on the thread that writes the
// report, which all workers wait for.
void csvNode(QString& out, const QString& candidate, const ScoredNode& node, const QString& parentPath) {
    const QString path = parentPath.isEmpty() ? node.name : parentPath + pathSeparator + node.name;
    out += candidate;
    out += QLatin1Char(',');
    out += csvField(path);
    out += QLatin1Char(',');
    out += number(node.full);
    out += QLatin1Char(',');
    out += number(node.obtained);
    out += QLatin1Char(',');
    out += csvField(node.remark);
    out += QLatin1Char(',');
    out += csvField(node.note);
    out += QLatin1Char('\n');
    for (const ScoredNode& child : node.items)
        csvNode(out, candidate, child, path);
}

QString candidateRows(const CandidateResult& result) {
    QString out;
    const QString file = csvField(result.file);
    if (!result.graded)
        out += file + QStringLiteral(",,,,,") + csvField(QStringLiteral("not graded: ") + result.error) +
               QLatin1Char('\n');
    for (const CategoryResult& category : result.categories) {
        if (category.available)
            csvNode(out, file, category.tree, QString());
        else
            out += file + QLatin1Char(',') + csvField(category.title) + QLatin1Char(',') +
                   number(category.full) + QStringLiteral(",,,") + csvField(category.note) +
                   QLatin1Char('\n');
    }
    return out;
}

// What a summary row needs of a candidate, kept on disk until the columns are known.
struct SummaryRecord {
    QString file;
    bool graded = false;
    QMap<int, double> obtained; // by category type, available categories only
    double total = 0.0;
    double full = 0.0;
};

QDataStream& operator<<(QDataStream& out, const SummaryRecord& record) {
    return out << record.file << record.graded << record.obtained << record.total << record.full;
}

QDataStream& operator>>(QDataStream& in, SummaryRecord& record) {
    return in >> record.file >> record.graded >> record.obtained >> record.total >> record.full;
}

QString summaryRow(const SummaryRecord& record, const QMap<int, QString>& columns) {
    QString row =
        csvField(record.file) + (record.graded ? QStringLiteral(",graded") : QStringLiteral(",not graded"));
    for (auto it = columns.constBegin(); it != columns.constEnd(); ++it)
        row += QLatin1Char(',') +
               (record.obtained.contains(it.key()) ? number(record.obtained.value(it.key())) : QString());
    if (record.graded)
        row += QLatin1Char(',') + number(record.total) + QLatin1Char(',') + number(record.full);
    else
        row += QStringLiteral(",,");
    return row + QLatin1Char('\n');
}

} // namespace

QString csvField(const QString& text) {
    static const QString formulaStarts = QStringLiteral("=+-@\t\r");
    QString cell = text;
    if (!cell.isEmpty() && formulaStarts.contains(cell.front()))
        cell.prepend(QLatin1Char('\''));
    if (!cell.contains(QLatin1Char(',')) && !cell.contains(QLatin1Char('"')) &&
        !cell.contains(QLatin1Char('\n')) && !cell.contains(QLatin1Char('\r')))
        return cell;
    cell.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + cell + QLatin1Char('"');
}

CsvSink::CsvSink(std::unique_ptr<ReportOutput> rows, std::unique_ptr<ReportOutput> summary)
    : m_rows(std::move(rows)), m_summary(std::move(summary)) {}

bool CsvSink::write(ReportOutput& output, const QString& text) {
    return output.write(text) || fail(output.error());
}

bool CsvSink::beginSection(const SectionStart&) {
    // Both outputs are opened before the first candidate, so that a bad path fails before any
    // grading.
    const bool opened = m_sections++ > 0 || (m_rows->flush() && (!m_summary || m_summary->flush()));
    if (!opened)
        return fail(m_rows->error().isEmpty() ? m_summary->error() : m_rows->error());
    return m_sections > 1 || write(*m_rows, QStringLiteral("candidate,path,full,obtained,remark,note\n"));
}

void CsvSink::prepare(CandidateResult& result) const {
    result.prepared = candidateRows(result).toUtf8();
    // The rows are all that the trees and the file were kept for: they go on this worker.
    for (CategoryResult& category : result.categories)
        category.tree = ScoredNode();
    result.project.reset();
}

bool CsvSink::addCandidate(const CandidateResult& result) {
    ++m_candidates;
    for (const CategoryResult& category : result.categories)
        if (!m_columns.contains(category.type))
            m_columns.insert(category.type, category.title);
    if (!spoolSummary(result))
        return false;
    if (result.prepared)
        return m_rows->write(*result.prepared) || fail(m_rows->error());
    return write(*m_rows, candidateRows(result));
}

bool CsvSink::spoolSummary(const CandidateResult& result) {
    QDataStream* out = m_summaryRecords.append();
    if (!out)
        return fail(m_summaryRecords.error());
    SummaryRecord record{result.file, result.graded, {}, result.obtained(), result.full()};
    for (const CategoryResult& category : result.categories)
        if (category.available)
            record.obtained.insert(category.type, category.obtained);
    *out << record;
    return true;
}

bool CsvSink::endSection() {
    return true;
}

bool CsvSink::writeSummary(ReportOutput& output) {
    QString header = QStringLiteral("candidate,status");
    for (const QString& title : m_columns)
        header += QLatin1Char(',') + csvField(title);
    if (!write(output, header + QStringLiteral(",total,full\n")))
        return false;
    const bool replayed = m_summaryRecords.replay([&](QDataStream& in) {
        SummaryRecord record;
        in >> record;
        return write(output, summaryRow(record, m_columns));
    });
    return replayed || (error().isEmpty() && fail(m_summaryRecords.error()));
}

bool CsvSink::finish() {
    if (m_summary) {
        if (!writeSummary(*m_summary) || !m_summary->flush())
            return fail(m_summary->error().isEmpty() ? error() : m_summary->error());
    } else if ((m_sections > 1 || m_candidates > 1) &&
               !(write(*m_rows, QStringLiteral("\n")) && writeSummary(*m_rows))) {
        return false;
    }
    // Both are flushed before either is put in place, so that a full disk leaves neither.
    if (!m_rows->flush())
        return fail(m_rows->error());
    if (m_summary && !m_summary->commit())
        return fail(m_summary->error());
    return m_rows->commit() || fail(m_rows->error());
}

} // namespace Grade
