#!/usr/bin/env python3
"""Writes a RealTraffic recording (tools/rt_standin's format) of every scheduled flight around an
airport in a window of the week, from FlightGear's public AI data, and beside it the true path of
each aircraft (tools/motion_report's true-path CSV).

    generate_scenario.py --sources DIR --airport EHAM --day mon --time 12:00 --minutes 30 \\
        --out scenario.txt --true true_paths.csv

--sources is the folder tools/scenario/fetch_sources.sh prints. See tools/scenario/README.md.
"""

import argparse
import calendar
import datetime
import glob
import json
import math
import os
import random
import sys
import zlib

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, HERE)
sys.path.insert(0, os.path.join(HERE, "..", "databuild"))

import adsb_feed  # noqa: E402
import flights  # noqa: E402
import hand_data  # noqa: E402
import sources  # noqa: E402
import stock_airports  # noqa: E402
from airport_model import Airport  # noqa: E402
from geometry import great_circle_bearing, great_circle_nm  # noqa: E402

DAYS = ["mon", "tue", "wed", "thu", "fri", "sat", "sun"]
# A Monday, so that a weekday of the schedule is a real date.
MONDAY = datetime.datetime(2024, 6, 10, tzinfo=datetime.timezone.utc)
ARRIVAL_BEFORE = 25 * 60  # an arrival is in the air this long before touch-down, at most
DEPARTURE_AFTER = 20 * 60  # a departure is within 40 nm this long after off-block, at most
OVERFLIGHT_NM = 35.0


class GenerateError(Exception):
    pass


def parse_args(argv):
    p = argparse.ArgumentParser(description="RealTraffic recording of the scheduled traffic around an airport")
    p.add_argument("--sources", required=True, help="folder of fetch_sources.sh")
    p.add_argument("--data", default=os.path.join(HERE, "..", "..", "data"), help="the hand tables (data/)")
    p.add_argument("--airport", default="EHAM")
    p.add_argument("--day", default="mon", help="UTC weekday: mon..sun")
    p.add_argument("--time", default="12:00", help="UTC start, HH:MM")
    p.add_argument("--minutes", type=float, default=30.0, help="length of the scenario")
    p.add_argument("--wind", default="240/12", help="wind DIR/KT, for the runways in use and the weather")
    p.add_argument("--qnh", type=int, default=1016)
    p.add_argument("--seed", type=int, default=1)
    p.add_argument("--out", required=True, help="the recording to write")
    p.add_argument("--true", required=True, help="the true paths CSV to write")
    p.add_argument("--summary", help="JSON of the flights written (kind, callsign, runway, stand)")
    a = p.parse_args(argv)
    if a.day.lower()[:3] not in DAYS:
        p.error(f"--day: '{a.day}' is not a weekday (mon..sun)")
    try:
        hh, mm = a.time.split(":")
        a.start_minute = DAYS.index(a.day.lower()[:3]) * 1440 + int(hh) * 60 + int(mm)
        if not (0 <= int(hh) < 24 and 0 <= int(mm) < 60):
            raise ValueError
    except ValueError:
        p.error(f"--time: '{a.time}' is not HH:MM")
    try:
        d, k = a.wind.split("/")
        a.wind_dir, a.wind_kt = int(d) % 360, int(k)
    except ValueError:
        p.error(f"--wind: '{a.wind}' is not DIR/KT")
    if not (0 < a.minutes <= 24 * 60):
        p.error("--minutes: must be above 0 and at most 1440")
    return a


def registration_hexids(db_folder, wanted):
    """The transponder address (an integer) of each wanted registration that dump1090's database
    knows: its files are named by the first hex digits, their keys hold the rest."""
    found = {}
    for path in glob.glob(os.path.join(db_folder, "*.json")):
        prefix = os.path.splitext(os.path.basename(path))[0]
        with open(path, encoding="utf-8") as f:
            block = json.load(f)
        for key, entry in block.items():
            if isinstance(entry, dict) and entry.get("r") in wanted:
                try:
                    found[entry["r"]] = int(prefix + key, 16)
                except ValueError:
                    pass
    return found


def made_up_hexid(reg):
    """An address for a registration the database lacks: stable, 24 bits, well above 10000."""
    return 0x100000 + zlib.crc32(reg.encode()) % 0xE00000


def airport_positions(sources_folder):
    """ICAO code to (lat, lon, IATA code) from OurAirports' list, when fetched."""
    path = os.path.join(sources_folder, "airport-codes", "airports.csv")
    if not os.path.exists(path):
        return {}
    rows, _ = sources.read_airports(path)
    return {r["c"]: (r["la"], r["lo"], r["i"]) for r in rows}


def scheduled_flights(traffic_folder, hand):
    """Every weekly flight instance: (dep, dep minute, arr, arr minute, callsign, aircraft pool)."""
    pools, _ = stock_airports.read_pools(traffic_folder, hand.type_map, hand.cargo_operators, hand.cargo_types)
    out = []
    for pool in pools.values():
        if not pool["aircraft"]:
            continue
        for dep, t0, arr, t1, cs in pool["flights"]:
            for week in (-1, 0, 1):
                shift = week * stock_airports.MINUTES_PER_WEEK
                out.append((dep, t0 + shift, arr, t1 + shift, cs, pool["aircraft"]))
    return out


def class_of(model, hand):
    for cls, members in hand.classes.items():
        if model in members:
            return "buzjet" if cls == "buzjet" else cls
    return "light"


class StandBook:
    """Which stand each aircraft takes; a stand holds one aircraft at a time."""

    def __init__(self, stands):
        self.stands = stands
        self.busy = {s["id"]: [] for s in stands}

    def take(self, ac, t_from, t_to, rng):
        fits = []
        for rank, kind in enumerate(stock_airports.STAND_KINDS.get(ac["kind"], ("gate",))):
            for s in self.stands:
                if s["kind"] != kind or s["radius"] < ac["radius"]:
                    continue
                if s["airlines"] is not None and ac["airline"] not in s["airlines"]:
                    continue
                if any(a < t_to and t_from < b for a, b in self.busy[s["id"]]):
                    continue
                fits.append((rank, s["airlines"] is None, s["radius"], rng.random(), s["id"], s))
            if fits:
                break
        if not fits:
            return None
        stand = min(fits)[-1]
        self.busy[stand["id"]].append((t_from, t_to))
        return stand


def make_ident(ac, callsign, dep, arr, positions, hand):
    cls = class_of(ac["model"], hand)
    number = "".join(ch for ch in callsign[3:] if ch.isdigit())
    return {
        "callsign": callsign, "reg": ac["reg"], "model": ac["model"], "airline": ac["airline"],
        "from": positions.get(dep, (0, 0, ""))[2], "to": positions.get(arr, (0, 0, ""))[2],
        "flight": (callsign[:3] + number) if number else "", "cls": cls,
        "category": adsb_feed.CATEGORY.get(cls, "A1"),
    }


def build_flights(args, airport, schedule, positions, hand, rng):
    """The flights of the window, arrivals and departures placed on runways and stands."""
    start = args.start_minute * 60.0
    end = start + args.minutes * 60.0
    minute_of_day = args.start_minute % 1440 + args.minutes / 2
    landing, takeoff = airport.runways_in_use(int(minute_of_day) % 1440, args.wind_dir, args.wind_kt)
    book = StandBook(airport.stands)
    out, used_regs, used_cs = [], set(), set()
    here = (airport.lat, airport.lon)
    counters = {"arrival": 0, "departure": 0}

    def aircraft_for(pool, callsign):
        order = sorted(range(len(pool)), key=lambda i: zlib.crc32(f"{callsign}{i}".encode()))
        return next((pool[i] for i in order if pool[i]["reg"] not in used_regs), None)

    def bearing_to(code):
        if code in positions:
            la, lo, _ = positions[code]
            return great_circle_bearing(here[0], here[1], la, lo)
        return zlib.crc32(code.encode()) % 360

    candidates = []
    for dep, t0, arr, t1, cs, pool in schedule:
        if dep == args.airport and start - DEPARTURE_AFTER <= t0 * 60 <= end:
            candidates.append(("departure", t0 * 60.0, dep, arr, cs, pool))
        elif arr == args.airport and start <= t1 * 60 <= end + ARRIVAL_BEFORE:
            candidates.append(("arrival", t1 * 60.0, dep, arr, cs, pool))
        elif dep != arr and dep in positions and arr in positions and args.airport not in (dep, arr):
            over = overflight_of(here, positions[dep], positions[arr], t0 * 60.0, t1 * 60.0)
            if over and start - 600 <= over[0] <= end:
                candidates.append(("overflight", over, dep, arr, cs, pool))
    # Departures first: they stand at their stands from before the window.
    candidates.sort(key=lambda c: (c[0] != "departure", c[1] if c[0] != "overflight" else c[1][0], c[4]))
    for kind, when, dep, arr, cs, pool in candidates:
        ac = aircraft_for(pool, cs)
        if ac is None:
            continue
        callsign = stock_airports.callsign_of(cs, ac["airline"])
        if callsign in used_cs:
            continue
        ident = make_ident(ac, callsign, dep, arr, positions, hand)
        ident["headwind"] = 0.0
        if kind == "overflight":
            t_enter, b_in, b_out, gs = when
            flight = flights.overflight(airport, ident, b_in, b_out, t_enter - start,
                                        33000 + 1000 * (zlib.crc32(callsign.encode()) % 7), gs)
        else:
            if ac["kind"] not in stock_airports.STAND_KINDS:
                ac = dict(ac, kind="gate")
            if kind == "arrival":
                rwy = airport.runways[landing[counters[kind] % len(landing)]]
                stand = book.take(ac, when - start, math.inf, rng)
                flight = stand and flights.arrival(airport, ident, rwy, stand, bearing_to(dep), when - start, rng)
            else:
                rwy = airport.runways[takeoff[counters[kind] % len(takeoff)]]
                stand = book.take(ac, -math.inf, when - start, rng)
                flight = stand and flights.departure(airport, ident, rwy, stand, bearing_to(arr), when - start, rng)
            if not flight:
                continue
            counters[kind] += 1
            diff = math.radians(args.wind_dir - rwy.heading)
            ident["headwind"] = args.wind_kt * math.cos(diff)
        if flight.t_last < 0 or flight.t_first > end - start:
            continue
        used_regs.add(ac["reg"])
        used_cs.add(callsign)
        out.append(flight)
    return out, landing, takeoff


def overflight_of(here, a, b, t0, t1):
    """(time, entry bearing, exit bearing, ground speed) of a flight from a to b that passes
    within OVERFLIGHT_NM of here at cruise, else None."""
    total = great_circle_nm(a[0], a[1], b[0], b[1])
    if total < 300 or t1 <= t0:
        return None
    d_a = great_circle_nm(a[0], a[1], here[0], here[1])
    d_b = great_circle_nm(b[0], b[1], here[0], here[1])
    if d_a < 120 or d_b < 120 or d_a + d_b > total + 2 * OVERFLIGHT_NM:
        return None
    # Cross-track distance from the great circle a-b.
    brg_ab = math.radians(great_circle_bearing(a[0], a[1], b[0], b[1]))
    brg_ah = math.radians(great_circle_bearing(a[0], a[1], here[0], here[1]))
    dxt = math.asin(math.sin(d_a / 3437.7) * math.sin(brg_ah - brg_ab)) * 3437.7
    if abs(dxt) > OVERFLIGHT_NM:
        return None
    along = math.acos(max(-1.0, min(1.0, math.cos(d_a / 3437.7) / math.cos(dxt / 3437.7)))) * 3437.7
    gs = max(380.0, min(520.0, total / ((t1 - t0) / 3600.0) * 1.08))
    t_mid = t0 + (t1 - t0) * along / total
    half = math.sqrt(max(0.0, 40.0 ** 2 - dxt ** 2))
    track = great_circle_bearing(here[0], here[1], b[0], b[1])
    # Along the track, passing dxt beside the airport.
    side = math.degrees(math.atan2(dxt, half)) if half else 90.0
    entry = (track + 180 + side) % 360
    exit_ = (track - side) % 360
    return t_mid - half / gs * 3600.0, entry, exit_, gs


def write_outputs(args, airport, flight_list, out_path, true_path):
    rng = random.Random(args.seed * 7919)
    start = args.start_minute * 60.0
    duration = args.minutes * 60.0
    epoch = (MONDAY + datetime.timedelta(seconds=start)).timestamp()
    regs = {f.ident["reg"] for f in flight_list}
    hexids = registration_hexids(os.path.join(args.sources, "dump1090-db"), regs)
    lines = []
    rows = []
    for f in flight_list:
        hexid = hexids.get(f.ident["reg"]) or made_up_hexid(f.ident["reg"])
        f.ident["hexid"] = hexid
        t_from, t_to = max(0.0, f.t_first), min(duration, f.t_last)
        last_line = None
        for t in adsb_feed.report_times(t_from, t_to, rng):
            st = f.state(t)
            if last_line is not None and t == last_line[0]:
                line = last_line[1]
            else:
                line = adsb_feed.traffic_line(f.ident, st, epoch + t, args.qnh, rng, hexid)
            last_line = (t, line)
            arrival = t + rng.uniform(0.1, 0.6)
            if arrival < duration:
                lines.append((arrival, 49005, line))
        t = math.ceil(t_from)
        while t <= t_to:
            st = f.state(t)
            rows.append(f"{t:.1f},{f.ident['callsign']},{st['lat']:.7f},{st['lon']:.7f},{st['alt_ft']:.1f},"
                        f"{st['gs_kt']:.2f},{st['track']:.2f},{1 if st['on_ground'] else 0}")
            t += 1.0
    for k in range(int(duration // 60) + 1):
        t = k * 60.0 + 0.3
        if t < duration:
            when = MONDAY + datetime.timedelta(seconds=start + t)
            lines.append((t, 49004, adsb_feed.weather_line(args.airport, args.qnh, args.wind_dir, args.wind_kt,
                                                           when.day, when.hour, when.minute)))
    lines.sort(key=lambda x: x[0])
    with open(out_path, "w", encoding="utf-8") as o:
        o.write("# rt_standin recording: <seconds> <port> <datagram>\n")
        o.write(f"# Generated: {args.airport} {DAYS[args.start_minute // 1440]} {args.time} UTC, "
                f"{args.minutes:g} minutes, {len(flight_list)} aircraft, wind {args.wind_dir:03d}/{args.wind_kt}, "
                f"QNH {args.qnh}\n")
        o.write(f"# epoch {epoch:.3f}\n")
        for t, port, text in lines:
            o.write(f"{t:.3f} {port} {text}\n")
    with open(true_path, "w", encoding="utf-8") as o:
        o.write("time_s,callsign,latitude,longitude,altitude_ft,gs_kt,track_deg,on_ground\n")
        o.write("\n".join(rows) + ("\n" if rows else ""))
    return len([x for x in lines if x[1] == 49005])


def main(argv):
    args = parse_args(argv)
    src = args.sources
    icao = args.airport.upper()
    args.airport = icao
    parking = os.path.join(src, "flightgear-ai", "Airports", icao, "parking.xml")
    if not os.path.exists(parking):
        have = sorted(os.path.basename(os.path.dirname(p))
                      for p in glob.glob(os.path.join(src, "flightgear-ai", "Airports", "*", "parking.xml")))
        raise GenerateError(f"no taxi network for {icao}; airports with one: {' '.join(have)}")
    airport = Airport(icao, parking, os.path.join(src, "runways.dat"),
                      os.path.join(src, "flightgear-rwyuse", icao, "rwyuse.xml"))
    hand = hand_data.HandData(args.data)
    schedule = scheduled_flights(os.path.join(src, "flightgear-ai", "Traffic"), hand)
    positions = airport_positions(src)
    rng = random.Random(args.seed)
    flight_list, landing, takeoff = build_flights(args, airport, schedule, positions, hand, rng)
    count = write_outputs(args, airport, flight_list, args.out, args.true)
    kinds = {k: sum(1 for f in flight_list if f.kind == k) for k in ("arrival", "departure", "overflight")}
    if args.summary:
        with open(args.summary, "w", encoding="utf-8") as o:
            epoch = (MONDAY + datetime.timedelta(minutes=args.start_minute)).timestamp()
            json.dump({"airport": icao, "elevation_ft": airport.elevation, "epoch": epoch, "landing": landing, "takeoff": takeoff,
                       "latitude": airport.lat, "longitude": airport.lon,
                       "flights": [dict(kind=f.kind, callsign=f.ident["callsign"], reg=f.ident["reg"],
                                        model=f.ident["model"], hexid=f.ident.get("hexid"), **f.marks)
                                   for f in flight_list]}, o, indent=1)
    print(f"{icao}: {kinds['arrival']} arrivals on {','.join(landing)}, {kinds['departure']} departures from "
          f"{','.join(takeoff)}, {kinds['overflight']} overflights; {count} traffic lines to {args.out}, "
          f"true paths to {args.true}")
    return 0


if __name__ == "__main__":
    try:
        sys.exit(main(sys.argv[1:]))
    except GenerateError as e:
        print(f"generate_scenario: {e}", file=sys.stderr)
        sys.exit(1)
