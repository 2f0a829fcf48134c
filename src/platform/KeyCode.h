#pragma once

// Key codes name a key by its position on the keyboard, independent of the layout. Stored shortcuts use the same
// numbers, so settings written on another system name the same keys.

namespace tintwick::keycode {

inline constexpr int a = 0, s = 1, d = 2, f = 3, h = 4, g = 5, z = 6, x = 7, c = 8, v = 9, b = 11, q = 12,
                     w = 13, e = 14, r = 15, y = 16, t = 17, o = 31, u = 32, i = 34, p = 35, l = 37, j = 38,
                     k = 40, n = 45, m = 46;
inline constexpr int one = 18, two = 19, three = 20, four = 21, six = 22, five = 23, nine = 25, seven = 26,
                     eight = 28, zero = 29;
inline constexpr int equal = 24, minus = 27, rightBracket = 30, leftBracket = 33, quote = 39, semicolon = 41,
                     backslash = 42, comma = 43, slash = 44, period = 47, backtick = 50;
inline constexpr int returnKey = 36, tab = 48, space = 49, deleteKey = 51, escape = 53, help = 114,
                     home = 115, pageUp = 116, deleteForward = 117, end = 119, pageDown = 121;
inline constexpr int leftArrow = 123, rightArrow = 124, downArrow = 125, upArrow = 126;
inline constexpr int rightSuper = 54, super = 55, shift = 56, capsLock = 57, alt = 58, control = 59,
                     rightShift = 60, rightAlt = 61, rightControl = 62, function = 63;
inline constexpr int volumeUp = 72, volumeDown = 73, mute = 74;
inline constexpr int f1 = 122, f2 = 120, f3 = 99, f4 = 118, f5 = 96, f6 = 97, f7 = 98, f8 = 100, f9 = 101,
                     f10 = 109, f11 = 103, f12 = 111, f13 = 105, f14 = 107, f15 = 113, f16 = 106, f17 = 64,
                     f18 = 79, f19 = 80, f20 = 90;
inline constexpr int keypad0 = 82, keypad1 = 83, keypad2 = 84, keypad3 = 85, keypad4 = 86, keypad5 = 87,
                     keypad6 = 88, keypad7 = 89, keypad8 = 91, keypad9 = 92;
// Keys that an ANSI keyboard lacks.
inline constexpr int isoSection = 10, jisYen = 93, jisUnderscore = 94, jisKeypadComma = 95;
inline constexpr int keypadDecimal = 65, keypadMultiply = 67, keypadPlus = 69, keypadClear = 71,
                     keypadDivide = 75, keypadEnter = 76, keypadMinus = 78, keypadEquals = 81;

/// Keys that the stored format of other systems does not have are this number plus their evdev code. The codes of the
/// format have 16 bits, so the two never collide. A version of the program that lacks such a key does not bind it.
inline constexpr int evdevBase = 0x10000;
inline constexpr int print = evdevBase + 99, pause = evdevBase + 119, menu = evdevBase + 127;
inline constexpr int f21 = evdevBase + 191, f22 = evdevBase + 192, f23 = evdevBase + 193,
                     f24 = evdevBase + 194;
inline constexpr int helpKey = evdevBase + 138, calculator = evdevBase + 140, files = evdevBase + 144,
                     webBrowser = evdevBase + 150, mail = evdevBase + 155, bookmarks = evdevBase + 156,
                     computer = evdevBase + 157, back = evdevBase + 158, forward = evdevBase + 159,
                     eject = evdevBase + 161, nextTrack = evdevBase + 163, playPause = evdevBase + 164,
                     previousTrack = evdevBase + 165, stop = evdevBase + 166, record = evdevBase + 167,
                     rewind = evdevBase + 168, tools = evdevBase + 171, homePage = evdevBase + 172,
                     refresh = evdevBase + 173, play = evdevBase + 207, fastForward = evdevBase + 208,
                     search = evdevBase + 217, brightnessDown = evdevBase + 224,
                     brightnessUp = evdevBase + 225, media = evdevBase + 226, display = evdevBase + 227;

} // namespace tintwick::keycode

// Modifier masks. Stored shortcuts use the same values.
namespace tintwick::modifier {

inline constexpr int super = 0x100, shift = 0x200, alt = 0x800, control = 0x1000, function = 0x20000;
/// All five.
inline constexpr int all = super | shift | alt | control | function;

} // namespace tintwick::modifier
