#include "PermissionStatus.h"

#include "Button.h"
#include "Label.h"
#include "Platform.h"
#include "Stack.h"
#include "SymbolView.h"
#include "Theme.h"

#include <functional>

namespace tintwick {

using namespace Qt::StringLiterals;

PermissionStatus::PermissionStatus(const Platform& platform)
    : m_platform(platform)
{
    ask();
}

void PermissionStatus::ask()
{
    const bool isPermitted = m_platform.capturePermission().isGranted;
    if (m_isPermitted != isPermitted) {
        m_isPermitted = isPermitted;
        setContent(isPermitted ? granted() : denied());
    }
}

QWidget* PermissionStatus::granted()
{
    return row(gap(6), symbol(u"check-circle"_s, 13, SymbolWeight::Regular, theme::green),
               label(tr("Granted"), theme::font(13)));
}

QWidget* PermissionStatus::denied()
{
    const std::function<void()> openSettings = m_platform.capturePermission().openSettings;
    if (!openSettings) {
        return label(tr("Not granted"), theme::font(13), theme::red);
    }
    return prominentButton(tr("Open System Settings"), openSettings);
}

void PermissionStatus::paintEvent(QPaintEvent*)
{
    if (m_isPermitted != m_platform.capturePermission().isGranted) {
        // Queued, because a view must not change its children while it paints.
        QMetaObject::invokeMethod(this, &PermissionStatus::ask, Qt::QueuedConnection);
    }
}

} // namespace tintwick
