#include "shots/ColorShots.h"

#include "AppState.h"
#include "Appearance.h"
#include "PanelNavigation.h"
#include "PanelView.h"
#include "Preferences.h"
#include "SegmentedPicker.h"
#include "Slider.h"
#include "Theme.h"
#include "ValueField.h"
#include "shots/Scene.h"
#include "shots/Shooting.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

/// The panel with the screen of its newest colour.
class DemoColor final : public QWidget
{
public:
    DemoColor(const QColor& color, EditorModel model)
        : m_appState([this](std::chrono::milliseconds, std::function<void()> action) {
            m_later = std::move(action);
        })
    {
        fill(m_appState, {color});
        m_later();
        m_preferences.setEditorModel(model);
        m_view = new PanelView(m_appState, m_preferences, [](QWidget&) { return new QWidget; });
        m_view->setParent(this);
        setFixedSize(theme::panelSize);
        PanelNavigation::of(m_view)->openColor(m_appState.history().first());
    }

    [[nodiscard]] AppState& state() { return m_appState; }
    [[nodiscard]] Slider& slider(const QString& name) const
    {
        for (auto* slider : findChildren<Slider*>()) {
            if (slider->accessibleName() == name && slider->isVisible()) {
                return *slider;
            }
        }
        qFatal("no slider %s", qUtf8Printable(name));
    }

    [[nodiscard]] PanelView& view() const { return *m_view; }

private:
    std::function<void()> m_later;
    AppState m_appState;
    Preferences m_preferences;
    PanelView* m_view;
};

void press(QWidget& widget, int key, const QString& text = {})
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &event);
}

} // namespace

void shootColor(const QDir& folder)
{
    const QColor blue(59, 130, 246);
    const auto shootState = [&](const QString& name, const QColor& color, EditorModel model,
                                const std::function<void(DemoColor&)>& arrange = {}) {
        shoot(
            folder, u"color-"_s + name, [&] { return std::make_unique<DemoColor>(color, model); },
            [&](QWidget& widget) {
                auto& panel = static_cast<DemoColor&>(widget);
                panel.view().setSystemScheme(Appearance::of(&panel));
                if (arrange) {
                    arrange(panel);
                }
            });
    };
    shootState(u"oklch"_s, blue, EditorModel::Oklch);
    shootState(u"hsl"_s, blue, EditorModel::Hsl);
    shootState(u"changed"_s, blue, EditorModel::Oklch, [](DemoColor& panel) {
        panel.slider(u"Hue"_s).changeValue(150);
        panel.slider(u"Chroma"_s).changeValue(0.15);
        panel.slider(u"Lightness"_s).changeValue(72);
    });
    shootState(u"outside"_s, blue, EditorModel::Oklch,
               [](DemoColor& panel) { panel.slider(u"Chroma"_s).changeValue(0.28); });
    shootState(u"grey"_s, QColor(128, 128, 128), EditorModel::Oklch);
    shootState(u"white"_s, Qt::white, EditorModel::Hsl);
    shootState(u"black"_s, Qt::black, EditorModel::Oklch);
    shootState(u"translucent"_s, QColor(217, 74, 74, 110), EditorModel::Hsl,
               [](DemoColor& panel) { panel.slider(u"Hue"_s).changeValue(200); });
    shootState(u"saved"_s, blue, EditorModel::Oklch, [](DemoColor& panel) {
        panel.slider(u"Hue"_s).changeValue(300);
        button(panel, u"Save as New"_s).click();
    });
    shootState(u"focus"_s, blue, EditorModel::Oklch, [](DemoColor& panel) {
        panel.activateWindow();
        panel.slider(u"Chroma"_s).setFocus(Qt::TabFocusReason);
    });
    shootState(u"typing"_s, blue, EditorModel::Oklch, [](DemoColor& panel) {
        panel.activateWindow();
        Slider& slider = panel.slider(u"Hue"_s);
        slider.setFocus(Qt::TabFocusReason);
        press(slider, Qt::Key_2, u"2"_s);
    });
    shootState(u"refused"_s, blue, EditorModel::Oklch, [](DemoColor& panel) {
        panel.activateWindow();
        for (auto* field : panel.findChildren<ValueField*>()) {
            if (field->accessibleName() == u"Color code"_s) {
                field->beginTyping(u"dodger"_s);
                press(*field, Qt::Key_Return);
            }
        }
    });
}

} // namespace tintwick
