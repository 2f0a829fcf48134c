#pragma once

#include <QWidget>

namespace tintwick {

/// A view that is composed of others: its constructor says `setContent(column(...))`.
class View : public QWidget
{
    Q_OBJECT

protected:
    /// Makes `content` the whole of the view; what was there before is deleted.
    void setContent(QWidget* content);
    [[nodiscard]] QWidget* content() const { return m_content; }

private:
    QWidget* m_content = nullptr;
};

} // namespace tintwick
