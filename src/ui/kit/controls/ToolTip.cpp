#include "ToolTip.h"

#include "Appearance.h"
#include "InOneLine.h"
#include "KitStyle.h"
#include "PopupWindow.h"
#include "Theme.h"

#include <QChildEvent>
#include <QLabel>
#include <QPointer>
#include <QTextLayout>
#include <QToolTip>

namespace tintwick {

namespace {

/// Points; a longer text wraps.
constexpr double widestText = 320;

QFont textFont()
{
    return theme::font(11);
}

/// Lines of at most `widestText` that QLabel neither wraps again nor reads as markup.
QString asRichText(const QString& toolTip)
{
    const QString text = inOneLine(toolTip);
    QTextLayout layout(text, textFont());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(widestText);
        lines += text.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return QStringLiteral("<div style='white-space:pre'>%1</div>").arg(lines.join(u'\n').toHtmlEscaped());
}

/// Gives our look to the label that QToolTip creates as a child of an owner, before its size is computed. Closes it on events of
/// the owner that QToolTip ignores.
class TipKeeper final : public QObject
{
public:
    void show(QWidget& owner, const QPoint& globalPosition)
    {
        if (m_tip != nullptr && m_tip->parent() != &owner) {
            delete m_tip;
        }
        owner.installEventFilter(this);
        const QString text = owner.toolTip();
        QToolTip::showText(globalPosition, text.isEmpty() ? text : asRichText(text), &owner);
    }

    bool eventFilter(QObject* owner, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::ChildPolished:
            if (QObject* child = static_cast<QChildEvent*>(event)->child(); child->inherits("QTipLabel")) {
                m_tip = static_cast<QLabel*>(child);
                m_tip->setStyle(KitStyle::shared());
                m_tip->setPalette(Appearance::palette(Appearance::of(static_cast<QWidget*>(owner))));
                m_tip->setFont(textFont());
                m_tip->setAttribute(Qt::WA_TranslucentBackground);
                keepCornersRounded(*m_tip, KitStyle::toolTipRadius);
            }
            break;
        case QEvent::Hide:
        case QEvent::KeyPress:
            delete m_tip;
            break;
        default:
            break;
        }
        return QObject::eventFilter(owner, event);
    }

private:
    QPointer<QLabel> m_tip;
};

} // namespace

void showToolTip(QWidget& owner, const QPoint& globalPosition)
{
    static TipKeeper keeper;
    keeper.show(owner, globalPosition);
}

} // namespace tintwick
