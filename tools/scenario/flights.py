"""The true motion of one flight around the airport: an arrival from 40 nm out down a 3-degree
final to touch-down, rollout, exit and taxi to its stand; a departure from its stand with
pushback, taxi, line-up, take-off roll, rotation, climb-out and the turn toward its destination;
an overflight at cruise."""

import math

from geometry import FT, KT, NM, Path, bearing_deg, unit

G = 9.81
ENTRY_NM = 40.0
GLIDE = math.tan(math.radians(3.0))
AIR_TURN_DEG = 3.0  # a standard-rate turn
GROUND_TURN_DEG = 10.0
PUSH_KT = 3.0
TOUCHDOWN_M = 300.0  # beyond the threshold, where the 3-degree path through 50 ft meets the runway
THRESHOLD_FT = 50.0
CLIMB_GRADIENT = 0.12

# By class: approach, rotation and taxi speed (kt), taking off and braking on the ground (m/s²).
PERFORMANCE = {
    "heavy": (150.0, 160.0, 16.0, 1.7, 1.6),
    "large": (140.0, 150.0, 18.0, 2.0, 1.8),
    "buzjet": (125.0, 130.0, 18.0, 2.2, 1.8),
    "light": (75.0, 60.0, 12.0, 1.5, 1.5),
}


def performance(cls):
    return PERFORMANCE.get(cls, PERFORMANCE["large"])


class Segment:
    """A stretch of a flight: a path followed from t0, or standing still at (x, y) (path None)."""

    def __init__(self, t0, path=None, altitude=None, ground=None, reverse=False, still=None, duration=0.0):
        self.t0 = t0
        self.path = path
        self.altitude = altitude or (lambda s: 0.0)  # feet above the airport
        self.ground = ground or (lambda s: True)
        self.reverse = reverse
        self.still = still  # (x, y, heading)
        self.duration = path.duration if path else duration

    @property
    def t1(self):
        return self.t0 + self.duration


class Flight:
    """One aircraft's life in the scenario; times in seconds from the scenario's start."""

    def __init__(self, ident, kind, segments, airport):
        self.ident = ident  # dict: callsign, reg, model, airline, from, to, cls, category
        self.kind = kind
        self.segments = segments
        self.airport = airport
        self.t_first = segments[0].t0
        self.t_last = segments[-1].t1

    def state(self, t):
        """Dict of the true state at t: lat, lon, alt_ft (above sea level), gs_kt, track, heading,
        vs_fpm, roll, turn_rate, on_ground."""
        seg = self.segments[-1]
        for candidate in self.segments:
            if t <= candidate.t1:
                seg = candidate
                break
        elev = self.airport.elevation
        if seg.path is None:
            x, y, heading = seg.still
            lat, lon = self.airport.local.latlon(x, y)
            return {"lat": lat, "lon": lon, "alt_ft": elev, "gs_kt": 0.0, "track": heading, "heading": heading,
                    "vs_fpm": 0.0, "roll": 0.0, "turn_rate": 0.0, "on_ground": True}
        dt = 1.0
        tt = max(0.0, min(seg.duration, t - seg.t0))
        x, y, s, v, track, rate = seg.path.state(tt)
        s_next = seg.path.state(min(seg.duration, tt + dt))[2]
        s_prev = seg.path.state(max(0.0, tt - dt))[2]
        span = (min(seg.duration, tt + dt) - max(0.0, tt - dt)) or 1.0
        vs = (seg.altitude(s_next) - seg.altitude(s_prev)) / span * 60.0
        on_ground = seg.ground(s)
        heading = (track + 180.0) % 360.0 if seg.reverse else track
        roll = 0.0 if on_ground else math.degrees(math.atan(v * math.radians(rate) / G))
        lat, lon = self.airport.local.latlon(x, y)
        return {"lat": lat, "lon": lon, "alt_ft": elev + seg.altitude(s), "gs_kt": v / KT, "track": track,
                "heading": heading, "vs_fpm": vs, "roll": roll, "turn_rate": rate, "on_ground": on_ground}


def _side(ux, uy, px, py):
    """+1 when (px, py) lies right of direction (ux, uy), else -1."""
    return 1.0 if ux * py - uy * px < 0 else -1.0


def _node_points(airport, nodes):
    return [airport.xy(n) for n in nodes]


def arrival(airport, ident, rwy, stand, from_bearing, t_touchdown, rng):
    """The arrival, timed so that it touches down at t_touchdown; None without a way to the stand."""
    vapp, _, vtaxi, _, brake = performance(ident["cls"])
    nodes = airport.runway_nodes(rwy)
    rollout = ((vapp * KT) ** 2 - (25 * KT) ** 2) / (2 * brake * 0.8)
    exits = [(d, i) for d, i in nodes if d >= TOUCHDOWN_M + rollout]
    exits = exits or nodes[-1:]
    if not exits:
        return None
    d_exit, exit_node = exits[0]
    taxi = airport.route(exit_node, airport.stand_node(stand))
    if not taxi:
        return None
    ux, uy = rwy.ux, rwy.uy
    thr = (rwy.x0, rwy.y0)

    def centre(d_nm):
        return (thr[0] - ux * d_nm * NM, thr[1] - uy * d_nm * NM)

    bx, by = unit(from_bearing)
    entry = (bx * ENTRY_NM * NM, by * ENTRY_NM * NM)
    intercept = centre(14.0)
    side = _side(ux, uy, entry[0] - thr[0], entry[1] - thr[1])
    px, py = uy * side, -ux * side  # to the entry's side of the centre line
    points = [entry]
    if (entry[0] - thr[0]) * ux + (entry[1] - thr[1]) * uy > -16 * NM:
        # From ahead or abeam: downwind and base before the final.
        points.append((thr[0] + px * 6 * NM + ux * 4 * NM, thr[1] + py * 6 * NM + uy * 4 * NM))
        base = centre(16.0)
        points.append((base[0] + px * 6 * NM, base[1] + py * 6 * NM))
    points += [intercept, thr, rwy.point(TOUCHDOWN_M)]
    points += _node_points(airport, taxi)
    s_pos = {}

    def build(s_thr, s_td, s_exit):
        def cap(s):
            if s >= s_exit - 30:
                return vtaxi * KT if s > s_exit + 150 else 25 * KT
            if s >= s_td:
                return vapp * KT
            to_go = (s_thr - s) / NM
            kt = 250 if to_go > 20 else 210 if to_go > 13 else 180 if to_go > 7 else 160 if to_go > 4.5 else vapp
            return kt * KT

        return Path(points, 2500.0, AIR_TURN_DEG, cap,
                    accel=lambda s: 0.5 if s < s_td else 1.0,
                    decel=lambda s: 0.45 if s < s_td else (brake if s < s_exit else 1.0),
                    step=10.0, v_start=250 * KT, v_end=0.0)

    # The first build finds where the threshold and the exit lie; the second uses them.
    rough = build(1e12, 1e12, 1e12)
    s_thr = rough.s_near(*thr)
    path = build(s_thr, s_thr + TOUCHDOWN_M, rough.s_near(*airport.xy(exit_node)))
    s_thr = path.s_near(*thr)
    s_td = s_thr + TOUCHDOWN_M
    s_pos.update(thr=s_thr, td=s_td)
    entry_ft = 10000.0 + rng.uniform(-1000, 1000)

    def altitude(s):
        if s >= s_td:
            return 0.0
        if s >= s_thr:
            return THRESHOLD_FT * (s_td - s) / TOUCHDOWN_M
        glide = THRESHOLD_FT + (s_thr - s) * GLIDE / FT
        level = 3000.0 + max(0.0, (s_thr - 13 * NM) - s) * 0.05 / FT
        return min(glide, level, entry_ft)

    t0 = t_touchdown - path_time_at(path, s_td)
    segs = [Segment(t0, path, altitude, ground=lambda s: s >= s_td)]
    sx, sy = path.x[-1], path.y[-1]
    segs.append(Segment(segs[-1].t1, still=(sx, sy, stand["heading"]), duration=rng.uniform(60, 120)))
    flight = Flight(ident, "arrival", segs, airport)
    flight.marks = {"threshold_s": s_thr, "touchdown_s": s_td, "runway": rwy.name, "stand": stand["id"],
                    "touchdown_t": t_touchdown}
    return flight


def path_time_at(path, s):
    for i, si in enumerate(path.s):
        if si >= s:
            return path.t[i]
    return path.duration


def departure(airport, ident, rwy, stand, to_bearing, t_offblock, rng):
    """The departure, pushing back at t_offblock; None without a way to the runway."""
    _, vr, vtaxi, accel, _ = performance(ident["cls"])
    nodes = airport.runway_nodes(rwy)
    entries = [(d, i) for d, i in nodes if d <= rwy.length * 0.3] or nodes[:1]
    if not entries:
        return None
    d_entry, entry_node = entries[0]
    sx, sy = airport.local.xy(stand["lat"], stand["lon"])
    hx, hy = unit(stand["heading"])
    end_node = airport.pushback_end.get(stand["index"])
    start_node = end_node if end_node in airport.nodes else airport.nearest_node(sx - hx * 60, sy - hy * 60)
    taxi = airport.route(start_node, entry_node)
    if not taxi:
        return None
    taxi_pts = _node_points(airport, taxi)
    # The pushback ends on the taxiway facing the way the taxi goes on.
    e = taxi_pts[0]
    nxt = next((p for p in taxi_pts[1:] if math.dist(p, e) > 5), (e[0] + hx, e[1] + hy))
    fx, fy = unit(bearing_deg(nxt[0] - e[0], nxt[1] - e[1]))
    push = [(sx, sy), (sx - hx * 35, sy - hy * 35), (e[0] + fx * 35, e[1] + fy * 35), e]
    push_path = Path(push, 25.0, GROUND_TURN_DEG, lambda s: PUSH_KT * KT, lambda s: 0.3, lambda s: 0.3, step=2.0)
    line_up = rwy.point(max(d_entry, 0.0) + 60.0)
    taxi_path = Path(taxi_pts + [line_up], 40.0, GROUND_TURN_DEG, lambda s: vtaxi * KT, lambda s: 0.5,
                     lambda s: 0.8, step=3.0)
    d_roll0 = rwy.along(*line_up)[0]
    lift_m = (vr * KT) ** 2 / (2 * accel)
    straight_m = lift_m + 1500 * FT / CLIMB_GRADIENT + 1000  # up to 1500 ft, then the turn
    p_turn = rwy.point(d_roll0 + straight_m)
    bx, by = unit(to_bearing)
    exit_pt = (bx * ENTRY_NM * NM, by * ENTRY_NM * NM)
    air = [line_up, rwy.point(d_roll0 + lift_m), p_turn]
    turn = (bearing_deg(exit_pt[0] - p_turn[0], exit_pt[1] - p_turn[1]) - rwy.heading + 540) % 360 - 180
    if abs(turn) > 100:
        side = 1.0 if turn > 0 else -1.0
        px, py = rwy.uy * side, -rwy.ux * side
        air.append((p_turn[0] + px * 5 * NM + rwy.ux * 3 * NM, p_turn[1] + py * 5 * NM + rwy.uy * 3 * NM))
    air.append(exit_pt)

    def cap(s):
        return (180 if s < lift_m + 8000 else 250) * KT

    fly = Path(air, 2500.0, AIR_TURN_DEG, cap, accel=lambda s: accel if s < lift_m else 0.6,
               decel=lambda s: 0.5, step=10.0, v_start=0.0, v_end=250 * KT)
    s_lo = next((s for s, v in zip(fly.s, fly.v) if v >= vr * KT), lift_m)

    def climb(s):
        return 0.0 if s <= s_lo else min(15000.0, (s - s_lo) * CLIMB_GRADIENT / FT * min(1.0, (s - s_lo) / 300.0))

    segs = [Segment(t_offblock - rng.uniform(60, 120), still=(sx, sy, stand["heading"]), duration=0)]
    segs[0].duration = t_offblock - segs[0].t0
    segs.append(Segment(t_offblock, push_path, reverse=True))
    segs.append(Segment(segs[-1].t1, still=(e[0], e[1], bearing_deg(fx, fy)), duration=rng.uniform(20, 40)))
    segs.append(Segment(segs[-1].t1, taxi_path))
    end_heading = rwy.heading
    segs.append(Segment(segs[-1].t1, still=(line_up[0], line_up[1], end_heading), duration=rng.uniform(20, 45)))
    segs.append(Segment(segs[-1].t1, fly, climb, ground=lambda s: s <= s_lo))
    flight = Flight(ident, "departure", segs, airport)
    flight.marks = {"runway": rwy.name, "stand": stand["id"], "liftoff_s": s_lo}
    return flight


def overflight(airport, ident, enter_bearing, exit_bearing, t_enter, cruise_ft, gs_kt):
    """A straight crossing at cruise from one point of the 40-nm circle to another."""
    a = unit(enter_bearing)
    b = unit(exit_bearing)
    pts = [(a[0] * ENTRY_NM * NM, a[1] * ENTRY_NM * NM), (b[0] * ENTRY_NM * NM, b[1] * ENTRY_NM * NM)]
    v = gs_kt * KT
    path = Path(pts, 2500.0, AIR_TURN_DEG, lambda s: v, lambda s: 1.0, lambda s: 1.0, step=200.0, v_start=v, v_end=v)
    elev = airport.elevation
    flight = Flight(ident, "overflight", [Segment(t_enter, path, lambda s: cruise_ft - elev, ground=lambda s: False)],
                    airport)
    flight.marks = {}
    return flight
