#include "Clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace tintwick {

void Clipboard::copy(const QString& text) const
{
    // Setting a text drops every other form of the old content. Clearing first would give the clipboard up
    // for a moment, and a clipboard manager could take it in between.
    QGuiApplication::clipboard()->setText(text);
}

} // namespace tintwick
