// markgrade's work once its command line is read: grading each standard answer's candidates into
// the chosen report, or writing a generated batch. Both return the exit code and tell standard
// error why it is not 0.
#ifndef RUN_H
#define RUN_H

#include "options.h"

namespace Grade {

int runGrading(const Options& options);
int runGenerate(const Options& options);

} // namespace Grade

#endif // RUN_H
