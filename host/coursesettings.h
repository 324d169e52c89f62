// A course settings file: what the project files of a course do not say themselves. JSON, kept
// next to the marks file and given with `markgrade --settings FILE`; docs/importing.md lists its keys.
#ifndef COURSESETTINGS_H
#define COURSESETTINGS_H

#include "readerror.h"
#include "schedulebuilder.h"

#include <QByteArray>
#include <QMap>
#include <QString>

#include <optional>

namespace Host {

struct CourseSettings {
    ImportOptions import;
    // Upper limits of the curve fluctuation by curve group (MarkCode::SkedLabourCurve to SkedFormworkCurve),
    // replacing the limit worked out from the standard answer.
    QMap<int, double> curveLimits;
    // Most work items of a candidate's judged network (the logic relations) before that category is
    // left ungraded.
    std::optional<qint64> networkLimit;
};

bool readCourseSettingsFile(const QString& path, CourseSettings& settings, ReadError& error);
bool readCourseSettingsDocument(const QByteArray& bytes, const QString& fileName, CourseSettings& settings,
                                ReadError& error);

// The key of a curve group in a settings file ("labour", "rebar", "concrete", "formwork"), by
// variance curve type (MarkCode::SkedLabourCurve to SkedFormworkCurve).
QString curveGroupKey(int attributeType);

} // namespace Host

#endif // COURSESETTINGS_H
