// Full marks per schedule category and per pricing or model tree: defaults, or a marks file.
#ifndef MARKS_H
#define MARKS_H

#include "jsonreader.h"
#include "markrulecodes.h"
#include "networklimits.h"

#include <QMap>
#include <QString>

namespace Grade {

struct Marks {
    QMap<int, double> schedule{
        {MarkCode::CategoryIntegrity, 15.0},   {MarkCode::CategoryAttribute, 20.0},
        {MarkCode::CategoryLogical, 20.0},     {MarkCode::CategoryResCurve, 15.0},
        {MarkCode::CategoryGanttChart, 10.0},  {MarkCode::CategoryNetRationality, 10.0},
        {MarkCode::CategoryNetPrinciple, 10.0}};
    double pricing = 100.0;
    double model = 100.0;
    // How large a candidate's networks may grow before a category is reported as not gradable.
    Host::NetworkLimits limits;
    // Upper limits of the curve fluctuation by curve group, from the course settings.
    QMap<int, double> curveLimits;

    // The key of a schedule category in a marks file ("integrity", ...), by category type.
    static QString scheduleKey(int type);
};

bool readMarksFile(const QString& path, Marks& marks, Host::ReadError& error);
bool readMarksDocument(const QByteArray& bytes, const QString& fileName, Marks& marks,
                       Host::ReadError& error);

} // namespace Grade

#endif // MARKS_H
