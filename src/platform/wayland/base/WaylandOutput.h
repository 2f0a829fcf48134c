#pragma once

#include "WaylandHandle.h"

#include <QRect>
#include <QSize>
#include <QString>

#include <cstdint>

struct zxdg_output_manager_v1;
struct zxdg_output_v1;

namespace tintwick {

/// A monitor of the compositor. The values are complete after a round trip.
class WaylandOutput final
{
public:
    WaylandOutput(WlOutput output, std::uint32_t globalName);
    ~WaylandOutput();
    WaylandOutput(const WaylandOutput&) = delete;
    WaylandOutput& operator=(const WaylandOutput&) = delete;

    /// Asks for the place on the desktop; further calls do nothing.
    void describe(zxdg_output_manager_v1& manager);

    [[nodiscard]] wl_output* get() const { return m_output.get(); }
    /// The number by which the registry names it, for as long as it is there.
    [[nodiscard]] std::uint32_t globalName() const { return m_globalName; }
    /// The name of the connector, such as "DP-1"; empty when the compositor does not report it.
    [[nodiscard]] const QString& name() const { return m_name; }
    /// A wl_output_transform: how the content of the desktop is turned on the monitor.
    [[nodiscard]] int transform() const { return m_transform; }
    /// The pixels of the monitor as the user sees them, after the transform.
    [[nodiscard]] QSize pixels() const;
    /// The place on the desktop in logical units, which the scale turns into pixels.
    [[nodiscard]] QRect logical() const;

private:
    WlOutput m_output;
    zxdg_output_v1* m_description = nullptr;
    std::uint32_t m_globalName;
    QString m_name;
    int m_transform = WL_OUTPUT_TRANSFORM_NORMAL;
    int m_integerScale = 1;
    QSize m_mode;
    QPoint m_position;
    QRect m_logical;
};

} // namespace tintwick
