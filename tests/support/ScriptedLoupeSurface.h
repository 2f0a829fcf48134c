#pragma once

#include "LoupeSurface.h"

#include <QImage>
#include <QStringList>

#include <vector>

namespace tintwick::test {

/// Keeps every frame that was shown, in a record that outlives it.
class ScriptedLoupeSurface final : public LoupeSurface
{
public:
    struct Frame
    {
        QImage picture;
        DesktopPoint topLeft;
    };

    ScriptedLoupeSurface(SurfaceId id, QStringList& journal, std::vector<Frame>& frames);
    ~ScriptedLoupeSurface() override;

    [[nodiscard]] SurfaceId id() const override { return m_id; }
    void present(const QImage& picture, DesktopPoint topLeft) override;

private:
    SurfaceId m_id;
    QStringList& m_journal;
    std::vector<Frame>& m_frames;
};

} // namespace tintwick::test
