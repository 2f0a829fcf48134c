#pragma once

#include "PickRequest.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>
#include <QStringList>

#include <optional>

namespace tintwick {

/// The Tintwick that runs in this session, seen from another process. Needs an application object.
class RunningInstance final
{
public:
    enum class Start {
        /// A call that nobody can receive fails.
        Never,
        /// The bus starts the program if it is installed.
        IfNeeded
    };

    RunningInstance();

    /// Whether a program owns the name. False without a session bus.
    [[nodiscard]] bool isThere() const;

    /// Opens its panel. Returns false when the program did not answer.
    [[nodiscard]] bool activate(Start start = Start::Never) const;
    /// Runs "pick", "settings" or "quit". Returns false when the program did not answer.
    [[nodiscard]] bool activateAction(const QString& name, Start start = Start::Never) const;
    /// Opens local files, which are imported. Returns false when the program did not answer.
    [[nodiscard]] bool open(const QStringList& paths) const;
    /// Picks colours and waits for the user. Nothing when no program runs.
    [[nodiscard]] std::optional<PickAnswer> pick(const PickRequest& request) const;

private:
    [[nodiscard]] QDBusMessage call(const QString& interface, const QString& method, Start start) const;

    QDBusConnection m_bus;
};

} // namespace tintwick
