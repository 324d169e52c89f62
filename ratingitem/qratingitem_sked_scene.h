// Schedule rating items of the scene variants. QRatingItem_Sked_Twin differs from the plain item only
// in its class name (the items it generates for missing criteria are plain QRatingItem_Sked).
// QRatingItem_Sked_Site persists itself and its subtree (JSON object and data-stream record), can
// report the logic list of the item it was created under, and loads its children as Site items.
#ifndef QRATINGITEM_SKED_SCENE_H
#define QRATINGITEM_SKED_SCENE_H

#include "qratingitem_sked.h"

class MARKRULE_EXPORT QRatingItem_Sked_Twin : public QRatingItem_Sked {
    Q_OBJECT
public:
    explicit QRatingItem_Sked_Twin(QObject* parent = nullptr);
    ~QRatingItem_Sked_Twin() override;

    QString GetClassName() override;
};

class MARKRULE_EXPORT QRatingItem_Sked_Site : public QRatingItem_Sked {
    Q_OBJECT
public:
    // When parent is a rating item, this item reports the parent's logic list (and the parent may
    // pass the request further up).
    explicit QRatingItem_Sked_Site(QObject* parent = nullptr);
    // A parentless item linked to the given item for the line-width rule; no logic owner.
    explicit QRatingItem_Sked_Site(QRatingItem_Sked* linkedItem);
    explicit QRatingItem_Sked_Site(std::nullptr_t);
    ~QRatingItem_Sked_Site() override;

    void DoSerialize(QJsonObject& json, const bool& load) override;
    void DoSerialize(QDataStream& stream, const bool& load) override;
    void GetRatingItemLogic(QStringList& out) override;
    void* CreateRatingItem(QObject* parent) override;

    QString GetClassName() override;

protected:
    // The item whose logic list this item reports; null for its own. Not owned.
    void setLogicOwner(QRatingItemVirtual* owner) { m_logicOwner = owner; }
    QRatingItemVirtual* logicOwner() const { return m_logicOwner; }

private:
    // The Site record's fields, bound to this item, in stream order; the stream record starts with
    // the class name, written from and read into className (it is not part of the JSON record).
    RecordIO::Fields recordFields(QString& className);

    QPointer<QRatingItemVirtual> m_logicOwner;
};

#endif // QRATINGITEM_SKED_SCENE_H
