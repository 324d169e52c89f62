// Writes the report's files on background threads. Each file is committed through QSaveFile, which
// waits for the disk; a batch of hundreds of pages would spend most of its time waiting one file
// after another, so several commits wait at once. At most maxPending files are held in memory: a
// caller that gets ahead waits.
#ifndef HTMLWRITER_H
#define HTMLWRITER_H

#include <QByteArray>
#include <QMutex>
#include <QSemaphore>
#include <QString>
#include <QThreadPool>

namespace Grade {
namespace Html {

class FileWriter {
public:
    explicit FileWriter(int threads = 8, int maxPending = 32);
    ~FileWriter();

    // Queues a file; blocks while maxPending files are queued.
    void write(const QString& path, const QByteArray& bytes);
    // Waits for every queued file; false with the first failure's message.
    bool wait(QString& error);
    // The first failure so far, empty while every file was written.
    QString error() const;

private:
    void save(const QString& path, const QByteArray& bytes);

    QThreadPool m_pool;
    QSemaphore m_slots;
    mutable QMutex m_mutex;
    QString m_error;
};

} // namespace Html
} // namespace Grade

#endif // HTMLWRITER_H
