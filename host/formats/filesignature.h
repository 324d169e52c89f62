// What a file's first bytes say about its format, worked out once so that every reader can ask:
// the bytes without a UTF-8 byte-order mark, the first line, and for XML the root element's name,
// namespace and attributes.
#ifndef FILESIGNATURE_H
#define FILESIGNATURE_H

#include <QByteArray>
#include <QString>
#include <QXmlStreamAttributes>

namespace Host {

struct FileSignature {
    QByteArray bytes;     // the whole file, without a UTF-8 byte-order mark
    QByteArray firstLine; // without its line end
    bool xml = false;     // the file starts with an XML declaration or element
    QString rootName;     // local name of the root element
    QString rootNamespace;
    QXmlStreamAttributes rootAttributes;

    static FileSignature of(const QByteArray& bytes);
    // The file is a binary OLE compound document (MS Project's .mpp, among others).
    bool isCompoundDocument() const;
};

} // namespace Host

#endif // FILESIGNATURE_H
