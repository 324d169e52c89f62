#include "output.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <unistd.h>

namespace Grade {

namespace {

// Writes are collected up to this size before they go to the device.
const int bufferSize = 64 * 1024;

} // namespace

ReportOutput::ReportOutput(const QString& path)
    : m_path(path), m_name(path.isEmpty() ? QStringLiteral("standard output") : path),
      m_immediate(path.isEmpty()) {}

ReportOutput::ReportOutput(QIODevice* device, const QString& name) : m_name(name), m_device(device) {}

ReportOutput::~ReportOutput() = default; // an uncommitted QSaveFile removes its temporary file

bool ReportOutput::fail(const QString& reason) {
    if (m_error.isEmpty())
        m_error = QStringLiteral("%1: cannot be written: %2").arg(m_name, reason);
    return false;
}

bool ReportOutput::open() {
    if (m_path.isEmpty()) {
        auto standardOutput = std::make_unique<QFile>();
        // Unbuffered: every write reaches the descriptor, so that its failure is seen at once.
        if (!standardOutput->open(STDOUT_FILENO, QIODevice::WriteOnly | QIODevice::Unbuffered,
                                  QFileDevice::DontCloseHandle))
            return fail(standardOutput->errorString());
        m_file = std::move(standardOutput);
    } else {
        // A device or a pipe cannot be replaced by a renamed file; it is written in place.
        const QFileInfo info(m_path);
        const bool special = info.exists() && !info.isFile() && !info.isDir();
        if (special)
            m_file = std::make_unique<QFile>(m_path);
        else
            m_file = std::make_unique<QSaveFile>(m_path);
        if (!m_file->open(QIODevice::WriteOnly))
            return fail(m_file->errorString());
    }
    m_device = m_file.get();
    return true;
}

bool ReportOutput::write(const QByteArray& bytes) {
    if (!m_error.isEmpty())
        return false;
    m_buffer += bytes;
    // Standard output gets each piece at once, so that a reader sees every candidate as soon as it
    // is reported; a file appears only at commit(), so it is written in large pieces.
    return (m_buffer.size() < bufferSize && !m_immediate) || flush();
}

bool ReportOutput::flush() {
    if (!m_error.isEmpty() || (!m_device && !open()))
        return false;
    if (m_device->write(m_buffer) != m_buffer.size())
        return fail(m_device->errorString());
    m_buffer.clear();
    if (m_file && !m_file->flush())
        return fail(m_file->errorString());
    return true;
}

bool ReportOutput::commit() {
    if (!flush())
        return false;
    auto* saveFile = qobject_cast<QSaveFile*>(m_file.get());
    if (saveFile && !saveFile->commit())
        return fail(saveFile->errorString());
    return true;
}

QDataStream* Spool::append() {
    if (!m_file.isOpen()) {
        if (!m_file.open()) {
            m_error = QStringLiteral("cannot make a temporary file: %1").arg(m_file.errorString());
            return nullptr;
        }
        m_stream.setDevice(&m_file);
    }
    return &m_stream;
}

bool Spool::replay(const std::function<bool(QDataStream&)>& readOne) {
    if (!m_file.isOpen())
        return true; // nothing appended
    bool ok = m_stream.status() == QDataStream::Ok && m_file.flush() && m_file.seek(0);
    QDataStream reader(&m_file);
    while (ok && !reader.atEnd())
        ok = readOne(reader) && reader.status() == QDataStream::Ok;
    if (!ok && m_error.isEmpty())
        m_error = QStringLiteral("%1: cannot be read back: %2").arg(m_file.fileName(), m_file.errorString());
    m_file.resize(0);
    m_file.seek(0);
    m_stream.resetStatus();
    return ok;
}

} // namespace Grade
