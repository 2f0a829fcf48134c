#include "DashboardView.h"

#include "AppState.h"
#include "Bound.h"
#include "Button.h"
#include "CollectionActions.h"
#include "CollectionRowCard.h"
#include "DashboardSwatchView.h"
#include "IconColor.h"
#include "Label.h"
#include "Overlay.h"
#include "PickMenu.h"
#include "ScrollArea.h"
#include "SymbolView.h"
#include "TextField.h"
#include "Theme.h"

#include <QContextMenuEvent>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

/// Maximum length of the row of recent colours.
constexpr qsizetype recentLimit = 15;
constexpr theme::Gradient pickGradient{{0.38, 0.40, 0.80}, {0.24, 0.26, 0.68}};
constexpr Shadow pickShadow{theme::Color(0.24, 0.26, 0.68).opacity(0.35), 10, QPointF(0, 4)};

} // namespace

DashboardView::DashboardView(AppState& appState, QWidget& panel)
    : m_appState(appState)
    , m_panel(panel)
    , m_recentRow(row(gap(12), padding(2, 4)))
    , m_cardList(column(gap(10)))
    , m_swatches(
          *m_recentRow,
          [this] {
              auto* swatch = new DashboardSwatchView(m_appState);
              connect(swatch, &DashboardSwatchView::stepRequested, this,
                      [this, swatch](int columns) { m_swatches.moveFocus(*swatch, columns); });
              return swatch;
          },
          [](DashboardSwatchView& swatch, const CapturedColor& color, qsizetype) { swatch.setColor(color); })
    , m_cards(
          *m_cardList,
          [this] {
              return new CollectionRowCard(
                  m_appState, m_panel, [this](const QUuid& id) { Q_EMIT collectionSelected(id); },
                  [this](const WantedPick& pick) { Q_EMIT pickRequested(pick); });
          },
          [](CollectionRowCard& card, const ColorCollection& collection, qsizetype position) {
              card.setCollection(collection);
              card.setAccent(iconGradient(collection, position));
          })
{
    // clang-format off
    setContent(verticalScroll(column(gap(20), padding(16),
        eyedropperButton(),
        shownWhen(historyIsNotEmpty(), recentHeader()),
        shownWhen(historyIsNotEmpty(), recentRow()),
        sectionLabel(tr("Collections")),
        collectionsSection())));
    // clang-format on

    connect(&m_appState, &AppState::historyChanged, this, &DashboardView::showHistory);
    connect(&m_appState, &AppState::collectionsChanged, this, &DashboardView::showCollections);
    showHistory();
    showCollections();
}

QWidget* DashboardView::eyedropperButton()
{
    const QString title = tr("Pick a Color");
    PlainButton* button = plainButton(
        title, [this] { Q_EMIT pickRequested({}); },
        row(fixedHeight(50), gap(8), ground(pickGradient, 14), pickShadow, spacer(),
            symbol(u"eyedropper-filled"_s, 17, SymbolWeight::Semibold, theme::white),
            label(title, theme::font(16, QFont::DemiBold), theme::white), spacer()),
        14);
    button->setContextMenu(
        [this] { return delayedPickMenu([this](const WantedPick& pick) { Q_EMIT pickRequested(pick); }); });
    m_pick = button;
    return m_pick;
}

QWidget* DashboardView::recentHeader()
{
    const QString title = tr("Recent History");
    const QString seeAll = tr("See all");
    m_seeAll = plainTextButton(
        QStringLiteral("%1, %2").arg(title, seeAll), [this] { Q_EMIT historySelected(); },
        row(gap(4), label(title, theme::font(15, QFont::DemiBold), theme::textSecond), spacer(),
            label(seeAll, theme::font(12), theme::accentText),
            symbol(u"chevron-right"_s, 10, SymbolWeight::Semibold, theme::accentText)));
    return m_seeAll;
}

QWidget* DashboardView::recentRow()
{
    return horizontalScroll(m_recentRow, 2);
}

QWidget* DashboardView::sectionLabel(const QString& title)
{
    return row(label(title, theme::font(15, QFont::DemiBold), theme::textSecond), spacer());
}

QWidget* DashboardView::collectionsSection()
{
    m_createFirst = createFirstPaletteButton();
    m_add = addPaletteRow();
    m_cardList->add(m_add);
    const auto hasNone = bound([this] {
                             return m_appState.collections().isEmpty();
                         }).changedBy(m_appState, &AppState::collectionsChanged);
    return column(shownWhen(hasNone, m_createFirst), shownWhen(hasCollections(), m_cardList));
}

QWidget* DashboardView::createFirstPaletteButton()
{
    const QString title = tr("Create your first palette");
    PlainButton* button = plainButton(
        title, [this] { openNewPaletteOverlay(); },
        row(fixedHeight(50), gap(6), ground(theme::accent.opacity(0.08), 12), spacer(),
            symbol(u"add-circle"_s, 14, SymbolWeight::Regular, theme::accentText),
            label(title, theme::font(13, QFont::Medium), theme::accentText), spacer()),
        12);
    button->setContextMenu([this] { return QList{importEntry(*this)}; });
    return button;
}

QWidget* DashboardView::addPaletteRow()
{
    const QString title = tr("New Palette");
    PlainButton* button = plainButton(
        title, [this] { openNewPaletteOverlay(); },
        row(gap(14), padding(12), ground(theme::surface, 14),
            dashedOutline(theme::textThird.opacity(0.6), 1.2, 5),
            row(fixedSize(44, 44), centered(), ground(theme::surfaceHigh, 10),
                symbol(u"add"_s, 18, SymbolWeight::Medium, theme::textThird)),
            label(title, theme::font(14, QFont::Medium), theme::textThird), spacer()),
        14);
    button->setContextMenu([this] { return QList{importEntry(*this)}; });
    return button;
}

// On the ground between the controls.
void DashboardView::contextMenuEvent(QContextMenuEvent* event)
{
    popUpMenu(*this, event->globalPos(),
              {menuAction(tr("New Palette…"), [this] { openNewPaletteOverlay(); }), importEntry(*this)});
}

void DashboardView::openNewPaletteOverlay()
{
    auto* name = new TextField(tr("Palette name"), m_newCollectionName);
    auto* create = prominentButton(tr("Create"), [this] { createCollection(); });
    const auto nameChanged = [this, create](const QString& text) {
        m_newCollectionName = text;
        create->setEnabled(!text.trimmed().isEmpty());
    };
    connect(name, &QLineEdit::textChanged, this, nameChanged);
    nameChanged(m_newCollectionName);

    auto* form = column(
        gap(16), padding(20), fixedWidth(280), Across::Leading, label(tr("New Palette"), theme::headline()),
        name,
        row(borderedButton(tr("Cancel"), [this] { m_newPaletteOverlay->dismiss(); }), spacer(), create));
    m_newPaletteOverlay = new Overlay(m_panel, tr("New Palette"), form, [this] { createCollection(); });
}

void DashboardView::createCollection()
{
    const QString name = m_newCollectionName.trimmed();
    if (name.isEmpty() || !m_newPaletteOverlay) {
        return;
    }
    m_appState.createCollection(name);
    m_newCollectionName.clear();
    const bool isFromKeyboard = m_newPaletteOverlay->isFromKeyboard();
    m_newPaletteOverlay->dismiss();
    // The focused button for the first palette is hidden now.
    if (isFromKeyboard && m_appState.collections().size() == 1) {
        m_add->setFocus(Qt::TabFocusReason);
    }
}

Bound<bool> DashboardView::historyIsNotEmpty() const
{
    return bound([this] { return !m_appState.history().isEmpty(); })
        .changedBy(m_appState, &AppState::historyChanged);
}

Bound<bool> DashboardView::hasCollections() const
{
    return bound([this] { return !m_appState.collections().isEmpty(); })
        .changedBy(m_appState, &AppState::collectionsChanged);
}

void DashboardView::showHistory()
{
    m_swatches.show(m_appState.history().mid(0, recentLimit));
    orderFocus();
}

void DashboardView::showCollections()
{
    m_cards.show(m_appState.collections());
    orderFocus();
}

void DashboardView::orderFocus() const
{
    QWidget* before = m_pick;
    const auto next = [&before](QWidget* widget) {
        setTabOrder(before, widget);
        before = widget;
    };
    next(m_seeAll);
    for (QWidget* swatch : swatches()) {
        next(swatch);
    }
    for (QWidget* card : cards()) {
        next(card);
    }
    next(m_createFirst);
    next(m_add);
}

} // namespace tintwick
