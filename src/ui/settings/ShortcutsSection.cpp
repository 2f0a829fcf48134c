#include "ShortcutsSection.h"

#include "Button.h"
#include "Clipboard.h"
#include "ConfigurationLine.h"
#include "Label.h"
#include "PanelHost.h"
#include "Paragraph.h"
#include "Preferences.h"
#include "SegmentedPicker.h"
#include "SettingsLayout.h"
#include "ShortcutRecorder.h"
#include "ShortcutRegistry.h"
#include "SymbolView.h"
#include "Theme.h"

#include <QTimer>

#include <algorithm>
#include <chrono>
#include <iterator>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr double lineRadius = 7;
constexpr int lineMargin = 8;
constexpr int rowHeight = 28;
constexpr std::chrono::milliseconds copiedDuration{1600};

/// A recorder's row, and below it the recorder's message while there is one.
Stack* withMessage(Stack* row, const ShortcutRecorder& recorder)
{
    const auto message = bound([&recorder] {
                             return recorder.message();
                         }).changedBy(recorder, &ShortcutRecorder::messageChanged);
    const auto hasMessage = bound([&recorder] {
                                return !recorder.message().isEmpty();
                            }).changedBy(recorder, &ShortcutRecorder::messageChanged);
    return column(gap(3), fillWidth(), Across::Leading, row,
                  shownWhen(hasMessage, label(message, theme::caption(), theme::textSecond)));
}

/// Copies the text, and says so for a moment.
PlainButton* copyButton(const QString& name, const QString& text)
{
    auto* sign = symbol(u"copy"_s, 13, SymbolWeight::Regular, theme::accentText);
    auto* title = label(ShortcutsSection::tr("Copy"), theme::font(13, QFont::Medium), theme::accentText);
    auto* shown = new QTimer(title);
    shown->setSingleShot(true);
    shown->setInterval(copiedDuration);
    const auto copy = [=] {
        Clipboard().copy(text);
        sign->setName(u"check"_s);
        title->setText(ShortcutsSection::tr("Copied"));
        shown->start();
    };
    QObject::connect(shown, &QTimer::timeout, title, [=] {
        sign->setName(u"copy"_s);
        title->setText(ShortcutsSection::tr("Copy"));
    });
    return plainTextButton(name, copy, row(gap(5), sign, title));
}

Stack* lineRow(ShortcutAction action, const QString& line)
{
    const QString title = titleOf(action);
    return column(gap(4), fillWidth(),
                  row(fillWidth(), fixedHeight(rowHeight), label(title, theme::font(13)), spacer(),
                      copyButton(ShortcutsSection::tr("Copy the line for %1").arg(title), line)),
                  row(fillWidth(), padding(lineMargin, 6), ground(theme::field, lineRadius),
                      outline(theme::border, 1),
                      paragraph(line, settingsWidth - 2 * lineMargin, theme::monospacedFont(11))));
}

/// In a row that is too narrow, other labels are cut.
Label* uncut(Label* label)
{
    label->setMinimumWidth(label->sizeHint().width());
    return label;
}

Paragraph* hintBelow(const QString& text)
{
    return paragraph(text, settingsWidth, theme::caption(), theme::textSecond);
}

} // namespace

ShortcutsSection::ShortcutsSection(const RecorderServices& services, Preferences& preferences, QWidget& panel)
    : m_services(services)
    , m_preferences(preferences)
    , m_panel(panel)
{
    rebuild();
    const ShortcutRegistry& shortcuts = m_services.shortcuts;
    connect(&shortcuts, &ShortcutRegistry::keyChoiceChanged, this, &ShortcutsSection::rebuild);
    // Lines name the keys of the present layout and combination; the other rows follow by themselves.
    const auto rebuildLines = [this] {
        if (m_services.shortcuts.keyChoice() == GlobalShortcuts::KeyChoice::None) {
            rebuild();
        }
    };
    connect(&shortcuts, &ShortcutRegistry::textsChanged, this, rebuildLines);
    connect(&shortcuts, &ShortcutRegistry::shortcutChanged, this, rebuildLines);
}

void ShortcutsSection::rebuild()
{
    setContent(settingsSection(tr("Keyboard Shortcuts"), rows()));
}

Stack* ShortcutsSection::rows()
{
    const ShortcutRegistry& shortcuts = m_services.shortcuts;
    const bool isDialog = shortcuts.keyChoice() == GlobalShortcuts::KeyChoice::DesktopDialog;
    const bool hasLine = shortcuts.configurationLine(ShortcutAction::ActivatePicker).has_value();
    return isDialog ? dialogRows() : hasLine ? lineRows() : recorderRows();
}

Stack* ShortcutsSection::recorderRows()
{
    QList<QWidget*> rows;
    for (const ShortcutAction action : allShortcutActions) {
        auto* recorder = new ShortcutRecorder(m_services, action, m_panel);
        recorder->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        rows.append(withMessage(settingsRow(titleOf(action), recorder), *recorder));
    }
    auto* names =
        new SegmentedPicker(tr("Show keys as"), {tr("Signs"), tr("Words")},
                            std::ranges::find(allKeyNames, m_preferences.keyNames()) - allKeyNames.begin());
    names->onSelect([this](qsizetype position) {
        m_preferences.setKeyNames(allKeyNames.at(static_cast<std::size_t>(position)));
    });
    rows.append(settingsRow(tr("Show keys as"), names));
    return settingsRows(rows);
}

Stack* ShortcutsSection::dialogRows()
{
    QList<QWidget*> rows;
    for (const ShortcutAction action : allShortcutActions) {
        const auto keys = bound([this, action] {
                              const QString text = m_services.shortcuts.text(action);
                              return text.isEmpty() ? tr("Not set") : text;
                          }).changedBy(m_services.shortcuts, &ShortcutRegistry::shortcutChanged);
        const auto change = [this] {
            m_services.shortcuts.configure(m_services.panelHost ? m_services.panelHost->portalHandle(m_panel)
                                                                : QString());
        };
        rows.append(row(
            gap(16), fillWidth(), fixedHeight(rowHeight), uncut(label(titleOf(action), theme::font(13))),
            spacer(), label(keys, theme::font(13), theme::textSecond),
            plainTextButton(tr("Change the shortcut for %1").arg(titleOf(action)), change,
                            uncut(label(tr("Change…"), theme::font(13, QFont::Medium), theme::accentText)))));
    }
    return settingsRows(rows);
}

// A hint that is the same for all lines stands once, below them.
Stack* ShortcutsSection::lineRows()
{
    const auto lineOf = [this](ShortcutAction action) {
        return m_services.shortcuts.configurationLine(action).value_or(ConfigurationLine());
    };
    const QString hint = lineOf(allShortcutActions.front()).hint;
    const bool isShared = std::ranges::all_of(
        allShortcutActions, [&](ShortcutAction action) { return lineOf(action).hint == hint; });
    QList<QWidget*> rows;
    for (const ShortcutAction action : allShortcutActions) {
        const ConfigurationLine line = lineOf(action);
        Stack* row = lineRow(action, line.text);
        if (!isShared) {
            row->add(hintBelow(line.hint));
        }
        rows.append(row);
    }
    Stack* lines = settingsRows(rows);
    return isShared ? column(gap(6), fillWidth(), lines, hintBelow(hint)) : lines;
}

} // namespace tintwick
