#!/usr/bin/env python3
"""Cuts the rows of some airports out of apt.dat(.gz): each airport's header (row code 1) and its
land runways (row code 100), in apt.dat's own form, so that any apt.dat reader reads the excerpt.

    apt_excerpt.py APT_DAT OUT ICAO...
"""
import gzip
import sys


def excerpt(lines, wanted):
    """Yields the header and runway rows of the wanted airports, in the file's order."""
    keep = False
    for line in lines:
        code = line.split(None, 1)[0] if line.strip() else ""
        if code in ("1", "16", "17"):
            parts = line.split()
            keep = code == "1" and len(parts) > 4 and parts[4] in wanted
            if keep:
                yield line
        elif keep and code == "100":
            yield line


def main(argv):
    if len(argv) < 4:
        print(__doc__, file=sys.stderr)
        return 2
    source, out, wanted = argv[1], argv[2], set(argv[3:])
    opener = gzip.open if source.endswith(".gz") else open
    with opener(source, "rt", encoding="latin-1") as f, open(out, "w", encoding="utf-8") as o:
        o.write("I\n1000 apt.dat excerpt\n\n")
        for line in excerpt(f, wanted):
            o.write(line.rstrip("\n") + "\n")
        o.write("99\n")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
