#include "GimpPaletteReader.h"

#include <QStringList>

#include <optional>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr QByteArrayView header = "GIMP Palette";
constexpr double brightest = 255;

/// Takes a number of 0 to 255 from the start of a line.
std::optional<double> takeComponent(QStringView& line)
{
    line = line.trimmed();
    qsizetype length = 0;
    while (length < line.size() && line[length] >= u'0' && line[length] <= u'9') {
        ++length;
    }
    bool isNumber = false;
    const int value = line.first(length).toInt(&isNumber);
    line = line.sliced(length);
    const bool ends = line.isEmpty() || line.front().isSpace();
    return isNumber && ends && value <= brightest ? std::optional(value / brightest) : std::nullopt;
}

std::optional<CapturedColor> colorIn(QStringView line)
{
    const auto red = takeComponent(line);
    const auto green = takeComponent(line);
    const auto blue = takeComponent(line);
    if (!red || !green || !blue) {
        return std::nullopt;
    }
    CapturedColor color = CapturedColor::capture(*red, *green, *blue, 1);
    const QString name = line.trimmed().toString();
    // Names that programs write for none.
    if (!name.isEmpty() && name != "Untitled"_L1 && name != color.hex6()) {
        color.customName = name;
    }
    return color;
}

} // namespace

bool isGimpPalette(QByteArrayView bytes)
{
    return bytes.startsWith(header);
}

Import readGimpPalette(QByteArrayView bytes)
{
    ImportedPalette palette;
    const QStringList lines = QString::fromUtf8(bytes).split(u'\n');
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const QString line = lines[i].trimmed();
        if (line.startsWith("Name:"_L1)) {
            palette.name = line.mid(5).trimmed();
        } else if (!line.isEmpty() && !line.startsWith(u'#') && !line.startsWith("Columns:"_L1)) {
            const auto color = colorIn(line);
            if (!color) {
                return problemInLine(i + 1, u"'%1' is not a color"_s.arg(line.left(40)));
            }
            palette.colors.append(*color);
        }
    }
    return palette;
}

} // namespace tintwick
