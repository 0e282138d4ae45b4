#!/usr/bin/env python3
"""Tests of the motion report on a trace made here: an arrival that lands, taxis and parks (and
once sinks below the ground), two aircraft standing in one stand's radius, and a light aircraft
that jumps and is removed; with true paths, a FlightGear parking file and an apt.dat runway.

    motion_report_test.py REPOSITORY
"""
import csv
import json
import math
import os
import subprocess
import sys
import tempfile
import unittest

ROOT = ""
LAT0, LON0, ELEV = 50.0, 8.5, 364.0
M_PER_DEG_LAT = 111132.95
M_PER_DEG_LON = M_PER_DEG_LAT * math.cos(math.radians(LAT0))
END = 200
HEADER = ("time_s,frame,object_id,callsign,title,latitude,longitude,altitude_ft,agl_ft,pitch_deg,bank_deg,"
          "heading_deg,on_ground,lights,flaps_pct,gear_down,spoilers_pct,throttle_pct,engines_on,vs_fps,tas_kt")


def lat_lon(x, y):
    return LAT0 + y / M_PER_DEG_LAT, LON0 + x / M_PER_DEG_LON


def fg_degrees(value, positive, negative):
    """FlightGear's "N50 0.123" form."""
    hemisphere = positive if value >= 0 else negative
    value = abs(value)
    return f"{hemisphere}{int(value)} {(value - int(value)) * 60:.6f}"


def arrival(t):
    """DLH4: west along the runway at 140 kt, touching down at 60 s, braking to taxi speed at 80 s,
    taxiing, stopping at stand A1 at 110 s. (x, y, altitude above the field, on the ground)."""
    if t < 60:
        return 1000 + 72 * (60 - t), 0.0, (60 - t) * 16.7, False
    if t <= 80:
        s = t - 60
        return 1000 - (72 * s - 1.6 * s * s), 0.0, 0.0, True
    if t <= 105:
        return 200 - 8 * (t - 80), 0.0, 0.0, True
    s = min(t - 105, 5)
    return -(8 * s - 0.8 * s * s), 0.0, 0.0, True


def jumper(t):
    """JMP7: east at 100 kt, 10 km further on from 50 s."""
    x = -3000 + 51.44 * t + (10000 if t >= 50 else 0)
    return x, -2000.0, 2000.0, False


def trace_rows():
    rows = []
    for t in range(0, END + 1):
        def row(oid, cs, title, x, y, above, on_ground, heading, engines=1):
            lat, lon = lat_lon(x, y)
            rows.append([f"{t:.3f}", t * 30, oid, cs, title, f"{lat:.8f}", f"{lon:.8f}", f"{ELEV + above:.2f}",
                         f"{above:.2f}", "-2.000", "0.000", f"{heading:.3f}", int(on_ground), 0, "0.0", 1, "0.0",
                         "0.0", engines, "0.00", "0.0"])

        row(1, "D-AINA", "Airbus A320 Neo Asobo", -1000, 500, 0.0, True, 340, 0)
        x, y, above, ground = arrival(t)
        if t == 150:
            above = -3.0  # sunk into the ground while parked
        row(3, "DLH4", "Airbus A320 Neo Lufthansa", x, y, above, ground, 270)
        row(4, "CFG1", "Boeing 737-800 Condor", 300, 200, 0.0, True, 180, 0)
        if t <= 90:
            x, y, above, ground = jumper(t)
            row(5, "JMP7", "Cessna Skyhawk G1000 Asobo", x, y, above, ground, 90)
        if t >= 100:
            row(6, "EWG2", "Airbus A319 Eurowings", 310, 205, 0.0, True, 180, 0)
    return rows


PARKING = """<?xml version="1.0"?>
<groundnet>
  <parkingList>
    <Parking index="0" type="gate" name="A" number="1" lat="{a1[0]}" lon="{a1[1]}" heading="270" radius="25"/>
    <Parking index="1" type="gate" name="A" number="2" lat="{a2[0]}" lon="{a2[1]}" heading="180" radius="30"/>
  </parkingList>
  <TaxiNodes>
    <node index="10" lat="{n10[0]}" lon="{n10[1]}" isOnRunway="1" holdPointType="none"/>
    <node index="11" lat="{n11[0]}" lon="{n11[1]}" isOnRunway="0" holdPointType="none"/>
  </TaxiNodes>
  <TaxiWaySegments>
    <arc begin="10" end="11" isPushBackRoute="0" name="A"/>
    <arc begin="11" end="1" isPushBackRoute="1" name=""/>
  </TaxiWaySegments>
</groundnet>
"""


def fg_point(x, y):
    lat, lon = lat_lon(x, y)
    return fg_degrees(lat, "N", "S"), fg_degrees(lon, "E", "W")


class MotionReport(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.tmp = tempfile.TemporaryDirectory()
        d = cls.tmp.name
        cls.trace = os.path.join(d, "trace.csv")
        with open(cls.trace, "w", newline="") as f:
            f.write(HEADER + "\n")
            csv.writer(f, lineterminator="\n").writerows(trace_rows())
        # DLH4's true path, 30 s ahead of what the simulator shows; one point 150 m off to the north.
        cls.true = os.path.join(d, "true.csv")
        with open(cls.true, "w", newline="") as f:
            f.write("time_s,callsign,latitude,longitude,altitude_ft,gs_kt,track_deg,on_ground\n")
            for t in range(0, END - 30 + 1, 5):
                x, y, above, ground = arrival(t + 30)
                lat, lon = lat_lon(x, y + (150 if t == 40 else 0))
                f.write(f"{t},DLH4,{lat:.8f},{lon:.8f},{ELEV + above:.0f},0,270,{int(ground)}\n")
        cls.parking = os.path.join(d, "parking.xml")
        with open(cls.parking, "w") as f:
            f.write(PARKING.format(a1=fg_point(-20, 0), a2=fg_point(300, 200), n10=fg_point(-20, -60),
                                   n11=fg_point(-20, -30)))
        cls.runways = os.path.join(d, "apt.dat")
        (lat1, lon1), (lat2, lon2) = lat_lon(-1500, 0), lat_lon(1500, 0)
        with open(cls.runways, "w") as f:
            f.write("1 364 1 0 XXXX Test field\n"
                    f"100 45.00 1 0 0.25 1 2 1 27 {lat1:.8f} {lon1:.8f} 0 0 3 0 1 0 "
                    f"09 {lat2:.8f} {lon2:.8f} 0 0 3 0 1 0\n")

    @classmethod
    def tearDownClass(cls):
        cls.tmp.cleanup()

    def run_report(self, *extra, out="out"):
        out = os.path.join(self.tmp.name, out)
        result = subprocess.run([sys.executable, os.path.join(ROOT, "tools", "motion_report", "motion_report.py"),
                                 self.trace, "--out", out, *extra], capture_output=True, text=True)
        report = None
        if result.returncode == 0:
            with open(os.path.join(out, "report.json")) as f:
                report = json.load(f)
        return result, report, out

    def test_findings_life_and_outputs(self):
        result, report, out = self.run_report("--true", self.true, "--parking", self.parking, "--runways",
                                              self.runways)
        self.assertEqual(result.returncode, 0, result.stderr)
        by = {a["callsign"]: a for a in report["aircraft"]}

        dlh = by["DLH4"]
        self.assertEqual([e["event"] for e in dlh["life"]], ["created", "landed", "taxied", "parked"])
        self.assertEqual(dlh["life"][1]["t"], 60.0)
        parked = dlh["life"][3]
        self.assertEqual(parked["detail"], "A1")
        self.assertTrue(110 <= parked["t"] <= 111, parked)
        self.assertEqual(dlh["state_at_end"], "parked at A1")
        self.assertEqual((dlh["model"], dlh["class"]), ("A20N", "large"))
        # Nothing but the one frame below the ground: landing and braking stay within a large aircraft's limits.
        self.assertEqual(dlh["findings"], ["below ground"])
        self.assertEqual(dlh["below_ground"], {"frames": 1, "first": 150.0, "lowest_ft": -3.0})
        self.assertAlmostEqual(dlh["deviation"]["max_m"], 150, delta=2)
        self.assertEqual(dlh["deviation"]["at"], 70.0)
        self.assertAlmostEqual(dlh["peaks"]["speed_air"]["max"], 140, delta=1)
        self.assertAlmostEqual(dlh["peaks"]["accel"]["max"], 3.2 * 3600 / 1852, delta=0.2)

        jmp = by["JMP7"]
        self.assertEqual(len(jmp["jumps"]), 1)
        self.assertEqual((jmp["jumps"][0]["from"], jmp["jumps"][0]["to"]), (49.0, 50.0))
        self.assertAlmostEqual(jmp["jumps"][0]["distance_m"], 10051, delta=20)  # a sphere, not the flat plane of the test
        self.assertEqual([e["event"] for e in jmp["life"]], ["created", "removed"])
        self.assertEqual(jmp["life"][1]["t"], 90.0)
        self.assertEqual(jmp["class"], "light")
        self.assertAlmostEqual(jmp["peaks"]["speed_air"]["max"], 100, delta=1)
        self.assertIsNone(jmp["deviation"], "no true path of its own")

        self.assertEqual(report["stand_conflicts"],
                         [{"stand": "A2", "callsigns": ["CFG1", "EWG2"], "first": 100.0, "last": 200.0, "frames": 101}])
        self.assertEqual(by["CFG1"]["state_at_end"], "parked at A2")
        self.assertIn("stand", by["EWG2"]["findings"])
        self.assertEqual(by["D-AINA"]["findings"], [])
        self.assertTrue(by["D-AINA"]["user"])

        s = report["summary"]
        self.assertEqual((s["aircraft"], s["landed"], s["airborne"], s["removed"], s["jumps"],
                          s["below_ground_aircraft"], s["stand_conflicts"], s["with_true_path"]),
                         (5, 1, 0, 1, 1, 1, 1, 1))
        self.assertEqual(s["largest_deviation"]["callsign"], "DLH4")

        text = result.stdout
        self.assertIn("JUMP from 49.0 to 50.0 s", text)
        self.assertIn("BELOW THE GROUND in 1 frames from 150.0 s, lowest -3.0 ft", text)
        self.assertIn("STAND: CFG1, EWG2 standing in stand A2 from 100.0 to 200.0 s (101 frames)", text)
        self.assertIn("life: 0.0 created airborne; 60.0 landed; 77.0 taxied; 110.0 parked at A1\n", text)
        with open(os.path.join(out, "report.txt")) as f:
            self.assertEqual(f.read(), text)
        with open(os.path.join(out, "map.png"), "rb") as f:
            png = f.read()
        self.assertEqual(png[:8], b"\x89PNG\r\n\x1a\n")
        self.assertEqual(int.from_bytes(png[16:20], "big"), 1400, "width")
        with open(os.path.join(out, "map.svg")) as f:
            self.assertIn("<svg", f.read(200))

    def test_class_given_and_stands_without_layout(self):
        result, report, _ = self.run_report("--class", "DLH4=light", "--class", "JMP7=B744", "--no-map", out="given")
        self.assertEqual(result.returncode, 0, result.stderr)
        by = {a["callsign"]: a for a in report["aircraft"]}
        # 140 kt on the runway is beyond a light aircraft's 100 kt on the ground.
        self.assertEqual(by["DLH4"]["class"], "light")
        self.assertIn("speed_ground", by["DLH4"]["findings"])
        self.assertEqual((by["JMP7"]["model"], by["JMP7"]["class"]), ("B744", "heavy"))
        self.assertIsNone(by["DLH4"]["deviation"], "no true paths given")
        # Without stands: parked when standing with engines off, conflicts by distance.
        self.assertEqual([e["event"] for e in by["CFG1"]["life"]], ["created", "parked"])
        self.assertEqual([(c["stand"], c["callsigns"]) for c in report["stand_conflicts"]], [(None, ["CFG1", "EWG2"])])
        self.assertFalse(os.path.exists(os.path.join(self.tmp.name, "given", "map.png")))

    def test_layout_files(self):
        sys.path.insert(0, os.path.join(ROOT, "tools", "motion_report"))
        import airport_layout

        layout = airport_layout.read_layout(self.parking, self.runways)
        self.assertEqual([(s.name, s.radius_m, s.heading) for s in layout.stands], [("A1", 25.0, 270.0),
                                                                                   ("A2", 30.0, 180.0)])
        self.assertAlmostEqual(layout.stands[1].lat, lat_lon(300, 200)[0], places=6)
        self.assertEqual(sorted(layout.nodes), ["0", "1", "10", "11"], "stands are nodes of the network too")
        self.assertEqual([(e.begin, e.end, e.pushback) for e in layout.edges], [("10", "11", False),
                                                                                ("11", "1", True)])
        (rw,) = layout.runways
        self.assertEqual(([e.name for e in rw.ends], rw.width_m), (["27", "09"], 45.0))
        self.assertAlmostEqual(rw.ends[1].lon, lat_lon(1500, 0)[1], places=7)
        as_json = os.path.join(self.tmp.name, "runways.json")
        with open(as_json, "w") as f:
            json.dump({"runways": [{"width_m": 60, "ends": [{"name": "07", "lat": 50.0, "lon": 8.5},
                                                            {"name": "25", "lat": 50.01, "lon": 8.55}]}]}, f)
        (rw,) = airport_layout.read_runways(as_json)
        self.assertEqual((rw.ends[1], rw.width_m), (("25", 50.01, 8.55), 60.0))
        short = os.path.join(self.tmp.name, "short.dat")
        with open(short, "w") as f:
            f.write("100 45.00 1 0 0.25 1 2 1 27 50.0 8.5\n")
        with self.assertRaisesRegex(ValueError, "short.dat: line 1: a runway line has 20 or more fields"):
            airport_layout.read_runways(short)

    def test_mistakes_are_named(self):
        bad = os.path.join(self.tmp.name, "bad.csv")
        with open(bad, "w") as f:
            f.write("time_s,callsign,latitude\n0,X,50\n")
        result = subprocess.run([sys.executable, os.path.join(ROOT, "tools", "motion_report", "motion_report.py"),
                                 self.trace, "--true", bad, "--no-map", "--out", os.path.join(self.tmp.name, "bad")],
                                capture_output=True, text=True)
        self.assertNotEqual(result.returncode, 0)
        self.assertIn("bad.csv: no column longitude, altitude_ft, gs_kt, track_deg, on_ground", result.stderr)
        result, _, _ = self.run_report("--class", "DLH4", out="bad2")
        self.assertIn("--class DLH4: CALLSIGN=CLASS or CALLSIGN=MODEL", result.stderr)
        broken = os.path.join(self.tmp.name, "broken.xml")
        with open(broken, "w") as f:
            f.write("<groundnet><parkingList>")
        result, _, _ = self.run_report("--parking", broken, out="bad3")
        self.assertEqual(result.returncode, 1)
        self.assertIn("motion_report: no element found: line 1", result.stderr)


if __name__ == "__main__":
    ROOT = sys.argv.pop(1)
    unittest.main()
