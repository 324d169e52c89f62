// The category factories: the code table of product, scene and category type, refused codes, the
// caller's map, and the class names and ancestry that hosts see at run time.
#include "categorytest.h"

#include <QtTest>

namespace {

const char* const kFamilies[] = {"QMarkIntegrity",   "QMarkAttribute",  "QMarkLogical",
                                 "QMarkResCurve",    "QMarkGanttChart", "QMarkNetRationality",
                                 "QMarkNetPrinciple"};
const char* const kRootNames[] = {"工作项完整性", "工作项属性",     "逻辑关系",    "资源曲线图正确性",
                                  "横道图合理性", "网络计划合理性", "网络计划原则"};

QString sceneSuffix(int scene) {
    return scene == 1   ? QStringLiteral("_Sked_Site")
           : scene == 2 ? QStringLiteral("_Sked_Twin")
                        : QStringLiteral("_Sked");
}

// A family base is never made by a factory; a bare subclass reaches its own operations.
template <class Base> class Bare : public Base {};

} // namespace

class TstCategoryFactory : public QObject {
    Q_OBJECT
private slots:
    void codeTable_data() {
        QTest::addColumn<int>("scene");
        QTest::addColumn<int>("type");
        for (int scene : {1, 2, 0, 3, 7, -1}) {
            for (int type = 1; type <= 7; ++type)
                QTest::addRow("scene %d type %d", scene, type) << scene << type;
        }
    }
    void codeTable() {
        QFETCH(int, scene);
        QFETCH(int, type);
        const QString family = QString::fromLatin1(kFamilies[type - 1]);
        const QString expected = family + sceneSuffix(scene);
        CategoryPtr category = makeCategory(scene, type);
        QVERIFY(category);
        QCOMPARE(QString::fromLatin1(category->metaObject()->className()), expected);
        QCOMPARE(classNameOf(category.get()), expected);
        QCOMPARE(jsonOf(category.get()).value("categorytype").toInt(), type);
        QVERIFY(!category->parent());
        // ancestry up to the interface
        QStringList ancestors{family + QStringLiteral("_Sked"), family, "QMarkCategoryBase",
                              "QMarkCategoryVirtual", "QObject"};
        for (const QString& ancestor : ancestors)
            QVERIFY2(category->qt_metacast(qPrintable(ancestor)), qPrintable(ancestor));
        const QMetaObject* meta = category->metaObject();
        QCOMPARE(meta->methodCount(), QObject::staticMetaObject.methodCount());
        QCOMPARE(meta->propertyCount(), QObject::staticMetaObject.propertyCount());
        QCOMPARE(meta->classInfoCount(), 0);
        // the root exists when the category leaves the factory
        QRatingItemVirtual* root = rootOf(category.get());
        QVERIFY(root);
        QCOMPARE(root->GetRatingItemName(), QString::fromUtf8(kRootNames[type - 1]));
        QCOMPARE(root->GetRatingItemLevel(), 1);
        QCOMPARE(QString::fromLatin1(root->metaObject()->className()),
                 scene == 1 ? QStringLiteral("QRatingItem_Sked_Site") : QStringLiteral("QRatingItem_Sked"));
        QVERIFY(itemsOf(root).isEmpty());
        QVERIFY(!isBuilt(category.get()));
    }

    void refusedCodes_data() {
        QTest::addColumn<int>("product");
        QTest::addColumn<int>("scene");
        QTest::addColumn<int>("type");
        for (int product : {0, 4, 6, 9, 11, 13, 15, 17, 20, -5})
            QTest::addRow("product %d", product) << product << 1 << 1;
        for (int type : {0, 8, -1, 100})
            QTest::addRow("type %d", type) << 5 << 1 << type;
    }
    void refusedCodes() {
        QFETCH(int, product);
        QFETCH(int, scene);
        QFETCH(int, type);
        QCOMPARE(QMarkCategoryBase::CreateMarkCategoryByType(product, scene, type), nullptr);
        QMap<int, QMarkCategoryVirtual*> categories;
        if (type == 1)
            QMarkCategoryBase::CreateMarkCategory(product, scene, categories);
        QVERIFY(categories.isEmpty());
    }

    void categoryMapEntriesAreReplaced() {
        QMap<int, QMarkCategoryVirtual*> categories;
        std::vector<CategoryPtr> displaced;
        for (int type = 1; type <= 8; ++type) {
            displaced.push_back(makeCategory(0, qMin(type, 7)));
            categories.insert(type, displaced.back().get());
        }
        QMarkCategoryBase::CreateMarkCategory(9, 2, categories);
        QCOMPARE(categories.value(1), displaced[0].get());
        QMarkCategoryBase::CreateMarkCategory(5, 2, categories);
        QCOMPARE(categories.size(), 8);
        QCOMPARE(categories.value(8), displaced[7].get());
        for (int type = 1; type <= 7; ++type) {
            CategoryPtr made(categories.value(type));
            QVERIFY(made.get() != displaced[type - 1].get());
            QCOMPARE(classNameOf(made.get()), QString::fromLatin1(kFamilies[type - 1]) + "_Sked_Twin");
            QVERIFY(rootOf(made.get()));
        }
    }

    void familyBasesKeepTypeZero() {
        const QList<QMarkCategoryBase*> bases{new Bare<QMarkIntegrity>,   new Bare<QMarkAttribute>,
                                              new Bare<QMarkLogical>,     new Bare<QMarkResCurve>,
                                              new Bare<QMarkGanttChart>,  new Bare<QMarkNetRationality>,
                                              new Bare<QMarkNetPrinciple>};
        for (int i = 0; i < bases.size(); ++i) {
            std::unique_ptr<QMarkCategoryBase> base(bases[i]);
            QCOMPARE(base->GetClassName(), QString::fromLatin1(kFamilies[i]));
            QCOMPARE(jsonOf(base.get()).value("categorytype").toInt(), 0);
            QVERIFY(!rootOf(base.get()));
        }
    }
};

QTEST_GUILESS_MAIN(TstCategoryFactory)
#include "tst_categoryfactory.moc"
