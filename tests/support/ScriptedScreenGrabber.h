#pragma once

#include "ScreenGrabber.h"

#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace tintwick::test {

/// Answers captures from a picture that the test makes up, and keeps a record of what was asked.
class ScriptedScreenGrabber final : public ScreenGrabber
{
public:
    using Answer = std::function<std::optional<ScreenImage>(const DesktopRect&)>;

    struct Grab
    {
        DesktopRect rect;
        SurfaceId below = 0;
        friend bool operator==(const Grab&, const Grab&) = default;
    };

    explicit ScriptedScreenGrabber(QStringList& journal)
        : m_journal(journal)
    {
    }

    bool isPermitted = true;
    QUrl settings;
    std::vector<Screen> monitors{{{0, 0, 1920, 1080}, 1}};
    Answer answer;
    std::vector<Grab> grabs;

    /// Tells the session that pixels have changed; nobody hears it outside a session.
    void reportChange(const DesktopRect& rect) const;

    [[nodiscard]] bool captureIsPermitted() const override { return isPermitted; }
    [[nodiscard]] QUrl permissionSettings() const override { return settings; }
    [[nodiscard]] std::vector<Screen> screens() const override { return monitors; }
    void beginSession(ContentChanged contentChanged) override;
    void endSession() override;
    [[nodiscard]] std::optional<ScreenImage> grab(const DesktopRect& rect, SurfaceId below) override;

private:
    QStringList& m_journal;
    ContentChanged m_contentChanged;
};

} // namespace tintwick::test
