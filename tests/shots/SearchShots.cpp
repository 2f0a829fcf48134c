#include "shots/SearchShots.h"

#include "AppState.h"
#include "Appearance.h"
#include "PanelNavigation.h"
#include "PanelView.h"
#include "Preferences.h"
#include "Theme.h"
#include "shots/Scene.h"
#include "shots/Shooting.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QKeyEvent>

#include <functional>
#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

/// The panel with forty colours and two palettes.
class SearchablePanel final : public QWidget
{
public:
    SearchablePanel()
        : m_appState([this](std::chrono::milliseconds, std::function<void()> action) {
            m_later = std::move(action);
        })
    {
        fill(m_appState, manyColors(40));
        m_later();
        QList<QUuid> ids;
        for (const CapturedColor& color : m_appState.history().mid(0, 6)) {
            ids.append(color.id);
        }
        m_appState.addColors(ids, m_appState.createCollection(u"Brand"_s).id);
        m_view = new PanelView(m_appState, m_preferences, [](QWidget&) { return new QWidget; });
        m_view->setParent(this);
        setFixedSize(theme::panelSize);
    }

    [[nodiscard]] AppState& state() { return m_appState; }
    [[nodiscard]] PanelView& view() { return *m_view; }

    void type(const QString& text)
    {
        for (const QChar character : text) {
            press(0, {}, QString(character));
        }
    }

    void press(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {})
    {
        QWidget* focused = focusWidget() != nullptr ? focusWidget() : m_view;
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(focused, &event);
        QApplication::processEvents();
    }

private:
    std::function<void()> m_later;
    AppState m_appState;
    Preferences m_preferences;
    PanelView* m_view;
};

} // namespace

void shootSearch(const QDir& folder)
{
    const auto shootState = [&](const QString& name, const std::function<void(SearchablePanel&)>& arrange) {
        shoot(
            folder, u"search-"_s + name, [] { return std::make_unique<SearchablePanel>(); },
            [&](QWidget& widget) {
                auto& panel = static_cast<SearchablePanel&>(widget);
                panel.view().setSystemScheme(Appearance::of(&panel));
                arrange(panel);
            });
    };
    const auto shootText = [&](const QString& name, const QString& text) {
        shootState(name, [&text](SearchablePanel& panel) { panel.type(text); });
    };
    shootText(u"palette"_s, u"brand"_s);
    shootText(u"nothing"_s, u"nothing like that"_s);
    shootText(u"color"_s, u"blue"_s);
    shootText(u"mapped"_s, u"color(display-p3 0 1 0)"_s);
    shootText(u"several"_s, u"tomato, gold, rgb(59 130 246 / 50%), teal-500, Sky: #38bdf8, navy"_s);
    shootState(u"result"_s, [](SearchablePanel& panel) {
        panel.type(u"brand"_s);
        panel.press(Qt::Key_Down);
    });
    shootState(u"similar"_s, [](SearchablePanel& panel) {
        PanelNavigation::of(&panel.view())->openSimilar(panel.state().history().first());
    });
    shootState(u"pasted"_s, [](SearchablePanel& panel) {
        QGuiApplication::clipboard()->setText(u"color(display-p3 0 1 0)\noklch(0.7 0.4 150)\nSky: #38BDF8"_s);
        panel.press(Qt::Key_V, Qt::ControlModifier);
    });
}

} // namespace tintwick
