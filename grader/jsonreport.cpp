#include "jsonreport.h"

namespace Grade {

namespace {

void writeNode(JsonWriter& out, const ScoredNode& node) {
    out.beginObject();
    out.field("name", node.name);
    out.field("value", node.value);
    if (!node.standardValue.isEmpty())
        out.field("standardValue", node.standardValue);
    out.field("full", node.full);
    out.field("obtained", node.obtained);
    out.field("lost", node.lost());
    if (node.locked)
        out.field("judged", false);
    out.field("remark", node.remark);
    if (!node.note.isEmpty())
        out.field("note", node.note);
    out.key("items");
    out.beginArray();
    for (const ScoredNode& child : node.items)
        writeNode(out, child);
    out.endArray();
    out.endObject();
}

void writeCategory(JsonWriter& out, const CategoryResult& category) {
    out.beginObject();
    out.field("type", category.type);
    out.field("title", category.title);
    out.field("available", category.available);
    out.field("full", category.full);
    out.field("obtained", category.obtained);
    if (!category.note.isEmpty())
        out.field("note", category.note);
    if (category.available) {
        out.key("tree");
        writeNode(out, category.tree);
    }
    out.endObject();
}

} // namespace

void writeCandidate(JsonWriter& out, const CandidateResult& result) {
    out.beginObject();
    out.field("file", result.file);
    out.field("graded", result.graded);
    if (!result.graded) {
        out.field("error", result.error);
        out.endObject();
        return;
    }
    out.field("full", result.full());
    out.field("obtained", result.obtained());
    out.field("notes", result.notes);
    out.key("categories");
    out.beginArray();
    for (const CategoryResult& category : result.categories)
        writeCategory(out, category);
    out.endArray();
    out.endObject();
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
                 "\"standard\":" + space + JsonWriter::quoted(section.standardFile) + ',' + indent(3) +
                 "\"candidates\":" + space + '[');
}

// Written block by block as it goes: a large candidate's report never stands whole in memory.
bool JsonSink::addCandidate(const CandidateResult& result) {
    if (!write((m_candidates++ > 0 ? "," : "") + indent(4)))
        return false;
    JsonWriter out(m_pretty, 4, [this](const QByteArray& bytes) { return write(bytes); });
    writeCandidate(out, result);
    return out.flush();
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
