#include "TemplateRow.h"

#include "AppState.h"
#include "Bound.h"
#include "InOneLine.h"
#include "Label.h"
#include "Paragraph.h"
#include "SettingsLayout.h"
#include "TextField.h"
#include "Theme.h"

#include <QCoreApplication>

namespace tintwick {

namespace {

constexpr std::uint32_t dodgerBlue = 0x1E90FF;

QString tr(const char* text)
{
    return QCoreApplication::translate("TemplateRow", text);
}

/// The text for the newest colour, or what is wrong with the template.
QString previewOf(const AppState& appState, const QString& text)
{
    if (const auto part = invalidTemplatePart(text)) {
        return tr("%1 is not a field").arg(inOneLine(*part));
    }
    const bool isEmpty = appState.history().isEmpty();
    return inOneLine(
        filledTemplate(text, isEmpty ? CapturedColor::capture(dodgerBlue) : appState.history().first()));
}

QWidget* editor(AppState& appState)
{
    auto* field = new TextField(tr("Template"), appState.colorTemplate());
    auto* preview = label({}, theme::font(12, QFont::Medium), theme::textPrimary);
    const auto showPreview = [&appState, field, preview] {
        preview->setText(previewOf(appState, field->text()));
        field->setAccessibleDescription(preview->text());
    };
    showPreview();
    QObject::connect(field, &QLineEdit::textEdited, field, [&appState, field](const QString& text) {
        if (!invalidTemplatePart(text)) {
            appState.setColorTemplate(text);
        }
    });
    QObject::connect(field, &QLineEdit::textChanged, preview, showPreview);
    QObject::connect(&appState, &AppState::colorTemplateChanged, field, [&appState, field] {
        // What the user types may not be valid yet.
        if (!field->hasFocus()) {
            field->setText(appState.colorTemplate());
        }
    });
    QObject::connect(&appState, &AppState::historyChanged, preview, showPreview);
    auto* fields = paragraph(
        tr("{r} {g} {b} 0–255, {rf} {gf} {bf} {a} 0–1, {h} {s} {l}, {sv} {v}, {c} {m} {y} {k}, {L} {C} {H} "
           "of "
           "OKLCH, {hex} {name} {slug} {tailwind}. {g:02x} is hexadecimal, {h:.1} has one decimal."),
        settingsWidth, theme::caption(), theme::textSecond);
    return column(gap(6), fillWidth(), Across::Leading, padding(0, 4), field, preview, fields);
}

} // namespace

QWidget* templateRow(AppState& appState)
{
    Stack* row = column(fillWidth());
    const auto isUsed = bound([&appState] {
                            return appState.defaultFormat() == ColorFormat::Template;
                        }).changedBy(appState, &AppState::defaultFormatChanged);
    // Made when it is used first.
    isUsed.follow(*row, [&appState, row](bool isShown) {
        if (isShown && row->findChild<QLineEdit*>() == nullptr) {
            row->add(editor(appState));
        }
    });
    return shownWhen(isUsed, row);
}

} // namespace tintwick
