#!/usr/bin/env python3
"""Fails when a strong global symbol is defined twice among the project's static libraries.

    tools/check_duplicates.py BUILD_DIR              the liborv_*.a under BUILD_DIR/src and BUILD_DIR/platform
    tools/check_duplicates.py --archives A.a B.a...  the given archives

Reads `nm` of each archive, keeps the defined global symbols of type T, D, B or R (weak W and V,
unique u and undefined symbols are left out) and lists, demangled, each one that more than one
library, or more than one object of one library, defines. Exit 1 then, 0 when there is none.
"""
import argparse
import collections
import os
import re
import subprocess
import sys

STRONG = {"T", "D", "B", "R"}
MEMBER = re.compile(r"^(.*)\[(.*)\]:$")


def project_archives(build_dir):
    found = []
    for top in ("src", "platform"):
        for dirpath, dirnames, filenames in os.walk(os.path.join(build_dir, top)):
            dirnames.sort()
            found += [os.path.join(dirpath, n) for n in sorted(filenames) if re.fullmatch(r"liborv_.*\.a", n)]
    return found


def strong_definitions(archive):
    """[(mangled symbol, object)] of one archive."""
    out = subprocess.run(["nm", "-g", "--defined-only", "-P", archive], check=True, capture_output=True,
                         text=True).stdout
    result, member = [], os.path.basename(archive)
    for line in out.splitlines():
        m = MEMBER.match(line)
        if m:
            member = m.group(2)
            continue
        fields = line.split()
        if len(fields) >= 2 and fields[1] in STRONG:
            result.append((fields[0], member))
    return result


def demangle(names):
    if not names:
        return {}
    out = subprocess.run(["c++filt"], input="\n".join(names) + "\n", check=True, capture_output=True,
                         text=True).stdout.splitlines()
    return dict(zip(names, out))


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build_dir", nargs="?")
    parser.add_argument("--archives", nargs="+")
    args = parser.parse_args()
    if bool(args.build_dir) == bool(args.archives):
        parser.error("give either BUILD_DIR or --archives")
    archives = args.archives or project_archives(args.build_dir)
    if not archives:
        print(f"check_duplicates: no liborv_*.a under {args.build_dir}/src or /platform", file=sys.stderr)
        return 2
    where = collections.defaultdict(list)
    for archive in archives:
        for symbol, member in strong_definitions(archive):
            where[symbol].append(f"{os.path.basename(archive)}({member})")
    twice = sorted(s for s, places in where.items() if len(places) > 1)
    names = demangle(twice)
    for symbol in sorted(twice, key=lambda s: names[s]):
        print(f"{names[symbol]} is defined {len(where[symbol])} times: {', '.join(where[symbol])}")
    if twice:
        print(f"check_duplicates: {len(twice)} symbol(s) defined more than once in {len(archives)} archives",
              file=sys.stderr)
        return 1
    print(f"check_duplicates: {len(where)} strong symbols of {len(archives)} archives, each defined once")
    return 0


if __name__ == "__main__":
    sys.exit(main())
