#pragma once

#include "Payload.h"

#include <QUndoCommand>

#include <functional>
#include <utility>

namespace tintwick {

/// A change by the user that can be undone: the data before and after it.
class PayloadChange final : public QUndoCommand
{
public:
    /// Applies the difference between two payloads to the present data, which may have changed otherwise since.
    using Apply = std::function<void(const Payload& from, const Payload& to)>;

    /// `what` is for the user, for example "Removed Sky".
    PayloadChange(const QString& what, Payload before, Payload after, Apply apply)
        : QUndoCommand(what)
        , m_before(std::move(before))
        , m_after(std::move(after))
        , m_apply(std::move(apply))
    {
    }

    void undo() override { m_apply(m_after, m_before); }
    void redo() override { m_apply(m_before, m_after); }

private:
    Payload m_before;
    Payload m_after;
    Apply m_apply;
};

} // namespace tintwick
