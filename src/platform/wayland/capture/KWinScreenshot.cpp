#include "KWinScreenshot.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
#include <QVariantMap>

#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

/// Milliseconds that KWin may take. It asks nobody, so it answers within a few frames or not at all.
constexpr int patience = 3000;

/// A layout without pixels when the reply makes no sense.
KWinScreenshot::Layout layoutFrom(const QVariantMap& reply)
{
    constexpr uint largestSide = 1 << 15;
    const uint width = reply.value(u"width"_s).toUInt();
    const uint height = reply.value(u"height"_s).toUInt();
    const uint stride = reply.value(u"stride"_s).toUInt();
    const uint format = reply.value(u"format"_s).toUInt();
    const bool isSound = reply.value(u"type"_s) == "raw"_L1 && width > 0 && width <= largestSide &&
                         height > 0 && height <= largestSide && stride / 4 >= width &&
                         stride / 16 <= largestSide && format > QImage::Format_Invalid &&
                         format < QImage::NImageFormats;
    if (!isSound) {
        return {};
    }
    return {.size = QSize(static_cast<int>(width), static_cast<int>(height)),
            .stride = static_cast<int>(stride),
            .format = static_cast<QImage::Format>(format)};
}

CaptureOutcome outcomeOf(const QDBusError& error)
{
    switch (error.type()) {
    case QDBusError::ServiceUnknown:
    case QDBusError::UnknownObject:
    case QDBusError::UnknownInterface:
    case QDBusError::UnknownMethod:
    case QDBusError::Disconnected:
        return CaptureOutcome::Unavailable;
    default:
        // The reply of a bus that was asked not to start the service.
        return error.name() == "org.freedesktop.DBus.Error.NameHasNoOwner"_L1 ? CaptureOutcome::Unavailable
                                                                              : CaptureOutcome::Failed;
    }
}

} // namespace

KWinScreenshot::KWinScreenshot(QObject* parent)
    : QObject(parent)
{
    connect(&m_pipe, &PipeReader::ended, this,
            [this](bool isComplete) { end(isComplete ? CaptureOutcome::Taken : CaptureOutcome::Failed); });
    m_deadline.setSingleShot(true);
    connect(&m_deadline, &QTimer::timeout, this, [this] { end(CaptureOutcome::Failed); });
}

void KWinScreenshot::take(const QString& output, Allocate allocate)
{
    m_allocate = std::move(allocate);
    QDBusMessage question = QDBusMessage::createMethodCall(u"org.kde.KWin"_s, u"/org/kde/KWin/ScreenShot2"_s,
                                                           u"org.kde.KWin.ScreenShot2"_s, u"CaptureScreen"_s);
    // A program that offers the interface elsewhere is not started.
    question.setAutoStartService(false);
    const QVariantMap options{{u"native-resolution"_s, true}, {u"include-cursor"_s, false}};
    QDBusUnixFileDescriptor pipe;
    pipe.giveFileDescriptor(m_pipe.takeWriteEnd());
    question << output << options << QVariant::fromValue(pipe);
    auto* call =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question, patience), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, &KWinScreenshot::takeReply);
    m_deadline.start(patience);
}

void KWinScreenshot::takeReply(QDBusPendingCallWatcher* call)
{
    call->deleteLater();
    if (m_hasEnded) {
        return;
    }
    const QDBusPendingReply<QVariantMap> reply = *call;
    if (reply.isError()) {
        end(outcomeOf(reply.error()));
        return;
    }
    const Layout layout = layoutFrom(reply.value());
    const std::span<std::byte> memory = layout.size.isEmpty() ? std::span<std::byte>() : m_allocate(layout);
    if (memory.empty()) {
        end(CaptureOutcome::Failed);
        return;
    }
    m_pipe.read(memory);
}

void KWinScreenshot::end(CaptureOutcome outcome)
{
    m_deadline.stop();
    if (!std::exchange(m_hasEnded, true)) {
        Q_EMIT ended(outcome);
    }
}

} // namespace tintwick
