// The schedule categories built on both sides and scored against each other, and who frees the logic
// link matrix.
#include "categorytest.h"

#include <QtTest>

namespace {

// Fills a work item with the nine attributes of a non-fixed work item.
FakeWorkItem* withAttributes(FakeWorkItem* item, const char* duration, const char* width,
                             const char* colour) {
    item->duration = QString::fromUtf8(duration);
    item->quantityCode = QStringLiteral("010101001");
    item->quantityName = QStringLiteral("挖一般土方");
    item->unit = QStringLiteral("立方米");
    item->plannedQuantity = 120.6;
    item->materialTotal = 30.2;
    item->labourIntensity = QStringLiteral("3");
    item->crew = QStringLiteral("土方班组");
    item->lineWidth = QString::fromUtf8(width);
    item->color = QString::fromUtf8(colour);
    return item;
}

using Links = QList<QPair<int, int>>;
const Links kAllLinks{{0, 1}, {1, 2}, {1, 3}};

// A link matrix of the nodes A=0, B=1, C=2, D=3 as the host allocates it, with the links p -> q.
int** newMatrix(const Links& links) {
    int** rows = new int*[4];
    for (int p = 0; p < 4; ++p)
        rows[p] = new int[4]();
    for (const auto& link : links)
        rows[link.first][link.second] = 1;
    return rows;
}

// Hands the category a network of the nodes A to D, and with it the duty to free the matrix.
void setNetwork(QMarkCategoryVirtual* category, int** matrix) {
    QMultiMap<QString, int> nodes{{"A", 0}, {"B", 1}, {"C", 2}, {"D", 3}};
    int count = 4;
    category->SetLogicMatrix(nodes, matrix, count);
}

// The standard: A must precede B; B must precede C and D.
CategoryPtr builtStandard() {
    FakeProjectData project;
    project.logicNames = QStringList{"A", "B"};
    project.logicDisplays = QStringList{"A在B之前", "B在C之前;B在D之前"};
    project.logicChains = QStringList{"A;B", "B;C&B;D"};
    CategoryPtr standard = makeCategory(1, 3);
    standard->UpdateCategory(dataOf(project), false);
    standard->AssignScore(10.0);
    return standard;
}

// Builds a candidate logic category on its network and scores it against the standard.
double scoreCandidate(QMarkCategoryVirtual* candidate, QMarkCategoryVirtual* standard) {
    FakeProjectData project;
    project.logicNames = QStringList{"A", "B"};
    project.logicDisplays = QStringList{"a", "b"};
    candidate->UpdateCategory(dataOf(project), true);
    return candidate->ExecuteDBScore(standard);
}

} // namespace

class TstSkedCategories : public QObject {
    Q_OBJECT
private slots:
    void integrityScoresTheTypicalRoad_data() {
        QTest::addColumn<int>("scene");
        QTest::newRow("plain") << 0;
        QTest::newRow("twin") << 2;
        QTest::newRow("site") << 1;
    }
    void integrityScoresTheTypicalRoad() {
        QFETCH(int, scene);
        FakeProjectData standardProject, candidateProject;
        for (const char* name : {"挖土", "挖土", "垫层", "钢筋", "模板"})
            standardProject.addWorkItem(name);
        for (const char* name : {"挖土", "垫层", "钢筋", "挖土", "钢筋", "脚手架"})
            candidateProject.addWorkItem(name);
        CategoryPtr standard = makeCategory(scene, 1), candidate = makeCategory(scene, 1);
        // 2.5 per name: two agree, 钢筋 is counted twice, 模板 is missing and 脚手架 is surplus
        QCOMPARE(scorePair(standard.get(), candidate.get(), standardProject, candidateProject, 10.0), 2.5);
        QCOMPARE(rowsOf(rootOf(candidate.get())),
                 (QStringList{"挖土|2|2.5|", "垫层|1|2.5|", "钢筋|2|0|存在重复工作项，不得分",
                              "模板|0|0|缺少评分项，不得分", "脚手架|1|-2.5|存在多余评分项，扣分"}));
        candidate->UpdateCategory(dataOf(standardProject), true); // built once: no effect
        QCOMPARE(candidateProject.receivedNameLists,
                 (QList<QStringList>{{"挖土", "垫层", "钢筋", "脚手架"}}));
        QCOMPARE(childrenOf(rootOf(candidate.get())).first()->metaObject()->className(),
                 scene == 1 ? "QRatingItem_Sked_Site" : "QRatingItem_Sked");
    }

    void attributeTree() {
        FakeProjectData project;
        project.leadingWorkItemEntries = {nullptr};
        FakeWorkItem* item = withAttributes(project.addWorkItem("W"), "14", "3", "0,0,255");
        item->unit = QStringLiteral("m³");
        item->plannedQuantity = 7.99;
        item->materialTotal = -3.7;
        FakeWorkItem* fixed = project.addWorkItem(QStringLiteral("F"));
        fixed->duration = QStringLiteral("12");
        fixed->fixedDuration = 5;
        CategoryPtr category = makeCategory(1, 2);
        category->UpdateCategory(dataOf(project), false);
        QRatingItemVirtual* node = childNamed(rootOf(category.get()), "W");
        QCOMPARE(rowsOf(node),
                 (QStringList{"持续时间|14|0|", "工程量编码|010101001|0|", "工程量名称|挖一般土方|0|",
                              "计划量|7|0|", "单位|m³|0|", "材料资源（总量）|-3|0|",
                              "人力资源（强度）|3|0|土方班组", "工序线宽|3|0|", "工序颜色|0,0,255|0|"}));
        QCOMPARE(rowsOf(childNamed(rootOf(category.get()), "F")), QStringList{"持续时间|12|0|"});
        // plain and Twin work-item nodes carry no attributes
        for (int scene : {0, 2}) {
            CategoryPtr plain = makeCategory(scene, 2);
            plain->UpdateCategory(dataOf(project), false);
            QCOMPARE(rowsOf(rootOf(plain.get())), (QStringList{"W||0|", "F||0|"}));
            QVERIFY(childrenOf(childrenOf(rootOf(plain.get())).first()).isEmpty());
        }
    }

    void siteAttributesScoreFixedAndWeeklyDurationsAndLinkedWidths() {
        FakeProjectData standardProject, candidateProject;
        FakeWorkItem* fixed = standardProject.addWorkItem(QStringLiteral("挖土"));
        fixed->duration = QStringLiteral("12");
        fixed->fixedDuration = 1;
        for (const char* name : {"垫层", "钢筋"})
            withAttributes(standardProject.addWorkItem(name), "7", "3", "0,0,255");
        // The candidate does not fix 挖土: its extra attributes are left alone under a fixed standard.
        withAttributes(candidateProject.addWorkItem("挖土"), "14", "3", "0,0,255");
        withAttributes(candidateProject.addWorkItem("垫层"), "14", "3", "255,0,0")->unit =
            QStringLiteral("立方");
        withAttributes(candidateProject.addWorkItem("钢筋"), "10", "2", "0,0,255");
        CategoryPtr standard = makeCategory(1, 2), candidate = makeCategory(1, 2);
        // 9 per work item: 挖土's duration carries all 9, the others 1 per attribute
        QCOMPARE(scorePair(standard.get(), candidate.get(), standardProject, candidateProject, 27.0), 15.0);
        QRatingItemVirtual* root = rootOf(candidate.get());
        QCOMPARE(rowsOf(root), (QStringList{"挖土||0|", "垫层||8|", "钢筋||7|"}));
        QCOMPARE(rowsOf(childNamed(root, "挖土")), QStringList{"持续时间|14|0|\"持续时间\"为固定时长12天"});
        QCOMPARE(rowsOf(childNamed(root, "垫层")).filter("|0|"),
                 QStringList{"工序颜色|255,0,0|0|不存在颜色"});
        // 10 days is no whole week, and width 2 is not the labour intensity 3
        QCOMPARE(rowsOf(childNamed(root, "钢筋")).filter("|0|"),
                 (QStringList{"持续时间|10|0|", "工序线宽|2|0|与人力资源强度值不一致，不得分"}));
    }

    void chainsAreSearchedInTheCandidateNetworkUntilItIsReplaced() {
        CategoryPtr standard = builtStandard();
        QRatingItemVirtual* root = rootOf(standard.get());
        QCOMPARE(root->GetRatingItemValue() + '|' + root->GetRatingItemRemark(),
                 QStringLiteral("前置构件|构件关系在工序关系内体现，只用箭头依赖，不考虑时间"));
        CategoryPtr candidate = makeCategory(1, 3);
        int** first = newMatrix({{0, 1}, {1, 2}});
        setNetwork(candidate.get(), first);
        setNetwork(candidate.get(), first); // its own matrix again: kept
        QCOMPARE(scoreCandidate(candidate.get(), standard.get()), 5.0);
        QCOMPARE(rootOf(candidate.get())->GetRatingItemRemark(), QString());
        // B -> D is missing: no score, and the value lists the relation that was found
        QCOMPARE(rowsOf(rootOf(candidate.get())), (QStringList{"A|A在B之前|5|", "B|B在C之前|0|"}));
        // a new matrix frees the first, and the items built on it no longer see a network
        setNetwork(candidate.get(), newMatrix(kAllLinks));
        QCOMPARE(candidate->ExecuteDBScore(standard.get()), 0.0);
    }

    void borrowedMatrixIsFreedOnceByItsOwner_data() {
        QTest::addColumn<bool>("throughInit");
        QTest::addColumn<bool>("ownerFirst");
        QTest::newRow("InitMarkCategory, owner destroyed first") << true << true;
        QTest::newRow("InitMarkCategory, borrower destroyed first") << true << false;
        QTest::newRow("SetLogicMatrix, owner destroyed first") << false << true;
        QTest::newRow("SetLogicMatrix, borrower destroyed first") << false << false;
    }
    void borrowedMatrixIsFreedOnceByItsOwner() {
        QFETCH(bool, throughInit);
        QFETCH(bool, ownerFirst);
        CategoryPtr standard = builtStandard(), owner = makeCategory(1, 3), borrower = makeCategory(1, 3);
        int** matrix = newMatrix(kAllLinks);
        setNetwork(owner.get(), matrix);
        if (throughInit)
            borrower->InitMarkCategory(owner.get());
        else
            setNetwork(borrower.get(), matrix);
        QCOMPARE(scoreCandidate(borrower.get(), standard.get()), 10.0);
        if (ownerFirst) {
            owner.reset(); // the borrower's items no longer see the freed matrix
            QCOMPARE(borrower->ExecuteDBScore(standard.get()), 0.0);
        } else {
            borrower.reset();
            QCOMPARE(scoreCandidate(owner.get(), standard.get()), 10.0);
        }
    }

    void builtItemsKeepTheirMatrixWhenAnotherNetworkIsTakenOver() {
        CategoryPtr standard = builtStandard(), candidate = makeCategory(1, 3), other = makeCategory(1, 3);
        setNetwork(candidate.get(), newMatrix(kAllLinks));
        QCOMPARE(scoreCandidate(candidate.get(), standard.get()), 10.0);
        setNetwork(other.get(), newMatrix({}));
        candidate->InitMarkCategory(other.get());
        QCOMPARE(candidate->ExecuteDBScore(standard.get()), 10.0);
        other.reset(); // the taken-over network goes with its owner; the candidate's own stays
        QCOMPARE(candidate->ExecuteDBScore(standard.get()), 10.0);
    }

    // Hosts may build distinct trees on distinct threads: each network is listed process-wide by its
    // matrix, and that list must stay whole while threads add and release networks at once.
    void treesOnDistinctThreads() {
        QAtomicInt wrongScores;
        const auto grade = [&wrongScores] {
            for (int round = 0; round < 300; ++round) {
                CategoryPtr standard = builtStandard(), candidate = makeCategory(1, 3);
                setNetwork(candidate.get(), newMatrix(kAllLinks));
                if (scoreCandidate(candidate.get(), standard.get()) != 10.0)
                    wrongScores.ref();
            }
        };
        QList<QThread*> threads;
        for (int i = 0; i < 4; ++i)
            threads.append(QThread::create(grade));
        for (QThread* thread : qAsConst(threads))
            thread->start();
        for (QThread* thread : qAsConst(threads)) {
            QVERIFY(thread->wait(60000));
            delete thread;
        }
        QCOMPARE(wrongScores.loadRelaxed(), 0);
    }

    void ganttScoresRowsAndOrder_data() {
        QTest::addColumn<QString>("time");
        QTest::addColumn<int>("rows");
        QTest::addColumn<QString>("chart");
        QTest::addColumn<double>("total");
        QTest::addColumn<QStringList>("found");
        const QString setUp = QStringLiteral("|0|网络计划图以周为时间单位进行显示");
        QTest::newRow("all right") << "工程周" << 3 << "A;B;平米" << 9.0
                                   << QStringList{"工程周|3|", "3|3|", "A;B;平米|3|"};
        QTest::newRow("nothing set") << "" << 0 << "" << 0.0
                                     << QStringList{setUp, "0|0|横道图分页显示行数设置不够，不得分",
                                                    "|0|工序数量不一致，不得分"};
    }
    void ganttScoresRowsAndOrder() {
        QFETCH(QString, time);
        QFETCH(int, rows);
        QFETCH(QString, chart);
        QFETCH(double, total);
        QFETCH(QStringList, found);
        FakeProjectData standardProject, candidateProject;
        standardProject.ganttNames = QStringList{"A", "B", "平方米"};
        CategoryPtr standard = makeCategory(1, 5), candidate = makeCategory(1, 5);
        // the standard side replaces whatever was set by the required settings
        standard->SetMarkGanttTime(QStringLiteral("日"));
        candidate->SetMarkGanttTime(time);
        candidate->SetMarkPerScreen(rows);
        candidate->SetMarkGanttChart(chart);
        QCOMPARE(scorePair(standard.get(), candidate.get(), standardProject, candidateProject, 9.0), total);
        QCOMPARE(rowsOf(rootOf(standard.get())),
                 (QStringList{"横道图时间单位|工程周|0|网络计划图以周为时间单位进行显示",
                              "横道图完整性显示|>= 3|0|横道图分页显示行数>=工序数量",
                              "横道图完整性及排序|完整性工序顺序|0|要求数量和内容以及顺序都完全与标准一致"}));
        found[0].prepend("横道图时间单位|");
        found[1].prepend("横道图完整性显示|");
        found[2].prepend("横道图完整性及排序|");
        QCOMPARE(rowsOf(rootOf(candidate.get())), found);
    }

    void principleTextsOnBothSides_data() {
        QTest::addColumn<bool>("sound");
        QTest::addColumn<double>("total");
        QTest::addColumn<QStringList>("found");
        QTest::newRow("sound") << true << 6.0
                               << QStringList{"节点数|起终节点数唯一|2|", "线路完整性|无断开的线路|2|",
                                              "多余虚工作|无多余虚工作|2|"};
        QTest::newRow("faulty") << false << 0.0
                                << QStringList{"节点数|起终节点数不唯一|0|开始节点1个，结束节点2个",
                                               "线路完整性|有线路断开|0|节点5后断开",
                                               "多余虚工作|存在多余虚工作|0|多余虚工作节点编号：3,7"};
    }
    void principleTextsOnBothSides() {
        QFETCH(bool, sound);
        QFETCH(double, total);
        QFETCH(QStringList, found);
        FakeProjectData project;
        CategoryPtr standard = makeCategory(2, 7), candidate = makeCategory(2, 7);
        for (QMarkCategoryVirtual* side : {standard.get(), candidate.get()}) {
            side->SetMarkBeginEndOnlyDot(sound);
            side->SetMarkBeginEndOnlyDot(QStringLiteral("开始节点1个，结束节点2个"));
            side->SetMarkNetLineBreak(!sound);
            side->SetMarkNetLineBreak(QStringLiteral("节点5后断开"));
            side->SetMarkSurplusVirJob(!sound, QStringLiteral("3,7"));
        }
        QCOMPARE(scorePair(standard.get(), candidate.get(), project, project, 6.0), total);
        // the standard shows the rule-satisfied texts and keeps the host's findings as remarks
        QCOMPARE(rowsOf(rootOf(standard.get())),
                 (QStringList{"节点数|起终节点数唯一|0|开始节点1个，结束节点2个",
                              "线路完整性|无断开的线路|0|节点5后断开",
                              !sound ? "多余虚工作|无多余虚工作|0|多余虚工作节点编号：3,7"
                                     : "多余虚工作|无多余虚工作|0|"}));
        QCOMPARE(rowsOf(rootOf(candidate.get())), found);
    }

    void rationalityRefreshesAndRescores() {
        FakeProjectData project;
        CategoryPtr standard = makeCategory(1, 6), candidate = makeCategory(1, 6);
        standard->SetMarkTotalTime(100);
        standard->SetMarkCurveVariance({{29, 5.0}, {30, 3.0}, {31, 2.0}, {32, 1234567.0}, {33, 9.0}});
        candidate->SetMarkTotalTime(103);
        candidate->SetMarkCurveVariance({{29, 4.0}, {30, 3.0}, {31, -1.0}});
        QCOMPARE(scorePair(standard.get(), candidate.get(), project, project, 10.0), 4.0);
        const QString axis = QStringLiteral("以各自完成的总工期作为时间轴计算");
        QCOMPARE(
            rowsOf(rootOf(standard.get())),
            (QStringList{"总工期|100|0|", "总人力资源曲线|5|0|" + axis, "成品钢筋/钢筋原材曲线|3|0|" + axis,
                         "成品混凝土/水泥、砂石资源曲线|2|0|" + axis, "模板资源曲线|1.23457e+06|0|" + axis}));
        QCOMPARE(
            rowsOf(rootOf(candidate.get())),
            (QStringList{"总工期|103|0|工作延期3天", "总人力资源曲线|4|2|",
                         "成品钢筋/钢筋原材曲线|3|0|超出标准方差上限，不得分",
                         "成品混凝土/水泥、砂石资源曲线|-1|0|不存在资源数据，不得分", "模板资源曲线|0|2|"}));

        candidate->SetMarkTotalTime(90);
        candidate->SetMarkCurveVariance({{29, 4.0}, {30, 2.0}, {31, 1.0}});
        candidate->UpdateCategoryItem(false);
        QCOMPARE(candidate->ExecuteDBScore(standard.get()), 4.0);
        candidate->UpdateCategoryItem(true);
        QCOMPARE(candidate->ExecuteDBScore(standard.get()), 10.0);
        QCOMPARE(rowsOf(rootOf(candidate.get())).first(), QStringLiteral("总工期|90|2|"));
        // an item of another attribute type below the root is emptied by the refresh
        auto* stranger = new QRatingItem_Sked_Site();
        stranger->SetRatingItemValue(QStringLiteral("x"), false);
        rootOf(candidate.get())->AddRatingItem(MarkPointer::fromItem(stranger), false);
        candidate->UpdateCategoryItem(true);
        QCOMPARE(stranger->GetRatingItemValue(), QString());
    }
};

QTEST_GUILESS_MAIN(TstSkedCategories)
#include "tst_skedcategories.moc"
