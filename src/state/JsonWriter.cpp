#include "JsonWriter.h"

#include <nlohmann/json.hpp>

namespace tintwick {

void JsonWriter::key(QByteArrayView name)
{
    plainString(name);
    m_text.append(": ");
    m_position = Position::AfterKey;
}

void JsonWriter::string(const QString& text)
{
    value(nlohmann::json(text.toStdString()).dump());
}

void JsonWriter::plainString(QByteArrayView text)
{
    separate();
    m_text.append('"').append(text).append('"');
}

void JsonWriter::number(double value)
{
    this->value(nlohmann::json(value).dump());
}

void JsonWriter::begin(char bracket)
{
    separate();
    m_text.append(bracket);
    ++m_depth;
    m_position = Position::First;
}

void JsonWriter::end(char bracket)
{
    --m_depth;
    if (m_position != Position::First) {
        startLine();
    }
    m_text.append(bracket);
    m_position = Position::AfterValue;
}

void JsonWriter::separate()
{
    if (m_position == Position::AfterValue) {
        m_text.append(',');
    }
    if (m_position != Position::AfterKey && m_depth > 0) {
        startLine();
    }
    m_position = Position::AfterValue;
}

void JsonWriter::startLine()
{
    constexpr int indentation = 2;
    m_text.append('\n').append(m_depth * indentation, ' ');
}

void JsonWriter::value(QByteArrayView json)
{
    separate();
    m_text.append(json);
}

} // namespace tintwick
