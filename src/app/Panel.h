#pragma once

#include <QWidget>

namespace tintwick {

class PanelHost;

/// The window of the main panel: without a frame, above all other windows and on every desktop, passed over by task
/// bars. It takes typing once it is clicked, but appearing does not take it from the window the user is in. It is only
/// ever hidden; Escape hides it, and so does a window manager that would close it.
class Panel final : public QWidget
{
    Q_OBJECT

public:
    /// Shows `content`, which becomes its own and draws the rounded ground. Where the desktop does not blend windows the
    /// window is cut to that shape instead. The host must outlive the panel.
    Panel(PanelHost& host, QWidget* content);

    /// Whether it also takes the keys from the window the user is in.
    enum class Typing { Leave, Take };

    /// `place` in points, from the top left of the desktop.
    void showAt(const QRect& place, Typing typing);

Q_SIGNALS:
    void visibleChanged(bool isVisible);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showShadow();

    PanelHost& m_host;
    QWidget* m_content;
    bool m_hasShadow = false;
};

} // namespace tintwick
