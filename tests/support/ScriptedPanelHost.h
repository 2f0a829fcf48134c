#pragma once

#include "PanelHost.h"

namespace tintwick::test {

/// A desktop with or without a compositor that counts how often the panel was made ready.
class ScriptedPanelHost final : public PanelHost
{
public:
    bool blends = true;
    int timesPrepared = 0;

    void prepareToShow(QWindow&) override { ++timesPrepared; }
    void showShadow(const QWindow&, const QImage&, const QMargins&) override {}
    void hideShadow() override {}
    [[nodiscard]] bool blendsWindows() const override { return blends; }
};

} // namespace tintwick::test
