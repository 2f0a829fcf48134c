#include "Spring.h"
#include "EaseInOut.h"

#include <QTest>

#include <cmath>

using namespace tintwick;

class SpringTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aSpringFollowsItsEquation_data();
    void aSpringFollowsItsEquation();
    void theMotionIsIndependentOfTheStepLength();
    void aNewTargetKeepsPositionAndVelocity();
    void aSpringRestsOnItsTarget();
    void aJumpRestsAtOnce();
    void easingFollowsItsCurve_data();
    void easingFollowsItsCurve();
    void easingTurnsAtItsPosition();
};

// The expected values are from a Runge-Kutta integration of the equation
// x" + 2·fraction·w·x' + w²·(x − target) = 0, w = 2π/response.
void SpringTest::aSpringFollowsItsEquation_data()
{
    QTest::addColumn<double>("response");
    QTest::addColumn<double>("dampingFraction");
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("target");
    QTest::addColumn<double>("seconds");
    QTest::addColumn<double>("position");
    QTest::addColumn<double>("velocity");
    QTest::newRow("tile, early") << 0.18 << 0.75 << 0.0 << 1.0 << 0.05 << 0.610675 << 13.03593;
    QTest::newRow("tile, late") << 0.18 << 0.75 << 0.0 << 1.0 << 0.1 << 0.987892 << 2.84799;
    QTest::newRow("swatch") << 0.2 << 0.7 << 0.0 << 1.0 << 0.1 << 0.984087 << 3.81566;
    QTest::newRow("swatch, overshooting") << 0.2 << 0.7 << 0.0 << 1.0 << 0.15 << 1.044043 << -0.36046;
    QTest::newRow("card") << 0.18 << 0.8 << 0.0 << 1.0 << 0.03 << 0.310858 << 14.79589;
    QTest::newRow("card, back") << 0.18 << 0.8 << 1.0 << 0.0 << 0.06 << 0.295250 << -10.35846;
    QTest::newRow("damped critically") << 0.3 << 1.0 << 0.0 << 1.0 << 0.1 << 0.618942 << 5.40173;
}

void SpringTest::aSpringFollowsItsEquation()
{
    QFETCH(const double, response);
    QFETCH(const double, dampingFraction);
    QFETCH(const double, from);
    QFETCH(const double, target);
    QFETCH(const double, seconds);
    QFETCH(const double, position);
    QFETCH(const double, velocity);
    Spring spring(response, dampingFraction, from);
    spring.setTarget(target);
    QVERIFY(spring.advance(seconds));
    QVERIFY2(std::abs(spring.position() - position) < 2e-6,
             qPrintable(QString::number(spring.position(), 'g', 9)));
    QVERIFY2(std::abs(spring.velocity() - velocity) < 2e-5,
             qPrintable(QString::number(spring.velocity(), 'g', 9)));
}

void SpringTest::theMotionIsIndependentOfTheStepLength()
{
    Spring once(0.2, 0.7);
    Spring often(0.2, 0.7);
    once.setTarget(1);
    often.setTarget(1);
    once.advance(0.09);
    for (int i = 0; i < 9; ++i) {
        often.advance(0.01);
    }
    QVERIFY(std::abs(once.position() - often.position()) < 1e-9);
    QVERIFY(std::abs(once.velocity() - often.velocity()) < 1e-9);
}

void SpringTest::aNewTargetKeepsPositionAndVelocity()
{
    Spring spring(0.18, 0.75);
    spring.setTarget(1);
    spring.advance(0.05);
    const double position = spring.position();
    const double velocity = spring.velocity();
    spring.setTarget(0);
    QCOMPARE(spring.position(), position);
    QCOMPARE(spring.velocity(), velocity);
    spring.advance(0.001);
    QVERIFY(spring.position() > position);
}

void SpringTest::aSpringRestsOnItsTarget()
{
    Spring spring(0.18, 0.8);
    QVERIFY(!spring.isMoving());
    QVERIFY(!spring.advance(1));
    spring.setTarget(1);
    QVERIFY(spring.isMoving());
    QVERIFY(!spring.advance(2));
    QCOMPARE(spring.position(), 1.0);
    QCOMPARE(spring.velocity(), 0.0);
    QVERIFY(!spring.isMoving());
}

void SpringTest::aJumpRestsAtOnce()
{
    Spring spring(0.18, 0.8);
    spring.setTarget(1);
    spring.advance(0.02);
    spring.jumpTo(0.5);
    QVERIFY(!spring.isMoving());
    QCOMPARE(spring.position(), 0.5);
}

void SpringTest::easingFollowsItsCurve_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<double>("position");
    QTest::addColumn<bool>("moves");
    QTest::newRow("start") << 0.0 << 0.0 << true;
    QTest::newRow("a quarter") << 0.045 << 0.15625 << true;
    QTest::newRow("half") << 0.09 << 0.5 << true;
    QTest::newRow("three quarters") << 0.135 << 0.84375 << true;
    QTest::newRow("end") << 0.18 << 1.0 << false;
    QTest::newRow("beyond") << 9.0 << 1.0 << false;
}

void SpringTest::easingFollowsItsCurve()
{
    QFETCH(const double, seconds);
    QFETCH(const double, position);
    EaseInOut easing(0.18);
    QVERIFY(!easing.isMoving());
    easing.setTarget(1);
    QTEST(easing.advance(seconds), "moves");
    QVERIFY(std::abs(easing.position() - position) < 1e-9);
}

void SpringTest::easingTurnsAtItsPosition()
{
    EaseInOut easing(0.18);
    easing.setTarget(1);
    easing.advance(0.09);
    easing.setTarget(0);
    QVERIFY(std::abs(easing.position() - 0.5) < 1e-9);
    easing.advance(0.18);
    QCOMPARE(easing.position(), 0.0);
}

QTEST_APPLESS_MAIN(SpringTest)
#include "SpringTest.moc"
