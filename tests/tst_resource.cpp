// Resources: the factory, name normalisation, and which class stores what its setters receive.
#include "qresource_sked.h"
#include "qresource_sked_site.h"

#include <QtTest>
#include <functional>
#include <memory>

namespace {

QResourceBase* makeResource(const QString& className) {
    static const QMap<QString, std::function<QResourceBase*()>> makers = {
        {QStringLiteral("QResource_Sked"), [] { return new QResource_Sked; }},
        {QStringLiteral("QResource_Sked_Twin"), [] { return new QResource_Sked_Twin; }},
        {QStringLiteral("QResource_Sked_Site"), [] { return new QResource_Sked_Site; }},
        {QStringLiteral("QResource_Sked_Site_CL"), [] { return new QResource_Sked_Site_CL; }},
        {QStringLiteral("QResource_Sked_Site_JX"), [] { return new QResource_Sked_Site_JX; }},
        {QStringLiteral("QResource_Sked_Site_RL"), [] { return new QResource_Sked_Site_RL; }},
    };
    return makers.value(className)();
}

const QStringList allClasses = {
    QStringLiteral("QResource_Sked"),         QStringLiteral("QResource_Sked_Twin"),
    QStringLiteral("QResource_Sked_Site"),    QStringLiteral("QResource_Sked_Site_CL"),
    QStringLiteral("QResource_Sked_Site_JX"), QStringLiteral("QResource_Sked_Site_RL")};

// Normalises everything to one text, to show that SetResourceName goes through the virtual.
class UpperResource : public QResource_Sked {
public:
    using QResource_Sked::TransformTextToName;
    QString TransformTextToName(const QString& text) override { return text.toUpper(); }
};

} // namespace

class TestResource : public QObject {
    Q_OBJECT
private slots:
    void createResource_data();
    void createResource();
    void normalisedName_data();
    void normalisedName();
    void normalisedList();
    void setResourceNameUsesOverride();
    void setters_data();
    void setters();
    void curveNameAndGeneralNameShareField();
};

void TestResource::createResource_data() {
    QTest::addColumn<int>("product");
    QTest::addColumn<int>("scene");
    QTest::addColumn<QString>("className"); // empty: no resource

    QTest::newRow("site") << 5 << 1 << "QResource_Sked_Site";
    QTest::newRow("twin") << 5 << 2 << "QResource_Sked_Twin";
    QTest::newRow("plain 0") << 5 << 0 << "QResource_Sked";
    QTest::newRow("plain 3") << 5 << 3 << "QResource_Sked";
    QTest::newRow("plain -1") << 5 << -1 << "QResource_Sked";
    QTest::newRow("scenes-only product") << 6 << 1 << "";
    QTest::newRow("pricing product") << 9 << 1 << "";
    QTest::newRow("product 4") << 4 << 0 << "";
}

void TestResource::createResource() {
    QFETCH(int, product);
    QFETCH(int, scene);
    QFETCH(QString, className);

    std::unique_ptr<QResourceVirtual> resource(QResourceBase::CreateResource(product, scene));
    if (className.isEmpty()) {
        QVERIFY(!resource);
        return;
    }
    QVERIFY(resource);
    QCOMPARE(QString::fromLatin1(resource->metaObject()->className()), className);
    QCOMPARE(qobject_cast<QResourceBase*>(resource.get())->GetClassName(), className);
    QVERIFY(!resource->parent());
}

void TestResource::normalisedName_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");

    const QList<QPair<QString, QStringList>> table = {
        {"模板工", {"木工"}},
        {"混凝土工", {"砼工"}},
        {"钢筋原材", {"钢筋", "原材钢筋"}},
        {"成品混凝土", {"混凝土", "砼", "混凝土成品"}},
        {"成品钢筋", {"钢筋成品"}},
        {"砂石", {"砂石原材"}},
        {"水泥", {"水泥原材"}},
        {"钢筋加工机", {"钢筋加工", "钢筋加工机械"}},
        {"混凝土搅拌机", {"混凝土加工机", "混凝土搅拌", "混凝土机械", "混凝土搅拌机械"}},
        {"发电机组",
         {"大型发电机", "小型发电机", "发电机组（大）", "发电机组(大)", "发电机组（小）", "发电机组(小)"}},
        {"供水泵机",
         {"大型供水泵机", "小型供水泵机", "供水泵机（小）", "供水泵机(小)", "供水泵机（大）",
          "供水泵机(大)"}},
    };
    for (const auto& row : table) {
        for (const QString& text : row.second)
            QTest::newRow(qPrintable(text)) << text << row.first;
    }
    // Texts that are their own name: canonical names, near misses and untrimmed or differently cased text.
    const QStringList unchanged = {"钢筋工",         "模板",  "模板工", "成品混凝土",
                                   "发电机组",       " 木工", "木工 ",  "发电机组[大]",
                                   "发电机组（中）", "Steel", "steel",  ""};
    for (const QString& text : unchanged)
        QTest::newRow(qPrintable(QStringLiteral("unchanged '%1'").arg(text))) << text << text;
}

void TestResource::normalisedName() {
    QFETCH(QString, text);
    QFETCH(QString, name);

    for (const QString& className : allClasses) {
        std::unique_ptr<QResourceBase> resource(makeResource(className));
        QCOMPARE(resource->TransformTextToName(text), name);
        resource->SetResourceName(text);
        QCOMPARE(resource->GetResourceName(), name);
    }
}

void TestResource::normalisedList() {
    QResource_Sked_Site_RL resource;
    QCOMPARE(resource.TransformTextToName(QStringList{"木工", "砼", "模板", "木工"}),
             (QStringList{"模板工", "成品混凝土", "模板", "模板工"}));
    QCOMPARE(resource.TransformTextToName(QStringList()), QStringList());
}

void TestResource::setResourceNameUsesOverride() {
    UpperResource resource;
    resource.SetResourceName(QStringLiteral("abc"));
    QCOMPARE(resource.GetResourceName(), QStringLiteral("ABC"));
    QCOMPARE(resource.TransformTextToName(QStringList{"a", "木工"}), (QStringList{"A", "木工"}));
}

void TestResource::setters_data() {
    QTest::addColumn<QString>("className");
    QTest::addColumn<bool>("site");    // stores SetFactor, SetPrice, SetUnit, SetResource, SetGeneralName
    QTest::addColumn<bool>("process"); // stores SetProjectCode, SetProjectName, SetGxColor

    QTest::newRow("sked") << "QResource_Sked" << false << false;
    QTest::newRow("twin") << "QResource_Sked_Twin" << false << false;
    QTest::newRow("site") << "QResource_Sked_Site" << true << false;
    QTest::newRow("site CL") << "QResource_Sked_Site_CL" << true << false;
    QTest::newRow("site JX") << "QResource_Sked_Site_JX" << true << false;
    QTest::newRow("site RL") << "QResource_Sked_Site_RL" << true << true;
}

void TestResource::setters() {
    QFETCH(QString, className);
    QFETCH(bool, site);
    QFETCH(bool, process);

    std::unique_ptr<QResourceBase> resource(makeResource(className));
    QCOMPARE(resource->GetClassName(), className);
    QResource_Sked_Twin other;
    // Every value the resource shows; "-" where the class has no such field.
    const auto observe = [&resource, &other] {
        auto* sked = qobject_cast<QResource_Sked*>(resource.get());
        auto* siteResource = qobject_cast<QResource_Sked_Site*>(resource.get());
        const QString base = !siteResource                            ? "-"
                             : siteResource->baseResource() == &other ? "other"
                             : siteResource->baseResource()           ? "?"
                                                                      : "null";
        return QStringList{resource->GetResourceCode(),
                           resource->GetResourceName(),
                           QString::number(resource->GetResPlanTotal()),
                           QString::number(sked->planStrength()),
                           QString::number(sked->realQuantity()),
                           QString::number(sked->price()),
                           sked->unit(),
                           QString::number(resource->GetResourceFactor()),
                           resource->GetGeneralName(),
                           siteResource ? QString::number(siteResource->sitePrice()) : "-",
                           siteResource ? siteResource->siteUnit() : "-",
                           base,
                           resource->GetProjectCode(),
                           resource->GetProjectName(),
                           resource->GetGxColor()};
    };
    const QString none = site ? "" : "-";
    QCOMPARE(observe(), (QStringList{"", "", "0", "0", "0", "0", "", "0", "", site ? "10000" : "-", none,
                                     site ? "null" : "-", "", "", ""}));

    resource->SetResourceCode(QStringLiteral("SiteRLJZ00001"));
    resource->SetResourceName(QStringLiteral("木工"));
    resource->SetResPlanTotal(12);
    resource->SetResPlanStrength(1.5);
    resource->SetResourceReal(3);
    resource->SetResourcePrice(40);
    resource->SetResourceUnit(QStringLiteral("工日"));
    resource->SetFactor(7);
    resource->SetPrice(99);
    resource->SetUnit(QStringLiteral("m3"));
    resource->SetResource(&other);
    resource->SetGeneralName(QStringLiteral("钢筋工曲线图"));
    resource->SetProjectCode(QStringLiteral("Qty01"));
    resource->SetProjectName(QStringLiteral("绑钢筋"));
    resource->SetGxColor(QStringLiteral("黄色"));
    // The site price and unit are fields of their own: the schedule price and unit keep 40 and 工日.
    QCOMPARE(observe(), (QStringList{"SiteRLJZ00001", "模板工", "12", "1.5", "3", "40", "工日",
                                     site ? "7" : "0", site ? "钢筋工曲线图" : "", site ? "99" : "-",
                                     site ? "m3" : "-", site ? "other" : "-", process ? "Qty01" : "",
                                     process ? "绑钢筋" : "", process ? "黄色" : ""}));

    // Setting again overwrites.
    resource->SetResPlanTotal(-2);
    resource->SetResourceName(QStringLiteral("砼"));
    QCOMPARE(resource->GetResPlanTotal(), -2);
    QCOMPARE(resource->GetResourceName(), QStringLiteral("成品混凝土"));
}

void TestResource::curveNameAndGeneralNameShareField() {
    QResource_Sked_Site_JX resource;
    resource.SetCurveName(QStringLiteral("钢筋工曲线图"));
    resource.SetGeneralName(QStringLiteral("X"));
    QCOMPARE(resource.GetGeneralName(), QStringLiteral("X"));
    resource.SetCurveName(QStringLiteral("Y"));
    QCOMPARE(resource.GetGeneralName(), QStringLiteral("Y"));
}

QTEST_GUILESS_MAIN(TestResource)
#include "tst_resource.moc"
