"""Writers of the plain data files: airports.xml, ICAO_airports.txt, dbase.xml."""

import re
from xml.sax.saxutils import quoteattr

# Characters that XML 1.0 does not allow; some source names carry stray terminal escapes.
NOT_XML = re.compile("[\x00-\x08\x0b\x0c\x0e-\x1f]")


def _attrs(pairs):
    return " ".join(f"{name}={quoteattr(NOT_XML.sub('', str(value)))}" for name, value in pairs)


def _number(value, digits):
    text = f"{value:.{digits}f}".rstrip("0").rstrip(".")
    return "0" if text in ("", "-0") else text


def write_airports_xml(path, airports):
    with open(path, "w", encoding="utf-8", newline="\n") as f:
        f.write('<?xml version="1.0" encoding="utf-8"?>\n<root>\n  <airports>\n')
        for ap in airports:
            pairs = [("c", ap["c"])]
            if ap["i"]:
                pairs.append(("i", ap["i"]))
            pairs += [("la", _number(ap["la"], 6)), ("lo", _number(ap["lo"], 6)), ("a", _number(ap["a"], 0)), ("s", ap.get("s", 0))]
            f.write(f"    <ap {_attrs(pairs)}/>\n")
        f.write("  </airports>\n</root>\n")


def write_icao_list(path, codes, per_line=20):
    codes = sorted(codes)
    with open(path, "w", encoding="utf-8", newline="\n") as f:
        for start in range(0, len(codes), per_line):
            f.write(",".join(codes[start:start + per_line]) + "\n")


def _list_section(f, section, child, attribute, items, per_element=40):
    f.write(f"  <{section}>\n")
    items = list(items)
    for start in range(0, len(items), per_element):
        f.write(f"    <{child} {_attrs([(attribute, ','.join(items[start:start + per_element]))])}/>\n")
    f.write(f"  </{section}>\n")


def write_dbase_xml(path, d):
    """d: a dict with the finished tables (see build_data.build_dbase)."""
    with open(path, "w", encoding="utf-8", newline="\n") as f:
        f.write('<?xml version="1.0" encoding="utf-8"?>\n<root>\n')
        _list_section(f, "aircrafts", "aircraft", "types", sorted(d["models"]))
        _list_section(f, "cargo_types", "cargo_type", "types", sorted(d["cargo_types"]))
        for section, child, name in (("heavy", "hvy", "heavy"), ("large", "lar", "large"), ("buzjet", "bzj", "buzjet"),
                                     ("high_performance", "hpf", "high_performance"),
                                     ("rotorcraft", "rot", "rotorcraft")):
            _list_section(f, section, child, "types", sorted(d["classes"][name]))
        for section, groups in (("similar_types", d["similar_types"]), ("prefixes", d["prefix_groups"])):
            f.write(f"  <{section}>\n")
            for group in groups:
                f.write(f"    <similar {_attrs([('types', ','.join(group))])}/>\n")
            f.write(f"  </{section}>\n")
        f.write("  <ICAO_airlines>\n")
        for code, name in sorted(d["airlines"].items()):
            f.write(f"    <ICAO {_attrs([('codes', code), ('name', name)])}/>\n")
        f.write("  </ICAO_airlines>\n")
        f.write("  <cargo_operators>\n")
        for code, name in sorted(d["cargo_operators"].items()):
            f.write(f"    <ICAO {_attrs([('codes', code), ('name', name)])}/>\n")
        f.write("  </cargo_operators>\n")
        f.write("  <publishers>\n")
        for names in d["publishers"]:
            f.write(f"    <pub {_attrs([('names', ','.join(names))])}/>\n")
        f.write("  </publishers>\n  <wingspans>\n")
        for model, meters in d["wingspans"]:
            f.write(f"    <wingspan {_attrs([('type', model), ('meters', meters)])}/>\n")
        f.write("  </wingspans>\n  <fixes>\n")
        for wrong, right in d["fixes"]:
            f.write(f"    <fx {_attrs([('wro', wrong), ('cor', right)])}/>\n")
        f.write("  </fixes>\n")
        _list_section(f, "simaddons20", "simaddon20", "arpts", sorted(d["sim_addons"]["2020"]))
        _list_section(f, "simaddons24", "simaddon24", "arpts", sorted(d["sim_addons"]["2024"]))
        f.write("  <thirdparties20>\n  </thirdparties20>\n  <thirdparties24>\n  </thirdparties24>\n")
        f.write("  <dbase>\n")
        for reg, airline, model, cargo in d["records"]:
            pairs = [("r", reg)]
            if airline:
                pairs.append(("a", airline))
            if model:
                pairs.append(("m", model))
            if cargo:
                pairs.append(("c", "true"))
            f.write(f"    <d {_attrs(pairs)}/>\n")
        f.write("  </dbase>\n</root>\n")
