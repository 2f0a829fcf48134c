#pragma once

#include "Scheme.h"

#include <QStaticText>
#include <QWidget>

namespace tintwick {

/// The help that appears while the pointer rests on a control: its tool tip, in the look of the panel.
class HelpBubble final : public QWidget
{
    Q_OBJECT

public:
    /// Shows the tool tip of `owner` near a global position, until the pointer leaves it or anything is pressed. Without
    /// a tool tip nothing is shown.
    static void show(QWidget& owner, const QPoint& globalPosition);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    HelpBubble(QWidget& owner, const QString& text);

    QStaticText m_text;
    Scheme m_scheme;
};

} // namespace tintwick
