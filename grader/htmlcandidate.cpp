#include "htmlcandidate.h"

#include "htmlpage.h"
#include "htmlschedule.h"
#include "report.h"

#include <QXmlStreamWriter>

namespace Grade {
namespace Html {

namespace {

const QString separator = QStringLiteral(" · ");

QString criterionDetail(const ScoredNode& node, const QString& note) {
    QStringList parts;
    if (!node.value.isEmpty() && node.items.isEmpty()) // a group's value says nothing of its own
        parts << QStringLiteral("value: ") + node.value;
    if (!node.standardValue.isEmpty() && node.items.isEmpty())
        parts << QStringLiteral("standard: ") + node.standardValue;
    if (!node.remark.isEmpty())
        parts << QStringLiteral("remark: ") + node.remark;
    for (const QString& text : {note, node.note})
        if (!text.isEmpty())
            parts << QStringLiteral("note: ") + text;
    return parts.join(separator);
}

// One criterion as a line: symbol, name with its value, remark and note beneath, marks.
void writeCriterion(QXmlStreamWriter& out, const QString& tag, const ScoredNode& node, const QString& note) {
    const bool lost = node.lost();
    open(out, tag, lost ? QStringLiteral("crit lost") : QStringLiteral("crit"));
    element(out, QStringLiteral("span"), lost ? QStringLiteral("sym") : QStringLiteral("sym full"),
            marksSymbol(lost));
    open(out, QStringLiteral("span"), QStringLiteral("name"));
    out.writeCharacters(node.name);
    const QString detail = criterionDetail(node, note);
    if (!detail.isEmpty())
        element(out, QStringLiteral("span"), QStringLiteral("detail"), detail);
    out.writeEndElement();
    element(out, QStringLiteral("span"), QStringLiteral("marks num"),
            QStringLiteral("%1 / %2").arg(marksText(node.obtained), marksText(node.full)));
    out.writeEndElement();
}

// A criterion with criteria below it folds; it is open when marks were lost below it.
void writeNode(QXmlStreamWriter& out, const ScoredNode& node, const QString& cssClass, const QString& note) {
    if (node.items.isEmpty()) {
        writeCriterion(out, QStringLiteral("div"), node, note);
        return;
    }
    open(out, QStringLiteral("details"), cssClass);
    if (subtreeLost(node))
        out.writeAttribute(QStringLiteral("open"), QStringLiteral("open"));
    out.writeStartElement(QStringLiteral("summary"));
    writeCriterion(out, QStringLiteral("span"), node, note);
    out.writeEndElement();
    for (const ScoredNode& child : node.items)
        writeNode(out, child, QString(), QString());
    out.writeEndElement();
}

// A category's tree under its title and marks, which the root may not carry itself.
void writeCategory(QXmlStreamWriter& out, const CategoryResult& category) {
    if (!category.available) {
        open(out, QStringLiteral("div"), QStringLiteral("crit unavailable"));
        element(out, QStringLiteral("span"), QStringLiteral("sym"), QStringLiteral("–"));
        open(out, QStringLiteral("span"), QStringLiteral("name"));
        out.writeCharacters(category.title);
        element(out, QStringLiteral("span"), QStringLiteral("detail"), category.note);
        out.writeEndElement();
        element(out, QStringLiteral("span"), QStringLiteral("marks num"),
                QStringLiteral("— / %1").arg(marksText(category.full)));
        out.writeEndElement();
        return;
    }
    ScoredNode root = category.tree;
    if (root.name != category.title && !root.name.isEmpty())
        root.name = category.title + separator + root.name; // a pricing or model tree names its project
    else
        root.name = category.title;
    root.full = category.full;
    root.obtained = category.obtained;
    writeNode(out, root, QStringLiteral("category"), category.note);
}

void writeMarks(QXmlStreamWriter& out, const CandidateResult& result) {
    section(out, QStringLiteral("marks"), QStringLiteral("Marks"));
    open(out, QStringLiteral("div"), QStringLiteral("bars"));
    marksBar(out, QStringLiteral("Total"), result.obtained(), result.full(), QStringLiteral("total"));
    for (const CategoryResult& category : result.categories) {
        if (category.available)
            marksBar(out, category.title, category.obtained, category.full);
        else
            unavailableBar(out, category.title, category.full);
    }
    out.writeEndElement();
    out.writeEndElement();
}

void writeHeader(QXmlStreamWriter& out, const CandidatePage& page) {
    open(out, QStringLiteral("p"), QStringLiteral("nav"));
    link(out, page.indexHref, QStringLiteral("← Cohort"));
    out.writeEndElement();
    element(out, QStringLiteral("h1"), QString(), page.result->file);
    element(out, QStringLiteral("p"), QStringLiteral("meta"),
            QStringLiteral("Graded against the standard answer %1").arg(page.standardFile));
    for (const QString& note : page.result->notes)
        element(out, QStringLiteral("p"), QStringLiteral("note"), QStringLiteral("Note: ") + note);
}

} // namespace

bool subtreeLost(const ScoredNode& node) {
    if (node.lost())
        return true;
    for (const ScoredNode& child : node.items)
        if (subtreeLost(child))
            return true;
    return false;
}

void writeCandidateBody(QXmlStreamWriter& out, const CandidatePage& page) {
    const CandidateResult& result = *page.result;
    writeHeader(out, page);
    writeMarks(out, result);
    section(out, QStringLiteral("criteria"), QStringLiteral("Criteria"));
    for (const CategoryResult& category : result.categories)
        writeCategory(out, category);
    out.writeEndElement();
    const bool schedules = page.standard && result.project &&
                           page.standard->kind == Host::ProjectKind::Schedule &&
                           result.project->kind == Host::ProjectKind::Schedule;
    if (schedules)
        writeScheduleSections(out, page.standard->schedule, result.project->schedule);
}

} // namespace Html
} // namespace Grade
