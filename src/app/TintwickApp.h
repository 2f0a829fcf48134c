#pragma once

#include "AppDelegate.h"

#include <QApplication>

#include <memory>

namespace tintwick {

/// The process: an application without a window of its own that lives until the user quits it.
class TintwickApp final
{
public:
    /// The platform comes first, because a desktop that cannot be served is refused before anything starts.
    TintwickApp(int& argc, char** argv, std::unique_ptr<Platform> platform);

    /// Runs until the user quits; returns the exit status.
    [[nodiscard]] int run();

private:
    QApplication m_application;
    std::unique_ptr<AppDelegate> m_appDelegate;
};

} // namespace tintwick
