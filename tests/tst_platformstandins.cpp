// The CalcAlgorithm and MarkPublic stand-ins do what their headers document. Each row calls one
// function and renders its result (score and remark) as text.
#include "calcalgorithm.h"
#include "markpublic.h"

#include <QtTest>

#include <functional>

using Call = std::function<QString()>;
Q_DECLARE_METATYPE(Call)

namespace {

const QList<Q3DCoord> kSegments{Q3DCoord(0.9, 1.0, 1.0), Q3DCoord(0.8, 0.9, 0.8), Q3DCoord(0.5, 0.8, 0.6),
                                Q3DCoord(0.3, 0.5, 0.4), Q3DCoord(0.1, 0.3, 0.2), Q3DCoord(0.0, 0.1, 0.0)};

// "score|remark"; the remark starts as "-" so that an untouched remark shows.
template <class F> Call scored(F f) {
    return [f] {
        QString remark = QStringLiteral("-");
        const double score = f(remark);
        return QStringLiteral("%1|%2").arg(score).arg(remark);
    };
}

Call interval(double student, double standard, double a, double b) {
    return scored([=](QString& r) { return CAL_Interval(student, standard, 10.0, a, b, r); });
}
Call valueRatio(double student, double standard) {
    return scored([=](QString& r) { return CAL_Value_Ratio(student, standard, 10.0, r); });
}
Call segment(double student, double standard, const QList<Q3DCoord>& table = kSegments) {
    return scored([=](QString& r) { return CAL_Segment_Ratio(student, standard, 10.0, table, r); });
}
Call contain(const QString& student, const QString& standard, bool caseSensitive) {
    return [=] { return QString::number(CAL_Contain_Ratio(student, standard, 6.0, caseSensitive)); };
}
Call text(const QString& student, const QString& standard, bool caseSensitive) {
    return [=] { return QString::number(CAL_Contrast(student, standard, 4.0, caseSensitive)); };
}
Call number(double student, double standard) {
    return [=] { return QString::number(CAL_Contrast(student, standard, 4.0)); };
}
Call decimals(double value, int places) {
    return [=] { return Double2String(value, places); };
}
Call upper(int n) {
    return [=] { return ConvertIntToUString(n); };
}
Call circled(int n) {
    return [=] { return ConvertIntToTString(n); };
}

} // namespace

class TstPlatformStandIns : public QObject {
    Q_OBJECT
private slots:
    void documentedResults_data() {
        QTest::addColumn<Call>("call");
        QTest::addColumn<QString>("expected");
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
        QTest::newRow("segment first, shared bound") << segment(90, 100) << "10|-";
        QTest::newRow("segment second") << segment(85, 100) << "8|与标准值比例为85.00%，得分系数0.8";
        QTest::newRow("segment last") << segment(5, 100) << "0|与标准值比例为5.00%，得分系数0";
        QTest::newRow("segment without table") << segment(95, 100, {}) << "0|与标准值比例为95.00%，得分系数0";
        QTest::newRow("decimals") << decimals(1234.5678, 3) << "1234.568";
        QTest::newRow("decimals clamp low") << decimals(1.23456, -1) << "1";
        QTest::newRow("decimals clamp high") << decimals(0.5, 20) << "0.500000000000000";
        QTest::newRow("numeral 10") << upper(10) << "十";
        QTest::newRow("numeral 11") << upper(11) << "十一";
        QTest::newRow("numeral 20") << upper(20) << "二十";
        QTest::newRow("numeral 101") << upper(101) << "一百零一";
        QTest::newRow("numeral 110") << upper(110) << "一百一十";
        QTest::newRow("numeral 1010") << upper(1010) << "一千零一十";
        QTest::newRow("numeral 10010") << upper(10010) << "一万零一十";
        QTest::newRow("numeral 99999") << upper(99999) << "九万九千九百九十九";
        QTest::newRow("numeral 0") << upper(0) << "零";
        QTest::newRow("numeral -12") << upper(-12) << "负十二";
        QTest::newRow("numeral beyond range") << upper(100000) << "100000";
        QTest::newRow("circled 1") << circled(1) << "①";
        QTest::newRow("circled 20") << circled(20) << "⑳";
        QTest::newRow("circled 21") << circled(21) << "㉑";
        QTest::newRow("circled 36") << circled(36) << "㊱";
        QTest::newRow("circled 50") << circled(50) << "㊿";
        QTest::newRow("parenthesised 51") << circled(51) << "(51)";
        QTest::newRow("parenthesised 0") << circled(0) << "(0)";
    }

    void documentedResults() {
        QFETCH(Call, call);
        QFETCH(QString, expected);
        QCOMPARE(call(), expected);
    }
};

QTEST_GUILESS_MAIN(TstPlatformStandIns)
#include "tst_platformstandins.moc"
