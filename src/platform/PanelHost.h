#pragma once

class QImage;
class QMargins;
class QWindow;

namespace tintwick {

/// What the desktop has to know of the panel, and the toolkit does not tell it.
class PanelHost
{
public:
    virtual ~PanelHost() = default;

    /// To be called each time before the window appears: it comes up on the desktop the user is on, task bars and
    /// window lists pass over it, and it does not become the active window by appearing.
    virtual void prepareToShow(QWindow& window) = 0;

    /// Whether translucent pixels of a window let what is behind it through; otherwise they are black.
    [[nodiscard]] virtual bool blendsWindows() const = 0;

    /// Lays a picture below the window, over which it reaches by `margins`, all in physical pixels. It is open to every
    /// click and no window of its own to anybody. To be called while the window is shown; nothing where windows are not
    /// blended.
    virtual void showShadow(const QWindow& window, const QImage& picture, const QMargins& margins) = 0;
    virtual void hideShadow() = 0;
};

} // namespace tintwick
