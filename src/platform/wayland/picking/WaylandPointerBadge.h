#pragma once

#include "PointerBadge.h"
#include "WaylandPickingParts.h"

#include <memory>
#include <vector>

namespace tintwick {

/// The badge on a compositor that does not say where the pointer is: a fixed badge is where the last pick was, one that
/// follows the pointer is at the bottom of each output.
class WaylandPointerBadge final : public PointerBadge
{
public:
    /// Usable only where there is a layer shell. The parts must outlive this object.
    explicit WaylandPointerBadge(WaylandPickingParts& parts);
    ~WaylandPointerBadge() override;
    WaylandPointerBadge(const WaylandPointerBadge&) = delete;
    WaylandPointerBadge& operator=(const WaylandPointerBadge&) = delete;

    void show(const Draw& draw, Place place) override;
    void hide() override;

private:
    class Sign;

    WaylandPickingParts& m_parts;
    std::vector<std::unique_ptr<Sign>> m_signs;
    Place m_place = Place::Fixed;
    QMetaObject::Connection m_removal;
};

} // namespace tintwick
