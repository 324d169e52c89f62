#include "qmarkcategoryvirtual.h"

QMarkCategoryVirtual::QMarkCategoryVirtual(QObject* parent) : QObject(parent) {}
QMarkCategoryVirtual::~QMarkCategoryVirtual() = default;

void QMarkCategoryVirtual::UpdateCategory(void*, const bool&) {}
void QMarkCategoryVirtual::DoSerialize(QJsonObject&, const bool&) {}
void QMarkCategoryVirtual::DoSerialize(QDataStream&, const bool&) {}
void QMarkCategoryVirtual::AssignScore(const double&) {}
double QMarkCategoryVirtual::ExecuteDBScore(QMarkCategoryVirtual*) {
    return 0.0;
}
void QMarkCategoryVirtual::SetMarkGanttTime(const QString&) {}
void QMarkCategoryVirtual::SetMarkGanttChart(const QString&) {}
void QMarkCategoryVirtual::SetMarkPerScreen(const int&) {}
void QMarkCategoryVirtual::AddMarkCategory(QMarkCategoryVirtual*) {}
void QMarkCategoryVirtual::SetMarkCurveName(const QString&) {}
void QMarkCategoryVirtual::SetMarkCurveCustomType(const bool&) {}
void QMarkCategoryVirtual::InitMarkCategory(QMarkCategoryVirtual*) {}
void QMarkCategoryVirtual::SetMarkTotalTime(const int&) {}
void QMarkCategoryVirtual::SetMarkCurveVariance(const QMap<int, double>&) {}
void QMarkCategoryVirtual::UpdateCategoryItem(const bool&) {}
void QMarkCategoryVirtual::SetMarkBeginEndOnlyDot(const QString&) {}
void QMarkCategoryVirtual::SetMarkBeginEndOnlyDot(const bool&) {}
void QMarkCategoryVirtual::SetMarkSurplusVirJob(const bool&, const QString&) {}
void QMarkCategoryVirtual::SetMarkNetLineBreak(const QString&) {}
void QMarkCategoryVirtual::SetMarkNetLineBreak(const bool&) {}
void QMarkCategoryVirtual::GetLogicList(QStringList&) {}
void QMarkCategoryVirtual::SetLogicList(const QStringList&) {}
void QMarkCategoryVirtual::SetLogicMatrix(QMultiMap<QString, int>&, int**, int&) {}
void QMarkCategoryVirtual::AddResCurveRecord(void*) {}
int QMarkCategoryVirtual::GetResCurveTotalTime(int&, int&) {
    return 0;
}
