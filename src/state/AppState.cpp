#include "AppState.h"

#include "ColorNames.h"
#include "ListOrder.h"
#include "PayloadCoding.h"
#include "PayloadMerge.h"

#include <QFileInfo>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace tintwick {

namespace {

template <typename Collections>
auto* firstOf(Collections& collections, const QUuid& id)
{
    const auto found = std::ranges::find(collections, id, &ColorCollection::id);
    return found == collections.end() ? nullptr : &*found;
}

CapturedColor named(CapturedColor color)
{
    if (!color.customName) {
        color.customName = ColorNames::shared().nearest(color);
    }
    return color;
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
        m_history = reading.payload.history;
        m_collections = reading.payload.collections;
        m_defaultFormat = reading.payload.defaultFormat;
        break;
    }
}

const ColorCollection* AppState::collection(const QUuid& id) const
{
    return firstOf(m_collections, id);
}

void AppState::setDefaultFormat(ColorFormat format)
{
    if (m_defaultFormat == format) {
        return;
    }
    m_defaultFormat = format;
    Q_EMIT defaultFormatChanged();
    save();
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
    return copiedText(color, m_defaultFormat);
}

QString AppState::copiedText(const CapturedColor& color, ColorFormat format) const
{
    return string(format, named(color));
}

void AppState::colorCaptured(const CapturedColor& color)
{
    addToHistory(color);
    showCopyFeedback(m_defaultFormat, m_history.first());
}

void AppState::addToHistory(const CapturedColor& color)
{
    m_history.prepend(named(color));
    if (m_history.size() > historyLimit) {
        m_history.removeLast();
    }
    Q_EMIT historyChanged();
    save();
}

void AppState::showCopyFeedback(ColorFormat format, const CapturedColor& color)
{
    m_lastCopiedString = string(format, color);
    Q_EMIT lastCopiedStringChanged();
    setShowCopiedFeedback(true);
    m_runLater(feedbackDuration, [this] { setShowCopiedFeedback(false); });
}

void AppState::deleteColor(const QUuid& id)
{
    m_history.removeIf([&](const CapturedColor& color) { return color.id == id; });
    for (ColorCollection& collection : m_collections) {
        collection.colorIds.removeAll(id);
    }
    Q_EMIT historyChanged();
    Q_EMIT collectionsChanged();
    save();
}

void AppState::clearHistory()
{
    m_history.clear();
    for (ColorCollection& collection : m_collections) {
        collection.colorIds.clear();
    }
    Q_EMIT historyChanged();
    Q_EMIT collectionsChanged();
    save();
}

void AppState::renameColor(const QUuid& id, const QString& name)
{
    const auto found = std::ranges::find(m_history, id, &CapturedColor::id);
    if (found == m_history.end()) {
        return;
    }
    found->customName = name.isEmpty() ? std::nullopt : std::optional(name);
    Q_EMIT historyChanged();
    save();
}

ColorCollection AppState::createCollection(const QString& name)
{
    const ColorCollection collection = ColorCollection::create(name);
    m_collections.append(collection);
    Q_EMIT collectionsChanged();
    save();
    return collection;
}

void AppState::deleteCollection(const QUuid& id)
{
    m_collections.removeIf([&](const ColorCollection& collection) { return collection.id == id; });
    Q_EMIT collectionsChanged();
    save();
}

void AppState::addColors(const QList<QUuid>& colorIds, const QUuid& toCollection)
{
    ColorCollection* collection = findCollection(toCollection);
    if (!collection) {
        return;
    }
    const qsizetype countBefore = collection->colorIds.size();
    for (const QUuid& id : colorIds) {
        if (!collection->colorIds.contains(id)) {
            collection->colorIds.append(id);
        }
    }
    if (collection->colorIds.size() == countBefore) {
        return;
    }
    Q_EMIT collectionsChanged();
    save();
}

void AppState::removeColor(const QUuid& colorId, const QUuid& fromCollection)
{
    ColorCollection* collection = findCollection(fromCollection);
    if (!collection) {
        return;
    }
    collection->colorIds.removeAll(colorId);
    Q_EMIT collectionsChanged();
    save();
}

void AppState::moveColors(const QUuid& inCollection, const QSet<qsizetype>& from, qsizetype to)
{
    ColorCollection* collection = findCollection(inCollection);
    if (!collection) {
        return;
    }
    collection->colorIds = moved(collection->colorIds, from, to);
    Q_EMIT collectionsChanged();
    save();
}

void AppState::save()
{
    m_writer.write({m_history, m_collections, m_defaultFormat});
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
    Payload both = merged(change.before, asStored({m_history, m_collections, m_defaultFormat}), change.now);
    const qsizetype limit = std::max(historyLimit, change.now.history.size());
    both.history.resize(std::min(limit, both.history.size()));
    const bool isOtherFormat = both.defaultFormat != m_defaultFormat;
    m_history = std::move(both.history);
    m_collections = std::move(both.collections);
    m_defaultFormat = both.defaultFormat;
    Q_EMIT historyChanged();
    Q_EMIT collectionsChanged();
    if (isOtherFormat) {
        Q_EMIT defaultFormatChanged();
    }
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

ColorCollection* AppState::findCollection(const QUuid& id)
{
    return firstOf(m_collections, id);
}

} // namespace tintwick
