"""The two inputs of motion: the stand-in simulator's trace (platform/simconnect/README.md, Trace
CSV) and the true paths the traffic was made from (README.md of this folder)."""

import bisect
import csv
import math
from collections import namedtuple

EARTH_M = 6371008.8
M_PER_NM = 1852.0

Row = namedtuple("Row", "t object_id callsign title lat lon alt agl pitch bank heading on_ground engines_on tas")
TruePoint = namedtuple("TruePoint", "t lat lon alt gs track on_ground")

TRUE_COLUMNS = ["time_s", "callsign", "latitude", "longitude", "altitude_ft", "gs_kt", "track_deg", "on_ground"]


def distance_m(lat1, lon1, lat2, lon2):
    p1, p2 = math.radians(lat1), math.radians(lat2)
    dp, dl = p2 - p1, math.radians(lon2 - lon1)
    a = math.sin(dp / 2) ** 2 + math.cos(p1) * math.cos(p2) * math.sin(dl / 2) ** 2
    return 2 * EARTH_M * math.asin(min(1.0, math.sqrt(a)))


def _rows_of(path, needed):
    with open(path, encoding="utf-8", newline="") as f:
        reader = csv.DictReader(f)
        missing = [c for c in needed if c not in (reader.fieldnames or [])]
        if missing:
            raise ValueError(f"{path}: no column {', '.join(missing)}")
        yield from reader


def read_trace(path):
    """Rows by object id, in time order, and the times of the first and last frame."""
    columns = ["time_s", "object_id", "callsign", "title", "latitude", "longitude", "altitude_ft", "agl_ft",
               "pitch_deg", "bank_deg", "heading_deg", "on_ground", "engines_on", "tas_kt"]
    objects = {}
    times = []
    for number, r in enumerate(_rows_of(path, columns), start=2):
        try:
            row = Row(float(r["time_s"]), int(r["object_id"]), r["callsign"], r["title"], float(r["latitude"]),
                      float(r["longitude"]), float(r["altitude_ft"]), float(r["agl_ft"]), float(r["pitch_deg"]),
                      float(r["bank_deg"]), float(r["heading_deg"]), r["on_ground"] == "1", r["engines_on"] == "1",
                      float(r["tas_kt"]))
        except (TypeError, ValueError) as e:
            raise ValueError(f"{path}: line {number}: {e}") from None
        objects.setdefault(row.object_id, []).append(row)
        times.append(row.t)
    for rows in objects.values():
        rows.sort(key=lambda row: row.t)
    return objects, (min(times), max(times)) if times else (0.0, 0.0)


def read_true_paths(path):
    """True points by callsign, in time order."""
    paths = {}
    for number, r in enumerate(_rows_of(path, TRUE_COLUMNS), start=2):
        try:
            point = TruePoint(float(r["time_s"]), float(r["latitude"]), float(r["longitude"]), float(r["altitude_ft"]),
                              float(r["gs_kt"]), float(r["track_deg"]), r["on_ground"].strip() in ("1", "true"))
        except (TypeError, ValueError) as e:
            raise ValueError(f"{path}: line {number}: {e}") from None
        paths.setdefault(r["callsign"].strip(), []).append(point)
    for points in paths.values():
        points.sort(key=lambda p: p.t)
    return paths


def position_at(points, t):
    """(lat, lon) on the path at time t, straight between its points; None outside the path."""
    if not points or t < points[0].t or t > points[-1].t:
        return None
    i = bisect.bisect_left([p.t for p in points], t)
    if points[i].t == t or i == 0:
        return points[i].lat, points[i].lon
    a, b = points[i - 1], points[i]
    f = (t - a.t) / (b.t - a.t)
    return a.lat + f * (b.lat - a.lat), a.lon + f * (b.lon - a.lon)
