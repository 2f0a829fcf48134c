"""Reads an SVG file of rectangles and prints its size and the place, fill, opacity and title of each, as JSON."""

import json
import sys
import xml.etree.ElementTree as ElementTree

SVG = "{http://www.w3.org/2000/svg}"

root = ElementTree.parse(sys.argv[1]).getroot()
assert root.tag == SVG + "svg"
found = [[int(root.get("width")), int(root.get("height"))]]
for element in root:
    assert element.tag == SVG + "rect"
    place = [int(element.get(key)) for key in ("x", "y", "width", "height")]
    title = element.find(SVG + "title")
    found.append(
        [place, element.get("fill"), element.get("fill-opacity"), None if title is None else title.text]
    )
json.dump(found, sys.stdout)
