#include "PaletteFiles.h"

#include "SingleLine.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>
#include <cmath>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

enum BlockKind : quint16 { GroupStart = 0xC001, GroupEnd = 0xC002, ColorEntry = 0x0001 };
enum ColorKind : quint16 { Global = 0 };
constexpr quint32 versionOne = 0x00010000;

QString nameOf(const CapturedColor& color)
{
    const bool hasName = color.customName && !color.customName->isEmpty();
    return hasName ? *color.customName : color.hex6();
}

int byteOf(double component)
{
    constexpr double brightest = 255;
    return static_cast<int>(std::round(std::clamp(component, 0.0, 1.0) * brightest));
}

/// The length of a name counts its zero and has 16 bits.
QString fitting(const QString& name)
{
    constexpr qsizetype longest = 0xFFFE;
    QString text = name.first(std::min(name.size(), longest));
    if (!text.isEmpty() && text.back().isHighSurrogate()) {
        text.chop(1);
    }
    return text;
}

/// A name in UTF-16 that ends with a zero, after its length.
QByteArray swatchName(const QString& name)
{
    const QString text = fitting(name);
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << static_cast<quint16>(text.size() + 1);
    for (const QChar unit : text) {
        stream << static_cast<quint16>(unit.unicode());
    }
    stream << quint16{0};
    return bytes;
}

QByteArray swatch(const CapturedColor& color)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::Append);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    const QByteArray name = swatchName(nameOf(color));
    stream.writeRawData(name.constData(), static_cast<int>(name.size()));
    stream.writeRawData("RGB ", 4);
    for (const double component : {color.red, color.green, color.blue}) {
        stream << static_cast<float>(std::clamp(component, 0.0, 1.0));
    }
    stream << static_cast<quint16>(Global);
    return bytes;
}

void writeBlock(QDataStream& stream, BlockKind kind, const QByteArray& content)
{
    stream << static_cast<quint16>(kind) << static_cast<quint32>(content.size());
    stream.writeRawData(content.constData(), static_cast<int>(content.size()));
}

} // namespace

QByteArray buildGimpPalette(const QList<CapturedColor>& colors, const QString& paletteName)
{
    QString text = u"GIMP Palette\nName: %1\n#\n"_s.arg(inSingleLine(paletteName));
    for (const CapturedColor& color : colors) {
        text += u"%1 %2 %3\t%4\n"_s.arg(byteOf(color.red), 3)
                    .arg(byteOf(color.green), 3)
                    .arg(byteOf(color.blue), 3)
                    .arg(inSingleLine(nameOf(color)));
    }
    return text.toUtf8();
}

QByteArray buildAdobeSwatches(const QList<CapturedColor>& colors, const QString& paletteName)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.writeRawData("ASEF", 4);
    stream << versionOne << static_cast<quint32>(colors.size() + 2);
    writeBlock(stream, GroupStart, swatchName(paletteName));
    for (const CapturedColor& color : colors) {
        writeBlock(stream, ColorEntry, swatch(color));
    }
    writeBlock(stream, GroupEnd, {});
    return bytes;
}

} // namespace tintwick
