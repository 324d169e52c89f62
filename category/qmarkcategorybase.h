// QMarkCategoryBase: the common base of every scoring category. A category owns one criteria tree
// under a single root rating item; it splits a full score down the tree as standard scores, scores
// its tree against the category built from the standard answer, and persists itself with its tree.
#ifndef QMARKCATEGORYBASE_H
#define QMARKCATEGORYBASE_H

#include "markrule_global.h"
#include "markrulecodes.h"
#include "qmarkcategoryvirtual.h"

#include <QMap>

class QRatingItemVirtual;
namespace RecordIO {
class Fields;
}

class MARKRULE_EXPORT QMarkCategoryBase : public QMarkCategoryVirtual {
    Q_OBJECT
protected:
    explicit QMarkCategoryBase(QObject* parent = nullptr);

public:
    ~QMarkCategoryBase() override;

    void ClearRatingItemData() override;
    void DoSerialize(QJsonObject& object, const bool& read) override;
    void DoSerialize(QDataStream& stream, const bool& read) override;
    void* GetRatingItemPtr() override;
    void AssignScore(const double& total) override;
    double ExecuteDBScore(QMarkCategoryVirtual* standard) override;

    // A new parentless QRatingItemBase, whatever the argument; subclasses make their own item class.
    virtual void* CreateRatingItem(QObject* parent);
    virtual QString GetClassName();

    // Factories: all seven categories of a product for one scene (replacing the caller's entries,
    // which are neither deleted nor returned), or one category; null or no effect for unknown codes.
    static void CreateMarkCategory(const int& product, const int& scene,
                                   QMap<int, QMarkCategoryVirtual*>& categories);
    static QMarkCategoryVirtual* CreateMarkCategoryByType(const int& product, const int& scene,
                                                          const int& categoryType);

protected:
    QRatingItemVirtual* rootItem() const { return m_root; }
    // Installs a new root; the category owns it and deletes the root it replaces.
    void setRootItem(QRatingItemVirtual* root);

    QRatingItemVirtual* m_root = nullptr;
    void* m_projectData = nullptr;
    int m_categoryType = MarkCode::CategoryNone;
    bool m_created = false;

private:
    // The category record's fields in stream order; the class name is written from and read into
    // className, and is not part of the JSON record.
    RecordIO::Fields recordFields(QString& className);
};

#endif // QMARKCATEGORYBASE_H
