// The frame every page of the HTML report shares: one self-contained UTF-8 file with its style sheet
// (screen and A4 print) and, where a page sorts tables, its script inline; and the small elements
// the pages are built of. Pages are written through QXmlStreamWriter, which escapes all text.
#ifndef HTMLPAGE_H
#define HTMLPAGE_H

#include <QString>

#include <functional>

class QXmlStreamWriter;

namespace Grade {
namespace Html {

// The inline style sheet and table-sorting script. Both are written as element text, so they hold
// none of the characters the writer escapes (< > & ").
QString styleSheet();
QString sortScript();

// A whole page: the doctype, <head> with title and style, then body() inside <body>, and the sorting
// script when withScript; UTF-8.
QByteArray renderPage(const QString& title, bool withScript,
                      const std::function<void(QXmlStreamWriter&)>& body);
// Writes path whole or not at all (QSaveFile). False with a message naming the file on failure.
bool saveFile(const QString& path, const QByteArray& bytes, QString& error);

// <tag class="cssClass">text</tag>; text may be empty (no self-closing tag, which HTML would
// misread); no class attribute for an empty cssClass.
void element(QXmlStreamWriter& out, const QString& tag, const QString& cssClass, const QString& text);
// Opens <tag class="cssClass">; close with writeEndElement().
void open(QXmlStreamWriter& out, const QString& tag, const QString& cssClass);
// Opens <section class="name" id="name"> with its <h2> heading; close with writeEndElement().
void section(QXmlStreamWriter& out, const QString& name, const QString& heading);
void link(QXmlStreamWriter& out, const QString& href, const QString& text);

// A row of a marks chart: label, a bar of obtained against full marks, "obtained / full" and the
// lost or full mark symbol; cssClass names the row (e.g. "total").
void marksBar(QXmlStreamWriter& out, const QString& label, double obtained, double full,
              const QString& cssClass = QString());
// The row of a category the library could not score: no bar, "— / full".
void unavailableBar(QXmlStreamWriter& out, const QString& label, double full);
// The symbol beside lost marks (✗) or full marks (✓), so that the state reads without colour.
QString marksSymbol(bool lost);

} // namespace Html
} // namespace Grade

#endif // HTMLPAGE_H
