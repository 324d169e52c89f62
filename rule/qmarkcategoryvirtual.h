// MarkCore interface of a scoring category. Every operation's own body is the interface default:
// no effect, and a zero, false, null or empty result. The slot order is part of the host contract.
#ifndef QMARKCATEGORYVIRTUAL_H
#define QMARKCATEGORYVIRTUAL_H

#include "markrule_global.h"

#include <QDataStream>
#include <QJsonObject>
#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>

class MARKCORE_EXPORT QMarkCategoryVirtual : public QObject {
    Q_OBJECT
public:
    explicit QMarkCategoryVirtual(QObject* parent = nullptr);
    ~QMarkCategoryVirtual() override;

    virtual void ClearRatingItemData() {}
    virtual void UpdateCategory(void* data, const bool& flag);
    virtual void DoSerialize(QJsonObject& object, const bool& read);
    virtual void DoSerialize(QDataStream& stream, const bool& read);
    virtual void* GetRatingItemPtr() { return nullptr; }
    virtual void AssignScore(const double& total);
    virtual double ExecuteDBScore(QMarkCategoryVirtual* standard);
    virtual void ClearMarkCategory() {}
    virtual void SetMarkGanttTime(const QString& text);
    virtual void SetMarkGanttChart(const QString& text);
    virtual void SetMarkPerScreen(const int& rows);
    virtual void AddMarkCategory(QMarkCategoryVirtual* category);
    virtual QString GetMarkCurveName() { return QString(); }
    virtual void SetMarkCurveName(const QString& name);
    virtual void SetMarkCurveCustomType(const bool& custom);
    virtual void InitMarkCategory(QMarkCategoryVirtual* other);
    virtual void SetMarkTotalTime(const int& days);
    virtual void SetMarkCurveVariance(const QMap<int, double>& variance);
    virtual void InitMarkCategoryItem() {}
    virtual void UpdateCategoryItem(const bool& flag);
    virtual void SetMarkBeginEndOnlyDot(const QString& text);
    virtual void SetMarkBeginEndOnlyDot(const bool& single);
    virtual void SetMarkSurplusVirJob(const bool& found, const QString& nodes);
    virtual void SetMarkNetLineBreak(const QString& text);
    virtual void SetMarkNetLineBreak(const bool& broken);
    virtual void GetLogicList(QStringList& out);
    virtual void SetLogicList(const QStringList& list);
    virtual void SetLogicMatrix(QMultiMap<QString, int>& nodes, int** matrix, int& count);
    virtual bool GetMarkBeginEndOnlyDot() { return false; }
    virtual void AddResCurveRecord(void* record);
    virtual bool IsCustomResCurve() { return false; }
    virtual int GetResCurveTotalTime(int& start, int& end);
    virtual int GetJxResUsedCount() { return 0; }
};

#endif // QMARKCATEGORYVIRTUAL_H
