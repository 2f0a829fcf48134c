#include "CssColorScanner.h"

#include <QString>

#include <array>
#include <charconv>
#include <cmath>
#include <numbers>
#include <string>
#include <utility>

namespace tintwick {

namespace {

bool isSpace(QChar character)
{
    return character == u' ' || character == u'\t' || character == u'\n' || character == u'\r' ||
           character == u'\f';
}

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

bool isWordCharacter(QChar character)
{
    return isDigit(character) || (character >= u'a' && character <= u'z') ||
           (character >= u'A' && character <= u'Z') || character == u'-';
}

/// The length of a CSS number: [+-] digits [. digits] [e [+-] digits], where the digits before the dot may be missing.
qsizetype numberLength(QStringView text)
{
    const auto digitsFrom = [text](qsizetype start) {
        qsizetype end = start;
        while (end < text.size() && isDigit(text[end])) {
            ++end;
        }
        return end;
    };
    const qsizetype sign = !text.isEmpty() && (text[0] == u'+' || text[0] == u'-') ? 1 : 0;
    qsizetype end = digitsFrom(sign);
    bool hasDigits = end > sign;
    if (end < text.size() && text[end] == u'.' && digitsFrom(end + 1) > end + 1) {
        end = digitsFrom(end + 1);
        hasDigits = true;
    }
    if (!hasDigits) {
        return 0;
    }
    if (end < text.size() && (text[end] == u'e' || text[end] == u'E')) {
        const bool isSigned = end + 1 < text.size() && (text[end + 1] == u'+' || text[end + 1] == u'-');
        const qsizetype exponent = end + (isSigned ? 2 : 1);
        if (digitsFrom(exponent) > exponent) {
            end = digitsFrom(exponent);
        }
    }
    return end;
}

/// Nothing when the number is too large for a double.
std::optional<double> toDouble(QStringView number)
{
    std::string text = number.toString().toStdString();
    // std::from_chars() refuses a plus sign.
    if (text.front() == '+') {
        text.erase(0, 1);
    }
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range) {
        return std::nullopt;
    }
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<double> degreesOf(QStringView unit)
{
    constexpr std::array<std::pair<QStringView, double>, 4> units{
        {{u"deg", 1}, {u"grad", 0.9}, {u"rad", 180 / std::numbers::pi}, {u"turn", 360}}};
    for (const auto& [name, degrees] : units) {
        if (unit.compare(name, Qt::CaseInsensitive) == 0) {
            return degrees;
        }
    }
    return std::nullopt;
}

} // namespace

CssColorScanner::CssColorScanner(QStringView text)
    : m_rest(text)
{
}

bool CssColorScanner::skipSpace()
{
    const qsizetype before = m_rest.size();
    while (!m_rest.isEmpty()) {
        if (isSpace(m_rest.front())) {
            m_rest = m_rest.mid(1);
        } else if (const qsizetype end = m_rest.indexOf(u"*/", 2); m_rest.startsWith(u"/*") && end >= 0) {
            m_rest = m_rest.mid(end + 2);
        } else {
            break;
        }
    }
    return m_rest.size() < before;
}

bool CssColorScanner::skip(char16_t character)
{
    const QStringView before = m_rest;
    skipSpace();
    if (m_rest.startsWith(QChar(character))) {
        m_rest = m_rest.mid(1);
        return true;
    }
    m_rest = before;
    return false;
}

QStringView CssColorScanner::readWord()
{
    qsizetype length = 0;
    while (length < m_rest.size() && isWordCharacter(m_rest[length])) {
        ++length;
    }
    const QStringView word = m_rest.first(length);
    m_rest = m_rest.mid(length);
    return word;
}

std::optional<CssNumber> CssColorScanner::readNumber()
{
    const QStringView before = m_rest;
    const qsizetype length = numberLength(m_rest);
    if (length == 0) {
        if (readWord().compare(u"none", Qt::CaseInsensitive) == 0) {
            return CssNumber{0, CssNumber::Unit::None};
        }
        m_rest = before;
        return std::nullopt;
    }
    const auto value = toDouble(m_rest.first(length));
    m_rest = m_rest.mid(length);
    if (value && m_rest.startsWith(u'%')) {
        m_rest = m_rest.mid(1);
        return CssNumber{*value, CssNumber::Unit::Percent};
    }
    const QStringView unit = readWord();
    if (value && unit.isEmpty()) {
        return CssNumber{*value, CssNumber::Unit::Number};
    }
    if (const auto degrees = degreesOf(unit); value && degrees) {
        return CssNumber{*value * *degrees, CssNumber::Unit::Angle};
    }
    m_rest = before;
    return std::nullopt;
}

} // namespace tintwick
