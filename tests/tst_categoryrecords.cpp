// Records of the Site categories: JSON objects and stream records round-trip with their trees, and
// hostile records (truncated, absurd child counts, deep nesting, wrong types) are refused without a
// crash or a leak (the sanitizer build checks the latter).
#include "categorytest.h"

#include <QJsonArray>
#include <QtTest>

namespace {

// A Site category of the given type, built from a project that gives every type something to hold.
CategoryPtr builtSiteCategory(int type) {
    FakeProjectData project;
    for (const char* name : {"挖土", "垫层", "挖土"}) {
        FakeWorkItem* item = project.addWorkItem(QString::fromUtf8(name));
        item->duration = QStringLiteral("14");
        item->labourIntensity = item->lineWidth = QStringLiteral("2");
        item->unit = QStringLiteral("m³");
    }
    project.logicNames = QStringList{"挖土", "垫层"};
    project.logicDisplays = QStringList{"挖土在垫层之前", "-"};
    project.logicChains = QStringList{"挖土;垫层", ""};
    project.ganttNames = QStringList{"挖土", "垫层"};
    CategoryPtr category = makeCategory(1, type);
    category->SetMarkTotalTime(90);
    category->SetMarkCurveVariance({{29, 1.5}});
    category->SetMarkSurplusVirJob(true, QStringLiteral("4"));
    category->UpdateCategory(static_cast<QObject*>(&project), false);
    category->AssignScore(10.0);
    return category;
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

// The stream record of one Site item with the given number of children to follow.
void writeItemHeader(QDataStream& out, qint32 children) {
    out << QStringLiteral("QRatingItem_Sked_Site") << qint32(2) << qint32(2) << 1.0 << 1.0
        << QStringLiteral("n") << QString() << QString() << QString() << QString() << false << false
        << QString() << 0.0 << qint32(1) << false << children;
}

QByteArray nestedStream(int depth) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << qint32(1) << QStringLiteral("QMarkIntegrity_Sked_Site") << true;
    for (int level = 0; level < depth; ++level)
        writeItemHeader(out, level + 1 < depth ? 1 : 0);
    return bytes;
}

int depthOf(QRatingItemVirtual* item) {
    int depth = 0;
    for (; item; ++depth) {
        const QList<QRatingItemVirtual*> children = itemsOf(item);
        item = children.isEmpty() ? nullptr : children.first();
    }
    return depth;
}

} // namespace

class TstCategoryRecords : public QObject {
    Q_OBJECT
private slots:
    void siteRecordsRoundTrip_data() {
        QTest::addColumn<int>("type");
        for (int type = 1; type <= 7; ++type)
            QTest::addRow("type %d", type) << type;
    }
    void siteRecordsRoundTrip() {
        QFETCH(int, type);
        CategoryPtr original = builtSiteCategory(type);
        const QJsonObject json = jsonOf(original.get());
        QCOMPARE(json.value("categorytype").toInt(), type);
        QVERIFY(json.value("iscreated").toBool());

        CategoryPtr fromJson = makeCategory(1, type);
        QJsonObject input = json;
        fromJson->DoSerialize(input, true);
        QCOMPARE(jsonOf(fromJson.get()), json);
        QCOMPARE(namesOf(rootOf(fromJson.get())), namesOf(rootOf(original.get())));

        const QByteArray bytes = streamOf(original.get());
        CategoryPtr fromStream = makeCategory(1, type);
        QCOMPARE(readInto(fromStream.get(), bytes), QDataStream::Ok);
        QCOMPARE(streamOf(fromStream.get()), bytes);
        QCOMPARE(jsonOf(fromStream.get()), json);

        // a restored category is built: project data no longer changes it
        FakeProjectData other;
        other.addWorkItem(QStringLiteral("新"));
        fromStream->UpdateCategory(static_cast<QObject*>(&other), true);
        QCOMPARE(jsonOf(fromStream.get()), json);
    }

    void restoredTreesScoreLikeTheOriginal() {
        FakeProjectData candidateProject;
        candidateProject.addWorkItem(QStringLiteral("挖土"));
        candidateProject.addWorkItem(QStringLiteral("挖土"));
        CategoryPtr standard = builtSiteCategory(1);
        CategoryPtr restored = makeCategory(1, 1);
        QCOMPARE(readInto(restored.get(), streamOf(standard.get())), QDataStream::Ok);
        CategoryPtr candidate = makeCategory(1, 1);
        candidate->UpdateCategory(static_cast<QObject*>(&candidateProject), true);
        QCOMPARE(candidate->ExecuteDBScore(restored.get()), 5.0);
        QCOMPARE(childNamed(rootOf(candidate.get()), QStringLiteral("垫层"))->GetRatingItemRemark(),
                 QStringLiteral("缺少评分项，不得分"));
    }

    void truncatedStreamsAreRefused() {
        const QByteArray bytes = streamOf(builtSiteCategory(2).get());
        for (int length = 0; length < bytes.size(); ++length) {
            CategoryPtr category = makeCategory(1, 2);
            QVERIFY2(readInto(category.get(), bytes.left(length)) != QDataStream::Ok,
                     qPrintable(QString::number(length)));
            streamOf(category.get()); // still usable
        }
    }

    void absurdChildCountIsRefused() {
        CategoryPtr empty = makeCategory(1, 1);
        QByteArray bytes = streamOf(empty.get());
        // the root's child count closes the record
        QDataStream patch(&bytes, QIODevice::WriteOnly);
        patch.device()->seek(bytes.size() - 4);
        patch << qint32(0x7fffffff);
        CategoryPtr category = makeCategory(1, 1);
        QCOMPARE(readInto(category.get(), bytes), QDataStream::ReadCorruptData);
        QVERIFY(rootOf(category.get()));
        QCOMPARE(itemsOf(rootOf(category.get())).size(), 0);
    }

    void deepStreamNestingIsRefused() {
        CategoryPtr shallow = makeCategory(1, 1);
        QCOMPARE(readInto(shallow.get(), nestedStream(100)), QDataStream::Ok);
        QCOMPARE(depthOf(rootOf(shallow.get())), 100);
        CategoryPtr deep = makeCategory(1, 1);
        QCOMPARE(readInto(deep.get(), nestedStream(5000)), QDataStream::ReadCorruptData);
        QVERIFY(depthOf(rootOf(deep.get())) < 600);
    }

    void hostileJsonReadsAsDefaults() {
        QJsonObject nested{{"itemname", "leaf"}};
        for (int level = 0; level < 1200; ++level)
            nested = QJsonObject{{"itemname", "n"}, {"items", QJsonArray{nested}}};
        nested.insert("categorytype", "3");
        nested.insert("iscreated", 1);
        CategoryPtr category = makeCategory(1, 3);
        category->DoSerialize(nested, true);
        const QJsonObject json = jsonOf(category.get());
        QCOMPARE(json.value("categorytype").toInt(), 0);
        QCOMPARE(json.value("iscreated").toBool(), false);
        QVERIFY(depthOf(rootOf(category.get())) < 600);

        QJsonObject wrongTypes{{"items", "x"}, {"itemname", 5}, {"attribute", "16"}};
        CategoryPtr other = makeCategory(1, 5);
        other->DoSerialize(wrongTypes, true);
        QCOMPARE(rootOf(other.get())->GetRatingItemName(), QString());
        QCOMPARE(rootOf(other.get())->GetAttributeType(), 0);
        QVERIFY(itemsOf(rootOf(other.get())).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TstCategoryRecords)
#include "tst_categoryrecords.moc"
