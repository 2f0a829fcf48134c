#pragma once

#include "Clickable.h"
#include "Overhang.h"

namespace tintwick {

class SymbolView;

/// A button that looks like its content. Tint and focus ring may overhang the content.
class PlainButton final : public Clickable, public Overhanging
{
    Q_OBJECT

public:
    PlainButton(const QString& name, QWidget* content, double cornerRadius, const QMargins& overhang = {});

    [[nodiscard]] QMargins overhang() const override { return m_overhang; }
    /// `entries` is called each time the menu opens.
    void setContextMenu(std::function<QList<MenuEntry>()> entries);

protected:
    [[nodiscard]] double cornerRadius() const override { return m_cornerRadius; }
    [[nodiscard]] QList<MenuEntry> contextMenu() const override;

private:
    double m_cornerRadius;
    QMargins m_overhang;
    std::function<QList<MenuEntry>()> m_entries;
};

/// A button with a title, as at the bottom of an overlay.
class TextButton final : public Clickable
{
    Q_OBJECT

public:
    enum class Style { Bordered, Prominent };

    TextButton(const QString& title, Style style);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    [[nodiscard]] double cornerRadius() const override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_title;
    Style m_style;
};

/// A plain button around `content`. `name` is for screen readers; `cornerRadius` is that of tint and focus ring.
[[nodiscard]] PlainButton* plainButton(const QString& name, std::function<void()> action, QWidget* content,
                                       double cornerRadius = 6);
/// A plain button around text without a ground. Tint and focus ring leave a margin around the text.
[[nodiscard]] PlainButton* plainTextButton(const QString& name, std::function<void()> action,
                                           QWidget* content);
/// A plain button with a symbol on a small square, as at the top of a screen. Its tool tip is its name.
[[nodiscard]] PlainButton* squareButton(const QString& name, std::function<void()> action,
                                        SymbolView* symbol);
[[nodiscard]] TextButton* borderedButton(const QString& title, std::function<void()> action);
/// The default button, which Return presses.
[[nodiscard]] TextButton* prominentButton(const QString& title, std::function<void()> action);

} // namespace tintwick
