#!/usr/bin/env python3
"""Tests of the scenario generator on an airport made here (one runway 09/27, a parallel taxiway,
two stands), a schedule of one arrival and one departure, and a one-file transponder database:
the physics of the true paths, the cadence and the fields of the reports, and that the program's
decoder takes every line.

    generate_scenario_test.py REPOSITORY FEED_INSPECT
"""
import csv
import json
import math
import os
import subprocess
import sys
import tempfile
import unittest

ROOT = FEED_INSPECT = ""
LAT0, LON0, ELEV = 50.0, 8.5, 100.0
M_LAT = 111194.9
M_LON = M_LAT * math.cos(math.radians(LAT0))
THR27 = (LAT0, LON0 + 1400 / M_LON)  # runway 27's threshold, 1400 m east of the middle


def fg(value, pos, neg):
    h = pos if value >= 0 else neg
    value = abs(value)
    return f"{h}{int(value)} {(value - int(value)) * 60:.6f}"


def at(x, y):
    lat, lon = LAT0 + y / M_LAT, LON0 + x / M_LON
    return f'lat="{fg(lat, "N", "S")}" lon="{fg(lon, "E", "W")}"'


def write_airport(src):
    os.makedirs(os.path.join(src, "flightgear-ai", "Airports", "TEST"))
    os.makedirs(os.path.join(src, "flightgear-ai", "Traffic", "T"))
    os.makedirs(os.path.join(src, "dump1090-db"))
    w, e = (LAT0, LON0 - 1400 / M_LON), THR27
    with open(os.path.join(src, "runways.dat"), "w") as f:
        f.write("I\n1000 test\n\n1 100 1 0 TEST Test Field\n"
                f"100 45.00 1 0 0.00 0 2 0 09 {w[0]:.8f} {w[1]:.8f} 0 0 3 0 0 0 27 {e[0]:.8f} {e[1]:.8f} 0 0 3 0 0 0\n"
                "1 50 1 0 XXXX Other\n100 30.00 1 0 0.00 0 2 0 18 1 1 0 0 3 0 0 0 36 2 1 0 0 3 0 0 0\n99\n")
    # Runway nodes 10..13, taxiway nodes 20..23 150 m north, stands 0 and 1 further north.
    nodes = []
    for k, x in enumerate((-1350, -400, 400, 1350)):
        nodes.append(f'<node index="{10 + k}" {at(x, 0)} isOnRunway="1" holdPointType="none"/>')
        nodes.append(f'<node index="{20 + k}" {at(x, 150)} isOnRunway="0" holdPointType="none"/>')
    nodes.append(f'<node index="30" {at(-100, 150)} isOnRunway="0" holdPointType="PushBack"/>')
    nodes.append(f'<node index="31" {at(100, 150)} isOnRunway="0" holdPointType="PushBack"/>')
    arcs = [(10, 11), (11, 12), (12, 13)] + [(10 + k, 20 + k) for k in range(4)]
    arcs += [(20, 21), (21, 30), (30, 31), (31, 22), (22, 23), (0, 30), (1, 31)]
    arc_text = "".join(f'<arc begin="{a}" end="{b}" isPushBackRoute="0" name="t"/>'
                       f'<arc begin="{b}" end="{a}" isPushBackRoute="0" name="t"/>' for a, b in arcs)
    with open(os.path.join(src, "flightgear-ai", "Airports", "TEST", "parking.xml"), "w") as f:
        f.write('<?xml version="1.0"?><groundnet><parkingList>'
                f'<Parking index="0" type="gate" name="A" number="1" {at(-100, 250)} heading="180" radius="30" '
                'airlineCodes="" pushBackRoute="30"/>'
                f'<Parking index="1" type="gate" name="A" number="2" {at(100, 250)} heading="180" radius="30" '
                'airlineCodes="" pushBackRoute="31"/>'
                f'</parkingList><TaxiNodes>{"".join(nodes)}</TaxiNodes><TaxiWaySegments>{arc_text}'
                '</TaxiWaySegments></groundnet>')
    aircraft = "".join(f"<aircraft><airline>KLM</airline><actype>738</actype><radius>18</radius>"
                       f"<flighttype>gate</flighttype><required-aircraft>KLM-738</required-aircraft>"
                       f"<registration>{reg}</registration></aircraft>" for reg in ("PH-TSA", "PH-TSB"))
    flights = ("<flight><callsign>KL0101</callsign><required-aircraft>KLM-738</required-aircraft>"
               "<departure><port>EDDF</port><time>0/11:10:00</time></departure>"
               "<arrival><port>TEST</port><time>0/12:10:00</time></arrival><repeat>WEEK</repeat></flight>"
               "<flight><callsign>KL0102</callsign><required-aircraft>KLM-738</required-aircraft>"
               "<departure><port>TEST</port><time>0/12:03:00</time></departure>"
               "<arrival><port>EDDF</port><time>0/13:05:00</time></arrival><repeat>WEEK</repeat></flight>")
    with open(os.path.join(src, "flightgear-ai", "Traffic", "T", "KLM.xml"), "w") as f:
        f.write(f'<?xml version="1.0"?><trafficlist>{aircraft}{flights}</trafficlist>')
    with open(os.path.join(src, "dump1090-db", "48.json"), "w") as f:
        json.dump({"4001": {"r": "PH-TSA", "t": "B738"}}, f)


def generate(src, out, *extra):
    return subprocess.run([sys.executable, os.path.join(ROOT, "tools", "scenario", "generate_scenario.py"),
                           "--sources", src, "--data", os.path.join(ROOT, "data"), "--airport", "TEST",
                           "--day", "mon", "--time", "12:00", "--minutes", "20", "--wind", "270/10",
                           "--out", os.path.join(out, "rec.txt"), "--true", os.path.join(out, "true.csv"),
                           "--summary", os.path.join(out, "sum.json"), *extra],
                          capture_output=True, text=True)


class Generated(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.tmp = tempfile.TemporaryDirectory()
        src = os.path.join(cls.tmp.name, "src")
        write_airport(src)
        cls.run_result = generate(src, cls.tmp.name)
        cls.src = src
        assert cls.run_result.returncode == 0, cls.run_result.stderr
        with open(os.path.join(cls.tmp.name, "sum.json")) as f:
            cls.summary = json.load(f)
        cls.paths = {}
        with open(os.path.join(cls.tmp.name, "true.csv")) as f:
            for r in csv.DictReader(f):
                cls.paths.setdefault(r["callsign"], []).append(
                    (float(r["time_s"]), float(r["latitude"]), float(r["longitude"]), float(r["altitude_ft"]),
                     float(r["gs_kt"]), float(r["track_deg"]), r["on_ground"] == "1"))
        with open(os.path.join(cls.tmp.name, "rec.txt")) as f:
            cls.lines = [line.rstrip("\n").split(" ", 2) for line in f if not line.startswith("#")]

    def flight(self, kind):
        f = next(f for f in self.summary["flights"] if f["kind"] == kind)
        return f, self.paths[f["callsign"]]

    def test_the_runway_in_use_the_stands_and_what_the_user_is_told(self):
        self.assertIn("1 arrivals on 27, 1 departures from 27, 0 overflights", self.run_result.stdout)
        arr, _ = self.flight("arrival")
        dep, _ = self.flight("departure")
        self.assertEqual((arr["callsign"], arr["runway"]), ("KLM101", "27"))
        self.assertTrue({arr["stand"], dep["stand"]} <= {"A1", "A2"})
        self.assertNotEqual(arr["reg"], dep["reg"])
        bad = generate(self.src, self.tmp.name, "--airport", "EHAM")
        self.assertEqual(bad.returncode, 1)
        self.assertEqual(bad.stderr.strip(), "generate_scenario: no taxi network for EHAM; airports with one: TEST")
        bad = generate(self.src, self.tmp.name, "--time", "25:00")
        self.assertIn("--time: '25:00' is not HH:MM", bad.stderr)

    def test_the_arrival_comes_down_a_3_degree_final_lands_and_taxies_to_its_stand(self):
        _, rows = self.flight("arrival")
        final = [r for r in rows if not r[6] and 1.0 <= dist_nm(r, THR27) <= 6.0]
        self.assertGreater(len(final), 60)
        for r in final:
            angle = math.degrees(math.atan2((r[3] - ELEV - 50) * 0.3048, dist_nm(r, THR27) * 1852))
            self.assertAlmostEqual(angle, 3.0, delta=0.15, msg=r)
            self.assertLess(abs((r[5] - 270 + 180) % 360 - 180), 1.0, "on the centre line")
        touchdown = next(r for r in rows if r[6])
        self.assertTrue(120 <= touchdown[4] <= 150, touchdown)
        self.assertLess(dist_nm(touchdown, THR27) * 1852, 700)
        taxi = [r for r in rows if (r[1] - LAT0) * M_LAT > 60]
        self.assertGreater(len(taxi), 20)
        self.assertLessEqual(max(r[4] for r in taxi), 20.0, "taxi speed off the runway")
        end = rows[-1]
        self.assertEqual(end[4], 0.0)
        self.assertLess(math.hypot((end[1] - LAT0 - 250 / M_LAT) * M_LAT,
                                   (abs(end[2] - LON0) - 100 / M_LON) * M_LON), 5.0, "parked at A1 or A2")

    def test_the_departure_pushes_back_taxies_lines_up_and_climbs_out(self):
        _, rows = self.flight("departure")
        roll = next(i for i, r in enumerate(rows) if r[6] and r[4] > 30)
        lined_up = max(i for i in range(roll) if rows[i][4] == 0.0)
        self.assertLessEqual(max(r[4] for r in rows[:lined_up]), 20.0, "pushback and taxi")
        self.assertLess(abs((rows[lined_up][5] - 270 + 180) % 360 - 180), 2.0, "lined up on 27")
        self.assertEqual(rows[0][4], 0.0, "standing at its stand first")
        self.assertLess(abs((rows[roll][5] - 270 + 180) % 360 - 180), 2.0, "rolling along 27")
        airborne = next(r for r in rows if not r[6])
        self.assertTrue(140 <= airborne[4] <= 165, airborne)
        climb = [(b[3] - a[3]) / (b[0] - a[0]) * 60 for a, b in zip(rows, rows[1:]) if not a[6] and not b[6]]
        self.assertTrue(1200 < max(climb) < 4000, max(climb))
        self.assertGreater(rows[-1][3], 5000)

    def test_no_turn_is_sharper_and_no_change_of_speed_harder_than_an_airliner_can_make(self):
        for cs, rows in self.paths.items():
            for a, b in zip(rows, rows[1:]):
                dt = b[0] - a[0]
                self.assertLessEqual(abs(b[4] - a[4]) / dt, 4.5, (cs, a, b))
                if a[4] > 5 and b[4] > 5:
                    rate = abs((b[5] - a[5] + 540) % 360 - 180) / dt
                    self.assertLessEqual(rate, 12.0 if a[6] else 3.5, (cs, a, b))

    def test_reports_come_at_the_cadence_of_adsb_and_carry_every_field(self):
        by_hex = {}
        weather = [json.loads(text) for _, port, text in self.lines if port == "49004"]
        self.assertEqual(len(weather), 20)
        self.assertTrue(all(w["QNH"] == 1016 for w in weather))
        arrivals = [float(t) for t, _, _ in self.lines]
        self.assertEqual(arrivals, sorted(arrivals))
        for _, port, text in self.lines:
            if port != "49005":
                continue
            f = text.split(",")
            self.assertEqual(len(f), 43)
            self.assertEqual((f[0], f[17]), ("RTTFC", "adsb_icao"))
            by_hex.setdefault(int(f[1]), []).append((float(f[14]), text))
        arr, _ = self.flight("arrival")
        regs = {f["reg"]: f["hexid"] for f in self.summary["flights"]}
        self.assertEqual(regs.get("PH-TSA", 0x484001), 0x484001, "the database's address")
        self.assertEqual(set(by_hex), set(regs.values()))
        for hexid, reports in by_hex.items():
            distinct = sorted(set(reports))
            gaps = [b[0] - a[0] for a, b in zip(distinct, distinct[1:])]
            self.assertGreaterEqual(min(gaps), 1.09, hexid)
            self.assertLessEqual(sorted(gaps)[len(gaps) * 9 // 10], 5.0, "nine in ten within 5 s")
            self.assertGreater(len(reports), 100)

    def test_the_program_decodes_every_line(self):
        if not FEED_INSPECT or not os.path.exists(FEED_INSPECT):
            self.skipTest("no feed_inspect")
        traffic = "".join(text + "\n" for _, port, text in self.lines if port == "49005")
        out = subprocess.run([FEED_INSPECT, "--user", f"{LAT0},{LON0}", "--park", f"{LAT0},{LON0},{ELEV}",
                              "--qnh", "1016", "--range", "100"], input=traffic, capture_output=True, text=True)
        self.assertEqual(out.returncode, 0, out.stderr)
        kinds = [json.loads(line)["kind"] for line in out.stdout.splitlines()]
        self.assertEqual(len(kinds), traffic.count("\n"))
        self.assertEqual(set(kinds), {"msg"})


def dist_nm(row, point):
    return math.hypot((row[1] - point[0]) * M_LAT, (row[2] - point[1]) * M_LON) / 1852


if __name__ == "__main__":
    ROOT = sys.argv[1]
    FEED_INSPECT = sys.argv[2] if len(sys.argv) > 2 else ""
    unittest.main(argv=sys.argv[:1])
