// Class names as hosts see them at run time: the meta-object's own name, qt_metacast for every
// ancestor, no meta-methods or properties of their own, and the family's GetClassName().
#include "markrule.h"

#include <QtTest>

#include <functional>
#include <memory>

using Factory = std::function<QObject*()>;
Q_DECLARE_METATYPE(Factory)

namespace {

QString classNameOf(QObject* object) {
    if (auto* item = qobject_cast<QRatingItemBase*>(object))
        return item->GetClassName();
    if (auto* category = qobject_cast<QMarkCategoryBase*>(object))
        return category->GetClassName();
    if (auto* resource = qobject_cast<QResourceBase*>(object))
        return resource->GetClassName();
    if (auto* scene = qobject_cast<QSceneBase*>(object))
        return scene->GetClassName();
    return QString();
}

template <class T> Factory make() {
    return [] { return new T(nullptr); };
}

} // namespace

class TstClassNames : public QObject {
    Q_OBJECT
private slots:
    void classNames_data() {
        QTest::addColumn<Factory>("factory");
        QTest::addColumn<QString>("metaName");
        QTest::addColumn<QString>("className");
        QTest::addColumn<QStringList>("ancestors");
        const QString item = QStringLiteral("QRatingItemVirtual");
        QTest::newRow("QRatingItemBase") << make<QRatingItemBase>() << "QRatingItemBase"
                                         << "QRatingItemBase" << QStringList{item};
        QTest::newRow("QRatingItem_General")
            << make<QRatingItem_General>() << "QRatingItem_General"
            << "QRatingItemBase" << QStringList{QStringLiteral("QRatingItemBase"), item};
        QTest::newRow("QSceneBase") << make<QSceneBase>() << "QSceneBase"
                                    << "QSceneBase" << QStringList{QStringLiteral("QSceneVirtual")};
    }

    void classNames() {
        QFETCH(Factory, factory);
        QFETCH(QString, metaName);
        QFETCH(QString, className);
        QFETCH(QStringList, ancestors);
        std::unique_ptr<QObject> object(factory());
        QVERIFY(object);
        const QMetaObject* meta = object->metaObject();
        QCOMPARE(QString::fromLatin1(meta->className()), metaName);
        QCOMPARE(classNameOf(object.get()), className);
        QVERIFY(object->qt_metacast(qPrintable(metaName)));
        for (const QString& ancestor : ancestors + QStringList{QStringLiteral("QObject")})
            QVERIFY2(object->qt_metacast(qPrintable(ancestor)), qPrintable(ancestor));
        QVERIFY(!object->qt_metacast("QMarkCategoryVirtual") || metaName.startsWith(QLatin1String("QMark")));
        QCOMPARE(meta->methodCount(), QObject::staticMetaObject.methodCount());
        QCOMPARE(meta->propertyCount(), QObject::staticMetaObject.propertyCount());
        QCOMPARE(meta->enumeratorCount(), QObject::staticMetaObject.enumeratorCount());
        QCOMPARE(meta->classInfoCount(), 0);
        QVERIFY(!object->parent());
    }
};

QTEST_GUILESS_MAIN(TstClassNames)
#include "tst_classnames.moc"
