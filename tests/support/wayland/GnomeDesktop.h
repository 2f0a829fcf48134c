#pragma once

#include "support/wayland/WaylandDesktop.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QPointF>
#include <QString>
#include <QVariantList>

#include <memory>
#include <vector>

namespace tintwick {

/// A headless GNOME Shell with its portals. Outside of the fractional mode, which any scale but 1 and 2 needs, the logical
/// units of the desktop are physical pixels.
class GnomeDesktop final : public WaylandDesktop
{
public:
    /// What the user has answered when the portal asked whether programs may take screenshots.
    enum class Screenshots : std::uint8_t { NotAsked, Allowed, Denied };

    struct GnomeOptions
    {
        std::vector<Output> outputs{Output{}};
        Screenshots screenshots = Screenshots::Allowed;
    };

    /// Returns when the compositor and its outputs are ready; throws std::runtime_error otherwise.
    explicit GnomeDesktop(const GnomeOptions& options);
    ~GnomeDesktop() override;

    void setButton(std::uint32_t button, bool isDown) override;
    void setKey(std::uint32_t key, bool isDown) override;
    void scroll(int notches) override;
    [[nodiscard]] double outputScale(std::size_t index) override { return m_scales.at(index); }
    [[nodiscard]] QImage screenshot(std::size_t index) override;
    [[nodiscard]] qint64 compositorId() const override { return m_compositor->processId(); }
    void endCompositor() override { m_compositor->kill(); }

protected:
    void movePointerTo(QPointF position) override;

private:
    void startSystemBus();
    void writeConfiguration(const std::vector<Output>& outputs);
    void startCompositor(const std::vector<Output>& outputs);
    void leaveOverview();
    void arrangeOutputs(const std::vector<Output>& outputs);
    void startInput();
    void allowScreenshots(Screenshots answer);

    QDBusMessage call(const QString& service, const QString& path, const QString& method,
                      const QVariantList& arguments = {});
    /// The top left one of the desktop.
    void movePointerToCorner();
    void moveDown(double distance);
    [[nodiscard]] double pointerSpeed(double x);
    /// The steps from the left edge of the desktop to this position.
    [[nodiscard]] double stepsTo(double x);
    void sendInput(const QString& method, const QVariantList& arguments);

    QString m_busName;
    std::unique_ptr<RunningProgram> m_systemBus;
    std::unique_ptr<RunningProgram> m_compositor;
    QString m_inputSession;
    std::vector<double> m_scales;
    /// How far the pointer goes on each output in one step of a relative motion, in logical units of the desktop.
    std::vector<double> m_speeds;
    /// Units of the desktop in one unit of the shell's own interfaces.
    int m_shellScale = 1;
};

} // namespace tintwick
