#include "Clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace tintwick {

void Clipboard::copy(const QString& text) const
{
    // Setting a text also removes all other formats. Clearing first would release the clipboard, and a clipboard manager
    // could take it.
    QGuiApplication::clipboard()->setText(text);
}

} // namespace tintwick
