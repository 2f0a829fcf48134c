#include "PeerTiming.h"

#include "Measuring.h"

#include "support/WaitUntil.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace tintwick {

bool ownsViewableWindow(PrivateDesktop& desktop, qint64 process, const QByteArray& windowClass)
{
    DesktopConnection& connection = desktop.connection();
    const auto windows = connection.tree(connection.root());
    return std::any_of(windows.begin(), windows.end(), [&](xcb_window_t window) {
        const QByteArray owner = connection.property(window, "_NET_WM_PID");
        quint32 number = 0;
        std::copy_n(owner.constData(),
                    std::min<std::size_t>(sizeof number, static_cast<std::size_t>(owner.size())),
                    reinterpret_cast<char*>(&number));
        const bool isTheirs =
            number == process || connection.property(window, "WM_CLASS").toLower().contains(windowClass);
        return isTheirs && connection.geometry(window).width() > 1 && connection.isViewable(window);
    });
}

double startTime(PrivateDesktop& desktop, const QString& program, const QStringList& arguments)
{
    std::vector<double> times;
    for (int i = 0; i < 5; ++i) {
        const auto start = Clock::now();
        const auto process = desktop.start(program, arguments);
        const QByteArray windowClass = program.toUtf8();
        require(waitUntil([&] { return ownsViewableWindow(desktop, process->processId(), windowClass); },
                          std::chrono::seconds(20)),
                "a peer shows no window");
        times.push_back(millisecondsSince(start));
    }
    return median(times);
}

} // namespace tintwick
