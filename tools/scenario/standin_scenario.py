#!/usr/bin/env python3
"""The stand-in simulator's scenario for a generated recording: the user's aircraft parked at a
stand of the airport that none of the generated flights takes, the simulator's clock at the
recording's start, a trace row every simulated second.

    standin_scenario.py FLIGHTS_JSON PARKING_XML > scenario.json
"""
import datetime
import json
import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "databuild"))
import stock_airports  # noqa: E402


def scenario(summary, stands):
    taken = {f.get("stand") for f in summary["flights"]}
    free = [s for s in stands if s["id"] not in taken]
    # A small stand away from the airliners if there is one.
    user = min(free or stands, key=lambda s: (s["kind"] != "ga", s["radius"]))
    start = datetime.datetime.fromtimestamp(summary["epoch"], datetime.timezone.utc)
    return {
        "simulator": 2020,
        "frameRate": 30,
        "zuluStart": start.strftime("%Y-%m-%dT%H:%M:%SZ"),
        "terrainElevationFt": summary["elevation_ft"],
        "user": {"objectId": 1, "title": "Cessna Skyhawk G1000 Asobo", "atcModel": "C172", "atcId": "N172SP",
                 "latitude": user["lat"], "longitude": user["lon"], "onGround": True,
                 "headingDeg": user["heading"], "groundSpeedKt": 0, "lights": 0},
        "firstObjectId": 3,
        "maxAiObjects": 1000,
        "inFlight": True,
        "paused": False,
        "acceptAnyTitle": True,
        "installedTitlesFile": "input/standin_titles.json",
        "traceFile": "output/standin_trace.csv",
        "traceEveryFrames": 30,
        "airports": [{"icao": summary["airport"], "region": summary["airport"][:2], "name": summary["airport"],
                      "latitude": summary["latitude"], "longitude": summary["longitude"],
                      "altitudeM": round(summary["elevation_ft"] * 0.3048, 1)}],
    }


def main(argv):
    if len(argv) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    with open(argv[1], encoding="utf-8") as f:
        summary = json.load(f)
    json.dump(scenario(summary, stock_airports.read_parking(argv[2])), sys.stdout, indent=1)
    print()
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
