#include "CollectionDetailView.h"

#include "Animator.h"
#include "AppState.h"
#include "Appearance.h"
#include "Button.h"
#include "CollectionActions.h"
#include "CollectionIcon.h"
#include "ColorDetailRow.h"
#include "ColorSelector.h"
#include "DetailScreen.h"
#include "ExportMenu.h"
#include "IconColor.h"
#include "InOneLine.h"
#include "Label.h"
#include "MenuButton.h"
#include "Paint.h"
#include "PickMenu.h"
#include "Rule.h"
#include "ScrollArea.h"
#include "SelectionBar.h"
#include "Spring.h"
#include "Stack.h"
#include "SymbolView.h"
#include "Theme.h"

#include <QEvent>
#include <QPainter>
#include <QShortcut>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr double tileRadius = 8;
constexpr int dropFrameInset = 6;
constexpr double dropFrameRadius = theme::panelRadius - dropFrameInset;
constexpr theme::Color dropFrameLine = theme::accent.opacity(0.6);
constexpr theme::Color dropFrameTint = theme::accent.opacity(0.06);

} // namespace

/// The tint and frame of the screen while a drag is over it. Lies below the content, so that it does not tint the colours.
class CollectionDetailView::DropFrame final : public QWidget
{
public:
    explicit DropFrame(QWidget& screen)
        : QWidget(&screen)
        , m_hover(0.18, 0.8)
        , m_animator([this](double seconds) {
            const bool isMoving = m_hover.advance(seconds);
            update();
            setVisible(isMoving || m_isShown);
            return isMoving;
        })
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        lower();
        hide();
    }

    [[nodiscard]] bool isShown() const { return m_isShown; }

    void setShown(bool shown)
    {
        m_isShown = shown;
        m_hover.setTarget(shown ? 1 : 0);
        m_animator.start();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        const Scheme scheme = Appearance::of(this);
        QPainter painter(this);
        painter.setOpacity(m_hover.fraction());
        fillRounded(painter, rect(), dropFrameRadius, dropFrameTint.in(scheme));
        strokeInside(painter, rect(), dropFrameRadius, dropFrameLine.in(scheme), 1.5);
    }

private:
    bool m_isShown = false;
    Spring m_hover;
    Animator m_animator;
};

CollectionDetailView::CollectionDetailView(AppState& appState, const QUuid& collectionId, QWidget& panel)
    : m_appState(appState)
    , m_collectionId(collectionId)
    , m_panel(panel)
    , m_empty(emptyState(u"palette"_s,
                         emptyStateLabel(tr("No colors yet\nDrag swatches here from Recent History"))))
    , m_list(new ReorderList(tr("Colors"), ColorDetailRow::height, ColorDetailRow::inset))
    , m_scroll(verticalScroll(m_list))
    , m_selector(new ColorSelector(
          appState, *this, panel,
          [this](const QList<QUuid>& ids) { m_appState.removeColors(ids, m_collectionId); }))
    , m_rows(
          *m_list,
          [this] {
              auto* row = new ColorDetailRow(m_appState, m_collectionId);
              row->setSelector(*m_selector);
              return row;
          },
          [](ColorDetailRow& row, const CapturedColor& color, qsizetype) { row.setColor(color); })
    , m_dropFrame(new DropFrame(*this))
    , m_dropTarget(
          *this, [this](bool hovered) { m_dropFrame->setShown(hovered); },
          [this](const QList<QUuid>& ids) { addDropped(ids); })
{
    setContent(column(toolbar(), rule(), m_empty, m_scroll,
                      new SelectionBar(*m_selector, [this] { return m_collection.name; })));

    m_name->installEventFilter(this);
    connect(new QShortcut(Qt::Key_F2, this), &QShortcut::activated, this, &CollectionDetailView::rename);
    connect(m_list, &ReorderList::moveRequested, this, [this](const QSet<qsizetype>& from, qsizetype to) {
        m_appState.moveColors(m_collectionId, from, to);
    });
    connect(m_list, &ReorderList::focusExtended, this, [this](qsizetype from, qsizetype to) {
        m_selector->extend(rows()[from]->color().id, rows()[to]->color().id);
    });
    m_list->setMovedTogether([this](qsizetype position) { return movedWith(position); });
    connect(&m_appState, &AppState::historyChanged, this, &CollectionDetailView::showCollection);
    connect(&m_appState, &AppState::collectionsChanged, this, &CollectionDetailView::showCollection);
    showCollection();
}

QWidget* CollectionDetailView::toolbar()
{
    m_icon = symbol({}, 15, SymbolWeight::Semibold, theme::white);
    m_tile = row(fixedSize(32, 32), centered(), m_icon);
    m_name = label({}, theme::font(14, QFont::Bold));
    m_count = label({}, theme::font(11), theme::textSecond);
    m_export = new ExportMenu([this] { return colors(); }, [this] { return m_collection.name; });
    // The name shrinks first.
    m_export->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    // clang-format off
    return row(gap(10), padding(16, 10),
        m_tile,
        column(Across::Leading, m_name, m_count),
        spacer(),
        pickButton(),
        menuButton(),
        m_export);
    // clang-format on
}

QWidget* CollectionDetailView::pickButton()
{
    PlainButton* button = squareButton(
        tr("Pick colors into this palette"), [this] { Q_EMIT pickRequested({.palette = m_collectionId}); },
        symbol(u"add"_s, 14, SymbolWeight::Semibold, theme::accentText));
    button->setContextMenu([this] {
        return pickIntoMenu([this](const WantedPick& pick) { Q_EMIT pickRequested(pick); }, m_collectionId);
    });
    return button;
}

QWidget* CollectionDetailView::menuButton()
{
    const QString name = tr("Palette Actions");
    auto* button = new MenuButton(
        name, [this] { return collectionMenu(m_panel, m_appState, m_collection); },
        row(fixedSize(30, 30), centered(), ground(theme::surfaceHigh, tileRadius),
            symbol(u"more"_s, 14, SymbolWeight::Regular, theme::textSecond)),
        tileRadius);
    button->setToolTip(name);
    return button;
}

void CollectionDetailView::rename()
{
    if (m_appState.collection(m_collectionId) != nullptr) {
        openRenameCollectionOverlay(m_panel, m_appState, m_collection);
    }
}

bool CollectionDetailView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_name && event->type() == QEvent::MouseButtonDblClick) {
        rename();
        return true;
    }
    return View::eventFilter(watched, event);
}

bool CollectionDetailView::isDropTarget() const
{
    return m_dropFrame->isShown();
}

QList<CapturedColor> CollectionDetailView::colors() const
{
    return m_appState.colorsOf(m_collection);
}

void CollectionDetailView::showCollection()
{
    if (const ColorCollection* collection = m_appState.collection(m_collectionId)) {
        m_collection = *collection;
        m_tile->add(
            ground(iconGradient(m_collection, m_appState.collections().indexOf(m_collection)), tileRadius));
    } else {
        m_collection.colorIds.clear();
    }
    const QList<CapturedColor> shown = colors();
    m_icon->setName(collectionSymbol(m_collection.icon));
    m_name->setText(inOneLine(m_collection.name));
    m_count->setText(colorCountText(shown.size()));
    m_export->setHasColors(!shown.isEmpty());
    m_rows.show(shown);
    m_selector->setColors(shown);
    m_empty->setVisible(shown.isEmpty());
    m_scroll->setVisible(!shown.isEmpty());
    orderFocus();
}

QSet<qsizetype> CollectionDetailView::movedWith(qsizetype position) const
{
    const QList<QUuid> ids = m_selector->idsWith(rows()[position]->color().id);
    QSet<qsizetype> positions{position};
    for (qsizetype i = 0; i < rows().size(); ++i) {
        if (ids.contains(rows()[i]->color().id)) {
            positions.insert(i);
        }
    }
    return positions;
}

void CollectionDetailView::addDropped(const QList<QUuid>& colorIds)
{
    const qsizetype before = rows().size();
    m_appState.addColors(colorIds, m_collectionId);
    if (rows().size() > before) {
        m_list->reveal(*rows().last());
    }
}

void CollectionDetailView::orderFocus() const
{
    QWidget* before = nullptr;
    for (ColorDetailRow* row : rows()) {
        for (QWidget* widget : {static_cast<QWidget*>(row), static_cast<QWidget*>(&row->copyButton()),
                                static_cast<QWidget*>(&row->removeButton())}) {
            if (before != nullptr) {
                setTabOrder(before, widget);
            }
            before = widget;
        }
    }
}

void CollectionDetailView::resizeEvent(QResizeEvent* event)
{
    View::resizeEvent(event);
    m_dropFrame->setGeometry(
        rect().adjusted(dropFrameInset, dropFrameInset, -dropFrameInset, -dropFrameInset));
}

} // namespace tintwick
