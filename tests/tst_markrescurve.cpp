// The resource-curve category: the curve figures (busy time, machine-weeks), the build that hands the
// project's resources to the scene's builder, and the release of shared records and sub-categories.
#include "categorytest.h"

#include <QtTest>

#include <climits>
#include <cmath>

using Points = QList<QPair<int, double>>;
Q_DECLARE_METATYPE(Points)

namespace {

// A curve holder that counts its destruction and shows what the builders received.
class CurveProbe : public QMarkResCurve_Sked {
public:
    explicit CurveProbe(const Points& points = {}) {
        InitMarkCategoryItem();
        for (const auto& point : points)
            AddResCurveRecord(new ResCurveRecord{point.first, point.second});
    }
    ~CurveProbe() override { ++destroyed; }

    void BuildCurveItemsStd(QList<QResourceVirtual*>& resources) override {
        calls.append({false, resources});
    }
    void BuildCurveItems(QList<QResourceVirtual*>& resources) override { calls.append({true, resources}); }

    using QMarkResCurve_Sked::records;
    using QMarkResCurve_Sked::subCategories;
    int totalDays() const { return m_totalDays; }

    QList<QPair<bool, QList<QResourceVirtual*>>> calls;
    static int destroyed;
};
int CurveProbe::destroyed = 0;

struct Figures {
    int start, end, total, machineWeeks;
    bool operator==(const Figures& other) const {
        return start == other.start && end == other.end && total == other.total &&
               machineWeeks == other.machineWeeks;
    }
};

Figures figuresOf(QMarkCategoryVirtual* curve) {
    Figures figures{-1, -1, 0, 0};
    figures.total = curve->GetResCurveTotalTime(figures.start, figures.end);
    figures.machineWeeks = curve->GetJxResUsedCount();
    return figures;
}

const int kWeek = 10080;

} // namespace

class TstMarkResCurve : public QObject {
    Q_OBJECT
private slots:
    void curveFigures_data() {
        QTest::addColumn<Points>("points");
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("end");
        QTest::addColumn<int>("total");
        QTest::addColumn<int>("machineWeeks");
        const double nan = std::nan("");
        const double inf = std::numeric_limits<double>::infinity();
        QTest::newRow("four weeks") << Points{{kWeek, 0.0},
                                              {2 * kWeek, 2.0},
                                              {3 * kWeek, 1.0},
                                              {4 * kWeek, 0.5}}
                                    << kWeek << 3 * kWeek << 2 * kWeek << 4;
        QTest::newRow("half a week busy") << Points{{5040, 1.0}} << 0 << 5040 << 5040 << 1;
        QTest::newRow("negative amount") << Points{{5040, -3.0}} << 5040 << 0 << 0 << 0;
        QTest::newRow("no points") << Points{} << 0 << 0 << 0 << 0;
        QTest::newRow("idle again") << Points{{1440, 0.0}, {2880, 1.0}, {4320, 0.0}, {5760, 3.0}} << 1440
                                    << 5760 << 2880 << 1;
        QTest::newRow("just under one half") << Points{{5039, 1.0}} << 0 << 5039 << 5039 << 0;
        QTest::newRow("not a number") << Points{{1440, nan}, {2880, 1.0}} << 1440 << 2880 << 1440 << 0;
        QTest::newRow("extreme times")
            << Points{{INT_MIN, 5.0}, {INT_MAX, 5.0}} << 0 << INT_MAX << INT_MAX << 1065220;
        QTest::newRow("endless amount") << Points{{kWeek, inf}} << 0 << kWeek << kWeek << INT_MAX;
    }
    void curveFigures() {
        QFETCH(Points, points);
        QFETCH(int, start);
        QFETCH(int, end);
        QFETCH(int, total);
        QFETCH(int, machineWeeks);
        CategoryPtr curve = makeCategory(1, 4);
        for (const auto& point : points)
            curve->AddResCurveRecord(new ResCurveRecord{point.first, point.second});
        curve->AddResCurveRecord(nullptr);
        QVERIFY(figuresOf(curve.get()) == (Figures{start, end, total, machineWeeks}));
    }

    void buildHandsResourcesToTheSidesBuilder() {
        FakeResource rebar(QStringLiteral("钢筋原材"), 12);
        FakeProjectData project;
        project.resources = {&rebar, nullptr};
        project.totalDays = 30;
        CurveProbe standard, candidate, dataless;
        standard.UpdateCategory(static_cast<QObject*>(&project), false);
        candidate.UpdateCategory(static_cast<QObject*>(&project), true);
        candidate.UpdateCategory(static_cast<QObject*>(&project), true);
        dataless.UpdateCategory(nullptr, true);
        QCOMPARE(standard.calls.size(), 1);
        QVERIFY(!standard.calls[0].first);
        QCOMPARE(candidate.calls.size(), 1);
        QVERIFY(candidate.calls[0].first);
        QCOMPARE(candidate.calls[0].second, project.resources);
        QCOMPARE(candidate.totalDays(), 30);
        QVERIFY(dataless.calls.isEmpty());
        QVERIFY(isBuilt(&dataless));
        QVERIFY(isBuilt(&candidate));
    }

    void plainAndTwinBuildNoItems_data() {
        QTest::addColumn<int>("scene");
        QTest::newRow("plain") << 0;
        QTest::newRow("twin") << 2;
    }
    void plainAndTwinBuildNoItems() {
        QFETCH(int, scene);
        FakeProjectData project;
        project.totalDays = 10;
        CategoryPtr curve = makeCategory(scene, 4);
        curve->SetMarkCurveName(QStringLiteral("发电机组"));
        curve->SetMarkCurveCustomType(true);
        curve->UpdateCategory(static_cast<QObject*>(&project), true);
        QCOMPARE(curve->GetMarkCurveName(), QStringLiteral("发电机组"));
        QVERIFY(curve->IsCustomResCurve());
        QRatingItemVirtual* root = rootOf(curve.get());
        QCOMPARE(root->GetRatingItemName(), QStringLiteral("资源曲线图正确性"));
        QCOMPARE(root->GetAttributeType(), 21);
        QCOMPARE(itemsOf(root).size(), 0);
        QVERIFY(isBuilt(curve.get()));
    }

    void sharedCurvesAreReleasedOnce_data() {
        QTest::addColumn<bool>("sourceFirst");
        QTest::newRow("source destroyed first") << true;
        QTest::newRow("receiver destroyed first") << false;
    }
    void sharedCurvesAreReleasedOnce() {
        QFETCH(bool, sourceFirst);
        CurveProbe::destroyed = 0;
        auto source = std::make_unique<CurveProbe>(Points{{kWeek, 2.0}});
        auto* sub = new CurveProbe(Points{{kWeek, 1.0}, {2 * kWeek, 1.0}});
        source->AddMarkCategory(sub);
        auto receiver = std::make_unique<CurveProbe>(Points{{5, 1.0}});
        receiver->AddMarkCategory(new CurveProbe);
        receiver->InitMarkCategory(source.get());
        QCOMPARE(CurveProbe::destroyed, 1); // the receiver's own sub-category was let go
        QCOMPARE(receiver->subCategories(), QList<QMarkCategoryVirtual*>{sub});
        QCOMPARE(receiver->records(), source->records());
        std::unique_ptr<CurveProbe>& first = sourceFirst ? source : receiver;
        std::unique_ptr<CurveProbe>& second = sourceFirst ? receiver : source;
        first.reset();
        QCOMPARE(CurveProbe::destroyed, 2);
        QVERIFY(figuresOf(second.get()) == (Figures{0, kWeek, kWeek, 2}));
        int start = 0, end = 0;
        QCOMPARE(second->subCategories().first()->GetResCurveTotalTime(start, end), 2 * kWeek);
        second.reset();
        QCOMPARE(CurveProbe::destroyed, 4);
    }

    void objectsHandedOverTwiceAreReleasedOnce() {
        CurveProbe::destroyed = 0;
        auto* record = new ResCurveRecord{kWeek, 1.0};
        auto* sub = new CurveProbe;
        {
            CurveProbe first, second;
            first.AddResCurveRecord(record);
            first.AddResCurveRecord(record);
            second.AddResCurveRecord(record);
            first.AddMarkCategory(sub);
            second.AddMarkCategory(sub);
            QCOMPARE(first.records(), (QList<ResCurveRecord*>{record, record}));
        }
        QCOMPARE(CurveProbe::destroyed, 3);
    }

    void curvesThatWouldHoldThemselvesAreRefused() {
        CurveProbe outer;
        auto* inner = new CurveProbe;
        outer.AddMarkCategory(nullptr);
        outer.AddMarkCategory(&outer);
        outer.AddMarkCategory(inner);
        inner->AddMarkCategory(&outer);
        inner->InitMarkCategory(&outer);
        QCOMPARE(outer.subCategories().size(), 1);
        QVERIFY(inner->subCategories().isEmpty());
        outer.InitMarkCategory(&outer);
        outer.InitMarkCategory(nullptr);
        QCOMPARE(outer.subCategories().size(), 1);
    }
};

QTEST_GUILESS_MAIN(TstMarkResCurve)
#include "tst_markrescurve.moc"
