"""Aircraft classes, what each allows, and how an aircraft's class is found from its title.

The classes are the program's model categories (data/model_classes.csv); the limits are
deliberately generous, so that a value beyond one is a fault of the motion, not of the pilot.
Speeds are ground speeds, so the air limits leave room for 150 kt of wind.
"""

import json
import os
import re
import sys
from collections import namedtuple

REPO = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(REPO, "tools", "databuild"))
from hand_data import _table  # noqa: E402  (the reader of data/*.csv)

Limits = namedtuple("Limits", "air_kt ground_kt accel_kt_s turn_air_deg_s turn_ground_deg_s bank_deg pitch_deg")

# Per class: ground speed in the air and on the ground (kt), acceleration along the track (kt/s,
# either sign), turn rate in the air and on the ground (deg/s), bank and pitch (deg, either sign).
LIMITS = {
    "light": Limits(250, 100, 4, 10, 30, 60, 25),
    "buzjet": Limits(650, 180, 7, 6, 20, 45, 25),
    "large": Limits(650, 200, 8, 5, 15, 35, 20),
    "heavy": Limits(700, 210, 7, 4, 12, 35, 20),
    "high_performance": Limits(1400, 220, 25, 30, 30, 180, 90),
    "rotorcraft": Limits(250, 60, 8, 30, 45, 60, 30),
}
# An aircraft of no known class is held only to what some class allows.
UNKNOWN = "unknown"
LIMITS[UNKNOWN] = Limits(*(max(values) for values in zip(*LIMITS.values())))

# Between two frames no aircraft moves faster than this: a jump.
JUMP_KT = 2000.0
JUMP_FT_S = 1000.0

ATC_MODEL = re.compile(r"ATCCOM\.AC_MODEL[ _]?([A-Z0-9]+)\.", re.I)


def _squeezed(text):
    return re.sub(r"[^A-Z0-9]", "", text.upper())


class ClassFinder:
    """Title to ICAO model to class: the installed titles file first, else the designators (as
    words) and model names of data/livery_models.csv found in the title (the longest wins); a
    model in no class is light."""

    def __init__(self, titles_file=None, given=None):
        data = os.path.join(REPO, "data")
        self.class_of_model = {row["icao"]: row["class"] for row in _table(os.path.join(data, "model_classes.csv"))}
        self.codes = set()
        self.names = []  # (squeezed text, model)
        for row in _table(os.path.join(data, "livery_models.csv")):
            self.codes.add(row["icao"])
            self.names.append((_squeezed(row["maker"] + row["name"]), row["icao"]))
            self.names.append((_squeezed(row["name"]), row["icao"]))
            for word in row["name"].split():
                if word.isalpha() and len(word) >= 5:
                    self.names.append((_squeezed(word), row["icao"]))
        self.names = [n for n in self.names if len(n[0]) >= 3]
        self.model_of_title = {}
        if titles_file:
            with open(titles_file, encoding="utf-8") as f:
                for entry in json.load(f):
                    self.model_of_title[entry["title"]] = model_text(entry.get("model", ""))
        self.given = dict(given or {})  # callsign to class or model

    def model(self, title):
        if title in self.model_of_title:
            return self.model_of_title[title] or None
        text = _squeezed(title)
        found = [(len(name), model) for name, model in self.names if name in text]
        # A designator counts only as a word of its own ("ERCO" is in "Intercontinental").
        found += [(len(word), word) for word in re.findall(r"[A-Z0-9]+", title.upper()) if word in self.codes]
        return max(found)[1] if found else None

    def classify(self, callsign, title):
        """(model or None, class)."""
        given = self.given.get(callsign)
        if given in LIMITS:
            return None, given
        model = given or self.model(title)
        if not model:
            return None, UNKNOWN
        return model, self.class_of_model.get(model, "light")


def model_text(text):
    """"ATCCOM.AC_MODEL A20N.0.text" or "A20N" to "A20N"."""
    m = ATC_MODEL.search(text or "")
    return (m.group(1) if m else (text or "").strip()).upper()
