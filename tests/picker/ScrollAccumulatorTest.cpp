#include "ScrollAccumulator.h"

#include <QTest>

#include <limits>

using namespace tintwick;

class ScrollAccumulatorTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scrolling_adds_up_to_whole_steps_and_keeps_the_rest_data()
    {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        constexpr double nan = std::numeric_limits<double>::quiet_NaN();

        QTest::addColumn<QList<double>>("amounts");
        QTest::addColumn<bool>("isPrecise");
        QTest::addColumn<QList<int>>("steps");
        QTest::addColumn<double>("remainder");

        using Amounts = QList<double>;
        using Steps = QList<int>;
        QTest::newRow("nothing") << Amounts{0.0} << true << Steps{0} << 0.0;
        QTest::newRow("three small touches") << Amounts{2.0, 2.0, 2.0} << true << Steps{0, 0, 1} << 1.0;
        QTest::newRow("exactly one step") << Amounts{5.0} << true << Steps{1} << 0.0;
        QTest::newRow("just not a step") << Amounts{4.75} << true << Steps{0} << 4.75;
        QTest::newRow("one step down") << Amounts{-5.0} << true << Steps{-1} << 0.0;
        QTest::newRow("a step down over two touches") << Amounts{-3.0, -3.0} << true << Steps{0, -1} << -1.0;
        QTest::newRow("several steps at once") << Amounts{17.0} << true << Steps{3} << 2.0;
        QTest::newRow("turning back uses up the rest")
            << Amounts{4.0, -4.0, -4.0, -1.0} << true << Steps{0, 0, 0, -1} << 0.0;
        QTest::newRow("two notches") << Amounts{1.0, 1.0} << false << Steps{0, 1} << 1.0;
        QTest::newRow("five notches are three steps")
            << Amounts{1.0, 1.0, 1.0, 1.0, 1.0} << false << Steps{0, 1, 0, 1, 1} << 0.0;
        QTest::newRow("two notches down") << Amounts{-1.0, -1.0} << false << Steps{0, -1} << -1.0;
        QTest::newRow("infinite is not counted")
            << Amounts{4.0, infinity, 1.0} << true << Steps{0, 0, 1} << 0.0;
        QTest::newRow("not a number is not counted")
            << Amounts{4.0, nan, 1.0} << true << Steps{0, 0, 1} << 0.0;
        QTest::newRow("too much for any zoom") << Amounts{5e300} << true << Steps{1000} << 0.0;
        QTest::newRow("too much for any zoom, down") << Amounts{-1e9} << true << Steps{-1000} << 0.0;
    }

    void scrolling_adds_up_to_whole_steps_and_keeps_the_rest()
    {
        QFETCH(const QList<double>, amounts);
        QFETCH(const bool, isPrecise);
        QFETCH(const QList<int>, steps);
        QFETCH(const double, remainder);

        ScrollAccumulator accumulator;
        QList<int> counted;
        for (const double amount : amounts) {
            counted << accumulator.add({amount, isPrecise});
        }
        QCOMPARE(counted, steps);
        if (std::abs(amounts.first()) < 1e12) {
            QCOMPARE(accumulator.remainder(), remainder);
        }
        QVERIFY(std::abs(accumulator.remainder()) < 5);
    }
};

QTEST_GUILESS_MAIN(ScrollAccumulatorTest)
#include "ScrollAccumulatorTest.moc"
