#include "NullPlatform.h"

#include <QCoreApplication>
#include <QWidget>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

/// Refuses the pick from the event loop, as every backend reports.
class NullPickingSession final : public PickingSession
{
public:
    explicit NullPickingSession(Listener& listener)
    {
        QMetaObject::invokeMethod(
            &m_context,
            [&listener] {
                listener.refused(QCoreApplication::translate(
                    "NullPlatform",
                    "No color can be picked: this desktop does not show its screen to programs."));
            },
            Qt::QueuedConnection);
    }

    [[nodiscard]] const std::vector<Screen>& screens() const override { return m_screens; }
    [[nodiscard]] QImage grab(int, const QRect&) override { return {}; }
    [[nodiscard]] bool isFrozen() const override { return false; }
    void setFrozen(bool) override {}
    void retake() override {}
    void showLoupe(const QImage&, int, QPoint) override {}
    [[nodiscard]] std::optional<ScreenPosition> onScreen(const ScreenPosition&) const override
    {
        return std::nullopt;
    }
    bool warpPointer(const ScreenPosition&) override { return false; }
    [[nodiscard]] bool copyText(const QString&) override { return false; }
    void end() override { QCoreApplication::removePostedEvents(&m_context); }

private:
    std::vector<Screen> m_screens;
    /// Context of the queued refusal. Its destruction drops the refusal.
    QObject m_context;
};

} // namespace

void NullGlobalShortcuts::bind(const QString& id, const QString&, const std::optional<Shortcut>& preferred)
{
    if (preferred) {
        Q_EMIT refused(id, {ShortcutRefusal::Reason::Unsupported, u"unsupported"_s});
    }
}

void NullPanelHost::show(PanelWindow& panel, const PanelAnchor&)
{
    panel.setBlended(true);
    panel.widget().resize(panel.widget().sizeHint());
    showAgain(panel);
}

void NullPanelHost::showAgain(PanelWindow& panel)
{
    panel.widget().show();
    panel.widget().activateWindow();
}

std::unique_ptr<Platform> NullPlatform::connect(QString& whyNot)
{
    const QString toolkit = qEnvironmentVariable("QT_QPA_PLATFORM").section(u':', 0, 0);
    if (toolkit == "offscreen"_L1 || toolkit == "minimal"_L1) {
        return std::make_unique<NullPlatform>();
    }
    whyNot = u"Tintwick needs a desktop to pick colours from."_s;
    return nullptr;
}

std::unique_ptr<PickingSession> NullPlatform::startPick(PickingSession::Listener& listener)
{
    return std::make_unique<NullPickingSession>(listener);
}

} // namespace tintwick
