#include "htmlwriter.h"

#include "htmlpage.h"

#include <QMutexLocker>

namespace Grade {
namespace Html {

FileWriter::FileWriter(int threads, int maxPending) : m_slots(maxPending) {
    m_pool.setMaxThreadCount(threads);
}

FileWriter::~FileWriter() {
    m_pool.waitForDone();
}

void FileWriter::write(const QString& path, const QByteArray& bytes) {
    m_slots.acquire();
    m_pool.start([this, path, bytes] {
        save(path, bytes);
        m_slots.release();
    });
}

void FileWriter::save(const QString& path, const QByteArray& bytes) {
    QString failure;
    if (saveFile(path, bytes, failure))
        return;
    QMutexLocker lock(&m_mutex);
    if (m_error.isEmpty())
        m_error = failure;
}

bool FileWriter::wait(QString& error) {
    m_pool.waitForDone();
    error = this->error();
    return error.isEmpty();
}

QString FileWriter::error() const {
    QMutexLocker lock(&m_mutex);
    return m_error;
}

} // namespace Html
} // namespace Grade
