"""An airport as the generator needs it: stands, the taxi network with its runway nodes
(FlightGear's groundnet, AI/Airports/<ICAO>/parking.xml), runway ends and elevation (apt.dat rows)
and the runways in use by time of day (rwyuse.xml)."""

import heapq
import math
import os
import sys
import xml.etree.ElementTree as ET

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "databuild"))
import stock_airports  # noqa: E402  (the data build's reader of parking.xml)

from geometry import Local, bearing_deg, unit  # noqa: E402


class Runway:
    """One direction of a runway: from its threshold `name` towards the opposite end."""

    def __init__(self, name, lat, lon, far_lat, far_lon, width, local):
        self.name = name
        self.lat, self.lon = lat, lon
        self.width = width
        self.x0, self.y0 = local.xy(lat, lon)
        x1, y1 = local.xy(far_lat, far_lon)
        self.length = math.hypot(x1 - self.x0, y1 - self.y0)
        self.heading = bearing_deg(x1 - self.x0, y1 - self.y0)
        self.ux, self.uy = unit(self.heading)

    def along(self, x, y):
        """(metres from the threshold along the runway, metres off the centre line)."""
        dx, dy = x - self.x0, y - self.y0
        return dx * self.ux + dy * self.uy, abs(dx * self.uy - dy * self.ux)

    def point(self, d, side=0.0):
        return (self.x0 + self.ux * d + self.uy * side, self.y0 + self.uy * d - self.ux * side)


def read_runways(apt_path, icao):
    """(elevation ft, [(width m, name, lat, lon, name, lat, lon)]) of one airport in apt.dat rows."""
    elevation, rows, inside = None, [], False
    with open(apt_path, encoding="utf-8", errors="replace") as f:
        for line in f:
            parts = line.split()
            if not parts:
                continue
            if parts[0] in ("1", "16", "17"):
                if inside:
                    break
                inside = parts[0] == "1" and len(parts) > 4 and parts[4] == icao
                if inside:
                    elevation = float(parts[1])
            elif inside and parts[0] == "100" and len(parts) >= 20:
                rows.append((float(parts[1]), parts[8], float(parts[9]), float(parts[10]),
                             parts[17], float(parts[18]), float(parts[19])))
    if elevation is None:
        raise ValueError(f"{apt_path}: no airport {icao}")
    return elevation, rows


def read_runway_use(path):
    """rwyuse.xml: [(start minute, end minute, schedule name)] of commercial traffic and
    {schedule: {"takeoff": [[names of column 0], ...], "landing": [...]}} by column."""
    root = ET.parse(path).getroot()
    times = []
    com = root.find("com")
    for t in (com.iter("time") if com is not None else ()):
        def minute(text):
            h, m = (text or "0:0").strip().split(":")
            return int(h) * 60 + int(m)
        times.append((minute(t.get("start")), minute(t.get("end")), (t.get("schedule") or "").strip()))
    schedules = {}
    for s in root.iter("schedule"):
        columns = {"takeoff": [], "landing": []}
        for kind in columns:
            for line in s.iter(kind):
                names = [n.strip() for n in (line.text or "").split(",")]
                for i, n in enumerate(names):
                    while len(columns[kind]) <= i:
                        columns[kind].append([])
                    if n:
                        columns[kind][i].append(n)
        schedules[s.get("name")] = columns
    return times, schedules


def _wind_fits(rwy, wind_dir, wind_kt, tail_max=7.0, cross_max=20.0):
    diff = math.radians(wind_dir - rwy.heading)
    return -wind_kt * math.cos(diff) <= tail_max and abs(wind_kt * math.sin(diff)) <= cross_max


class Airport:
    def __init__(self, icao, parking_xml, apt_dat, rwyuse_xml=None):
        self.icao = icao
        self.elevation, rows = read_runways(apt_dat, icao)
        self.stands = stock_airports.read_parking(parking_xml)
        if not rows:
            raise ValueError(f"{apt_dat}: {icao} has no runway")
        lat0 = sum(r[2] + r[5] for r in rows) / (2 * len(rows))
        lon0 = sum(r[3] + r[6] for r in rows) / (2 * len(rows))
        self.lat, self.lon = lat0, lon0
        self.local = Local(lat0, lon0)
        self.runways = {}
        for width, n1, la1, lo1, n2, la2, lo2 in rows:
            self.runways[n1] = Runway(n1, la1, lo1, la2, lo2, width, self.local)
            self.runways[n2] = Runway(n2, la2, lo2, la1, lo1, width, self.local)
        self._read_network(parking_xml)
        self.use = read_runway_use(rwyuse_xml) if rwyuse_xml and os.path.exists(rwyuse_xml) else None

    def _read_network(self, path):
        root = ET.parse(path).getroot()
        self.nodes = {}  # index to (x, y, on runway)
        for element in list(root.iter("node")) + list(root.iter("Parking")):
            lat = stock_airports._degrees(element.get("lat"))
            lon = stock_airports._degrees(element.get("lon"))
            if lat is None or lon is None:
                continue
            x, y = self.local.xy(lat, lon)
            self.nodes[int(element.get("index"))] = (x, y, element.get("isOnRunway") == "1")
        self.pushback_end = {}
        for element in root.iter("Parking"):
            route = element.get("pushBackRoute")
            if route and route.lstrip("-").isdigit() and int(route) >= 0:
                self.pushback_end[element.get("index")] = int(route)
        self.edges = {i: [] for i in self.nodes}
        for arc in root.iter("arc"):
            a, b = int(arc.get("begin")), int(arc.get("end"))
            if a in self.nodes and b in self.nodes and a != b:
                pa, pb = self.nodes[a], self.nodes[b]
                d = math.hypot(pa[0] - pb[0], pa[1] - pb[1])
                # Runways are crossed, not taxied along.
                cost = d * (8.0 if pa[2] and pb[2] else 1.0)
                self.edges[a].append((b, cost))
                self.edges[b].append((a, cost))
        if not any(self.edges.values()):
            raise ValueError(f"{path}: no taxi network")

    def has_network(self):
        return any(self.edges.values())

    def runways_in_use(self, minute_of_day, wind_dir, wind_kt):
        """(landing runway names, take-off runway names) at that minute with that wind."""
        if self.use:
            times, schedules = self.use
            name = next((s for a, b, s in times if a <= minute_of_day < b), None)
            sched = schedules.get(name)
            if sched:
                columns = max(len(sched["takeoff"]), len(sched["landing"]))
                for i in range(columns):
                    land = [n for n in (sched["landing"][i] if i < len(sched["landing"]) else []) if n in self.runways]
                    take = [n for n in (sched["takeoff"][i] if i < len(sched["takeoff"]) else []) if n in self.runways]
                    if land and take and all(_wind_fits(self.runways[n], wind_dir, wind_kt) for n in land + take):
                        return sorted(set(land), key=land.index), sorted(set(take), key=take.index)
        best = max(self.runways.values(),
                   key=lambda r: (math.cos(math.radians(wind_dir - r.heading)), r.length))
        return [best.name], [best.name]

    def runway_nodes(self, rwy):
        """Nodes on that runway that lead off it, as (distance from its threshold, index)."""
        out = []
        for i, (x, y, on) in self.nodes.items():
            if not on or not self.edges[i]:
                continue
            d, off = rwy.along(x, y)
            if off <= max(30.0, rwy.width) and -50 <= d <= rwy.length + 50:
                if any(not self.nodes[j][2] for j, _ in self.edges[i]):
                    out.append((d, i))
        return sorted(out)

    def route(self, start, goal):
        """Node indexes of the cheapest way through the network, or None."""
        best = {start: 0.0}
        before = {}
        queue = [(0.0, start)]
        while queue:
            c, i = heapq.heappop(queue)
            if i == goal:
                path = [i]
                while path[-1] in before:
                    path.append(before[path[-1]])
                return path[::-1]
            if c > best.get(i, math.inf):
                continue
            for j, w in self.edges[i]:
                if c + w < best.get(j, math.inf):
                    best[j] = c + w
                    before[j] = i
                    heapq.heappush(queue, (c + w, j))
        return None

    def xy(self, node):
        return self.nodes[node][:2]

    def nearest_node(self, x, y, taxiway_only=True):
        return min((i for i, n in self.nodes.items() if self.edges[i] and not (taxiway_only and n[2])),
                   key=lambda i: (self.nodes[i][0] - x) ** 2 + (self.nodes[i][1] - y) ** 2)

    def stand_node(self, stand):
        """The network node of a stand (its index), or the nearest one."""
        index = int(stand["index"]) if str(stand["index"]).isdigit() else None
        if index in self.nodes and self.edges.get(index):
            return index
        return self.nearest_node(*self.local.xy(stand["lat"], stand["lon"]))
