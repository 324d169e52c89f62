// The MarkPublic stand-in's numbering labels do what its header documents.
#include "markpublic.h"

#include <QtTest>

class TestMarkPublic : public QObject {
    Q_OBJECT
private slots:
    void chineseNumerals_data();
    void chineseNumerals();
    void circledNumbers_data();
    void circledNumbers();
};

void TestMarkPublic::chineseNumerals_data() {
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    const QStringList firstTen{"一", "二", "三", "四", "五", "六", "七", "八", "九", "十"};
    for (int i = 1; i <= 10; ++i)
        QTest::addRow("%d", i) << i << firstTen.at(i - 1);
    QTest::newRow("11") << 11 << "十一";
    QTest::newRow("19") << 19 << "十九";
    QTest::newRow("20") << 20 << "二十";
    QTest::newRow("21") << 21 << "二十一";
    QTest::newRow("99") << 99 << "九十九";
    QTest::newRow("100") << 100 << "一百";
    QTest::newRow("101") << 101 << "一百零一";
    QTest::newRow("110") << 110 << "一百一十";
    QTest::newRow("111") << 111 << "一百一十一";
    QTest::newRow("1001") << 1001 << "一千零一";
    QTest::newRow("1010") << 1010 << "一千零一十";
    QTest::newRow("2300") << 2300 << "二千三百";
    QTest::newRow("10010") << 10010 << "一万零一十";
    QTest::newRow("99999") << 99999 << "九万九千九百九十九";
    QTest::newRow("0") << 0 << "零";
    QTest::newRow("-3") << -3 << "负三";
    QTest::newRow("-12") << -12 << "负十二";
    QTest::newRow("100000") << 100000 << "100000";
    QTest::newRow("-100000") << -100000 << "-100000";
    QTest::newRow("INT_MIN") << std::numeric_limits<int>::min() << "-2147483648";
}

void TestMarkPublic::chineseNumerals() {
    QFETCH(int, number);
    QFETCH(QString, text);
    QCOMPARE(ConvertIntToUString(number), text);
}

void TestMarkPublic::circledNumbers_data() {
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("1") << 1 << "①";
    QTest::newRow("2") << 2 << "②";
    QTest::newRow("10") << 10 << "⑩";
    QTest::newRow("20") << 20 << "⑳";
    QTest::newRow("21") << 21 << "㉑";
    QTest::newRow("35") << 35 << "㉟";
    QTest::newRow("36") << 36 << "㊱";
    QTest::newRow("50") << 50 << "㊿";
    QTest::newRow("51") << 51 << "(51)";
    QTest::newRow("0") << 0 << "(0)";
    QTest::newRow("-1") << -1 << "(-1)";
}

void TestMarkPublic::circledNumbers() {
    QFETCH(int, number);
    QFETCH(QString, text);
    QCOMPARE(ConvertIntToTString(number), text);
}

QTEST_GUILESS_MAIN(TestMarkPublic)
#include "tst_markpublic.moc"
