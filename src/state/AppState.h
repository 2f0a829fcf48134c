#pragma once

#include "CapturedColor.h"
#include "Clipboard.h"
#include "ColorCollection.h"
#include "ColorFormat.h"
#include "ColorOrder.h"
#include "DataProblem.h"
#include "DataWriter.h"
#include "Payload.h"
#include "RepeatedPick.h"

#include <QList>
#include <QObject>
#include <QSet>
#include <QString>
#include <QUndoStack>
#include <QUuid>

#include <chrono>
#include <functional>

namespace tintwick {

/// Owns what the user has made: the history, the collections and the default format; also the feedback on copies. The
/// constructor reads the data file. Every change of what is stored is saved soon after, by another thread; the destructor
/// waits for it. An operation with an unknown id changes nothing.
///
/// The user can take back each change of colours and collections, but no pick.
///
/// When another program has written the data file, its changes join the state at the next save, before this state's
/// own changes are saved. So does a file that could not be read at the start and can be read later.
class AppState final : public QObject
{
    Q_OBJECT

public:
    /// Calls an action once, after a delay.
    using RunLater = std::function<void(std::chrono::milliseconds delay, std::function<void()> action)>;

    static constexpr qsizetype historyLimit = 100;
    static constexpr std::chrono::milliseconds feedbackDuration{1500};
    /// Earlier changes cannot be taken back.
    static constexpr int undoLimit = 50;

    explicit AppState(QObject* parent = nullptr);
    /// Uses `runLater` instead of a timer.
    explicit AppState(RunLater runLater, QObject* parent = nullptr);
    ~AppState() override;

    /// Newest first; at most `historyLimit` colours, unless the data file held more.
    [[nodiscard]] const QList<CapturedColor>& history() const { return m_data.history; }
    [[nodiscard]] const QList<ColorCollection>& collections() const { return m_data.collections; }
    /// The first collection with an id, or null. The pointer is valid until the collections change.
    [[nodiscard]] const ColorCollection* collection(const QUuid& id) const;
    /// The colours of a collection in its order, also those that have left the history. Leaves out unknown ids.
    [[nodiscard]] QList<CapturedColor> colorsOf(const ColorCollection& collection) const;

    /// The history, and then the colours that only collections hold.
    [[nodiscard]] QList<CapturedColor> allColors() const { return m_data.history + m_data.keptColors; }

    [[nodiscard]] ColorFormat defaultFormat() const { return m_data.defaultFormat; }
    void setDefaultFormat(ColorFormat format);
    /// The user's own template, for the format Template; see ColorTemplate.h.
    [[nodiscard]] const QString& colorTemplate() const { return m_data.colorTemplate; }
    void setColorTemplate(const QString& text);
    /// The text of a colour in a format.
    [[nodiscard]] QString text(const CapturedColor& color, ColorFormat format) const;

    /// True from a copy until the `feedbackDuration` of any copy ends.
    [[nodiscard]] bool showCopiedFeedback() const { return m_showCopiedFeedback; }
    [[nodiscard]] const QString& lastCopiedString() const { return m_lastCopiedString; }

    [[nodiscard]] const Clipboard& clipboard() const { return m_clipboard; }

    /// The text that a pick of the colour copies: in the default format, with the name that the history will give it.
    [[nodiscard]] QString copiedText(const CapturedColor& color) const;
    /// The same in another format.
    [[nodiscard]] QString copiedText(const CapturedColor& color, ColorFormat format) const;
    /// What happens to a picked colour that equals one of the history in its codes, opacity included.
    void setRepeatedPick(RepeatedPick effect) { m_repeatedPick = effect; }
    /// Takes in a picked colour whose text has been copied: names it by the table of names if it has no name, puts it at
    /// the head of the history and drops the oldest beyond the limit. A colour that is moved instead keeps its id, name and
    /// collections, and its time becomes that of the new pick.
    void colorCaptured(const CapturedColor& color);
    /// The same for a colour that was not copied in the default format: shows no feedback.
    void addToHistory(const CapturedColor& color);
    /// Shows that the text of a colour in a format has been copied.
    void showCopyFeedback(ColorFormat format, const CapturedColor& color);
    /// Shows that another text has been copied.
    void showCopyFeedback(const QString& text);
    /// Puts colours with new ids at the head of the history, in their order. Names those without a name by the table of names,
    /// and drops the oldest beyond the limit.
    void insertColors(const QList<CapturedColor>& colors);
    /// Removes colours from the history and from every collection in one change. Saves in every case.
    void deleteColors(const QList<QUuid>& ids);
    void deleteColor(const QUuid& id) { deleteColors({id}); }
    /// Empties the history and every collection; the collections stay.
    void clearHistory();
    /// An empty name removes the colour's name.
    void renameColor(const QUuid& id, const QString& name);

    /// Appends a new collection, which may have members from the start.
    ColorCollection createCollection(const QString& name, const QList<QUuid>& colorIds = {});
    void renameCollection(const QUuid& id, const QString& name);
    /// `word` as in the collection; empty for the colour that the place in the list gives.
    void setIconColor(const QUuid& id, const QString& word);
    /// Inserts a copy with a new id and the name "Brand copy" after the collection.
    void duplicateCollection(const QUuid& id);
    /// Sorts the members once. Unknown ids come last.
    void sortCollection(const QUuid& id, ColorOrder order);
    /// Appends a collection with colours that the history does not have. Names those without a name by the table of names.
    ColorCollection importCollection(const QString& name, const QList<CapturedColor>& colors);
    /// Its colours stay in the history. Saves in every case.
    void deleteCollection(const QUuid& id);
    /// Appends colours to a collection in one change. Skips those that it holds; the history need not have them.
    void addColors(const QList<QUuid>& colorIds, const QUuid& toCollection);
    void addColor(const QUuid& colorId, const QUuid& toCollection) { addColors({colorId}, toCollection); }
    /// Removes colours from a collection in one change. Saves in every case.
    void removeColors(const QList<QUuid>& colorIds, const QUuid& fromCollection);
    void removeColor(const QUuid& colorId, const QUuid& fromCollection)
    {
        removeColors({colorId}, fromCollection);
    }
    /// Moves the members at the positions `from` before the one at `to`; all positions count before the move.
    void moveColors(const QUuid& inCollection, const QSet<qsizetype>& from, qsizetype to);

    /// Takes back the last change. Picks and changes of the file since then stay. Does nothing when there is none.
    void undo();
    /// Makes the change again that undo() took back last.
    void redo();

    /// Returns when the state is on the disk, or cannot be saved now. Tries a failed save again.
    void flush();
    /// Why the last save failed, or why none will succeed: one sentence for the user, empty if all is well.
    [[nodiscard]] QString saveProblem() const { return m_saveProblem.sentence(); }
    /// True when the data file could not be decoded. It is kept in `dataFolder()`, under another name after the first save.
    [[nodiscard]] bool foundUnreadableFile() const { return m_foundUnreadableFile; }
    [[nodiscard]] QString dataFolder() const;

Q_SIGNALS:
    void historyChanged();
    void collectionsChanged();
    void defaultFormatChanged();
    void colorTemplateChanged();
    /// The user has made a change, or made it again. `what` is for the user, for example "Removed Sky".
    void changeMade(const QString& what);
    void changeUndone(const QString& what);
    void showCopiedFeedbackChanged();
    void lastCopiedStringChanged();
    void saveProblemChanged();
    void unreadableFileFound();

private:
    /// The record that a pick of the colour puts at the head of the history.
    [[nodiscard]] CapturedColor asPicked(const CapturedColor& color) const;
    void load();
    void save();
    /// Makes a change that can be taken back, and saves.
    void make(const QString& what, const Payload& after);
    /// Applies the difference between two payloads to the data, and saves.
    void apply(const Payload& from, const Payload& to);
    /// The greatest length that a history may have now: the limit, or the present length if that is greater.
    [[nodiscard]] qsizetype presentLimit() const;
    /// Shortens the history to the present limit, or to `stored` if that is greater.
    void setData(Payload data, qsizetype stored = 0);
    /// The name of a colour, or else the number of the colours.
    [[nodiscard]] QString inWords(const QList<QUuid>& colorIds) const;
    /// Takes the results of the writer's last attempt.
    void takeAttempt();
    void addStored(const DataWriter::StoredChange& change);
    void setSaveProblem(const DataProblem& problem);
    void noteUnreadableFile();
    void setShowCopiedFeedback(bool show);

    Payload m_data;
    QUndoStack m_changes;
    RepeatedPick m_repeatedPick = RepeatedPick::Add;
    bool m_showCopiedFeedback = false;
    QString m_lastCopiedString;
    RunLater m_runLater;
    DataProblem m_saveProblem;
    bool m_foundUnreadableFile = false;
    DataWriter m_writer;
    Clipboard m_clipboard;
};

} // namespace tintwick
