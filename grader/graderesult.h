// The outcome of grading: plain values copied out of the library's scored trees, so that reports are
// written after every library object is gone, on any thread.
#ifndef GRADERESULT_H
#define GRADERESULT_H

#include "projectmodel.h"

#include <QList>
#include <QSharedPointer>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

namespace Grade {

struct ScoredNode {
    QString name;
    QString value;
    QString remark;
    double full = 0.0;
    double obtained = 0.0;
    int attributeType = 0; // the kind of criterion (schedule criteria)
    bool locked = false;   // not judged: worth nothing, its marks shared among the others
    QString standardValue; // the value of its counterpart in the standard answer
    QString note;          // the grader's explanation where the library left no remark
    QVector<ScoredNode> items;

    // Marks were lost here: less than the full marks, or a deduction.
    bool lost() const { return obtained < full - 1e-9 || obtained < -1e-9; }
};

struct CategoryResult {
    // The schedule category type (MarkCode::CategoryType), or the product code of a pricing or model tree.
    int type = 0;
    QString title;         // the category's name
    bool available = true; // false when the library gives no object for it
    QString note;
    double full = 0.0;
    double obtained = 0.0;
    ScoredNode tree;
};

struct CandidateResult {
    QString file;
    bool graded = false;
    QString error; // why the file was not graded
    QStringList notes;
    QList<CategoryResult> categories;
    // The candidate's file as read, for reports that draw it (Gantt chart, curves); null when the
    // file could not be read.
    QSharedPointer<const Host::ProjectFile> project;
    // The candidate's part of the report, rendered by the report format on the worker that graded it
    // (ReportSink::prepare), which may then have let go of what the format needs no more.
    std::optional<QByteArray> prepared;

    double full() const;
    double obtained() const;
};

} // namespace Grade

#endif // GRADERESULT_H
