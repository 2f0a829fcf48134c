#include "CollectionActions.h"

#include "AppState.h"
#include "Button.h"
#include "IconColor.h"
#include "Label.h"
#include "Overlay.h"
#include "PanelNavigation.h"
#include "Stack.h"
#include "TextField.h"

#include <QCoreApplication>

#include <functional>

namespace tintwick {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("CollectionActions", text);
}

/// Asks for the name of a palette; a blank one cannot be taken.
void openNameOverlay(QWidget& panel, const QString& title, const QString& presentName,
                     const QString& buttonTitle, const std::function<void(const QString& name)>& take)
{
    if (Overlay::of(panel) != nullptr) {
        return;
    }
    auto* name = new TextField(tr("Palette name"), presentName);
    const auto cancel = [&panel] { Overlay::of(panel)->dismiss(); };
    const auto save = [take, name, cancel] {
        const QString trimmed = name->text().trimmed();
        if (!trimmed.isEmpty()) {
            take(trimmed);
            cancel();
        }
    };
    auto* saveButton = prominentButton(buttonTitle, save);
    const auto follow = [saveButton](const QString& text) {
        saveButton->setEnabled(!text.trimmed().isEmpty());
    };
    QObject::connect(name, &QLineEdit::textChanged, saveButton, follow);
    follow(presentName);
    auto* form =
        column(gap(16), padding(20), fixedWidth(280), Across::Leading, label(title, theme::headline()), name,
               row(borderedButton(tr("Cancel"), cancel), spacer(), saveButton));
    new Overlay(panel, title, form, save);
    name->selectAll();
}

} // namespace

void openRenameCollectionOverlay(QWidget& panel, AppState& state, const ColorCollection& collection)
{
    openNameOverlay(panel, tr("Rename Palette"), collection.name, tr("Save"),
                    [&state, id = collection.id](const QString& name) { state.renameCollection(id, name); });
}

void openNewCollectionOverlay(QWidget& panel, AppState& state, const QList<QUuid>& colorIds)
{
    openNameOverlay(panel, tr("New Palette"), {}, tr("Create"),
                    [&state, colorIds](const QString& name) { state.createCollection(name, colorIds); });
}

MenuEntry importEntry(const QWidget& view)
{
    PanelNavigation* const navigation = PanelNavigation::of(&view);
    return menuAction(tr("Import…"), importKey, [navigation] {
        if (navigation != nullptr) {
            navigation->importPalettes();
        }
    });
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
                {sort(tr("Hue"), ColorOrder::Hue), sort(tr("Lightness"), ColorOrder::Lightness)}),
        iconColorMenu(state, collection), importEntry(panel)};
}

} // namespace tintwick
