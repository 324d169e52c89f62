#include "jsonwriter.h"

#include <charconv>
#include <cmath>

namespace Grade {

namespace {

// What is buffered before it is handed on.
const int blockSize = 1 << 20;

// UTF-8 of a code point at p; the end of it.
char* putUtf8(char* p, char32_t code) {
    if (code < 0x80) {
        *p++ = char(code);
    } else if (code < 0x800) {
        *p++ = char(0xC0 | (code >> 6));
        *p++ = char(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        *p++ = char(0xE0 | (code >> 12));
        *p++ = char(0x80 | ((code >> 6) & 0x3F));
        *p++ = char(0x80 | (code & 0x3F));
    } else {
        *p++ = char(0xF0 | (code >> 18));
        *p++ = char(0x80 | ((code >> 12) & 0x3F));
        *p++ = char(0x80 | ((code >> 6) & 0x3F));
        *p++ = char(0x80 | (code & 0x3F));
    }
    return p;
}

// The escape of a quote, a backslash or a control character at p; the end of it.
char* putEscaped(char* p, char16_t code) {
    static const char hex[] = "0123456789abcdef";
    *p++ = '\\';
    switch (code) {
    case '"':
    case '\\':
        *p++ = char(code);
        break;
    case '\n':
        *p++ = 'n';
        break;
    case '\r':
        *p++ = 'r';
        break;
    case '\t':
        *p++ = 't';
        break;
    default: // the other control characters
        *p++ = 'u';
        *p++ = '0';
        *p++ = '0';
        *p++ = hex[code >> 4];
        *p++ = hex[code & 0xF];
    }
    return p;
}

} // namespace

JsonWriter::JsonWriter(bool pretty, int depth, Drain drain)
    : m_drain(std::move(drain)), m_pretty(pretty), m_baseDepth(depth) {
    m_out.reserve(blockSize + blockSize / 4);
}

// Written in place: at most six bytes for each UTF-16 unit (an escape), and the two quotes.
void JsonWriter::appendQuoted(QByteArray& out, const QString& text) {
    const int start = out.size();
    const int size = text.size();
    out.resize(start + 6 * size + 2);
    char* p = out.data() + start;
    *p++ = '"';
    const char16_t* data = reinterpret_cast<const char16_t*>(text.utf16());
    for (int i = 0; i < size; ++i) {
        const char16_t code = data[i];
        if (code < 0x20 || code == '"' || code == '\\')
            p = putEscaped(p, code);
        else if (code < 0xD800 || code > 0xDFFF)
            p = putUtf8(p, code);
        else if (code < 0xDC00 && i + 1 < size && data[i + 1] >= 0xDC00 && data[i + 1] <= 0xDFFF)
            p = putUtf8(p, 0x10000 + ((char32_t(code) - 0xD800) << 10) + (data[++i] - 0xDC00));
        else
            p = putUtf8(p, 0xFFFD); // a lone surrogate has no UTF-8 form
    }
    *p++ = '"';
    out.resize(int(p - out.constData()));
}

QByteArray JsonWriter::quoted(const QString& text) {
    QByteArray out;
    appendQuoted(out, text);
    return out;
}

void JsonWriter::newline(int depth) {
    if (m_pretty)
        m_out.append('\n').append(4 * (m_baseDepth + depth), ' ');
}

// Separates the value from the one before it in an array; a value after a key follows the key.
void JsonWriter::beforeValue() {
    if (m_afterKey) {
        m_afterKey = false;
        return;
    }
    if (!m_counts.isEmpty()) {
        if (m_counts.last()++ > 0)
            m_out.append(',');
        newline(m_counts.size());
    }
}

void JsonWriter::key(const char* name) {
    beforeValue();
    m_out.append('"').append(name).append(m_pretty ? "\": " : "\":");
    m_afterKey = true;
}

void JsonWriter::open(char bracket) {
    beforeValue();
    m_out.append(bracket);
    m_counts.append(0);
}

void JsonWriter::close(char bracket) {
    const bool empty = m_counts.takeLast() == 0;
    if (!empty)
        newline(m_counts.size());
    m_out.append(bracket);
    drainIfFull();
}

void JsonWriter::beginObject() {
    open('{');
}
void JsonWriter::endObject() {
    close('}');
}
void JsonWriter::beginArray() {
    open('[');
}
void JsonWriter::endArray() {
    close(']');
}

void JsonWriter::value(const QString& text) {
    beforeValue();
    appendQuoted(m_out, text);
}

void JsonWriter::value(double number) {
    beforeValue();
    if (!std::isfinite(number)) {
        m_out.append("null");
        return;
    }
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, number == 0.0 ? 0.0 : number).ptr;
    m_out.append(digits, int(end - digits));
}

void JsonWriter::value(bool flag) {
    beforeValue();
    m_out.append(flag ? "true" : "false");
}

void JsonWriter::value(const QStringList& texts) {
    beginArray();
    for (const QString& text : texts)
        value(text);
    endArray();
}

void JsonWriter::drainIfFull() {
    if (m_out.size() >= blockSize)
        flush();
}

bool JsonWriter::flush() {
    if (m_ok && !m_out.isEmpty())
        m_ok = m_drain(m_out);
    m_out.resize(0); // keeps the capacity
    return m_ok;
}

} // namespace Grade
