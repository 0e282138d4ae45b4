"""What one aircraft did in the trace, held against its class: its life, the largest values of
its motion, jumps, time below the ground, and its distance from the true path."""

from aircraft_classes import JUMP_FT_S, JUMP_KT
from airport_layout import stand_at
from tracks import M_PER_NM, distance_m, position_at

MOVING_KT = 2.0  # slower than this on the ground is standing
TAXI_KT = 40.0  # a landing roll below this is taxiing
PARK_SECONDS = 20.0  # standing this long (engines off, or on a stand) is parked
BELOW_GROUND_FT = -1.0  # lower than this above the ground is below it

MPS_PER_KT = M_PER_NM / 3600.0


class Peak:
    """The largest value of a quantity, when it was, and how many samples went beyond the limit."""

    def __init__(self, limit):
        self.limit, self.value, self.t, self.over = limit, 0.0, None, 0

    def add(self, value, t):
        if value > self.limit:
            self.over += 1
        if self.t is None or value > self.value:
            self.value, self.t = value, t

    def as_dict(self):
        return {"max": round(self.value, 2), "at": self.t, "limit": self.limit, "over": self.over}


def speeds(rows):
    """Per row, the ground speed (kt) of the step that ends at it; the first row takes the next step's."""
    out = []
    for a, b in zip(rows, rows[1:]):
        dt = b.t - a.t
        out.append(distance_m(a.lat, a.lon, b.lat, b.lon) / dt / MPS_PER_KT if dt > 0 else 0.0)
    return [out[0] if out else 0.0] + out


def turn(a, b):
    return (b - a + 540.0) % 360.0 - 180.0


class Aircraft:
    def __init__(self, rows, model, klass, limits, user=False):
        first = rows[0]
        self.object_id, self.callsign, self.title = first.object_id, first.callsign, first.title
        self.model, self.klass, self.limits, self.user = model, klass, limits, user
        self.rows = rows
        self.speed = speeds(rows)
        self.life = []  # (time, event, detail)
        self.jumps = []  # dicts
        self.below_ground = []  # (time, agl)
        self.deviation = None  # dict, with a true path
        self.standing_at = []  # per row: the stand (or None) while standing, False while moving
        lim = limits
        self.peaks = {
            "speed_air": Peak(lim.air_kt), "speed_ground": Peak(lim.ground_kt), "accel": Peak(lim.accel_kt_s),
            "turn_air": Peak(lim.turn_air_deg_s), "turn_ground": Peak(lim.turn_ground_deg_s),
            "bank": Peak(lim.bank_deg), "pitch": Peak(lim.pitch_deg)}

    @property
    def name(self):
        return self.callsign or f"#{self.object_id}"

    def check_motion(self):
        rows, p = self.rows, self.peaks
        previous_step = None  # (mid time, speed) of the last step that was no jump
        # A new object hangs where it was created until the program drives it: that wait is no
        # motion, and the start from it no acceleration.
        held = not rows[0].on_ground
        for i, row in enumerate(rows):
            p["bank"].add(abs(row.bank), row.t)
            p["pitch"].add(abs(row.pitch), row.t)
            if row.agl < BELOW_GROUND_FT:
                self.below_ground.append((row.t, row.agl))
            if i == 0:
                continue
            a, dt = rows[i - 1], row.t - rows[i - 1].t
            if dt <= 0:
                continue
            kt, ft_s = self.speed[i], (row.alt - a.alt) / dt
            if kt > JUMP_KT or abs(ft_s) > JUMP_FT_S:
                self.jumps.append({"from": a.t, "to": row.t, "distance_m": round(distance_m(a.lat, a.lon, row.lat,
                                   row.lon), 1), "speed_kt": round(kt), "climb_ft_s": round(ft_s)})
                previous_step = None  # a jump is no motion: the steps beside it are not compared with it
                continue
            if held:
                if kt < MOVING_KT:
                    continue
                held = False
            ground = a.on_ground and row.on_ground
            p["speed_ground" if ground else "speed_air"].add(kt, row.t)
            p["turn_ground" if ground else "turn_air"].add(abs(turn(a.heading, row.heading)) / dt, row.t)
            mid = (a.t + row.t) / 2
            if previous_step and mid > previous_step[0]:
                p["accel"].add(abs(kt - previous_step[1]) / (mid - previous_step[0]), row.t)
            previous_step = (mid, kt)

    def check_path(self, true_points, delay):
        """Distance from where the true path was `delay` seconds earlier."""
        worst, samples = None, 0
        for row in self.rows:
            at = position_at(true_points, row.t - delay)
            if at is None:
                continue
            samples += 1
            d = distance_m(row.lat, row.lon, at[0], at[1])
            if worst is None or d > worst[0]:
                worst = (d, row.t)
        self.deviation = {"max_m": round(worst[0], 1), "at": worst[1], "samples": samples} if worst else \
            {"max_m": None, "at": None, "samples": 0}

    def follow_life(self, layout, trace_end):
        """Created, airborne, landed, taxied, parked, departed, removed: the events in time order.
        Taxied is the first slow motion on the ground after creation, landing or departure;
        departed is leaving the place it was parked at."""
        rows, life = self.rows, self.life
        life.append((rows[0].t, "created", "on the ground" if rows[0].on_ground else "airborne"))
        want_taxi, stop_start, parked = rows[0].on_ground, None, None
        stands = layout_has_stands(layout)
        for i, row in enumerate(rows):
            moving = self.speed[i] >= MOVING_KT
            stand = stand_at(layout, row.lat, row.lon) if stands and row.on_ground and not moving else None
            self.standing_at.append(stand if row.on_ground and not moving else False)
            if i > 0 and rows[i - 1].on_ground != row.on_ground:
                life.append((row.t, "landed" if row.on_ground else "airborne", ""))
                want_taxi, stop_start, parked = row.on_ground, None, None
            if not row.on_ground:
                continue
            if moving:
                if parked is not None:
                    life.append((row.t, "departed", parked))
                    want_taxi, parked = True, None
                if want_taxi and self.speed[i] < TAXI_KT:
                    life.append((row.t, "taxied", ""))
                    want_taxi = False
                stop_start = None
                continue
            if stop_start is None:
                stop_start = row.t
            if parked is None and row.t - stop_start >= PARK_SECONDS and (stand or (not stands and not row.engines_on)):
                parked = stand.name if stand else ""
                life.append((stop_start, "parked", parked))
        if rows[-1].t < trace_end:
            life.append((rows[-1].t, "removed", ""))
        life.sort(key=lambda e: e[0])

    def state_at_end(self):
        last = self.rows[-1]
        if not last.on_ground:
            return "airborne"
        parked = [e for e in self.life if e[1] in ("parked", "departed", "airborne")]
        if parked and parked[-1][1] == "parked":
            return "parked" + (f" at {parked[-1][2]}" if parked[-1][2] else "")
        return "on the ground"


def layout_has_stands(layout):
    return bool(layout and layout.stands)
