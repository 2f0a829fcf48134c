#include "shots/Scene.h"

#include "AppState.h"
#include "Appearance.h"
#include "Paint.h"
#include "Theme.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDragEnterEvent>
#include <QHoverEvent>
#include <QImage>
#include <QMenu>
#include <QMimeData>
#include <QPainter>

#include <algorithm>

namespace tintwick {

namespace {

constexpr int headerHeight = 51;

class MenuPicture final : public QWidget
{
public:
    MenuPicture(QWidget& screen, QMenu& menu)
        : QWidget(&screen)
        , m_menu(menu)
    {
        setFixedSize(menu.size());
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        const double scale = devicePixelRatioOf(painter);
        QImage picture(size() * scale, QImage::Format_ARGB32_Premultiplied);
        picture.setDevicePixelRatio(scale);
        picture.fill(Qt::transparent);
        m_menu.render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
        painter.drawImage(0, 0, picture);
    }

private:
    QMenu& m_menu;
};

} // namespace

QList<QColor> manyColors(int count)
{
    QList<QColor> colors;
    for (int i = 0; i < count; ++i) {
        // Steps of the golden angle give neighbours different hues.
        colors.append(QColor::fromHsv((210 + i * 137) % 360, 150 + (i * 31) % 100, 150 + (i * 53) % 105));
    }
    return colors;
}

QList<QColor> translucentColors(int count)
{
    QList<QColor> colors = manyColors(count);
    for (int i = 0; i < count; ++i) {
        colors[i].setAlphaF(static_cast<float>(i) / static_cast<float>(count));
    }
    return colors;
}

void fill(AppState& state, const QList<QColor>& colors)
{
    state.clearHistory();
    while (!state.collections().isEmpty()) {
        state.deleteCollection(state.collections().first().id);
    }
    std::for_each(colors.rbegin(), colors.rend(), [&state](const QColor& color) {
        state.colorCaptured(
            CapturedColor::capture(color.redF(), color.greenF(), color.blueF(), color.alphaF()));
    });
}

QAbstractButton& button(const QWidget& view, const QString& name)
{
    for (auto* each : view.findChildren<QAbstractButton*>()) {
        if (each->accessibleName() == name) {
            return *each;
        }
    }
    qFatal("no button %s", qUtf8Printable(name));
}

void hover(QWidget& widget)
{
    const QPointF middle = widget.rect().center();
    QHoverEvent enter(QEvent::HoverEnter, middle, widget.mapToGlobal(middle), QPointF(-1, -1));
    QApplication::sendEvent(&widget, &enter);
}

void dragOver(QWidget& widget, const QString& text)
{
    QMimeData data;
    data.setText(text);
    QDragEnterEvent enter(widget.rect().center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &enter);
}

void showMenu(QWidget& screen, QMenu& menu, QPoint place)
{
    auto* picture = new MenuPicture(screen, menu);
    picture->move(std::clamp(place.x(), 0, std::max(0, screen.width() - picture->width())), place.y());
    picture->show();
}

ScreenGround::ScreenGround()
{
    setFixedSize(theme::panelSize - QSize(0, headerHeight));
}

void ScreenGround::setScreen(QWidget* screen)
{
    screen->setParent(this);
    screen->setFixedSize(size());
}

void ScreenGround::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), theme::bg.in(Appearance::of(this)));
}

} // namespace tintwick
