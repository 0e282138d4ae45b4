#!/usr/bin/env python3
"""Tests of the reference data build: the airline register from its sources, the registrations it
keeps, and the hand tables that the simulator's own aircraft need.

    build_data_test.py REPOSITORY
"""
import json
import os
import shutil
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ET

ROOT = ""

# OpenFlights' airlines.dat: id, name, alias, IATA, ICAO, callsign, country, active. Brussels Airlines
# under its old code, one name with a stray terminal escape.
OPENFLIGHTS = """\
1,"Brussels Airlines",\\N,"SN","DAT","BEE-LINE","Belgium","Y"
2,"Peau Vava\x1b%GM-JM-;\x1b%@u",\\N,"","PVU","","Tonga","N"
3,"KLM Royal Dutch Airlines",\\N,"KL","KLM","KLM","Netherlands","Y"
"""

# The current register (aircodes' airlines.json): DAT now belongs to another holder.
CURRENT = [
    {"iata": "Y9", "icao": "DAT", "name": "1263343 Alberta Inc t/a Lynx Air"},
    {"iata": "SN", "icao": "BEL", "name": "Brussels Airlines N.V."},
    {"iata": "A5", "icao": "HOP", "name": "HOP!"},
    {"iata": "D6", "icao": "", "name": "No ICAO code"},
    {"iata": "XB", "icao": "IAT", "name": "Jubba Airways Limited d/b/a Jubba Airways"},
    {"iata": "XC", "icao": "IAT", "name": "A second entry of the same code"},
]


class AirlineRegister(unittest.TestCase):
    def setUp(self):
        self.dir = tempfile.mkdtemp(prefix="orv-databuild-")
        self.hand = hand_data.HandData(os.path.join(ROOT, "data"))
        with open(os.path.join(self.dir, "airlines.dat"), "w", encoding="utf-8") as f:
            f.write(OPENFLIGHTS)
        with open(os.path.join(self.dir, "airlines.json"), "w", encoding="utf-8") as f:
            json.dump(CURRENT, f)
        self.airlines = sources.read_airlines(os.path.join(self.dir, "airlines.dat"))
        self.airlines.update(sources.read_current_airlines(os.path.join(self.dir, "airlines.json")))

    def tearDown(self):
        shutil.rmtree(self.dir)

    def build(self, fg_aircraft, dump_aircraft=()):
        return build_data.build_dbase(self.hand, self.airlines, fg_aircraft, list(dump_aircraft))

    def test_the_current_register_goes_over_the_older_one(self):
        d = self.build([])
        self.assertEqual(d["airlines"]["DAT"], "Lynx Air")
        self.assertEqual(d["airlines"]["BEL"], "Brussels Airlines N.V.")
        self.assertEqual(d["airlines"]["IAT"], "Jubba Airways")
        self.assertEqual(d["airlines"]["KLM"], "KLM Royal Dutch Airlines")
        self.assertNotIn("", d["airlines"])
        # Codes in use today that neither source has come from the hand table; the reserved ones too.
        for code in ("QLK", "NOZ", "EWL", "SJX", "ZZZ", "PVT"):
            self.assertIn(code, d["airlines"])

    def test_a_registration_keeps_only_a_valid_airline(self):
        d = self.build([("OO-SNA", "BEL", "A320", False), ("F-HBXA", "HOP", "E190", False),
                        ("WC2021", "PPR", "P28A", False), ("WC2022", "PPR", "P28A", False)],
                       [("N123AB", "C172"), ("N999ZZ", "")])
        self.assertEqual(d["records"], [("F-HBXA", "HOP", "E190", False), ("N123AB", "", "C172", False),
                                        ("OO-SNA", "BEL", "A320", False), ("WC2021", "", "P28A", False),
                                        ("WC2022", "", "P28A", False)])
        self.assertEqual(dict(d["bad_airlines"]), {"PPR": 2})
        self.assertEqual(dict(d["bad_models"]), {})
        for _, airline, model, _ in d["records"]:
            self.assertTrue(airline == "" or airline in d["airlines"])
            self.assertIn(model, d["models"])

    def test_the_written_dbase_is_well_formed_xml(self):
        d = self.build([("OO-SNA", "BEL", "A320", False)])
        path = os.path.join(self.dir, "dbase.xml")
        xml_out.write_dbase_xml(path, d)
        root = ET.parse(path).getroot()
        names = {e.get("codes"): e.get("name") for e in root.find("ICAO_airlines")}
        self.assertEqual(names["PVU"], "Peau Vava%GM-JM-;%@u")
        self.assertEqual(root.find("dbase").find("d").attrib, {"r": "OO-SNA", "a": "BEL", "m": "A320"})


class SimulatorFleet(unittest.TestCase):
    """The simulator's own aircraft are what most users fly: each is a model with its class and a
    wing span, or the user's aircraft gets a half wing span of 0."""

    def setUp(self):
        self.hand = hand_data.HandData(os.path.join(ROOT, "data"))
        self.spans = {model: float(meters) for model, meters in self.hand.wingspans}

    def category(self, model):
        # The order in which the program settles a model that stands in two classes.
        for name in ("large", "heavy", "buzjet", "rotorcraft", "high_performance"):
            if model in self.hand.classes.get(name, []):
                return name
        return "light"

    def test_each_type_is_a_model_with_its_class_and_a_wing_span(self):
        expected = {"TBM9": "light", "DA62": "light", "DA40": "light", "DHC2": "light", "XCUB": "light",
                    "CC19": "light", "VL3": "light", "C152": "light", "C172": "light", "C208": "light",
                    "SAVG": "light", "PIVI": "light", "C700": "buzjet", "E545": "buzjet", "B748": "heavy",
                    "B78X": "heavy", "CONC": "heavy", "A20N": "large", "C919": "large", "EC35": "rotorcraft",
                    "F18S": "high_performance"}
        self.assertLessEqual(set(expected), set(self.hand.sim_fleet))
        models = self.hand.hand_types()
        for model in self.hand.sim_fleet:
            with self.subTest(model=model):
                self.assertIn(model, models)
                self.assertGreater(self.spans.get(model, 0.0), 0.0)
                if model in expected:
                    self.assertEqual(self.category(model), expected[model])

    def test_every_large_heavy_and_buzjet_model_has_a_wing_span(self):
        for name in ("large", "heavy", "buzjet"):
            for model in self.hand.classes[name]:
                with self.subTest(model=model):
                    self.assertGreater(self.spans.get(model, 0.0), 0.0)


if __name__ == "__main__":
    ROOT = sys.argv[1]
    sys.path.insert(0, os.path.join(ROOT, "tools", "databuild"))
    import build_data  # noqa: E402
    import hand_data  # noqa: E402
    import sources  # noqa: E402
    import xml_out  # noqa: E402
    unittest.main(argv=sys.argv[:1], verbosity=2)
