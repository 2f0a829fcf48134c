#pragma once

#include <QLabel>

namespace tintwick {

/// A sentence in a rounded row as wide as the panel, in as many lines as it needs. Hidden while it has no text.
class NoticeView final : public QLabel
{
    Q_OBJECT

public:
    NoticeView();

    /// Shows the sentence, which screen readers read aloud; hides the row when it is empty.
    void showNotice(const QString& sentence);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tintwick
