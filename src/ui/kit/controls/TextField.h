#pragma once

#include <QLineEdit>

namespace tintwick {

/// A line of text that can be typed, with a rounded border.
class TextField final : public QLineEdit
{
    Q_OBJECT

public:
    /// The placeholder is also what a screen reader calls the field.
    explicit TextField(const QString& placeholder, const QString& text = {});

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tintwick
