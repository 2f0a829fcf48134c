#pragma once

#include <QLineEdit>

namespace tintwick {

/// A line edit with a rounded border.
class TextField final : public QLineEdit
{
    Q_OBJECT

public:
    /// The placeholder is also the accessible name.
    explicit TextField(const QString& placeholder, const QString& text = {});

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tintwick
