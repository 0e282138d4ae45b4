"""Flat local coordinates around an airport, and the motion of an aircraft along a path: corners
rounded to a radius it can turn, speeds held to what it can turn, speed up and brake, and the
time at every point."""

import bisect
import math

EARTH_M = 6371000.0
NM = 1852.0
KT = NM / 3600.0  # metres per second in a knot
FT = 0.3048


class Local:
    """Metres east and north of an origin (equirectangular; within 60 nm the error stays
    below what a report's noise is)."""

    def __init__(self, lat, lon):
        self.lat0, self.lon0 = lat, lon
        self.kx = math.cos(math.radians(lat)) * EARTH_M * math.pi / 180.0
        self.ky = EARTH_M * math.pi / 180.0

    def xy(self, lat, lon):
        return ((lon - self.lon0) * self.kx, (lat - self.lat0) * self.ky)

    def latlon(self, x, y):
        return (self.lat0 + y / self.ky, self.lon0 + x / self.kx)


def bearing_deg(dx, dy):
    """Compass direction of a vector (0 north, 90 east)."""
    return math.degrees(math.atan2(dx, dy)) % 360.0


def unit(deg):
    r = math.radians(deg)
    return (math.sin(r), math.cos(r))


def great_circle_nm(lat1, lon1, lat2, lon2):
    p1, p2 = math.radians(lat1), math.radians(lat2)
    dl = math.radians(lon2 - lon1)
    c = math.sin(p1) * math.sin(p2) + math.cos(p1) * math.cos(p2) * math.cos(dl)
    return math.degrees(math.acos(max(-1.0, min(1.0, c)))) * 60.0


def great_circle_bearing(lat1, lon1, lat2, lon2):
    p1, p2 = math.radians(lat1), math.radians(lat2)
    dl = math.radians(lon2 - lon1)
    y = math.sin(dl) * math.cos(p2)
    x = math.cos(p1) * math.sin(p2) - math.sin(p1) * math.cos(p2) * math.cos(dl)
    return math.degrees(math.atan2(y, x)) % 360.0


def _round_corners(points, radius, step):
    """Dense points (x, y, curvature, index of the corner point passed) of the polyline with each
    corner rounded to `radius` metres, or tighter where the legs are too short for it."""
    pts = [p for i, p in enumerate(points) if i == 0 or math.dist(p, points[i - 1]) > 0.5]
    out = []

    def straight(a, b, n_from):
        d = math.dist(a, b)
        n = max(1, int(d / step))
        for k in range(1 if out else 0, n + 1):
            f = k / n
            out.append((a[0] + (b[0] - a[0]) * f, a[1] + (b[1] - a[1]) * f, 0.0, n_from))

    if len(pts) < 2:
        return [(pts[0][0], pts[0][1], 0.0, 0)] if pts else []
    start = pts[0]
    for i in range(1, len(pts) - 1):
        a, b, c = pts[i - 1], pts[i], pts[i + 1]
        d_in, d_out = math.dist(a, b), math.dist(b, c)
        u_in = ((b[0] - a[0]) / d_in, (b[1] - a[1]) / d_in)
        u_out = ((c[0] - b[0]) / d_out, (c[1] - b[1]) / d_out)
        cross = u_in[0] * u_out[1] - u_in[1] * u_out[0]
        dot = max(-1.0, min(1.0, u_in[0] * u_out[0] + u_in[1] * u_out[1]))
        theta = math.acos(dot)
        if theta < 1e-3:
            continue
        room_in = math.dist(start, b) if i == 1 else d_in / 2
        room_out = d_out if i == len(pts) - 2 else d_out / 2
        tan_half = math.tan(min(theta, math.pi - 1e-3) / 2)
        r = min(radius, min(room_in, room_out) / tan_half)
        t = r * tan_half
        p_in = (b[0] - u_in[0] * t, b[1] - u_in[1] * t)
        straight(start, p_in, i - 1)
        # The arc's centre lies to the side the path turns to.
        side = 1.0 if cross < 0 else -1.0  # right turn: centre to the right of u_in
        normal = (u_in[1] * side, -u_in[0] * side)
        centre = (p_in[0] + normal[0] * r, p_in[1] + normal[1] * r)
        a0 = math.atan2(p_in[1] - centre[1], p_in[0] - centre[0])
        n = max(2, int(r * theta / step))
        turn = -theta if cross < 0 else theta
        for k in range(1, n + 1):
            ang = a0 + turn * k / n
            out.append((centre[0] + r * math.cos(ang), centre[1] + r * math.sin(ang), 1.0 / max(r, 1e-3), i))
        start = (b[0] + u_out[0] * t, b[1] + u_out[1] * t)
    straight(start, pts[-1], len(pts) - 2)
    return out


class Path:
    """An aircraft's way along a polyline: at each dense point the distance s, position, curvature,
    speed v (m/s) and time t from the start. `cap(s)` is the speed wanted at s (m/s); corners
    lower it so that the turn rate stays within `turn_rate_deg`; `accel(s)` and `decel(s)` (m/s²)
    bound the changes. It starts at `v_start` and ends at `v_end`."""

    def __init__(self, points, radius, turn_rate_deg, cap, accel, decel, step=5.0, v_start=0.0, v_end=0.0):
        dense = _round_corners(points, radius, step)
        self.x = [p[0] for p in dense]
        self.y = [p[1] for p in dense]
        self.k = [p[2] for p in dense]
        n = len(dense)
        self.s = [0.0] * n
        for i in range(1, n):
            self.s[i] = self.s[i - 1] + math.hypot(self.x[i] - self.x[i - 1], self.y[i] - self.y[i - 1])
        omega = math.radians(turn_rate_deg)
        v = []
        for i in range(n):
            c = cap(self.s[i])
            if self.k[i] > 0:
                c = min(c, 0.9 * omega / self.k[i])
            v.append(c)
        v[0] = min(v[0], v_start)
        v[-1] = min(v[-1], v_end)
        for i in range(1, n):
            ds = self.s[i] - self.s[i - 1]
            v[i] = min(v[i], math.sqrt(v[i - 1] ** 2 + 2 * accel(self.s[i]) * ds))
        for i in range(n - 2, -1, -1):
            ds = self.s[i + 1] - self.s[i]
            v[i] = min(v[i], math.sqrt(v[i + 1] ** 2 + 2 * decel(self.s[i]) * ds))
        self.v = v
        self.t = [0.0] * n
        for i in range(1, n):
            ds = self.s[i] - self.s[i - 1]
            mean = (v[i] + v[i - 1]) / 2
            self.t[i] = self.t[i - 1] + (ds / mean if mean > 1e-6 else 0.0)
        self.duration = self.t[-1]
        self.length = self.s[-1]

    def index_at(self, t):
        return max(0, min(len(self.t) - 2, bisect.bisect_right(self.t, t) - 1))

    def state(self, t):
        """(x, y, s, v, track, turn rate in degrees a second, right positive) at time t."""
        i = self.index_at(t)
        t0, t1 = self.t[i], self.t[i + 1]
        f = 0.0 if t1 <= t0 else max(0.0, min(1.0, (t - t0) / (t1 - t0)))
        x = self.x[i] + (self.x[i + 1] - self.x[i]) * f
        y = self.y[i] + (self.y[i + 1] - self.y[i]) * f
        v = self.v[i] + (self.v[i + 1] - self.v[i]) * f
        s = self.s[i] + (self.s[i + 1] - self.s[i]) * f
        a, b = self._track(i), self._track(i + 1)
        track = (a + ((b - a + 540) % 360 - 180) * f) % 360
        rate = 0.0
        if self.k[i + 1] > 0:
            sign = 1.0 if ((b - a + 540) % 360 - 180) >= 0 else -1.0
            rate = sign * math.degrees(v * self.k[i + 1])
        return x, y, s, v, track, rate

    def _track(self, i):
        """Direction at dense point i: of the chord through its neighbours, so that the track turns
        smoothly along an arc instead of in steps from chord to chord."""
        a, b = max(0, i - 1), min(len(self.x) - 1, i + 1)
        return bearing_deg(self.x[b] - self.x[a], self.y[b] - self.y[a])

    def s_near(self, x, y):
        """Distance along the path of the dense point nearest to (x, y)."""
        best = min(range(len(self.x)), key=lambda i: (self.x[i] - x) ** 2 + (self.y[i] - y) ** 2)
        return self.s[best]
