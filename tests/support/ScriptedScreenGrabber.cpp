#include "support/ScriptedScreenGrabber.h"

namespace tintwick::test {

void ScriptedScreenGrabber::reportChange(const DesktopRect& rect) const
{
    if (m_contentChanged) {
        m_contentChanged(rect);
    }
}

void ScriptedScreenGrabber::beginSession(ContentChanged contentChanged)
{
    m_journal << QStringLiteral("begin session");
    m_contentChanged = std::move(contentChanged);
}

void ScriptedScreenGrabber::endSession()
{
    m_journal << QStringLiteral("end session");
    m_contentChanged = nullptr;
}

std::optional<ScreenImage> ScriptedScreenGrabber::grab(const DesktopRect& rect, SurfaceId below)
{
    m_journal << QStringLiteral("grab below %1").arg(below);
    grabs.push_back({rect, below});
    return answer ? answer(rect) : std::nullopt;
}

} // namespace tintwick::test
