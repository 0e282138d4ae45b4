#!/usr/bin/env python3
"""Checks every project include under src/ and platform/ against the Layers table of README.md.

    tools/check_layers.py [--root DIR]

Prints `path:line: <folder> may not include <header>` for each include that the table does not
allow and exits 1; exits 0 with a one-line summary when every include is allowed.
"""
import argparse
import os
import re
import sys

SOURCE_SUFFIXES = (".h", ".hh", ".hpp", ".hxx", ".inl", ".ipp", ".c", ".cc", ".cpp", ".cxx", ".h.in", ".cpp.in")
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"')
TABLE_ROW = re.compile(r"^\|(.*)\|\s*$")
EVERYTHING = "*"


def read_table(readme):
    """{folder: set of folders it may include, or {EVERYTHING}} from the '## Layers' table."""
    rules, in_section = {}, False
    with open(readme, encoding="utf-8") as f:
        for line in f:
            if line.startswith("## "):
                in_section = line.strip() == "## Layers"
                continue
            row = TABLE_ROW.match(line.strip()) if in_section else None
            if not row:
                continue
            cells = [c.strip() for c in row.group(1).split("|")]
            if len(cells) != 2 or set(cells[0]) <= set("-: ") or cells[0] == "Folder":
                continue
            folder = cells[0].strip("`")
            allowed = set()
            for item in (i.strip().strip("`") for i in cells[1].split(",")):
                if item == "everything":
                    allowed.add(EVERYTHING)
                elif item and item != "nothing":
                    allowed.add(item)
            rules[folder] = allowed
    return rules


def folder_of(repo_path):
    """'src/engine/x/y.h' -> 'src/engine'; 'platform/net/z.h' -> 'platform/net'."""
    return "/".join(repo_path.split("/")[:2])


def included_folder(header, includer_dir):
    """The layer folder of an include as the code writes it."""
    if "/" not in header or header.startswith("."):
        return folder_of(os.path.normpath(os.path.join(includer_dir, header)).replace(os.sep, "/"))
    first = header.split("/")[0]
    if first in ("src", "platform"):
        return folder_of(header)
    return "src/" + first


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--root", default=os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
    root = os.path.abspath(parser.parse_args().root)
    rules = read_table(os.path.join(root, "README.md"))
    if not rules:
        print(f"{root}/README.md: no '## Layers' table", file=sys.stderr)
        return 2
    problems, files, includes = [], 0, 0
    for top in ("src", "platform"):
        for dirpath, dirnames, filenames in os.walk(os.path.join(root, top)):
            dirnames.sort()
            for name in sorted(filenames):
                if not name.endswith(SOURCE_SUFFIXES):
                    continue
                path = os.path.relpath(os.path.join(dirpath, name), root).replace(os.sep, "/")
                own = folder_of(path)
                files += 1
                with open(os.path.join(root, path), encoding="utf-8", errors="replace") as f:
                    for number, line in enumerate(f, 1):
                        m = INCLUDE.match(line)
                        if not m:
                            continue
                        includes += 1
                        target = included_folder(m.group(1), os.path.dirname(path))
                        allowed = rules.get(own)
                        if allowed is None:
                            problems.append(f"{path}:{number}: {own} has no row in the Layers table of README.md")
                        elif target != own and EVERYTHING not in allowed and target not in allowed:
                            problems.append(f"{path}:{number}: {own} may not include {m.group(1)}")
    for p in problems:
        print(p)
    if problems:
        print(f"check_layers: {len(problems)} forbidden include(s) in {files} files", file=sys.stderr)
        return 1
    print(f"check_layers: {files} files, {includes} project includes, all allowed by the Layers table")
    return 0


if __name__ == "__main__":
    sys.exit(main())
