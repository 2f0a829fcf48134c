#include "support/wayland/SwayDesktop.h"

#include "support/WaitUntil.h"

#include <QDataStream>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
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

/// The names of wl_output_transform in sway, which turns in the other direction.
constexpr const char* transformNames[] = {"normal",  "270",         "180",         "90",
                                          "flipped", "flipped-270", "flipped-180", "flipped-90"};

QByteArray lineOf(const QString& name, const WaylandDesktop::Output& output)
{
    return QStringLiteral("output %1 mode --custom %2x%3@60Hz position %4 %5 scale %6 transform %7\n")
        .arg(name)
        .arg(output.size.width())
        .arg(output.size.height())
        .arg(output.position.x())
        .arg(output.position.y())
        .arg(output.scale)
        .arg(QLatin1StringView(transformNames[output.transform]))
        .toLatin1();
}

QByteArray configuration(const WaylandDesktop::Options& options, bool lastIsWindow)
{
    QByteArray text = "xwayland disable\n"
                      "default_border none\n"
                      "default_floating_border none\n";
    if (!options.showsPointer) {
        text += "seat * xcursor_theme invisible 24\n";
    }
    for (std::size_t i = 0; i < options.outputs.size(); ++i) {
        const bool isWindow = lastIsWindow && i + 1 == options.outputs.size();
        text += lineOf(isWindow ? QStringLiteral("WL-1") : QStringLiteral("HEADLESS-%1").arg(i + 1),
                       options.outputs[i]);
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

SwayDesktop::SwayDesktop(const Options& options, SwayDesktop* outer)
    : WaylandDesktop(options.sessionBus)
    , m_outer(outer)
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
    write(configFile, configuration(options, m_outer != nullptr));
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
    if (!options.showsPointer) {
        additions.insert(QStringLiteral("XCURSOR_PATH"), cursors);
    }
    additions.insert(QStringLiteral("WLR_BACKENDS"),
                     m_outer ? QStringLiteral("headless,wayland") : QStringLiteral("headless"));
    additions.insert(QStringLiteral("WLR_HEADLESS_OUTPUTS"),
                     QString::number(options.outputs.size() - (m_outer ? 1 : 0)));
    if (m_outer) {
        additions.insert(QStringLiteral("WAYLAND_DISPLAY"), QString::fromLatin1(m_outer->socket()));
    }
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
    require(waitUntil([&] { return hasOutputs(options.outputs); }), "sway has other outputs");
}

QImage SwayDesktop::screenshot(std::size_t index)
{
    const auto picture = m_capture->capture(output(index));
    return picture ? picture->image : QImage();
}

bool SwayDesktop::hasOutputs(const std::vector<Output>& wanted)
{
    if (outputCount() != wanted.size()) {
        return false;
    }
    const auto& outputs = client().outputs();
    return std::all_of(wanted.begin(), wanted.end(), [&](const Output& one) {
        return std::any_of(outputs.begin(), outputs.end(), [&](const auto& output) {
            const QSizeF logical = QSizeF(output.size()) / one.scale;
            return output.mode == one.size && output.transform == one.transform &&
                   output.place == QRect(one.position, QSize(static_cast<int>(logical.width()),
                                                             static_cast<int>(logical.height())));
        });
    });
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
