#pragma once

#include "Symbol.h"
#include "Theme.h"

#include <QString>
#include <QWidget>

namespace tintwick {

/// A symbol beside text of the same size. It has no accessible name; the control that contains it has one.
class SymbolView final : public QWidget
{
    Q_OBJECT

public:
    SymbolView(QString name, int size, SymbolWeight weight, const theme::Color& color);

    void setName(const QString& name);
    void setColor(const theme::Color& color);
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_name;
    int m_size;
    SymbolWeight m_weight;
    theme::Color m_color;
};

[[nodiscard]] SymbolView* symbol(const QString& name, int size, SymbolWeight weight,
                                 const theme::Color& color);

} // namespace tintwick
