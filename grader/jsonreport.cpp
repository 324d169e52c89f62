#include "jsonreport.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace Grade {

namespace {

QJsonObject jsonNode(const ScoredNode& node) {
    QJsonObject object{{QStringLiteral("name"), node.name},     {QStringLiteral("value"), node.value},
                       {QStringLiteral("full"), node.full},     {QStringLiteral("obtained"), node.obtained},
                       {QStringLiteral("remark"), node.remark}, {QStringLiteral("lost"), node.lost()}};
    if (!node.standardValue.isEmpty())
        object.insert(QStringLiteral("standardValue"), node.standardValue);
    if (!node.note.isEmpty())
        object.insert(QStringLiteral("note"), node.note);
    if (node.locked)
        object.insert(QStringLiteral("judged"), false);
    QJsonArray items;
    for (const ScoredNode& child : node.items)
        items.append(jsonNode(child));
    object.insert(QStringLiteral("items"), items);
    return object;
}

QJsonObject categoryJson(const CategoryResult& category) {
    QJsonObject object{{QStringLiteral("type"), category.type},
                       {QStringLiteral("title"), category.title},
                       {QStringLiteral("available"), category.available},
                       {QStringLiteral("full"), category.full},
                       {QStringLiteral("obtained"), category.obtained}};
    if (!category.note.isEmpty())
        object.insert(QStringLiteral("note"), category.note);
    if (category.available)
        object.insert(QStringLiteral("tree"), jsonNode(category.tree));
    return object;
}

// A JSON string literal: QJsonDocument writes only objects and arrays, so the brackets of a
// one-element array are cut off.
QByteArray jsonString(const QString& text) {
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2);
}

} // namespace

QJsonObject candidateJson(const CandidateResult& result) {
    QJsonObject candidate{{QStringLiteral("file"), result.file}, {QStringLiteral("graded"), result.graded}};
    if (!result.graded) {
        candidate.insert(QStringLiteral("error"), result.error);
        return candidate;
    }
    QJsonArray categories;
    for (const CategoryResult& category : result.categories)
        categories.append(categoryJson(category));
    candidate.insert(QStringLiteral("notes"), QJsonArray::fromStringList(result.notes));
    candidate.insert(QStringLiteral("full"), result.full());
    candidate.insert(QStringLiteral("obtained"), result.obtained());
    candidate.insert(QStringLiteral("categories"), categories);
    return candidate;
}

JsonSink::JsonSink(std::unique_ptr<ReportOutput> output, bool pretty)
    : m_output(std::move(output)), m_pretty(pretty) {}

bool JsonSink::write(const QByteArray& bytes) {
    return m_output->write(bytes) || fail(m_output->error());
}

QByteArray JsonSink::indent(int depth) const {
    return m_pretty ? '\n' + QByteArray(depth * 4, ' ') : QByteArray();
}

bool JsonSink::beginSection(const SectionStart& section) {
    const QByteArray space = m_pretty ? " " : "";
    m_candidates = 0;
    return write((m_sections++ == 0 ? opening() : ",") + indent(2) + '{' + indent(3) +
                 "\"standard\":" + space + jsonString(section.standardFile) + ',' + indent(3) +
                 "\"candidates\":" + space + '[');
}

bool JsonSink::addCandidate(const CandidateResult& result) {
    const QJsonDocument document(candidateJson(result));
    QByteArray object = document.toJson(m_pretty ? QJsonDocument::Indented : QJsonDocument::Compact);
    if (m_pretty) // a string holds no raw line break, so every one is the layout's
        object = object.trimmed().replace('\n', indent(4));
    return write((m_candidates++ > 0 ? "," : "") + indent(4) + object);
}

bool JsonSink::endSection() {
    return write(indent(3) + ']' + indent(2) + '}');
}

bool JsonSink::finish() {
    const QByteArray closing = indent(1) + ']' + indent(0) + "}\n";
    return (write((m_sections == 0 ? opening() : QByteArray()) + closing) && m_output->commit()) ||
           fail(m_output->error());
}

QByteArray JsonSink::opening() const {
    return '{' + indent(1) + (m_pretty ? "\"reports\": [" : "\"reports\":[");
}

} // namespace Grade
