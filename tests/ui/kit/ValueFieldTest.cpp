#include "ValueField.h"

#include "Button.h"
#include "Stack.h"
#include "Theme.h"

#include <QTest>

using namespace tintwick;
using namespace Qt::StringLiterals;

namespace {

/// A field that takes whole numbers, between two buttons in an active window.
struct Number
{
    explicit Number(ValueField::Style style)
        : before(borderedButton(u"Before"_s, [] {}))
        , field(new ValueField(u"Hue"_s, style))
        , after(borderedButton(u"After"_s, [] {}))
        , window(column(padding(10), gap(10), fixedSize(200, 200), before, field, after))
    {
        field->setValueText(u"259°"_s);
        field->returnFocusTo(*before);
        field->onEnter([this](const QString& text) {
            bool isNumber = false;
            const int number = QString(text).remove(u'°').toInt(&isNumber);
            if (isNumber) {
                taken.append(number);
                field->setValueText(u"%1°"_s.arg(number));
            }
            return isNumber;
        });
        window->show();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        before->setFocus(Qt::TabFocusReason);
    }

    [[nodiscard]] QColor edge() const { return field->grab().toImage().pixelColor(field->width() / 2, 0); }

    TextButton* before;
    ValueField* field;
    TextButton* after;
    std::unique_ptr<Stack> window;
    QList<int> taken;
};

} // namespace

class ValueFieldTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void returnTakesTheTextOfAFramedField();
    void aMoveOfTheFocusTakesTheText();
    void escapeRestoresTheValue();
    void aTextThatIsNotUnderstoodIsMarkedAndNotTaken();
    void aRefusedTextIsDroppedWhenTheFocusMoves();
    void aNewValueDoesNotDisturbTyping();
    void anUntouchedFieldTakesNothing();
    void tabSkipsAPlainField();
    void aDoubleClickOpensAPlainField();
    void aClickDoesNotOpenAPlainField();
    void typingStartsWithTheGivenText();
    void aPlainFieldReturnsTheFocus_data();
    void aPlainFieldReturnsTheFocus();
    void aPlainFieldHasAFrameOnlyWhileItIsUsed();
};

void ValueFieldTest::returnTakesTheTextOfAFramedField()
{
    const Number number(ValueField::Style::Framed);
    QTest::keyClick(number.before, Qt::Key_Tab);
    QVERIFY(number.field->hasFocus());
    QTest::keyClicks(number.field, u"120"_s);
    QTest::keyClick(number.field, Qt::Key_Return);
    QCOMPARE(number.taken, QList<int>{120});
    QCOMPARE(number.field->text(), u"120°"_s);
    QVERIFY(number.field->hasFocus());
}

void ValueFieldTest::aMoveOfTheFocusTakesTheText()
{
    const Number number(ValueField::Style::Framed);
    number.field->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(number.field, u"120"_s);
    QTest::keyClick(number.field, Qt::Key_Tab);
    QCOMPARE(number.taken, QList<int>{120});
    QCOMPARE(number.field->text(), u"120°"_s);
}

void ValueFieldTest::escapeRestoresTheValue()
{
    const Number number(ValueField::Style::Framed);
    number.field->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(number.field, u"120"_s);
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(number.field, &escape);
    QVERIFY(escape.isAccepted());
    QCOMPARE(number.field->text(), u"259°"_s);
    QCOMPARE(number.taken, QList<int>{});
    // Nothing is left to restore, so that the key may close the panel.
    QApplication::sendEvent(number.field, &escape);
    QVERIFY(!escape.isAccepted());
}

void ValueFieldTest::aTextThatIsNotUnderstoodIsMarkedAndNotTaken()
{
    const Number number(ValueField::Style::Framed);
    number.field->setFocus(Qt::TabFocusReason);
    QCOMPARE(number.edge(), theme::focusRing.in(Scheme::Light));
    QTest::keyClicks(number.field, u"blue"_s);
    QTest::keyClick(number.field, Qt::Key_Return);
    QCOMPARE(number.edge(), theme::red.in(Scheme::Light));
    QCOMPARE(number.field->text(), u"blue"_s);
    QCOMPARE(number.taken, QList<int>{});
    QTest::keyClick(number.field, Qt::Key_Backspace);
    QCOMPARE(number.edge(), theme::focusRing.in(Scheme::Light));
}

void ValueFieldTest::aRefusedTextIsDroppedWhenTheFocusMoves()
{
    const Number number(ValueField::Style::Framed);
    number.field->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(number.field, u"blue"_s);
    number.after->setFocus(Qt::TabFocusReason);
    QCOMPARE(number.field->text(), u"259°"_s);
    QCOMPARE(number.taken, QList<int>{});
}

void ValueFieldTest::aNewValueDoesNotDisturbTyping()
{
    const Number number(ValueField::Style::Framed);
    number.field->setFocus(Qt::TabFocusReason);
    number.field->setValueText(u"260°"_s);
    QCOMPARE(number.field->text(), u"260°"_s);
    QTest::keyClicks(number.field, u"1"_s);
    number.field->setValueText(u"261°"_s);
    QCOMPARE(number.field->text(), u"1"_s);
    QTest::keyClick(number.field, Qt::Key_Escape);
    QCOMPARE(number.field->text(), u"261°"_s);
}

void ValueFieldTest::anUntouchedFieldTakesNothing()
{
    const Number number(ValueField::Style::Framed);
    number.field->setFocus(Qt::TabFocusReason);
    QTest::keyClick(number.field, Qt::Key_Return);
    number.after->setFocus(Qt::TabFocusReason);
    QCOMPARE(number.taken, QList<int>{});
}

void ValueFieldTest::tabSkipsAPlainField()
{
    const Number number(ValueField::Style::Plain);
    QTest::keyClick(number.before, Qt::Key_Tab);
    QVERIFY(number.after->hasFocus());
}

void ValueFieldTest::aDoubleClickOpensAPlainField()
{
    const Number number(ValueField::Style::Plain);
    QTest::mouseDClick(number.field, Qt::LeftButton);
    QVERIFY(number.field->hasFocus());
    QCOMPARE(number.field->selectedText(), u"259°"_s);
    QTest::keyClicks(number.field, u"90"_s);
    QTest::keyClick(number.field, Qt::Key_Return);
    QCOMPARE(number.taken, QList<int>{90});
    QCOMPARE(number.field->text(), u"90°"_s);
}

void ValueFieldTest::aClickDoesNotOpenAPlainField()
{
    const Number number(ValueField::Style::Plain);
    QTest::mouseClick(number.field, Qt::LeftButton);
    QVERIFY(!number.field->hasFocus());
    QTest::keyClicks(number.field, u"9"_s);
    QCOMPARE(number.field->text(), u"259°"_s);
}

void ValueFieldTest::typingStartsWithTheGivenText()
{
    const Number number(ValueField::Style::Plain);
    number.field->beginTyping(u"4"_s);
    QTest::keyClicks(number.field, u"2"_s);
    QTest::keyClick(number.field, Qt::Key_Enter);
    QCOMPARE(number.taken, QList<int>{42});
}

void ValueFieldTest::aPlainFieldReturnsTheFocus_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Escape") << int(Qt::Key_Escape);
}

void ValueFieldTest::aPlainFieldReturnsTheFocus()
{
    QFETCH(const int, key);
    const Number number(ValueField::Style::Plain);
    number.after->setFocus(Qt::TabFocusReason);
    number.field->beginTyping();
    QTest::keyClicks(number.field, u"8"_s);
    QTest::keyClick(number.field, Qt::Key(key));
    QVERIFY(number.before->hasFocus());
    QVERIFY(number.before->showsFocusRing());
    QVERIFY(number.field->isReadOnly());
}

void ValueFieldTest::aPlainFieldHasAFrameOnlyWhileItIsUsed()
{
    const Number number(ValueField::Style::Plain);
    const QColor ground = number.edge();
    number.field->beginTyping();
    QCOMPARE(number.edge(), theme::focusRing.in(Scheme::Light));
    QTest::keyClick(number.field, Qt::Key_Escape);
    QCOMPARE(number.edge(), ground);
}

QTEST_MAIN(ValueFieldTest)
#include "ValueFieldTest.moc"
