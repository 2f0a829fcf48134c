#pragma once

#include "FileDialog.h"

#include <QMessageBox>

#include <functional>
#include <optional>

namespace tintwick {

struct ContentType;

/// The toolkit's save dialog. It writes the file itself and stays open with the reason when that
/// fails. Emits `finished()` when it closes, Accepted after the file was written.
class SaveDialog final : public FileDialog
{
    Q_OBJECT

public:
    /// Writes the file at a path; returns the reason in the user's language when it cannot.
    using Write = std::function<std::optional<QString>(const QString& path)>;

    SaveDialog(const ContentType& contentType, const QString& folder, const QString& suggestedName,
               Write write);

    void done(int result) override;

protected:
    /// Asks before an existing file is replaced.
    void accept() override;

private:
    [[nodiscard]] QMessageBox* createMessage(const QString& text, QMessageBox::StandardButtons buttons);

    Write m_write;
};

} // namespace tintwick
