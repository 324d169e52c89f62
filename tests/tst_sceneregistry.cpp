// The scene registry: empty at load, filled by CreateSceneInfo for the schedule products only,
// replaced (never freed) by a later CreateSceneInfo. The test frees the scenes it made, as a host
// must. Its functions run in order and share the registry.
#include "fakeelementtype.h"
#include "fakeproject.h"
#include "qscene_site.h"
#include "qscene_twin.h"

#include <QtTest>

namespace {

// Reads the size of the registry, to show that lookups add no key.
struct Registry : QSceneBase {
    static int size() { return m_mapScene.size(); }
};

QList<QSceneVirtual*> lookUp() {
    return {QSceneBase::GetScenePtrByType(1), QSceneBase::GetScenePtrByType(2)};
}

} // namespace

class TestSceneRegistry : public QObject {
    Q_OBJECT
private slots:
    void emptyAtFirst();
    void otherProductsAreRefused_data();
    void otherProductsAreRefused();
    void firstCreation();
    void secondCreationReplaces();
    void cleanupTestCase();

private:
    ClassifyCallLog m_log;
    FakeProjectData m_data;
    QList<QPointer<QSceneVirtual>> m_scenes; // every scene registered, for the final clean-up
};

void TestSceneRegistry::emptyAtFirst() {
    for (int code : {0, 1, 2, 3, -1})
        QVERIFY(!QSceneBase::GetScenePtrByType(code));
    QCOMPARE(Registry::size(), 0);
}

void TestSceneRegistry::otherProductsAreRefused_data() {
    QTest::addColumn<int>("product");
    for (int product : {0, 4, 7, 9, 20, -5})
        QTest::addRow("product %d", product) << product;
}

void TestSceneRegistry::otherProductsAreRefused() {
    QFETCH(int, product);
    m_data.elementTypeFactory = m_log.factory();
    QSceneBase::CreateSceneInfo(product, static_cast<QObject*>(&m_data));
    QCOMPARE(Registry::size(), 0);
    QVERIFY(m_log.calls.isEmpty());
}

void TestSceneRegistry::firstCreation() {
    m_data.elementTypeFactory = m_log.factory();
    QSceneBase::CreateSceneInfo(6, static_cast<QObject*>(&m_data));
    const QList<QSceneVirtual*> scenes = lookUp();
    m_scenes << scenes[0] << scenes[1];

    auto* site = qobject_cast<QScene_Site*>(scenes[0]);
    auto* twin = qobject_cast<QScene_Twin*>(scenes[1]);
    QVERIFY(site && twin);
    QVERIFY(!site->parent() && !twin->parent());
    QVERIFY(!QSceneBase::GetScenePtrByType(0));
    QVERIFY(!QSceneBase::GetScenePtrByType(3));
    QCOMPARE(Registry::size(), 2);

    // Each scene was initialised with the project data: the Site scene made its element types.
    QList<QResourceVirtual*> resources;
    site->GetAllCurveResource(resources);
    QCOMPARE(resources.size(), 15);
    QList<QClassifyVirtual*> types;
    site->GetElementTypeList(types);
    QCOMPARE(types.size(), 2);
    QCOMPARE(m_data.elementTypeKinds, (QList<int>{1, 1}));
}

void TestSceneRegistry::secondCreationReplaces() {
    const QList<QSceneVirtual*> first = lookUp();
    QSceneBase::CreateSceneInfo(5, static_cast<QObject*>(&m_data));
    const QList<QSceneVirtual*> second = lookUp();
    m_scenes << second[0] << second[1];

    QVERIFY(qobject_cast<QScene_Site*>(second[0]) && qobject_cast<QScene_Twin*>(second[1]));
    QVERIFY(second[0] != first[0] && second[1] != first[1]);
    QCOMPARE(Registry::size(), 2);
    // The displaced scenes are still alive and answer as before.
    QVERIFY(m_scenes[0] && m_scenes[1]);
    QCOMPARE(m_scenes[0]->GetResourceType(QStringLiteral("ZJX4")), 3);
    QCOMPARE(m_scenes[1]->GetSceneType(), 2);
    QCOMPARE(m_data.elementTypeKinds.size(), 4);
}

void TestSceneRegistry::cleanupTestCase() {
    for (const QPointer<QSceneVirtual>& scene : qAsConst(m_scenes))
        delete scene.data();
}

QTEST_GUILESS_MAIN(TestSceneRegistry)
#include "tst_sceneregistry.moc"
