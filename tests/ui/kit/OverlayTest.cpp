#include "Overlay.h"
#include "Button.h"
#include "Label.h"
#include "Stack.h"
#include "TextField.h"
#include "Ticker.h"

#include <QAccessible>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

using namespace tintwick;
using namespace Qt::StringLiterals;

class OverlayTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void itCoversItsHostWithTheCardInTheCentre();
    void itGrowsWithItsHost();
    void theFirstFieldHasTheFocus();
    void returnInTheFieldAccepts();
    void returnOnCancelCancels();
    void escapeDismisses();
    void theFocusReturns();
    void tabStaysInside();
    void clicksDoNotPassThrough();
    void accessibilityReportsADialog();

private:
    std::unique_ptr<QWidget> m_host;
    TextButton* m_below = nullptr;
    QPointer<Overlay> m_overlay;
    Stack* m_form = nullptr;
    TextField* m_field = nullptr;
    TextButton* m_cancel = nullptr;
    TextButton* m_create = nullptr;
    int m_accepted = 0;
    int m_pressedBelow = 0;
};

void OverlayTest::initTestCase()
{
    Ticker::shared().setMode(Ticker::Mode::ByHand);
}

void OverlayTest::init()
{
    m_accepted = 0;
    m_pressedBelow = 0;
    m_host = std::make_unique<QWidget>();
    m_host->resize(380, 580);
    m_below = borderedButton(u"Below"_s, [this] { ++m_pressedBelow; });
    m_below->setParent(m_host.get());
    m_host->show();
    m_host->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_host.get()));
    m_below->setFocus(Qt::TabFocusReason);
    m_field = new TextField(u"Palette name"_s);
    m_cancel = borderedButton(u"Cancel"_s, [this] { m_overlay->dismiss(); });
    m_create = prominentButton(u"Create"_s, [this] { ++m_accepted; });
    m_form = column(gap(16), padding(20), fixedWidth(280), Across::Leading,
                    label(u"New Palette"_s, theme::headline()), m_field,
                    row(fillWidth(), m_cancel, spacer(), m_create));
    m_overlay = new Overlay(*m_host, u"New Palette"_s, m_form, [this] { ++m_accepted; });
    Ticker::shared().advance(10);
}

void OverlayTest::cleanup()
{
    m_host.reset();
}

void OverlayTest::itCoversItsHostWithTheCardInTheCentre()
{
    QCOMPARE(Overlay::of(*m_host), m_overlay.data());
    QCOMPARE(m_overlay->geometry(), QRect(0, 0, 380, 580));
    QCOMPARE(m_form->width(), 280);
    QCOMPARE(m_form->x(), 50);
    QVERIFY(std::abs((m_form->y() * 2 + m_form->height()) - 580) <= 1);
    QCOMPARE(m_field->geometry().left(), 20);
    QCOMPARE(m_field->width(), 240);
    QCOMPARE(m_create->mapTo(m_form, QPoint(m_create->width(), 0)).x(), 260);
    QVERIFY(!Ticker::shared().hasMotion());
}

void OverlayTest::itGrowsWithItsHost()
{
    m_host->resize(480, 600);
    QCOMPARE(m_overlay->size(), QSize(480, 600));
    QCOMPARE(m_form->x(), 100);
}

void OverlayTest::theFirstFieldHasTheFocus()
{
    QVERIFY(m_field->hasFocus());
}

void OverlayTest::returnInTheFieldAccepts()
{
    QTest::keyClicks(m_field, u"Sea"_s);
    QTest::keyClick(m_field, Qt::Key_Return);
    QCOMPARE(m_accepted, 1);
    QVERIFY(m_overlay);
    QCOMPARE(m_field->text(), u"Sea"_s);
}

void OverlayTest::returnOnCancelCancels()
{
    QSignalSpy dismissed(m_overlay, &Overlay::dismissed);
    m_cancel->setFocus(Qt::TabFocusReason);
    QTest::keyClick(m_cancel, Qt::Key_Return);
    QCOMPARE(m_accepted, 0);
    QCOMPARE(dismissed.size(), 1);
    QCOMPARE(Overlay::of(*m_host), nullptr);
}

void OverlayTest::escapeDismisses()
{
    QTest::keyClicks(m_field, u"Sea"_s);
    QTest::keyClick(m_field, Qt::Key_Escape);
    QCOMPARE(Overlay::of(*m_host), nullptr);
    QCOMPARE(m_accepted, 0);
    QTRY_VERIFY(!m_overlay);
}

void OverlayTest::theFocusReturns()
{
    QTest::keyClick(m_field, Qt::Key_Escape);
    QVERIFY(m_below->hasFocus());
}

void OverlayTest::tabStaysInside()
{
    QList<QWidget*> order;
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(m_host->focusWidget(), Qt::Key_Tab);
        order.append(m_host->focusWidget());
    }
    QCOMPARE(order, (QList<QWidget*>{m_cancel, m_create, m_field, m_cancel}));
    QTest::keyClick(m_host->focusWidget(), Qt::Key_Backtab);
    QCOMPARE(m_host->focusWidget(), m_field);
    QTest::keyClick(m_host->focusWidget(), Qt::Key_Backtab);
    QCOMPARE(m_host->focusWidget(), m_create);
    m_cancel->setFocus(Qt::TabFocusReason);
    m_create->setEnabled(false);
    QTest::keyClick(m_host->focusWidget(), Qt::Key_Tab);
    QCOMPARE(m_host->focusWidget(), m_field);
    QTest::keyClick(m_host->focusWidget(), Qt::Key_Backtab);
    QCOMPARE(m_host->focusWidget(), m_cancel);
}

void OverlayTest::clicksDoNotPassThrough()
{
    const QPoint place = m_below->geometry().center();
    QCOMPARE(m_host->childAt(place), m_overlay.data());
    QTest::mouseClick(m_host->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    QCOMPARE(m_pressedBelow, 0);
    QVERIFY(Overlay::of(*m_host) != nullptr);
}

void OverlayTest::accessibilityReportsADialog()
{
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(m_overlay.data());
    QCOMPARE(interface->role(), QAccessible::Dialog);
    QCOMPARE(interface->text(QAccessible::Name), u"New Palette"_s);
}

QTEST_MAIN(OverlayTest)
#include "OverlayTest.moc"
