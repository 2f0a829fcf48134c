#pragma once

#include <QByteArray>
#include <QString>

#include <array>

namespace tintwick {

/// The types under which a text is offered to other clients.
inline constexpr std::array textTypes{"text/plain;charset=utf-8", "text/plain", "UTF8_STRING", "TEXT",
                                      "STRING"};

/// Writes the text to a pipe that another client reads, and closes the pipe. Returns at once; what the pipe has no room
/// for is written from the event loop.
void sendText(const QByteArray& text, int pipe);

} // namespace tintwick
