#include "Button.h"

#include "Appearance.h"
#include "Paint.h"
#include "Stack.h"
#include "SymbolView.h"
#include "Theme.h"

#include <QFontMetrics>
#include <QLayout>
#include <QPainter>

#include <cmath>
#include <utility>

namespace tintwick {

namespace {

constexpr double textButtonRadius = 8;
constexpr int horizontalPadding = 14;
constexpr int verticalPadding = 6;
/// From plain text to its tint and focus ring.
constexpr QMargins textOverhang(8, 4, 8, 4);
constexpr double disabledOpacity = 0.4;
constexpr int squareSide = 30;
constexpr double squareRadius = 8;

} // namespace

PlainButton::PlainButton(const QString& name, QWidget* content, double cornerRadius, const QMargins& overhang)
    : Clickable(name)
    , m_cornerRadius(cornerRadius)
    , m_overhang(overhang)
{
    setContent(content);
    layout()->setContentsMargins(overhang);
}

void PlainButton::setContextMenu(std::function<QList<MenuEntry>()> entries)
{
    m_entries = std::move(entries);
}

QList<MenuEntry> PlainButton::contextMenu() const
{
    return m_entries ? m_entries() : Clickable::contextMenu();
}

TextButton::TextButton(const QString& title, Style style)
    : Clickable(title)
    , m_title(title)
    , m_style(style)
{
    setFont(theme::font(13, QFont::DemiBold));
}

QSize TextButton::sizeHint() const
{
    const QFontMetrics metrics(font());
    const double title = QFontMetricsF(font()).horizontalAdvance(m_title);
    return {static_cast<int>(std::ceil(title)) + 2 * horizontalPadding,
            metrics.height() + 2 * verticalPadding};
}

double TextButton::cornerRadius() const
{
    return textButtonRadius;
}

void TextButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!isEnabled()) {
        painter.setOpacity(disabledOpacity);
    }
    const Scheme scheme = Appearance::of(this);
    const bool isProminent = m_style == Style::Prominent;
    fillRounded(painter, rect(), textButtonRadius,
                (isProminent ? theme::accent : theme::surfaceHigh).in(scheme));
    if (!isProminent) {
        strokeInside(painter, rect(), textButtonRadius, theme::border.in(scheme), 1);
    }
    painter.setPen((isProminent ? theme::white : theme::textPrimary).in(scheme));
    painter.drawText(rect(), Qt::AlignCenter, m_title);
    paintStateLayer(painter);
}

PlainButton* plainButton(const QString& name, std::function<void()> action, QWidget* content,
                         double cornerRadius)
{
    auto* button = new PlainButton(name, content, cornerRadius);
    button->onClick(std::move(action));
    return button;
}

PlainButton* plainTextButton(const QString& name, std::function<void()> action, QWidget* content)
{
    auto* button = new PlainButton(name, content, textButtonRadius, textOverhang);
    button->onClick(std::move(action));
    return button;
}

PlainButton* squareButton(const QString& name, std::function<void()> action, SymbolView* symbol)
{
    auto* button = plainButton(
        name, std::move(action),
        row(fixedSize(squareSide, squareSide), centered(), ground(theme::surfaceHigh, squareRadius), symbol),
        squareRadius);
    button->setToolTip(name);
    return button;
}

TextButton* borderedButton(const QString& title, std::function<void()> action)
{
    auto* button = new TextButton(title, TextButton::Style::Bordered);
    button->onClick(std::move(action));
    return button;
}

TextButton* prominentButton(const QString& title, std::function<void()> action)
{
    auto* button = new TextButton(title, TextButton::Style::Prominent);
    button->onClick(std::move(action));
    return button;
}

} // namespace tintwick
