#pragma once

#include "support/wayland/OutputCapture.h"
#include "support/wayland/VirtualInput.h"
#include "support/wayland/WaylandDesktop.h"

#include <QTemporaryDir>

#include <memory>

namespace tintwick {

/// A headless sway.
class SwayDesktop final : public WaylandDesktop
{
public:
    /// Returns when the compositor and its outputs are ready; throws std::runtime_error otherwise.
    explicit SwayDesktop(const Options& options);
    ~SwayDesktop() override;

    void setButton(std::uint32_t button, bool isDown) override { m_input->setButton(button, isDown); }
    void setKey(std::uint32_t key, bool isDown) override { m_input->setKey(key, isDown); }
    void scroll(int notches) override { m_input->scroll(notches); }
    [[nodiscard]] QImage screenshot(std::size_t index) override { return m_capture->picture(output(index)); }
    void endCompositor() override;

    /// Changes the outputs, with the compositor's own commands ("output HEADLESS-2 disable").
    void command(const QString& text);
    /// The name of an output in these commands.
    [[nodiscard]] QString outputName(std::size_t index) { return QString::fromUtf8(output(index).name); }

protected:
    void movePointerTo(QPointF position) override { m_input->movePointer(position, desktop()); }

private:
    void startCompositor(const Options& options);

    /// Belongs to the user of the compositor, which does not run as root.
    QTemporaryDir m_runtimeFolder;
    std::unique_ptr<RunningProgram> m_compositor;
    std::unique_ptr<VirtualInput> m_input;
    std::unique_ptr<OutputCapture> m_capture;
};

} // namespace tintwick
