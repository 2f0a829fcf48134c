#pragma once

#include <QWidget>

namespace tintwick {

/// A view composed of others. Its constructor calls `setContent(column(...))`.
class View : public QWidget
{
    Q_OBJECT

protected:
    View();

    /// Makes `content` fill the view. Deletes the previous content.
    void setContent(QWidget* content);
    [[nodiscard]] QWidget* content() const { return m_content; }

private:
    QWidget* m_content = nullptr;
};

} // namespace tintwick
