#include "ByteReader.h"

#include <QtEndian>

#include <bit>

namespace tintwick {

ByteReader::ByteReader(QByteArrayView bytes, qsizetype start)
    : m_bytes(bytes)
    , m_start(start)
{
}

std::optional<QByteArrayView> ByteReader::readBytes(qsizetype count)
{
    if (count > m_bytes.size() - m_position) {
        return std::nullopt;
    }
    const QByteArrayView bytes = m_bytes.sliced(m_position, count);
    m_position += count;
    return bytes;
}

std::optional<quint16> ByteReader::read16()
{
    const auto bytes = readBytes(sizeof(quint16));
    return bytes ? std::optional(qFromBigEndian<quint16>(bytes->data())) : std::nullopt;
}

std::optional<quint32> ByteReader::read32()
{
    const auto bytes = readBytes(sizeof(quint32));
    return bytes ? std::optional(qFromBigEndian<quint32>(bytes->data())) : std::nullopt;
}

std::optional<float> ByteReader::readFloat()
{
    const auto bits = read32();
    return bits ? std::optional(std::bit_cast<float>(*bits)) : std::nullopt;
}

std::optional<QString> ByteReader::readText(quint32 units)
{
    const auto bytes = readBytes(static_cast<qsizetype>(units) * 2);
    if (!bytes) {
        return std::nullopt;
    }
    QString text;
    for (qsizetype i = 0; i < bytes->size(); i += 2) {
        text += QChar(qFromBigEndian<quint16>(bytes->data() + i));
    }
    if (!text.isEmpty() && text.back() != QChar(0)) {
        return std::nullopt;
    }
    text.chop(1);
    return text;
}

} // namespace tintwick
