#include "IconColor.h"

#include "AppState.h"
#include "Paint.h"
#include "Symbol.h"

#include <QCoreApplication>
#include <QIconEngine>
#include <QPainter>

#include <algorithm>
#include <array>

namespace tintwick {

namespace {

/// An own colour of an icon: the word in the data file, the title, and the gradient.
struct IconColor
{
    QStringView word;
    const char* title = nullptr;
    const theme::Gradient* gradient = nullptr;
};

constexpr std::array iconColors{
    IconColor{u"orange", QT_TRANSLATE_NOOP("IconColor", "Orange"), theme::cardAccents.data()},
    IconColor{u"blue", QT_TRANSLATE_NOOP("IconColor", "Blue"), &theme::cardAccents[1]},
    IconColor{u"violet", QT_TRANSLATE_NOOP("IconColor", "Violet"), &theme::cardAccents[2]},
    IconColor{u"pink", QT_TRANSLATE_NOOP("IconColor", "Pink"), &theme::cardAccents[3]},
    IconColor{u"green", QT_TRANSLATE_NOOP("IconColor", "Green"), &theme::cardAccents[4]}};

/// A rounded square of the gradient, with a check mark if it is chosen.
class GradientIcon final : public QIconEngine
{
public:
    GradientIcon(const theme::Gradient& gradient, bool isChosen)
        : m_gradient(gradient)
        , m_isChosen(isChosen)
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override
    {
        constexpr double side = 15;
        constexpr double radius = 4;
        constexpr double checkSize = 8;
        QRectF square(0, 0, side, side);
        square.moveCenter(QRectF(rect).center());
        // The gradients are the same in both schemes.
        fillRounded(*painter, square, radius, gradientBrush(square, m_gradient, Scheme::Light));
        if (m_isChosen) {
            drawSymbol(*painter, u"check", checkSize, SymbolWeight::Semibold, theme::white.in(Scheme::Light),
                       square);
        }
    }
    [[nodiscard]] QIconEngine* clone() const override { return new GradientIcon(m_gradient, m_isChosen); }
    bool isNull() override { return false; }

private:
    theme::Gradient m_gradient;
    bool m_isChosen;
};

MenuEntry choice(AppState& state, const ColorCollection& collection, const QString& title,
                 const QString& word, const theme::Gradient& gradient)
{
    const bool isChosen = collection.iconColor == word;
    MenuEntry entry =
        menuChoice(title, isChosen, [&state, id = collection.id, word] { state.setIconColor(id, word); });
    entry.icon = QIcon(new GradientIcon(gradient, isChosen));
    return entry;
}

} // namespace

const theme::Gradient& iconGradient(const ColorCollection& collection, qsizetype position)
{
    const auto* const found = std::ranges::find(iconColors, collection.iconColor, &IconColor::word);
    return found != iconColors.end() ? *found->gradient : theme::cardAccent(position);
}

MenuEntry iconColorMenu(AppState& state, const ColorCollection& collection)
{
    const qsizetype position = state.collections().indexOf(collection);
    QList<MenuEntry> entries{choice(state, collection, QCoreApplication::translate("IconColor", "Automatic"),
                                    {}, theme::cardAccent(std::max<qsizetype>(position, 0))),
                             menuSeparator()};
    for (const IconColor& color : iconColors) {
        entries.append(choice(state, collection, QCoreApplication::translate("IconColor", color.title),
                              color.word.toString(), *color.gradient));
    }
    return submenu(QCoreApplication::translate("IconColor", "Icon Color"), entries);
}

} // namespace tintwick
