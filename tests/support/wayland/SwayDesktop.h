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
    /// Returns when the compositor and its outputs are ready; throws std::runtime_error otherwise. If there is an outer
    /// desktop, the last output is a window of it, which can be closed: headless outputs cannot be removed. The outer
    /// desktop must outlive the inner one.
    explicit SwayDesktop(const Options& options, SwayDesktop* outer = nullptr);
    ~SwayDesktop() override;

    void setButton(std::uint32_t button, bool isDown) override { m_input->setButton(button, isDown); }
    void setKey(std::uint32_t key, bool isDown) override { m_input->setKey(key, isDown); }
    void scroll(int notches) override { m_input->scroll(notches); }
    [[nodiscard]] QImage screenshot(std::size_t index) override;
    [[nodiscard]] OutputCapture& capture() { return *m_capture; }
    using WaylandDesktop::output;
    void endCompositor() override;
    [[nodiscard]] qint64 compositorId() const override { return m_compositor->processId(); }

    /// Carries out a command of sway ("create_output").
    void command(const QString& text);
    /// Removes the output that is a window of the outer desktop.
    void closeWindowOutput() { m_outer->command(QStringLiteral("kill")); }

protected:
    void movePointerTo(QPointF position) override { m_input->movePointer(position, desktop()); }

private:
    void startCompositor(const Options& options);
    [[nodiscard]] bool hasOutputs(const std::vector<Output>& wanted);

    SwayDesktop* m_outer;

    /// Belongs to the user of the compositor, which does not run as root.
    QTemporaryDir m_runtimeFolder;
    std::unique_ptr<RunningProgram> m_compositor;
    std::unique_ptr<VirtualInput> m_input;
    std::unique_ptr<OutputCapture> m_capture;
};

} // namespace tintwick
