// Bar colours in one notation. Files write "#99ccff", "#9cf", "153, 204, 255" or "153,204,255";
// the attribute rules compare texts, so every colour is read into "r,g,b".
#ifndef COLOURS_H
#define COLOURS_H

#include <QString>

namespace Host {

// "r,g,b" for a colour in any of the notations above; any other text is returned trimmed.
QString normalisedColour(const QString& text);

} // namespace Host

#endif // COLOURS_H
