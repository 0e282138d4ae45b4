#!/usr/bin/env python3
"""Motion report of the stand-in simulator's trace: per aircraft its life, how far it was from
its true path, the largest values of its motion against its class, jumps, time below the ground
and aircraft standing in one stand radius; a summary; a map of the airport (PNG and SVG).

    motion_report.py TRACE.csv [--true PATHS.csv] [--parking parking.xml] [--runways FILE]
                     [--titles titles.json] [--class CALLSIGN=CLASS_OR_MODEL ...] [--delay S]
                     [--out DIR] [--no-map]
"""

import argparse
import json
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from aircraft_classes import LIMITS, ClassFinder  # noqa: E402
from airport_layout import read_layout  # noqa: E402
from motion_checks import Aircraft  # noqa: E402
from report_text import render  # noqa: E402
from stand_conflicts import find_conflicts  # noqa: E402
from tracks import read_trace, read_true_paths  # noqa: E402

LIFE_EVENTS = ("airborne", "landed", "taxied", "parked", "departed", "removed")


def _given_classes(entries):
    given = {}
    for entry in entries or []:
        callsign, sep, value = entry.partition("=")
        if not sep or not callsign or not value:
            raise SystemExit(f"motion_report: --class {entry}: CALLSIGN=CLASS or CALLSIGN=MODEL")
        given[callsign] = value if value in LIMITS else value.upper()
    return given


def analyse(trace, true_paths, layout, finder, delay):
    objects, (start, end) = read_trace(trace)
    first_frame = min(objects.items(), key=lambda kv: (kv[1][0].t, kv[0]))[0] if objects else None
    aircraft = []
    for object_id in sorted(objects):
        rows = objects[object_id]
        model, klass = finder.classify(rows[0].callsign, rows[0].title)
        ac = Aircraft(rows, model, klass, LIMITS[klass], user=object_id == first_frame)
        ac.check_motion()
        ac.follow_life(layout, end)
        if true_paths and ac.callsign in true_paths:
            ac.check_path(true_paths[ac.callsign], delay)
        aircraft.append(ac)
    conflicts = find_conflicts(aircraft, layout)
    return aircraft, conflicts, start, end


def report_of(trace, aircraft, conflicts, start, end, delay):
    entries = []
    for ac in aircraft:
        findings = [key for key, p in ac.peaks.items() if p.over]
        if ac.jumps:
            findings.append("jump")
        if ac.below_ground:
            findings.append("below ground")
        mine = [c for c in conflicts if ac.name in c["callsigns"]]
        if mine:
            findings.append("stand")
        entries.append({
            "object_id": ac.object_id, "callsign": ac.callsign, "title": ac.title, "model": ac.model,
            "class": ac.klass, "user": ac.user, "limits": ac.limits._asdict(),
            "life": [{"t": t, "event": e, "detail": d} for t, e, d in ac.life], "state_at_end": ac.state_at_end(),
            "deviation": ac.deviation, "peaks": {k: p.as_dict() for k, p in ac.peaks.items()}, "jumps": ac.jumps,
            "below_ground": {"frames": len(ac.below_ground), "first": ac.below_ground[0][0],
                             "lowest_ft": min(a for _, a in ac.below_ground)} if ac.below_ground else None,
            "stand_conflicts": mine, "findings": findings})
    count = lambda event: sum(1 for a in entries for e in a["life"] if e["event"] == event)
    devs = [(a["deviation"]["max_m"], a["deviation"]["at"], a["callsign"]) for a in entries
            if a["deviation"] and a["deviation"]["max_m"] is not None]
    worst = max(devs) if devs else None
    summary = {"aircraft": len(entries), **{e: count(e) for e in LIFE_EVENTS},
               "with_true_path": sum(1 for a in entries if a["deviation"] and a["deviation"]["samples"]),
               "beyond_limits": sum(1 for a in entries if any(p["over"] for p in a["peaks"].values())),
               "jumps": sum(len(a["jumps"]) for a in entries),
               "aircraft_with_jumps": sum(1 for a in entries if a["jumps"]),
               "below_ground_aircraft": sum(1 for a in entries if a["below_ground"]),
               "below_ground_frames": sum(a["below_ground"]["frames"] for a in entries if a["below_ground"]),
               "stand_conflicts": len(conflicts),
               "largest_deviation": {"max_m": worst[0], "at": worst[1], "callsign": worst[2]} if worst else None}
    return {"trace": trace, "start": start, "end": end, "delay_s": delay, "summary": summary,
            "aircraft": entries, "stand_conflicts": conflicts}


def main(argv=None):
    parser = argparse.ArgumentParser(prog="motion_report", description=__doc__.split("\n\n")[0])
    parser.add_argument("trace", help="the stand-in's trace CSV")
    parser.add_argument("--true", dest="true_paths", help="true paths CSV (time_s,callsign,latitude,longitude,"
                        "altitude_ft,gs_kt,track_deg,on_ground)")
    parser.add_argument("--parking", help="FlightGear parking.xml: stands and taxi network")
    parser.add_argument("--runways", help="runways: JSON file or apt.dat excerpt (row code 100)")
    parser.add_argument("--titles", help="installed titles JSON ([{\"title\", \"model\"}]) for the class")
    parser.add_argument("--class", dest="classes", action="append", metavar="CALLSIGN=CLASS_OR_MODEL",
                        help="the class (" + ", ".join(k for k in LIMITS) + ") or ICAO model of an aircraft")
    parser.add_argument("--delay", type=float, default=30.0, help="seconds the simulator shows a report after "
                        "its true time (default 30)")
    parser.add_argument("--out", help="folder of report.txt, report.json, map.png, map.svg "
                        "(default: motion_report beside the trace)")
    parser.add_argument("--no-map", action="store_true", help="no map picture")
    args = parser.parse_args(argv)

    try:
        finder = ClassFinder(args.titles, _given_classes(args.classes))
        true_paths = read_true_paths(args.true_paths) if args.true_paths else None
        layout = read_layout(args.parking, args.runways)
        aircraft, conflicts, start, end = analyse(args.trace, true_paths, layout, finder, args.delay)
    except (OSError, ValueError, KeyError, SyntaxError) as e:  # SyntaxError: XML that does not parse
        raise SystemExit(f"motion_report: {e}") from None
    report = report_of(args.trace, aircraft, conflicts, start, end, args.delay)
    out = args.out or os.path.join(os.path.dirname(os.path.abspath(args.trace)), "motion_report")
    os.makedirs(out, exist_ok=True)
    text = render(report)
    with open(os.path.join(out, "report.txt"), "w", encoding="utf-8") as f:
        f.write(text)
    with open(os.path.join(out, "report.json"), "w", encoding="utf-8") as f:
        json.dump(report, f, indent=1)
    if not args.no_map:
        occupied = {stand.name for ac in aircraft for stand in ac.standing_at[-1:] if stand and ac.rows[-1].t >= end}
        from airport_map import draw_map

        draw_map(os.path.join(out, "map.png"), os.path.join(out, "map.svg"), layout, aircraft,
                 true_paths or {}, occupied, os.path.basename(args.trace))
    sys.stdout.write(text)
    return 0


if __name__ == "__main__":
    sys.exit(main())
