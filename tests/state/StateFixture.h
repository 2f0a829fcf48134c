#pragma once

#include "AppState.h"
#include "support/QuickTemporaryDir.h"

#include <QFile>
#include <QTemporaryDir>

#include <memory>

namespace tintwick::test {

/// A state with a data folder of its own.
class StateFixture
{
public:
    StateFixture()
    {
        qputenv("XDG_DATA_HOME", QFile::encodeName(m_dataHome->path()));
        restart();
    }

    [[nodiscard]] AppState& state() { return *m_state; }
    [[nodiscard]] AppState* operator->() { return m_state.get(); }

    /// Ends the state and reads the data file anew.
    void restart()
    {
        m_state.reset();
        m_state = std::make_unique<AppState>([](std::chrono::milliseconds, const std::function<void()>&) {});
    }

    [[nodiscard]] QString dataFile() const
    {
        return m_dataHome->filePath(QStringLiteral("Tintwick/data.json"));
    }

    QUuid pick(std::uint32_t rgb)
    {
        m_state->addToHistory(CapturedColor::capture(rgb));
        return m_state->history().first().id;
    }

    void pickMany(int count)
    {
        for (int i = 0; i < count; ++i) {
            pick(static_cast<std::uint32_t>(i));
        }
    }

    /// A new palette that holds the colours.
    QUuid palette(const QString& name, const QList<QUuid>& colorIds)
    {
        const QUuid id = m_state->createCollection(name).id;
        m_state->addColors(colorIds, id);
        return id;
    }

    /// "#0A0B0C #FF0000"
    [[nodiscard]] QString history() const { return codes(m_state->history()); }
    /// "Brand: #0A0B0C #FF0000; Sea:"
    [[nodiscard]] QString palettes() const
    {
        QStringList texts;
        for (const ColorCollection& collection : m_state->collections()) {
            texts +=
                (collection.name + QStringLiteral(": ") + codes(m_state->colorsOf(collection))).trimmed();
        }
        return texts.join(QStringLiteral("; "));
    }

private:
    static QString codes(const QList<CapturedColor>& colors)
    {
        QStringList texts;
        for (const CapturedColor& color : colors) {
            texts += color.hex6();
        }
        return texts.join(u' ');
    }

    std::unique_ptr<QTemporaryDir> m_dataHome = quickTemporaryDir();
    std::unique_ptr<AppState> m_state;
};

} // namespace tintwick::test
