#pragma once

#include <QFileDialog>

namespace tintwick {

struct ContentType;

/// The toolkit's dialog for saving a file, free-standing. Closing it, confirmed or not, emits `finished()`.
class SaveDialog final : public QFileDialog
{
    Q_OBJECT

public:
    SaveDialog(const ContentType& contentType, const QString& folder, const QString& suggestedName);

    /// Shows it in the middle of a screen, in front of all windows, ready for typing.
    void showOn(const QScreen& screen);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// A file that is there is replaced only once the user has said so.
    void accept() override;
};

} // namespace tintwick
