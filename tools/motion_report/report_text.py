"""The report as text for people, from the same dictionary that is written as JSON."""

PEAK_TITLES = [("speed_air", "speed in the air", "kt"), ("speed_ground", "speed on the ground", "kt"),
               ("accel", "acceleration", "kt/s"), ("turn_air", "turn rate in the air", "deg/s"),
               ("turn_ground", "turn rate on the ground", "deg/s"), ("bank", "bank", "deg"), ("pitch", "pitch", "deg")]

SUMMARY_TITLES = [
    ("aircraft", "aircraft in the trace"), ("removed", "removed before the end"), ("airborne", "take-offs"),
    ("landed", "landings"), ("taxied", "taxi starts"), ("parked", "parkings"), ("departed", "departures from a stand"),
    ("with_true_path", "aircraft with a true path"), ("beyond_limits", "aircraft beyond a limit of their class"),
    ("jumps", "jumps"), ("aircraft_with_jumps", "aircraft with a jump"),
    ("below_ground_aircraft", "aircraft below the ground"), ("below_ground_frames", "frames below the ground"),
    ("stand_conflicts", "two or more standing in one stand radius")]


def _time(t):
    return "-" if t is None else f"{t:.1f}"


def _detail(event):
    """The stand of a parking or departure, whether a creation was in the air."""
    if not event["detail"]:
        return ""
    return {"parked": " at ", "departed": " from "}.get(event["event"], " ") + event["detail"]


def _table(header, rows):
    widths = [max(len(str(r[i])) for r in [header] + rows) for i in range(len(header))]
    line = lambda r: "  ".join(str(c).ljust(w) for c, w in zip(r, widths)).rstrip()
    return [line(header), line(["-" * w for w in widths])] + [line(r) for r in rows]


def conflict_text(c):
    where = f"stand {c['stand']}" if c["stand"] else "closer than the stand radius"
    return f"{', '.join(c['callsigns'])} standing in {where} from {_time(c['first'])} to {_time(c['last'])} s " \
           f"({c['frames']} frames)"


def render(report):
    out = [f"Motion report of {report['trace']}: {_time(report['start'])} to {_time(report['end'])} s; "
           f"the simulator shows a report {report['delay_s']:g} s after the true path"]
    s = report["summary"]
    out += ["", "Summary", ""] + _table(["what", "count"], [[title, s[key]] for key, title in SUMMARY_TITLES])
    dev = s["largest_deviation"]
    if dev:
        out.append(f"largest distance from the true path: {dev['max_m']:.0f} m ({dev['callsign']} at "
                   f"{_time(dev['at'])} s)")
    rows = []
    for ac in report["aircraft"]:
        d = ac["deviation"]
        rows.append([ac["callsign"] or f"#{ac['object_id']}", ac["class"] + (" (user)" if ac["user"] else ""),
                     " ".join(e["event"] for e in ac["life"]), ac["state_at_end"],
                     "-" if not d or d["max_m"] is None else f"{d['max_m']:.0f}", ", ".join(ac["findings"]) or "-"])
    out += ["", "Aircraft", ""] + _table(["callsign", "class", "life", "at the end", "path m", "findings"], rows)
    for ac in report["aircraft"]:
        out += ["", f"{ac['callsign'] or '#' + str(ac['object_id'])}: object {ac['object_id']}, "
                    f"{ac['model'] or 'model unknown'}, class {ac['class']}, \"{ac['title']}\""]
        out.append("  life: " + "; ".join(f"{_time(e['t'])} {e['event']}" + _detail(e) for e in ac["life"]))
        d = ac["deviation"]
        if d is not None:
            out.append(f"  from the true path {report['delay_s']:g} s earlier: " +
                       ("no time in common" if d["max_m"] is None else
                        f"at most {d['max_m']:.1f} m, at {_time(d['at'])} s ({d['samples']} frames)"))
        for key, title, unit in PEAK_TITLES:
            p = ac["peaks"][key]
            if p["at"] is None:
                continue
            mark = f"  BEYOND the limit in {p['over']} samples" if p["over"] else ""
            out.append(f"  {title}: {p['max']:g} {unit} at {_time(p['at'])} s, limit {p['limit']:g}{mark}")
        for j in ac["jumps"]:
            out.append(f"  JUMP from {_time(j['from'])} to {_time(j['to'])} s: {j['distance_m']:.0f} m "
                       f"({j['speed_kt']} kt, {j['climb_ft_s']} ft/s)")
        b = ac["below_ground"]
        if b:
            out.append(f"  BELOW THE GROUND in {b['frames']} frames from {_time(b['first'])} s, lowest "
                       f"{b['lowest_ft']:.1f} ft")
        for c in ac["stand_conflicts"]:
            out.append("  STAND: " + conflict_text(c))
    return "\n".join(out) + "\n"
