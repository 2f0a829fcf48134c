#include "AppState.h"

#include "FileDescriptor.h"
#include "PayloadCoding.h"
#include "support/QuickTemporaryDir.h"

#include <QClipboard>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <vector>

#include <sys/inotify.h>

namespace tintwick {

namespace {

CapturedColor colorOf(uint rgb, const std::optional<QString>& name = std::nullopt)
{
    CapturedColor color =
        CapturedColor::capture((rgb >> 16) / 255.0, (rgb >> 8 & 0xFF) / 255.0, (rgb & 0xFF) / 255.0, 1);
    // The data file stores whole seconds.
    color.capturedAt.setMSecsSinceEpoch(color.capturedAt.toMSecsSinceEpoch() / 1000 * 1000);
    color.customName = name;
    return color;
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A clock that the test advances.
class ManualTime final
{
public:
    AppState::RunLater runLater()
    {
        return [this](std::chrono::milliseconds delay, std::function<void()> action) {
            m_waiting.push_back({m_now + delay, std::move(action)});
        };
    }

    void advance(std::chrono::milliseconds span)
    {
        m_now += span;
        const auto isDue = [this](const Waiting& waiting) { return waiting.due <= m_now && waiting.action; };
        // An action may add further actions, so each search starts from the beginning.
        for (auto next = std::find_if(m_waiting.begin(), m_waiting.end(), isDue); next != m_waiting.end();
             next = std::find_if(m_waiting.begin(), m_waiting.end(), isDue)) {
            std::exchange(next->action, nullptr)();
        }
    }

private:
    struct Waiting
    {
        std::chrono::milliseconds due;
        std::function<void()> action;
    };

    std::chrono::milliseconds m_now{0};
    std::vector<Waiting> m_waiting;
};

/// Counts the signals of a state.
struct SignalCounts
{
    explicit SignalCounts(const AppState& state)
        : history(&state, &AppState::historyChanged)
        , collections(&state, &AppState::collectionsChanged)
        , defaultFormat(&state, &AppState::defaultFormatChanged)
        , feedback(&state, &AppState::showCopiedFeedbackChanged)
        , copied(&state, &AppState::lastCopiedStringChanged)
    {
    }

    /// Returns the number of changes of history, collections, default format, feedback and last copied text, and resets
    /// them.
    QList<qsizetype> take()
    {
        QList<qsizetype> counts;
        for (QSignalSpy* spy : {&history, &collections, &defaultFormat, &feedback, &copied}) {
            counts += spy->count();
            spy->clear();
        }
        return counts;
    }

    QSignalSpy history;
    QSignalSpy collections;
    QSignalSpy defaultFormat;
    QSignalSpy feedback;
    QSignalSpy copied;
};

/// Counts the files that are moved into a folder. Each save of the data file moves one.
class WriteCounter final
{
public:
    explicit WriteCounter(const QString& folder)
        : m_inotify(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        // Watches both ends of each rename. The kernel would merge consecutive equal events.
        ::inotify_add_watch(m_inotify.get(), QFile::encodeName(folder).constData(),
                            IN_MOVED_FROM | IN_MOVED_TO);
    }

    /// The number since the last call.
    [[nodiscard]] int take()
    {
        int count = 0;
        alignas(inotify_event) std::array<char, 64 * 1024> buffer{};
        for (ssize_t size = 0; (size = ::read(m_inotify.get(), buffer.data(), buffer.size())) > 0;) {
            for (ssize_t at = 0; at < size;) {
                inotify_event event{};
                std::memcpy(&event, buffer.data() + at, sizeof event);
                count += (event.mask & IN_MOVED_TO) != 0 ? 1 : 0;
                at += static_cast<ssize_t>(sizeof event + event.len);
            }
        }
        return count;
    }

private:
    FileDescriptor m_inotify;
};

} // namespace

class AppStateTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void theFirstStartIsEmpty();
    void savedDataIsLoaded();
    void anUnreadableFileGivesAnEmptyStateAndIsKeptAside_data();
    void anUnreadableFileGivesAnEmptyStateAndIsKeptAside();
    void aFileThatIsRepairedBeforeTheFirstSaveIsTakenIn();
    void aFailedReadIsNeverTakenForNoData();
    void dataReadLaterJoinsTheState();
    void aLaterReadKeepsTheLimitOfTheHistory();
    void changesOfAnotherCopyJoinTheState();
    void aColorDeletedHereStaysDeletedWhenTheFileWasEdited();
    void aRemovedFileIsSavedAnew();
    void aFileThatIsBrokenWhileRunningIsKeptAside();
    void anUntouchedFileIsNotReadAgain();
    void aFailedSaveIsToldUntilOneSucceeds();
    void aFailedSaveIsTriedAgainAtTheEnd();
    void aLongerStoredHistoryIsKept();

    void aCapturedColorIsNamedAddedAndSaved();
    void aNamedCaptureKeepsItsName();
    void capturingTheSameColorTwiceGivesTwoEntries();
    void theHistoryDropsTheOldestBeyondTheLimit();

    void theFeedbackEndsAfterItsDelay();
    void eachCopyHasItsOwnTimer();
    void theFeedbackEndsWithTheRealTimer();
    void deletingTheStateCancelsTheFeedback();

    void deletingAColorRemovesItFromEveryCollection();
    void clearingTheHistoryKeepsTheCollections();
    void renamingAColor();
    void creatingAndDeletingCollections();
    void addingAColorTwiceKeepsOneMember();
    void removingAColorFromACollection();
    void movingColors_data();
    void movingColors();
    void unknownIdsChangeNothing();
    void onlyDeletionsSaveForAnUnknownId();
    void settersSignalOnlyAChange();
    void theDefaultFormatIsSaved();
    void addingSeveralColorsIsOneChangeAndOneSave();
    void theCopiedTextUsesTheColorName();

private:
    [[nodiscard]] QString dataFile() const
    {
        return m_dataHome->filePath(QStringLiteral("Tintwick/data.json"));
    }
    /// Returns whether the data file was written, and removes it.
    bool wasSaved(AppState& state)
    {
        state.flush();
        return QFile::remove(dataFile());
    }
    void store(const QByteArray& content);

    std::unique_ptr<QTemporaryDir> m_dataHome;
};

void AppStateTest::init()
{
    m_dataHome = test::quickTemporaryDir();
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_dataHome->path()));
}

void AppStateTest::store(const QByteArray& content)
{
    QDir(m_dataHome->path()).mkpath(QStringLiteral("Tintwick"));
    QFile file(dataFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

void AppStateTest::theFirstStartIsEmpty()
{
    const AppState state;
    QVERIFY(state.history().isEmpty());
    QVERIFY(state.collections().isEmpty());
    QCOMPARE(state.defaultFormat(), ColorFormat::Hex6);
    QVERIFY(!state.showCopiedFeedback());
    QCOMPARE(state.lastCopiedString(), QString());
    QVERIFY(!QFile::exists(dataFile()));
}

void AppStateTest::savedDataIsLoaded()
{
    const CapturedColor color = colorOf(0x1E90FF, QStringLiteral("Sky"));
    ColorCollection collection;
    {
        AppState state;
        state.setDefaultFormat(ColorFormat::Tailwind);
        state.colorCaptured(color);
        collection = state.createCollection(QStringLiteral("Brand"));
        state.addColor(color.id, collection.id);
    }
    const AppState state;
    QCOMPARE(state.history(), QList<CapturedColor>{color});
    QCOMPARE(state.collections().size(), 1);
    QCOMPARE(state.collections().first().id, collection.id);
    QCOMPARE(state.collections().first().colorIds, QList<QUuid>{color.id});
    QCOMPARE(state.defaultFormat(), ColorFormat::Tailwind);
    QCOMPARE(state.lastCopiedString(), QString());
}

void AppStateTest::anUnreadableFileGivesAnEmptyStateAndIsKeptAside_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("unknown format") << QByteArray(R"({"history":[],"collections":[],"defaultFormat":"hex"})");
    QTest::newRow("no collections") << QByteArray(R"({"history":[],"defaultFormat":"RGB"})");
    QTest::newRow("collection without an icon") << QByteArray(
        R"({"history":[],"collections":[{"id":"11111111-2222-4333-8444-555555555555","name":"a",)"
        R"("colorIds":[],"createdAt":"2025-01-02T03:04:05Z"}],"defaultFormat":"RGB"})");
    QTest::newRow("not JSON") << QByteArray("history");
}

void AppStateTest::anUnreadableFileGivesAnEmptyStateAndIsKeptAside()
{
    QFETCH(QByteArray, content);
    store(content);
    AppState state;
    QVERIFY(state.history().isEmpty());
    QVERIFY(state.collections().isEmpty());
    QCOMPARE(state.defaultFormat(), ColorFormat::Hex6);

    QVERIFY(state.foundUnreadableFile());
    QCOMPARE(state.dataFolder(), QFileInfo(dataFile()).path());
    QCOMPARE(contentOf(dataFile()), content);

    state.createCollection(QStringLiteral("New"));
    state.createCollection(QStringLiteral("Newer"));
    state.flush();
    QCOMPARE(state.saveProblem(), QString());
    const AppState next;
    QCOMPARE(next.collections().size(), 2);
    QVERIFY(!next.foundUnreadableFile());
    const QDir folder(QFileInfo(dataFile()).path());
    const QStringList aside = folder.entryList({QStringLiteral("data.unreadable-*.json")}, QDir::Files);
    QCOMPARE(aside.size(), 1);
    QCOMPARE(contentOf(folder.filePath(aside.first())), content);
}

void AppStateTest::aFileThatIsRepairedBeforeTheFirstSaveIsTakenIn()
{
    store("broken");
    AppState state;
    const CapturedColor stored = colorOf(0x102030, QStringLiteral("Stored"));
    store(*encodePayload({{stored}, {}, ColorFormat::Rgb}));
    state.createCollection(QStringLiteral("New"));
    state.flush();
    QCOMPARE(state.history(), QList<CapturedColor>{stored});
    QCOMPARE(AppState().history(), QList<CapturedColor>{stored});
    QCOMPARE(AppState().collections().size(), 1);
}

void AppStateTest::aFailedReadIsNeverTakenForNoData()
{
    QVERIFY(QDir().mkpath(dataFile()));
    AppState state;
    QSignalSpy problem(&state, &AppState::saveProblemChanged);
    QCOMPARE(state.saveProblem(), QStringLiteral("Not saved: data.json is not a file"));
    QVERIFY(!state.foundUnreadableFile());
    state.colorCaptured(colorOf(0x1E90FF));
    state.flush();
    QCOMPARE(state.saveProblem(), QStringLiteral("Not saved: data.json is not a file"));
    QVERIFY(problem.isEmpty());
    QVERIFY(QFileInfo(dataFile()).isDir());
    QVERIFY(QDir(dataFile()).isEmpty());
}

void AppStateTest::dataReadLaterJoinsTheState()
{
    QVERIFY(QDir().mkpath(dataFile()));
    AppState state;
    SignalCounts signalCounts(state);
    const CapturedColor first = colorOf(0x1E90FF, QStringLiteral("First"));
    const CapturedColor second = colorOf(0x00FF00, QStringLiteral("Second"));
    const CapturedColor stored = colorOf(0x102030, QStringLiteral("Stored"));
    const ColorCollection storedCollection = ColorCollection::create(QStringLiteral("Stored"));
    state.colorCaptured(first);
    const ColorCollection collection = state.createCollection(QStringLiteral("New"));
    state.flush();
    signalCounts.take();

    QVERIFY(QDir().rmdir(dataFile()));
    store(*encodePayload({{stored}, {storedCollection}, ColorFormat::Rgb}));
    state.colorCaptured(second);
    QTRY_COMPARE(state.history(), (QList<CapturedColor>{second, first, stored}));
    QCOMPARE(state.collections().size(), 2);
    QCOMPARE(state.collections()[0].id, storedCollection.id);
    QCOMPARE(state.collections()[1].id, collection.id);
    QCOMPARE(state.defaultFormat(), ColorFormat::Rgb);
    QCOMPARE(signalCounts.take(), (QList<qsizetype>{2, 1, 1, 0, 1}));
    state.flush();
    QCOMPARE(state.saveProblem(), QString());
    QCOMPARE(AppState().history(), (QList<CapturedColor>{second, first, stored}));
}

void AppStateTest::aLaterReadKeepsTheLimitOfTheHistory()
{
    QVERIFY(QDir().mkpath(dataFile()));
    AppState state;
    const CapturedColor color = colorOf(0x1E90FF);
    state.colorCaptured(color);
    // The attempt to save must not meet the moment without a file.
    state.flush();
    QVERIFY(QDir().rmdir(dataFile()));
    store(*encodePayload({QList<CapturedColor>(100, colorOf(0x102030)), {}, ColorFormat::Hex6}));
    state.createCollection(QStringLiteral("New"));
    state.flush();
    QCOMPARE(state.history().size(), 100);
    QCOMPARE(state.history().first().id, color.id);
}

void AppStateTest::changesOfAnotherCopyJoinTheState()
{
    const CapturedColor old = colorOf(0x102030, QStringLiteral("Old"));
    QCOMPARE(DataFile().save({{old}, {}, ColorFormat::Hex6}), 0);
    AppState first;
    AppState second;
    const CapturedColor theirs = colorOf(0x1E90FF, QStringLiteral("Theirs"));
    second.colorCaptured(theirs);
    second.renameColor(old.id, QStringLiteral("New"));
    second.createCollection(QStringLiteral("Sea"));
    second.flush();

    SignalCounts signalCounts(first);
    const CapturedColor ours = colorOf(0x00FF00, QStringLiteral("Ours"));
    first.addToHistory(ours);
    CapturedColor renamed = old;
    renamed.customName = QStringLiteral("New");
    const QList<CapturedColor> both{ours, theirs, renamed};
    QTRY_COMPARE(first.history(), both);
    QCOMPARE(first.collections().size(), 1);
    // The new colour, then the changes of the other copy.
    QCOMPARE(signalCounts.take(), (QList<qsizetype>{2, 1, 0, 0, 0}));
    first.flush();
    QCOMPARE(first.saveProblem(), QString());
    QCOMPARE(AppState().history(), both);

    second.setDefaultFormat(ColorFormat::Rgb);
    second.flush();
    QCOMPARE(second.history(), both);
    first.createCollection(QStringLiteral("Sky"));
    first.flush();
    QCOMPARE(first.defaultFormat(), ColorFormat::Rgb);
    const AppState third;
    QCOMPARE(third.history(), both);
    QCOMPARE(third.collections().size(), 2);
    QCOMPARE(third.defaultFormat(), ColorFormat::Rgb);
}

void AppStateTest::aColorDeletedHereStaysDeletedWhenTheFileWasEdited()
{
    AppState state;
    // The file rounds the time of this one.
    state.colorCaptured(CapturedColor::capture(0x1E90FF));
    state.flush();
    Payload edited = *decodePayload(contentOf(dataFile()));
    const CapturedColor theirs = colorOf(0x102030, QStringLiteral("Theirs"));
    edited.history.append(theirs);
    store(*encodePayload(edited));
    state.deleteColor(state.history().first().id);
    state.flush();
    QCOMPARE(state.history(), QList<CapturedColor>{theirs});
    QCOMPARE(AppState().history(), QList<CapturedColor>{theirs});
}

void AppStateTest::aRemovedFileIsSavedAnew()
{
    AppState state;
    state.colorCaptured(colorOf(0x1E90FF));
    state.flush();
    QVERIFY(QFile::remove(dataFile()));
    state.colorCaptured(colorOf(0x00FF00));
    state.flush();
    QCOMPARE(AppState().history().size(), 2);
}

void AppStateTest::aFileThatIsBrokenWhileRunningIsKeptAside()
{
    AppState state;
    state.colorCaptured(colorOf(0x1E90FF));
    state.flush();
    store("broken");
    QSignalSpy found(&state, &AppState::unreadableFileFound);
    state.colorCaptured(colorOf(0x00FF00));
    state.flush();
    QCOMPARE(found.count(), 1);
    QCOMPARE(AppState().history().size(), 2);
    const QDir folder(state.dataFolder());
    const QStringList aside = folder.entryList({QStringLiteral("data.unreadable-*.json")});
    QCOMPARE(aside.size(), 1);
    QCOMPARE(contentOf(folder.filePath(aside.first())), QByteArray("broken"));
}

void AppStateTest::anUntouchedFileIsNotReadAgain()
{
    AppState state;
    state.colorCaptured(colorOf(0x1E90FF));
    state.flush();
    const FileDescriptor events(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    ::inotify_add_watch(events.get(), QFile::encodeName(dataFile()).constData(), IN_OPEN);
    state.colorCaptured(colorOf(0x00FF00));
    state.flush();
    // The only event: the file has been replaced.
    inotify_event event{};
    QCOMPARE(::read(events.get(), &event, sizeof event), ssize_t(sizeof event));
    QCOMPARE(event.mask, std::uint32_t(IN_IGNORED));
    QCOMPARE(AppState().history().size(), 2);
}

void AppStateTest::aFailedSaveIsToldUntilOneSucceeds()
{
    AppState state;
    QVERIFY(QDir().mkpath(dataFile()));
    state.colorCaptured(colorOf(0x1E90FF));
    QTRY_COMPARE(state.saveProblem(), QStringLiteral("Not saved: data.json is not a file"));
    QVERIFY(QDir().rmdir(dataFile()));
    QSignalSpy problem(&state, &AppState::saveProblemChanged);
    state.createCollection(QStringLiteral("New"));
    QTRY_COMPARE(state.saveProblem(), QString());
    QCOMPARE(problem.count(), 1);
    QCOMPARE(AppState().history().size(), 1);
}

void AppStateTest::aFailedSaveIsTriedAgainAtTheEnd()
{
    {
        AppState state;
        QVERIFY(QDir().mkpath(dataFile()));
        state.colorCaptured(colorOf(0x1E90FF));
        QTRY_VERIFY(!state.saveProblem().isEmpty());
        QVERIFY(QDir().rmdir(dataFile()));
    }
    QCOMPARE(AppState().history().size(), 1);
}

void AppStateTest::aLongerStoredHistoryIsKept()
{
    QList<CapturedColor> history;
    for (int i = 0; i < 103; ++i) {
        history.append(colorOf(0x102030));
    }
    QCOMPARE(DataFile().save({history, {}, ColorFormat::Hex6}), 0);
    AppState state;
    QCOMPARE(state.history(), history);
    state.colorCaptured(colorOf(0xFFFFFF));
    QCOMPARE(state.history().size(), 103);
}

void AppStateTest::aCapturedColorIsNamedAddedAndSaved()
{
    ManualTime time;
    AppState state(time.runLater());
    SignalCounts signalCounts(state);
    const CapturedColor older = colorOf(0x000000);
    const CapturedColor newer = colorOf(0x1E90FF);
    state.colorCaptured(older);
    QCOMPARE(signalCounts.take(), (QList<qsizetype>{1, 0, 0, 1, 1}));
    state.setDefaultFormat(ColorFormat::CssVar);
    QVERIFY(wasSaved(state));
    signalCounts.take();

    state.colorCaptured(newer);
    QCOMPARE(signalCounts.take(), (QList<qsizetype>{1, 0, 0, 0, 1}));
    QCOMPARE(state.history().size(), 2);
    QCOMPARE(state.history()[0].id, newer.id);
    QCOMPARE(state.history()[0].customName, QStringLiteral("Dodger Blue"));
    QCOMPARE(state.history()[1].customName, QStringLiteral("Black"));
    QCOMPARE(state.copiedText(newer), QStringLiteral("--dodger-blue: #1E90FF;"));
    QCOMPARE(state.lastCopiedString(), QStringLiteral("--dodger-blue: #1E90FF;"));
    QVERIFY(state.showCopiedFeedback());
    QVERIFY(wasSaved(state));
}

void AppStateTest::aNamedCaptureKeepsItsName()
{
    AppState state;
    state.colorCaptured(colorOf(0x1E90FF, QStringLiteral("Mine")));
    QCOMPARE(state.history().first().customName, QStringLiteral("Mine"));
}

void AppStateTest::capturingTheSameColorTwiceGivesTwoEntries()
{
    AppState state;
    state.colorCaptured(colorOf(0x1E90FF));
    state.colorCaptured(colorOf(0x1E90FF));
    QCOMPARE(state.history().size(), 2);
}

void AppStateTest::theHistoryDropsTheOldestBeyondTheLimit()
{
    AppState state;
    QList<QUuid> newestFirst;
    for (int i = 0; i < 101; ++i) {
        const CapturedColor color = colorOf(0x10 + static_cast<uint>(i));
        newestFirst.prepend(color.id);
        state.colorCaptured(color);
        QCOMPARE(state.history().size(), std::min(i + 1, 100));
    }
    newestFirst.removeLast();
    QList<QUuid> kept;
    for (const CapturedColor& color : state.history()) {
        kept += color.id;
    }
    QCOMPARE(kept, newestFirst);
}

void AppStateTest::theFeedbackEndsAfterItsDelay()
{
    ManualTime time;
    AppState state(time.runLater());
    SignalCounts signalCounts(state);
    state.showCopyFeedback(ColorFormat::Rgb, colorOf(0x3B82F6));
    QCOMPARE(state.lastCopiedString(), QStringLiteral("rgb(59, 130, 246)"));
    QVERIFY(state.showCopiedFeedback());
    QCOMPARE(signalCounts.take(), (QList<qsizetype>{0, 0, 0, 1, 1}));
    QVERIFY(!wasSaved(state));

    time.advance(std::chrono::milliseconds(1499));
    QVERIFY(state.showCopiedFeedback());
    time.advance(std::chrono::milliseconds(1));
    QVERIFY(!state.showCopiedFeedback());
    QCOMPARE(signalCounts.take(), (QList<qsizetype>{0, 0, 0, 1, 0}));
    QCOMPARE(state.lastCopiedString(), QStringLiteral("rgb(59, 130, 246)"));
}

void AppStateTest::eachCopyHasItsOwnTimer()
{
    ManualTime time;
    AppState state(time.runLater());
    const CapturedColor color = colorOf(0x3B82F6);
    SignalCounts signalCounts(state);
    state.showCopyFeedback(ColorFormat::Hex6, color);
    time.advance(std::chrono::milliseconds(1000));
    state.showCopyFeedback(ColorFormat::Hex6, color);
    // The feedback is visible already. The same text is signalled again.
    QCOMPARE(signalCounts.take(), (QList<qsizetype>{0, 0, 0, 1, 2}));

    time.advance(std::chrono::milliseconds(499));
    QVERIFY(state.showCopiedFeedback());
    time.advance(std::chrono::milliseconds(1));
    QVERIFY(!state.showCopiedFeedback());
    QCOMPARE(signalCounts.take(), (QList<qsizetype>{0, 0, 0, 1, 0}));
    time.advance(std::chrono::milliseconds(1000));
    QCOMPARE(signalCounts.take(), (QList<qsizetype>{0, 0, 0, 0, 0}));
}

void AppStateTest::theFeedbackEndsWithTheRealTimer()
{
    AppState state;
    QElapsedTimer elapsed;
    elapsed.start();
    state.showCopyFeedback(ColorFormat::Hex6, colorOf(0x3B82F6));
    QSignalSpy fallen(&state, &AppState::showCopiedFeedbackChanged);
    QVERIFY(fallen.wait(30'000));
    QVERIFY(!state.showCopiedFeedback());
    QVERIFY(elapsed.elapsed() >= 1499);
}

void AppStateTest::deletingTheStateCancelsTheFeedback()
{
    auto state = std::make_unique<AppState>();
    state->showCopyFeedback(ColorFormat::Hex6, colorOf(0x3B82F6));
    state.reset();
    AppState other;
    other.showCopyFeedback(ColorFormat::Hex6, colorOf(0x3B82F6));
    QSignalSpy fallen(&other, &AppState::showCopiedFeedbackChanged);
    QVERIFY(fallen.wait(30'000));
}

void AppStateTest::deletingAColorRemovesItFromEveryCollection()
{
    AppState state;
    const CapturedColor kept = colorOf(0x111111);
    const CapturedColor deleted = colorOf(0x222222);
    state.colorCaptured(kept);
    state.colorCaptured(deleted);
    const QUuid both = state.createCollection(QStringLiteral("Both")).id;
    const QUuid one = state.createCollection(QStringLiteral("One")).id;
    state.addColor(deleted.id, both);
    state.addColor(kept.id, both);
    state.addColor(deleted.id, one);
    wasSaved(state);
    SignalCounts signalCounts(state);

    state.deleteColor(deleted.id);
    QCOMPARE(state.history().size(), 1);
    QCOMPARE(state.history().first().id, kept.id);
    QCOMPARE(state.collections().size(), 2);
    QCOMPARE(state.collections()[0].colorIds, QList<QUuid>{kept.id});
    QVERIFY(state.collections()[1].colorIds.isEmpty());
    QCOMPARE(signalCounts.take(), (QList<qsizetype>{1, 1, 0, 0, 0}));
    QVERIFY(wasSaved(state));
}

void AppStateTest::clearingTheHistoryKeepsTheCollections()
{
    AppState state;
    const CapturedColor color = colorOf(0x111111);
    state.colorCaptured(color);
    const QUuid collection = state.createCollection(QStringLiteral("Brand")).id;
    state.addColor(color.id, collection);
    wasSaved(state);
    SignalCounts signalCounts(state);

    state.clearHistory();
    QVERIFY(state.history().isEmpty());
    QCOMPARE(state.collections().size(), 1);
    QCOMPARE(state.collections().first().name, QStringLiteral("Brand"));
    QCOMPARE(state.collections().first().icon, QStringLiteral("paintpalette.fill"));
    QVERIFY(state.collections().first().colorIds.isEmpty());
    QCOMPARE(signalCounts.take(), (QList<qsizetype>{1, 1, 0, 0, 0}));
    QVERIFY(wasSaved(state));
}

void AppStateTest::renamingAColor()
{
    AppState state;
    const CapturedColor color = colorOf(0x1E90FF);
    state.colorCaptured(color);
    wasSaved(state);
    SignalCounts signalCounts(state);

    state.renameColor(color.id, QStringLiteral("  Sky "));
    QCOMPARE(state.history().first().customName, QStringLiteral("  Sky "));
    QVERIFY(wasSaved(state));
    state.renameColor(color.id, QStringLiteral("  Sky "));
    QCOMPARE(signalCounts.take(), (QList<qsizetype>{1, 0, 0, 0, 0}));
    QVERIFY(wasSaved(state));

    state.renameColor(color.id, QString());
    QVERIFY(!state.history().first().customName.has_value());
    QCOMPARE(string(ColorFormat::ColorName, state.history().first()), QStringLiteral("Dodger Blue"));
    QCOMPARE(string(ColorFormat::CssVar, state.history().first()), QStringLiteral("--color: #1E90FF;"));
    QVERIFY(wasSaved(state));
}

void AppStateTest::creatingAndDeletingCollections()
{
    AppState state;
    SignalCounts signalCounts(state);
    const ColorCollection first = state.createCollection(QStringLiteral("First"));
    QVERIFY(wasSaved(state));
    const ColorCollection second = state.createCollection(QStringLiteral(""));
    const ColorCollection third = state.createCollection(QStringLiteral("First"));
    QCOMPARE(state.collections(), (QList<ColorCollection>{first, second, third}));
    QCOMPARE(signalCounts.take(), (QList<qsizetype>{0, 3, 0, 0, 0}));

    wasSaved(state);
    signalCounts.take();
    state.deleteCollection(first.id);
    QCOMPARE(signalCounts.take(), (QList<qsizetype>{0, 1, 0, 0, 0}));
    QVERIFY(wasSaved(state));

    state.deleteCollection(second.id);
    QCOMPARE(signalCounts.take(), (QList<qsizetype>{0, 1, 0, 0, 0}));
    QCOMPARE(state.collections(), QList<ColorCollection>{third});
}

void AppStateTest::addingAColorTwiceKeepsOneMember()
{
    AppState state;
    const QUuid collection = state.createCollection(QStringLiteral("Brand")).id;
    const QUuid notInTheHistory = QUuid::createUuid();
    const QUuid another = QUuid::createUuid();
    state.addColor(notInTheHistory, collection);
    state.addColor(another, collection);
    QVERIFY(wasSaved(state));
    SignalCounts signalCounts(state);

    state.addColor(notInTheHistory, collection);
    QVERIFY(!wasSaved(state));
    QCOMPARE(signalCounts.take(), (QList<qsizetype>{0, 0, 0, 0, 0}));
    QCOMPARE(state.collections().first().colorIds, (QList<QUuid>{notInTheHistory, another}));
}

void AppStateTest::removingAColorFromACollection()
{
    AppState state;
    const CapturedColor color = colorOf(0x111111);
    state.colorCaptured(color);
    const QUuid collection = state.createCollection(QStringLiteral("Brand")).id;
    state.addColor(color.id, collection);
    wasSaved(state);

    state.removeColor(color.id, collection);
    QVERIFY(wasSaved(state));
    QVERIFY(state.collections().first().colorIds.isEmpty());
    QCOMPARE(state.history().size(), 1);
    state.removeColor(color.id, collection);
    QVERIFY(wasSaved(state));
}

void AppStateTest::movingColors_data()
{
    QTest::addColumn<QSet<qsizetype>>("from");
    QTest::addColumn<qsizetype>("to");
    QTest::addColumn<QList<qsizetype>>("after");
    // Expected positions of the five members.
    const auto row = [](const char* name, const QSet<qsizetype>& from, qsizetype to,
                        const QList<qsizetype>& after) { QTest::newRow(name) << from << to << after; };
    row("one downwards", {0}, 2, {1, 0, 2, 3, 4});
    row("one to the end", {1}, 5, {0, 2, 3, 4, 1});
    row("one upwards", {3}, 1, {0, 3, 1, 2, 4});
    row("one to the start", {4}, 0, {4, 0, 1, 2, 3});
    row("one before itself", {2}, 2, {0, 1, 2, 3, 4});
    row("one before the next", {2}, 3, {0, 1, 2, 3, 4});
    row("two apart, downwards", {0, 2}, 4, {1, 3, 0, 2, 4});
    row("two apart, upwards", {2, 4}, 1, {0, 2, 4, 1, 3});
    row("two from both sides", {0, 4}, 3, {1, 2, 0, 4, 3});
    row("three to the end", {0, 1, 3}, 5, {2, 4, 0, 1, 3});
    row("before one of the moved", {1, 3}, 3, {0, 2, 1, 3, 4});
    row("all", {0, 1, 2, 3, 4}, 2, {0, 1, 2, 3, 4});
    row("none", {}, 3, {0, 1, 2, 3, 4});
    row("positions out of range", {-1, 1, 5}, 0, {1, 0, 2, 3, 4});
}

void AppStateTest::movingColors()
{
    QFETCH(const QSet<qsizetype>, from);
    QFETCH(const qsizetype, to);
    QFETCH(const QList<qsizetype>, after);
    AppState state;
    const QUuid collection = state.createCollection(QStringLiteral("Brand")).id;
    QList<QUuid> ids;
    for (int i = 0; i < 5; ++i) {
        ids += QUuid::createUuid();
        state.addColor(ids.last(), collection);
    }
    wasSaved(state);
    SignalCounts signalCounts(state);

    state.moveColors(collection, from, to);
    QList<qsizetype> order;
    for (const QUuid& id : state.collections().first().colorIds) {
        order.append(ids.indexOf(id));
    }
    QCOMPARE(order, after);
    QCOMPARE(signalCounts.take(),
             (QList<qsizetype>{0, state.collections().first().colorIds == ids ? 0 : 1, 0, 0, 0}));
    QVERIFY(wasSaved(state));
}

void AppStateTest::unknownIdsChangeNothing()
{
    AppState state;
    const CapturedColor color = colorOf(0x111111);
    state.colorCaptured(color);
    state.createCollection(QStringLiteral("Brand"));
    wasSaved(state);
    SignalCounts signalCounts(state);
    const QUuid unknown = QUuid::createUuid();

    state.renameColor(unknown, QStringLiteral("Name"));
    state.addColor(color.id, unknown);
    state.removeColor(color.id, unknown);
    state.moveColors(unknown, {0}, 1);
    QVERIFY(!wasSaved(state));
    QCOMPARE(signalCounts.take(), (QList<qsizetype>{0, 0, 0, 0, 0}));
}

void AppStateTest::onlyDeletionsSaveForAnUnknownId()
{
    AppState state;
    state.colorCaptured(colorOf(0x111111));
    state.createCollection(QStringLiteral("Brand"));
    wasSaved(state);

    state.deleteColor(QUuid::createUuid());
    QVERIFY(wasSaved(state));
    state.deleteCollection(QUuid::createUuid());
    QVERIFY(wasSaved(state));
    QCOMPARE(state.history().size(), 1);
    QCOMPARE(state.collections().size(), 1);
}

void AppStateTest::settersSignalOnlyAChange()
{
    AppState state;
    SignalCounts signalCounts(state);
    state.setDefaultFormat(ColorFormat::Hex6);
    QCOMPARE(signalCounts.take(), (QList<qsizetype>{0, 0, 0, 0, 0}));

    state.setDefaultFormat(ColorFormat::Hsl);
    QVERIFY(wasSaved(state));
    state.setDefaultFormat(ColorFormat::Hsl);
    QVERIFY(!wasSaved(state));
    QCOMPARE(signalCounts.take(), (QList<qsizetype>{0, 0, 1, 0, 0}));
}

void AppStateTest::theDefaultFormatIsSaved()
{
    AppState().setDefaultFormat(ColorFormat::Hsl);
    QCOMPARE(AppState().defaultFormat(), ColorFormat::Hsl);
}

void AppStateTest::addingSeveralColorsIsOneChangeAndOneSave()
{
    AppState state;
    const QUuid collection = state.createCollection(QStringLiteral("Brand")).id;
    const QUuid member = QUuid::createUuid();
    state.addColor(member, collection);
    QList<QUuid> dropped{member};
    for (int i = 0; i < 20; ++i) {
        dropped += QUuid::createUuid();
    }
    QList<QUuid> withARepeatedId = dropped;
    withARepeatedId += dropped[3];
    SignalCounts signalCounts(state);
    state.flush();
    WriteCounter writes(QFileInfo(dataFile()).path());

    state.addColors(withARepeatedId, collection);
    QCOMPARE(signalCounts.take(), (QList<qsizetype>{0, 1, 0, 0, 0}));
    state.flush();
    QCOMPARE(writes.take(), 1);
    QCOMPARE(state.collections().first().colorIds, dropped);
    QCOMPARE(AppState().collections().first().colorIds, dropped);

    state.addColors(dropped, collection);
    state.addColors({}, collection);
    state.addColors({QUuid::createUuid()}, QUuid::createUuid());
    QCOMPARE(signalCounts.take(), (QList<qsizetype>{0, 0, 0, 0, 0}));
    state.flush();
    QCOMPARE(writes.take(), 0);
}

void AppStateTest::theCopiedTextUsesTheColorName()
{
    AppState state;
    state.setDefaultFormat(ColorFormat::CssVar);
    QCOMPARE(state.copiedText(colorOf(0x1E90FF)), QStringLiteral("--dodger-blue: #1E90FF;"));
    QCOMPARE(state.copiedText(colorOf(0x1E90FF, QStringLiteral("Mine"))), QStringLiteral("--mine: #1E90FF;"));
    state.setDefaultFormat(ColorFormat::Hex6);
    QCOMPARE(state.copiedText(colorOf(0x1E90FF)), QStringLiteral("#1E90FF"));
    QVERIFY(state.history().isEmpty());
}

} // namespace tintwick

QTEST_MAIN(tintwick::AppStateTest)
#include "AppStateTest.moc"
