#pragma once

#include "Scheme.h"

#include <QColor>
#include <QFont>
#include <QSize>

#include <array>
#include <cstdint>

/// The tokens of the design. Colour components are sRGB, 0 to 1.
namespace tintwick::theme {

struct Components
{
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;
};

/// A colour with one value per appearance. A fixed colour has the same value twice.
class Color final
{
public:
    constexpr Color(double red, double green, double blue, double alpha = 1)
        : m_light{red, green, blue, alpha}
        , m_dark{m_light}
    {
    }
    /// From 0xRRGGBB.
    constexpr Color(std::uint32_t light, std::uint32_t dark)
        : m_light{components(light)}
        , m_dark{components(dark)}
    {
    }
    /// A fixed colour that is not part of the design, such as one that the user picked.
    explicit Color(const QColor& fixed);

    /// The same colour with its alpha multiplied.
    [[nodiscard]] constexpr Color opacity(double factor) const
    {
        Color result = *this;
        result.m_light.alpha *= factor;
        result.m_dark.alpha *= factor;
        return result;
    }

    [[nodiscard]] QColor in(Scheme scheme) const;

private:
    static constexpr Components components(std::uint32_t hex)
    {
        return {((hex >> 16U) & 0xFFU) / 255.0, ((hex >> 8U) & 0xFFU) / 255.0, (hex & 0xFFU) / 255.0};
    }

    Components m_light;
    Components m_dark;
};

/// From the top-left to the bottom-right corner.
struct Gradient
{
    Color start;
    Color end;
};

// The window, cards on it, buttons, borders, and three levels of text. The contrast of text is at least 4.5 to 1 on each of the
// three grounds.
//                                       light     dark
inline constexpr Color bg /*         */ {0xF5F5F7, 0x1F1F23};
inline constexpr Color surface /*    */ {0xFFFFFF, 0x2A2A2F};
inline constexpr Color surfaceHigh /**/ {0xE9E9EE, 0x37373E};
/// The ground of text fields.
inline constexpr Color field /*      */ {0xFFFFFF, 0x1F1F23};
/// A thumb on `surfaceHigh`.
inline constexpr Color thumb /*      */ {0xFFFFFF, 0x5B5B66};
inline constexpr Color border = Color{0x000000, 0xFFFFFF}.opacity(0.2).opacity(0.5);
/// Around a picked colour, which may be equal to its ground.
inline constexpr Color colorEdge = Color{0x000000, 0xFFFFFF}.opacity(0.24);
inline constexpr double colorEdgeWidth = 0.5;
inline constexpr Color textPrimary /**/ {0x1C1C21, 0xF4F4F6};
inline constexpr Color textSecond /* */ {0x50505A, 0xC2C2CC};
inline constexpr Color textThird /*  */ {0x686872, 0xA0A0AB};

/// A ground of white text, lines and tints.
inline constexpr Color accent{0.38, 0.40, 0.88};
/// The accent as text or symbol. The accent itself has too little contrast, above all in the dark scheme.
inline constexpr Color accentText /* */ {0x4B50DC, 0x9A9EFF};
inline constexpr Color white{1, 1, 1};
inline constexpr Color black{0, 0, 0};
inline constexpr Color clear{0, 0, 0, 0};
/// Of success.
inline constexpr Color green{0x218739, 0x3ECF63};
/// Of actions that cannot be undone.
inline constexpr Color red{0xC9252D, 0xFF8080};
/// The same as a ground of white text.
inline constexpr Color destructiveGround{0xC9252D, 0xD03B40};

inline constexpr std::array cardAccents{
    Gradient{{1.00, 0.60, 0.20}, {0.96, 0.40, 0.12}}, // orange
    Gradient{{0.32, 0.56, 0.96}, {0.22, 0.40, 0.88}}, // blue
    Gradient{{0.52, 0.28, 0.90}, {0.38, 0.18, 0.80}}, // violet
    Gradient{{0.96, 0.42, 0.62}, {0.88, 0.28, 0.52}}, // pink
    Gradient{{0.18, 0.74, 0.56}, {0.10, 0.60, 0.44}}, // green
};
/// Of the collection at a position of the list. They repeat.
[[nodiscard]] constexpr const Gradient& cardAccent(qsizetype position)
{
    return cardAccents[static_cast<std::size_t>(position) % cardAccents.size()];
}

/// Around the control that has the keyboard focus.
inline constexpr Color focusRing{0x4B50DC, 0x8F93FF};

/// Of the main panel, in points.
inline constexpr QSize panelSize{380, 580};
inline constexpr double panelRadius = 16;

/// The general font of the desktop, or Inter if the desktop names none. `size` is in points of the interface.
[[nodiscard]] QFont font(int size, QFont::Weight weight = QFont::Normal);
/// The fixed-width font of the desktop, for codes whose digits must align.
[[nodiscard]] QFont monospacedFont(int size, QFont::Weight weight = QFont::Normal);
[[nodiscard]] QFont headline();
[[nodiscard]] QFont caption();

} // namespace tintwick::theme
