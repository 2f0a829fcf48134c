#include "SettingsWindow.h"

#include "Theme.h"

#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace tintwick {

namespace {

constexpr int viewWidth = 320;
constexpr int margin = 40;

} // namespace

SettingsWindow::SettingsWindow(const Appearance& like)
    : m_appearance(*this, like.scheme())
{
    setWindowTitle(tr("Tintwick Settings"));
    auto* text = new QLabel(tr("Settings are available inside the Tintwick panel."));
    text->setFont(theme::font(13));
    text->setAlignment(Qt::AlignCenter);
    text->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addWidget(text);
    setFixedSize(viewWidth, layout->heightForWidth(viewWidth));
    connect(&like, &Appearance::schemeChanged, this,
            [this, &like] { m_appearance.setScheme(like.scheme()); });
}

void SettingsWindow::present()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void SettingsWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape || event->matches(QKeySequence::Close)) {
        close();
        return;
    }
    QWidget::keyPressEvent(event);
}

} // namespace tintwick
