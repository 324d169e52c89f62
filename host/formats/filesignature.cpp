#include "filesignature.h"

#include <QXmlStreamReader>

namespace Host {

FileSignature FileSignature::of(const QByteArray& bytes) {
    FileSignature signature;
    signature.bytes = bytes.startsWith("\xEF\xBB\xBF") ? bytes.mid(3) : bytes;
    const int lineEnd = signature.bytes.indexOf('\n');
    signature.firstLine = signature.bytes.left(lineEnd < 0 ? signature.bytes.size() : lineEnd);
    if (signature.firstLine.endsWith('\r'))
        signature.firstLine.chop(1);
    if (!signature.bytes.trimmed().startsWith('<'))
        return signature;
    QXmlStreamReader xml(signature.bytes);
    while (!xml.atEnd() && !xml.hasError()) {
        if (xml.readNext() == QXmlStreamReader::StartElement) {
            signature.xml = true;
            signature.rootName = xml.name().toString();
            signature.rootNamespace = xml.namespaceUri().toString();
            signature.rootAttributes = xml.attributes();
            break;
        }
    }
    return signature;
}

bool FileSignature::isCompoundDocument() const {
    return bytes.startsWith("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
}

} // namespace Host
