#include "CollectionActions.h"

#include "AppState.h"
#include "Button.h"
#include "Label.h"
#include "Overlay.h"
#include "Stack.h"
#include "TextField.h"

#include <QCoreApplication>

namespace tintwick {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("CollectionActions", text);
}

} // namespace

void openRenameCollectionOverlay(QWidget& panel, AppState& state, const ColorCollection& collection)
{
    if (Overlay::of(panel) != nullptr) {
        return;
    }
    const QString title = tr("Rename Palette");
    auto* name = new TextField(tr("Palette name"), collection.name);
    const auto cancel = [&panel] { Overlay::of(panel)->dismiss(); };
    const auto save = [&state, id = collection.id, name, cancel] {
        const QString trimmed = name->text().trimmed();
        if (!trimmed.isEmpty()) {
            state.renameCollection(id, trimmed);
            cancel();
        }
    };
    auto* saveButton = prominentButton(tr("Save"), save);
    QObject::connect(name, &QLineEdit::textChanged, saveButton, [saveButton](const QString& text) {
        saveButton->setEnabled(!text.trimmed().isEmpty());
    });
    auto* form =
        column(gap(16), padding(20), fixedWidth(280), Across::Leading, label(title, theme::headline()), name,
               row(borderedButton(tr("Cancel"), cancel), spacer(), saveButton));
    new Overlay(panel, title, form, save);
    name->selectAll();
}

QList<MenuEntry> collectionMenu(QWidget& panel, AppState& state, const ColorCollection& collection)
{
    const auto sort = [&state, id = collection.id](const QString& title, ColorOrder order) {
        return menuAction(title, [&state, id, order] { state.sortCollection(id, order); });
    };
    return {
        menuAction(tr("Rename…"), QKeySequence(Qt::Key_F2),
                   [&panel, &state, collection] { openRenameCollectionOverlay(panel, state, collection); }),
        menuAction(tr("Duplicate"), [&state, id = collection.id] { state.duplicateCollection(id); }),
        submenu(tr("Sort by"),
                {sort(tr("Hue"), ColorOrder::Hue), sort(tr("Lightness"), ColorOrder::Lightness)})};
}

} // namespace tintwick
