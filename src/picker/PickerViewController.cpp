#include "PickerViewController.h"

#include "ChosenLook.h"
#include "KeyCode.h"
#include "LoupeRenderer.h"
#include "LoupeSurface.h"
#include "MagnifierPanel.h"
#include "Platform.h"
#include "Preferences.h"
#include "ScreenCaptureService.h"
#include "ScreenGrabber.h"
#include "ZoomRadius.h"

namespace tintwick {

PickerViewController::PickerViewController(Platform& platform, ScreenCaptureService& capture,
                                           const Preferences& preferences)
    : m_platform(platform)
    , m_capture(capture)
    , m_preferences(preferences)
    , m_input(platform.pickingInput())
    , m_radius(zoomradius::atStart(preferences.loupeRadius()))
{
    m_contentTimer.setSingleShot(true);
    m_contentTimer.setInterval(0);
    QObject::connect(&m_contentTimer, &QTimer::timeout, [this] { followContent(); });
}

PickerViewController::~PickerViewController()
{
    viewWillDisappear();
}

void PickerViewController::viewDidAppear()
{
    m_magnifierView = std::make_unique<LoupeRenderer>();
    m_magnifierPanel = std::make_unique<MagnifierPanel>(m_platform.createLoupeSurface());
    m_capture.setReferenceWindowID(m_magnifierPanel->windowNumber());
    updateMagnifier(m_input.pointerPosition());
}

void PickerViewController::viewWillDisappear()
{
    if (!hasAppeared()) {
        return;
    }
    m_contentTimer.stop();
    m_capture.setReferenceWindowID(0);
    m_magnifierPanel.reset();
    m_magnifierView.reset();
    m_scroll = {};
}

void PickerViewController::contentChanged(const DesktopRect& rect)
{
    if (!hasAppeared()) {
        return;
    }
    if (rect.isEmpty()) {
        // The pointer may have been on a screen that is gone.
        m_position = m_input.pointerPosition();
    } else if (!rect.intersects(m_sampledRect)) {
        return;
    }
    m_contentTimer.start();
}

void PickerViewController::pointerMoved(DesktopPoint position)
{
    updateMagnifier(position);
}

void PickerViewController::buttonPressed(PointerButton button, DesktopPoint position)
{
    if (button == PointerButton::Primary) {
        pickColor(position);
    }
}

void PickerViewController::scrolled(ScrollDelta delta)
{
    if (hasAppeared()) {
        zoomBy(m_scroll.add(delta));
    }
}

void PickerViewController::keyPressed(const KeyPress& press)
{
    if (!hasAppeared()) {
        return;
    }
    // Window managers often keep the Command key's combinations for themselves; Control is there for them.
    const bool zooms = (press.modifiers & (modifier::super | modifier::control)) != 0;
    const double distance = (press.modifiers & modifier::shift) != 0 ? 10 : 1;
    switch (press.keyCode) {
    case keycode::escape:
        if (!press.isRepeat) {
            cancel();
        }
        break;
    case keycode::returnKey:
    case keycode::keypadEnter:
    case keycode::space:
        // The key that opened picking may still be held down, and its repeats must not take a colour. A step that an
        // arrow has just made may not have been reported yet, so the position is asked for.
        if (!press.isRepeat) {
            pickColor(m_input.pointerPosition());
        }
        break;
    case keycode::equal:
    case keycode::keypadPlus:
        if (zooms) {
            zoomBy(1);
        }
        break;
    case keycode::minus:
    case keycode::keypadMinus:
        if (zooms) {
            zoomBy(-1);
        }
        break;
    case keycode::leftArrow:
        m_input.movePointerBy(-distance, 0);
        break;
    case keycode::rightArrow:
        m_input.movePointerBy(distance, 0);
        break;
    case keycode::upArrow:
        m_input.movePointerBy(0, -distance);
        break;
    case keycode::downArrow:
        m_input.movePointerBy(0, distance);
        break;
    default:
        break;
    }
}

void PickerViewController::inputLost()
{
    if (hasAppeared()) {
        cancel();
    }
}

void PickerViewController::updateMagnifier(DesktopPoint position)
{
    if (!hasAppeared()) {
        return;
    }
    m_position = position;
    // Whatever change was waiting to be followed is in this sample.
    m_contentTimer.stop();
    const GlobalPoint point = m_capture.coordinates().toGlobal(position);
    m_sampledRect = m_capture.captureRect(point, m_radius);
    ScreenCaptureService::Sample sample = m_capture.sample(point, m_radius);
    m_magnifierView->setPixels(std::move(sample.grid));
    m_magnifierView->setCenterColor(sample.center);
    m_magnifierPanel->show(*m_magnifierView, chosenLook(m_preferences), point,
                           m_platform.screenGrabber().screens());
}

void PickerViewController::followContent()
{
    if (m_platform.screenGrabber().screens().empty()) {
        cancel();
        return;
    }
    updateMagnifier(m_position);
}

void PickerViewController::zoomBy(int steps)
{
    if (steps == 0) {
        return;
    }
    const int radius = zoomradius::zoomedBy(m_radius, steps);
    if (radius == m_radius) {
        return;
    }
    m_radius = radius;
    updateMagnifier(m_position);
}

void PickerViewController::pickColor(DesktopPoint position)
{
    if (!hasAppeared()) {
        return;
    }
    const std::optional<SampledColor> color = m_capture.colorAt(m_capture.coordinates().toGlobal(position));
    if (!color || !m_onColorPicked) {
        return;
    }
    // A copy, because the callback may destroy this controller and with it the callback.
    const ColorPicked onColorPicked = m_onColorPicked;
    onColorPicked(*color);
}

void PickerViewController::cancel()
{
    if (!m_onCancelled) {
        return;
    }
    const Cancelled onCancelled = m_onCancelled;
    onCancelled();
}

} // namespace tintwick
