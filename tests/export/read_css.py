"""Reads a style sheet with a CSS parser and prints what it declares for :root, as JSON: a list of names and values.

For a sheet that is anything but comments and one rule for :root, or that declares anything but colours, it prints why as
a JSON string instead.
"""

import json
import sys

import tinycss2
import tinycss2.color3


def declarations(css):
    rules, _ = tinycss2.parse_stylesheet_bytes(css, skip_comments=True, skip_whitespace=True)
    if len(rules) != 1 or rules[0].type != "qualified-rule":
        return "not one rule"
    selector = tinycss2.serialize(rules[0].prelude).strip()
    if selector != ":root":
        return f"a rule for {selector}"
    found = []
    for item in tinycss2.parse_declaration_list(rules[0].content, skip_comments=True, skip_whitespace=True):
        if item.type != "declaration":
            return "no declaration"
        value = tinycss2.serialize(item.value).strip()
        if tinycss2.color3.parse_color(value) is None:
            return f"no colour: {value}"
        found.append([item.name, value])
    return found


with open(sys.argv[1], "rb") as file:
    json.dump(declarations(file.read()), sys.stdout)
