#include "PanelView.h"

#include "ActionPill.h"
#include "AppState.h"
#include "Clickable.h"
#include "CollectionActions.h"
#include "CollectionDetailView.h"
#include "ColorActions.h"
#include "ColorExport.h"
#include "ColorIntake.h"
#include "ColorScreen.h"
#include "ContrastScreen.h"
#include "DashboardView.h"
#include "FadeThrough.h"
#include "FileImport.h"
#include "HistoryDetailView.h"
#include "ImportFiles.h"
#include "InOneLine.h"
#include "NoticeView.h"
#include "OpenRequest.h"
#include "OpenSaveRequests.h"
#include "Overlay.h"
#include "Paint.h"
#include "PanelHeader.h"
#include "PanelNavigation.h"
#include "PanelNotices.h"
#include "Preferences.h"
#include "Rule.h"
#include "SearchScreen.h"
#include "SimilarScreen.h"
#include "Stack.h"
#include "Theme.h"

#include <QDragEnterEvent>
#include <QEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPalette>
#include <QShortcut>
#include <QUrl>

#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

Scheme schemeOfPalette()
{
    const QPalette palette = QGuiApplication::palette();
    const bool isDark =
        palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
    return isDark ? Scheme::Dark : Scheme::Light;
}

} // namespace

PanelView::PanelView(AppState& appState, Preferences& preferences, MakeSettings makeSettings)
    : m_appState(appState)
    , m_preferences(preferences)
    , m_appearance(*this)
    , m_makeSettings(std::move(makeSettings))
    , m_intake(new ColorIntake(m_appState, *this))
{
    setAccessibleName(u"Tintwick"_s);
    setAcceptDrops(true);
    resize(theme::panelSize);
    auto* notice = new NoticeView;
    m_notices = new PanelNotices(*notice, m_appState, m_preferences, this);
    // clang-format off
    setContent(column(
        m_header = new PanelHeader(m_appState, m_preferences),
        rule(),
        notice,
        m_screens = column(m_dashboard = new DashboardView(m_appState, *this)),
        m_actionPill = new ActionPill(m_appState, *this)));
    // clang-format on
    m_screenStack.emplace(*m_screens, *m_dashboard,
                          [this](const PanelScreen& screen) { return makeScreen(screen); });
    applyColorScheme();
    showHeader();

    addKeys();
    followNavigation();
    connect(m_header, &PanelHeader::backRequested, this, &PanelView::goBack);
    connect(m_header, &PanelHeader::settingsRequested, this, [this] { setShowingSettings(true); });
    connect(m_header, &PanelHeader::keepOpenChanged, this, &PanelView::keepOpenChanged);
    connect(m_dashboard, &DashboardView::pickRequested, this, &PanelView::pickRequested);
    connect(m_dashboard, &DashboardView::collectionSelected, this, &PanelView::setSelectedCollectionId);
    connect(m_dashboard, &DashboardView::historySelected, this,
            [this] { setSelectedCollectionId(historySelectionId); });
    connect(m_intake, &ColorIntake::filesPasted, this, &PanelView::importFiles);
    connect(m_intake, &ColorIntake::remarked, this, &PanelView::showNotice);
    connect(m_intake, &ColorIntake::refused, this,
            [this](const QString& sentence) { m_actionPill->say(sentence); });
    connect(&m_appState, &AppState::collectionsChanged, this, &PanelView::showSelection);
    connect(&OpenSaveRequests::shared(), &OpenSaveRequests::saved, this, &PanelView::showSavedFile);
    connect(&m_preferences, &Preferences::colorSchemeChanged, this, &PanelView::applyColorScheme);
}

// Not in `keyPressEvent()`, because swatches, segments and scroll areas take the arrow keys.
void PanelView::addKeys()
{
    const auto add = [this](const QKeySequence& keys, const auto& action) {
        connect(new QShortcut(keys, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut),
                &QShortcut::activated, this, action);
    };
    add(Qt::ALT | Qt::Key_Left, &PanelView::goBack);
    add(QKeySequence::Find, [this] { search({}); });
    add(importKey, &PanelView::askForImport);
}

void PanelView::followNavigation()
{
    const auto* navigation = new PanelNavigation(*this);
    connect(navigation, &PanelNavigation::colorRequested, this,
            [this](const CapturedColor& color) { open({.kind = PanelScreen::Kind::Color, .color = color}); });
    connect(navigation, &PanelNavigation::contrastRequested, this,
            [this](const CapturedColor& text, const std::optional<CapturedColor>& ground) {
                open({.kind = PanelScreen::Kind::Contrast, .color = text, .ground = ground});
            });
    connect(navigation, &PanelNavigation::similarRequested, this, [this](const CapturedColor& color) {
        open({.kind = PanelScreen::Kind::Similar, .color = color});
    });
    connect(navigation, &PanelNavigation::importRequested, this, &PanelView::askForImport);
}

void PanelView::setMenu(std::function<QList<MenuEntry>()> entries)
{
    m_header->setMenu(std::move(entries));
}

bool PanelView::keepsOpen() const
{
    return m_header->keepsOpen();
}

void PanelView::setPickKeys(const QString& keys, const QString& inWords)
{
    m_pickKeys = keys;
    m_pickKeysInWords = inWords;
    for (auto* history : findChildren<HistoryDetailView*>()) {
        history->setPickKeys(keys, inWords);
    }
}

void PanelView::applyColorScheme()
{
    switch (m_preferences.colorScheme()) {
    case ColorSchemeChoice::Light:
        m_appearance.setScheme(Scheme::Light);
        break;
    case ColorSchemeChoice::Dark:
        m_appearance.setScheme(Scheme::Dark);
        break;
    case ColorSchemeChoice::Auto:
        m_appearance.setScheme(m_systemScheme.value_or(schemeOfPalette()));
        break;
    }
    update();
}

void PanelView::setSelectedCollectionId(const std::optional<QUuid>& id)
{
    if (m_selectedCollectionId == id && m_openedScreens.isEmpty()) {
        return;
    }
    m_openedScreens.clear();
    m_selectedCollectionId = id;
    showSelection();
}

void PanelView::setShowingSettings(bool shows)
{
    if (m_showingSettings == shows) {
        return;
    }
    m_showingSettings = shows;
    showSelection();
}

void PanelView::open(const PanelScreen& screen)
{
    if (screen == m_screenStack->current()) {
        return;
    }
    m_openedScreens.append(screen);
    showSelection();
}

void PanelView::search(const QString& text)
{
    if (m_showingSettings || Overlay::of(*this) != nullptr) {
        return;
    }
    open({.kind = PanelScreen::Kind::Search});
    static_cast<SearchScreen&>(currentScreen()).enter(text);
}

void PanelView::goBack()
{
    if (Overlay::of(*this) != nullptr) {
        return;
    }
    if (m_showingSettings) {
        setShowingSettings(false);
    } else if (!m_openedScreens.isEmpty()) {
        m_openedScreens.removeLast();
        showSelection();
    } else {
        setSelectedCollectionId({});
    }
}

void PanelView::leaveSettings()
{
    if (m_showingSettings && Overlay::of(*this) == nullptr) {
        m_selectedCollectionId.reset();
        m_openedScreens.clear();
        setShowingSettings(false);
    }
}

void PanelView::showNotice(const QString& sentence)
{
    m_notices->show(sentence);
}

void PanelView::showSavedFile(const QString& path)
{
    const QFileInfo file(path);
    m_actionPill->say(tr("Saved %1").arg(inOneLine(file.fileName())),
                      {tr("Show"), [this, folder = file.path()] { m_notices->showFolder(folder); }});
}

QWidget& PanelView::currentScreen() const
{
    return m_screenStack->currentView();
}

bool PanelView::isInScreen(const QWidget* widget) const
{
    return widget == &currentScreen() || currentScreen().isAncestorOf(widget);
}

QList<PanelScreen> PanelView::chosenPath() const
{
    QList<PanelScreen> path{{}};
    if (m_selectedCollectionId == historySelectionId) {
        path.append({.kind = PanelScreen::Kind::History});
    } else if (m_selectedCollectionId && m_appState.collection(*m_selectedCollectionId) != nullptr) {
        path.append({.kind = PanelScreen::Kind::Collection, .collectionId = *m_selectedCollectionId});
    }
    path.append(m_openedScreens);
    if (m_showingSettings) {
        path.append({.kind = PanelScreen::Kind::Settings});
    }
    return path;
}

QWidget* PanelView::makeScreen(const PanelScreen& screen)
{
    switch (screen.kind) {
    case PanelScreen::Kind::Settings:
        return m_makeSettings(*this);
    case PanelScreen::Kind::History: {
        auto* history = new HistoryDetailView(m_appState, *this);
        history->setPickKeys(m_pickKeys, m_pickKeysInWords);
        return history;
    }
    case PanelScreen::Kind::Collection: {
        auto* palette = new CollectionDetailView(m_appState, screen.collectionId, *this);
        connect(palette, &CollectionDetailView::pickRequested, this, &PanelView::pickRequested);
        return palette;
    }
    case PanelScreen::Kind::Color:
        return new ColorScreen(m_appState, m_preferences, screen.color, *this);
    case PanelScreen::Kind::Contrast:
        return new ContrastScreen(m_appState, screen.color, screen.ground);
    case PanelScreen::Kind::Search: {
        auto* search = new SearchScreen(m_appState, *this);
        connect(search, &SearchScreen::closeRequested, this, &PanelView::goBack);
        connect(search, &SearchScreen::colorsChosen, this, [this](const TextColors& found) {
            goBack();
            m_intake->take(found);
        });
        return search;
    }
    case PanelScreen::Kind::Similar: {
        auto* similar = new SimilarScreen(m_appState, screen.color, *this);
        connect(similar, &SimilarScreen::closeRequested, this, &PanelView::goBack);
        return similar;
    }
    case PanelScreen::Kind::Dashboard:
        break;
    }
    return nullptr;
}

void PanelView::showHeader()
{
    if (m_showingSettings) {
        m_header->showSettings();
    } else if (m_selectedCollectionId || !m_openedScreens.isEmpty()) {
        m_header->showWayBack(selectionTitle());
    } else {
        m_header->showTitle(u"Tintwick"_s);
    }
}

QString PanelView::selectionTitle() const
{
    if (!m_openedScreens.isEmpty()) {
        const PanelScreen& opened = m_openedScreens.last();
        switch (opened.kind) {
        case PanelScreen::Kind::Contrast:
            return tr("Contrast");
        case PanelScreen::Kind::Search:
            return tr("Search");
        case PanelScreen::Kind::Similar:
            return tr("Similar Colors");
        default:
            return inOneLine(shownName(opened.color));
        }
    }
    if (m_selectedCollectionId == historySelectionId) {
        return tr("All History");
    }
    const ColorCollection* collection =
        m_selectedCollectionId ? m_appState.collection(*m_selectedCollectionId) : nullptr;
    return collection != nullptr ? inOneLine(collection->name) : tr("Palette");
}

void PanelView::showSelection()
{
    // Hiding the focused widget moves the focus, so read it first.
    QWidget* const focused = window()->focusWidget();
    const bool isKeyboardUsed = Clickable::showsFocusRing(focused);
    const QList<PanelScreen> path = chosenPath();
    const PanelScreen before = m_screenStack->current();
    const PanelScreen& now = path.last();
    const bool returns = path.size() < m_screenStack->depth();

    const auto change = [&] {
        showHeader();
        m_screenStack->show(path, isKeyboardUsed ? focused : nullptr);
        m_actionPill->moveToEndOfTabOrder();
    };
    if ((before.kind == PanelScreen::Kind::Settings) != (now.kind == PanelScreen::Kind::Settings)) {
        fadeThrough(*this, {m_header, m_screens}, change);
    } else {
        change();
    }
    if (before == now) {
        return;
    }

    const bool hasStrayed = !isKeyboardUsed && Clickable::showsFocusRing(window()->focusWidget());
    QWidget* const opener = returns ? m_screenStack->opener() : nullptr;
    if (opener != nullptr && opener->isVisible()) {
        opener->setFocus(Qt::TabFocusReason);
    } else if (hasStrayed || !isInScreen(window()->focusWidget())) {
        Clickable* const wayOut = m_header->wayOut();
        if (isKeyboardUsed && wayOut != nullptr) {
            wayOut->setFocus(Qt::TabFocusReason);
        } else {
            setFocus();
        }
    }
}

// A window without a focus widget focuses its first control.
void PanelView::showEvent(QShowEvent* event)
{
    View::showEvent(event);
    if (window()->focusWidget() == nullptr) {
        setFocus();
    }
}

void PanelView::hideEvent(QHideEvent* event)
{
    View::hideEvent(event);
    m_notices->panelHidden();
}

void PanelView::setSystemScheme(std::optional<Scheme> scheme)
{
    m_systemScheme = scheme;
    applyColorScheme();
}

void PanelView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::ParentChange) {
        window()->installEventFilter(this);
    }
    View::changeEvent(event);
}

// Only windows get ApplicationPaletteChange.
bool PanelView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ApplicationPaletteChange) {
        applyColorScheme();
    }
    return View::eventFilter(watched, event);
}

void PanelView::askForImport()
{
    if (Overlay::of(*this) != nullptr || m_openRequest != nullptr) {
        return;
    }
    m_openRequest = new OpenRequest(tr("Import"), tr("Palettes, Style Sheets and Pictures"),
                                    importedSuffixes(), ColorExport::portalHandle());
    connect(m_openRequest, &OpenRequest::chosen, this, &PanelView::importFiles);
    // Queued, because the caller may be a menu that is about to close.
    QMetaObject::invokeMethod(m_openRequest, &OpenRequest::begin, Qt::QueuedConnection);
}

void PanelView::importFiles(const QStringList& paths)
{
    showNotice(tintwick::importFiles(m_appState, paths).value_or(QString()));
}

// Gets the keys that the focused control does not use.
void PanelView::keyPressEvent(QKeyEvent* event)
{
    const bool isTyped =
        (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0 &&
        !event->text().trimmed().isEmpty() && event->text().front().isPrint();
    const PanelScreen::Kind screen = m_screenStack->current().kind;
    const bool isSearch = screen == PanelScreen::Kind::Search || screen == PanelScreen::Kind::Similar;
    if (event->key() == Qt::Key_Escape && isSearch) {
        goBack();
    } else if (isTyped && !m_showingSettings) {
        search(event->text());
    } else {
        View::keyPressEvent(event);
    }
}

void PanelView::dragEnterEvent(QDragEnterEvent* event)
{
    if (!localFilesIn(*event->mimeData()).isEmpty()) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
}

void PanelView::dropEvent(QDropEvent* event)
{
    event->setDropAction(Qt::CopyAction);
    event->accept();
    importFiles(localFilesIn(*event->mimeData()));
}

void PanelView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor ground = theme::bg.in(Appearance::of(this));
    if (window()->mask().isEmpty()) {
        fillRounded(painter, rect(), theme::panelRadius, ground);
    } else {
        // The window has a mask, and uncovered pixels inside it are black.
        painter.fillRect(rect(), ground);
        // Nor is there a shadow around it.
        strokeInside(painter, rect(), theme::panelRadius,
                     theme::textThird.opacity(0.55).in(Appearance::of(this)), 1);
    }
}

} // namespace tintwick
