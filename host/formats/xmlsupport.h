// What the XML schedule readers share: a cursor over QXmlStreamReader that keeps the element path
// from the root, so that every message can say "line L, column C (Project/Tasks/Task/Duration)",
// keeps the first error only, and reads numbers and ids with bounds and clear messages.
#ifndef XMLSUPPORT_H
#define XMLSUPPORT_H

#include "importedschedule.h"
#include "readerror.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QXmlStreamReader>

namespace Host {

class XmlCursor {
public:
    // Deeper nesting than this is refused: no schedule format needs it, and readers recurse on it.
    static constexpr int maxDepth = 128;

    XmlCursor(const QByteArray& bytes, ReadError& error);

    bool ok() const { return !m_error.isSet(); }

    // Enters the next child element of the element entered last (at first: the root element).
    // False when that element ends, at the end of the document or after an error; a reader walks
    // the children of an element with `while (cursor.child()) ...`, reading or skipping each.
    bool child();
    bool is(const char* name) const { return m_xml.name() == QLatin1String(name); }
    // The entered element's text, leaving the element.
    QString text();
    // Leaves the entered element unread.
    void skip();
    // Reads each child element called name with read(), which leaves it; skips the others.
    template <typename Read> void each(const char* name, Read read) {
        while (child())
            is(name) ? read() : skip();
    }
    QString attribute(const char* name) const;
    bool hasAttribute(const char* name) const { return m_xml.attributes().hasAttribute(QLatin1String(name)); }
    // Reads what is left of the document: an XML error anywhere in it is an error. Returns ok().
    bool finish();

    // "line L, column C (A/B/C)" for the element entered last, or one of its attributes ("A/B/@name").
    QString where() const;
    QString where(const char* attribute) const;

    // Records the first error; false, so that `return cursor.fail(...)` reads well.
    bool fail(const QString& where, const QString& message);
    // "expected <expected>, found "<text>"".
    bool failFound(const QString& where, const QString& expected, const QString& text);

    // A finite number within [minimum, maximum], or the error "expected <expected>, found ...".
    bool number(const QString& text, const QString& where, double minimum, double maximum,
                const QString& expected, double& out);
    // A whole number written in decimal, as an id text without leading zeros or plus signs.
    bool id(const QString& text, const QString& where, QString& out);
    // The same for the entered element's text, leaving the element.
    bool readNumber(double minimum, double maximum, const QString& expected, double& out);
    bool readInteger(int minimum, int maximum, const QString& expected, int& out);
    bool readId(QString& out);
    // The same for an attribute of the entered element; numberAttribute leaves out as it is when the
    // element has no such attribute.
    bool idAttribute(const char* name, QString& out) { return id(attribute(name), where(name), out); }
    bool numberAttribute(const char* name, double minimum, double maximum, const QString& expected,
                         double& out);

private:
    bool advance(); // one token: pushes or pops the path; false at the end or on an error
    void checkXml();

    QXmlStreamReader m_xml;
    QStringList m_path;
    ReadError& m_error;
};

// The entered <allocations> element of GanttProject (percent: "load") or Planner ("units"): each
// <allocation task-id="1" resource-id="2" units="200"/> gives the resource's share of the task in
// percent of a worker's day, 100 when not given.
void readAllocations(XmlCursor& cursor, const char* percent, QList<ImportedAssignment>& out);

// "yes"/"no" flags as the formats write them: "1"/"0" or "true"/"false".
bool isTrue(const QString& text);

} // namespace Host

#endif // XMLSUPPORT_H
