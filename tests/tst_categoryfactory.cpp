// The category factories' code table (and the codes refused), the records of what they make, and
// hostile records: every truncation of a stream, JSON with wrong-typed keys.
#include "categorytest.h"

#include <QtTest>

namespace {

const char* const kFamilies[] = {"QMarkIntegrity",   "QMarkAttribute",  "QMarkLogical",
                                 "QMarkResCurve",    "QMarkGanttChart", "QMarkNetRationality",
                                 "QMarkNetPrinciple"};
const char* const kRootNames[] = {"工作项完整性", "工作项属性",     "逻辑关系",    "资源曲线图正确性",
                                  "横道图合理性", "网络计划合理性", "网络计划原则"};

// Builds the category as a standard from a project that gives every type something to hold.
void buildStandard(QMarkCategoryVirtual* category) {
    FakeProjectData project;
    project.addWorkItem(QStringLiteral("挖土"))->duration = QStringLiteral("14");
    project.addWorkItem(QStringLiteral("垫层"))->unit = QStringLiteral("m³");
    project.logicNames = QStringList{"挖土", "垫层"};
    project.logicDisplays = project.logicChains = QStringList{"挖土;垫层", ""};
    FakeResource labour(QStringLiteral("钢筋工"), 3, QStringLiteral("钢筋工曲线图"));
    project.resources = {&labour};
    category->UpdateCategory(dataOf(project), false);
    category->AssignScore(10.0);
}

QByteArray streamOf(QMarkCategoryVirtual* category) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    category->DoSerialize(out, false);
    return bytes;
}

QDataStream::Status readInto(QMarkCategoryVirtual* category, const QByteArray& bytes) {
    QDataStream in(bytes);
    category->DoSerialize(in, true);
    return in.status();
}

} // namespace

class TstCategoryFactory : public QObject {
    Q_OBJECT
private slots:
    void codeTable_data() {
        QTest::addColumn<int>("product");
        QTest::addColumn<int>("scene");
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("className"); // empty: refused
        for (int scene : {0, 1, 2, 7}) {
            const char* suffix = scene == 1 ? "_Sked_Site" : scene == 2 ? "_Sked_Twin" : "_Sked";
            for (int type = 1; type <= 7; ++type)
                QTest::addRow("scene %d type %d", scene, type)
                    << 5 << scene << type << QString::fromLatin1(kFamilies[type - 1]) + suffix;
        }
        for (int product : {0, 4, 6, 20, -5})
            QTest::addRow("product %d", product) << product << 1 << 1 << QString();
        for (int type : {0, 8, -1})
            QTest::addRow("type %d", type) << 5 << 1 << type << QString();
    }
    void codeTable() {
        QFETCH(int, product);
        QFETCH(int, scene);
        QFETCH(int, type);
        QFETCH(QString, className);
        CategoryPtr category(QMarkCategoryBase::CreateMarkCategoryByType(product, scene, type));
        QMap<int, QMarkCategoryVirtual*> map;
        QMarkCategoryBase::CreateMarkCategory(product, scene, map);
        std::vector<CategoryPtr> owned(map.cbegin(), map.cend());
        QCOMPARE(map.keys(), product == 5 ? (QList<int>{1, 2, 3, 4, 5, 6, 7}) : QList<int>());
        QCOMPARE(category != nullptr, !className.isEmpty());
        if (!category)
            return;
        QCOMPARE(category->metaObject()->className(), className);
        QCOMPARE(qobject_cast<QMarkCategoryBase*>(category.get())->GetClassName(), className);
        QCOMPARE(map.value(type)->metaObject()->className(), className);
        QVERIFY(category->qt_metacast(kFamilies[type - 1]));
        QCOMPARE(jsonOf(category.get()).value("categorytype").toInt(), type);
        QVERIFY(!jsonOf(category.get()).value("iscreated").toBool());
        QRatingItemVirtual* root = rootOf(category.get());
        QCOMPARE(root->GetRatingItemName(), QString::fromUtf8(kRootNames[type - 1]));
        QCOMPARE(root->metaObject()->className(), scene == 1 ? "QRatingItem_Sked_Site" : "QRatingItem_Sked");
        // curves and rationality build criteria in the Site scene only
        buildStandard(category.get());
        QCOMPARE(childrenOf(root).isEmpty(), scene != 1 && (type == 4 || type == 6));
        // the JSON and the stream record round-trip, and what they restore is built
        const QJsonObject json = jsonOf(category.get());
        QJsonObject input = json;
        CategoryPtr fromJson = makeCategory(scene, type), fromStream = makeCategory(scene, type);
        fromJson->DoSerialize(input, true);
        QCOMPARE(jsonOf(fromJson.get()), json);
        const QByteArray bytes = streamOf(category.get());
        QCOMPARE(readInto(fromStream.get(), bytes), QDataStream::Ok);
        QCOMPARE(streamOf(fromStream.get()), bytes);
        QCOMPARE(jsonOf(fromStream.get()), json);
    }

    void truncatedStreamsAreRefused() {
        CategoryPtr attributes = makeCategory(1, 2);
        buildStandard(attributes.get());
        const QByteArray bytes = streamOf(attributes.get());
        for (int length = 0; length < bytes.size(); ++length) {
            CategoryPtr category = makeCategory(1, 2);
            QVERIFY2(readInto(category.get(), bytes.left(length)) != QDataStream::Ok,
                     qPrintable(QString::number(length)));
            streamOf(category.get()); // still usable
        }
    }

    // Category keys of the wrong type read as defaults; the nesting limit of the root's items is
    // tst_ratingitem_sked's jsonNestingIsLimited.
    void hostileJsonReadsAsDefaults() {
        QJsonObject record{{"itemname", "n"}, {"categorytype", "3"}, {"iscreated", 1}};
        CategoryPtr category = makeCategory(1, 3);
        category->DoSerialize(record, true);
        const QJsonObject json = jsonOf(category.get());
        QCOMPARE(json.value("categorytype").toInt(), 0);
        QCOMPARE(json.value("iscreated").toBool(), false);
        QCOMPARE(rootOf(category.get())->GetRatingItemName(), QStringLiteral("n"));
    }
};

QTEST_GUILESS_MAIN(TstCategoryFactory)
#include "tst_categoryfactory.moc"
