#pragma once

#include <QFileDialog>

namespace tintwick {

/// The toolkit's file dialog, without a parent window and above all others.
class FileDialog : public QFileDialog
{
    Q_OBJECT

public:
    explicit FileDialog(const QString& folder);

    /// Shows the dialog in the middle of a screen and gives it the keyboard.
    void showOn(const QScreen& screen);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace tintwick
