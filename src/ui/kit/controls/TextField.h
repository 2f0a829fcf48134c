#pragma once

#include <QLineEdit>

namespace tintwick {

/// A line edit with a rounded border.
class TextField : public QLineEdit
{
    Q_OBJECT

public:
    /// The placeholder is also the accessible name.
    explicit TextField(const QString& placeholder, const QString& text = {});

    [[nodiscard]] QSize sizeHint() const override;

protected:
    /// Without a frame the text stands on the ground of the panel.
    void setFrameShown(bool shown);
    /// Marks a text that cannot be taken.
    void setRefused(bool refused);

    void paintEvent(QPaintEvent* event) override;

private:
    void paintFrame();

    bool m_isFrameShown = true;
    bool m_isRefused = false;
};

} // namespace tintwick
