// Class names as hosts see them at run time: the meta-object chain up to QObject, qt_metacast for
// every class on it, no meta-methods or properties of their own, and the family's GetClassName().
#include "markrule.h"

#include <QtTest>

#include <functional>
#include <memory>

// Makes a parentless object and reports its GetClassName().
using Factory = std::function<QObject*(QString&)>;
Q_DECLARE_METATYPE(Factory)

namespace {

template <class T> Factory make() {
    return [](QString& className) {
        auto* object = new T(nullptr);
        className = object->GetClassName();
        return object;
    };
}

} // namespace

class TstClassNames : public QObject {
    Q_OBJECT
private slots:
    void classNames_data() {
        QTest::addColumn<Factory>("factory");
        QTest::addColumn<QString>("className");
        QTest::addColumn<QStringList>("chain");
        QTest::newRow("QRatingItem_General")
            << make<QRatingItem_General>() << "QRatingItemBase"
            << QStringList{"QRatingItem_General", "QRatingItemBase", "QRatingItemVirtual", "QObject"};
        QTest::newRow("QSceneBase") << make<QSceneBase>() << "QSceneBase"
                                    << QStringList{"QSceneBase", "QSceneVirtual", "QObject"};
    }

    void classNames() {
        QFETCH(Factory, factory);
        QFETCH(QString, className);
        QFETCH(QStringList, chain);
        QString reported;
        std::unique_ptr<QObject> object(factory(reported));
        QCOMPARE(reported, className);
        QStringList seen;
        for (const QMetaObject* meta = object->metaObject(); meta; meta = meta->superClass()) {
            seen.append(meta->className());
            QVERIFY2(object->qt_metacast(meta->className()), meta->className());
        }
        QCOMPARE(seen, chain);
        const QMetaObject* meta = object->metaObject();
        QCOMPARE(meta->methodCount(), QObject::staticMetaObject.methodCount());
        QCOMPARE(meta->propertyCount(), QObject::staticMetaObject.propertyCount());
        QCOMPARE(meta->enumeratorCount(), QObject::staticMetaObject.enumeratorCount());
        QCOMPARE(meta->classInfoCount(), 0);
    }
};

QTEST_GUILESS_MAIN(TstClassNames)
#include "tst_classnames.moc"
