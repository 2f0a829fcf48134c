#include "CommandTable.h"

#include <algorithm>
#include <array>

namespace tintwick {

namespace {

constexpr int unlimited = 10'000;

constexpr OptionInfo format{
    u"format", u"f", u"FORMAT",
    u"Text format: HEX, HEX+A, RGB, RGBA, HSL, HSLA, CSS-Var, Tailwind, Name, OKLCH, RGB-modern, HSV, "
    u"CMYK-naive, HEX-lower, HEX-bare, 0xAARRGGBB, Floats or Template",
    Completion::Format};
constexpr OptionInfo json{u"json", {}, {}, u"Print JSON"};

constexpr std::array startOptions{OptionInfo{u"background", {}, {}, u"Start without opening the panel"}};
constexpr std::array pickOptions{format,
                                 OptionInfo{u"count", u"n", u"N", u"Pick up to N colors, one after another"},
                                 OptionInfo{u"no-copy", {}, {}, u"Leave the clipboard as it is"},
                                 OptionInfo{u"no-save", {}, {}, u"Leave the history as it is"}, json};
constexpr std::array listOptions{format, json};
constexpr std::array palettesOptions{json};
constexpr std::array exportOptions{
    OptionInfo{u"palette", u"p", u"NAME", u"Export this palette instead of the history"},
    OptionInfo{u"output", u"o", u"FILE", u"Write to a file; - is standard output (default)",
               Completion::File}};
constexpr std::array commonOptionTable{OptionInfo{u"help", u"h", {}, u"Show this help"},
                                       OptionInfo{u"version", u"v", {}, u"Show the version"}};

constexpr std::array commands{
    CommandInfo{CommandId::Start,
                {},
                u"FILE…",
                0,
                unlimited,
                u"Start Tintwick, or show the panel of the one that runs",
                u"Without a command, Tintwick starts and stays in the tray. If it runs already, its panel "
                u"opens. Files, written with a slash as in ./brand.gpl, are imported into it.",
                startOptions},
    CommandInfo{
        CommandId::Pick,
        u"pick",
        {},
        0,
        0,
        u"Pick a color and print it",
        u"Shows the loupe, prints the text of each picked color on a line of its own, copies it and adds the "
        u"color to the history. Uses the running Tintwick if there is one; otherwise the pick does not leave "
        u"a program behind. With several colors, Escape ends the series; the colors that were picked count.",
        pickOptions},
    CommandInfo{CommandId::History,
                u"history",
                {},
                0,
                0,
                u"Print the picked colors, newest first",
                u"Prints one color per line.",
                listOptions},
    CommandInfo{CommandId::Palettes,
                u"palettes",
                {},
                0,
                0,
                u"Print the names of the palettes",
                u"Prints one name per line.",
                palettesOptions},
    CommandInfo{CommandId::Palette, u"palette", u"NAME", 1, 1, u"Print the colors of a palette",
                u"Prints one color per line. Of several palettes with the name, the first counts.",
                listOptions},
    CommandInfo{
        CommandId::Export, u"export", u"TYPE", 1, 1, u"Export the history or a palette",
        u"Types are css, json, png, css-unique, scss, tailwind, tokens, gpl, ase, svg and png-codes. Writes "
        u"the same bytes as the export in the panel. A file is replaced as a whole or not at all.",
        exportOptions, Completion::ExportType},
    CommandInfo{CommandId::Import,
                u"import",
                u"FILE…",
                1,
                unlimited,
                u"Import palettes from files",
                u"Adds a palette for each file: GIMP palettes (.gpl), Adobe swatches (.ase, .aco), design "
                u"tokens and exported "
                u"JSON, custom properties of CSS, variables of SCSS, and pictures, whose most telling colors "
                u"count. When one "
                u"file is refused, nothing is changed.",
                {},
                Completion::File},
    CommandInfo{CommandId::Convert, u"convert", u"COLOR…", 1, unlimited, u"Convert colors to another format",
                u"Reads colors in any form of CSS Color 4, names of colors (\"Pale Violet\"), Tailwind "
                u"tokens (blue-500) and the notations 3B82F6, 0xFF3B82F6, hsv(), cmyk(), \"59 130 246\" and "
                u"\"0.2, 0.5, 1.0\". Prints each one on a line, as HEX unless a format is given. A color "
                u"outside sRGB becomes the nearest one inside, which is reported on standard error.",
                listOptions},
    CommandInfo{
        CommandId::Panel, u"panel", {}, 0, 0, u"Open the panel", u"Starts Tintwick if it does not run."},
    CommandInfo{CommandId::Settings,
                u"settings",
                {},
                0,
                0,
                u"Open the settings",
                u"Starts Tintwick if it does not run."},
    CommandInfo{CommandId::Quit,
                u"quit",
                {},
                0,
                0,
                u"Quit the running Tintwick",
                u"Does nothing if Tintwick does not run."},
};

constexpr std::array statuses{ExitStatus{0, u"Success; at least one color was picked."},
                              ExitStatus{exitCancelled, u"The pick was cancelled, or the command failed."},
                              ExitStatus{exitUsage, u"The command line is wrong."},
                              ExitStatus{exitNotPossible, u"A pick is not possible here."}};

} // namespace

std::span<const CommandInfo> allCommands()
{
    return commands;
}

const CommandInfo& commandOf(CommandId id)
{
    return *std::ranges::find(commands, id, &CommandInfo::id);
}

std::span<const OptionInfo> commonOptions()
{
    return commonOptionTable;
}

std::span<const ExitStatus> exitStatuses()
{
    return statuses;
}

} // namespace tintwick
