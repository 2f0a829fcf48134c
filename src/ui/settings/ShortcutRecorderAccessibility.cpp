#include "ShortcutRecorderAccessibility.h"

#include "ShortcutRecorder.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace tintwick {

namespace {

class AccessibleRecorder final : public QAccessibleWidget
{
public:
    explicit AccessibleRecorder(ShortcutRecorder& recorder)
        : QAccessibleWidget(&recorder, QAccessible::HotkeyField)
        , m_recorder(recorder)
    {
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        switch (kind) {
        case QAccessible::Value:
            return m_recorder.text();
        case QAccessible::Description:
            return m_recorder.placeholder();
        default:
            return QAccessibleWidget::text(kind);
        }
    }

    [[nodiscard]] QStringList actionNames() const override
    {
        return QStringList(pressAction()) + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override
    {
        if (action == pressAction()) {
            m_recorder.startRecording();
        } else {
            QAccessibleWidget::doAction(action);
        }
    }

private:
    ShortcutRecorder& m_recorder;
};

QAccessibleInterface* interfaceOf(const QString& /*className*/, QObject* object)
{
    auto* recorder = qobject_cast<ShortcutRecorder*>(object);
    return recorder ? new AccessibleRecorder(*recorder) : nullptr;
}

} // namespace

void describeRecordersToScreenReaders()
{
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory(interfaceOf);
        return true;
    }();
}

} // namespace tintwick
