#include "app/StatusItem.h"

#include <QAction>
#include <QCursor>
#include <QIcon>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

QPixmap tintedSymbol(QSvgRenderer& symbol, int side, const QColor& tint)
{
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    symbol.render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), tint);
    return pixmap;
}

// A tray does not tell its colour: a light glyph with a dark rim reads on light and dark ones.
QPixmap rimmedSymbol(QSvgRenderer& symbol, int side)
{
    const QPixmap rim = tintedSymbol(symbol, side, QColor(0, 0, 0, 110));
    const QPixmap glyph = tintedSymbol(symbol, side, QColor(250, 250, 250));
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    for (int y = -1; y <= 1; ++y) {
        for (int x = -1; x <= 1; ++x) {
            painter.drawPixmap(x, y, rim);
        }
    }
    painter.drawPixmap(0, 0, glyph);
    return pixmap;
}

QIcon statusIcon()
{
    QSvgRenderer symbol(u":/symbols/eyedropper.halffull.svg"_s);
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 44, 48}) {
        icon.addPixmap(rimmedSymbol(symbol, side));
    }
    return icon;
}

} // namespace

StatusItem::StatusItem(QObject* parent)
    : QObject(parent)
    , m_icon(statusIcon())
{
    QAction* pick = m_menu.addAction(tr("Pick Color (⌥⇧C)"));
    connect(pick, &QAction::triggered, this, &StatusItem::pickRequested);
    m_menu.addSeparator();
    QAction* quit = m_menu.addAction(tr("Quit Tintwick"));
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(quit, &QAction::triggered, this, &StatusItem::quitRequested);

    m_icon.setToolTip(u"Tintwick"_s);
    m_icon.setContextMenu(&m_menu);
    connect(&m_icon, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger) {
            m_menu.popup(QCursor::pos());
        }
    });
}

} // namespace tintwick
