"""The map picture: runways, taxi network, stands (occupied ones filled), the true tracks and the
simulator's tracks in contrasting colours, and the aircraft parked at the end with their
callsigns; drawn once with cairo onto a PNG and once onto an SVG surface."""

import math

SIZE_PX = 1400
MARGIN = 0.06
M_PER_DEG_LAT = 111132.95

GROUND = (0.93, 0.94, 0.90)
RUNWAY = (0.35, 0.35, 0.38)
TAXI = (0.86, 0.70, 0.10)
STAND = (0.30, 0.30, 0.30)
OCCUPIED = (0.85, 0.20, 0.55)
TRUE_TRACK = (0.10, 0.35, 0.85)  # blue
SIM_TRACK = (0.95, 0.45, 0.05)  # orange
PARKED = (0.05, 0.05, 0.05)


class Projection:
    """Degrees to pixels: metres around the middle of the bounds, one scale for both axes, north up."""

    def __init__(self, points):
        lats, lons = [p[0] for p in points], [p[1] for p in points]
        self.lat0, self.lon0 = (min(lats) + max(lats)) / 2, (min(lons) + max(lons)) / 2
        self.m_per_deg_lon = M_PER_DEG_LAT * math.cos(math.radians(self.lat0))
        xs = [(lon - self.lon0) * self.m_per_deg_lon for lon in lons]
        ys = [(lat - self.lat0) * M_PER_DEG_LAT for lat in lats]
        span = max(max(xs) - min(xs), max(ys) - min(ys), 200.0)
        self.px_per_m = SIZE_PX * (1 - 2 * MARGIN) / span

    def __call__(self, lat, lon):
        x = (lon - self.lon0) * self.m_per_deg_lon * self.px_per_m + SIZE_PX / 2
        y = SIZE_PX / 2 - (lat - self.lat0) * M_PER_DEG_LAT * self.px_per_m
        return x, y


def _bounds(layout, aircraft, true_paths):
    """The airport when there is one, else every track."""
    points = [(s.lat, s.lon) for s in layout.stands] + [(n.lat, n.lon) for n in layout.nodes.values()]
    points += [(e.lat, e.lon) for r in layout.runways for e in r.ends]
    if not points:
        points = [(r.lat, r.lon) for ac in aircraft for r in ac.rows]
        points += [(p.lat, p.lon) for path in true_paths.values() for p in path]
    return points or [(0.0, 0.0)]


def _track(ctx, proj, points, colour, width):
    if len(points) < 2:
        return
    ctx.set_source_rgb(*colour)
    ctx.set_line_width(width)
    ctx.move_to(*proj(*points[0]))
    for p in points[1:]:
        ctx.line_to(*proj(*p))
    ctx.stroke()


def _draw(ctx, layout, aircraft, true_paths, occupied, title):
    import cairo

    proj = Projection(_bounds(layout, aircraft, true_paths))
    ctx.set_source_rgb(*GROUND)
    ctx.paint()
    ctx.set_line_cap(cairo.LINE_CAP_ROUND)
    ctx.set_line_join(cairo.LINE_JOIN_ROUND)
    for rw in layout.runways:
        (x1, y1), (x2, y2) = proj(rw.ends[0].lat, rw.ends[0].lon), proj(rw.ends[1].lat, rw.ends[1].lon)
        ctx.set_source_rgb(*RUNWAY)
        ctx.set_line_cap(cairo.LINE_CAP_BUTT)
        ctx.set_line_width(max(2.0, rw.width_m * proj.px_per_m))
        ctx.move_to(x1, y1)
        ctx.line_to(x2, y2)
        ctx.stroke()
        ctx.set_line_cap(cairo.LINE_CAP_ROUND)
        for end, (x, y) in zip(rw.ends, ((x1, y1), (x2, y2))):
            ctx.set_font_size(14)
            ctx.move_to(x + 6, y - 6)
            ctx.show_text(end.name)
    for edge in layout.edges:
        a, b = layout.nodes[edge.begin], layout.nodes[edge.end]
        ctx.set_source_rgb(*TAXI)
        ctx.set_line_width(1.5)
        ctx.set_dash([4.0, 3.0] if edge.pushback else [])
        ctx.move_to(*proj(a.lat, a.lon))
        ctx.line_to(*proj(b.lat, b.lon))
        ctx.stroke()
    ctx.set_dash([])
    for stand in layout.stands:
        x, y = proj(stand.lat, stand.lon)
        r = max(3.0, stand.radius_m * proj.px_per_m)
        ctx.arc(x, y, r, 0, 2 * math.pi)
        if stand.name in occupied:
            ctx.set_source_rgba(*OCCUPIED, 0.45)
            ctx.fill_preserve()
        ctx.set_source_rgb(*STAND)
        ctx.set_line_width(1.0)
        ctx.stroke()
        h = math.radians(stand.heading)
        ctx.move_to(x, y)
        ctx.line_to(x + r * math.sin(h), y - r * math.cos(h))
        ctx.stroke()
    for path in true_paths.values():
        _track(ctx, proj, [(p.lat, p.lon) for p in path], TRUE_TRACK, 2.5)
    for ac in aircraft:
        _track(ctx, proj, [(r.lat, r.lon) for r in ac.rows], SIM_TRACK, 2.0)
    ctx.set_font_size(13)
    for ac in aircraft:
        if not ac.state_at_end().startswith("parked"):
            continue
        last = ac.rows[-1]
        x, y = proj(last.lat, last.lon)
        h = math.radians(last.heading)
        ctx.set_source_rgb(*PARKED)
        ctx.move_to(x + 9 * math.sin(h), y - 9 * math.cos(h))
        ctx.line_to(x + 6 * math.sin(h + 2.5), y - 6 * math.cos(h + 2.5))
        ctx.line_to(x + 6 * math.sin(h - 2.5), y - 6 * math.cos(h - 2.5))
        ctx.close_path()
        ctx.fill()
        ctx.move_to(x + 10, y + 4)
        ctx.show_text(ac.name)
    _legend(ctx, title, proj)


def _legend(ctx, title, proj):
    ctx.set_source_rgba(1, 1, 1, 0.85)
    ctx.rectangle(10, 10, 360, 150)
    ctx.fill()
    ctx.set_font_size(15)
    ctx.set_source_rgb(0, 0, 0)
    ctx.move_to(20, 32)
    ctx.show_text(title)
    entries = [(TRUE_TRACK, "true track"), (SIM_TRACK, "simulator's track"), (TAXI, "taxi network"),
               (OCCUPIED, "occupied stand at the end")]
    ctx.set_font_size(13)
    for i, (colour, text) in enumerate(entries):
        y = 54 + 20 * i
        ctx.set_source_rgb(*colour)
        ctx.set_line_width(4)
        ctx.move_to(20, y - 4)
        ctx.line_to(50, y - 4)
        ctx.stroke()
        ctx.set_source_rgb(0, 0, 0)
        ctx.move_to(60, y)
        ctx.show_text(text)
    # A scale bar of a round length.
    metres = 10 ** math.floor(math.log10(250 / proj.px_per_m))
    ctx.set_line_width(2)
    ctx.move_to(20, 146)
    ctx.line_to(20 + metres * proj.px_per_m, 146)
    ctx.stroke()
    ctx.move_to(20, 138)
    ctx.show_text(f"{metres:g} m")


def draw_map(png_path, svg_path, layout, aircraft, true_paths, occupied, title):
    try:
        import cairo
    except ImportError:
        raise SystemExit("motion_report: pycairo is missing: install python3-cairo (tools/setup.sh)") from None
    surface = cairo.ImageSurface(cairo.FORMAT_ARGB32, SIZE_PX, SIZE_PX)
    _draw(cairo.Context(surface), layout, aircraft, true_paths, occupied, title)
    surface.write_to_png(png_path)
    surface = cairo.SVGSurface(svg_path, SIZE_PX, SIZE_PX)
    _draw(cairo.Context(surface), layout, aircraft, true_paths, occupied, title)
    surface.finish()
