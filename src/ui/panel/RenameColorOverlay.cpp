#include "RenameColorOverlay.h"

#include "AppState.h"
#include "Button.h"
#include "CapturedColor.h"
#include "ColorActions.h"
#include "Label.h"
#include "Overlay.h"
#include "Stack.h"
#include "TextField.h"

#include <QCoreApplication>

namespace tintwick {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("RenameColorOverlay", text);
}

} // namespace

void openRenameColorOverlay(QWidget& panel, AppState& appState, const CapturedColor& color)
{
    const QString title = tr("Rename Color");
    auto* name = new TextField(tr("Color name"), color.customName.value_or(QString()));
    const auto cancel = [&panel] { Overlay::of(panel)->dismiss(); };
    const auto save = [&appState, id = color.id, name, cancel] {
        appState.renameColor(id, name->text());
        cancel();
    };
    // clang-format off
    auto* form = column(gap(16), padding(20), fixedWidth(300), Across::Leading,
        row(gap(12),
            row(fixedSize(40, 40), ground(theme::Color(paintColor(color)), 8), outline(theme::colorEdge, theme::colorEdgeWidth)),
            column(gap(2), Across::Leading,
                label(title, theme::headline()),
                label(color.hex6(), theme::caption(), theme::textSecond))),
        name,
        row(borderedButton(tr("Cancel"), cancel), spacer(), prominentButton(tr("Save"), save)));
    // clang-format on
    new Overlay(panel, title, form, save);
    name->selectAll();
}

} // namespace tintwick
