#pragma once

#include <QByteArray>

#include <array>

namespace tintwick {

/// The types under which a text is offered to other clients.
inline constexpr std::array textTypes{"text/plain;charset=utf-8", "text/plain", "UTF8_STRING", "TEXT",
                                      "STRING"};

/// Writes the text to a pipe that another client reads, and closes the pipe. Returns at once: a
/// text that the pipe has no room for is written by a thread.
void sendText(const QByteArray& text, int pipe);

} // namespace tintwick
