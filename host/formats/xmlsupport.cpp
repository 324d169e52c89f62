#include "xmlsupport.h"

#include <cmath>

namespace Host {

namespace {

const int foundShown = 40;   // characters of an unexpected text shown in a message
const int pathEndsShown = 4; // elements shown at each end of a longer element path

QString pathText(const QStringList& path) {
    if (path.size() <= 2 * pathEndsShown + 1)
        return path.join(QLatin1Char('/'));
    return QStringList(path.mid(0, pathEndsShown)).join(QLatin1Char('/')) + QStringLiteral("/…/") +
           QStringList(path.mid(path.size() - pathEndsShown)).join(QLatin1Char('/'));
}

QString quoted(const QString& text) {
    const QString shown = text.size() > foundShown ? text.left(foundShown) + QStringLiteral("…") : text;
    return QLatin1Char('"') + shown + QLatin1Char('"');
}

} // namespace

XmlCursor::XmlCursor(const QByteArray& bytes, ReadError& error) : m_xml(bytes), m_error(error) {}

bool XmlCursor::advance() {
    if (!ok())
        return false;
    switch (m_xml.readNext()) {
    case QXmlStreamReader::StartElement:
        m_path.append(m_xml.name().toString());
        if (m_path.size() > maxDepth)
            return fail(where(), QStringLiteral("expected at most %1 levels of elements").arg(maxDepth));
        return true;
    case QXmlStreamReader::EndElement:
        m_path.removeLast();
        return true;
    case QXmlStreamReader::Invalid:
        checkXml();
        return false;
    case QXmlStreamReader::EndDocument:
        return false;
    default:
        return true;
    }
}

void XmlCursor::checkXml() {
    if (m_xml.hasError())
        fail(where(),
             QStringLiteral("expected well-formed XML, found an error: %1").arg(m_xml.errorString()));
}

bool XmlCursor::child() {
    const int depth = m_path.size();
    while (advance()) {
        if (m_path.size() > depth)
            return true;
        if (m_path.size() < depth)
            return false; // the element entered last has ended
    }
    return false;
}

QString XmlCursor::text() {
    if (!ok())
        return QString();
    const QString value = m_xml.readElementText(QXmlStreamReader::SkipChildElements);
    if (m_xml.hasError()) {
        checkXml();
        return QString();
    }
    m_path.removeLast();
    return value;
}

void XmlCursor::skip() {
    const int depth = m_path.size();
    while (m_path.size() >= depth && advance()) {
    }
}

QString XmlCursor::attribute(const char* name) const {
    return m_xml.attributes().value(QLatin1String(name)).toString();
}

bool XmlCursor::finish() {
    while (advance()) {
    }
    return ok();
}

QString XmlCursor::where() const {
    return QStringLiteral("line %1, column %2 (%3)")
        .arg(m_xml.lineNumber())
        .arg(m_xml.columnNumber())
        .arg(pathText(m_path));
}

QString XmlCursor::where(const char* attribute) const {
    return QStringLiteral("line %1, column %2 (%3/@%4)")
        .arg(m_xml.lineNumber())
        .arg(m_xml.columnNumber())
        .arg(pathText(m_path), QLatin1String(attribute));
}

bool XmlCursor::fail(const QString& where, const QString& message) {
    if (ok()) // the first error stands
        m_error.fail(where, message);
    return false;
}

bool XmlCursor::failFound(const QString& where, const QString& expected, const QString& text) {
    return fail(where, QStringLiteral("expected %1, found %2").arg(expected, quoted(text)));
}

bool XmlCursor::number(const QString& text, const QString& where, double minimum, double maximum,
                       const QString& expected, double& out) {
    bool parsed = false;
    const double value = text.trimmed().toDouble(&parsed);
    if (!parsed || !std::isfinite(value) || value < minimum || value > maximum)
        return failFound(where, expected, text);
    out = value;
    return true;
}

bool XmlCursor::id(const QString& text, const QString& where, QString& out) {
    bool parsed = false;
    const qlonglong value = text.trimmed().toLongLong(&parsed);
    if (!parsed)
        return failFound(where, QStringLiteral("a whole number as id"), text);
    out = QString::number(value);
    return true;
}

bool XmlCursor::readNumber(double minimum, double maximum, const QString& expected, double& out) {
    const QString at = where();
    const QString value = text();
    return ok() && number(value, at, minimum, maximum, expected, out);
}

bool XmlCursor::readInteger(int minimum, int maximum, const QString& expected, int& out) {
    const QString at = where();
    const QString value = text();
    bool parsed = false;
    const int number = value.trimmed().toInt(&parsed);
    if (!ok())
        return false;
    if (!parsed || number < minimum || number > maximum)
        return failFound(at, expected, value);
    out = number;
    return true;
}

bool XmlCursor::readId(QString& out) {
    const QString at = where();
    const QString value = text();
    return ok() && id(value, at, out);
}

bool XmlCursor::numberAttribute(const char* name, double minimum, double maximum, const QString& expected,
                                double& out) {
    return !hasAttribute(name) || number(attribute(name), where(name), minimum, maximum, expected, out);
}

void readAllocations(XmlCursor& cursor, const char* percent, QList<ImportedAssignment>& out) {
    const double maxPercent = 1.0e8;
    cursor.each("allocation", [&] {
        ImportedAssignment assignment;
        double share = 100.0;
        assignment.where = cursor.where();
        if (cursor.idAttribute("task-id", assignment.task) &&
            cursor.idAttribute("resource-id", assignment.resource) &&
            cursor.numberAttribute(percent, 0.0, maxPercent,
                                   QStringLiteral("a share in percent from 0 to 100000000"), share)) {
            assignment.unitsPerDay = share / 100.0;
            out.append(assignment);
        }
        cursor.skip();
    });
}

bool isTrue(const QString& text) {
    const QString trimmed = text.trimmed();
    return trimmed == QLatin1String("1") || trimmed.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0;
}

} // namespace Host
