"""Reads a style sheet with a CSS parser and prints the variables that it declares, as JSON: a list of names and values.

The first argument is the kind of the sheet: "scss" for variables of Sass, else the rule that holds the variables, such as
":root" or "@theme". For a sheet that holds anything else, prints why as a JSON string.
"""

import json
import re
import sys

import tinycss2

COLOR = re.compile(r"#([0-9A-F]{6}|[0-9A-F]{8})$")


def sass_variables(css):
    # Such a comment ends with the line.
    css = re.sub(r"^//[^\n\r\f]*", "", css)
    tokens = tinycss2.parse_component_value_list(css, skip_comments=True)
    tokens = [token for token in tokens if token.type != "whitespace"]
    found = []
    for i in range(0, len(tokens), 5):
        statement = tokens[i : i + 5]
        kinds = [token.value if token.type == "literal" else token.type for token in statement]
        if kinds != ["$", "ident", ":", "hash", ";"]:
            return f"no variable: {kinds}"
        found.append([statement[1].value, "#" + statement[3].value])
    return found


def custom_properties(css, rule):
    rules = tinycss2.parse_stylesheet(css, skip_comments=True, skip_whitespace=True)
    if len(rules) != 1:
        return "not one rule"
    name = "@" + rules[0].at_keyword if rules[0].type == "at-rule" else ""
    name += tinycss2.serialize(rules[0].prelude).strip()
    if name != rule:
        return f"a rule for {name}"
    found = []
    for item in tinycss2.parse_declaration_list(rules[0].content, skip_comments=True, skip_whitespace=True):
        if item.type != "declaration":
            return "no declaration"
        found.append([item.name, tinycss2.serialize(item.value).strip()])
    return found


with open(sys.argv[2], encoding="utf-8", errors="strict") as file:
    text = file.read()
variables = sass_variables(text) if sys.argv[1] == "scss" else custom_properties(text, sys.argv[1])
if isinstance(variables, list):
    names = [name for name, _ in variables]
    if len(set(names)) != len(names):
        variables = "a name twice"
    elif not all(COLOR.match(value) for _, value in variables):
        variables = "no colour"
json.dump(variables, sys.stdout)
