#include "support/ScriptedLoupeSurface.h"

namespace tintwick::test {

ScriptedLoupeSurface::ScriptedLoupeSurface(SurfaceId id, QStringList& journal, std::vector<Frame>& frames)
    : m_id(id)
    , m_journal(journal)
    , m_frames(frames)
{
    m_journal << QStringLiteral("create loupe %1").arg(id);
}

ScriptedLoupeSurface::~ScriptedLoupeSurface()
{
    m_journal << QStringLiteral("remove loupe %1").arg(m_id);
}

void ScriptedLoupeSurface::present(const QImage& picture, DesktopPoint topLeft)
{
    m_journal << QStringLiteral("show loupe");
    // The painter reuses its image, so the record needs pixels of its own.
    m_frames.push_back({picture.copy(), topLeft});
}

} // namespace tintwick::test
