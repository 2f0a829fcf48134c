#include "KWinScreenshot.h"
#include "support/PrivateBus.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusUnixFileDescriptor>
#include <QDir>
#include <QSignalSpy>
#include <QTest>

#include <csignal>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

#include <unistd.h>

using namespace tintwick;
using namespace tintwick::test;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(tintwick::CaptureOutcome)

/// KWin's interface on the test's bus, which writes as KWin does: from a thread, after the reply.
class ScriptedKWin final : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.KWin.ScreenShot2")

public:
    QVariantMap reply;
    QByteArray pixels;
    QString error;
    bool isSilent = false;
    QString output;
    QVariantMap options;

    ~ScriptedKWin() override
    {
        if (m_writer.joinable()) {
            m_writer.join();
        }
    }

public Q_SLOTS:
    // The D-Bus interface defines the name.
    QVariantMap CaptureScreen(const QString& name, const QVariantMap& given,
                              const QDBusUnixFileDescriptor& pipe)
    {
        output = name;
        options = given;
        if (!error.isEmpty()) {
            sendErrorReply(error, u"scripted"_s);
            return {};
        }
        if (isSilent) {
            setDelayedReply(true);
            return {};
        }
        m_writer = std::thread([file = ::dup(pipe.fileDescriptor()), bytes = pixels] {
            const char* rest = bytes.constData();
            const char* const end = rest + bytes.size();
            while (rest < end) {
                const ssize_t count = ::write(file, rest, static_cast<std::size_t>(end - rest));
                if (count <= 0) {
                    break;
                }
                rest += count;
            }
            ::close(file);
        });
        return reply;
    }

private:
    std::thread m_writer;
};

/// One picture from KWin through a pipe.
class KWinScreenshotTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void thePixelsAreReadIntoTheMemory();
    void aPictureThatDoesNotCompleteFails_data();
    void aPictureThatDoesNotCompleteFails();
    void aPictureOfNoUseFails();
    void aDesktopWithoutKWinHasNoSuchPictures();
    void aDestroyedScreenshotLeavesNoDescriptors();

private:
    [[nodiscard]] std::optional<CaptureOutcome> take(std::vector<std::byte>& memory);

    std::unique_ptr<PrivateBus> m_bus;
    std::unique_ptr<ScriptedKWin> m_kwin;
};

namespace {

constexpr int width = 640;
constexpr int height = 400;
constexpr int stride = width * 4 + 64;

QVariantMap soundReply()
{
    return {{u"type"_s, u"raw"_s},
            {u"width"_s, unsigned{width}},
            {u"height"_s, unsigned{height}},
            {u"stride"_s, unsigned{stride}},
            {u"format"_s, static_cast<unsigned>(QImage::Format_ARGB32)}};
}

QByteArray somePixels()
{
    QByteArray bytes(qsizetype{stride} * height, Qt::Uninitialized);
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        bytes[i] = static_cast<char>(i * 131 % 251);
    }
    return bytes;
}

qsizetype openFiles()
{
    return QDir(u"/proc/self/fd"_s).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}

} // namespace

void KWinScreenshotTest::initTestCase()
{
    // KWin ignores it too.
    std::signal(SIGPIPE, SIG_IGN);
    m_bus = std::make_unique<PrivateBus>();
}

void KWinScreenshotTest::init()
{
    QDBusConnection bus = PrivateBus::connectAs(u"kwin"_s);
    m_kwin = std::make_unique<ScriptedKWin>();
    m_kwin->reply = soundReply();
    m_kwin->pixels = somePixels();
    QVERIFY(
        bus.registerObject(u"/org/kde/KWin/ScreenShot2"_s, m_kwin.get(), QDBusConnection::ExportAllSlots));
    QVERIFY(bus.registerService(u"org.kde.KWin"_s));
}

void KWinScreenshotTest::cleanup()
{
    m_kwin.reset();
    QDBusConnection::disconnectFromBus(u"kwin"_s);
}

std::optional<CaptureOutcome> KWinScreenshotTest::take(std::vector<std::byte>& memory)
{
    KWinScreenshot screenshot;
    std::optional<CaptureOutcome> outcome;
    QObject::connect(&screenshot, &KWinScreenshot::ended, &screenshot,
                     [&](CaptureOutcome ended) { outcome = ended; });
    screenshot.take(u"DP-1"_s, [&](const KWinScreenshot::Layout& layout) {
        memory.resize(static_cast<std::size_t>(layout.stride) *
                      static_cast<std::size_t>(layout.size.height()));
        return std::span(memory);
    });
    return QTest::qWaitFor([&] { return outcome.has_value(); }) ? outcome : std::nullopt;
}

void KWinScreenshotTest::thePixelsAreReadIntoTheMemory()
{
    std::vector<std::byte> memory;
    QCOMPARE(take(memory), CaptureOutcome::Taken);
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(memory.data()), static_cast<qsizetype>(memory.size())),
             somePixels());
    QCOMPARE(m_kwin->output, u"DP-1"_s);
    QCOMPARE(m_kwin->options.value(u"native-resolution"_s), QVariant(true));
    QCOMPARE(m_kwin->options.value(u"include-cursor"_s), QVariant(false));
}

void KWinScreenshotTest::aPictureThatDoesNotCompleteFails_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("error");
    QTest::addColumn<qsizetype>("missing");
    QTest::addColumn<bool>("isSilent");
    const auto reply = [](const char* row, const char* key, const QVariant& value) {
        QTest::newRow(row) << QString::fromLatin1(key) << value << QString() << qsizetype{0} << false;
    };
    reply("another kind", "type", u"png"_s);
    reply("no width", "width", 0U);
    reply("too wide for its rows", "width", 1000U);
    reply("huge", "height", 4000000000U);
    reply("an unknown format", "format", 400U);
    reply("no format", "format", u"ARGB"_s);
    QTest::newRow("not authorized") << QString() << QVariant()
                                    << u"org.kde.KWin.ScreenShot2.Error.NoAuthorized"_s << qsizetype{0}
                                    << false;
    QTest::newRow("the pipe ends early") << QString() << QVariant() << QString() << qsizetype{1} << false;
    QTest::newRow("no reply") << QString() << QVariant() << QString() << qsizetype{0} << true;
}

void KWinScreenshotTest::aPictureThatDoesNotCompleteFails()
{
    QFETCH(const QString, key);
    QFETCH(const QVariant, value);
    QFETCH(const qsizetype, missing);
    if (!key.isEmpty()) {
        m_kwin->reply.insert(key, value);
    }
    QFETCH(const QString, error);
    m_kwin->error = error;
    m_kwin->pixels.chop(missing);
    QFETCH(const bool, isSilent);
    m_kwin->isSilent = isSilent;
    std::vector<std::byte> memory;
    QCOMPARE(take(memory), CaptureOutcome::Failed);
}

void KWinScreenshotTest::aPictureOfNoUseFails()
{
    KWinScreenshot screenshot;
    QSignalSpy ended(&screenshot, &KWinScreenshot::ended);
    screenshot.take(u"DP-1"_s, [](const KWinScreenshot::Layout&) { return std::span<std::byte>(); });
    QTRY_COMPARE(ended.count(), 1);
    QCOMPARE(ended.at(0).at(0).value<CaptureOutcome>(), CaptureOutcome::Failed);
}

void KWinScreenshotTest::aDesktopWithoutKWinHasNoSuchPictures()
{
    QVERIFY(QDBusConnection(u"kwin"_s).unregisterService(u"org.kde.KWin"_s));
    std::vector<std::byte> memory;
    QCOMPARE(take(memory), CaptureOutcome::Unavailable);
}

void KWinScreenshotTest::aDestroyedScreenshotLeavesNoDescriptors()
{
    std::vector<std::byte> memory;
    QVERIFY(take(memory));
    const qsizetype before = openFiles();
    m_kwin->isSilent = true;
    for (int i = 0; i < 10; ++i) {
        KWinScreenshot screenshot;
        m_kwin->output.clear();
        screenshot.take(u"DP-2"_s, [](const KWinScreenshot::Layout&) { return std::span<std::byte>(); });
        QTRY_COMPARE(m_kwin->output, u"DP-2"_s);
    }
    QTRY_COMPARE(openFiles(), before);
}

QTEST_GUILESS_MAIN(KWinScreenshotTest)
#include "KWinScreenshotTest.moc"
