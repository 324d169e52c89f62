// Grading one candidate against one standard answer through the library: the seven schedule
// categories of the standard's scene, or the pricing or model tree. Every call builds its own library
// objects and destroys them before it returns, so calls may run on several threads at once.
#ifndef GRADING_H
#define GRADING_H

#include "graderesult.h"
#include "marks.h"
#include "projectmodel.h"
#include "schedulebuilder.h"

namespace Grade {

CandidateResult gradeProject(const Host::ProjectFile& standard, const Host::ProjectFile& candidate,
                             const Marks& marks);
// Reads the candidate file first; a file that cannot be read gives an ungraded result with the error.
CandidateResult gradeFile(const Host::ProjectFile& standard, const QString& candidatePath, const Marks& marks,
                          const Host::ImportOptions& import = Host::ImportOptions());

} // namespace Grade

#endif // GRADING_H
