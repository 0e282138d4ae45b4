#!/usr/bin/env python3
"""Tests of the stock airport files built from FlightGear's AI data: stands from parking files,
stays from the modelled schedules, one aircraft at a time on a stand, options per weekday.

    stock_airports_test.py REPOSITORY
"""
import os
import shutil
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ET

ROOT = ""

PARKING = """<?xml version="1.0"?>
<groundnet>
  <parkingList>
    <Parking index="0" type="gate" name="A" number="1" lat="N52 18.000" lon="E04 45.600" heading="370" radius="40" airlineCodes="KLM"/>
    <Parking index="1" type="gate" name="A1111" number="" lat="S33 56.400" lon="W118 24.000" heading="90" radius="30" airlineCodes=""/>
    <Parking index="2" type="gate" name="A1111" number="" lat="N52 18.100" lon="E04 45.700" heading="90" radius="18" airlineCodes=""/>
    <Parking index="3" type="ga" name="G" number="1" lat="N52 18.200" lon="E04 45.800" heading="0" radius="12" airlineCodes=""/>
    <Parking index="4" type="cargo" name="C" number="1" lat="N52 18.300" lon="E04 45.900" heading="0" radius="45" airlineCodes="NONE"/>
    <Parking index="5" type="gate" name="Zero" number="" lat="N00 0.000" lon="E00 0.000" heading="0" radius="20"/>
  </parkingList>
</groundnet>
"""


def aircraft(reg, airline="KLM", radius=20.0, kind="gate", model="B738", cargo=False):
    return {"reg": reg, "airline": airline, "model": model, "cargo": cargo, "radius": radius, "kind": kind}


def stand(index, radius=30.0, kind="gate", airlines=None):
    return {"id": f"S{index}", "index": str(index), "lat": 52.0, "lon": 4.0, "heading": 0.0, "radius": radius,
            "kind": kind, "type": 9, "airlines": airlines}


DAY = 24 * 60
WEEK = 7 * DAY


class Stands(unittest.TestCase):
    def setUp(self):
        self.dir = tempfile.mkdtemp(prefix="orv-stock-")
        self.path = os.path.join(self.dir, "parking.xml")
        with open(self.path, "w", encoding="utf-8") as f:
            f.write(PARKING)

    def tearDown(self):
        shutil.rmtree(self.dir)

    def test_parking_positions_become_stands(self):
        stands = stock_airports.read_parking(self.path)
        self.assertEqual([s["id"] for s in stands], ["A1", "A1111_1", "A1111_2", "G1", "C1"])
        a1 = stands[0]
        self.assertAlmostEqual(a1["lat"], 52.3)
        self.assertAlmostEqual(a1["lon"], 4.76)
        self.assertAlmostEqual(a1["heading"], 10.0)
        self.assertEqual(a1["airlines"], {"KLM"})
        self.assertEqual(a1["type"], 10)  # a gate of 40 m is a heavy gate
        self.assertAlmostEqual(stands[1]["lat"], -33.94)
        self.assertAlmostEqual(stands[1]["lon"], -118.4)
        self.assertEqual(stands[1]["type"], 9)
        self.assertEqual(stands[2]["type"], 8)
        self.assertEqual(stands[3]["type"], 3)  # medium general aviation ramp
        self.assertEqual(stands[4]["type"], 5)
        self.assertEqual(stands[4]["airlines"], set(), "NONE: no airline")


class Schedules(unittest.TestCase):
    def test_times_of_the_week_start_on_monday(self):
        self.assertEqual(stock_airports._minute_of_week("1/02:50:00", "WEEK"), DAY + 170)
        self.assertEqual(stock_airports._minute_of_week("6/23:59:00", "WEEK"), 6 * DAY + 1439)
        self.assertEqual(stock_airports._minute_of_week("3/10:00:00", "24Hr"), 600)
        self.assertIsNone(stock_airports._minute_of_week("-9", "WEEK"))

    def test_callsigns_are_written_as_the_feed_shows_them(self):
        self.assertEqual(stock_airports.callsign_of("KL0427", "KLM"), "KLM427")
        self.assertEqual(stock_airports.callsign_of("Springbok0033", "SAA"), "SAA33")
        self.assertEqual(stock_airports.callsign_of("BA0001A", "BAW"), "BAW1A")
        self.assertEqual(stock_airports.callsign_of("0000", "DLH"), "DLH0")
        self.assertEqual(stock_airports.callsign_of("n-a", "DLH"), "NA")

    def test_an_aircraft_waits_where_it_landed_until_its_next_flight(self):
        pool = {"aircraft": [aircraft("PH-AAA"), aircraft("PH-BBB")],
                "flights": [("EHAM", 600, "EGLL", 720, "KL1"), ("EGLL", 840, "EHAM", 960, "KL2"),
                            ("EHAM", 660, "EGLL", 780, "KL3"), ("EGLL", 900, "EHAM", 1020, "KL4")]}
        stays = stock_airports.fly_pool(pool, {"EGLL"})
        # One stay each in the middle week: the first to land takes the first flight out.
        self.assertEqual([(s[0], s[1], s[2], s[3]["reg"], s[4], s[5]) for s in stays],
                         [("EGLL", 720, 840, "PH-AAA", "KL1", "KL2"), ("EGLL", 780, 900, "PH-BBB", "KL3", "KL4")])


class Placement(unittest.TestCase):
    def test_never_two_aircraft_on_one_stand_at_once(self):
        stands = [stand(0)]
        stays = [("TEST", 600, 700, aircraft("PH-AAA"), "KL1", "KL2"),
                 ("TEST", 690, 800, aircraft("PH-BBB"), "KL3", "KL4"),   # shares half hour 23 with the first
                 ("TEST", 720, 800, aircraft("PH-CCC"), "KL5", "KL6")]   # begins in the next half hour
        options, unplaced = stock_airports.place_stays(stands, stays)
        self.assertEqual(unplaced, 1)
        self.assertEqual([o["reg"] for o in options[0]], ["PH-AAA", "PH-CCC"])
        self.assertEqual([o["hh"] for o in options[0]], ["20:23", "24:26"])

    def test_a_stand_is_chosen_by_size_airline_and_kind(self):
        stands = [stand(0, radius=50.0), stand(1, radius=25.0), stand(2, radius=60.0, airlines={"DLH"}),
                  stand(3, radius=30.0, kind="cargo"), stand(4, radius=70.0, airlines=set())]
        placed = lambda ac: [i for i, o in enumerate(stock_airports.place_stays(stands, [("T", 0, 30, ac, "A1", "A1")])[0]) if o]
        self.assertEqual(placed(aircraft("PH-A", radius=20.0)), [1], "the smallest stand that fits")
        self.assertEqual(placed(aircraft("PH-B", radius=28.0)), [0])
        self.assertEqual(placed(aircraft("D-AAAA", airline="DLH", radius=20.0)), [2], "its airline's stand first")
        self.assertEqual(placed(aircraft("PH-C", radius=20.0, kind="cargo", cargo=True)), [3])
        self.assertEqual(placed(aircraft("PH-D", radius=80.0)), [], "too large for any stand")

    def test_a_stay_across_midnight_is_one_option_per_day(self):
        ac = aircraft("PH-AAA")
        options = stock_airports._options_of(6 * DAY + 22 * 60, WEEK + 7 * 60 + 10, ac, "KL0001", "KL0002")
        self.assertEqual([(o["day"], o["hh"], o["cs"]) for o in options], [(7, "44:47", "KLM1:KLM2"), (1, "0:14", "KLM1:KLM2")])
        single = stock_airports._options_of(600, 610, ac, "KL7", "KL7")
        self.assertEqual([(o["day"], o["hh"], o["cs"]) for o in single], [(1, "20", "KLM7")])


class Files(unittest.TestCase):
    def setUp(self):
        self.dir = tempfile.mkdtemp(prefix="orv-stock-")
        os.makedirs(os.path.join(self.dir, "airports", "TEST"))
        os.makedirs(os.path.join(self.dir, "traffic", "K"))
        with open(os.path.join(self.dir, "airports", "TEST", "parking.xml"), "w", encoding="utf-8") as f:
            f.write(PARKING)
        with open(os.path.join(self.dir, "traffic", "K", "KLM.xml"), "w", encoding="utf-8") as f:
            f.write("""<?xml version="1.0"?><trafficlist>
<aircraft><airline>KLM</airline><required-aircraft>KLM-738</required-aircraft><actype>738</actype>
<radius>20</radius><flighttype>gate</flighttype><registration>PH-BXA</registration></aircraft>
<flight><callsign>KL1001</callsign><required-aircraft>KLM-738</required-aircraft>
<departure><port>TEST</port><time>1/06:00:00</time></departure><arrival><port>EGLL</port><time>1/07:00:00</time></arrival><repeat>WEEK</repeat></flight>
<flight><callsign>KL1002</callsign><required-aircraft>KLM-738</required-aircraft>
<departure><port>EGLL</port><time>0/08:00:00</time></departure><arrival><port>TEST</port><time>0/09:00:00</time></arrival><repeat>WEEK</repeat></flight>
</trafficlist>""")
        with open(os.path.join(self.dir, "airports.csv"), "w", encoding="utf-8") as f:
            f.write('"id","ident","type","name","latitude_deg","longitude_deg","elevation_ft","continent","iso_country",'
                    '"iso_region","municipality","scheduled_service","gps_code","iata_code","local_code"\n'
                    '1,"TEST","small_airport","Test Field",52.3,4.76,-11,"EU","NL","NL-NH","Here","no","TEST",,\n')
        self.hand = hand_data.HandData(os.path.join(ROOT, "data"))

    def tearDown(self):
        shutil.rmtree(self.dir)

    def test_each_airport_gets_a_file_per_simulator_and_a_stands_level(self):
        catalogue = [{"c": "EHAM", "i": "AMS", "la": 52.3, "lo": 4.76, "a": -11.0, "rank": 0}]
        counts = stock_airports.build(os.path.join(self.dir, "airports"), os.path.join(self.dir, "traffic"),
                                      os.path.join(self.dir, "airports.csv"), self.hand, catalogue, self.dir, "1.2.3")
        self.assertEqual((counts["files"], counts["stands"]), (1, 5))
        # The aircraft waits at TEST from 09:00 Monday to 06:00 Tuesday on the KLM stand.
        self.assertEqual(counts["options"], 2)
        self.assertEqual([ap["c"] for ap in catalogue], ["EHAM", "TEST"])
        self.assertEqual(catalogue[1]["s"], 2, "fewer options than stands: a first visit parks half")
        for sim, name in ((1, "MSFS"), (2, "MSFS2024")):
            root = ET.parse(os.path.join(self.dir, "site", "downloads", name, "archive", "stock", "TEST.xml")).getroot()
            meta = {i.get("name"): i.get("value") for i in root.find("meta")}
            self.assertEqual((meta["sim"], meta["version"]), (str(sim), "1.2.3"))
            self.assertTrue(meta["copyright"])
            parameters = {p.get("name"): p.get("value") for p in root.find("parameters")}
            self.assertEqual(parameters["publisher"], "stock")
            self.assertEqual(parameters["altitude"], "-11")
            self.assertEqual(parameters["num_parkpos"], "5")
            self.assertIn("RT_traffic_week", parameters)
            opts = [(o.get("reg"), o.get("airl"), o.get("type"), o.get("soft"), o.get("day"), o.get("hh"), o.get("cs"))
                    for o in root.find("parkpositions").iter("opt")]
            self.assertEqual(opts, [("PH-BXA", "KLM", "B738", "1", "1", "18:47", "KLM1002:KLM1001"),
                                    ("PH-BXA", "KLM", "B738", "1", "2", "0:12", "KLM1002:KLM1001")])


if __name__ == "__main__":
    ROOT = sys.argv[1]
    sys.path.insert(0, os.path.join(ROOT, "tools", "databuild"))
    import hand_data  # noqa: E402
    import stock_airports  # noqa: E402
    unittest.main(argv=sys.argv[:1], verbosity=2)
