#pragma once

#include "Coordinates.h"
#include "PickingInput.h"
#include "PixelGrid.h"
#include "ScrollAccumulator.h"

#include <QTimer>

#include <functional>
#include <memory>

namespace tintwick {

class MagnifierPanel;
class LoupeRenderer;
class Platform;
class Preferences;
class ScreenCaptureService;

/// One pick under way: moves, feeds and zooms the loupe, and says how the pick ends. Either callback may destroy the
/// controller. Input that arrives before viewDidAppear() or after viewWillDisappear() is ignored.
class PickerViewController final : public PickingInput::Listener
{
public:
    using ColorPicked = std::function<void(const SampledColor&)>;
    using Cancelled = std::function<void()>;

    /// The zoom begins with the stored preference.
    PickerViewController(Platform& platform, ScreenCaptureService& capture, const Preferences& preferences);
    ~PickerViewController();
    PickerViewController(const PickerViewController&) = delete;
    PickerViewController& operator=(const PickerViewController&) = delete;

    void setOnColorPicked(ColorPicked callback) { m_onColorPicked = std::move(callback); }
    void setOnCancelled(Cancelled callback) { m_onCancelled = std::move(callback); }

    void viewDidAppear();
    void viewWillDisappear();

    /// The pixels in the rectangle (desktop space) may have changed; an empty one says that the screens have. The loupe
    /// follows at the next turn of the event loop, once for however many changes there were.
    void contentChanged(const DesktopRect& rect);

    void pointerMoved(DesktopPoint position) override;
    void buttonPressed(PointerButton button, DesktopPoint position) override;
    void scrolled(ScrollDelta delta) override;
    void keyPressed(const KeyPress& press) override;
    void inputLost() override;

private:
    [[nodiscard]] bool hasAppeared() const { return m_magnifierPanel != nullptr; }
    void updateMagnifier(DesktopPoint position);
    void followContent();
    void zoomBy(int steps);
    void pickColor(DesktopPoint position);
    void cancel();

    Platform& m_platform;
    ScreenCaptureService& m_capture;
    const Preferences& m_preferences;
    PickingInput& m_input;
    ColorPicked m_onColorPicked;
    Cancelled m_onCancelled;
    std::unique_ptr<MagnifierPanel> m_magnifierPanel;
    std::unique_ptr<LoupeRenderer> m_magnifierView;
    int m_radius;
    ScrollAccumulator m_scroll;
    /// The newest position that was reported, which the loupe shows. Asking the input may give whole pixels only, and
    /// the loupe would jump by the fraction.
    DesktopPoint m_position;
    DesktopRect m_sampledRect;
    QTimer m_contentTimer;
};

} // namespace tintwick
