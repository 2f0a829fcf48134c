"""Reads an Adobe Swatch Exchange file and prints its group and colours as JSON."""

import json
import struct
import sys


def name_in(block):
    (length,) = struct.unpack_from(">H", block)
    text = block[2 : 2 + 2 * length].decode("utf-16-be")
    assert text.endswith("\0") and "\0" not in text[:-1]
    return text[:-1], block[2 + 2 * length :]


with open(sys.argv[1], "rb") as file:
    data = file.read()
signature, major, minor, count = struct.unpack_from(">4sHHI", data)
assert (signature, major, minor) == (b"ASEF", 1, 0)
place = 12
blocks = []
while place < len(data):
    kind, length = struct.unpack_from(">HI", data, place)
    blocks.append((kind, data[place + 6 : place + 6 + length]))
    place += 6 + length
assert place == len(data) and len(blocks) == count
assert blocks[0][0] == 0xC001 and blocks[-1] == (0xC002, b"")
colors = []
for kind, block in blocks[1:-1]:
    assert kind == 1
    name, rest = name_in(block)
    model, red, green, blue, use = struct.unpack(">4sfffH", rest)
    assert (model, use) == (b"RGB ", 0)
    colors.append([name, *(round(255 * value) for value in (red, green, blue))])
json.dump([name_in(blocks[0][1])[0], colors], sys.stdout)
