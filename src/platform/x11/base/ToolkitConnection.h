#pragma once

#include <memory>

class QWindow;
struct xcb_connection_t;

namespace tintwick::toolkit {

/// The connection on which the toolkit shows our other windows; none before the application object exists.
[[nodiscard]] xcb_connection_t* connection();

/// Returns once the server has processed all requests of the toolkit, such as hiding a menu or releasing its grabs.
void sync();

/// Updates the toolkit's timestamp to the server's time. The toolkit has only the time of the last event of its own
/// windows, and the server rejects a clipboard owner whose time is older than the current owner's.
class Clock final
{
public:
    Clock();
    ~Clock();
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;

    void bringUpToDate();

private:
    // Never mapped; created on first use.
    std::unique_ptr<QWindow> m_window;
};

} // namespace tintwick::toolkit
