#include "support/wayland/SwayDesktop.h"

#include "support/WaitUntil.h"

#include <QDataStream>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <stdexcept>

#include <unistd.h>

namespace tintwick {

namespace {

constexpr uid_t nobody = 65534;

void require(bool condition, const char* whatIsMissing)
{
    if (!condition) {
        throw std::runtime_error(whatIsMissing);
    }
}

QByteArray lineOf(const WaylandDesktop::Output& output, std::size_t number)
{
    return QStringLiteral(
               "output HEADLESS-%1 mode --custom %2x%3@60Hz position %4 %5 scale %6 transform %7\n")
        .arg(number)
        .arg(output.size.width())
        .arg(output.size.height())
        .arg(output.position.x())
        .arg(output.position.y())
        .arg(output.scale)
        .arg(static_cast<int>(output.turn) * 90)
        .toLatin1();
}

QByteArray configuration(const std::vector<WaylandDesktop::Output>& outputs)
{
    QByteArray text = "xwayland disable\n"
                      "default_border none\n"
                      "default_floating_border none\n"
                      "seat * xcursor_theme invisible 24\n";
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        text += lineOf(outputs[i], i + 1);
    }
    return text;
}

/// A cursor of one transparent pixel, as a file of the X cursor format.
QByteArray invisibleCursor()
{
    constexpr std::uint32_t image = 0xfffd0002;
    constexpr std::uint32_t size = 24;
    const std::uint32_t words[] = {0x72756358, 16,    0x10000, 1,                    // file
                                   image,      size,  28,                            // table of contents
                                   36,         image, size,    1, 1, 1, 0, 0, 0, 0}; // picture
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    for (const std::uint32_t word : words) {
        stream << word;
    }
    return bytes;
}

void write(const QString& path, const QByteArray& contents)
{
    QFile file(path);
    require(QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) &&
                file.write(contents) == contents.size(),
            "cannot write a file for sway");
}

/// Gives the folder and all in it to the user "nobody".
void giveToNobody(const QString& folder)
{
    QStringList paths{folder};
    QDirIterator below(folder, QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (below.hasNext()) {
        paths << below.next();
    }
    for (const QString& path : paths) {
        require(::chown(QFile::encodeName(path).constData(), nobody, nobody) == 0,
                "cannot give a folder to another user");
    }
}

} // namespace

SwayDesktop::SwayDesktop(const Options& options)
    : WaylandDesktop(options.sessionBus)
    // Every user can enter /tmp. The folder of the tests may be in somebody's home.
    , m_runtimeFolder(QStringLiteral("/tmp/tintwick-sway-XXXXXX"))
{
    startCompositor(options);
    m_input = std::make_unique<VirtualInput>(client());
    m_capture = std::make_unique<OutputCapture>(client());
}

SwayDesktop::~SwayDesktop() = default;

void SwayDesktop::startCompositor(const Options& options)
{
    require(m_runtimeFolder.isValid(), "no temporary folder");
    const QString path = m_runtimeFolder.path();
    const QString configFile = m_runtimeFolder.filePath(QStringLiteral("config"));
    write(configFile, configuration(options.outputs));
    const QString cursors = m_runtimeFolder.filePath(QStringLiteral("icons"));
    write(cursors + QStringLiteral("/invisible/cursors/left_ptr"), invisibleCursor());

    QStringList call{QStringLiteral("sway"), QStringLiteral("--config"), configFile};
    if (::geteuid() == 0) {
        // sway refuses to run as root.
        giveToNobody(path);
        const QString id = QString::number(nobody);
        call = QStringList{QStringLiteral("setpriv"),
                           QStringLiteral("--reuid"),
                           id,
                           QStringLiteral("--regid"),
                           id,
                           QStringLiteral("--clear-groups"),
                           QStringLiteral("--pdeathsig"),
                           QStringLiteral("TERM")} +
               call;
    }
    QProcessEnvironment additions;
    additions.insert(QStringLiteral("HOME"), path);
    additions.insert(QStringLiteral("XDG_RUNTIME_DIR"), path);
    // A headless compositor draws the cursor into its pictures; that of a real screen is in no picture.
    additions.insert(QStringLiteral("XCURSOR_PATH"), cursors);
    additions.insert(QStringLiteral("WLR_BACKENDS"), QStringLiteral("headless"));
    additions.insert(QStringLiteral("WLR_HEADLESS_OUTPUTS"), QString::number(options.outputs.size()));
    additions.insert(QStringLiteral("WLR_RENDERER"), QStringLiteral("pixman"));
    additions.insert(QStringLiteral("WLR_LIBINPUT_NO_DEVICES"), QStringLiteral("1"));
    m_compositor = start(call.takeFirst(), call, additions);

    const QDir folder(path);
    const auto socket = [&](const char* pattern) {
        const auto found = folder.entryList({QString::fromLatin1(pattern)}, QDir::System);
        return found.isEmpty() ? QString() : folder.filePath(found.first());
    };
    require(waitUntil([&] { return !socket("sway-ipc.*.sock").isEmpty() && !socket("wayland-?").isEmpty(); }),
            "sway does not come up");
    session().setVariable(QStringLiteral("SWAYSOCK"), socket("sway-ipc.*.sock"));
    session().setVariable(QStringLiteral("XDG_CURRENT_DESKTOP"), QStringLiteral("sway"));
    connectTo(QFile::encodeName(socket("wayland-?")));
    require(outputCount() == options.outputs.size(), "sway has too few outputs");
}

void SwayDesktop::command(const QString& text)
{
    const auto program = start(QStringLiteral("swaymsg"), {text});
    require(program->waitForEnd() == 0, "sway does not accept a command");
}

void SwayDesktop::endCompositor()
{
    m_compositor->kill();
}

} // namespace tintwick
