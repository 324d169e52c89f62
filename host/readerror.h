// The first error found in an input file: the file, where in it (a JSON path, an XML line and
// column with the element path, an XER table, row and field, an MPX line) and what was expected.
#ifndef READERROR_H
#define READERROR_H

#include <QString>

namespace Host {

struct ReadError {
    QString file;
    QString path;    // the location in the file; empty when the file as a whole is meant
    QString message; // what was expected and what was found
    bool isSet() const { return !message.isEmpty(); }
    // Records the error at where; false, so that a reader can return it.
    bool fail(const QString& where, const QString& what) {
        path = where;
        message = what;
        return false;
    }
    // "file: location: message"
    QString toString() const {
        QString out = file;
        if (!path.isEmpty())
            out += QStringLiteral(": ") + path;
        return out + QStringLiteral(": ") + message;
    }
};

} // namespace Host

#endif // READERROR_H
