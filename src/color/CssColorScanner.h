#pragma once

#include <QStringView>

#include <cstdint>
#include <optional>

namespace tintwick {

/// A number in a colour function.
struct CssNumber
{
    enum class Unit : std::uint8_t { Number, Percent, Angle, None };

    /// An angle is in degrees. 0 for the keyword "none".
    double value = 0;
    Unit unit = Unit::Number;
};

/// Reads the parts of a CSS colour from left to right. White space includes comments. Keywords match without regard to the
/// case of ASCII letters.
class CssColorScanner final
{
public:
    /// `text` must outlive the scanner.
    explicit CssColorScanner(QStringView text);

    [[nodiscard]] bool isAtEnd() const { return m_rest.isEmpty(); }
    /// Returns whether there was any.
    bool skipSpace();
    /// Skips white space and one character. Returns false, without skipping anything, when another one follows.
    bool skip(char16_t character);
    /// Letters, digits and hyphens from here on; empty when something else follows.
    [[nodiscard]] QStringView readWord();
    /// A number, a percentage, an angle or "none"; nothing when something else follows.
    [[nodiscard]] std::optional<CssNumber> readNumber();

private:
    QStringView m_rest;
};

} // namespace tintwick
