#pragma once

#include "ActionPill.h"
#include "AppState.h"
#include "DashboardView.h"
#include "PanelView.h"
#include "Preferences.h"
#include "Ticker.h"
#include "ui/Probes.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

#include <functional>
#include <memory>

namespace tintwick::test {

/// The panel with an empty state, in light appearance, with animations advanced by hand.
class PanelFixture
{
public:
    PanelFixture()
        : state([this](std::chrono::milliseconds, std::function<void()> action) {
            m_later = std::move(action);
        })
    {
        Ticker::shared().setMode(Ticker::Mode::ByHand);
        state.setDefaultFormat(ColorFormat::Hex6);
        state.clearHistory();
        while (!state.collections().isEmpty()) {
            state.deleteCollection(state.collections().first().id);
        }
        view = std::make_unique<PanelView>(state, preferences, [](QWidget&) { return new QWidget; });
        view->setSystemScheme(Scheme::Light);
        view->show();
        view->activateWindow();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    }

    [[nodiscard]] DashboardView& dashboard() const { return view->dashboard(); }

    /// Adds a colour, for example 0x3B82F6, to the history and returns it.
    CapturedColor capture(unsigned rgb, double alpha = 1)
    {
        state.colorCaptured(CapturedColor::capture(
            ((rgb >> 16U) & 0xffU) / 255.0, ((rgb >> 8U) & 0xffU) / 255.0, (rgb & 0xffU) / 255.0, alpha));
        return state.history().first();
    }

    /// Ends the feedback of the newest copy, as the timer does.
    void letFeedbackEnd() const
    {
        if (m_later) {
            m_later();
        }
    }

    /// Ends the time for which the last change is offered for undo.
    void letOfferEnd() const
    {
        view->findChild<ActionPill*>()->findChild<QTimer*>()->start(0);
        settle();
        settle();
    }

    /// Finishes animations and layout.
    void settle() const { test::settle(); }

    [[nodiscard]] QImage picture() const
    {
        settle();
        return view->grab().toImage();
    }

private:
    // Declared first, because the state uses it.
    std::function<void()> m_later;

public:
    AppState state;
    Preferences preferences;
    std::unique_ptr<PanelView> view;
};

} // namespace tintwick::test
