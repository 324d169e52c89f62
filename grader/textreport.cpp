#include "textreport.h"

#include "report.h"

#include <QTextStream>

#include <algorithm>

namespace Grade {

namespace {

const QString lostMarker = QStringLiteral("✗");

bool subtreeLost(const ScoredNode& node) {
    if (node.lost())
        return true;
    return std::any_of(node.items.cbegin(), node.items.cend(), subtreeLost);
}

QString paint(const QString& line, bool lost, const TextOptions& options) {
    return options.color && lost ? QStringLiteral("\x1b[31m") + line + QStringLiteral("\x1b[0m") : line;
}

void textNode(QTextStream& out, const ScoredNode& node, int depth, const TextOptions& options) {
    if (options.lostOnly && !subtreeLost(node))
        return;
    QString line = QStringLiteral("%1 / %2 %3 %4%5")
                       .arg(marksText(node.obtained), 7)
                       .arg(marksText(node.full), 7)
                       .arg(node.lost() ? lostMarker : QStringLiteral(" "))
                       .arg(QString(depth * 2, QLatin1Char(' ')), escapeControls(node.name));
    if (!node.value.isEmpty() && node.items.isEmpty()) // a group's value says nothing of its own
        line += QStringLiteral(" [") + escapeControls(node.value) + QLatin1Char(']');
    if (!node.remark.isEmpty())
        line += QStringLiteral(" — ") + escapeControls(node.remark);
    out << paint(line, node.lost(), options) << '\n';
    if (!node.note.isEmpty()) // the grader's own explanation, apart from the library's remark
        out << QString(20 + depth * 2, QLatin1Char(' ')) << QStringLiteral("note: ")
            << escapeControls(node.note) << '\n';
    for (const ScoredNode& child : node.items)
        textNode(out, child, depth + 1, options);
}

// The categories of a graded candidate; returns how many were not available.
int textCategories(QTextStream& out, const CandidateResult& result, const TextOptions& options) {
    int unavailable = 0;
    for (const CategoryResult& category : result.categories) {
        const QString title = escapeControls(category.title);
        if (!category.available) {
            ++unavailable;
            out << QStringLiteral("      -- / %1   %2: %3")
                       .arg(marksText(category.full), 7)
                       .arg(title, escapeControls(category.note))
                << '\n';
            continue;
        }
        if (category.tree.name != category.title) // a pricing or model tree is named after its project
            out << "[" << title << "]\n";
        ScoredNode root = category.tree;
        root.full = category.full; // the category's marks, whatever the root kept
        root.obtained = category.obtained;
        textNode(out, root, 0, options);
    }
    return unavailable;
}

QString candidateText(const CandidateResult& result, const TextOptions& options) {
    QString text;
    QTextStream out(&text);
    out << '\n' << "Candidate: " << escapeControls(result.file) << '\n';
    if (!result.graded) {
        out << paint(QStringLiteral("  not graded: ") + escapeControls(result.error), true, options) << '\n';
        return text;
    }
    for (const QString& note : result.notes)
        out << "  note: " << escapeControls(note) << '\n';
    out << QStringLiteral("obtained /    full   criterion [value] — remark\n");
    const int unavailable = textCategories(out, result, options);
    const bool lost = result.obtained() < result.full() - 1e-9;
    QString total = QStringLiteral("%1 / %2   Total")
                        .arg(marksText(result.obtained()), 7)
                        .arg(marksText(result.full()), 7);
    if (unavailable > 0)
        total += QStringLiteral(" (%1 of %2 categories not available)")
                     .arg(unavailable)
                     .arg(result.categories.size());
    out << paint(total, lost, options) << '\n';
    out.flush();
    return text;
}

QString summaryLine(const CandidateResult& result) {
    if (!result.graded)
        return QStringLiteral("     not graded   %1\n").arg(escapeControls(result.file));
    return QStringLiteral("%1 / %2   %3\n")
        .arg(marksText(result.obtained()), 7)
        .arg(marksText(result.full()), 7)
        .arg(escapeControls(result.file));
}

} // namespace

TextSink::TextSink(std::unique_ptr<ReportOutput> output, const TextOptions& options)
    : m_output(std::move(output)), m_options(options) {}

bool TextSink::write(const QString& text) {
    return m_output->write(text) || fail(m_output->error());
}

bool TextSink::beginSection(const SectionStart& section) {
    m_summary = section.candidates > 1;
    const QString rule =
        m_sections++ > 0 ? QLatin1Char('\n') + QString(78, QLatin1Char('=')) + QLatin1Char('\n') : QString();
    return write(rule + QStringLiteral("Standard answer: ") + escapeControls(section.standardFile) +
                 QLatin1Char('\n'));
}

bool TextSink::addCandidate(const CandidateResult& result) {
    if (m_summary) {
        QDataStream* summary = m_summaryLines.append();
        if (!summary)
            return fail(m_summaryLines.error());
        *summary << summaryLine(result);
    }
    return write(candidateText(result, m_options));
}

bool TextSink::endSection() {
    if (!m_summary)
        return true;
    if (!write(QStringLiteral("\nSummary\n")))
        return false;
    const bool replayed = m_summaryLines.replay([this](QDataStream& in) {
        QString line;
        in >> line;
        return write(line);
    });
    return replayed || (error().isEmpty() && fail(m_summaryLines.error()));
}

bool TextSink::finish() {
    return m_output->commit() || fail(m_output->error());
}

} // namespace Grade
