#include "DataSettingsTab.h"

#include "Alert.h"
#include "AppState.h"
#include "Bound.h"
#include "Button.h"
#include "ColorExport.h"
#include "Label.h"
#include "MenuButton.h"
#include "Preferences.h"
#include "SettingsLayout.h"
#include "Switch.h"
#include "SymbolView.h"
#include "Theme.h"

#include <QCoreApplication>
#include <QDesktopServices>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr double exportRadius = 10;

QWidget* exportTile(const QString& title, const QString& symbolName)
{
    return column(gap(5), fillWidth(), fixedHeight(58), centered(), ground(theme::surfaceHigh, exportRadius),
                  outline(theme::border, 1), symbol(symbolName, 16, SymbolWeight::Medium, theme::accentText),
                  label(title, theme::font(12, QFont::Medium)));
}

} // namespace

DataSettingsTab::DataSettingsTab(AppState& appState, Preferences& preferences,
                                 const std::optional<QUrl>& projectPage)
    : m_appState(appState)
    , m_preferences(preferences)
{
    setContent(column(gap(12), historySection(), exportSection(), aboutSection(projectPage)));
}

QWidget* DataSettingsTab::historySection()
{
    Label* count = label({}, theme::font(13), theme::textSecond);
    bound([this] { return m_appState.history().size(); })
        .changedBy(m_appState, &AppState::historyChanged)
        .follow(*count, [count](qsizetype colors) {
            count->setText(u"%1 / %2"_s.arg(colors).arg(AppState::historyLimit));
        });
    TextButton* clear = borderedButton(tr("Clear"), [this] { m_appState.clearHistory(); });
    clear->setAccessibleName(tr("Clear all history"));
    return settingsSection(tr("History"),
                           settingsRows({settingsRow(tr("Colors saved"), count),
                                         settingsRow(tr("Clear all history"), clear), repeatedPickRow()}));
}

QWidget* DataSettingsTab::repeatedPickRow()
{
    const QString title = tr("Picking a color again moves it to the front");
    auto* moves = new Switch(title, m_preferences.repeatedPick() == RepeatedPick::Move);
    moves->onSwitch([this](bool isOn) {
        m_preferences.setRepeatedPick(isOn ? RepeatedPick::Move : RepeatedPick::Add);
        return m_preferences.repeatedPick() == (isOn ? RepeatedPick::Move : RepeatedPick::Add);
    });
    return row(fillWidth(), fixedHeight(28), label(title, theme::font(13)), spacer(), moves);
}

QWidget* DataSettingsTab::exportSection()
{
    const auto exportAs = [this](ExportFormat format) {
        return [this, format] { ColorExport().exportColors(format, m_appState.history(), u"History"_s); };
    };
    Stack* tiles = row(gap(10), padding(0, 6), fillWidth());
    for (const ExportFormat format : mainExportFormats) {
        const QString title = infoOf(format).kind.toString();
        tiles->add(plainButton(tr("Export %1").arg(title), exportAs(format),
                               exportTile(title, infoOf(format).symbol.toString()), exportRadius));
    }
    tiles->add(new MenuButton(
        tr("Export in another format"),
        [exportAs] {
            QList<MenuEntry> entries;
            for (const ExportFormat format : moreExportFormats) {
                const ExportFormatInfo& info = infoOf(format);
                entries.append(menuAction(info.title.toString(), info.symbol.toString(), exportAs(format)));
            }
            return entries;
        },
        exportTile(tr("More"), u"unfold"_s), exportRadius));
    return settingsSection(tr("Export All History"), tiles);
}

void DataSettingsTab::open(const QUrl& page)
{
    if (!QDesktopServices::openUrl(page)) {
        showAlert(*window(), {tr("The page cannot be opened"), page.toLocalFile(), {tr("OK")}}, [](int) {});
    }
}

QWidget* DataSettingsTab::aboutSection(const std::optional<QUrl>& projectPage)
{
    Stack* credit =
        row(fillWidth(), fixedHeight(28),
            label(tr("Made by the Tintwick developers"), theme::font(13), theme::textSecond), spacer());
    if (projectPage) {
        const QString title = tr("Read Me");
        credit->add(plainTextButton(
            title, [this, page = *projectPage] { open(page); },
            label(title, theme::font(13, QFont::Medium), theme::accentText)));
    }
    return settingsSection(
        tr("About"), settingsRows({settingsRow(tr("Version"), label(QCoreApplication::applicationVersion(),
                                                                    theme::font(13), theme::textSecond)),
                                   credit}));
}

} // namespace tintwick
