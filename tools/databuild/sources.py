"""Readers of the downloaded public sources: airports, airlines, and aircraft registrations."""

import csv
import glob
import json
import os
import re
import xml.etree.ElementTree as ET

FOUR_LETTERS = re.compile(r"^[A-Z]{4}$")
AIRLINE_CODE = re.compile(r"^[A-Z]{3}$")
IATA_CODE = re.compile(r"^[A-Z0-9]{3}$")
MODEL_CODE = re.compile(r"^[A-Z0-9]{2,4}$")
REGISTRATION = re.compile(r"^[A-Z0-9]{1,3}(-[A-Z0-9]{1,6})?[A-Z0-9]*$")

AIRPORT_TYPES = ("large_airport", "medium_airport")


def read_airports(csv_path):
    """OurAirports-style airports.csv: (catalogue rows, set of every four-letter code)."""
    catalogue = {}
    all_codes = set()
    rank = {"large_airport": 0, "medium_airport": 1}
    with open(csv_path, encoding="utf-8", newline="") as f:
        for row in csv.DictReader(f):
            codes = [c for c in (row["ident"].strip(), row["gps_code"].strip()) if FOUR_LETTERS.match(c)]
            all_codes.update(codes)
            if not codes or row["type"] == "closed":
                continue
            if row["type"] not in AIRPORT_TYPES and row["scheduled_service"] != "yes":
                continue
            if not row["elevation_ft"].strip():
                continue  # the reader skips an airport without elevation
            code = codes[0]
            entry = {
                "c": code,
                "i": row["iata_code"].strip() if IATA_CODE.match(row["iata_code"].strip()) else "",
                "la": float(row["latitude_deg"]),
                "lo": float(row["longitude_deg"]),
                "a": float(row["elevation_ft"]),
                "rank": rank.get(row["type"], 2),
            }
            old = catalogue.get(code)
            if old is None or entry["rank"] < old["rank"]:
                catalogue[code] = entry
    return [catalogue[c] for c in sorted(catalogue)], all_codes


def read_airlines(dat_path):
    """OpenFlights airlines.dat: ICAO code to name; the first name of a code stands."""
    airlines = {}
    with open(dat_path, encoding="utf-8", newline="") as f:
        for row in csv.reader(f):
            if len(row) < 5:
                continue
            code = row[4].strip()
            if AIRLINE_CODE.match(code) and code not in airlines:
                airlines[code] = row[1].strip()
    return airlines


# The trading name of a company entry such as "Jubba Airways Limited d/b/a Jubba Airways".
TRADING_AS = re.compile(r"\s(?:t/a|d/b/a)\s")


def read_current_airlines(json_path):
    """aircodes' airlines.json (current airline register entries): ICAO code to trading name; the
    first entry of a code stands."""
    with open(json_path, encoding="utf-8") as f:
        entries = json.load(f)
    airlines = {}
    for entry in entries:
        code = (entry.get("icao") or "").strip()
        if AIRLINE_CODE.match(code) and code not in airlines:
            airlines[code] = TRADING_AS.split(entry.get("name") or "")[-1].strip()
    return airlines


def clean_registration(text):
    reg = (text or "").strip().upper()
    if 3 <= len(reg) <= 10 and REGISTRATION.match(reg):
        return reg
    return ""


def read_dump1090(db_folder):
    """dump1090's aircraft database (html/db/*.json): list of (registration, type), and type counts."""
    aircraft = []
    for path in sorted(glob.glob(os.path.join(db_folder, "*.json"))):
        with open(path, encoding="utf-8") as f:
            block = json.load(f)
        for key in sorted(block):
            entry = block[key]
            if not isinstance(entry, dict):
                continue
            model = (entry.get("t") or "").strip().upper()
            if not MODEL_CODE.match(model):
                model = ""
            aircraft.append((clean_registration(entry.get("r")), model))
    return aircraft


def flightgear_aircraft(traffic_folder):
    """The <aircraft> elements of the FlightGear AI schedules (AI/Traffic/*/*.xml), in file order;
    a file that is not XML is passed over."""
    for path in sorted(glob.glob(os.path.join(traffic_folder, "*", "*.xml"))):
        try:
            root = ET.parse(path).getroot()
        except ET.ParseError:
            continue
        yield from root.iter("aircraft")


def read_flightgear_traffic(traffic_folder, type_map):
    """FlightGear AI schedules (AI/Traffic/*/*.xml): list of (registration, airline, ICAO type, freighter)
    and the free-text types that had no mapping, with their counts."""
    aircraft = []
    unmapped = {}
    for element in flightgear_aircraft(traffic_folder):
        reg = clean_registration(element.findtext("registration"))
        airline = (element.findtext("airline") or "").strip().upper()
        if not AIRLINE_CODE.match(airline):
            airline = ""
        actype = (element.findtext("actype") or "").strip()
        mapped = type_map.get(actype) or type_map.get(actype.upper())
        if mapped is None:
            unmapped[actype] = unmapped.get(actype, 0) + 1
            continue
        if reg:
            aircraft.append((reg, airline, mapped[0], mapped[1]))
    return aircraft, unmapped
