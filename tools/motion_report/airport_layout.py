"""The airport drawn on the map and whose stands are checked: runways from a small JSON file or an
apt.dat excerpt (row code 100), stands and taxi network from a FlightGear parking.xml."""

import json
import os
import sys
import xml.etree.ElementTree as ET
from collections import namedtuple

sys.path.insert(0, os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "databuild"))
from stock_airports import _degrees, read_parking  # noqa: E402  (FlightGear's "N50 2.928" and Parking)

RunwayEnd = namedtuple("RunwayEnd", "name lat lon")
Runway = namedtuple("Runway", "ends width_m")
Stand = namedtuple("Stand", "name lat lon heading radius_m")
TaxiNode = namedtuple("TaxiNode", "lat lon")
TaxiEdge = namedtuple("TaxiEdge", "begin end pushback")


class Layout:
    def __init__(self):
        self.runways = []
        self.stands = []
        self.nodes = {}  # index to TaxiNode; stands are nodes too
        self.edges = []

    def empty(self):
        return not (self.runways or self.stands or self.edges)


# Runways with an end this far from the middle of the stands belong to the airport.
AIRPORT_REACH_M = 8000.0


def read_runways(path):
    """Runways of a JSON file {"runways": [{"width_m": 60, "ends": [{"name", "lat", "lon"}, {...}]}]}
    or of an apt.dat excerpt, whose row code 100 lines give width, then per end name, lat, lon
    (fields 2, 9 to 11 and 18 to 20)."""
    with open(path, encoding="utf-8") as f:
        text = f.read()
    if text.lstrip().startswith("{"):
        return [Runway(tuple(RunwayEnd(e["name"], float(e["lat"]), float(e["lon"])) for e in r["ends"]),
                       float(r.get("width_m", 45))) for r in json.loads(text)["runways"]]
    runways = []
    for number, line in enumerate(text.splitlines(), start=1):
        fields = line.split()
        if not fields or fields[0] != "100":
            continue
        if len(fields) < 20:
            raise ValueError(f"{path}: line {number}: a runway line has 20 or more fields")
        ends = (RunwayEnd(fields[8], float(fields[9]), float(fields[10])),
                RunwayEnd(fields[17], float(fields[18]), float(fields[19])))
        runways.append(Runway(ends, float(fields[1])))
    return runways


def read_groundnet(path, layout):
    """Stands, taxi nodes and arcs of a FlightGear parking.xml into the layout."""
    for s in read_parking(path):
        layout.stands.append(Stand(s["id"], s["lat"], s["lon"], s["heading"], s["radius"]))
        layout.nodes[s["index"]] = TaxiNode(s["lat"], s["lon"])
    root = ET.parse(path).getroot()
    for node in root.iter("node"):
        lat, lon = _degrees(node.get("lat")), _degrees(node.get("lon"))
        if lat is not None and lon is not None:
            layout.nodes[node.get("index")] = TaxiNode(lat, lon)
    for arc in root.iter("arc"):
        begin, end = arc.get("begin"), arc.get("end")
        if begin in layout.nodes and end in layout.nodes:
            layout.edges.append(TaxiEdge(begin, end, arc.get("isPushBackRoute") == "1"))


def read_layout(parking=None, runways=None):
    layout = Layout()
    if parking:
        read_groundnet(parking, layout)
    if runways:
        layout.runways = read_runways(runways)
        if layout.stands:
            # An excerpt of apt.dat holds the runways of many airports: the map keeps this one's.
            from tracks import distance_m
            lat = sum(s.lat for s in layout.stands) / len(layout.stands)
            lon = sum(s.lon for s in layout.stands) / len(layout.stands)
            layout.runways = [r for r in layout.runways
                              if any(distance_m(lat, lon, e.lat, e.lon) <= AIRPORT_REACH_M for e in r.ends)]
    return layout


def stand_at(layout, lat, lon):
    """The nearest stand whose radius holds the position, or None."""
    from tracks import distance_m

    best = None
    for stand in layout.stands:
        d = distance_m(lat, lon, stand.lat, stand.lon)
        if d <= stand.radius_m and (best is None or d < best[0]):
            best = (d, stand)
    return best[1] if best else None
