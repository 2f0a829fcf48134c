#include "ColorSelection.h"

#include <QTest>

using namespace tintwick;
using namespace Qt::StringLiterals;

namespace {

QUuid idOf(QChar letter)
{
    return QUuid(letter.unicode(), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
}

QList<QUuid> idsOf(const QString& letters)
{
    QList<QUuid> ids;
    for (const QChar letter : letters) {
        ids.append(idOf(letter));
    }
    return ids;
}

QString lettersOf(const QList<QUuid>& ids)
{
    QString letters;
    for (const QUuid& id : ids) {
        letters.append(QChar(id.data1));
    }
    return letters;
}

/// "+c" toggles c, "-c" extends to c, "&c" adds the range to c, ".c" restarts at c, "*" selects all, "!" clears, and
/// "=abc" sets the list.
void carryOut(ColorSelection& selection, const QString& step)
{
    const QString letters = step.sliced(1);
    switch (step[0].toLatin1()) {
    case '+':
        return selection.toggle(idOf(letters[0]));
    case '-':
        return selection.extendTo(idOf(letters[0]));
    case '&':
        return selection.addRangeTo(idOf(letters[0]));
    case '.':
        return selection.restartAt(idOf(letters[0]));
    case '*':
        return selection.selectAll();
    case '!':
        return selection.clear();
    default:
        return selection.setColors(idsOf(letters));
    }
}

} // namespace

class ColorSelectionTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stepsSelect_data();
    void stepsSelect();
};

void ColorSelectionTest::stepsSelect_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("selected");
    const auto row = [](const char* name, const QString& steps, const QString& selected) {
        QTest::newRow(name) << steps << selected;
    };
    row("nothing", u"=abcdef"_s, u""_s);
    row("one", u"=abcdef +c"_s, u"c"_s);
    row("one twice", u"=abcdef +c +c"_s, u""_s);
    row("in the order of the list", u"=abcdef +e +a +c"_s, u"ace"_s);
    row("an unknown one", u"=abcdef +x -x &x"_s, u""_s);

    row("a range down", u"=abcdef +b -d"_s, u"bcd"_s);
    row("a range up", u"=abcdef +d -b"_s, u"bcd"_s);
    row("a range of one", u"=abcdef +b -b"_s, u"b"_s);
    row("a range to the ends", u"=abcdef +c -f"_s, u"cdef"_s);
    row("a shorter range", u"=abcdef +b -e -c"_s, u"bc"_s);
    row("a range on the other side of the anchor", u"=abcdef +c -e -a"_s, u"abc"_s);
    row("a range replaces the others", u"=abcdef +a +c -e"_s, u"cde"_s);
    row("a range from a colour that was deselected", u"=abcdef +a +c +c -e"_s, u"cde"_s);
    row("an added range keeps the others", u"=abcdef +a +c &e"_s, u"acde"_s);
    row("two added ranges", u"=abcdef +a &b +d &e"_s, u"abde"_s);
    row("an added range from a colour that was deselected", u"=abcdef +a +c +c &d"_s, u"acd"_s);
    row("a range without an anchor", u"=abcdef -c"_s, u"c"_s);
    row("its second step", u"=abcdef -c -e"_s, u"cde"_s);
    row("a range to an unknown one", u"=abcdef +b -d -x"_s, u"bcd"_s);

    row("all", u"=abcdef *"_s, u"abcdef"_s);
    row("all of none", u"= *"_s, u""_s);
    row("all without one", u"=abc * +b"_s, u"ac"_s);
    row("a range after all starts at the first", u"=abcdef * -c"_s, u"abc"_s);
    row("a range after all starts at the anchor", u"=abcdef +e * -c"_s, u"cde"_s);
    row("cleared", u"=abcdef +b +c !"_s, u""_s);
    row("a range after clearing starts at the anchor", u"=abcdef +b ! -d"_s, u"bcd"_s);
    row("a restart", u"=abcdef +b +c .e"_s, u""_s);
    row("a range after a restart", u"=abcdef .b -d"_s, u"bcd"_s);
    row("a restart at an unknown one", u"=abcdef +b .x -d"_s, u"d"_s);

    row("one vanishes", u"=abcdef +b +d =acdef"_s, u"d"_s);
    row("one that vanished comes back", u"=abcdef +b +d =acdef =abcdef"_s, u"d"_s);
    row("all vanish", u"=abc * ="_s, u""_s);
    row("one is added", u"=abc * =xabc"_s, u"abc"_s);
    row("the list is sorted", u"=abcdef +b +d =fedcba"_s, u"db"_s);
    row("a range in the new order", u"=abcdef +b =bfacde -a"_s, u"bfa"_s);
    row("the anchor vanishes", u"=abcdef +d +b =acdef -f"_s, u"def"_s);
    row("the anchor and all others vanish", u"=abcdef +b =acdef -e"_s, u"e"_s);

    row("an id twice", u"=abca +a"_s, u"a"_s);
    row("all with an id twice", u"=abca *"_s, u"abc"_s);
}

void ColorSelectionTest::stepsSelect()
{
    QFETCH(const QString, steps);
    QFETCH(const QString, selected);
    ColorSelection selection;
    for (const QString& step : steps.split(u' ')) {
        carryOut(selection, step);
    }
    QCOMPARE(lettersOf(selection.ids()), selected);
    QCOMPARE(selection.isEmpty(), selected.isEmpty());
    for (const QChar letter : u"abcdefx"_s) {
        QCOMPARE(selection.contains(idOf(letter)), selected.contains(letter));
    }
}

QTEST_APPLESS_MAIN(ColorSelectionTest)
#include "ColorSelectionTest.moc"
