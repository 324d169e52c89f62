#include "htmlpage.h"

#include "report.h"

#include <QSaveFile>
#include <QXmlStreamWriter>

#include <algorithm>

namespace Grade {
namespace Html {

namespace {

const int pageReserve = 1 << 17; // characters; a schedule candidate's page is about 100 000

// Fonts that carry Chinese on every common system, before the generic fallback.
const char* const fontStack =
    "'Noto Sans CJK SC', 'Source Han Sans SC', 'Microsoft YaHei', 'PingFang SC', 'Noto Sans', sans-serif";

const char* const screenStyle = R"(
:root { --lost: #c62828; --full: #2e7d32; --std: #8d8d8d; --cand: #1565c0; --line: #d0d0d0; }
* { box-sizing: border-box; }
body { font-family: FONTS; color: #212121; line-height: 1.45; max-width: 62rem; margin: 1.5rem auto;
       padding: 0 1rem; font-size: 15px; }
h1 { font-size: 1.45rem; margin: 0 0 .3rem; } h2 { font-size: 1.2rem; margin: 1.6rem 0 .5rem;
     border-bottom: 2px solid var(--line); } h3 { font-size: 1.05rem; margin: 1.2rem 0 .4rem; }
.meta, .note { color: #555; margin: .2rem 0; } .nav { font-size: .9rem; }
.bars { display: grid; grid-template-columns: minmax(9rem, 18rem) 1fr 8.5rem 1.2rem; gap: .35rem .8rem;
        align-items: center; }
.bar { height: .95rem; border: 1px solid #616161; background: #fff; }
.bar span { display: block; height: 100%; background: var(--full); }
.bars .row { display: contents; } .bars .total { font-weight: bold; } .bars .lost .bar span { background: var(--cand); }
.num { text-align: right; font-variant-numeric: tabular-nums; white-space: nowrap; }
.sym { font-weight: bold; } .lost .sym, .lost.sym { color: var(--lost); } .sym.full { color: var(--full); }
details { margin: .15rem 0 .15rem 1.1rem; } details.category { margin-left: 0; }
summary { cursor: pointer; }
.crit { display: inline-flex; width: calc(100% - 1.3rem); gap: .6rem; align-items: baseline; padding: .1rem .2rem; }
div.crit { margin-left: 2.4rem; width: calc(100% - 2.4rem); }
.crit .name { flex: 1; } .crit.lost { background: #fdecea; } .crit .marks { width: 8rem; }
.crit .detail { margin-left: .7rem; font-size: .85rem; color: #424242; }
.category summary .crit { font-weight: bold; }
figure { margin: .6rem 0 1rem; break-inside: avoid; } figcaption { font-size: .9rem; }
svg { max-width: 100%; height: auto; font-family: FONTS; font-size: 11px; }
svg .axis { stroke: #424242; stroke-width: 1; } svg .grid { stroke: #e0e0e0; stroke-width: 1; }
svg .tick.x { text-anchor: middle; } svg .tick.y { text-anchor: end; }
svg .label.x { text-anchor: end; }
svg .std { fill: #bdbdbd; stroke: #757575; stroke-width: .6; } svg .cand { fill: #64b5f6; stroke: #0d47a1; stroke-width: .6; }
svg .critical { stroke: var(--lost); stroke-width: 2; }
svg .row-missing { fill: #fdecea; } svg .row-extra { fill: #fff3e0; } svg .row-changed { fill: #e3f2fd; }
svg .name.missing { fill: var(--lost); } svg .name.extra { fill: #e65100; } svg .name.changed { fill: #0d47a1; }
svg path.std { fill: none; stroke: #616161; stroke-width: 1.6; stroke-dasharray: 5 3; }
svg path.cand { fill: none; stroke: var(--cand); stroke-width: 1.6; }
svg .bin { fill: #90caf9; stroke: #1565c0; stroke-width: .6; }
.legend { font-size: .85rem; color: #424242; margin: .2rem 0; } .legend .item { margin-right: 1.1rem; white-space: nowrap; }
.swatch { display: inline-block; width: 1.4rem; height: .6rem; border: 1px solid #555; vertical-align: middle; margin-right: .3rem; }
.swatch.std { background: #bdbdbd; } .swatch.cand { background: #64b5f6; } .swatch.critical { background: #fff; border: 2px solid var(--lost); }
.swatch.dashed { background: none; border: none; border-top: 2px dashed #616161; height: 0; }
.swatch.solid { background: none; border: none; border-top: 2px solid var(--cand); height: 0; }
table { border-collapse: collapse; margin: .4rem 0; font-size: .92rem; }
th, td { border-bottom: 1px solid var(--line); padding: .2rem .55rem; text-align: left; }
th button { font: inherit; font-weight: bold; border: none; background: none; cursor: pointer; padding: 0; }
th[aria-sort=ascending] button::after { content: ' \25B2'; } th[aria-sort=descending] button::after { content: ' \25BC'; }
ul.links { columns: 2; } .error { color: var(--lost); }
.curve-values { font-size: .85rem; }
)";

const char* const printStyle = R"(
@page { size: A4; margin: 14mm 12mm; }
@media print {
  body { max-width: none; margin: 0; padding: 0; font-size: 10pt; }
  .nav, th button::after { display: none; }
  a { color: inherit; text-decoration: none; }
  h2 { break-after: avoid; } h3 { break-after: avoid; }
  section.gantt { break-before: page; }
  .bar, .bar span, svg, .crit.lost, .swatch { print-color-adjust: exact; -webkit-print-color-adjust: exact; }
  tr { break-inside: avoid; }
}
)";

const char* const script = R"(
document.querySelectorAll('table.sortable').forEach(function (table) {
  var headers = table.querySelectorAll('th');
  headers.forEach(function (header, column) {
    header.querySelector('button').addEventListener('click', function () {
      var descending = header.getAttribute('aria-sort') === 'ascending';
      var rows = Array.from(table.tBodies[0].rows);
      rows.sort(function (a, b) {
        var x = a.cells[column].dataset.sort, y = b.cells[column].dataset.sort;
        var order = isNaN(x - y) ? x.localeCompare(y) : x - y;
        return descending ? -order : order;
      });
      headers.forEach(function (other) { other.removeAttribute('aria-sort'); });
      header.setAttribute('aria-sort', descending ? 'descending' : 'ascending');
      rows.forEach(function (row) { table.tBodies[0].appendChild(row); });
    });
  });
});
)";

// A row of the marks chart; state is "lost", "full" or empty (not graded).
void barRow(QXmlStreamWriter& out, const QString& label, double share, const QString& marks,
            const QString& state, const QString& cssClass) {
    QStringList classes{QStringLiteral("row"), cssClass, state};
    classes.removeAll(QString());
    open(out, QStringLiteral("div"), classes.join(QLatin1Char(' ')));
    element(out, QStringLiteral("span"), QStringLiteral("label"), label);
    open(out, QStringLiteral("span"), QStringLiteral("bar"));
    open(out, QStringLiteral("span"), QString());
    out.writeAttribute(QStringLiteral("style"), QStringLiteral("width: %1%").arg(share * 100.0, 0, 'f', 1));
    out.writeCharacters(QString());
    out.writeEndElement();
    out.writeEndElement();
    element(out, QStringLiteral("span"), QStringLiteral("num"), marks);
    const QString symbol =
        state.isEmpty() ? QStringLiteral("–") : marksSymbol(state == QLatin1String("lost"));
    element(out, QStringLiteral("span"), QStringLiteral("sym ") + state, symbol);
    out.writeEndElement();
}

void writeHead(QXmlStreamWriter& out, const QString& title) {
    out.writeStartElement(QStringLiteral("head"));
    out.writeEmptyElement(QStringLiteral("meta"));
    out.writeAttribute(QStringLiteral("charset"), QStringLiteral("utf-8"));
    out.writeEmptyElement(QStringLiteral("meta"));
    out.writeAttribute(QStringLiteral("name"), QStringLiteral("viewport"));
    out.writeAttribute(QStringLiteral("content"), QStringLiteral("width=device-width, initial-scale=1"));
    out.writeTextElement(QStringLiteral("title"), title);
    out.writeTextElement(QStringLiteral("style"), styleSheet());
    out.writeEndElement();
}

} // namespace

QString styleSheet() {
    return QString::fromUtf8(screenStyle).replace(QStringLiteral("FONTS"), QString::fromUtf8(fontStack)) +
           QString::fromUtf8(printStyle);
}

QString sortScript() {
    return QString::fromUtf8(script);
}

QByteArray renderPage(const QString& title, bool withScript,
                      const std::function<void(QXmlStreamWriter&)>& body) {
    // Built in memory and written at once: the writer's many small writes would each pass through
    // a file's buffers.
    QString page;
    page.reserve(pageReserve);
    QXmlStreamWriter out(&page);
    out.writeDTD(QStringLiteral("<!DOCTYPE html>"));
    out.writeStartElement(QStringLiteral("html"));
    out.writeAttribute(QStringLiteral("lang"), QStringLiteral("zh-CN"));
    writeHead(out, title);
    out.writeStartElement(QStringLiteral("body"));
    body(out);
    if (withScript)
        out.writeTextElement(QStringLiteral("script"), sortScript());
    out.writeEndDocument();
    return page.toUtf8();
}

bool saveFile(const QString& path, const QByteArray& bytes, QString& error) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        error = QStringLiteral("%1: cannot be written: %2").arg(path, file.errorString());
        return false;
    }
    return true;
}

void open(QXmlStreamWriter& out, const QString& tag, const QString& cssClass) {
    out.writeStartElement(tag);
    if (!cssClass.isEmpty())
        out.writeAttribute(QStringLiteral("class"), cssClass);
}

void element(QXmlStreamWriter& out, const QString& tag, const QString& cssClass, const QString& text) {
    open(out, tag, cssClass);
    out.writeCharacters(text);
    out.writeEndElement();
}

void section(QXmlStreamWriter& out, const QString& name, const QString& heading) {
    open(out, QStringLiteral("section"), name);
    out.writeAttribute(QStringLiteral("id"), name);
    element(out, QStringLiteral("h2"), QString(), heading);
}

void link(QXmlStreamWriter& out, const QString& href, const QString& text) {
    out.writeStartElement(QStringLiteral("a"));
    out.writeAttribute(QStringLiteral("href"), href);
    out.writeCharacters(text);
    out.writeEndElement();
}

QString marksSymbol(bool lost) {
    return lost ? QStringLiteral("✗") : QStringLiteral("✓");
}

void marksBar(QXmlStreamWriter& out, const QString& label, double obtained, double full,
              const QString& cssClass) {
    const bool lost = obtained < full - 1e-9;
    const double share = full > 0.0 ? std::clamp(obtained / full, 0.0, 1.0) : 0.0;
    barRow(out, label, share, QStringLiteral("%1 / %2").arg(marksText(obtained), marksText(full)),
           lost ? QStringLiteral("lost") : QStringLiteral("full"), cssClass);
}

void unavailableBar(QXmlStreamWriter& out, const QString& label, double full) {
    barRow(out, label, 0.0, QStringLiteral("— / %1").arg(marksText(full)), QString(),
           QStringLiteral("unavailable"));
}

} // namespace Html
} // namespace Grade
