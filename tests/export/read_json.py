"""Reads a JSON file strictly and prints its value again in ASCII, without white space."""

import json
import sys

with open(sys.argv[1], encoding="utf-8", errors="strict") as file:
    json.dump(json.load(file), sys.stdout, ensure_ascii=True, separators=(",", ":"))
