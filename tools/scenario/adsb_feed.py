"""What a RealTraffic client would hand on of the flights: traffic lines at the cadence and with
the noise of real ADS-B, and weather lines with the QNH."""

import json
import math

from geometry import EARTH_M

CATEGORY = {"heavy": "A5", "large": "A3", "buzjet": "A2", "light": "A1", "rotorcraft": "A7"}
QNH_FT_PER_HPA = 27.0


def report_times(t_first, t_last, rng):
    """Times of an aircraft's reports: 1.1 to 5 s apart (a receiver hears a transponder at that
    pace), now and then a gap of 10 to 25 s, and now and then a report heard twice."""
    times = []
    t = t_first + rng.uniform(0.0, 2.0)
    while t <= t_last:
        times.append(t)
        if rng.random() < 0.01:
            times.append(t)  # the same report through a second receiver
        t += rng.uniform(10.0, 25.0) if rng.random() < 0.015 else rng.uniform(1.1, 5.0)
    return times


def _fmt(value, decimals):
    return f"{value:.{decimals}f}"


def traffic_line(ident, state, timestamp, qnh, rng, hexid):
    """One RTTFC line of a report: position and speed with the noise of the source."""
    ground = state["on_ground"]
    sigma = 3.0 if ground else 6.0
    lat = state["lat"] + rng.gauss(0, sigma) / EARTH_M * 180 / math.pi
    lon = state["lon"] + rng.gauss(0, sigma) / (EARTH_M * math.cos(math.radians(state["lat"]))) * 180 / math.pi
    gs = max(0.0, state["gs_kt"] + rng.gauss(0, 0.3 if ground else 0.8))
    moving = state["gs_kt"] > 2.0
    track = (state["track"] + rng.gauss(0, 0.4)) % 360 if moving else state["heading"]
    heading = (state["heading"] + rng.gauss(0, 0.2)) % 360
    # Barometric altitude at standard pressure, in the transponder's 25-ft steps.
    baro = state["alt_ft"] - (qnh - 1013.25) * QNH_FT_PER_HPA
    alt = int(round(baro / 25.0)) * 25
    geo = int(round(state["alt_ft"] / 25.0)) * 25
    vs = 0 if ground else int(round(state["vs_fpm"] / 64.0)) * 64
    cat = ident["category"]
    if ground:
        tas, ias, mach, rate, roll = "-1", "-1", "-1", "0.00", "0"
    else:
        tas_kt = state["gs_kt"] + ident.get("headwind", 0.0)
        tas = _fmt(tas_kt, 0)
        ias = _fmt(tas_kt / (1 + state["alt_ft"] / 1000 * 0.02), 0)
        mach = _fmt(tas_kt / (661.5 - state["alt_ft"] / 1000 * 2.5), 3)
        rate = _fmt(state["turn_rate"] * 0.33, 2)
        roll = _fmt(state["roll"] + rng.gauss(0, 0.3), 1)
    fields = [
        "RTTFC", str(hexid), _fmt(lat, 6), _fmt(lon, 6), str(alt), str(vs), "1" if ground else "0",
        _fmt(track, 1), _fmt(gs, 1), ident["callsign"], ident["model"], ident["reg"],
        ident["from"] or "null", ident["to"] or "null", _fmt(timestamp, 2), "X2", ident["flight"] or "null",
        "adsb_icao", str(geo), ias, tas, mach, rate, roll, _fmt((heading - 1.5) % 360, 2), _fmt(heading, 2),
        str(vs), "none", cat, "null" if ground else _fmt(qnh, 1), "null", "null", "null", "null",
        _fmt(rng.uniform(0, 1.2), 1), _fmt(rng.uniform(-28, -9), 1), "null", "null", "null", "null", "1", "0", "0",
    ]
    return ",".join(fields)


def weather_line(icao, qnh, wind_dir, wind_kt, day, hour, minute):
    metar = f"{icao} {day:02d}{hour:02d}{minute:02d}Z {wind_dir:03d}{wind_kt:02d}KT 9999 FEW030 15/08 Q{qnh} NOSIG"
    return json.dumps({"ICAO": icao, "QNH": qnh, "METAR": metar, "wind_dir": wind_dir, "wind_spd": wind_kt,
                       "temp": 15, "dewpoint": 8}, separators=(",", ":"))
