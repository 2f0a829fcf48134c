#pragma once

#include "support/wayland/WaylandDesktop.h"

#include <QDBusConnection>
#include <QString>
#include <QStringList>

#include <fake-input-client-protocol.h>

#include <memory>
#include <vector>

namespace tintwick {

/// A headless KWin with a session bus.
class KWinDesktop final : public WaylandDesktop
{
public:
    struct KWinOptions
    {
        /// All of the same size.
        std::vector<Output> outputs{Output{}};
        /// Programs whose installed desktop entries allow them to take screenshots.
        QStringList mayTakeScreenshots;
    };

    /// Returns when the compositor and its outputs are ready; throws std::runtime_error otherwise.
    explicit KWinDesktop(const KWinOptions& options);
    ~KWinDesktop() override;

    void setButton(std::uint32_t button, bool isDown) override;
    void setKey(std::uint32_t key, bool isDown) override;
    void scroll(int notches) override;
    [[nodiscard]] QImage screenshot(std::size_t index) override;
    [[nodiscard]] qint64 compositorId() const override { return m_compositor->processId(); }
    void endCompositor() override { m_compositor->kill(); }

protected:
    void movePointerTo(QPointF position) override;

private:
    struct InputDeleter
    {
        void operator()(org_kde_kwin_fake_input* input) const { org_kde_kwin_fake_input_destroy(input); }
    };
    using Input = std::unique_ptr<org_kde_kwin_fake_input, InputDeleter>;

    void installEntries(const QStringList& programs);
    void writeConfiguration();
    void startCompositor(const KWinOptions& options);
    void arrangeOutputs(const std::vector<Output>& outputs);

    QString m_busName;
    std::unique_ptr<RunningProgram> m_compositor;
    Input m_input;
};

} // namespace tintwick
