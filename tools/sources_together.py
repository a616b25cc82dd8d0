#!/usr/bin/env python3
"""Which sources can be compiled as one, because no name that is a source's own is another's as well.

usage: tools/sources_together.py <TARGETS >SCRIPT

Reads lines of a target and its sources, separated by semicolons, and writes what CMake includes to
compile the sources in groups.
"""
import pathlib
import re
import sys

MOST_SOURCES = 12
MOST_LINES = 3000

ANONYMOUS = re.compile(r"^namespace \{$(.*?)^\}  // namespace$", re.MULTILINE | re.DOTALL)
# What stands at the beginning of a line there; the format indents everything else.
TYPE = re.compile(r"^(?:class|struct|enum class|enum|union) (\w+)", re.MULTILINE)
ALIAS = re.compile(r"^using (\w+) = (.*)$", re.MULTILINE)
FUNCTION = re.compile(r"^[A-Za-z][^=;{}()\n]*?[ &*](\w+)\(", re.MULTILINE)
VARIABLE = re.compile(r"^(?!using )[A-Za-z][^=;{}()\n]*?[ &*](\w+)(?:\[\w*\])*(?: = |\{|;)", re.MULTILINE)
TEST = re.compile(r"^TEST(?:_F|_P)?\((\w+),\s*(\w+)\)", re.MULTILINE)
# Would change what comes behind.
ALONE = re.compile(r"^\s*#\s*(?:define|undef|pragma)|\.moc\"", re.MULTILINE)


def own_names(text):
    """Each name with what it stands for, where another may say the same, or else nothing."""
    names = {"_".join(test): None for test in TEST.findall(text)}
    for part in ANONYMOUS.findall(text):
        for pattern in (TYPE, FUNCTION, VARIABLE):
            names.update(dict.fromkeys(pattern.findall(part)))
        names.update(ALIAS.findall(part))
    return names


class Group:
    def __init__(self):
        self.sources, self.names, self.lines = [], {}, 0

    def takes(self, names, lines, most_sources, most_lines):
        return (len(self.sources) < most_sources and self.lines + lines <= most_lines
                and all(names[name] and names[name] == self.names[name]
                        for name in names.keys() & self.names.keys()))

    def add(self, source, names, lines):
        self.sources.append(source)
        self.names.update(names)
        self.lines += lines


def groups(sources, most_sources=MOST_SOURCES, most_lines=MOST_LINES):
    """Lists of sources, each of which can be compiled as one, in the order that they are given."""
    found, alone = [], []
    for source in sources:
        text = pathlib.Path(source).read_text(encoding="utf-8")
        if ALONE.search(text):
            alone.append([source])
            continue
        names, lines = own_names(text), text.count("\n")
        group = next((group for group in found if group.takes(names, lines, most_sources, most_lines)), None)
        if group is None:
            group = Group()
            found.append(group)
        group.add(source, names, lines)
    return [group.sources for group in found] + alone


def main():
    for line in sys.stdin:
        target, *sources = line.strip().split(";")
        for number, group in enumerate(groups(sources)):
            if len(group) > 1:
                names = "\n  ".join(f'"{source}"' for source in group)
                print(f"set_source_files_properties({names}\n  TARGET_DIRECTORY {target}"
                      f" PROPERTIES UNITY_GROUP {target}_{number})")
        print(f"set_target_properties({target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)")


if __name__ == "__main__":
    main()
