#include "StatusNotifierItem.h"

#include "NotifierTypes.h"

#include <QCoreApplication>
#include <QDBusAbstractAdaptor>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr int patience = 2000; // milliseconds

constexpr auto watcherService = "org.kde.StatusNotifierWatcher"_L1;
constexpr auto watcherPath = "/StatusNotifierWatcher"_L1;
constexpr auto itemPath = "/StatusNotifierItem"_L1;
constexpr auto menuPath = "/MenuBar"_L1;

} // namespace

/// org.kde.StatusNotifierItem, which hosts call.
class StatusNotifierItemAdaptor final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category)
    Q_PROPERTY(QString Id READ id)
    Q_PROPERTY(QString Title READ title)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(int WindowId READ windowId)
    Q_PROPERTY(QString IconName READ iconName)
    Q_PROPERTY(QList<tintwick::NotifierPicture> IconPixmap READ iconPixmap)
    Q_PROPERTY(tintwick::NotifierToolTip ToolTip READ toolTip)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu)
    Q_PROPERTY(QDBusObjectPath Menu READ menu)

public:
    explicit StatusNotifierItemAdaptor(StatusNotifierItem* item)
        : QDBusAbstractAdaptor(item)
        , m_item(*item)
    {
        connect(item, &StatusNotifierItem::iconChanged, this, &StatusNotifierItemAdaptor::NewIcon);
    }

    [[nodiscard]] QString category() const { return u"ApplicationStatus"_s; }
    [[nodiscard]] QString id() const { return QCoreApplication::applicationName(); }
    [[nodiscard]] QString title() const { return m_item.title(); }
    [[nodiscard]] QString status() const { return u"Active"_s; }
    [[nodiscard]] int windowId() const { return 0; }
    [[nodiscard]] QString iconName() const { return m_item.icon().name(); }
    [[nodiscard]] QList<NotifierPicture> iconPixmap() const { return picturesOf(m_item.icon()); }
    [[nodiscard]] NotifierToolTip toolTip() const { return {{}, {}, m_item.title(), {}}; }
    [[nodiscard]] bool itemIsMenu() const { return false; }
    [[nodiscard]] QDBusObjectPath menu() const { return QDBusObjectPath(menuPath); }

public Q_SLOTS:
    void Activate(int x, int y) { m_item.takeClick({x, y}); }
    void SecondaryActivate(int, int) {}
    void ContextMenu(int, int) { Q_EMIT m_item.menuRequested(); }
    void Scroll(int, const QString&) {}

Q_SIGNALS:
    void NewIcon();

private:
    StatusNotifierItem& m_item;
};

StatusNotifierItem::StatusNotifierItem(QString title, QObject* parent)
    : QObject(parent)
    , m_title(std::move(title))
    , m_bus(QDBusConnection::sessionBus())
{
    registerNotifierTypes();
    new StatusNotifierItemAdaptor(this);
}

void StatusNotifierItem::start()
{
    if (!m_bus.isConnected()) {
        Q_EMIT hostChanged();
        return;
    }
    m_bus.registerObject(itemPath, this);
    m_bus.registerObject(menuPath, &m_menu);
    auto* watcher =
        new QDBusServiceWatcher(watcherService, m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, [this] {
        m_isRegistered = false;
        askForHost();
    });
    // With the name of the service, connect() would wait for the bus.
    for (const QString& signal : {u"StatusNotifierHostRegistered"_s, u"StatusNotifierHostUnregistered"_s}) {
        m_bus.connect({}, watcherPath, watcherService, signal, this, SLOT(askForHost()));
    }
    askForHost();
}

void StatusNotifierItem::setIcon(const QIcon& icon)
{
    m_icon = icon;
    Q_EMIT iconChanged();
}

void StatusNotifierItem::takeClick(QPoint place)
{
    // Hosts that do not know the place report zeros.
    m_lastClick = place.isNull() ? std::nullopt : std::optional(place);
    Q_EMIT activated();
}

void StatusNotifierItem::askForHost()
{
    QDBusMessage call = QDBusMessage::createMethodCall(watcherService, watcherPath,
                                                       u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    call << watcherService << u"IsStatusNotifierHostRegistered"_s;
    call.setAutoStartService(false);
    auto* answer = new QDBusPendingCallWatcher(m_bus.asyncCall(call, patience), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, question = ++m_question] {
        answer->deleteLater();
        if (question != m_question) {
            return;
        }
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        // A watcher that does not answer is there all the same.
        const bool hasHost = reply.isError() ? reply.error().type() == QDBusError::NoReply ||
                                                   reply.error().type() == QDBusError::Timeout
                                             : reply.value().variant().toBool();
        if (hasHost && !m_isRegistered) {
            registerWithWatcher();
        }
        setHasHost(hasHost);
    });
}

void StatusNotifierItem::registerWithWatcher()
{
    m_isRegistered = true;
    QDBusMessage call = QDBusMessage::createMethodCall(watcherService, watcherPath, watcherService,
                                                       u"RegisterStatusNotifierItem"_s);
    call << m_bus.baseService();
    call.setAutoStartService(false);
    m_bus.asyncCall(call);
}

void StatusNotifierItem::setHasHost(bool hasHost)
{
    m_hasHost = hasHost;
    Q_EMIT hostChanged();
}

} // namespace tintwick

#include "StatusNotifierItem.moc"
