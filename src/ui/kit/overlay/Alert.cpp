#include "Alert.h"

#include "Button.h"
#include "Label.h"
#include "Overlay.h"
#include "Stack.h"
#include "Theme.h"

#include <QPointer>
#include <QTextLayout>

namespace tintwick {

namespace {

constexpr int cardWidth = 280;
constexpr int cardPadding = 20;
constexpr int textWidth = cardWidth - 2 * cardPadding;

/// Breaks the text into lines that fit the card.
QString wrapped(const QString& text, const QFont& font)
{
    QTextLayout layout(text, font);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(textWidth);
        lines.append(text.sliced(line.textStart(), line.textLength()).trimmed());
    }
    layout.endLayout();
    return lines.join(u'\n');
}

} // namespace

Overlay* showAlert(QWidget& host, const Alert& alert, std::function<void(int button)> answered)
{
    const QFont messageFont = theme::font(14, QFont::DemiBold);
    auto* texts = column(gap(8), label(wrapped(alert.message, messageFont), messageFont));
    if (!alert.informativeText.isEmpty()) {
        const QFont font = theme::font(12);
        texts->add(label(wrapped(alert.informativeText, font), font, theme::textSecond));
    }

    struct Answer
    {
        QPointer<Overlay> overlay;
        int button = 0;
    };
    const auto answer = std::make_shared<Answer>();
    auto* buttons = row(gap(10), fillWidth());
    TextButton* first = nullptr;
    for (qsizetype i = alert.buttons.size() - 1; i >= 0; --i) {
        const auto press = [answer, button = static_cast<int>(i)] {
            answer->button = button;
            answer->overlay->dismiss();
        };
        first = i == 0 ? prominentButton(alert.buttons[i], press) : borderedButton(alert.buttons[i], press);
        if (i == 0) {
            buttons->add(spacer());
        }
        buttons->add(first);
    }
    auto* form = column(gap(20), padding(cardPadding), fixedWidth(cardWidth), texts, buttons);
    auto* overlay = new Overlay(host, alert.message, form, [answer] { answer->overlay->dismiss(); });
    answer->overlay = overlay;
    first->setFocus(Qt::OtherFocusReason);
    QObject::connect(overlay, &Overlay::dismissed, overlay,
                     [answer, answered = std::move(answered)] { answered(answer->button); });
    return overlay;
}

} // namespace tintwick
