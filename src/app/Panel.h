#pragma once

#include "PanelHost.h"

#include <QWidget>

namespace tintwick {

/// The window of the panel: without a frame, above other windows, passed over by task bars. It is only ever hidden;
/// closing it hides it, and so does Escape.
class Panel final : public QWidget, public PanelWindow
{
    Q_OBJECT

public:
    /// Takes ownership of `content`, which fills the window.
    explicit Panel(QWidget* content);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QWidget& widget() override { return *this; }
    void setBlended(bool isBlended) override;
    [[nodiscard]] QMargins shadowMargins() const override;
    void setShadowInside(bool isInside) override;
    void paintShadow(QPainter& painter) const override;

Q_SIGNALS:
    void hidden();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// The window without the shadow.
    [[nodiscard]] QRect panelRect() const;

    QWidget* m_content;
    bool m_isShadowInside = false;
};

} // namespace tintwick
