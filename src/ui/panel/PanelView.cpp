#include "PanelView.h"

#include "AppState.h"
#include "Button.h"
#include "Clickable.h"
#include "CollectionDetailView.h"
#include "CopiedPill.h"
#include "DashboardView.h"
#include "FadeThrough.h"
#include "HistoryDetailView.h"
#include "ImportFiles.h"
#include "InOneLine.h"
#include "Label.h"
#include "NoticeView.h"
#include "OpenSaveRequests.h"
#include "Overlay.h"
#include "Paint.h"
#include "Preferences.h"
#include "Rule.h"
#include "Stack.h"
#include "SymbolView.h"
#include "Theme.h"
#include "UndoPill.h"

#include <QDesktopServices>
#include <QDragEnterEvent>
#include <QEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>
#include <QPainter>
#include <QPalette>
#include <QShortcut>
#include <QUrl>

#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

QString symbolOf(ColorSchemeChoice preference)
{
    switch (preference) {
    case ColorSchemeChoice::Light:
        return u"light-mode"_s;
    case ColorSchemeChoice::Dark:
        return u"dark-mode"_s;
    case ColorSchemeChoice::Auto:
        break;
    }
    return u"auto-mode"_s;
}

Scheme schemeOfPalette()
{
    const QPalette palette = QGuiApplication::palette();
    const bool isDark =
        palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
    return isDark ? Scheme::Dark : Scheme::Light;
}

QStringList localFilesIn(const QMimeData& dragged)
{
    QStringList paths;
    for (const QUrl& url : dragged.urls()) {
        if (url.isLocalFile()) {
            paths.append(url.toLocalFile());
        }
    }
    return paths;
}

} // namespace

PanelView::PanelView(AppState& appState, Preferences& preferences, MakeSettings makeSettings)
    : m_appState(appState)
    , m_preferences(preferences)
    , m_appearance(*this)
    , m_makeSettings(std::move(makeSettings))
{
    setAccessibleName(u"Tintwick"_s);
    setAcceptDrops(true);
    resize(theme::panelSize);
    // clang-format off
    setContent(column(
        m_header = panelHeader(),
        rule(),
        m_notice = new NoticeView,
        m_screens = column(m_dashboard = new DashboardView(m_appState, *this)),
        m_undoPill = new UndoPill(m_appState, *this)));
    // clang-format on
    applyColorScheme();
    showHeader();
    updateNotice();

    // Not in `keyPressEvent()`, because swatches, segments and scroll areas take the arrow keys.
    connect(new QShortcut(Qt::ALT | Qt::Key_Left, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut),
            &QShortcut::activated, this, &PanelView::goBack);
    connect(m_dashboard, &DashboardView::pickRequested, this, &PanelView::pickRequested);
    connect(m_dashboard, &DashboardView::collectionSelected, this, &PanelView::setSelectedCollectionId);
    connect(m_dashboard, &DashboardView::historySelected, this,
            [this] { setSelectedCollectionId(historySelectionId); });
    connect(&m_appState, &AppState::collectionsChanged, this, &PanelView::showSelection);
    connect(&m_appState, &AppState::saveProblemChanged, this, &PanelView::updateNotice);
    connect(&m_appState, &AppState::unreadableFileFound, this, &PanelView::updateNotice);
    connect(&OpenSaveRequests::shared(), &OpenSaveRequests::saved, this, &PanelView::showSavedFile);
    connect(&m_preferences, &Preferences::problemChanged, this, &PanelView::updateNotice);
    connect(&m_preferences, &Preferences::colorSchemeChanged, this, &PanelView::applyColorScheme);
}

Stack* PanelView::panelHeader()
{
    m_title = label({}, theme::font(18, QFont::Bold));
    m_done = prominentButton(tr("Done"), [this] { setShowingSettings(false); });
    m_outsideSettings = row(gap(10), new CopiedPill(m_appState), colorSchemeToggle(), settingsButton());
    // A fixed height, so that the screen does not move when the buttons change.
    return row(fixedHeight(50), gap(10), padding(14, 10), m_title, backButton(), spacer(), m_outsideSettings,
               m_done);
}

QWidget* PanelView::backButton()
{
    m_backTitle = label({}, theme::font(14, QFont::DemiBold));
    m_back = plainTextButton(
        {}, [this] { setSelectedCollectionId({}); },
        row(gap(4), symbol(u"chevron-left"_s, 13, SymbolWeight::Semibold, theme::textPrimary), m_backTitle));
    return m_back;
}

QWidget* PanelView::settingsButton()
{
    m_settings = squareButton(
        tr("Settings"), [this] { openMenuOrSettings(); },
        symbol(u"settings"_s, 14, SymbolWeight::Regular, theme::textSecond));
    return m_settings;
}

void PanelView::setMenu(std::function<QList<MenuEntry>()> entries)
{
    m_menu = std::move(entries);
}

void PanelView::openMenuOrSettings()
{
    const QList<MenuEntry> entries = m_menu ? m_menu() : QList<MenuEntry>();
    if (entries.isEmpty()) {
        setShowingSettings(true);
    } else {
        dropDownMenu(*m_settings, entries);
    }
}

QWidget* PanelView::colorSchemeToggle()
{
    m_schemeSymbol = symbol({}, 14, SymbolWeight::Medium, theme::textSecond);
    m_schemeToggle = squareButton(
        {}, [this] { cycleColorScheme(); }, m_schemeSymbol);
    return m_schemeToggle;
}

void PanelView::setPickKeys(const QString& keys, const QString& inWords)
{
    m_pickKeys = keys;
    m_pickKeysInWords = inWords;
    if (auto* history = qobject_cast<HistoryDetailView*>(m_detail)) {
        history->setPickKeys(keys, inWords);
    }
}

void PanelView::cycleColorScheme()
{
    m_preferences.setColorScheme(next(m_preferences.colorScheme()));
}

void PanelView::applyColorScheme()
{
    const ColorSchemeChoice preference = m_preferences.colorScheme();
    QString current = storedWord(preference);
    current[0] = current[0].toUpper();
    m_schemeSymbol->setName(symbolOf(preference));
    m_schemeToggle->setAccessibleName(tr("Appearance: %1").arg(current));
    m_schemeToggle->setToolTip(tr("Appearance: %1 — click to cycle").arg(current));

    switch (preference) {
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
    if (m_selectedCollectionId == id) {
        return;
    }
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

void PanelView::goBack()
{
    if (Overlay::of(*this) != nullptr) {
        return;
    }
    if (m_showingSettings) {
        setShowingSettings(false);
    } else {
        setSelectedCollectionId({});
    }
}

void PanelView::leaveSettings()
{
    if (m_showingSettings && Overlay::of(*this) == nullptr) {
        m_selectedCollectionId.reset();
        setShowingSettings(false);
    }
}

void PanelView::showNotice(const QString& sentence)
{
    m_passingNotice = sentence;
    updateNotice();
}

bool PanelView::tellsOfUnreadableFile() const
{
    return m_passingNotice.isEmpty() && m_appState.foundUnreadableFile() && !m_hasToldOfUnreadableFile;
}

Notice PanelView::currentNotice()
{
    if (!m_passingNotice.isEmpty()) {
        return {.sentence = m_passingNotice, .buttonTitle = {}, .action = {}};
    }
    const auto withFolder = [this](const QString& sentence, const QString& folder) {
        return Notice{sentence, tr("Show Folder"), [this, folder] { showFolder(folder); }};
    };
    if (tellsOfUnreadableFile()) {
        return withFolder(tr("Your saved colors could not be read. Their file is kept."),
                          m_appState.dataFolder());
    }
    if (!m_appState.saveProblem().isEmpty()) {
        return withFolder(m_appState.saveProblem(), m_appState.dataFolder());
    }
    if (!m_preferences.problem().isEmpty()) {
        return withFolder(m_preferences.problem(), m_preferences.folder());
    }
    return {};
}

void PanelView::updateNotice()
{
    m_notice->showNotice(currentNotice());
}

void PanelView::showSavedFile(const QString& path)
{
    const QFileInfo file(path);
    m_undoPill->say(tr("Saved %1").arg(inOneLine(file.fileName())),
                    {tr("Show"), [this, folder = file.path()] { showFolder(folder); }});
}

void PanelView::showFolder(const QString& folder)
{
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(folder))) {
        showNotice(tr("The folder is %1").arg(folder));
    }
}

QWidget& PanelView::currentScreen() const
{
    return m_detail != nullptr ? *m_detail : *m_dashboard;
}

bool PanelView::isInScreen(const QWidget* widget) const
{
    return widget == &currentScreen() || currentScreen().isAncestorOf(widget);
}

PanelView::ScreenChoice PanelView::chosenScreen() const
{
    if (m_showingSettings) {
        return {ScreenKind::Settings, {}};
    }
    if (m_selectedCollectionId == historySelectionId) {
        return {ScreenKind::History, {}};
    }
    const bool exists = m_selectedCollectionId && m_appState.collection(*m_selectedCollectionId) != nullptr;
    return exists ? ScreenChoice{ScreenKind::Collection, *m_selectedCollectionId} : ScreenChoice{};
}

QWidget* PanelView::makeScreen(const ScreenChoice& choice)
{
    switch (choice.kind) {
    case ScreenKind::Settings:
        return m_makeSettings(*this);
    case ScreenKind::History: {
        auto* history = new HistoryDetailView(m_appState, *this);
        history->setPickKeys(m_pickKeys, m_pickKeysInWords);
        return history;
    }
    case ScreenKind::Collection: {
        auto* palette = new CollectionDetailView(m_appState, choice.collectionId, *this);
        connect(palette, &CollectionDetailView::pickRequested, this, &PanelView::pickRequested);
        return palette;
    }
    case ScreenKind::Dashboard:
        break;
    }
    return nullptr;
}

void PanelView::showHeader()
{
    const bool hasSelection = m_selectedCollectionId.has_value();
    m_title->setText(m_showingSettings ? tr("Settings") : u"Tintwick"_s);
    m_title->setVisible(m_showingSettings || !hasSelection);
    m_back->setVisible(!m_showingSettings && hasSelection);
    m_backTitle->setText(selectionTitle());
    m_back->setToolTip(selectionTitle());
    m_back->setAccessibleName(tr("Back from %1").arg(selectionTitle()));
    m_outsideSettings->setVisible(!m_showingSettings);
    m_done->setVisible(m_showingSettings);
}

QString PanelView::selectionTitle() const
{
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
    const ScreenChoice before = m_shownScreen;
    const ScreenChoice now = chosenScreen();

    const auto change = [&] {
        showHeader();
        if (before != now) {
            showScreen(now);
        }
    };
    if ((before.kind == ScreenKind::Settings) != (now.kind == ScreenKind::Settings)) {
        fadeThrough(*this, {m_header, m_screens}, change);
    } else {
        change();
    }
    if (before == now) {
        return;
    }

    if (now.kind > before.kind) {
        m_openers[before.kind] = isKeyboardUsed ? focused : nullptr;
    }
    const bool hasStrayed = !isKeyboardUsed && Clickable::showsFocusRing(window()->focusWidget());
    QWidget* const opener = now.kind < before.kind ? m_openers.value(now.kind) : nullptr;
    if (opener != nullptr && opener->isVisible()) {
        opener->setFocus(Qt::TabFocusReason);
    } else if (hasStrayed || !isInScreen(window()->focusWidget())) {
        Clickable* const wayBack = m_showingSettings ? static_cast<Clickable*>(m_done) : m_back;
        if (isKeyboardUsed && wayBack->isVisible()) {
            wayBack->setFocus(Qt::TabFocusReason);
        } else {
            setFocus();
        }
    }
}

void PanelView::showScreen(const ScreenChoice& choice)
{
    m_shownScreen = choice;
    QWidget* left = std::exchange(m_detail, makeScreen(choice));
    m_dashboard->setVisible(m_detail == nullptr);
    if (m_detail != nullptr) {
        m_screens->add(m_detail);
        m_detail->show();
        m_undoPill->moveToEndOfTabOrder();
    }
    if (left != nullptr) {
        m_screens->remove(left);
        // One of its own events may be on the call stack.
        left->deleteLater();
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
    if (tellsOfUnreadableFile()) {
        m_hasToldOfUnreadableFile = true;
        updateNotice();
    }
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

void PanelView::importFiles(const QStringList& paths)
{
    showNotice(tintwick::importFiles(m_appState, paths).value_or(QString()));
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
