// Stored records of every persistent kind (general, pricing and Site items, a Site category), in JSON
// and in stream form at several stream settings. Each fixture must read back and be written again byte
// for byte, and a freshly built object must write exactly the stored bytes: the record formats are a
// published contract, so any change to field order, encoding or defaults fails here.
//
// Set MARKRULE_WRITE_RECORDS=1 to rewrite the fixtures from the builders below (only ever on purpose:
// the stored files are the reference).
#include "itemtrees.h"
#include "markrule.h"

#include <QFile>
#include <QJsonDocument>
#include <QtTest>

#include <functional>
#include <memory>

using namespace MarkCode;

namespace {

using ObjectPtr = std::unique_ptr<QObject>;

// Fills the fields that the general item record holds.
void describe(QRatingItemVirtual* item, const QString& name, int attributeType, int indexRule) {
    item->SetRatingItemName(name);
    item->SetRatingItemCode(name + QStringLiteral("-编码"));
    item->SetRatingItemUnit(QStringLiteral("m³"));
    item->SetAttributeType(attributeType);
    item->SetRatingItemIndexRule(indexRule);
    item->SetRatingItemScoreRule(3);
    item->SetRatingItemPrecision(2);
    item->SetRatingItemValue(2.75);
    item->SetRatingItemScore(1.0 / 3.0);
    item->SetRatingItemRemark(QStringLiteral("备注 ") + name);
}

ObjectPtr generalTree() {
    QRatingItemBase* root = QRatingItemBase::CreateMarkRatingItem(ProductShape);
    describe(root, QStringLiteral("根"), 27, IndexByName);
    root->SetRatingItemLock(true);
    root->SetRatingItemAttribute(
        QVariantMap{{QStringLiteral("n"), QVariant::fromValue(nullptr)},
                    {QStringLiteral("list"), QVariantList{1, 2.5, true, QStringLiteral("x")}}});
    for (int i = 0; i < 2; ++i) {
        auto* child = MarkPointer::item(root->CreateRatingItem(nullptr));
        describe(child, QStringLiteral("子%1").arg(i), 28 + i, IndexByAttributeList);
        child->SetRatingItemValue(-7 + i);
        child->SetRatingItemAttribute(QStringList{QStringLiteral("a%1").arg(i), QStringLiteral("b")});
        root->AddRatingItem(MarkPointer::fromItem(child), true);
    }
    return ObjectPtr(root);
}

void describeTally(QRatingItemVirtual* item, const QString& name, int attributeType) {
    item->SetRatingItemName(name);
    item->SetRatingItemCode(QStringLiteral("0101") + name);
    item->SetRatingItemUnit(QStringLiteral("元"));
    item->SetAttributeType(attributeType);
    item->SetRatingItemLevel(3);
    item->SetRatingItemScoreStd(4.25);
    item->SetRatingItemScore(-1.5);
    item->SetRatingItemRemark(QStringLiteral("超出范围"));
    item->SetRatingItemFeature(QStringLiteral("特征 ") + name);
    item->SetRatingItemQuantity(12.125);
    item->SetRatingItemRate(3456.78);
    item->SetRatingItemRatio(0.2);
    item->SetRatingItemLimit(6.5, 1.25);
    item->SetRatingItemPrecision(3);
}

ObjectPtr tallyTree(int product) {
    QRatingItemBase* root = QRatingItemBase::CreateMarkRatingItem(product);
    describeTally(root, QStringLiteral("分部"), TallyMatchByCodeAndName);
    root->SetRatingItemUnitProject(true);
    root->SetRatingItemLock(true);
    for (int i = 0; i < 2; ++i) {
        auto* child = MarkPointer::item(root->CreateRatingItem(nullptr));
        describeTally(child, QStringLiteral("清单%1").arg(i), i == 0 ? 0 : TallyMatchByCode);
        root->AddRatingItem(MarkPointer::fromItem(child), true);
    }
    return ObjectPtr(root);
}

void describeSite(QRatingItem_Sked* item, const QString& name, int attributeType) {
    item->SetRatingItemName(name);
    item->SetAttributeType(attributeType);
    item->SetRatingItemUnit(QStringLiteral("天"));
    item->SetRatingItemValue(QStringLiteral("12"), QStringLiteral("木工"), true);
    item->SetRatingItemLevel(2);
    item->SetRatingItemScoreStd(2.5);
    item->SetRatingItemScore(-0.75);
    item->SetRatingItemRemark(QStringLiteral("持续时间不一致"));
    item->SetRatingItemEditable(true);
    item->SetValueIdentical(true);
}

ObjectPtr siteTree() {
    auto* root = skedItem<QRatingItem_Sked_Site>(QStringLiteral("工作项属性"), SkedAttributeRoot);
    root->SetRatingItemLock(true);
    auto* node = addChild(root, skedItem<QRatingItem_Sked_Site>(QStringLiteral("绑钢筋"), SkedWorkItemNode));
    describeSite(addChild(node, new QRatingItem_Sked_Site(static_cast<QObject*>(nullptr))),
                 QStringLiteral("持续时间"), SkedDuration);
    describeSite(addChild(root, new QRatingItem_Sked_Site(static_cast<QObject*>(nullptr))),
                 QStringLiteral("木工"), SkedWorkItemCount);
    return ObjectPtr(root);
}

ObjectPtr siteCategory(int type) {
    QMarkCategoryVirtual* category =
        QMarkCategoryBase::CreateMarkCategoryByType(ProductSked, SceneSite, type);
    QRatingItemVirtual* root = MarkPointer::item(category->GetRatingItemPtr());
    auto* child = skedItem<QRatingItem_Sked_Site>(QStringLiteral("支模板"), SkedWorkItemCount,
                                                  QStringLiteral("支模板"), 3.5);
    root->AddRatingItem(MarkPointer::fromItem(child), true);
    return ObjectPtr(category);
}

struct Kind {
    std::function<ObjectPtr()> build;
    std::function<ObjectPtr()> blank;
};

QMap<QString, Kind> kinds() {
    const auto item = [](int product) {
        return [product] { return ObjectPtr(QRatingItemBase::CreateMarkRatingItem(product)); };
    };
    const auto category = [](int type) {
        return [type] {
            return ObjectPtr(QMarkCategoryBase::CreateMarkCategoryByType(ProductSked, SceneSite, type));
        };
    };
    return {
        {QStringLiteral("general"), {generalTree, item(ProductShape)}},
        {QStringLiteral("tally_ash"), {[] { return tallyTree(ProductAsh); }, item(ProductAsh)}},
        {QStringLiteral("tally_yew"), {[] { return tallyTree(ProductYew); }, item(ProductYew)}},
        {QStringLiteral("sked_site"),
         {siteTree, [] { return ObjectPtr(new QRatingItem_Sked_Site(nullptr)); }}},
        {QStringLiteral("category_integrity_site"),
         {[] { return siteCategory(CategoryIntegrity); }, category(CategoryIntegrity)}},
        {QStringLiteral("category_logical_site"),
         {[] { return siteCategory(CategoryLogical); }, category(CategoryLogical)}},
    };
}

QByteArray jsonBytes(QObject* object, bool read, const QByteArray& bytes = QByteArray()) {
    QJsonObject json = read ? QJsonDocument::fromJson(bytes).object() : QJsonObject();
    if (auto* category = qobject_cast<QMarkCategoryVirtual*>(object))
        category->DoSerialize(json, read);
    else
        qobject_cast<QRatingItemVirtual*>(object)->DoSerialize(json, read);
    return read ? QByteArray() : QJsonDocument(json).toJson(QJsonDocument::Indented);
}

struct StreamSetting {
    QDataStream::Version version;
    QDataStream::FloatingPointPrecision precision;
    QDataStream::ByteOrder order;
};

const QMap<QString, StreamSetting>& streamSettings() {
    static const QMap<QString, StreamSetting> settings{
        {QStringLiteral("qt515"),
         {QDataStream::Qt_5_15, QDataStream::DoublePrecision, QDataStream::BigEndian}},
        {QStringLiteral("qt48_le"),
         {QDataStream::Qt_4_8, QDataStream::DoublePrecision, QDataStream::LittleEndian}},
        {QStringLiteral("qt515_single"),
         {QDataStream::Qt_5_15, QDataStream::SinglePrecision, QDataStream::BigEndian}},
    };
    return settings;
}

void serialize(QObject* object, QDataStream& stream, bool read) {
    if (auto* category = qobject_cast<QMarkCategoryVirtual*>(object))
        category->DoSerialize(stream, read);
    else
        qobject_cast<QRatingItemVirtual*>(object)->DoSerialize(stream, read);
}

void configure(QDataStream& stream, const StreamSetting& setting) {
    stream.setVersion(setting.version);
    stream.setFloatingPointPrecision(setting.precision);
    stream.setByteOrder(setting.order);
}

QByteArray streamBytes(QObject* object, const StreamSetting& setting) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    configure(out, setting);
    serialize(object, out, false);
    return out.status() == QDataStream::Ok ? bytes : QByteArray();
}

// Reads the record into object; true when the whole record was read without error.
bool readStream(QObject* object, const QByteArray& bytes, const StreamSetting& setting) {
    QDataStream in(bytes);
    configure(in, setting);
    serialize(object, in, true);
    return in.status() == QDataStream::Ok && in.atEnd();
}

QString fixturePath(const QString& name) {
    return QStringLiteral(MARKRULE_RECORDS_DIR "/") + name;
}

QByteArray fixture(const QString& name) {
    QFile file(fixturePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The stored record of that name; when MARKRULE_WRITE_RECORDS is set, written is stored first.
QByteArray reference(const QString& name, const QByteArray& written) {
    QFile file(fixturePath(name));
    if (qEnvironmentVariableIsSet("MARKRULE_WRITE_RECORDS") && file.open(QIODevice::WriteOnly)) {
        file.write(written);
        file.close();
    }
    return fixture(name);
}

} // namespace

class TestRecords : public QObject {
    Q_OBJECT
private slots:
    void json_data();
    void json();
    void stream_data();
    void stream();
    void cutShort_data();
    void cutShort();
};

void TestRecords::json_data() {
    QTest::addColumn<QString>("kind");
    for (const QString& kind : kinds().keys())
        QTest::newRow(qPrintable(kind)) << kind;
}

void TestRecords::json() {
    QFETCH(QString, kind);
    const Kind made = kinds().value(kind);
    const QString name = kind + QStringLiteral(".json");
    ObjectPtr built = made.build();
    const QByteArray written = jsonBytes(built.get(), false);
    const QByteArray stored = reference(name, written);
    QVERIFY2(!stored.isEmpty(), qPrintable(name));
    QCOMPARE(written, stored);

    ObjectPtr loaded = made.blank();
    jsonBytes(loaded.get(), true, stored);
    QCOMPARE(jsonBytes(loaded.get(), false), stored);
}

void TestRecords::stream_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("setting");
    for (const QString& kind : kinds().keys()) {
        for (const QString& setting : streamSettings().keys())
            QTest::newRow(qPrintable(kind + '/' + setting)) << kind << setting;
    }
}

void TestRecords::stream() {
    QFETCH(QString, kind);
    QFETCH(QString, setting);
    const Kind made = kinds().value(kind);
    const StreamSetting settings = streamSettings().value(setting);
    const QString name = kind + '_' + setting + QStringLiteral(".bin");
    ObjectPtr built = made.build();
    const QByteArray written = streamBytes(built.get(), settings);
    QVERIFY(!written.isEmpty());
    const QByteArray stored = reference(name, written);
    QVERIFY2(!stored.isEmpty(), qPrintable(name));
    QCOMPARE(written, stored);

    ObjectPtr loaded = made.blank();
    QVERIFY(readStream(loaded.get(), stored, settings));
    QCOMPARE(streamBytes(loaded.get(), settings), stored);

    // A record cut short is reported through the stream's status.
    ObjectPtr truncated = made.blank();
    QVERIFY(!readStream(truncated.get(), stored.left(stored.size() - 3), settings));
}

void TestRecords::cutShort_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("length");
    QTest::addColumn<QJsonObject>("expected"); // keys of the JSON record after the read
    QTest::newRow("general after five integers")
        << "general" << 20 << QJsonObject{{"attribute", 27}, {"precision", 2}, {"code", ""}, {"score", 0}};
    QTest::newRow("general inside the code")
        << "general" << 26 << QJsonObject{{"datatype", 1}, {"code", ""}, {"name", ""}};
    QTest::newRow("pricing after level")
        << "tally_ash" << 8
        << QJsonObject{{"attribute", 11}, {"itemlevel", 3}, {"itemname", ""}, {"score", 0}};
    QTest::newRow("site after attribute")
        << "sked_site" << 54
        << QJsonObject{{"itemlevel", 2}, {"attribute", 3}, {"scorestd", 0}, {"itemname", ""}};
}

// A record cut short keeps the fields read before the cut and leaves the others as they were.
void TestRecords::cutShort() {
    QFETCH(QString, kind);
    QFETCH(int, length);
    QFETCH(QJsonObject, expected);
    const StreamSetting setting = streamSettings().value(QStringLiteral("qt515"));
    ObjectPtr loaded = kinds().value(kind).blank();
    QVERIFY(!readStream(loaded.get(), fixture(kind + QStringLiteral("_qt515.bin")).left(length), setting));
    const QJsonObject json = QJsonDocument::fromJson(jsonBytes(loaded.get(), false)).object();
    for (auto it = expected.constBegin(); it != expected.constEnd(); ++it)
        QCOMPARE(json.value(it.key()), it.value());
}

QTEST_GUILESS_MAIN(TestRecords)
#include "tst_records.moc"
