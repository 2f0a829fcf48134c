#pragma once

#include "Scheme.h"

#include <QImage>
#include <QObject>
#include <QString>
#include <QTimer>

namespace tintwick {

class Picker;
class PointerBadge;

/// What the program says beside the pointer while its panel is closed. Says nothing where the desktop has no place for
/// it.
class PickBadge final : public QObject
{
    Q_OBJECT

public:
    /// May be null; must outlive this object.
    explicit PickBadge(PointerBadge* badge, QObject* parent = nullptr);
    ~PickBadge() override;

    /// Of what is shown from now on.
    void setScheme(Scheme scheme) { m_scheme = scheme; }

    /// Shows what the picker's picks wait for until they begin or end.
    void follow(const Picker& picker);
    /// Shows how many of the seconds until a pick are left.
    void showCountdown(int left, int total);
    /// Shows a sentence until hide().
    void showSentence(const QString& sentence);
    /// Shows "Copied!" as long as the panel does.
    void showCopied();
    void hide();

    /// The pictures, at this many physical pixels per point.
    [[nodiscard]] static QImage countdownPicture(int left, int total, Scheme scheme, double scale);
    [[nodiscard]] static QImage textPicture(const QString& text, const QString& symbol, Scheme scheme,
                                            double scale);

private:
    PointerBadge* m_badge;
    Scheme m_scheme = Scheme::Light;
    QTimer m_end;
};

} // namespace tintwick
