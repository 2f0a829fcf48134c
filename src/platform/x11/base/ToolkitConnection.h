#pragma once

#include <memory>

class QWindow;
struct xcb_connection_t;

namespace tintwick::toolkit {

/// The connection on which the toolkit shows our other windows; none before the application object exists.
[[nodiscard]] xcb_connection_t* connection();

/// Returns once the server has carried out all the toolkit asked for, such as hiding a menu or giving back its grabs.
void sync();

/// Lets the toolkit know the server's time. It knows only the time of the last event that came to its own windows, and
/// the server refuses a clipboard that is set with an older time than another program's.
class Clock final
{
public:
    Clock();
    ~Clock();
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;

    void bringUpToDate();

private:
    // Never shown; made when first needed.
    std::unique_ptr<QWindow> m_window;
};

} // namespace tintwick::toolkit
