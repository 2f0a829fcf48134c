#include "SelectableColor.h"

#include "Accessibility.h"
#include "AppState.h"
#include "ColorActions.h"
#include "ColorSelector.h"
#include "Paint.h"
#include "Symbol.h"

#include <QAccessibleWidget>
#include <QPainter>

namespace tintwick {

namespace {

constexpr double ringWidth = 2.5;
constexpr double ringGap = 1.5;
constexpr double badgeSide = 16;
constexpr double badgeInset = 5;
constexpr double checkSize = 8;

/// A button that can be selected.
class AccessibleColor final : public QAccessibleWidget
{
public:
    explicit AccessibleColor(SelectableColor& view)
        : QAccessibleWidget(&view, QAccessible::Button)
        , m_view(view)
    {
    }

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.selectable = m_view.selector() != nullptr;
        state.multiSelectable = state.selectable;
        state.selected = m_view.isSelected();
        return state;
    }
    [[nodiscard]] QStringList actionNames() const override
    {
        QStringList names{pressAction()};
        if (m_view.selector() != nullptr) {
            names.append(toggleAction());
        }
        return names + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override
    {
        if (name == pressAction()) {
            m_view.click();
        } else if (name == toggleAction() && m_view.selector() != nullptr) {
            m_view.selector()->takeClick(m_view.color().id, Qt::ControlModifier);
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

private:
    SelectableColor& m_view;
};

} // namespace

SelectableColor::SelectableColor(AppState& appState)
    : Clickable({})
    , m_appState(appState)
{
    describeToScreenReaders<SelectableColor>(
        [](QWidget& view) { return new AccessibleColor(static_cast<SelectableColor&>(view)); });
    onClick([this] {
        if (m_selector != nullptr && m_selector->takeClick(color().id, clickModifiers())) {
            // The keyboard extends the selection from here.
            setFocus(Qt::OtherFocusReason);
        } else {
            copyWithFeedback(m_appState, m_appState.defaultFormat(), color());
        }
    });
}

void SelectableColor::setSelector(ColorSelector& selector)
{
    m_selector = &selector;
    connect(m_selector, &ColorSelector::changed, this, &SelectableColor::followSelector);
}

QList<QUuid> SelectableColor::draggedIds() const
{
    return m_selector != nullptr ? m_selector->idsWith(color().id) : QList{color().id};
}

void SelectableColor::followSelector()
{
    const bool isSelected = m_selector != nullptr && m_selector->isSelected(color().id);
    if (m_isSelected == isSelected) {
        return;
    }
    m_isSelected = isSelected;
    selectedChanged();
    QAccessible::State changed;
    changed.selected = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

void SelectableColor::drawSelected(QPainter& painter, const QRectF& square, double cornerRadius,
                                   Scheme scheme)
{
    const QColor accent = theme::accent.in(scheme);
    const QColor white = theme::white.in(scheme);
    // The white line separates the ring from a colour like the accent.
    strokeInside(painter, square, cornerRadius, white, ringWidth + ringGap);
    strokeInside(painter, square, cornerRadius, accent, ringWidth);
    QRectF badge(0, 0, badgeSide, badgeSide);
    badge.moveBottomRight(square.bottomRight() - QPointF(badgeInset, badgeInset));
    fillRounded(painter, badge, badgeSide / 2, white);
    badge.adjust(1, 1, -1, -1);
    fillRounded(painter, badge, badge.width() / 2, accent);
    drawSymbol(painter, u"check", checkSize, SymbolWeight::Semibold, white, badge);
}

} // namespace tintwick
