#pragma once

#include "Notice.h"

#include <QLabel>

namespace tintwick {

class TextButton;

/// A sentence and perhaps a button in a rounded row as wide as the panel, in as many lines as it needs. Hidden while it has
/// no text.
class NoticeView final : public QLabel
{
    Q_OBJECT

public:
    NoticeView();

    /// Shows the notice, whose sentence screen readers read aloud; hides the row when there is none.
    void showNotice(const Notice& notice);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void setButton(const Notice& notice);
    void placeButton();

    TextButton* m_button = nullptr;
};

} // namespace tintwick
