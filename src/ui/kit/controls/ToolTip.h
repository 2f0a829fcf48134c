#pragma once

#include "Scheme.h"

#include <QStaticText>
#include <QWidget>

namespace tintwick {

/// The tool tip of a control in the style of the panel.
class ToolTip final : public QWidget
{
    Q_OBJECT

public:
    /// Shows the tool tip of `owner` near a global position until the pointer leaves the owner or something is pressed. Shows
    /// nothing when the tool tip is empty.
    static void show(QWidget& owner, const QPoint& globalPosition);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    ToolTip(QWidget& owner, const QString& text);

    QStaticText m_text;
    Scheme m_scheme;
};

} // namespace tintwick
