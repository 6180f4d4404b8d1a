#!/usr/bin/env python3
"""Proves that the include graph has no circle, with a source and its header taken as one room.

Prints the rooms of each circle and ends with status 1 when there is one.
"""
import os
import re
import subprocess
import sys
from graphlib import CycleError, TopologicalSorter

SUFFIXES = (".h", ".cpp", ".yy", ".ll")


def room(path):
    return os.path.splitext(path)[0]


def includes(path):
    with open(path, encoding="utf-8", errors="replace") as source:
        for name in re.findall(r'^\s*#\s*include\s+"([^"]+)"', source.read(), re.M):
            for candidate in (name, os.path.join(os.path.dirname(path), name)):
                if os.path.exists(candidate):
                    yield room(os.path.normpath(candidate))
                    break


def main():
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "kalve"], capture_output=True, text=True, check=True)
    graph = {}
    for path in listed.stdout.split():
        if path.endswith(SUFFIXES) and os.path.exists(path):
            graph.setdefault(room(path), set()).update(r for r in includes(path) if r != room(path))
    try:
        TopologicalSorter(graph).prepare()
    except CycleError as circle:
        print("include circle:\n  " + "\n  includes ".join(reversed(circle.args[1])))
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
