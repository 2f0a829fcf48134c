#include "OpenSaveRequests.h"

namespace tintwick {

OpenSaveRequests& OpenSaveRequests::shared()
{
    static OpenSaveRequests requests;
    return requests;
}

void OpenSaveRequests::add()
{
    ++m_count;
    if (m_count == 1) {
        Q_EMIT anyChanged(true);
    }
}

void OpenSaveRequests::remove()
{
    --m_count;
    if (m_count == 0) {
        Q_EMIT anyChanged(false);
    }
}

} // namespace tintwick
