#include "OfflineCommands.h"

#include "AtomicWrite.h"
#include "ColorExport.h"
#include "ColorListing.h"
#include "ColorText.h"
#include "CommandLine.h"
#include "DataFile.h"
#include "StandardStreams.h"

#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

int fail(const QString& reason)
{
    printError(u"tintwick: "_s + reason);
    return EXIT_FAILURE;
}

int print(const QByteArray& text)
{
    return writeToStandardOutput(text) ? EXIT_SUCCESS : fail(u"standard output cannot be written"_s);
}

int print(const QList<CapturedColor>& colors, const Invocation& invocation, ColorFormat byDefault,
          const QString& ownTemplate)
{
    const QStringList texts = textsOf(colors, invocation.format.value_or(byDefault), ownTemplate);
    if (invocation.isJson) {
        return print(colorsAsJson(colors, texts));
    }
    return print(texts.isEmpty() ? QByteArray() : texts.join(u'\n').toUtf8() + '\n');
}

int convert(const Invocation& invocation)
{
    QList<CapturedColor> colors;
    QStringList mapped;
    for (const QString& text : invocation.arguments) {
        const auto written = colorFromText(text);
        if (!written) {
            printError(u"tintwick: '%1' is not a color"_s.arg(text));
            return exitUsage;
        }
        colors.append(written->color);
        // Nobody picked it.
        colors.last().capturedAt = {};
        if (written->isGamutMapped) {
            mapped.append(text);
        }
    }
    for (const QString& text : mapped) {
        printError(u"tintwick: '%1' is outside sRGB; the nearest color inside is used"_s.arg(text));
    }
    // The other formats need no data.
    const bool usesTemplate = invocation.format == ColorFormat::Template;
    return print(colors, invocation, ColorFormat::Hex6,
                 usesTemplate ? DataFile().read().payload.colorTemplate : QString());
}

const ColorCollection* paletteNamed(const QString& name, const Payload& data)
{
    const auto found = std::ranges::find(data.collections, name, &ColorCollection::name);
    return found == data.collections.end() ? nullptr : &*found;
}

QString noPalette(const QString& name)
{
    return u"there is no palette '%1'"_s.arg(name);
}

int printPalettes(const Payload& data, const Invocation& invocation)
{
    if (invocation.isJson) {
        return print(palettesAsJson(data));
    }
    QString names;
    for (const ColorCollection& palette : data.collections) {
        names += palette.name + u'\n';
    }
    return print(names.toUtf8());
}

/// Texts in a picture need the toolkit, which needs no display here.
std::optional<QByteArray> exportedWithTexts(ExportFormat format, const QList<CapturedColor>& colors,
                                            const QString& title)
{
    std::array<QByteArray, 3> words{"tintwick", "-platform", "offscreen"};
    std::array arguments{words[0].data(), words[1].data(), words[2].data()};
    int count = static_cast<int>(arguments.size());
    const QGuiApplication toolkit(count, arguments.data());
    return ColorExport::build(format, colors, title);
}

int exportColors(const Payload& data, const Invocation& invocation)
{
    QList<CapturedColor> colors = data.history;
    QString title = u"History"_s;
    if (invocation.palette) {
        const ColorCollection* palette = paletteNamed(*invocation.palette, data);
        if (!palette) {
            return fail(noPalette(*invocation.palette));
        }
        colors = palette->colors(data.history, data.keptColors);
        title = palette->name;
    }
    const ExportFormat format = exportFormatFromWord(invocation.arguments.first()).value();
    const auto bytes = format == ExportFormat::PngWithCodes ? exportedWithTexts(format, colors, title)
                                                            : ColorExport::build(format, colors, title);
    if (!bytes) {
        return fail(u"there are no colors for a picture"_s);
    }
    if (invocation.output == "-"_L1) {
        return print(*bytes);
    }
    QString whyNot;
    return writeAtomically(invocation.output, *bytes, &whyNot)
               ? EXIT_SUCCESS
               : fail(u"%1 cannot be written: %2"_s.arg(invocation.output, whyNot));
}

} // namespace

int runOffline(const Invocation& invocation)
{
    if (invocation.command == CommandId::Convert) {
        return convert(invocation);
    }
    const DataReading reading = DataFile().read();
    if (reading.outcome == DataReading::Outcome::Undecodable ||
        reading.outcome == DataReading::Outcome::Failed) {
        return fail(u"%1 cannot be read"_s.arg(DataFile().fileURL().toLocalFile()));
    }
    const Payload& data = reading.payload;
    switch (invocation.command) {
    case CommandId::History:
        return print(data.history, invocation, data.defaultFormat, data.colorTemplate);
    case CommandId::Palettes:
        return printPalettes(data, invocation);
    case CommandId::Palette:
        if (const ColorCollection* palette = paletteNamed(invocation.arguments.first(), data)) {
            return print(palette->colors(data.history, data.keptColors), invocation, data.defaultFormat,
                         data.colorTemplate);
        }
        return fail(noPalette(invocation.arguments.first()));
    case CommandId::Export:
        return exportColors(data, invocation);
    default:
        Q_UNREACHABLE();
    }
}

} // namespace tintwick
