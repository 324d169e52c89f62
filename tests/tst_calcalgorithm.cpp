// The CalcAlgorithm stand-in does what its header documents.
#include "calcalgorithm.h"

#include <QtTest>

namespace {

QList<Q3DCoord> modelSegments() {
    return {Q3DCoord(0.9, 1.0, 1.0), Q3DCoord(0.8, 0.9, 0.8), Q3DCoord(0.5, 0.8, 0.6),
            Q3DCoord(0.3, 0.5, 0.4), Q3DCoord(0.1, 0.3, 0.2), Q3DCoord(0.0, 0.1, 0.0)};
}

const QString kUntouched = QStringLiteral("untouched");

} // namespace

class TestCalcAlgorithm : public QObject {
    Q_OBJECT
private slots:
    void contrastText_data();
    void contrastText();
    void contrastNumber_data();
    void contrastNumber();
    void interval_data();
    void interval();
    void containRatio_data();
    void containRatio();
    void valueRatio_data();
    void valueRatio();
    void segmentRatio_data();
    void segmentRatio();
    void double2String_data();
    void double2String();
    void coord();
};

void TestCalcAlgorithm::contrastText_data() {
    QTest::addColumn<QString>("student");
    QTest::addColumn<QString>("standard");
    QTest::addColumn<bool>("caseSensitive");
    QTest::addColumn<double>("score");
    QTest::newRow("equal") << "墙体"
                           << "墙体" << true << 4.0;
    QTest::newRow("case differs, sensitive") << "Abc"
                                             << "abc" << true << 0.0;
    QTest::newRow("case differs, insensitive") << "Abc"
                                               << "abc" << false << 4.0;
    QTest::newRow("trailing space") << "abc "
                                    << "abc" << false << 0.0;
    QTest::newRow("both empty") << ""
                                << "" << true << 4.0;
}

void TestCalcAlgorithm::contrastText() {
    QFETCH(QString, student);
    QFETCH(QString, standard);
    QFETCH(bool, caseSensitive);
    QFETCH(double, score);
    QCOMPARE(CAL_Contrast(student, standard, 4.0, caseSensitive), score);
}

void TestCalcAlgorithm::contrastNumber_data() {
    QTest::addColumn<double>("student");
    QTest::addColumn<double>("standard");
    QTest::addColumn<double>("score");
    QTest::newRow("equal") << 2.5 << 2.5 << 4.0;
    QTest::newRow("within 1e-10") << 1.0 << 1.0 + 5e-11 << 4.0;
    QTest::newRow("beyond 1e-10") << 1.0 << 1.0 + 2e-10 << 0.0;
    QTest::newRow("sign") << -2.5 << 2.5 << 0.0;
}

void TestCalcAlgorithm::contrastNumber() {
    QFETCH(double, student);
    QFETCH(double, standard);
    QFETCH(double, score);
    QCOMPARE(CAL_Contrast(student, standard, 4.0), score);
}

void TestCalcAlgorithm::interval_data() {
    QTest::addColumn<double>("student");
    QTest::addColumn<double>("standard");
    QTest::addColumn<double>("bandA");
    QTest::addColumn<double>("bandB");
    QTest::addColumn<double>("score");
    QTest::addColumn<QString>("remark");
    QTest::newRow("within the lower bound") << 101.0 << 100.0 << 2.0 << 5.0 << 10.0 << kUntouched;
    QTest::newRow("between the bounds") << 103.5 << 100.0 << 2.0 << 5.0 << 5.0 << "偏差3.50%，扣5.00分";
    QTest::newRow("bounds reversed") << 103.5 << 100.0 << 5.0 << 2.0 << 5.0 << "偏差3.50%，扣5.00分";
    QTest::newRow("below the standard") << 96.5 << 100.0 << 2.0 << 5.0 << 5.0 << "偏差3.50%，扣5.00分";
    QTest::newRow("negative amounts") << -103.5 << -100.0 << 2.0 << 5.0 << 5.0 << "偏差3.50%，扣5.00分";
    QTest::newRow("near the upper bound") << 104.7 << 100.0 << 2.0 << 5.0 << 1.0 << "偏差4.70%，扣9.00分";
    QTest::newRow("beyond the upper bound") << 110.0 << 100.0 << 2.0 << 5.0 << 0.0 << "偏差10.00%，扣10.00分";
    QTest::newRow("equal bounds, beyond") << 104.0 << 100.0 << 3.5 << 3.5 << 0.0 << "偏差4.00%，扣10.00分";
    QTest::newRow("equal bounds, within") << 102.0 << 100.0 << 3.5 << 3.5 << 10.0 << kUntouched;
    QTest::newRow("both zero") << 0.0 << 0.0 << 2.0 << 5.0 << 10.0 << kUntouched;
    QTest::newRow("zero standard") << 5.0 << 0.0 << 2.0 << 5.0 << 0.0 << "标准值为0，偏差无法计算，不得分";
}

void TestCalcAlgorithm::interval() {
    QFETCH(double, student);
    QFETCH(double, standard);
    QFETCH(double, bandA);
    QFETCH(double, bandB);
    QFETCH(double, score);
    QFETCH(QString, remark);
    QString text = kUntouched;
    QCOMPARE(CAL_Interval(student, standard, 10.0, bandA, bandB, text), score);
    QCOMPARE(text, remark);
}

void TestCalcAlgorithm::containRatio_data() {
    QTest::addColumn<QString>("student");
    QTest::addColumn<QString>("standard");
    QTest::addColumn<bool>("caseSensitive");
    QTest::addColumn<double>("score");
    QTest::newRow("two of three") << "b; a"
                                  << "a;b;c" << true << 4.0;
    QTest::newRow("all, parts trimmed") << " b ;; a ;c"
                                        << "a;b;c" << true << 6.0;
    QTest::newRow("case, sensitive") << "A;b"
                                     << "a;b" << true << 3.0;
    QTest::newRow("case, insensitive") << "A;b"
                                       << "a;b" << false << 6.0;
    QTest::newRow("repeated student part") << "a;a"
                                           << "a;b" << true << 3.0;
    QTest::newRow("no parts on either side") << " ; "
                                             << "" << true << 6.0;
    QTest::newRow("no standard parts") << "x"
                                       << " ; " << true << 0.0;
    QTest::newRow("no student parts") << ""
                                      << "a" << true << 0.0;
}

void TestCalcAlgorithm::containRatio() {
    QFETCH(QString, student);
    QFETCH(QString, standard);
    QFETCH(bool, caseSensitive);
    QFETCH(double, score);
    QCOMPARE(CAL_Contain_Ratio(student, standard, 6.0, caseSensitive), score);
}

void TestCalcAlgorithm::valueRatio_data() {
    QTest::addColumn<double>("student");
    QTest::addColumn<double>("standard");
    QTest::addColumn<double>("score");
    QTest::addColumn<QString>("remark");
    QTest::newRow("half") << 50.0 << 100.0 << 5.0 << "与标准值比例为50.00%";
    QTest::newRow("double") << 200.0 << 100.0 << 5.0 << "与标准值比例为50.00%";
    QTest::newRow("equal") << 100.0 << 100.0 << 10.0 << kUntouched;
    QTest::newRow("both zero") << 0.0 << 0.0 << 10.0 << kUntouched;
    QTest::newRow("student zero") << 0.0 << 100.0 << 0.0 << "与标准值比例为0.00%";
    QTest::newRow("signs differ") << -50.0 << 100.0 << 0.0 << "与标准值比例为0.00%";
    QTest::newRow("both negative") << -50.0 << -100.0 << 5.0 << "与标准值比例为50.00%";
}

void TestCalcAlgorithm::valueRatio() {
    QFETCH(double, student);
    QFETCH(double, standard);
    QFETCH(double, score);
    QFETCH(QString, remark);
    QString text = kUntouched;
    QCOMPARE(CAL_Value_Ratio(student, standard, 10.0, text), score);
    QCOMPARE(text, remark);
}

void TestCalcAlgorithm::segmentRatio_data() {
    QTest::addColumn<double>("student");
    QTest::addColumn<double>("standard");
    QTest::addColumn<bool>("emptyTable");
    QTest::addColumn<double>("score");
    QTest::addColumn<QString>("remark");
    QTest::newRow("first segment") << 95.0 << 100.0 << false << 10.0 << kUntouched;
    QTest::newRow("shared bound: first segment wins") << 90.0 << 100.0 << false << 10.0 << kUntouched;
    QTest::newRow("second segment") << 85.0 << 100.0 << false << 8.0 << "与标准值比例为85.00%，得分系数0.8";
    QTest::newRow("third segment") << 100.0 << 160.0 << false << 6.0 << "与标准值比例为62.50%，得分系数0.6";
    QTest::newRow("last segment") << 5.0 << 100.0 << false << 0.0 << "与标准值比例为5.00%，得分系数0";
    QTest::newRow("both zero") << 0.0 << 0.0 << false << 10.0 << kUntouched;
    QTest::newRow("no segment") << 95.0 << 100.0 << true << 0.0 << "与标准值比例为95.00%，得分系数0";
}

void TestCalcAlgorithm::segmentRatio() {
    QFETCH(double, student);
    QFETCH(double, standard);
    QFETCH(bool, emptyTable);
    QFETCH(double, score);
    QFETCH(QString, remark);
    QString text = kUntouched;
    QCOMPARE(
        CAL_Segment_Ratio(student, standard, 10.0, emptyTable ? QList<Q3DCoord>() : modelSegments(), text),
        score);
    QCOMPARE(text, remark);
}

void TestCalcAlgorithm::double2String_data() {
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("text");
    QTest::newRow("two decimals") << 2.5 << 2 << "2.50";
    QTest::newRow("rounded") << 1234.5678 << 3 << "1234.568";
    QTest::newRow("no decimals") << 3.0 << 0 << "3";
    QTest::newRow("negative decimals clamp to 0") << 1.23456 << -1 << "1";
    QTest::newRow("more than 15 clamp to 15") << 0.5 << 20 << "0.500000000000000";
    QTest::newRow("negative value") << -7.24 << 1 << "-7.2";
}

void TestCalcAlgorithm::double2String() {
    QFETCH(double, value);
    QFETCH(int, decimals);
    QFETCH(QString, text);
    QCOMPARE(Double2String(value, decimals), text);
}

void TestCalcAlgorithm::coord() {
    const Q3DCoord point(1.5, -2.0, 3.25);
    QCOMPARE(point.x(), 1.5);
    QCOMPARE(point.y(), -2.0);
    QCOMPARE(point.z(), 3.25);
    Q3DCoord copy;
    QCOMPARE(copy.x(), 0.0);
    copy = point;
    QVERIFY(copy == point);
    QVERIFY(!(Q3DCoord(1.5, -2.0, 3.0) == point));
}

QTEST_GUILESS_MAIN(TestCalcAlgorithm)
#include "tst_calcalgorithm.moc"
