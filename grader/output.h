// Where reports are written. A report file is written through QSaveFile, so that it appears whole
// when the report is done, or not at all; standard output and devices (/dev/null, a pipe) are
// written in place. Every write is checked, and a failure names the output and the reason.
#ifndef OUTPUT_H
#define OUTPUT_H

#include <QByteArray>
#include <QDataStream>
#include <QString>
#include <QTemporaryFile>

#include <functional>
#include <memory>

class QFileDevice;
class QIODevice;

namespace Grade {

class ReportOutput {
public:
    // The file at path, or standard output when path is empty.
    explicit ReportOutput(const QString& path);
    // An open device the caller owns (a buffer, in tests); name is used in messages.
    ReportOutput(QIODevice* device, const QString& name);
    // Without commit(), a report file is discarded.
    ~ReportOutput();
    ReportOutput(const ReportOutput&) = delete;
    ReportOutput& operator=(const ReportOutput&) = delete;

    bool write(const QByteArray& bytes);
    bool write(const QString& text) { return write(text.toUtf8()); }
    // Hands everything written so far to the device and checks that it took it.
    bool flush();
    // Flushes and puts a report file in its place.
    bool commit();

    // "PATH: cannot be written: REASON" after a failure.
    const QString& error() const { return m_error; }
    // Standard output or the file's path.
    const QString& name() const { return m_name; }

private:
    bool open();
    bool fail(const QString& reason);

    QString m_path;
    QString m_name;
    std::unique_ptr<QFileDevice> m_file; // what open() made, when the caller gave no device
    QIODevice* m_device = nullptr;
    bool m_immediate = false; // every write goes to the device at once
    QByteArray m_buffer;
    QString m_error;
};

// Values put aside on disk and read back in the same order: what a report writes only at its end
// (summaries), so that its memory does not grow with the number of candidates.
class Spool {
public:
    // The stream to append to; null, with the reason in error(), when no temporary file can be made.
    QDataStream* append();
    // Reads back everything appended since the last replay, one readOne call a record, and empties
    // the spool. False when a write failed or readOne returns false.
    bool replay(const std::function<bool(QDataStream&)>& readOne);
    const QString& error() const { return m_error; }

private:
    QTemporaryFile m_file;
    QDataStream m_stream;
    QString m_error;
};

} // namespace Grade

#endif // OUTPUT_H
