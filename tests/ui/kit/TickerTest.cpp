#include "Ticker.h"
#include "Animator.h"
#include "Spring.h"

#include <QTest>

#include <memory>

using namespace tintwick;

class TickerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void withoutMotionNoTimerRuns();
    void theTimerStopsWhenEverythingRests();
    void theTickerAdvancesUntilRest();
    void advancingManuallyRunsNoTimer();
    void aDeletedAnimatorIsNotAdvanced();
    void aStepMayStartAnotherMotion();
    void reducedMotionEndsAtOnce();
    void reducingMotionEndsAllMotions();
};

void TickerTest::init()
{
    Ticker::shared().setMotionReduced(false);
    Ticker::shared().setMode(Ticker::Mode::ByHand);
}

void TickerTest::withoutMotionNoTimerRuns()
{
    Ticker::shared().setMode(Ticker::Mode::Clock);
    const Animator idle([](double) { return false; });
    QVERIFY(!Ticker::shared().isRunning());
}

void TickerTest::theTimerStopsWhenEverythingRests()
{
    Ticker& ticker = Ticker::shared();
    ticker.setMode(Ticker::Mode::Clock);
    Spring spring(0.2, 0.7);
    Animator animator([&](double seconds) { return spring.advance(seconds); });
    spring.setTarget(1);
    animator.start();
    QVERIFY(ticker.isRunning());
    ticker.advance(0.05);
    QVERIFY(ticker.isRunning());
    ticker.advance(2);
    QVERIFY(!ticker.isRunning());
    QCOMPARE(spring.position(), 1.0);
}

void TickerTest::theTickerAdvancesUntilRest()
{
    Ticker& ticker = Ticker::shared();
    ticker.setMode(Ticker::Mode::Clock);
    Spring spring(0.02, 1);
    Animator animator([&](double seconds) { return spring.advance(seconds); });
    spring.setTarget(1);
    animator.start();
    QTRY_VERIFY(!ticker.isRunning());
    QCOMPARE(spring.position(), 1.0);
}

void TickerTest::advancingManuallyRunsNoTimer()
{
    Ticker& ticker = Ticker::shared();
    double moved = 0;
    Animator animator([&](double seconds) {
        moved += seconds;
        return moved < 1;
    });
    animator.start();
    animator.start();
    QVERIFY(!ticker.isRunning());
    QVERIFY(ticker.hasMotion());
    ticker.advance(0.75);
    QCOMPARE(moved, 0.75);
    ticker.advance(0.25);
    QCOMPARE(moved, 1.0);
    QVERIFY(!ticker.hasMotion());
}

void TickerTest::aDeletedAnimatorIsNotAdvanced()
{
    auto second = std::make_unique<Animator>([](double) { return true; });
    Animator first([&](double) {
        second.reset();
        return false;
    });
    first.start();
    second->start();
    Ticker::shared().advance(0.01);
    QVERIFY(!Ticker::shared().hasMotion());
}

void TickerTest::aStepMayStartAnotherMotion()
{
    bool moved = false;
    Animator second([&](double) {
        moved = true;
        return false;
    });
    Animator first([&](double) {
        second.start();
        return false;
    });
    first.start();
    Ticker::shared().advance(0.01);
    QVERIFY(Ticker::shared().hasMotion());
    Ticker::shared().advance(0.01);
    QVERIFY(moved);
}

void TickerTest::reducedMotionEndsAtOnce()
{
    Ticker::shared().setMode(Ticker::Mode::Clock);
    Ticker::shared().setMotionReduced(true);
    Spring spring(0.2, 0.7);
    Animator animator([&](double seconds) { return spring.advance(seconds); });
    spring.setTarget(1);
    animator.start();
    QCOMPARE(spring.position(), 1.0);
    QVERIFY(!Ticker::shared().isRunning());
}

void TickerTest::reducingMotionEndsAllMotions()
{
    Spring spring(0.2, 0.7);
    Animator animator([&](double seconds) { return spring.advance(seconds); });
    spring.setTarget(1);
    animator.start();
    Ticker::shared().setMotionReduced(true);
    QCOMPARE(spring.position(), 1.0);
    QVERIFY(!Ticker::shared().hasMotion());
}

QTEST_GUILESS_MAIN(TickerTest)
#include "TickerTest.moc"
