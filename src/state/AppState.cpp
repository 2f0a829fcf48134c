#include "AppState.h"

#include "ColorNames.h"
#include "ListOrder.h"
#include "PayloadChange.h"
#include "PayloadCoding.h"
#include "PayloadMerge.h"
#include "PicksSince.h"

#include <QFileInfo>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace tintwick {

namespace {

/// The first record with an id, or null.
template <typename Records>
auto* firstOf(Records& records, const QUuid& id)
{
    const auto found = std::ranges::find_if(records, [&id](const auto& record) { return record.id == id; });
    return found == records.end() ? nullptr : &*found;
}

CapturedColor named(CapturedColor color)
{
    if (!color.customName) {
        color.customName = ColorNames::shared().nearest(color);
    }
    return color;
}

void removeAll(QList<QUuid>& list, const QList<QUuid>& ids)
{
    list.removeIf([&ids](const QUuid& id) { return ids.contains(id); });
}

QString colorCount(qsizetype count)
{
    return count == 1 ? AppState::tr("1 color") : AppState::tr("%1 colors").arg(count);
}

QString nameOf(const CapturedColor& color)
{
    return color.customName.value_or(color.hex6());
}

} // namespace

AppState::AppState(QObject* parent)
    : AppState(
          [this](std::chrono::milliseconds delay, std::function<void()> action) {
              QTimer::singleShot(delay, Qt::PreciseTimer, this, std::move(action));
          },
          parent)
{
}

AppState::AppState(RunLater runLater, QObject* parent)
    : QObject(parent)
    , m_runLater(std::move(runLater))
{
    m_changes.setUndoLimit(undoLimit);
    connect(&m_writer, &DataWriter::attempted, this, &AppState::takeAttempt);
    load();
}

AppState::~AppState()
{
    flush();
}

void AppState::load()
{
    const DataReading reading = m_writer.read();
    switch (reading.outcome) {
    case DataReading::Outcome::Failed:
        m_saveProblem = {DataProblem::Kind::CannotRead, reading.error};
        break;
    case DataReading::Outcome::Undecodable:
        m_foundUnreadableFile = true;
        break;
    case DataReading::Outcome::Read:
    case DataReading::Outcome::Missing:
        m_data = reading.payload;
        m_data.keptColors = heldColors(m_data, m_data.keptColors);
        break;
    }
}

const ColorCollection* AppState::collection(const QUuid& id) const
{
    return firstOf(m_data.collections, id);
}

QList<CapturedColor> AppState::colorsOf(const ColorCollection& collection) const
{
    return collection.colors(m_data.history, m_data.keptColors);
}

void AppState::setDefaultFormat(ColorFormat format)
{
    if (m_data.defaultFormat == format) {
        return;
    }
    m_data.defaultFormat = format;
    Q_EMIT defaultFormatChanged();
    save();
}

void AppState::setColorTemplate(const QString& text)
{
    if (m_data.colorTemplate == text) {
        return;
    }
    m_data.colorTemplate = text;
    Q_EMIT colorTemplateChanged();
    save();
}

QString AppState::text(const CapturedColor& color, ColorFormat format) const
{
    return string(format, color, QStringLiteral("color"), m_data.colorTemplate);
}

void AppState::setShowCopiedFeedback(bool show)
{
    if (m_showCopiedFeedback == show) {
        return;
    }
    m_showCopiedFeedback = show;
    Q_EMIT showCopiedFeedbackChanged();
}

QString AppState::copiedText(const CapturedColor& color) const
{
    return copiedText(color, m_data.defaultFormat);
}

QString AppState::copiedText(const CapturedColor& color, ColorFormat format) const
{
    return text(asPicked(color), format);
}

CapturedColor AppState::asPicked(const CapturedColor& color) const
{
    if (m_repeatedPick == RepeatedPick::Move) {
        const auto known = std::ranges::find(m_data.history, color.hex8(), &CapturedColor::hex8);
        if (known != m_data.history.end()) {
            CapturedColor again = *known;
            again.capturedAt = color.capturedAt;
            return again;
        }
    }
    return named(color);
}

void AppState::colorCaptured(const CapturedColor& color)
{
    addToHistory(color);
    showCopyFeedback(m_data.defaultFormat, m_data.history.first());
}

void AppState::addToHistory(const CapturedColor& color)
{
    Payload data = m_data;
    const CapturedColor picked = asPicked(color);
    data.history.removeIf([&picked](const CapturedColor& other) { return other.id == picked.id; });
    data.history.prepend(picked);
    setData(std::move(data));
    save();
}

void AppState::showCopyFeedback(ColorFormat format, const CapturedColor& color)
{
    showCopyFeedback(text(color, format));
}

void AppState::showCopyFeedback(const QString& text)
{
    m_lastCopiedString = text;
    Q_EMIT lastCopiedStringChanged();
    setShowCopiedFeedback(true);
    m_runLater(feedbackDuration, [this] { setShowCopiedFeedback(false); });
}

void AppState::insertColors(const QList<CapturedColor>& colors)
{
    QList<CapturedColor> inserted;
    for (const CapturedColor& color : colors) {
        inserted.append(named(color));
    }
    Payload after = m_data;
    after.history = inserted + m_data.history;
    after.history.resize(std::min(after.history.size(), presentLimit()));
    after.keptColors = heldColors(after, m_data.history + m_data.keptColors);
    make(tr("Added %1").arg(inserted.size() == 1 ? nameOf(inserted.first()) : colorCount(inserted.size())),
         after);
}

void AppState::deleteColors(const QList<QUuid>& ids)
{
    Payload after = m_data;
    after.history.removeIf([&ids](const CapturedColor& color) { return ids.contains(color.id); });
    for (ColorCollection& collection : after.collections) {
        removeAll(collection.colorIds, ids);
    }
    make(tr("Removed %1").arg(inWords(ids)), after);
}

void AppState::clearHistory()
{
    Payload after = m_data;
    after.history.clear();
    for (ColorCollection& collection : after.collections) {
        collection.colorIds.clear();
    }
    make(tr("Removed %1").arg(colorCount(m_data.history.size() + m_data.keptColors.size())), after);
}

void AppState::renameColor(const QUuid& id, const QString& name)
{
    Payload after = m_data;
    CapturedColor* color = firstOf(after.history, id);
    color = color != nullptr ? color : firstOf(after.keptColors, id);
    if (color == nullptr) {
        return;
    }
    color->customName = name.isEmpty() ? std::nullopt : std::optional(name);
    make(tr("Renamed %1").arg(inWords({id})), after);
}

ColorCollection AppState::importCollection(const QString& name, const QList<CapturedColor>& colors)
{
    ColorCollection collection = ColorCollection::create(name);
    Payload after = m_data;
    for (const CapturedColor& color : colors) {
        collection.colorIds.append(color.id);
        after.keptColors.append(named(color));
    }
    after.collections.append(collection);
    make(tr("Imported %1").arg(name), after);
    return collection;
}

ColorCollection AppState::createCollection(const QString& name, const QList<QUuid>& colorIds)
{
    ColorCollection collection = ColorCollection::create(name);
    for (const QUuid& id : colorIds) {
        if (!collection.colorIds.contains(id)) {
            collection.colorIds.append(id);
        }
    }
    Payload after = m_data;
    after.collections.append(collection);
    make(tr("Created %1").arg(name), after);
    return collection;
}

void AppState::renameCollection(const QUuid& id, const QString& name)
{
    Payload after = m_data;
    if (ColorCollection* collection = firstOf(after.collections, id)) {
        const QString before = std::exchange(collection->name, name);
        make(tr("Renamed %1").arg(before), after);
    }
}

void AppState::setIconColor(const QUuid& id, const QString& word)
{
    Payload after = m_data;
    if (ColorCollection* collection = firstOf(after.collections, id)) {
        collection->iconColor = word;
        make(tr("Changed the icon of %1").arg(collection->name), after);
    }
}

void AppState::duplicateCollection(const QUuid& id)
{
    Payload after = m_data;
    const ColorCollection* original = firstOf(after.collections, id);
    if (!original) {
        return;
    }
    const QString name = original->name;
    ColorCollection copy = ColorCollection::create(tr("%1 copy").arg(name));
    copy.colorIds = original->colorIds;
    copy.icon = original->icon;
    copy.iconColor = original->iconColor;
    after.collections.insert(original - after.collections.constData() + 1, copy);
    make(tr("Duplicated %1").arg(name), after);
}

void AppState::sortCollection(const QUuid& id, ColorOrder order)
{
    Payload after = m_data;
    ColorCollection* collection = firstOf(after.collections, id);
    if (!collection) {
        return;
    }
    QList<QUuid> ids;
    for (const CapturedColor& color : sorted(colorsOf(*collection), order)) {
        ids.append(color.id);
        collection->colorIds.removeAll(color.id);
    }
    collection->colorIds = ids + collection->colorIds;
    make(tr("Sorted %1").arg(collection->name), after);
}

void AppState::deleteCollection(const QUuid& id)
{
    const ColorCollection* collection = this->collection(id);
    const QString name = collection != nullptr ? collection->name : QString();
    Payload after = m_data;
    after.collections.removeIf([&](const ColorCollection& candidate) { return candidate.id == id; });
    make(tr("Removed %1").arg(name), after);
}

void AppState::addColors(const QList<QUuid>& colorIds, const QUuid& toCollection)
{
    Payload after = m_data;
    ColorCollection* collection = firstOf(after.collections, toCollection);
    if (!collection) {
        return;
    }
    QList<QUuid> added;
    for (const QUuid& id : colorIds) {
        if (!collection->colorIds.contains(id)) {
            collection->colorIds.append(id);
            added.append(id);
        }
    }
    if (!added.isEmpty()) {
        make(tr("Added %1").arg(inWords(added)), after);
    }
}

void AppState::removeColors(const QList<QUuid>& colorIds, const QUuid& fromCollection)
{
    Payload after = m_data;
    if (ColorCollection* collection = firstOf(after.collections, fromCollection)) {
        removeAll(collection->colorIds, colorIds);
        make(tr("Removed %1").arg(inWords(colorIds)), after);
    }
}

void AppState::moveColors(const QUuid& inCollection, const QSet<qsizetype>& from, qsizetype to)
{
    Payload after = m_data;
    ColorCollection* collection = firstOf(after.collections, inCollection);
    if (!collection) {
        return;
    }
    QList<QUuid> moving;
    for (const qsizetype position : from) {
        moving.append(collection->colorIds.value(position));
    }
    collection->colorIds = moved(collection->colorIds, from, to);
    make(tr("Moved %1").arg(inWords(moving)), after);
}

QString AppState::inWords(const QList<QUuid>& colorIds) const
{
    ColorCollection colors;
    colors.colorIds = colorIds;
    const QList<CapturedColor> known = colorsOf(colors);
    if (colorIds.size() == 1 && known.size() == 1) {
        return nameOf(known.first());
    }
    return colorCount(colorIds.size());
}

void AppState::make(const QString& what, const Payload& after)
{
    if (after == m_data) {
        save();
        return;
    }
    // The stack applies the change.
    m_changes.push(new PayloadChange(what.simplified(), m_data, after,
                                     [this](const Payload& from, const Payload& to) { apply(from, to); }));
    Q_EMIT changeMade(m_changes.undoText());
}

void AppState::undo()
{
    if (m_changes.canUndo()) {
        m_changes.undo();
        Q_EMIT changeUndone(m_changes.redoText());
    }
}

void AppState::redo()
{
    if (m_changes.canRedo()) {
        m_changes.redo();
        Q_EMIT changeMade(m_changes.undoText());
    }
}

void AppState::apply(const Payload& from, const Payload& to)
{
    // After a merge with the file the data have whole seconds.
    Payload data = to;
    if (m_data != from) {
        const Payload before = asStored(from);
        const Payload now = asStored(m_data);
        data = merged(before, now, asStored(to));
        data.history = withPicksFirst(data.history, before.history, now.history);
    }
    setData(std::move(data), to.history.size());
    save();
}

qsizetype AppState::presentLimit() const
{
    return std::max(historyLimit, m_data.history.size());
}

void AppState::setData(Payload data, qsizetype stored)
{
    const QList<CapturedColor> known = data.history + data.keptColors + m_data.history + m_data.keptColors;
    const qsizetype limit = std::max(presentLimit(), stored);
    // resize() would copy a history that the changes share.
    if (data.history.size() > limit) {
        data.history.resize(limit);
    }
    data.keptColors = heldColors(data, known);

    const Payload before = std::exchange(m_data, std::move(data));
    if (m_data.history != before.history || m_data.keptColors != before.keptColors) {
        Q_EMIT historyChanged();
    }
    if (m_data.collections != before.collections) {
        Q_EMIT collectionsChanged();
    }
    if (m_data.defaultFormat != before.defaultFormat) {
        Q_EMIT defaultFormatChanged();
    }
    if (m_data.colorTemplate != before.colorTemplate) {
        Q_EMIT colorTemplateChanged();
    }
}

void AppState::save()
{
    m_writer.write(m_data);
}

void AppState::flush()
{
    m_writer.waitUntilIdle();
    if (m_writer.problem().exists()) {
        save();
        m_writer.waitUntilIdle();
    }
    takeAttempt();
    // The attempt may have found stored data, which is being saved together with ours now.
    m_writer.waitUntilIdle();
    takeAttempt();
}

void AppState::takeAttempt()
{
    if (const auto change = m_writer.takeStored()) {
        addStored(*change);
    }
    if (m_writer.hasMovedFileAside()) {
        noteUnreadableFile();
    }
    setSaveProblem(m_writer.problem());
}

void AppState::addStored(const DataWriter::StoredChange& change)
{
    setData(merged(change.before, asStored(m_data), change.now), change.now.history.size());
    save();
}

void AppState::setSaveProblem(const DataProblem& problem)
{
    if (m_saveProblem == problem) {
        return;
    }
    m_saveProblem = problem;
    Q_EMIT saveProblemChanged();
}

void AppState::noteUnreadableFile()
{
    if (!m_foundUnreadableFile) {
        m_foundUnreadableFile = true;
        Q_EMIT unreadableFileFound();
    }
}

QString AppState::dataFolder() const
{
    return QFileInfo(DataFile().fileURL().toLocalFile()).absolutePath();
}

} // namespace tintwick
