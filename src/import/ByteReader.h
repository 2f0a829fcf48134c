#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

namespace tintwick {

/// Reads big-endian values from left to right. After a value beyond the end every read gives nothing.
class ByteReader final
{
public:
    /// `bytes` must outlive the reader. `start` is their place in the file.
    explicit ByteReader(QByteArrayView bytes, qsizetype start = 0);

    /// From the start of the file.
    [[nodiscard]] qsizetype offset() const { return m_start + m_position; }
    [[nodiscard]] bool isAtEnd() const { return m_position >= m_bytes.size(); }

    [[nodiscard]] std::optional<QByteArrayView> readBytes(qsizetype count);
    [[nodiscard]] std::optional<quint16> read16();
    [[nodiscard]] std::optional<quint32> read32();
    [[nodiscard]] std::optional<float> readFloat();
    /// UTF-16 that ends with a zero, which `units` counts. Gives nothing when it does not, unless it is empty.
    [[nodiscard]] std::optional<QString> readText(quint32 units);

private:
    QByteArrayView m_bytes;
    qsizetype m_start;
    qsizetype m_position = 0;
};

} // namespace tintwick
