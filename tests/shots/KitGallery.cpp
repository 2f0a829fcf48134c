#include "shots/KitGallery.h"

#include "Appearance.h"
#include "Button.h"
#include "ContextMenu.h"
#include "Label.h"
#include "Overlay.h"
#include "Paint.h"
#include "PopUpPicker.h"
#include "Rule.h"
#include "SegmentedPicker.h"
#include "Stack.h"
#include "SymbolView.h"
#include "TextField.h"
#include "ToolTip.h"
#include "shots/Shooting.h"

#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QPainter>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

void nothing() {}

QStringList symbolNames()
{
    QStringList names = QDir(u":/symbols"_s).entryList();
    names.replaceInStrings(u".svg"_s, QString());
    return names;
}

Stack* tile(const QString& name, const theme::Gradient& gradient)
{
    return row(fixedSize(44, 44), centered(), ground(gradient, 10),
               symbol(name, 20, SymbolWeight::Semibold, theme::white));
}

Stack* square(const theme::Color& color)
{
    return row(fixedSize(62, 62), ground(color, 14), outline(theme::black.opacity(0.06), 0.5),
               Shadow{.color = color.opacity(0.4), .radius = 6, .offset = {0, 3}});
}

class Checks final : public QWidget
{
public:
    Checks() { setFixedSize(62, 62); }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        drawCheckerboard(painter, rect(), 14);
        fillRounded(painter, rect(), 14, QColor(30, 120, 220, 90));
    }
};

Stack* page(Stack* content)
{
    content->add(ground(theme::bg, theme::panelRadius));
    return content;
}

std::unique_ptr<QWidget> blocks()
{
    auto* disabled = prominentButton(u"Create"_s, nothing);
    disabled->setEnabled(false);
    return std::unique_ptr<QWidget>(page(column(
        gap(16), padding(16), fixedWidth(380), Across::Leading,
        row(gap(10), fillWidth(), label(u"Tintwick"_s, theme::font(18, QFont::Bold)), spacer(),
            row(gap(4), padding(8, 4), ground(theme::surface, 11),
                symbol(u"check-circle"_s, 10, SymbolWeight::Regular, theme::green),
                label(u"Copied!"_s, theme::font(11, QFont::Medium), theme::textSecond)),
            plainButton(u"Appearance"_s, nothing,
                        row(fixedSize(30, 30), centered(), ground(theme::surfaceHigh, 8),
                            symbol(u"auto-mode"_s, 14, SymbolWeight::Medium, theme::textSecond)),
                        8),
            plainButton(u"Settings"_s, nothing,
                        row(fixedSize(30, 30), centered(), ground(theme::surfaceHigh, 8),
                            symbol(u"settings"_s, 14, SymbolWeight::Regular, theme::textSecond)),
                        8)),
        rule(),
        plainButton(
            u"Pick a Color"_s, nothing,
            row(fillWidth(), fixedHeight(50), gap(8), centered(),
                ground(theme::Gradient{{0.38, 0.40, 0.80}, {0.24, 0.26, 0.68}}, 14),
                Shadow{.color = theme::Color{0.24, 0.26, 0.68}.opacity(0.35), .radius = 10, .offset = {0, 4}},
                symbol(u"eyedropper-filled"_s, 17, SymbolWeight::Semibold, theme::white),
                label(u"Pick a Color"_s, theme::font(16, QFont::DemiBold), theme::white)),
            14),
        plainButton(u"See all"_s, nothing,
                    row(fillWidth(), gap(2),
                        label(u"Recent History"_s, theme::font(15, QFont::DemiBold), theme::textSecond),
                        spacer(), label(u"See all"_s, theme::font(12), theme::accentText),
                        symbol(u"chevron-right"_s, 10, SymbolWeight::Semibold, theme::accentText))),
        row(gap(12), square({0.23, 0.51, 0.96}), square({0.95, 0.35, 0.25}), square({0.15, 0.7, 0.45}),
            new Checks, label(u"3B82F6"_s, theme::monospacedFont(9, QFont::Medium), theme::textSecond)),
        row(fillWidth(), gap(12), padding(12, 10), ground(theme::surface, 14), outline(theme::border, 1),
            Shadow{.color = theme::black.opacity(0.07), .radius = 8, .offset = {0, 2}},
            tile(u"palette-filled"_s, theme::cardAccents[0]),
            column(gap(2), Across::Leading,
                   label(u"A palette whose name is far too long to be shown"_s, theme::font(14, QFont::Bold)),
                   label(u"7 Colors"_s, theme::font(11), theme::textSecond)),
            spacer(), symbol(u"chevron-right"_s, 11, SymbolWeight::Medium, theme::textThird)),
        row(fillWidth(), gap(14), padding(12), ground(theme::surface, 14),
            dashedOutline(theme::textThird, 1.2, 5),
            row(fixedSize(44, 44), centered(), ground(theme::surfaceHigh, 10),
                symbol(u"add"_s, 18, SymbolWeight::Medium, theme::textThird)),
            label(u"New Palette"_s, theme::font(14, QFont::Medium), theme::textThird), spacer()),
        new SegmentedPicker(u"Tab"_s, {u"General"_s, u"Data"_s}, 0),
        row(gap(10), fillWidth(),
            new SegmentedPicker(u"Default Zoom"_s, {u"Close"_s, u"Mid"_s, u"Far"_s}, {}),
            new PopUpPicker(u"Default Format"_s, {u"HEX"_s, u"CSS Var"_s, u"Tailwind"_s}, 1)),
        new TextField(u"Palette name"_s), new TextField(u"Palette name"_s, u"Sunset & sea"_s),
        row(gap(10), fillWidth(), borderedButton(u"Cancel"_s, nothing), spacer(), disabled,
            prominentButton(u"Create"_s, nothing)))));
}

std::unique_ptr<QWidget> symbols()
{
    auto* lines = column(gap(6), padding(16), Across::Leading);
    for (const QString& name : symbolNames()) {
        auto* line = row(gap(10));
        for (const int textSize : {10, 14, 20}) {
            for (const SymbolWeight weight :
                 {SymbolWeight::Regular, SymbolWeight::Medium, SymbolWeight::Semibold}) {
                line->add(symbol(name, textSize, weight, theme::textPrimary));
            }
            line->add(label(u"Ag"_s, theme::font(textSize)));
        }
        line->add(label(name, theme::font(11), theme::textSecond));
        lines->add(line);
    }
    return std::unique_ptr<QWidget>(page(lines));
}

QList<MenuEntry> choices()
{
    return {menuChoice(u"HEX"_s, false, nothing), menuChoice(u"CSS Var"_s, true, nothing),
            menuChoice(u"Tailwind"_s, false, nothing)};
}

QList<MenuEntry> cardMenu()
{
    return {menuAction(u"Open Palette"_s, u"open"_s, nothing),
            menuSeparator(),
            menuAction(u"Export CSS Variables"_s, u"document"_s, nothing),
            menuAction(u"Export JSON"_s, u"braces"_s, nothing),
            menuAction(u"Export PNG Swatch"_s, u"image"_s, nothing),
            menuSeparator(),
            submenu(u"Copy as…"_s, {menuAction(u"HEX"_s, nothing)}),
            menuDestructive(u"Delete"_s, nothing)};
}

std::unique_ptr<QWidget> buttonWithToolTip()
{
    auto* button = borderedButton(u"A name that is too long"_s, nothing);
    button->setToolTip(
        u"A <b>long</b> name of a palette, & with the colors of the sea and of the sand near it"_s);
    return std::unique_ptr<QWidget>(
        page(column(gap(16), padding(16), fixedSize(380, 110), Across::Leading, button, spacer())));
}

/// A shot contains one window, so the tool tip becomes a part of it.
void showToolTipInside(QWidget& view)
{
    auto* button = view.findChild<Clickable*>();
    showToolTip(*button, {});
    auto* tip = button->findChild<QLabel*>();
    tip->setParent(&view);
    tip->move(20, 60);
    tip->show();
}

} // namespace

void shootKitGallery(const QDir& folder)
{
    shoot(folder, u"kit-blocks"_s, blocks);
    shoot(folder, u"kit-focus"_s, blocks,
          [](QWidget& view) { view.findChildren<PlainButton*>().at(2)->setFocus(Qt::TabFocusReason); });
    shoot(folder, u"kit-symbols"_s, symbols);
    shoot(folder, u"kit-overlay"_s, blocks, [](QWidget& view) {
        new Overlay(view, u"New Palette"_s,
                    column(gap(16), padding(20), fixedWidth(280), Across::Leading,
                           label(u"New Palette"_s, theme::headline()), new TextField(u"Palette name"_s),
                           row(fillWidth(), borderedButton(u"Cancel"_s, nothing), spacer(),
                               prominentButton(u"Create"_s, nothing))),
                    nothing);
    });
    shoot(folder, u"kit-menu"_s, [] {
        auto menu = std::make_unique<QMenu>();
        fillMenu(*menu, cardMenu());
        menu->setActiveAction(menu->actions().at(3));
        return menu;
    });
    shoot(folder, u"kit-tool-tip"_s, buttonWithToolTip, showToolTipInside);
    shoot(folder, u"kit-choices"_s, [] {
        auto menu = std::make_unique<QMenu>();
        fillMenu(*menu, choices());
        menu->setActiveAction(menu->actions().at(1));
        return menu;
    });
}

} // namespace tintwick
