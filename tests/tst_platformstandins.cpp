// The CalcAlgorithm and MarkPublic stand-ins do what their headers document. Each row holds one
// function's result rendered as text (score and remark) and the documented text.
#include "calcalgorithm.h"
#include "markpublic.h"

#include <QtTest>

namespace {

// "score|remark"; the remark starts as "-" so that an untouched remark shows.
QString scored(double score, const QString& remark) {
    return QString("%1|%2").arg(score).arg(remark);
}

} // namespace

class TstPlatformStandIns : public QObject {
    Q_OBJECT
private slots:
    void documentedResults_data() {
        QTest::addColumn<QString>("result");
        QTest::addColumn<QString>("expected");
        const QList<Q3DCoord> table{Q3DCoord(0.9, 1.0, 1.0), Q3DCoord(0.8, 0.9, 0.8),
                                    Q3DCoord(0.5, 0.8, 0.6), Q3DCoord(0.3, 0.5, 0.4),
                                    Q3DCoord(0.1, 0.3, 0.2), Q3DCoord(0.0, 0.1, 0.0)};
        const auto interval = [](double student, double standard, double a, double b) {
            QString r = "-";
            return scored(CAL_Interval(student, standard, 10.0, a, b, r), r);
        };
        const auto valueRatio = [](double student, double standard) {
            QString r = "-";
            return scored(CAL_Value_Ratio(student, standard, 10.0, r), r);
        };
        const auto segment = [](double student, double standard, const QList<Q3DCoord>& segments) {
            QString r = "-";
            return scored(CAL_Segment_Ratio(student, standard, 10.0, segments, r), r);
        };
        const auto contain = [](const char* student, const char* standard, bool caseSensitive) {
            return QString::number(CAL_Contain_Ratio(student, standard, 6.0, caseSensitive));
        };
        const auto text = [](const char* student, const char* standard, bool caseSensitive) {
            return QString::number(CAL_Contrast(student, standard, 4.0, caseSensitive));
        };
        const auto number = [](double student, double standard) {
            return QString::number(CAL_Contrast(student, standard, 4.0));
        };
        QTest::newRow("contrast text equal") << text("墙体", "墙体", true) << "4";
        QTest::newRow("contrast text case-sensitive") << text("Abc", "abc", true) << "0";
        QTest::newRow("contrast text case-insensitive") << text("Abc", "abc", false) << "4";
        QTest::newRow("contrast numbers within 1e-10") << number(1.0, 1.0 + 5e-11) << "4";
        QTest::newRow("contrast numbers beyond 1e-10") << number(1.0, 1.0 + 2e-10) << "0";
        QTest::newRow("interval within lower bound") << interval(101, 100, 2, 5) << "10|-";
        QTest::newRow("interval between bounds") << interval(103.5, 100, 2, 5) << "5|偏差3.50%，扣5.00分";
        QTest::newRow("interval bounds reversed") << interval(96.5, 100, 5, 2) << "5|偏差3.50%，扣5.00分";
        QTest::newRow("interval beyond upper bound") << interval(110, 100, 2, 5) << "0|偏差10.00%，扣10.00分";
        QTest::newRow("interval equal bounds") << interval(104, 100, 3.5, 3.5) << "0|偏差4.00%，扣10.00分";
        QTest::newRow("interval both zero") << interval(0, 0, 2, 5) << "10|-";
        QTest::newRow("interval zero standard")
            << interval(5, 0, 2, 5) << "0|标准值为0，偏差无法计算，不得分";
        QTest::newRow("contain two of three, trimmed") << contain(" b ;; a", "a;b;c", true) << "4";
        QTest::newRow("contain case-insensitive") << contain("A;b", "a;b", false) << "6";
        QTest::newRow("contain nothing on either side") << contain(" ; ", "", true) << "6";
        QTest::newRow("contain no standard parts") << contain("x", " ; ", true) << "0";
        QTest::newRow("value ratio half") << valueRatio(200, 100) << "5|与标准值比例为50.00%";
        QTest::newRow("value ratio equal") << valueRatio(100, 100) << "10|-";
        QTest::newRow("value ratio signs differ") << valueRatio(-50, 100) << "0|与标准值比例为0.00%";
        QTest::newRow("segment first, shared bound") << segment(90, 100, table) << "10|-";
        QTest::newRow("segment second") << segment(85, 100, table) << "8|与标准值比例为85.00%，得分系数0.8";
        QTest::newRow("segment last") << segment(5, 100, table) << "0|与标准值比例为5.00%，得分系数0";
        QTest::newRow("segment without table") << segment(95, 100, {}) << "0|与标准值比例为95.00%，得分系数0";
        QTest::newRow("decimals") << Double2String(1234.5678, 3) << "1234.568";
        QTest::newRow("decimals clamp low") << Double2String(1.23456, -1) << "1";
        QTest::newRow("decimals clamp high") << Double2String(0.5, 20) << "0.500000000000000";
        const QList<QPair<int, const char*>> numerals{
            {11, "十一"},      {20, "二十"},          {101, "一百零一"},
            {110, "一百一十"}, {10010, "一万零一十"}, {99999, "九万九千九百九十九"},
            {0, "零"},         {-12, "负十二"},       {100000, "100000"}};
        for (const auto& numeral : numerals)
            QTest::addRow("numeral %d", numeral.first)
                << ConvertIntToUString(numeral.first) << numeral.second;
        const QList<QPair<int, const char*>> circled{{1, "①"},   {20, "⑳"},    {21, "㉑"}, {36, "㊱"},
                                                     {50, "㊿"}, {51, "(51)"}, {0, "(0)"}};
        for (const auto& number : circled)
            QTest::addRow("circled %d", number.first) << ConvertIntToTString(number.first) << number.second;
    }

    void documentedResults() {
        QFETCH(QString, result);
        QFETCH(QString, expected);
        QCOMPARE(result, expected);
    }
};

QTEST_GUILESS_MAIN(TstPlatformStandIns)
#include "tst_platformstandins.moc"
