// The drawing unit of the HTML report: the geometry of scales, ticks, step paths, bars and histogram
// bins, and the SVG its writers produce, read back as XML.
#include "datarow.h"
#include "svgchart.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <QtTest>

using namespace Grade::Svg;

Q_DECLARE_METATYPE(Grade::Svg::Step)

namespace {

// Texts of the elements named tag in an SVG fragment, in document order.
QStringList texts(const QString& svg, const QString& tag) {
    QXmlStreamReader reader(svg);
    QStringList found;
    while (!reader.atEnd())
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == tag)
            found << reader.readElementText(QXmlStreamReader::IncludeChildElements);
    return reader.hasError() ? QStringList{reader.errorString()} : found;
}

} // namespace

class TestSvgChart : public QObject {
    Q_OBJECT
private slots:
    void scale_data() {
        QTest::addColumn<QVector<double>>("scale"); // domain min, max, range min, max
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("mapped");
        row("left to right", QVector<double>{0, 10, 100, 200}, 2.5, 125.0);
        row("beyond the domain", QVector<double>{0, 10, 100, 200}, 20.0, 300.0);
        row("upward y axis", QVector<double>{0, 8, 150, 10}, 2.0, 115.0);
        row("empty domain", QVector<double>{3, 3, 40, 90}, 7.0, 40.0);
    }
    void scale() {
        QFETCH(QVector<double>, scale);
        QFETCH(double, value);
        QFETCH(double, mapped);
        QCOMPARE(LinearScale(scale[0], scale[1], scale[2], scale[3])(value), mapped);
    }

    void ticks_data() {
        QTest::addColumn<double>("min");
        QTest::addColumn<double>("max");
        QTest::addColumn<int>("maxCount");
        QTest::addColumn<QVector<double>>("ticks");
        row("steps of two", 0.0, 10.0, 6, QVector<double>{0, 2, 4, 6, 8, 10});
        row("a schedule's days", 0.0, 294.0, 12, QVector<double>{0, 50, 100, 150, 200, 250});
        row("inner multiples", 3.0, 17.0, 5, QVector<double>{5, 10, 15});
        row("across zero", -5.0, 5.0, 3, QVector<double>{-5, 0, 5});
        row("fractions", 0.0, 0.9, 4, QVector<double>{0, 0.5});
        row("no span", 5.0, 5.0, 6, QVector<double>{5});
    }
    void ticks() {
        QFETCH(double, min);
        QFETCH(double, max);
        QFETCH(int, maxCount);
        QFETCH(QVector<double>, ticks);
        const QVector<double> actual = niceTicks(min, max, maxCount);
        QVERIFY(actual.size() <= std::max(1, maxCount));
        QCOMPARE(actual.size(), ticks.size());
        for (int i = 0; i < ticks.size(); ++i)
            QVERIFY2(qAbs(actual[i] - ticks[i]) < 1e-9, qPrintable(QString::number(actual[i])));
    }

    void ceiling_data() {
        QTest::addColumn<double>("max");
        QTest::addColumn<double>("ceiling");
        row("rounded up", 7.0, 8.0);
        row("already round", 8.0, 8.0);
        row("below one", 0.9, 1.0);
        row("nothing", 0.0, 0.0);
    }
    void ceiling() {
        QFETCH(double, max);
        QFETCH(double, ceiling);
        QCOMPARE(niceCeiling(max, 5), ceiling);
    }

    void stepPath_data() {
        QTest::addColumn<QVector<Step>>("steps");
        QTest::addColumn<QString>("path");
        // x: days 0..10 onto 0..100; y: amounts 0..4 onto 40..0.
        row("rise, hold, fall", QVector<Step>{{2, 0}, {5, 3}, {6, 1}}, QString("M0 40V40H20V10H50V30H60V40"));
        row("from day 0", QVector<Step>{{10, 4}}, QString("M0 40V0H100V40"));
        row("no steps", QVector<Step>(), QString("M0 40"));
    }
    void stepPath() {
        QFETCH(QVector<Step>, steps);
        QFETCH(QString, path);
        QCOMPARE(Grade::Svg::stepPath(steps, LinearScale(0, 10, 0, 100), LinearScale(0, 4, 40, 0)), path);
    }

    void numbers_data() {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("coordinate");
        QTest::addColumn<QString>("label");
        row("whole", 12.0, QString("12"), QString("12"));
        row("fraction", 12.26, QString("12.3"), QString("12.26"));
        row("negative", -3.5, QString("-3.5"), QString("-3.5"));
        row("tiny negative", -0.004, QString("0"), QString("0"));
    }
    void numbers() {
        QFETCH(double, value);
        QFETCH(QString, coordinate);
        QFETCH(QString, label);
        QCOMPARE(Grade::Svg::coordinate(value), coordinate);
        QCOMPARE(labelNumber(value), label);
    }

    void bars() {
        const LinearScale x(0, 100, 50, 250);
        QCOMPARE(barRect(x, 10, 30, 20, 8), QRectF(70, 20, 40, 8));
        QCOMPARE(barRect(x, 40, 40, 0, 6).width(), 1.0); // a zero-length item stays visible
    }

    void bins() {
        const QVector<double> totals{0, 9.99, 10, 50, 100, 120, -5};
        QCOMPARE(histogram(totals, 0, 100, 10), (QVector<int>{3, 1, 0, 0, 0, 1, 0, 0, 0, 2}));
        QCOMPARE(histogram(totals, 0, 0, 2), (QVector<int>{7, 0})); // no span: everything in the first
    }

    void textWidths() {
        QCOMPARE(textWidth(QStringLiteral("ab"), 10), 12.0);
        QCOMPARE(textWidth(QStringLiteral("基坑支护"), 10), 40.0);
        QCOMPARE(textWidth(QStringLiteral("Δ 基"), 10), 22.0);
    }

    // The writers' output reads back as XML with the tick labels and an escaped title.
    void writtenSvg() {
        QString svg;
        QXmlStreamWriter out(&svg);
        beginSvg(out, 300, 100, QStringLiteral("curve"), QStringLiteral("钢筋 <A&B>"));
        writeXAxis(out, LinearScale(0, 100, 40, 290), {0, 50, 100}, 80, QStringLiteral("days"));
        writeYAxis(out, LinearScale(0, 8, 80, 10), {0, 4, 8}, 40, 290, QString());
        out.writeEndElement();
        QCOMPARE(texts(svg, QStringLiteral("title")), QStringList{QStringLiteral("钢筋 <A&B>")});
        QCOMPARE(texts(svg, QStringLiteral("text")), (QStringList{"0", "50", "100", "days", "0", "4", "8"}));
        QVERIFY(svg.contains(QStringLiteral("viewBox=\"0 0 300 100\"")));
    }
};

QTEST_APPLESS_MAIN(TestSvgChart)
#include "tst_svgchart.moc"
