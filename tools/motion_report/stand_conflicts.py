"""Aircraft standing inside the stand radius that another standing aircraft holds: with a layout,
two or more standing in the radius of one stand; without one, two standing closer than
NEAR_M, as if each stood on a stand of that radius."""

from tracks import distance_m

NEAR_M = 20.0


def find_conflicts(aircraft, layout):
    """List of dicts: stand (None without a layout), callsigns, first, last, frames."""
    standing = {}  # time to [(aircraft, row, stand)]
    for ac in aircraft:
        for row, stand in zip(ac.rows, ac.standing_at):
            if stand is not False:
                standing.setdefault(row.t, []).append((ac, row, stand))
    with_stands = bool(layout and layout.stands)
    found = {}
    for t in sorted(standing):
        here = standing[t]
        groups = []
        if with_stands:
            by_stand = {}
            for ac, row, stand in here:
                if stand:
                    by_stand.setdefault(stand.name, []).append(ac.name)
            groups = [(name, names) for name, names in by_stand.items() if len(names) > 1]
        else:
            for i, (a, ra, _) in enumerate(here):
                for b, rb, _ in here[i + 1:]:
                    if distance_m(ra.lat, ra.lon, rb.lat, rb.lon) < NEAR_M:
                        groups.append((None, [a.name, b.name]))
        for stand, names in groups:
            key = (stand, tuple(sorted(names)))
            entry = found.setdefault(key, {"stand": stand, "callsigns": list(key[1]), "first": t, "last": t,
                                           "frames": 0})
            entry["last"] = t
            entry["frames"] += 1
    return sorted(found.values(), key=lambda c: (c["first"], c["stand"] or "", c["callsigns"]))
