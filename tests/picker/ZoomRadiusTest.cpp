#include "ZoomRadius.h"

#include <QTest>

using namespace tintwick;

class ZoomRadiusTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void zooming_in_makes_the_radius_smaller_within_its_bounds_data()
    {
        QTest::addColumn<int>("radius");
        QTest::addColumn<int>("steps");
        QTest::addColumn<int>("after");

        QTest::newRow("one step in") << 7 << 1 << 6;
        QTest::newRow("one step out") << 7 << -1 << 8;
        QTest::newRow("to the lower bound") << 4 << 1 << 3;
        QTest::newRow("not below it") << 3 << 1 << 3;
        QTest::newRow("to the upper bound") << 14 << -1 << 15;
        QTest::newRow("not above it") << 15 << -1 << 15;
        QTest::newRow("far in") << 15 << 1000 << 3;
        QTest::newRow("far out") << 3 << -1000 << 15;
        QTest::newRow("begun above, in") << 40 << 1 << 15;
        QTest::newRow("begun above, out") << 40 << -1 << 15;
        QTest::newRow("begun below, in") << 1 << 1 << 3;
        QTest::newRow("begun below, out") << 1 << -1 << 3;
    }

    void zooming_in_makes_the_radius_smaller_within_its_bounds()
    {
        QFETCH(const int, radius);
        QFETCH(const int, steps);
        QTEST(zoomradius::zoomedBy(radius, steps), "after");
    }

    void a_pick_begins_with_the_preferred_radius_unless_it_is_absurd_data()
    {
        QTest::addColumn<int>("preferred");
        QTest::addColumn<int>("radius");

        QTest::newRow("below the bounds of zooming") << 1 << 1;
        QTest::newRow("within them") << 7 << 7;
        QTest::newRow("above them") << 40 << 40;
        QTest::newRow("the largest that is honoured") << 500 << 500;
        QTest::newRow("absurd") << 2'000'000'000 << 500;
    }

    void a_pick_begins_with_the_preferred_radius_unless_it_is_absurd()
    {
        QFETCH(const int, preferred);
        QTEST(zoomradius::atStart(preferred), "radius");
    }
};

QTEST_GUILESS_MAIN(ZoomRadiusTest)
#include "ZoomRadiusTest.moc"
