#pragma once

namespace tintwick::test {

/// The reference table of names. Each row has three entries of number, name and value.
inline constexpr const char* colorNameRows =
    // clang-format off
    "1 | Black | 000000 | 46 | Light Green | 90EE90 | 91 | Wheat | F5DEB3\n"
    "2 | White | FFFFFF | 47 | Pale Green | 98FB98 | 92 | Corn Silk | FFF8DC\n"
    "3 | Red | FF0000 | 48 | Dark Sea Green | 8FBC8F | 93 | Lemon Chiffon | FFFACD\n"
    "4 | Lime | 00FF00 | 49 | Medium Green | 3CB371 | 94 | Light Yellow | FFFFE0\n"
    "5 | Blue | 0000FF | 50 | Sea Green | 2E8B57 | 95 | Saddle Brown | 8B4513\n"
    "6 | Yellow | FFFF00 | 51 | Spring Green | 00FF7F | 96 | Sienna | A0522D\n"
    "7 | Cyan | 00FFFF | 52 | Mint Cream | F5FFFA | 97 | Chocolate | D2691E\n"
    "8 | Magenta | FF00FF | 53 | Honeydew | F0FFF0 | 98 | Peru | CD853F\n"
    "9 | Silver | C0C0C0 | 54 | Medium Aqua | 66CDAA | 99 | Sandy Brown | F4A460\n"
    "10 | Gray | 808080 | 55 | Turquoise | 40E0D0 | 100 | Burlywood | DEB887\n"
    "11 | Maroon | 800000 | 56 | Light Sea | 20B2AA | 101 | Tan | D2B48C\n"
    "12 | Olive | 808000 | 57 | Dark Turquoise | 00CED1 | 102 | Rosy Brown | BC8F8F\n"
    "13 | Green | 008000 | 58 | Cadet Blue | 5F9EA0 | 103 | Moccasin | FFE4B5\n"
    "14 | Purple | 800080 | 59 | Steel Blue | 4682B4 | 104 | Navajo White | FFDEAD\n"
    "15 | Teal | 008080 | 60 | Cornflower | 6495ED | 105 | Peach Puff | FFDAB9\n"
    "16 | Navy | 000080 | 61 | Deep Sky Blue | 00BFFF | 106 | Misty Rose | FFE4E1\n"
    "17 | Dark Red | 8B0000 | 62 | Dodger Blue | 1E90FF | 107 | Lavender | E6E6FA\n"
    "18 | Brown | A52A2A | 63 | Light Blue | ADD8E6 | 108 | Lavender Blush | FFF0F5\n"
    "19 | Firebrick | B22222 | 64 | Sky Blue | 87CEEB | 109 | Linen | FAF0E6\n"
    "20 | Crimson | DC143C | 65 | Light Sky | 87CEFA | 110 | Old Lace | FDF5E6\n"
    "21 | Tomato | FF6347 | 66 | Midnight Blue | 191970 | 111 | Papaya Whip | FFEFD5\n"
    "22 | Coral | FF7F50 | 67 | Dark Blue | 00008B | 112 | Sea Shell | FFF5EE\n"
    "23 | Indian Red | CD5C5C | 68 | Medium Blue | 0000CD | 113 | Mint | F5FFFA\n"
    "24 | Light Coral | F08080 | 69 | Royal Blue | 4169E1 | 114 | Ivory | FFFFF0\n"
    "25 | Dark Salmon | E9967A | 70 | Blue Violet | 8A2BE2 | 115 | Ghost White | F8F8FF\n"
    "26 | Salmon | FA8072 | 71 | Indigo | 4B0082 | 116 | White Smoke | F5F5F5\n"
    "27 | Light Salmon | FFA07A | 72 | Dark Violet | 9400D3 | 117 | Snow | FFFAFA\n"
    "28 | Orange Red | FF4500 | 73 | Dark Orchid | 9932CC | 118 | Gainsboro | DCDCDC\n"
    "29 | Dark Orange | FF8C00 | 74 | Medium Orchid | BA55D3 | 119 | Light Gray | D3D3D3\n"
    "30 | Orange | FFA500 | 75 | Thistle | D8BFD8 | 120 | Dark Gray | A9A9A9\n"
    "31 | Gold | FFD700 | 76 | Plum | DDA0DD | 121 | Dim Gray | 696969\n"
    "32 | Dark Golden | B8860B | 77 | Violet | EE82EE | 122 | Light Slate | 778899\n"
    "33 | Goldenrod | DAA520 | 78 | Orchid | DA70D6 | 123 | Slate Gray | 708090\n"
    "34 | Pale Golden | EEE8AA | 79 | Medium Purple | 9370DB | 124 | Dark Slate | 2F4F4F\n"
    "35 | Dark Khaki | BDB76B | 80 | Dark Magenta | 8B008B | 125 | Charcoal | 36454F\n"
    "36 | Khaki | F0E68C | 81 | Hot Pink | FF69B4 | 126 | Alice Blue | F0F8FF\n"
    "37 | Yellow Green | 9ACD32 | 82 | Deep Pink | FF1493 | 127 | Azure | F0FFFF\n"
    "38 | Dark Olive | 556B2F | 83 | Pale Violet | DB7093 | 128 | Powder Blue | B0E0E6\n"
    "39 | Olive Drab | 6B8E23 | 84 | Medium Rose | C71585 | 129 | Medium Slate | 7B68EE\n"
    "40 | Lawn Green | 7CFC00 | 85 | Light Pink | FFB6C1 | 130 | Slate Blue | 6A5ACD\n"
    "41 | Chartreuse | 7FFF00 | 86 | Pink | FFC0CB | 131 | Dark Slate Blue | 483D8B\n"
    "42 | Green Yellow | ADFF2F | 87 | Antique White | FAEBD7 | 132 | Periwinkle | CCCCFF\n"
    "43 | Dark Green | 006400 | 88 | Beige | F5F5DC | 133 | Aquamarine | 7FFFD4\n"
    "44 | Forest Green | 228B22 | 89 | Bisque | FFE4C4 |  |  |\n"
    "45 | Lime Green | 32CD32 | 90 | Blanched Almond | FFEBCD |  |  |\n";
// clang-format on

} // namespace tintwick::test
