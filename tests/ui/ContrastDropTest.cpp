#include "CollectionDetailView.h"
#include "ColorDetailRow.h"
#include "ColorWell.h"
#include "ContrastScreen.h"
#include "DashboardSwatchView.h"
#include "HistoryDetailView.h"
#include "PanelNavigation.h"
#include "ui/OwnHomeMain.h"
#include "ui/PanelFixture.h"
#include "ui/Probes.h"

using namespace tintwick;
using namespace tintwick::test;
using namespace Qt::StringLiterals;

namespace {

QString textOf(const CapturedColor& color)
{
    return color.id.toString(QUuid::WithoutBraces);
}

/// The panel with a green and a red colour, of which the palette has the red one.
class DropFixture final : public PanelFixture
{
public:
    DropFixture()
        : red(capture(0xFF0000))
        , green(capture(0x00FF00))
        , palette(state.createCollection(u"Brand"_s).id)
    {
        state.addColor(red.id, palette);
        settle();
    }

    /// Shows a screen and returns its red swatch: of the "dashboard", the "history" or the "palette".
    QWidget& redSwatch(const QString& screen)
    {
        if (screen == "dashboard"_L1) {
            return *dashboard().swatches().at(1);
        }
        view->setSelectedCollectionId(screen == "history"_L1 ? PanelView::historySelectionId : palette);
        settle();
        if (auto* history = view->findChild<HistoryDetailView*>()) {
            return *history->swatches().at(1);
        }
        // The square at the start of the row.
        return *view->findChild<CollectionDetailView*>()->rows().first()->childAt(30, 27);
    }
    [[nodiscard]] ContrastScreen* contrast() const { return view->findChild<ContrastScreen*>(); }
    /// "#00FF00 on #FF0000", or nothing while no contrast is open.
    [[nodiscard]] QString shown() const
    {
        return contrast() == nullptr ? QString()
                                     : contrast()->text().hex6() + u" on "_s + contrast()->ground().hex6();
    }

    const CapturedColor red;
    const CapturedColor green;
    const QUuid palette;
};

void addScreens()
{
    QTest::addColumn<QString>("screen");
    QTest::newRow("dashboard") << u"dashboard"_s;
    QTest::newRow("history") << u"history"_s;
    QTest::newRow("palette") << u"palette"_s;
}

/// Sends the enter event of a drag; returns whether the widget accepts it.
bool dragOver(QWidget& target, const QString& text)
{
    QMimeData data;
    data.setText(text);
    QDragEnterEvent enter(target.rect().center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&target, &enter);
    return enter.isAccepted();
}

} // namespace

class ContrastDropTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void swatchDroppedOnASwatchOpensTheirContrast_data() { addScreens(); }
    void swatchDroppedOnASwatchOpensTheirContrast();
    void textOfAnotherProgramIsAColor_data();
    void textOfAnotherProgramIsAColor();
    void severalColorsAreAddedToThePalette();
    void targetShowsTheDraggedColorAsText_data() { addScreens(); }
    void targetShowsTheDraggedColorAsText();
    void wellTakesADroppedColor();
};

void ContrastDropTest::swatchDroppedOnASwatchOpensTheirContrast()
{
    QFETCH(const QString, screen);
    DropFixture panel;
    QVERIFY(drop(panel.redSwatch(screen), textOf(panel.green)));
    QCOMPARE(panel.shown(), u"#00FF00 on #FF0000"_s);
    QCOMPARE(panel.contrast()->text().id, panel.green.id);
    QCOMPARE(panel.contrast()->ground().id, panel.red.id);
    QCOMPARE(panel.state.collections().first().colorIds, QList<QUuid>{panel.red.id});
    QCOMPARE(panel.state.history().size(), 2);
}

void ContrastDropTest::textOfAnotherProgramIsAColor_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::newRow("code") << u"#3b82f6"_s << u"#3B82F6 on #FF0000"_s;
    QTest::newRow("code in a line") << u" #3b82f6\n"_s << u"#3B82F6 on #FF0000"_s;
    QTest::newRow("function") << u"rgb(59 130 246)"_s << u"#3B82F6 on #FF0000"_s;
    QTest::newRow("name") << u"dodgerblue"_s << u"#1E90FF on #FF0000"_s;
    QTest::newRow("word") << u"sea"_s << QString();
    QTest::newRow("id of no color") << u"3F2504E0-4F89-41D3-9A0C-0305E82C33FF"_s << QString();
    QTest::newRow("nothing") << QString() << QString();
}

void ContrastDropTest::textOfAnotherProgramIsAColor()
{
    QFETCH(const QString, text);
    QFETCH(const QString, shown);
    DropFixture panel;
    QCOMPARE(drop(panel.redSwatch(u"dashboard"_s), text), !shown.isEmpty());
    QCOMPARE(panel.shown(), shown);
}

void ContrastDropTest::severalColorsAreAddedToThePalette()
{
    DropFixture panel;
    const CapturedColor blue = panel.capture(0x0000FF);
    QVERIFY(drop(panel.redSwatch(u"palette"_s), textOf(panel.green) + u'\n' + textOf(blue)));
    QCOMPARE(panel.shown(), QString());
    QCOMPARE(panel.state.collections().first().colorIds,
             (QList<QUuid>{panel.red.id, panel.green.id, blue.id}));
}

void ContrastDropTest::targetShowsTheDraggedColorAsText()
{
    QFETCH(const QString, screen);
    DropFixture panel;
    QWidget& swatch = panel.redSwatch(screen);
    const QRect place = placeIn(*panel.view, swatch);
    const auto hasGreen = [&] {
        const QImage picture = panel.picture().copy(place);
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (isNear(picture.pixel(x, y), qRgb(0, 255, 0), 8)) {
                    return true;
                }
            }
        }
        return false;
    };
    const QImage atRest = panel.picture();
    QVERIFY(!hasGreen());
    QVERIFY(dragOver(swatch, textOf(panel.green)));
    QVERIFY(hasGreen());
    QDragLeaveEvent leave;
    QApplication::sendEvent(&swatch, &leave);
    QCOMPARE(panel.picture(), atRest);
}

void ContrastDropTest::wellTakesADroppedColor()
{
    DropFixture panel;
    PanelNavigation::of(&panel.dashboard())->openContrast(panel.red, panel.red);
    panel.settle();
    const QList<ColorWell*> wells = panel.contrast()->findChildren<ColorWell*>();
    QVERIFY(drop(*wells.first(), textOf(panel.green)));
    QCOMPARE(panel.shown(), u"#00FF00 on #FF0000"_s);
    QVERIFY(drop(*wells.last(), u"#3B82F6"_s));
    QCOMPARE(panel.shown(), u"#00FF00 on #3B82F6"_s);
    QVERIFY(!drop(*wells.last(), u"sea"_s));
}

int main(int argc, char** argv)
{
    return runWithOwnHome<ContrastDropTest>(argc, argv);
}
#include "ContrastDropTest.moc"
