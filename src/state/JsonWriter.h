#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <cstdint>

namespace tintwick {

/// Writes JSON text piece by piece, indented by two spaces, without a tree of values in between. Every begin has its end,
/// and in an object each value follows its key.
class JsonWriter final
{
public:
    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginArray() { begin('['); }
    void endArray() { end(']'); }

    /// `name` has nothing in it that JSON escapes.
    void key(QByteArrayView name);
    void string(const QString& text);
    /// As `string`, for ASCII text with nothing in it that JSON escapes.
    void plainString(QByteArrayView text);
    /// A finite number, with as many digits as bring the same value back, and a fraction or an exponent always.
    void number(double value);

    [[nodiscard]] const QByteArray& text() const { return m_text; }

private:
    enum class Position : std::uint8_t { First, AfterKey, AfterValue };

    void begin(char bracket);
    void end(char bracket);
    /// What stands between the value, or key, before and this one.
    void separate();
    void startLine();
    void value(QByteArrayView json);

    QByteArray m_text;
    int m_depth = 0;
    Position m_position = Position::First;
};

} // namespace tintwick
