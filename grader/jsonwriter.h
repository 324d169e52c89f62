// A JSON text written as it goes: objects, arrays, strings, numbers and booleans appended to a
// buffer that is handed on whenever it grows past a block, so that a report of any size takes a
// block of memory, not a document tree. Compact, or indented by four spaces a level.
#ifndef JSONWRITER_H
#define JSONWRITER_H

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

namespace Grade {

class JsonWriter {
public:
    // Takes a full block (and the rest at flush()); false stops the writing.
    using Drain = std::function<bool(const QByteArray&)>;

    // depth: the indentation level that the first value starts at, when pretty.
    JsonWriter(bool pretty, int depth, Drain drain);

    void beginObject();
    void endObject();
    void beginArray();
    void endArray();
    // The key of the next value in the current object.
    void key(const char* name);

    void value(const QString& text);
    void value(double number); // a number that is not finite is written as null, as QJsonDocument does
    void value(bool flag);
    void value(int number) { value(double(number)); }
    void value(const QStringList& texts);

    template <class T> void field(const char* name, const T& data) {
        key(name);
        value(data);
    }

    // Hands on what is buffered; false once any hand-over has failed.
    bool flush();
    bool ok() const { return m_ok; }

    // A JSON string literal of text.
    static QByteArray quoted(const QString& text);

private:
    void beforeValue();
    void open(char bracket);
    void close(char bracket);
    void newline(int depth);
    void drainIfFull();
    static void appendQuoted(QByteArray& out, const QString& text);

    QByteArray m_out;
    Drain m_drain;
    bool m_pretty;
    bool m_ok = true;
    bool m_afterKey = false;
    int m_baseDepth;
    QVector<int> m_counts; // values written so far in each open container
};

} // namespace Grade

#endif // JSONWRITER_H
