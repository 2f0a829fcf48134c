#include "ui/RenameColorSheet.h"

#include "model/CapturedColor.h"
#include "state/AppState.h"
#include "ui/ColorActions.h"
#include "ui/kit/Button.h"
#include "ui/kit/Label.h"
#include "ui/kit/Sheet.h"
#include "ui/kit/Stack.h"
#include "ui/kit/TextField.h"

#include <QCoreApplication>

namespace tintwick {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("RenameColorSheet", text);
}

} // namespace

void openRenameColorSheet(QWidget& panel, AppState& appState, const CapturedColor& color)
{
    const QString title = tr("Rename Color");
    auto* name = new TextField(tr("Color name"), color.customName.value_or(QString()));
    const auto cancel = [&panel] { Sheet::of(panel)->dismiss(); };
    const auto save = [&appState, id = color.id, name, cancel] {
        appState.renameColor(id, name->text());
        cancel();
    };
    // clang-format off
    auto* form = column(gap(16), padding(20), fixedWidth(300), Across::Leading,
        row(gap(12),
            row(fixedSize(40, 40), ground(DS::Color(paintColor(color)), 8), outline(DS::white.opacity(0.15), 0.5)),
            column(gap(2), Across::Leading,
                label(title, DS::headline()),
                label(color.hex6(), DS::caption(), DS::textSecond))),
        name,
        row(borderedButton(tr("Cancel"), cancel), spacer(), prominentButton(tr("Save"), save)));
    // clang-format on
    new Sheet(panel, title, form, save);
    name->selectAll();
}

} // namespace tintwick
