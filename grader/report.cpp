#include "report.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QTextStream>

namespace Grade {

namespace {

const QString lostMarker = QStringLiteral("✗");
const QString pathSeparator = QStringLiteral(" > ");

bool subtreeLost(const ScoredNode& node) {
    if (node.lost())
        return true;
    for (const ScoredNode& child : node.items)
        if (subtreeLost(child))
            return true;
    return false;
}

QString paint(const QString& line, bool lost, const ReportOptions& options) {
    return options.color && lost ? QStringLiteral("\x1b[31m") + line + QStringLiteral("\x1b[0m") : line;
}

void textNode(QTextStream& out, const ScoredNode& node, int depth, const ReportOptions& options) {
    if (options.lostOnly && !subtreeLost(node))
        return;
    QString line = QStringLiteral("%1 / %2 %3 %4%5")
                       .arg(marksText(node.obtained), 7)
                       .arg(marksText(node.full), 7)
                       .arg(node.lost() ? lostMarker : QStringLiteral(" "))
                       .arg(QString(depth * 2, QLatin1Char(' ')), node.name);
    if (!node.value.isEmpty() && node.items.isEmpty()) // a group's value says nothing of its own
        line += QStringLiteral(" [") + node.value + QLatin1Char(']');
    if (!node.remark.isEmpty())
        line += QStringLiteral(" — ") + node.remark;
    out << paint(line, node.lost(), options) << '\n';
    for (const ScoredNode& child : node.items)
        textNode(out, child, depth + 1, options);
}

QJsonObject jsonNode(const ScoredNode& node) {
    QJsonObject object{{QStringLiteral("name"), node.name},     {QStringLiteral("value"), node.value},
                       {QStringLiteral("full"), node.full},     {QStringLiteral("obtained"), node.obtained},
                       {QStringLiteral("remark"), node.remark}, {QStringLiteral("lost"), node.lost()}};
    QJsonArray items;
    for (const ScoredNode& child : node.items)
        items.append(jsonNode(child));
    object.insert(QStringLiteral("items"), items);
    return object;
}

void csvNode(QTextStream& out, const QString& candidate, const ScoredNode& node, const QString& parentPath) {
    const QString path = parentPath.isEmpty() ? node.name : parentPath + pathSeparator + node.name;
    out << csvField(candidate) << ',' << csvField(path) << ',' << QString::number(node.full, 'g', 12) << ','
        << QString::number(node.obtained, 'g', 12) << ',' << csvField(node.remark) << '\n';
    for (const ScoredNode& child : node.items)
        csvNode(out, candidate, child, path);
}

// Category columns of a batch: every category seen, by type, titled as first seen.
QMap<int, QString> categoryColumns(const QList<ReportSection>& sections) {
    QMap<int, QString> columns;
    for (const ReportSection& section : sections)
        for (const CandidateResult& result : section.results)
            for (const CategoryResult& category : result.categories)
                if (!columns.contains(category.type))
                    columns.insert(category.type, category.title);
    return columns;
}

} // namespace

QString marksText(double marks) {
    return QString::number(marks, 'f', 2);
}

QString csvField(const QString& text) {
    if (!text.contains(QLatin1Char(',')) && !text.contains(QLatin1Char('"')) &&
        !text.contains(QLatin1Char('\n')) && !text.contains(QLatin1Char('\r')))
        return text;
    QString quoted = text;
    quoted.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

static void textSection(QTextStream& out, const ReportSection& section, const ReportOptions& options) {
    const QList<CandidateResult>& results = section.results;
    out << "Standard answer: " << section.standardFile << '\n';
    for (const CandidateResult& result : results) {
        out << '\n' << "Candidate: " << result.file << '\n';
        if (!result.graded) {
            out << paint(QStringLiteral("  not graded: ") + result.error, true, options) << '\n';
            continue;
        }
        for (const QString& note : result.notes)
            out << "  note: " << note << '\n';
        out << QStringLiteral("obtained /    full   criterion [value] — remark\n");
        int unavailable = 0;
        for (const CategoryResult& category : result.categories) {
            if (!category.available) {
                ++unavailable;
                out << QStringLiteral("      -- / %1   %2: %3")
                           .arg(marksText(category.full), 7)
                           .arg(category.title, category.note)
                    << '\n';
                continue;
            }
            if (category.tree.name != category.title) // a pricing or model tree is named after its project
                out << "[" << category.title << "]\n";
            ScoredNode root = category.tree;
            root.full = category.full; // the category's marks, whatever the root kept
            root.obtained = category.obtained;
            textNode(out, root, 0, options);
        }
        const bool lost = result.obtained() < result.full() - 1e-9;
        QString total = QStringLiteral("%1 / %2   Total")
                            .arg(marksText(result.obtained()), 7)
                            .arg(marksText(result.full()), 7);
        if (unavailable > 0)
            total += QStringLiteral(" (%1 of %2 categories not available)")
                         .arg(unavailable)
                         .arg(result.categories.size());
        out << paint(total, lost, options) << '\n';
    }
    if (results.size() > 1) {
        out << '\n' << "Summary\n";
        for (const CandidateResult& result : results) {
            if (result.graded)
                out << QStringLiteral("%1 / %2   %3")
                           .arg(marksText(result.obtained()), 7)
                           .arg(marksText(result.full()), 7)
                           .arg(result.file)
                    << '\n';
            else
                out << QStringLiteral("     not graded   %1").arg(result.file) << '\n';
        }
    }
}

QString textReport(const QList<ReportSection>& sections, const ReportOptions& options) {
    QString text;
    QTextStream out(&text);
    for (int i = 0; i < sections.size(); ++i) {
        if (i > 0)
            out << '\n' << QString(78, QLatin1Char('=')) << '\n';
        textSection(out, sections[i], options);
    }
    out.flush();
    return text;
}

static QJsonObject jsonSection(const ReportSection& section) {
    QJsonArray candidates;
    for (const CandidateResult& result : section.results) {
        QJsonObject candidate{{QStringLiteral("file"), result.file},
                              {QStringLiteral("graded"), result.graded}};
        if (!result.graded) {
            candidate.insert(QStringLiteral("error"), result.error);
            candidates.append(candidate);
            continue;
        }
        QJsonArray categories;
        for (const CategoryResult& category : result.categories) {
            QJsonObject object{{QStringLiteral("type"), category.type},
                               {QStringLiteral("title"), category.title},
                               {QStringLiteral("available"), category.available},
                               {QStringLiteral("full"), category.full},
                               {QStringLiteral("obtained"), category.obtained}};
            if (!category.note.isEmpty())
                object.insert(QStringLiteral("note"), category.note);
            if (category.available)
                object.insert(QStringLiteral("tree"), jsonNode(category.tree));
            categories.append(object);
        }
        candidate.insert(QStringLiteral("notes"), QJsonArray::fromStringList(result.notes));
        candidate.insert(QStringLiteral("full"), result.full());
        candidate.insert(QStringLiteral("obtained"), result.obtained());
        candidate.insert(QStringLiteral("categories"), categories);
        candidates.append(candidate);
    }
    return QJsonObject{{QStringLiteral("standard"), section.standardFile},
                       {QStringLiteral("candidates"), candidates}};
}

QByteArray jsonReport(const QList<ReportSection>& sections) {
    QJsonArray reports;
    for (const ReportSection& section : sections)
        reports.append(jsonSection(section));
    return QJsonDocument(QJsonObject{{QStringLiteral("reports"), reports}}).toJson(QJsonDocument::Indented);
}

QString csvReport(const QList<ReportSection>& sections) {
    QString text;
    QTextStream out(&text);
    out << "candidate,path,full,obtained,remark\n";
    QList<CandidateResult> results;
    for (const ReportSection& section : sections)
        results += section.results;
    for (const CandidateResult& result : results) {
        if (!result.graded) {
            out << csvField(result.file) << ",,,," << csvField(QStringLiteral("not graded: ") + result.error)
                << '\n';
            continue;
        }
        for (const CategoryResult& category : result.categories) {
            if (!category.available) {
                out << csvField(result.file) << ',' << csvField(category.title) << ','
                    << QString::number(category.full, 'g', 12) << ",," << csvField(category.note) << '\n';
                continue;
            }
            csvNode(out, result.file, category.tree, QString());
        }
    }
    out.flush();
    return text;
}

QString csvSummary(const QList<ReportSection>& sections) {
    const QMap<int, QString> columns = categoryColumns(sections);
    QList<CandidateResult> results;
    for (const ReportSection& section : sections)
        results += section.results;
    QString text;
    QTextStream out(&text);
    out << "candidate,status";
    for (const QString& title : columns)
        out << ',' << csvField(title);
    out << ",total,full\n";
    for (const CandidateResult& result : results) {
        out << csvField(result.file) << ',' << (result.graded ? "graded" : "not graded");
        QMap<int, const CategoryResult*> byType;
        for (const CategoryResult& category : result.categories)
            byType.insert(category.type, &category);
        for (auto it = columns.constBegin(); it != columns.constEnd(); ++it) {
            const CategoryResult* category = byType.value(it.key());
            out << ','
                << (category && category->available ? QString::number(category->obtained, 'g', 12)
                                                    : QString());
        }
        if (result.graded)
            out << ',' << QString::number(result.obtained(), 'g', 12) << ','
                << QString::number(result.full(), 'g', 12);
        else
            out << ",,";
        out << '\n';
    }
    out.flush();
    return text;
}

} // namespace Grade
