#include "TrayIcon.h"

#include "Appearance.h"
#include "ContextMenu.h"
#include "Symbol.h"
#include "ToolTip.h"
#include "WantedPick.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QHelpEvent>
#include <QIcon>
#include <QIconEngine>
#include <QKeyEvent>
#include <QMetaObject>
#include <QMouseEvent>
#include <QPixmap>
#include <QWidget>
#include <QWindow>

#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

// Most trays do not report their colours. This grey has a contrast of 4.5 to 1 on white and on black.
constexpr QColor tint(0x76, 0x76, 0x76);

/// Pictures with the name of the installed symbol, which trays that draw the icon themselves prefer and tint.
class NamedIcon final : public QIconEngine
{
public:
    NamedIcon(QIcon pictures, QString name)
        : m_pictures(std::move(pictures))
        , m_name(std::move(name))
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        m_pictures.paint(painter, rect, Qt::AlignCenter, mode, state);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        return m_pictures.pixmap(size, mode, state);
    }
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override
    {
        return m_pictures.availableSizes(mode, state);
    }
    [[nodiscard]] QIconEngine* clone() const override { return new NamedIcon(m_pictures, m_name); }
    QString iconName() override { return m_name; }

private:
    QIcon m_pictures;
    QString m_name;
};

QIcon trayIcon(const QColor& color)
{
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 44, 48}) {
        icon.addPixmap(symbolPixmapOfSide(u"eyedropper-filled", side, color));
    }
    // Some trays show nothing for a name that they do not find, so only an installed symbol is named.
    const QString name = u"org.tintwick.Tintwick-symbolic"_s;
    return QIcon::hasThemeIcon(name) ? QIcon(new NamedIcon(icon, name)) : icon;
}

bool isWayland()
{
    return QGuiApplication::platformName().startsWith("wayland"_L1);
}

} // namespace

TrayIcon::TrayIcon(QObject* parent)
    : QObject(parent)
    , m_open(tr("Open Tintwick"))
    , m_item(u"Tintwick"_s)
{
    m_pick = m_menu.addAction(QString());
    setPickKeys({}, {});
    connect(m_pick, &QAction::triggered, this, [this] { Q_EMIT pickRequested(std::chrono::seconds(0)); });
    for (const std::chrono::seconds delay : offeredPickDelays) {
        QAction* later = m_menu.addAction(tr("Pick in %1 s").arg(delay.count()));
        connect(later, &QAction::triggered, this, [this, delay] { Q_EMIT pickRequested(delay); });
    }
    m_menu.addSeparator();
    m_settings = m_menu.addAction(tr("Settings…"));
    m_settings->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
    connect(m_settings, &QAction::triggered, this, &TrayIcon::settingsRequested);
    m_menu.addSeparator();
    m_quit = m_menu.addAction(tr("Quit Tintwick"));
    m_quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(m_quit, &QAction::triggered, this, &TrayIcon::quitRequested);

    // Compositors tell it from the panel by its title.
    m_menu.setWindowTitle(tr("Tintwick Menu"));
    styleMenu(m_menu);
    setMenuScheme(Scheme::Light);
    connect(&m_menu, &QMenu::aboutToShow, this, &TrayIcon::menuAboutToShow);
    m_menu.installEventFilter(this);

    m_item.setIcon(trayIcon(tint));
    connect(&m_item, &StatusNotifierItem::hostChanged, this, &TrayIcon::changeTray);
    connect(&m_item, &StatusNotifierItem::activated, this, &TrayIcon::clicked);
    connect(&m_item, &StatusNotifierItem::menuRequested, this, &TrayIcon::popUpMenu);
    connect(&m_open, &QAction::triggered, this, &TrayIcon::panelRequested);
    m_separator.setSeparator(true);
    m_item.setMenu(QList{&m_open, &m_separator} + m_menu.actions());
}

void TrayIcon::popUpMenu()
{
    if (isWayland()) {
        // A menu that no window of ours has opened is an ordinary window there. Tiling compositors let one float whose
        // size cannot change.
        m_menu.setFixedSize(m_menu.sizeHint());
    }
    m_menu.popup(QCursor::pos());
}

void TrayIcon::changeTray()
{
    // A Wayland desktop has no tray that embeds windows.
    if (!m_item.hasHost() && !m_embedded && !isWayland()) {
        embed();
    } else if (m_embedded) {
        m_embedded->setVisible(!m_item.hasHost());
    }
}

void TrayIcon::embed()
{
    m_embedded = std::make_unique<QSystemTrayIcon>(icon());
    m_embedded->setToolTip(m_item.title());
    m_embedded->setContextMenu(&m_menu);
    connect(m_embedded.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                watchIconWindow();
                // The second of two quick clicks arrives as a double click.
                if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick) {
                    Q_EMIT clicked();
                }
            });
    m_embedded->show();
}

void TrayIcon::setIcon(const QIcon& icon)
{
    m_item.setIcon(icon);
    if (m_embedded) {
        m_embedded->setIcon(icon);
    }
}

bool TrayIcon::hasTray() const
{
    return m_item.hasHost() ||
           (m_embedded && m_embedded->isVisible() && QSystemTrayIcon::isSystemTrayAvailable());
}

void TrayIcon::showMessage(const QString& title, const QString& text)
{
    if (m_embedded) {
        m_embedded->showMessage(title, text, icon());
    }
}

void TrayIcon::setSymbolColor(const std::optional<QColor>& color)
{
    setIcon(trayIcon(color.value_or(tint)));
}

// The toolkit does not tell when it makes the window of the icon, but reports the first click on it.
void TrayIcon::watchIconWindow()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->inherits("QSystemTrayIconSys")) {
            window->installEventFilter(this);
        }
    }
}

bool TrayIcon::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &m_menu) {
        return handleMenuEvent(*event);
    }
    // The toolkit opens the menu at a press only, and the second of two quick presses is none to it.
    if (event->type() == QEvent::MouseButtonDblClick) {
        const auto& mouse = static_cast<QMouseEvent&>(*event);
        if (mouse.button() == Qt::RightButton) {
            m_menu.popup(mouse.globalPosition().toPoint());
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

bool TrayIcon::handleMenuEvent(QEvent& event)
{
    switch (event.type()) {
    case QEvent::ToolTip:
        // Not the tool tip of the item, which the toolkit would show in its own style.
        if (const auto& help = static_cast<QHelpEvent&>(event); m_menu.actionAt(help.pos()) == m_pick) {
            showToolTip(m_menu, help.globalPos());
        }
        return true;
    case QEvent::Show:
        // The toolkit grabs no input when another client holds the keyboard, for example the holder of a pressed
        // shortcut. The menu needs the pointer to close at a click elsewhere. Queued, because it is not mapped yet.
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (m_menu.isVisible()) {
                    m_menu.windowHandle()->setMouseGrabEnabled(true);
                }
            },
            Qt::QueuedConnection);
        return false;
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress: {
        // A menu does not react to the shortcuts of its own actions.
        const auto& key = static_cast<QKeyEvent&>(event);
        for (QAction* action : {m_settings, m_quit}) {
            if (action->shortcut() != QKeySequence(key.keyCombination())) {
                continue;
            }
            event.accept();
            if (event.type() == QEvent::KeyPress) {
                m_menu.close();
                action->trigger();
            }
            return true;
        }
        return false;
    }
    default:
        return false;
    }
}

void TrayIcon::setMenuScheme(Scheme scheme)
{
    m_menu.setPalette(Appearance::palette(scheme));
}

void TrayIcon::setPickKeys(const QString& keys, const QString& inWords)
{
    const QString title = tr("Pick Color");
    // An ampersand would mark the key that chooses the item.
    m_pick->setText(keys.isEmpty() ? title : u"%1 (%2)"_s.arg(title, keys).replace(u'&', u"&&"_s));
    m_menu.setToolTip(inWords == keys ? QString() : inWords);
}

std::optional<QRect> TrayIcon::frame() const
{
    if (const auto click = m_item.lastClick(); click && isWayland()) {
        return QRect(*click, QSize(1, 1));
    }
    const QRect frame = m_embedded ? m_embedded->geometry() : QRect();
    return frame.isEmpty() ? std::nullopt : std::optional(frame);
}

} // namespace tintwick
