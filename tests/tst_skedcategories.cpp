// The schedule categories that build from work items and settings (integrity, attributes, Gantt chart,
// network-plan principles and rationality): the trees they build once, and end to end, a standard and
// a candidate side scored against each other.
#include "categorytest.h"

#include <QtTest>

namespace {

void* dataOf(FakeProjectData& project) {
    return static_cast<QObject*>(&project);
}

// The candidate criterion of that name below the root, with its score and remark.
struct Verdict {
    double score;
    QString remark;
};
Verdict verdictOf(QMarkCategoryVirtual* category, const QString& name) {
    QRatingItemVirtual* item = childNamed(rootOf(category), name);
    return item ? Verdict{item->GetRatingItemScore(), item->GetRatingItemRemark()}
                : Verdict{-999.0, QString()};
}

// An integrity category whose item creator gives up after a number of items.
class GivingUpIntegrity : public QMarkIntegrity_Sked {
public:
    explicit GivingUpIntegrity(int items) : m_left(items) { InitMarkCategoryItem(); }
    void* CreateRatingItem(QObject* parent) override {
        return m_left-- > 0 ? QMarkIntegrity_Sked::CreateRatingItem(parent) : nullptr;
    }

private:
    int m_left;
};

// Fills a work item with the nine attributes of a non-fixed work item.
FakeWorkItem* withAttributes(FakeWorkItem* item, const QString& duration, const QString& width,
                             const QString& colour) {
    item->duration = duration;
    item->quantityCode = QStringLiteral("010101001");
    item->quantityName = QStringLiteral("挖一般土方");
    item->unit = QStringLiteral("立方米");
    item->plannedQuantity = 120.6;
    item->materialTotal = 30.2;
    item->labourIntensity = QStringLiteral("3");
    item->crew = QStringLiteral("土方班组");
    item->lineWidth = width;
    item->color = colour;
    return item;
}

} // namespace

class TstSkedCategories : public QObject {
    Q_OBJECT
private slots:
    // Work-item integrity

    void integrityCountsEntriesPerDistinctName_data() {
        QTest::addColumn<int>("scene");
        QTest::addColumn<QString>("itemClass");
        QTest::newRow("plain") << 0 << "QRatingItem_Sked";
        QTest::newRow("twin") << 2 << "QRatingItem_Sked";
        QTest::newRow("site") << 1 << "QRatingItem_Sked_Site";
    }
    void integrityCountsEntriesPerDistinctName() {
        QFETCH(int, scene);
        QFETCH(QString, itemClass);
        FakeProjectData project;
        project.addWorkItem(QStringLiteral("A"));
        project.addWorkItem(QStringLiteral("B"));
        project.addWorkItem(QStringLiteral("A"));
        project.addWorkItem(QStringLiteral("C"));
        QObject foreign;
        project.leadingWorkItemEntries = {nullptr, &foreign};
        // C is listed but has no entry in the by-name map
        project.byNameOverride = true;
        project.byName.insert(QStringLiteral("A"), static_cast<QObject*>(project.workItems[0]));
        project.byName.insert(QStringLiteral("B"), static_cast<QObject*>(project.workItems[1]));
        project.byName.insert(QStringLiteral("A"), static_cast<QObject*>(project.workItems[2]));
        CategoryPtr category = makeCategory(scene, 1);
        category->UpdateCategory(dataOf(project), false);
        QRatingItemVirtual* root = rootOf(category.get());
        QCOMPARE(namesOf(root), (QStringList{"A", "B", "C"}));
        QStringList values;
        for (QRatingItemVirtual* child : itemsOf(root)) {
            values.append(child->GetRatingItemValue());
            QCOMPARE(child->GetRatingItemUnit(), QStringLiteral("个"));
            QCOMPARE(child->GetAttributeType(), 2);
            QCOMPARE(QString::fromLatin1(child->metaObject()->className()), itemClass);
        }
        QCOMPARE(values, (QStringList{"2", "1", "0"}));
        QCOMPARE(project.receivedNameLists, (QList<QStringList>{{"A", "B", "C"}}));
        QVERIFY(isBuilt(category.get()));
    }

    void integrityBuildsOnce() {
        FakeProjectData empty, full;
        full.addWorkItem(QStringLiteral("A"));
        CategoryPtr first = makeCategory(1, 1);
        first->UpdateCategory(dataOf(empty), false);
        first->UpdateCategory(dataOf(full), false);
        QCOMPARE(itemsOf(rootOf(first.get())).size(), 0);
        QCOMPARE(empty.receivedNameLists, (QList<QStringList>{QStringList()}));
        QVERIFY(full.receivedNameLists.isEmpty());

        // No data (or data of another kind) marks the category built with its root alone.
        QObject notProjectData;
        for (void* data : {static_cast<void*>(nullptr), static_cast<void*>(&notProjectData)}) {
            CategoryPtr category = makeCategory(0, 1);
            category->UpdateCategory(data, false);
            QVERIFY(isBuilt(category.get()));
            category->UpdateCategory(dataOf(full), false);
            QCOMPARE(itemsOf(rootOf(category.get())).size(), 0);
        }
    }

    void integrityStopsWhenNoItemCanBeMade() {
        FakeProjectData project;
        for (const char* name : {"A", "B", "C"})
            project.addWorkItem(QString::fromLatin1(name));
        GivingUpIntegrity category(1);
        category.UpdateCategory(dataOf(project), false);
        QCOMPARE(namesOf(rootOf(&category)), QStringList{"A"});
        QVERIFY(project.receivedNameLists.isEmpty());
        QVERIFY(!isBuilt(&category));
    }

    void integrityScoresTheTypicalRoad_data() {
        QTest::addColumn<int>("scene");
        QTest::newRow("site") << 1;
        QTest::newRow("plain") << 0;
        QTest::newRow("twin") << 2;
    }
    void integrityScoresTheTypicalRoad() {
        QFETCH(int, scene);
        FakeProjectData standardProject, candidateProject;
        for (const char* name : {"挖土", "挖土", "垫层", "钢筋", "模板"})
            standardProject.addWorkItem(QString::fromUtf8(name));
        for (const char* name : {"挖土", "垫层", "钢筋", "挖土", "钢筋", "脚手架"})
            candidateProject.addWorkItem(QString::fromUtf8(name));
        CategoryPtr standard = makeCategory(scene, 1), candidate = makeCategory(scene, 1);
        const double total =
            scorePair(standard.get(), candidate.get(), &standardProject, &candidateProject, 10.0);

        // 2.5 per name: two agree, 钢筋 is counted twice, 模板 is missing and 脚手架 is surplus
        QCOMPARE(total, 2.5);
        QCOMPARE(rootOf(candidate.get())->GetRatingItemScore(), 2.5);
        QCOMPARE(verdictOf(candidate.get(), QStringLiteral("挖土")).score, 2.5);
        QCOMPARE(verdictOf(candidate.get(), QStringLiteral("垫层")).score, 2.5);
        QCOMPARE(verdictOf(candidate.get(), QStringLiteral("钢筋")).remark,
                 QStringLiteral("存在重复工作项，不得分"));
        QCOMPARE(verdictOf(candidate.get(), QStringLiteral("钢筋")).score, 0.0);
        QCOMPARE(verdictOf(candidate.get(), QStringLiteral("模板")).remark,
                 QStringLiteral("缺少评分项，不得分"));
        QCOMPARE(verdictOf(candidate.get(), QStringLiteral("脚手架")).remark,
                 QStringLiteral("存在多余评分项，扣分"));
        QCOMPARE(verdictOf(candidate.get(), QStringLiteral("脚手架")).score, -2.5);
    }

    // Work-item attributes

    void attributeNodesPerWorkItem_data() {
        QTest::addColumn<int>("scene");
        QTest::addColumn<int>("attributes");
        QTest::newRow("plain") << 0 << 0;
        QTest::newRow("twin") << 2 << 0;
        QTest::newRow("site") << 1 << 9;
    }
    void attributeNodesPerWorkItem() {
        QFETCH(int, scene);
        QFETCH(int, attributes);
        FakeProjectData project;
        withAttributes(project.addWorkItem(QStringLiteral("A")), QStringLiteral("7"), QStringLiteral("3"),
                       QStringLiteral("255,0,0"));
        project.leadingWorkItemEntries = {nullptr};
        withAttributes(project.addWorkItem(QStringLiteral("A")), QStringLiteral("7"), QStringLiteral("3"),
                       QStringLiteral("255,0,0"));
        CategoryPtr category = makeCategory(scene, 2);
        category->UpdateCategory(dataOf(project), true);
        QRatingItemVirtual* root = rootOf(category.get());
        QCOMPARE(namesOf(root), (QStringList{"A", "A"}));
        for (QRatingItemVirtual* item : itemsOf(root)) {
            QCOMPARE(item->GetAttributeType(), 4);
            QCOMPARE(item->GetRatingItemValue(), QString());
            QCOMPARE(itemsOf(item).size(), attributes);
        }
    }

    void siteAttributesFollowTheWorkItem() {
        FakeProjectData project;
        FakeWorkItem* item = withAttributes(project.addWorkItem(QStringLiteral("W")), QStringLiteral("14"),
                                            QStringLiteral("3"), QStringLiteral("0,0,255"));
        item->unit = QStringLiteral("m³");
        item->plannedQuantity = 7.99;
        item->materialTotal = -3.7;
        FakeWorkItem* fixed = project.addWorkItem(QStringLiteral("F"));
        fixed->duration = QStringLiteral("12");
        fixed->fixedDuration = 5;
        CategoryPtr category = makeCategory(1, 2);
        category->UpdateCategory(dataOf(project), false);

        QRatingItemVirtual* node = childNamed(rootOf(category.get()), QStringLiteral("W"));
        QCOMPARE(namesOf(node),
                 (QStringList{"持续时间", "工程量编码", "工程量名称", "计划量", "单位", "材料资源（总量）",
                              "人力资源（强度）", "工序线宽", "工序颜色"}));
        const QStringList units{"天", "", "", "m³", "", "m³", "班组", "", "RGB"};
        const QList<int> types{5, 6, 7, 8, 9, 13, 12, 11, 10};
        const QStringList values{"14", "010101001", "挖一般土方", "7", "m³", "-3", "3", "3", "0,0,255"};
        const QList<QRatingItemVirtual*> attributes = itemsOf(node);
        for (int i = 0; i < attributes.size(); ++i) {
            QCOMPARE(attributes[i]->GetRatingItemUnit(), units[i]);
            QCOMPARE(attributes[i]->GetAttributeType(), types[i]);
            QCOMPARE(attributes[i]->GetRatingItemValue(), values[i]);
            QCOMPARE(attributes[i]->GetRatingItemLevel(), 3);
        }
        QCOMPARE(attributes[6]->GetRatingItemRemark(), QStringLiteral("土方班组"));
        // the unit criterion compares the normalised unit
        QCOMPARE(jsonOf(attributes[4]).value("uniquevalue").toString(), QStringLiteral("立方米"));
        QCOMPARE(jsonOf(node).value("identical").toBool(), false);

        QRatingItemVirtual* fixedNode = childNamed(rootOf(category.get()), QStringLiteral("F"));
        QCOMPARE(namesOf(fixedNode), QStringList{"持续时间"});
        QVERIFY(jsonOf(fixedNode).value("identical").toBool());
        QVERIFY(jsonOf(itemsOf(fixedNode).first()).value("identical").toBool());
    }

    void siteAttributesScoreFixedAndWeeklyDurationsAndLinkedWidths() {
        FakeProjectData standardProject, candidateProject;
        FakeWorkItem* fixed = standardProject.addWorkItem(QStringLiteral("挖土"));
        fixed->duration = QStringLiteral("12");
        fixed->fixedDuration = 1;
        withAttributes(standardProject.addWorkItem(QStringLiteral("垫层")), QStringLiteral("7"),
                       QStringLiteral("3"), QStringLiteral("0,0,255"));
        withAttributes(standardProject.addWorkItem(QStringLiteral("钢筋")), QStringLiteral("7"),
                       QStringLiteral("3"), QStringLiteral("0,0,255"));
        // The candidate does not fix 挖土: its extra attributes are left alone under a fixed standard.
        withAttributes(candidateProject.addWorkItem(QStringLiteral("挖土")), QStringLiteral("14"),
                       QStringLiteral("3"), QStringLiteral("0,0,255"));
        FakeWorkItem* good =
            withAttributes(candidateProject.addWorkItem(QStringLiteral("垫层")), QStringLiteral("14"),
                           QStringLiteral("3"), QStringLiteral("255,0,0"));
        good->unit = QStringLiteral("立方");
        withAttributes(candidateProject.addWorkItem(QStringLiteral("钢筋")), QStringLiteral("10"),
                       QStringLiteral("2"), QStringLiteral("0,0,255"));
        CategoryPtr standard = makeCategory(1, 2), candidate = makeCategory(1, 2);
        // 9 per work item: 挖土's duration carries all 9, the others 1 per attribute
        const double total =
            scorePair(standard.get(), candidate.get(), &standardProject, &candidateProject, 27.0);

        QRatingItemVirtual* root = rootOf(candidate.get());
        QRatingItemVirtual* duration =
            childNamed(childNamed(root, QStringLiteral("挖土")), QStringLiteral("持续时间"));
        QCOMPARE(duration->GetRatingItemScore(), 0.0);
        QCOMPARE(duration->GetRatingItemRemark(), QStringLiteral("\"持续时间\"为固定时长12天"));
        QCOMPARE(namesOf(childNamed(root, QStringLiteral("挖土"))), QStringList{"持续时间"});

        QRatingItemVirtual* weekly = childNamed(root, QStringLiteral("垫层"));
        QCOMPARE(weekly->GetRatingItemScore(), 8.0); // all but the colour
        QCOMPARE(childNamed(weekly, QStringLiteral("工序颜色"))->GetRatingItemRemark(),
                 QStringLiteral("不存在颜色"));
        QCOMPARE(childNamed(weekly, QStringLiteral("单位"))->GetRatingItemScore(), 1.0);

        QRatingItemVirtual* unlinked = childNamed(root, QStringLiteral("钢筋"));
        QCOMPARE(unlinked->GetRatingItemScore(), 7.0); // 10 days is no whole week, width 2 is not intensity 3
        QCOMPARE(childNamed(unlinked, QStringLiteral("工序线宽"))->GetRatingItemRemark(),
                 QStringLiteral("与人力资源强度值不一致，不得分"));
        QCOMPARE(childNamed(unlinked, QStringLiteral("持续时间"))->GetRatingItemScore(), 0.0);
        QCOMPARE(total, 15.0);
    }

    // Gantt chart

    void ganttStandardRequiresWeeksRowsAndOrder() {
        FakeProjectData project;
        for (int i = 1; i <= 12; ++i)
            project.ganttNames.append(QStringLiteral("工序%1").arg(i));
        auto gantt = std::make_unique<QMarkGanttChart_Sked>();
        gantt->InitMarkCategoryItem();
        gantt->SetMarkGanttTime(QStringLiteral("日"));
        gantt->UpdateCategory(dataOf(project), false);
        QRatingItemVirtual* root = rootOf(gantt.get());
        QCOMPARE(namesOf(root), (QStringList{"横道图时间单位", "横道图完整性显示", "横道图完整性及排序"}));
        QCOMPARE(itemsOf(root)[0]->GetRatingItemValue(), QStringLiteral("工程周"));
        QCOMPARE(itemsOf(root)[1]->GetRatingItemValue(), QStringLiteral(">= 12"));
        QCOMPARE(itemsOf(root)[2]->GetRatingItemValue(), QStringLiteral("完整性工序顺序"));
        QCOMPARE(itemsOf(root)[1]->GetRatingItemRemark(), QStringLiteral("横道图分页显示行数>=工序数量"));
        // the required settings stay
        auto copy = std::make_unique<QMarkGanttChart_Sked>();
        copy->InitMarkCategoryItem();
        copy->SetMarkGanttChart(QStringLiteral("x"));
        copy->ClearMarkCategory();
        copy->InitMarkCategory(gantt.get());
        copy->UpdateCategory(dataOf(project), true);
        QCOMPARE(namesOf(rootOf(copy.get())).size(), 3);
        QCOMPARE(itemsOf(rootOf(copy.get()))[0]->GetRatingItemValue(), QStringLiteral("工程周"));
        QCOMPARE(itemsOf(rootOf(copy.get()))[1]->GetRatingItemValue(), QStringLiteral("12"));
        QCOMPARE(itemsOf(rootOf(copy.get()))[2]->GetRatingItemValue(), QStringLiteral("完整性工序顺序"));
    }

    void ganttScoresRowsAndOrder_data() {
        QTest::addColumn<QString>("time");
        QTest::addColumn<int>("rows");
        QTest::addColumn<QString>("chart");
        QTest::addColumn<double>("total");
        QTest::addColumn<QStringList>("remarks");
        const QString setUp = QStringLiteral("网络计划图以周为时间单位进行显示");
        QTest::newRow("all right") << "工程周" << 3 << "A;B;平米" << 9.0 << QStringList{"", "", ""};
        QTest::newRow("rows and order")
            << "工程周" << 2 << "A;平方米;B" << 3.0
            << QStringList{"", "横道图分页显示行数设置不够，不得分", "从工序平方米始顺序不一致，不得分"};
        QTest::newRow("count") << "天" << 5 << " A ;B" << 3.0
                               << QStringList{setUp, "", "工序数量不一致，不得分"};
        QTest::newRow("nothing set") << "" << 0 << "" << 0.0
                                     << QStringList{setUp, "横道图分页显示行数设置不够，不得分",
                                                    "工序数量不一致，不得分"};
    }
    void ganttScoresRowsAndOrder() {
        QFETCH(QString, time);
        QFETCH(int, rows);
        QFETCH(QString, chart);
        QFETCH(double, total);
        QFETCH(QStringList, remarks);
        FakeProjectData standardProject, candidateProject;
        standardProject.ganttNames = QStringList{"A", "B", "平方米"};
        CategoryPtr standard = makeCategory(1, 5), candidate = makeCategory(1, 5);
        candidate->SetMarkGanttTime(time);
        candidate->SetMarkPerScreen(rows);
        candidate->SetMarkGanttChart(chart);
        QCOMPARE(scorePair(standard.get(), candidate.get(), &standardProject, &candidateProject, 9.0), total);
        QStringList found;
        for (QRatingItemVirtual* item : itemsOf(rootOf(candidate.get())))
            found.append(item->GetRatingItemRemark());
        QCOMPARE(found, remarks);
    }

    // Network-plan principles

    void principleTextsOnBothSides_data() {
        QTest::addColumn<bool>("single");
        QTest::addColumn<bool>("broken");
        QTest::addColumn<bool>("surplus");
        QTest::addColumn<QStringList>("values");
        QTest::addColumn<QStringList>("remarks");
        QTest::addColumn<double>("total");
        QTest::newRow("sound") << true << false << false
                               << QStringList{"起终节点数唯一", "无断开的线路", "无多余虚工作"}
                               << QStringList{"", "", ""} << 6.0;
        QTest::newRow("faulty") << false << true << true
                                << QStringList{"起终节点数不唯一", "有线路断开", "存在多余虚工作"}
                                << QStringList{"开始节点1个，结束节点2个", "节点5后断开",
                                               "多余虚工作节点编号：3,7"}
                                << 0.0;
        QTest::newRow("broken only") << true << true << false
                                     << QStringList{"起终节点数唯一", "有线路断开", "无多余虚工作"}
                                     << QStringList{"", "节点5后断开", ""} << 4.0;
    }
    void principleTextsOnBothSides() {
        QFETCH(bool, single);
        QFETCH(bool, broken);
        QFETCH(bool, surplus);
        QFETCH(QStringList, values);
        QFETCH(QStringList, remarks);
        QFETCH(double, total);
        FakeProjectData project;
        CategoryPtr standard = makeCategory(2, 7), candidate = makeCategory(2, 7);
        for (QMarkCategoryVirtual* side : {standard.get(), candidate.get()}) {
            side->SetMarkBeginEndOnlyDot(single);
            side->SetMarkBeginEndOnlyDot(QStringLiteral("开始节点1个，结束节点2个"));
            side->SetMarkNetLineBreak(broken);
            side->SetMarkNetLineBreak(QStringLiteral("节点5后断开"));
            side->SetMarkSurplusVirJob(surplus, QStringLiteral("3,7"));
        }
        QCOMPARE(candidate->GetMarkBeginEndOnlyDot(), single);
        QCOMPARE(scorePair(standard.get(), candidate.get(), &project, &project, 6.0), total);
        QStringList standardValues, standardRemarks, candidateValues, candidateRemarks;
        for (QRatingItemVirtual* item : itemsOf(rootOf(standard.get()))) {
            standardValues.append(item->GetRatingItemValue());
            standardRemarks.append(item->GetRatingItemRemark());
        }
        for (QRatingItemVirtual* item : itemsOf(rootOf(candidate.get()))) {
            candidateValues.append(item->GetRatingItemValue());
            candidateRemarks.append(item->GetRatingItemRemark());
        }
        // the standard shows the rule-satisfied texts and keeps the host's findings as remarks
        QCOMPARE(standardValues, (QStringList{"起终节点数唯一", "无断开的线路", "无多余虚工作"}));
        QCOMPARE(standardRemarks, (QStringList{"开始节点1个，结束节点2个", "节点5后断开",
                                               surplus ? "多余虚工作节点编号：3,7" : ""}));
        QCOMPARE(candidateValues, values);
        QCOMPARE(candidateRemarks, remarks);
    }

    void principleDefaultsAndCopies() {
        FakeProjectData project;
        CategoryPtr fresh = makeCategory(0, 7);
        fresh->SetMarkSurplusVirJob(true, QStringLiteral("%1"));
        fresh->SetMarkSurplusVirJob(false, QStringLiteral("9"));
        CategoryPtr copy = makeCategory(0, 7);
        copy->SetMarkNetLineBreak(true);
        copy->InitMarkCategory(nullptr);
        copy->InitMarkCategory(fresh.get());
        for (QMarkCategoryVirtual* category : {fresh.get(), copy.get()}) {
            category->UpdateCategory(dataOf(project), true);
            const QList<QRatingItemVirtual*> items = itemsOf(rootOf(category));
            QCOMPARE(items[0]->GetRatingItemValue(), QStringLiteral("起终节点数不唯一"));
            QCOMPARE(items[0]->GetRatingItemRemark(), QStringLiteral("一个开始节点，一个结束节点"));
            QCOMPARE(items[1]->GetRatingItemValue(), QStringLiteral("无断开的线路"));
            QCOMPARE(items[2]->GetRatingItemValue(), QStringLiteral("无多余虚工作"));
            QCOMPARE(items[2]->GetRatingItemRemark(), QString());
        }
    }

    // Network-plan rationality

    void rationalityShowsSettings_data() {
        QTest::addColumn<QVariantMap>("variance");
        QTest::addColumn<QStringList>("values");
        QTest::newRow("none") << QVariantMap() << QStringList{"0", "0", "0", "0", "0"};
        QTest::newRow("two keys") << QVariantMap{{"29", 2.5}, {"31", 1234567.0}, {"33", 9.0}}
                                  << QStringList{"0", "2.5", "0", "1.23457e+06", "0"};
    }
    void rationalityShowsSettings() {
        QFETCH(QVariantMap, variance);
        QFETCH(QStringList, values);
        QMap<int, double> curves;
        for (auto it = variance.cbegin(); it != variance.cend(); ++it)
            curves.insert(it.key().toInt(), it.value().toDouble());
        FakeProjectData project;
        CategoryPtr category = makeCategory(1, 6);
        category->SetMarkCurveVariance(curves);
        category->UpdateCategory(dataOf(project), false);
        QRatingItemVirtual* root = rootOf(category.get());
        QCOMPARE(namesOf(root), (QStringList{"总工期", "总人力资源曲线", "成品钢筋/钢筋原材曲线",
                                             "成品混凝土/水泥、砂石资源曲线", "模板资源曲线"}));
        QStringList found;
        for (QRatingItemVirtual* item : itemsOf(root)) {
            found.append(item->GetRatingItemValue());
            QVERIFY(item->GetRatingItemEditable());
        }
        QCOMPARE(found, values);
        QCOMPARE(itemsOf(root)[0]->GetRatingItemUnit(), QStringLiteral("天"));
        QCOMPARE(itemsOf(root)[4]->GetRatingItemUnit(), QStringLiteral("波动值"));
        QCOMPARE(itemsOf(root)[4]->GetRatingItemRemark(), QStringLiteral("以各自完成的总工期作为时间轴计算"));
        QCOMPARE(root->GetAttributeType(), 0);
    }

    void rationalityRefreshesAndRescores() {
        FakeProjectData project;
        CategoryPtr standard = makeCategory(1, 6), candidate = makeCategory(1, 6);
        standard->SetMarkTotalTime(100);
        standard->SetMarkCurveVariance({{29, 5.0}, {30, 3.0}, {31, 2.0}, {32, 1.0}});
        candidate->SetMarkTotalTime(103);
        candidate->SetMarkCurveVariance({{29, 4.0}, {30, 3.0}, {31, -1.0}, {32, 0.5}});
        QCOMPARE(scorePair(standard.get(), candidate.get(), &project, &project, 10.0), 4.0);
        QCOMPARE(verdictOf(candidate.get(), QStringLiteral("总工期")).remark, QStringLiteral("工作延期3天"));
        QCOMPARE(verdictOf(candidate.get(), QStringLiteral("成品钢筋/钢筋原材曲线")).remark,
                 QStringLiteral("超出标准方差上限，不得分"));
        QCOMPARE(verdictOf(candidate.get(), QStringLiteral("成品混凝土/水泥、砂石资源曲线")).remark,
                 QStringLiteral("不存在资源数据，不得分"));

        candidate->SetMarkTotalTime(90);
        candidate->SetMarkCurveVariance({{29, 4.0}, {30, 2.0}, {31, 1.0}, {32, 0.5}});
        candidate->UpdateCategoryItem(false);
        QCOMPARE(candidate->ExecuteDBScore(standard.get()), 4.0);
        candidate->UpdateCategoryItem(true);
        QCOMPARE(childNamed(rootOf(candidate.get()), QStringLiteral("总工期"))->GetRatingItemValue(),
                 QStringLiteral("90"));
        QCOMPARE(candidate->ExecuteDBScore(standard.get()), 10.0);
        QCOMPARE(verdictOf(candidate.get(), QStringLiteral("总工期")).remark, QString());

        // an item of another attribute type below the root is emptied by the refresh
        auto* stranger = new QRatingItem_Sked_Site();
        stranger->SetRatingItemValue(QStringLiteral("x"), false);
        rootOf(candidate.get())->AddRatingItem(MarkPointer::fromItem(stranger), false);
        candidate->UpdateCategoryItem(true);
        QCOMPARE(stranger->GetRatingItemValue(), QString());
    }

    void plainAndTwinRationalityBuildNothing_data() {
        QTest::addColumn<int>("scene");
        QTest::newRow("plain") << 0;
        QTest::newRow("twin") << 2;
    }
    void plainAndTwinRationalityBuildNothing() {
        QFETCH(int, scene);
        FakeProjectData project;
        CategoryPtr category = makeCategory(scene, 6);
        category->SetMarkTotalTime(120);
        category->UpdateCategory(dataOf(project), false);
        category->UpdateCategoryItem(true);
        QCOMPARE(itemsOf(rootOf(category.get())).size(), 0);
        QCOMPARE(rootOf(category.get())->GetAttributeType(), 27);
        auto* base = qobject_cast<QMarkCategoryBase*>(category.get());
        std::unique_ptr<QObject> made(MarkPointer::object(base->CreateRatingItem(nullptr)));
        QCOMPARE(made->metaObject()->className(), scene == 2 ? "QRatingItem_Sked_Twin" : "QRatingItem_Sked");
    }
};

QTEST_GUILESS_MAIN(TstSkedCategories)
#include "tst_skedcategories.moc"
