#include "AdobeReaders.h"

#include "AdobeColors.h"
#include "ByteReader.h"

#include <array>
#include <cmath>
#include <optional>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr QByteArrayView exchangeSignature = "ASEF";

enum BlockKind : quint16 { ColorEntry = 0x0001, GroupStart = 0xC001, GroupEnd = 0xC002 };

/// The numbers of a colour in an .aco file.
enum ColorSpace : quint16 { Rgb = 0, Hsb = 1, Cmyk = 2, Lab = 7, Grey = 8, WideCmyk = 9 };

const QString endsEarly = u"the file ends early"_s;

template <std::size_t Count>
std::optional<std::array<double, Count>> readFloats(ByteReader& reader)
{
    std::array<double, Count> values{};
    for (double& value : values) {
        const auto number = reader.readFloat();
        // Far outside any colour, but finite.
        constexpr float greatest = 1e4F;
        if (!number || !(std::abs(*number) <= greatest)) {
            return std::nullopt;
        }
        value = *number;
    }
    return values;
}

std::optional<CapturedColor> exchangeColor(QByteArrayView model, ByteReader& reader)
{
    constexpr double percent = 100;
    if (model == "RGB ") {
        const auto rgb = readFloats<3>(reader);
        return rgb ? std::optional(CapturedColor::capture((*rgb)[0], (*rgb)[1], (*rgb)[2], 1)) : std::nullopt;
    }
    if (model == "CMYK") {
        const auto cmyk = readFloats<4>(reader);
        return cmyk ? std::optional(colorFromCmyk(*cmyk)) : std::nullopt;
    }
    if (model == "LAB " || model == "Lab ") {
        const auto lab = readFloats<3>(reader);
        return lab ? std::optional(colorFromLab({(*lab)[0] * percent, (*lab)[1], (*lab)[2]})) : std::nullopt;
    }
    const auto grey = model == "Gray" ? readFloats<1>(reader) : std::nullopt;
    return grey ? std::optional(CapturedColor::capture((*grey)[0], (*grey)[0], (*grey)[0], 1)) : std::nullopt;
}

std::optional<QString> exchangeName(ByteReader& reader)
{
    const auto length = reader.read16();
    return length ? reader.readText(*length) : std::nullopt;
}

void setName(CapturedColor& color, const QString& name)
{
    // Our own export calls a colour without a name by its code.
    if (!name.trimmed().isEmpty() && name != color.hex6()) {
        color.customName = name;
    }
}

/// Reads a colour block; returns what is wrong with it.
std::optional<QString> readExchangeColor(ByteReader& block, ImportedPalette& palette)
{
    const auto name = exchangeName(block);
    const auto model = block.readBytes(4);
    if (!name || !model) {
        return u"the color has no name or no model"_s;
    }
    auto color = exchangeColor(*model, block);
    if (!color) {
        return u"'%1' is not a color that can be read"_s.arg(QString::fromLatin1(*model));
    }
    setName(*color, *name);
    palette.colors.append(*color);
    return std::nullopt;
}

std::optional<CapturedColor> tableColor(quint16 space, const std::array<quint16, 4>& values)
{
    constexpr double full = 0xFFFF;
    constexpr double wideFull = 10'000;
    const auto part = [&](std::size_t i, double of) { return values.at(i) / of; };
    switch (space) {
    case Rgb:
        return CapturedColor::capture(part(0, full), part(1, full), part(2, full), 1);
    case Hsb:
        return colorFromHsb({part(0, full) * 360, part(1, full), part(2, full)});
    case Cmyk:
        // 0 is full ink.
        return colorFromCmyk({1 - part(0, full), 1 - part(1, full), 1 - part(2, full), 1 - part(3, full)});
    case Lab: {
        const auto signedPart = [&](std::size_t i) { return static_cast<qint16>(values.at(i)) / 100.0; };
        return colorFromLab({part(0, 100), signedPart(1), signedPart(2)});
    }
    case Grey:
        return CapturedColor::capture(part(0, wideFull), part(0, wideFull), part(0, wideFull), 1);
    case WideCmyk:
        return colorFromCmyk({part(0, wideFull), part(1, wideFull), part(2, wideFull), part(3, wideFull)});
    default:
        return std::nullopt;
    }
}

/// Reads the colours of one version of the table.
Import readTable(ByteReader& reader, bool hasNames)
{
    ImportedPalette palette;
    const auto count = reader.read16();
    for (int i = 0; i < count.value_or(0); ++i) {
        const qsizetype place = reader.offset();
        const auto space = reader.read16();
        std::array<quint16, 4> values{};
        for (quint16& value : values) {
            value = reader.read16().value_or(0);
        }
        if (!space || reader.offset() != place + 10) {
            return problemAtByte(place, endsEarly);
        }
        auto color = tableColor(*space, values);
        if (!color) {
            return problemAtByte(place, u"the color space %1 cannot be read"_s.arg(*space));
        }
        if (hasNames) {
            const auto length = reader.read32();
            const auto name = length ? reader.readText(*length) : std::nullopt;
            if (!name) {
                return problemAtByte(place + 10, u"the color has no name"_s);
            }
            setName(*color, *name);
        }
        palette.colors.append(*color);
    }
    return count ? Import(palette) : problemAtByte(reader.offset(), endsEarly);
}

} // namespace

bool isAdobeSwatchExchange(QByteArrayView bytes)
{
    return bytes.startsWith(exchangeSignature);
}

Import readAdobeSwatchExchange(QByteArrayView bytes)
{
    ByteReader reader(bytes);
    const auto signature = reader.readBytes(exchangeSignature.size());
    const auto version = reader.read32();
    const auto blocks = reader.read32();
    if (!signature || !version || !blocks) {
        return problemAtByte(reader.offset(), endsEarly);
    }
    ImportedPalette palette;
    for (quint32 i = 0; i < *blocks; ++i) {
        const qsizetype place = reader.offset();
        const auto kind = reader.read16();
        const auto length = reader.read32();
        const auto content = length ? reader.readBytes(*length) : std::nullopt;
        if (!kind || !content) {
            return problemAtByte(place, endsEarly);
        }
        ByteReader block(*content, place + 6);
        if (*kind == ColorEntry) {
            if (const auto problem = readExchangeColor(block, palette)) {
                return problemAtByte(place, *problem);
            }
        } else if (*kind == GroupStart && palette.name.isEmpty()) {
            palette.name = exchangeName(block).value_or(QString());
        }
    }
    return palette;
}

bool isAdobeColorTable(QByteArrayView bytes)
{
    const auto version = ByteReader(bytes).read16();
    return version == 1 || version == 2;
}

Import readAdobeColorTable(QByteArrayView bytes)
{
    ByteReader reader(bytes);
    const auto version = reader.read16();
    Import table = readTable(reader, version == 2);
    // A table of version 1 is often followed by the same colours with names.
    if (version != 1 || reader.isAtEnd() || std::holds_alternative<ImportProblem>(table)) {
        return table;
    }
    const qsizetype place = reader.offset();
    if (reader.read16() != 2) {
        return problemAtByte(place, u"there is no table of version 2"_s);
    }
    return readTable(reader, true);
}

} // namespace tintwick
