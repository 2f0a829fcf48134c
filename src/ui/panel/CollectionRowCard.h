#pragma once

#include "Animator.h"
#include "CapturedColor.h"
#include "Clickable.h"
#include "ColorCollection.h"
#include "ColorDropTarget.h"
#include "Overhang.h"
#include "ShadowCaster.h"
#include "Spring.h"
#include "Theme.h"
#include "WantedPick.h"

#include <QList>
#include <QRectF>
#include <QString>
#include <QUuid>

#include <functional>

namespace tintwick {

class AppState;

/// A collection in the list of the dashboard: icon, name, number of colours and the first colours. Accepts dropped
/// colours.
class CollectionRowCard final : public Clickable, public ShadowCaster, public Overhanging
{
    Q_OBJECT

public:
    /// `panel` is what overlays cover. `onTap` is called with the id of the collection, `onPick` with the pick that the menu asks
    /// for.
    CollectionRowCard(AppState& appState, QWidget& panel, std::function<void(const QUuid& id)> onTap,
                      std::function<void(const WantedPick& pick)> onPick);

    void setCollection(const ColorCollection& collection);
    void setAccent(const theme::Gradient& accent);

    [[nodiscard]] const ColorCollection& collection() const { return m_collection; }
    /// "1 Color", "7 Colors": the number that the screen of the collection shows.
    [[nodiscard]] QString countText() const;
    /// Those of the first four members whose ids are known.
    [[nodiscard]] QList<CapturedColor> previewColors() const;
    /// The members whose ids are known, in the order of the collection.
    [[nodiscard]] const QList<CapturedColor>& colors() const { return m_colors; }
    [[nodiscard]] bool isDropTarget() const { return m_isDropTarget; }

    [[nodiscard]] QSize sizeHint() const override;
    void paintShadow(QPainter& painter) const override;
    [[nodiscard]] QMargins overhang() const override;

protected:
    void hoverChanged() override;
    void resizeEvent(QResizeEvent* event) override;
    /// The card without the margin for its hovered state.
    [[nodiscard]] QRectF stateLayerRect() const override;
    [[nodiscard]] double cornerRadius() const override;
    [[nodiscard]] bool tintsHover() const override { return false; }
    [[nodiscard]] QList<MenuEntry> contextMenu() const override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// The places of the parts, from left to right.
    struct Parts
    {
        QRectF tile;
        QRectF text;
        /// The first square of the preview.
        QRectF square;
        QRectF chevron;
    };
    [[nodiscard]] Parts partsWith(qsizetype squares) const;

    /// Updates texts and picture after the collection or the history has changed.
    void showCollection();
    void setDropTarget(bool isDropTarget);
    /// The tool tip is the whole name while the name is cut.
    void updateHelp();
    void paintPreview(QPainter& painter, const QList<CapturedColor>& colors, QRectF square) const;
    [[nodiscard]] double scale() const;

    AppState& m_appState;
    QWidget& m_panel;
    std::function<void(const QUuid& id)> m_onTap;
    std::function<void(const WantedPick& pick)> m_onPick;
    ColorCollection m_collection;
    QList<CapturedColor> m_colors;
    theme::Gradient m_accent = theme::cardAccents[0];
    bool m_isDropTarget = false;
    /// 0 at rest, 1 while the pointer or a drag is over the card.
    Spring m_hover;
    Spring m_drop;
    Animator m_animator;
    ColorDropTarget m_dropTarget;
};

} // namespace tintwick
