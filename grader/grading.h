// Grading one candidate against one standard answer through the library: the seven schedule
// categories of the standard's scene, or the pricing or model tree. Every call builds its own library
// objects and destroys them before it returns, so calls may run on several threads at once; with
// Sides::Together a call also builds and frees the standard's objects on a second thread while it
// builds the candidate's, for a core that would otherwise stand idle.
#ifndef GRADING_H
#define GRADING_H

#include "graderesult.h"
#include "marks.h"
#include "projectmodel.h"
#include "schedulebuilder.h"

#include <QSharedPointer>

namespace Grade {

enum class Sides { OneThread, Together };

// A candidate's file as read: the project, or why it could not be read.
struct CandidateFile {
    QString path;
    QSharedPointer<Host::ProjectFile> project; // null when the file could not be read
    QString error;
};

CandidateFile readCandidate(const QString& path, const Host::ImportOptions& import = Host::ImportOptions());

CandidateResult gradeProject(const Host::ProjectFile& standard, const Host::ProjectFile& candidate,
                             const Marks& marks, Sides sides = Sides::OneThread);
// A file that could not be read gives an ungraded result with the error.
CandidateResult gradeCandidate(const Host::ProjectFile& standard, const CandidateFile& candidate,
                               const Marks& marks, Sides sides = Sides::OneThread);
// Reads the candidate file, then grades it.
CandidateResult gradeFile(const Host::ProjectFile& standard, const QString& candidatePath, const Marks& marks,
                          const Host::ImportOptions& import = Host::ImportOptions());

} // namespace Grade

#endif // GRADING_H
