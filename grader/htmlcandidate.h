// A candidate's page of the HTML report: the total and each category as a bar of marks, the criteria
// trees folding open where marks were lost, and for a schedule its Gantt chart, resource curves and
// logic differences against the standard answer.
#ifndef HTMLCANDIDATE_H
#define HTMLCANDIDATE_H

#include "graderesult.h"

class QXmlStreamWriter;

namespace Grade {
namespace Html {

struct CandidatePage {
    const CandidateResult* result = nullptr;
    QString standardFile;
    const Host::ProjectFile* standard = nullptr; // null: no figures
    QString indexHref;                           // the cohort page, relative to this one
};

// The page's body.
void writeCandidateBody(QXmlStreamWriter& out, const CandidatePage& page);

// True when marks were lost at node or anywhere below it.
bool subtreeLost(const ScoredNode& node);

} // namespace Html
} // namespace Grade

#endif // HTMLCANDIDATE_H
