#pragma once

#include "CapturedColor.h"
#include "Clipboard.h"
#include "ColorCollection.h"
#include "ColorFormat.h"
#include "DataFile.h"

#include <QList>
#include <QObject>
#include <QSet>
#include <QString>
#include <QUuid>

#include <chrono>
#include <functional>
#include <optional>

namespace tintwick {

/// The one owner of what the user has made: the history, the collections and the default format, with the
/// feedback on copies. It reads the data file once, when it is created, and every operation that changes what
/// is kept writes the file back before it returns. No operation reports an error: an unknown id changes
/// nothing.
class AppState final : public QObject
{
    Q_OBJECT

public:
    /// Calls an action once, after a delay.
    using RunLater = std::function<void(std::chrono::milliseconds delay, std::function<void()> action)>;

    static constexpr qsizetype historyLimit = 100;
    static constexpr std::chrono::milliseconds feedbackDuration{1500};

    explicit AppState(QObject* parent = nullptr);
    /// With `runLater` in the place of a timer.
    explicit AppState(RunLater runLater, QObject* parent = nullptr);

    /// Newest first, no more than `historyLimit` unless the data file held more.
    [[nodiscard]] const QList<CapturedColor>& history() const { return m_history; }
    [[nodiscard]] const QList<ColorCollection>& collections() const { return m_collections; }
    /// The first collection of an id, or null; good until the collections change.
    [[nodiscard]] const ColorCollection* collection(const QUuid& id) const;

    [[nodiscard]] ColorFormat defaultFormat() const { return m_defaultFormat; }
    /// Does not save.
    void setDefaultFormat(ColorFormat format);

    /// Which collection the main panel shows; never stored.
    [[nodiscard]] std::optional<QUuid> selectedCollectionId() const { return m_selectedCollectionId; }
    void setSelectedCollectionId(const std::optional<QUuid>& id);

    /// True from a copy until `feedbackDuration` after it, and cut short by the end of an earlier copy's
    /// time.
    [[nodiscard]] bool showCopiedFeedback() const { return m_showCopiedFeedback; }
    [[nodiscard]] const QString& lastCopiedString() const { return m_lastCopiedString; }

    [[nodiscard]] const Clipboard& clipboard() const { return m_clipboard; }

    /// Takes a fresh colour in: names it by the table of names if it has none, puts it at the head of the
    /// history, drops the oldest beyond the limit, and copies its text in the default format. Saves.
    void colorCaptured(const CapturedColor& color);
    /// Notes that the text of a colour in a format has been copied.
    void showCopyFeedback(ColorFormat format, const CapturedColor& color);
    /// Takes a colour out of the history and out of every collection. Saves.
    void deleteColor(const QUuid& id);
    /// Empties the history and every collection; the collections stay. Saves.
    void clearHistory();
    /// Names a colour; an empty name takes its name away. Saves.
    void renameColor(const QUuid& id, const QString& name);

    /// Appends a new collection. Saves.
    ColorCollection createCollection(const QString& name);
    /// Deletes a collection, and the selection with it if it was selected; its colours stay. Saves.
    void deleteCollection(const QUuid& id);
    /// Appends a colour to a collection that does not hold it yet, whether or not the history has it. Saves.
    void addColor(const QUuid& colorId, const QUuid& toCollection);
    /// Saves.
    void removeColor(const QUuid& colorId, const QUuid& fromCollection);
    /// Moves the members at the positions `from` before the one at `to`, counted before the move. Saves.
    void moveColors(const QUuid& inCollection, const QSet<qsizetype>& from, qsizetype to);

    void save() const;

Q_SIGNALS:
    void historyChanged();
    void collectionsChanged();
    void defaultFormatChanged();
    void selectedCollectionIdChanged();
    void showCopiedFeedbackChanged();
    void lastCopiedStringChanged();

private:
    [[nodiscard]] ColorCollection* findCollection(const QUuid& id);
    void setShowCopiedFeedback(bool show);

    QList<CapturedColor> m_history;
    QList<ColorCollection> m_collections;
    ColorFormat m_defaultFormat = ColorFormat::Hex6;
    std::optional<QUuid> m_selectedCollectionId;
    bool m_showCopiedFeedback = false;
    QString m_lastCopiedString;
    RunLater m_runLater;
    DataFile m_storage;
    Clipboard m_clipboard;
};

} // namespace tintwick
