"""Readers of the hand-written tables under data/."""

import csv
import os


def _rows(path):
    """Rows of a CSV file, without blank lines and lines starting with '#'."""
    with open(path, encoding="utf-8", newline="") as f:
        lines = [line for line in f if line.strip() and not line.lstrip().startswith("#")]
    return [[cell.strip() for cell in row] for row in csv.reader(lines)]


def _table(path):
    """A CSV file with a header line: list of dicts."""
    rows = _rows(path)
    header, body = rows[0], rows[1:]
    return [dict(zip(header, row)) for row in body]


def _groups(path):
    """One group a line, members separated by commas."""
    return [[cell for cell in row if cell] for row in _rows(path)]


class HandData:
    def __init__(self, folder):
        p = lambda name: os.path.join(folder, name)
        self.type_map = {}
        for name in ("iata_icao_types.csv", "type_aliases.csv"):
            key = "iata" if name.startswith("iata") else "text"
            for row in _table(p(name)):
                self.type_map[row[key]] = (row["icao"], row["freighter"] == "1")
        self.classes = {}  # class name to list of types
        for row in _table(p("model_classes.csv")):
            self.classes.setdefault(row["class"], []).append(row["icao"])
        self.cargo_types = [row["icao"] for row in _table(p("cargo_types.csv"))]
        self.cargo_operators = {row["icao"]: row["name"] for row in _table(p("cargo_operators.csv"))}
        self.wingspans = [(row["icao"], row["meters"]) for row in _table(p("wingspans.csv"))]
        self.fixes = [(row["wrong"], row["right"]) for row in _table(p("model_fixes.csv"))]
        self.similar_types = _groups(p("similar_types.csv"))
        self.prefix_groups = _groups(p("prefix_groups.csv"))
        self.publishers = _groups(p("publishers.csv"))
        self.sim_addons = {"2020": [], "2024": []}
        for row in _table(p("sim_addons.csv")):
            self.sim_addons[row["sim"]].append(row["icao"])
        self.extra_airlines = {row["icao"]: row["name"] for row in _table(p("extra_airlines.csv"))}
        self.current_airlines = {row["icao"]: row["name"] for row in _table(p("current_airlines.csv"))}
        self.sim_fleet = [row["icao"] for row in _table(p("sim_fleet.csv"))]

    def hand_types(self):
        """Every model code the hand tables name (they are all ICAO designators)."""
        types = set(self.cargo_types)
        for members in self.classes.values():
            types.update(members)
        types.update(t for t, _ in self.wingspans)
        types.update(right for _, right in self.fixes)
        for group in self.similar_types:
            types.update(group)
        types.update(icao for icao, _ in self.type_map.values())
        types.update(self.sim_fleet)
        return types
