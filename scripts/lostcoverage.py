#!/usr/bin/env python3
"""Lines of report/ that an earlier run covered and this one does not, from two gcovr --json files.
   scripts/lostcoverage.py BEFORE.json AFTER.json"""
import json
import sys


def covered(path):
    files = json.load(open(path))["files"]
    return {f["file"]: {line["line_number"] for line in f["lines"] if line["count"] > 0 and not line["gcovr/noncode"]}
            for f in files if f["file"].startswith("report/")}


before, after = covered(sys.argv[1]), covered(sys.argv[2])
lost = {name: sorted(lines - after.get(name, set())) for name, lines in sorted(before.items())}
for name, lines in lost.items():
    if lines:
        print(name, ",".join(map(str, lines)))
print("report/ lines covered before and not now:", sum(map(len, lost.values())))
