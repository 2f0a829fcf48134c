#pragma once

#include "ui/DS.h"
#include "ui/kit/Symbol.h"

#include <QString>
#include <QWidget>

namespace tintwick {

/// A symbol beside text of the same size. It says nothing to a screen reader: the control that it is part of does.
class SymbolView final : public QWidget
{
    Q_OBJECT

public:
    SymbolView(QString name, int size, SymbolWeight weight, const DS::Color& color);

    void setName(const QString& name);
    void setColor(const DS::Color& color);
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_name;
    int m_size;
    SymbolWeight m_weight;
    DS::Color m_color;
};

[[nodiscard]] SymbolView* symbol(const QString& name, int size, SymbolWeight weight, const DS::Color& color);

} // namespace tintwick
