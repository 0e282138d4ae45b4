// Reading and writing the stands and options of airport files.
#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <numbers>
#include <string>
#include <vector>

#include "airport_fixture.h"
#include "airportdata/airport_file.h"
#include "airportdata/park_airport_file.h"
#include "airportdata/stand_reader.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "foundation/user_error.h"
#include "refdata/code_tables.h"
#include "refdata/registrations.h"
#include "test_support.h"

namespace orv::test {
namespace {

std::vector<Stand> standsOf(const std::string& parkpositions) {
  return gf_standsFromText(airportXml("", parkpositions));
}

const Stand& byId(const std::vector<Stand>& stands, const std::string& id) {
  for (const Stand& s : stands)
    if (s.id == id) return s;
  throw std::runtime_error("no stand " + id);
}

std::uint64_t bits(std::initializer_list<int> hours) {
  std::uint64_t set = 0;
  for (int h : hours) set |= std::uint64_t{1} << h;
  return set;
}

StandOpt option(std::string reg, std::uint64_t hours, std::string cs = "DLH4AB", std::string cs2 = {}) {
  StandOpt o;
  o.acCode.airline = airlineIndex("DLH");
  o.acCode.acType = modelIndex("A320");
  o.reg = std::move(reg);
  o.cs = std::move(cs);
  o.cs2 = std::move(cs2);
  o.hours = hours;
  o.number = 1;
  o.day = 3;
  o.fromArchive = 1;
  return o;
}

Stand manualStand(std::string id, std::vector<StandOpt> opts) {
  Stand s;
  s.id = std::move(id);
  s.latitude = 52.3;
  s.longitude = 4.75;
  s.radius = 20.0 * kNmPerMetre;
  s.manual = true;
  s.opts = std::move(opts);
  return s;
}

pugi::xml_node parkpositionsOf(pugi::xml_document& doc, const std::filesystem::path& file) {
  EXPECT_TRUE(doc.load_file(file.c_str()));
  return doc.child("root").child("parkpositions");
}

std::vector<std::string> attributeNames(pugi::xml_node element) {
  std::vector<std::string> names;
  for (pugi::xml_attribute a : element.attributes()) names.emplace_back(a.name());
  return names;
}

// The written text without its date, which changes from second to second.
std::string withoutDate(std::string text) {
  const auto at = text.find("name=\"date\"");
  const auto end = text.find('\n', at);
  return text.erase(at, end - at);
}

class StandFileTest : public AirportTest {};

TEST_F(StandFileTest, TypeDecidesCargoAndRampOverTheAttributes) {
  const auto stands = standsOf(parkposXml("C1", 52.0, 4.0, 20.0, R"(type="5" cargo="0" ramp="1")") +
                               parkposXml("G1", 52.01, 4.0, 20.0, R"(type="8" cargo="1" ramp="1")") +
                               parkposXml("R1", 52.02, 4.0, 20.0, R"(type="14" cargo="1" ramp="0")") +
                               parkposXml("X", 52.03, 4.0, 20.0, R"(type="0" cargo="1" ramp="1" heli="1")") +
                               parkposXml("N", 52.04, 4.0, 20.0, R"(cargo="1")"));
  EXPECT_TRUE(byId(stands, "C1").cargo);
  EXPECT_FALSE(byId(stands, "C1").ramp);
  EXPECT_FALSE(byId(stands, "G1").cargo);
  EXPECT_FALSE(byId(stands, "G1").ramp);
  EXPECT_FALSE(byId(stands, "R1").cargo);
  EXPECT_TRUE(byId(stands, "R1").ramp);
  EXPECT_TRUE(byId(stands, "X").cargo);
  EXPECT_TRUE(byId(stands, "X").ramp);
  EXPECT_TRUE(byId(stands, "X").heli);
  EXPECT_TRUE(byId(stands, "N").cargo);
  EXPECT_FALSE(byId(stands, "N").ramp);
  // Radius is held in nautical miles, heading in radians.
  EXPECT_DOUBLE_EQ(byId(stands, "C1").radius, 20.0 / 1852.0);
  EXPECT_DOUBLE_EQ(byId(stands, "C1").heading, std::numbers::pi / 2);
}

TEST_F(StandFileTest, CallsignsSplitAtTheFirstColon) {
  const auto stands = standsOf(parkposXml("A", 52.0, 4.0, 20.0, "",
                                          R"(<opt day="1" hh="3" cs="KLM123:KLM124"/><opt day="1" hh="4" cs=":X"/>)"
                                          R"(<opt day="1" hh="5" cs="A:B:C"/><opt day="1" hh="6"/>)"));
  const auto& opts = stands.at(0).opts;
  ASSERT_EQ(opts.size(), 4u);
  EXPECT_EQ(opts[0].cs, "KLM123");
  EXPECT_EQ(opts[0].cs2, "KLM124");
  EXPECT_EQ(opts[1].cs, "");
  EXPECT_EQ(opts[1].cs2, "X");
  EXPECT_EQ(opts[2].cs, "A");
  EXPECT_EQ(opts[2].cs2, "B:C");
  EXPECT_EQ(opts[3].cs, "");

  // Without a first callsign no cs is written, not even for a second one.
  AirportFile file;
  file.stands.push_back(
      manualStand("A", {option("D-ABCD", bits({3}), "", "X"), option("D-ABCE", bits({4}), "K1", "K2")}));
  ASSERT_TRUE(writeAirportFile(file, work / "out.xml", ApfMode::Learned, 1));
  pugi::xml_document doc;
  const pugi::xml_node parkpos = parkpositionsOf(doc, work / "out.xml").child("parkpos");
  const pugi::xml_node first = parkpos.child("opt");
  EXPECT_FALSE(first.attribute("cs"));
  EXPECT_STREQ(first.next_sibling("opt").attribute("cs").as_string(), "K1:K2");
}

TEST_F(StandFileTest, AKnownRegistrationBringsItsOwnCodeAndIsWrittenWithoutOne) {
  AcCode known;
  known.airline = airlineIndex("KLM");
  known.acType = modelIndex("B738");
  known.fromRegTable = 1;
  lf_setDbaseRecords({{"PH-BXA", known}});

  const auto stands = standsOf(parkposXml("A", 52.0, 4.0, 20.0, "",
                                          R"(<opt reg="PHBXA" airl="DLH" type="A320" day="2" hh="10:12"/>)"
                                          R"(<opt reg="D-AXXX" airl="DLH" type="A320" day="2" hh="14"/>)"));
  const StandOpt& fromTable = stands.at(0).opts.at(0);
  EXPECT_EQ(airlineCode(fromTable.acCode.airline), "KLM");
  EXPECT_EQ(modelCode(fromTable.acCode.acType), "B738");
  EXPECT_TRUE(fromTable.acCode.fromRegTable);
  const StandOpt& own = stands.at(0).opts.at(1);
  EXPECT_EQ(airlineCode(own.acCode.airline), "DLH");
  EXPECT_EQ(modelCode(own.acCode.acType), "A320");
  EXPECT_FALSE(own.acCode.fromRegTable);

  AirportFile file;
  file.stands.push_back(manualStand("A", stands.at(0).opts));
  ASSERT_TRUE(writeAirportFile(file, work / "out.xml", ApfMode::Learned, 1));
  pugi::xml_document doc;
  const pugi::xml_node opt = parkpositionsOf(doc, work / "out.xml").child("parkpos").child("opt");
  EXPECT_EQ(attributeNames(opt), (std::vector<std::string>{"reg", "day", "hh"}));
  EXPECT_EQ(attributeNames(opt.next_sibling("opt")), (std::vector<std::string>{"reg", "airl", "type", "day", "hh"}));
}

TEST_F(StandFileTest, HoursAreWrittenAsOneRunOrLeftOut) {
  AirportFile file;
  file.stands.push_back(manualStand(
      "A", {option("D-ABCD", bits({3, 4, 5})), option("D-ABCE", bits({7})), option("D-ABCF", bits({3, 5}), "DLH9")}));
  ASSERT_TRUE(writeAirportFile(file, work / "out.xml", ApfMode::Learned, 1));
  pugi::xml_document doc;
  const pugi::xml_node parkpos = parkpositionsOf(doc, work / "out.xml").child("parkpos");
  std::vector<std::string> written;
  for (pugi::xml_node opt : parkpos.children("opt")) written.emplace_back(opt.attribute("hh").as_string());
  EXPECT_EQ(written, (std::vector<std::string>{"3:5", "7"}));
  EXPECT_NE(log.text().find("bit set problem: D-ABCF DLH9 DLH     A320"), std::string::npos) << log.text();
}

TEST_F(StandFileTest, OnlyUsableOptionsAreTakenAndNumbered) {
  const auto stands = standsOf(parkposXml("A", 52.0, 4.0, 20.0, "",
                                          R"(<opt day="0" hh="3"/><opt day="8" hh="3"/><opt day="1" hh=""/>)"
                                          R"(<opt day="2" hh="4" soft="1"/><opt day="7" hh="40:47" cpl="1"/>)"));
  const auto& opts = stands.at(0).opts;
  ASSERT_EQ(opts.size(), 2u);
  EXPECT_EQ(opts[0].number, 1u);
  EXPECT_EQ(opts[0].day, 2u);
  EXPECT_EQ(opts[0].real, 0u);
  EXPECT_EQ(opts[0].hours, bits({4}));
  EXPECT_EQ(opts[1].number, 2u);
  EXPECT_EQ(opts[1].real, 1u);
  EXPECT_TRUE(opts[1].cpl);
  EXPECT_EQ(opts[1].hours, bits({40, 41, 42, 43, 44, 45, 46, 47}));
  EXPECT_EQ(opts[1].fromArchive, 1u);
}

TEST_F(StandFileTest, APositionAtZeroZeroIsNoStand) {
  const auto stands = standsOf(parkposXml("Z", 0.0, 0.0) + parkposXml("E", 0.0, 0.000001));
  ASSERT_EQ(stands.size(), 1u);
  EXPECT_EQ(stands[0].id, "E");
  EXPECT_EQ(stands[0].number, 1u);
  EXPECT_NE(log.text().find("stand Z has no valid lat/lon"), std::string::npos);
}

TEST_F(StandFileTest, StandsWithoutAUsableIdStopTheRead) {
  const auto failure = [](const std::string& parkpositions) -> std::pair<int, std::string> {
    try {
      standsOf(parkpositions);
    } catch (const UserErrorException& e) {
      return {e.code(), e.text()};
    }
    return {0, {}};
  };
  EXPECT_EQ(failure(parkposXml("A", 52.0, 4.0) + R"(<parkpos latitude="52" longitude="4"/>)"),
            std::make_pair(93, std::string("Parking position #2 has no 'id' attribute.")));
  EXPECT_EQ(failure(parkposXml(" \t ", 52.0, 4.0)),
            std::make_pair(93, std::string("Stand #1 has empty 'id' attribute.")));
  EXPECT_EQ(failure(parkposXml("A1", 52.0, 4.0) + parkposXml(" A1\n", 52.1, 4.0)),
            std::make_pair(94, std::string("Stand 'A1' appears more than once.")));
}

TEST_F(StandFileTest, AFileWithoutRootAndTrimmedIdsIsRead) {
  const auto stands = gf_standsFromText(readFile(seedFolder() / "rootless.xml"));
  ASSERT_EQ(stands.size(), 2u);
  EXPECT_EQ(stands[0].id, "A1");
  EXPECT_TRUE(stands[0].ramp);
  EXPECT_EQ(stands[1].type, 15);
  EXPECT_EQ(stands[1].number, 2u);
}

TEST_F(StandFileTest, AFileReadWrittenAndReadAgainIsUnchanged) {
  const std::vector<Stand> first = gf_standsFromText(readFile(seedFolder() / "stock_small.xml"));
  ASSERT_EQ(first.size(), 5u);
  gv_handmade = true;  // a handmade file is written whole: geometry and options
  AirportFile file;
  file.icao = FixedCode<4>("EHAM");
  file.airportName = "Amsterdam Airport Schiphol";
  file.publisher = "stock";
  file.altitude = -11;
  file.stands = first;
  ASSERT_TRUE(writeAirportFile(file, work / "once.xml", ApfMode::Learned, 1));
  const std::vector<Stand> second = gf_standsFromText(readFile(work / "once.xml"));
  ASSERT_EQ(second.size(), first.size());
  for (std::size_t i = 0; i < first.size(); ++i) {
    const Stand &a = first[i], &b = second[i];
    SCOPED_TRACE(a.id);
    EXPECT_EQ(a.id, b.id);
    EXPECT_NEAR(a.latitude, b.latitude, 1e-9);
    EXPECT_NEAR(a.longitude, b.longitude, 1e-9);
    EXPECT_NEAR(a.heading, b.heading, 1e-9);
    EXPECT_NEAR(a.radius, b.radius, 1e-12);
    EXPECT_EQ(std::tie(a.type, a.cargo, a.ramp, a.heli, a.number), std::tie(b.type, b.cargo, b.ramp, b.heli, b.number));
    EXPECT_EQ(a.adjacent, b.adjacent);
    ASSERT_EQ(a.opts.size(), b.opts.size());
    for (std::size_t k = 0; k < a.opts.size(); ++k) {
      const StandOpt &x = a.opts[k], &y = b.opts[k];
      EXPECT_TRUE(x.acCode.sameAs(y.acCode));
      EXPECT_EQ(std::tie(x.reg, x.cs, x.cs2, x.hours, x.number, x.day, x.real, x.cpl),
                std::tie(y.reg, y.cs, y.cs2, y.hours, y.number, y.day, y.real, y.cpl));
    }
  }
  file.stands = second;
  ASSERT_TRUE(writeAirportFile(file, work / "twice.xml", ApfMode::Learned, 1));
  EXPECT_EQ(withoutDate(readFile(work / "once.xml")), withoutDate(readFile(work / "twice.xml")));
}

TEST_F(StandFileTest, ArchiveAndLearnedFilesCarryTheirOwnParameters) {
  AirportFile file;
  file.airportName = "Somewhere";
  file.bglPath = "C:\\scenery\\a.bgl";
  file.hasManifest = true;
  file.version = "1.2.3";
  file.manufacturer = "maker";
  file.creator = "creator";
  file.altitude = 1234;
  file.stands = gf_standsFromText(readFile(seedFolder() / "stock_small.xml"));
  ASSERT_TRUE(writeAirportFile(file, work / "archive.xml", ApfMode::Archive, 2));

  pugi::xml_document doc;
  ASSERT_TRUE(doc.load_file((work / "archive.xml").c_str()));
  std::vector<std::pair<std::string, std::string>> parameters;
  for (pugi::xml_node p : doc.child("root").child("parameters").children("parameter"))
    parameters.emplace_back(p.attribute("name").as_string(), p.attribute("value").as_string());
  EXPECT_EQ(parameters, (std::vector<std::pair<std::string, std::string>>{{"icao", std::string(20, ' ')},
                                                                          {"airport_name", "Somewhere"},
                                                                          {"publisher", ""},
                                                                          {"version", "1.2.3"},
                                                                          {"altitude", "1234"},
                                                                          {"num_parkpos", "5"},
                                                                          {"Facilities", "0"},
                                                                          {"BGLpath", "C:\\scenery\\a.bgl"},
                                                                          {"manufacturer", "maker"},
                                                                          {"creator", "creator"}}));
  EXPECT_EQ(doc.child("root").child("meta").find_child_by_attribute("info", "name", "sim").attribute("value").as_int(),
            2);
  const pugi::xml_node parkpos = doc.child("root").child("parkpositions").child("parkpos");
  EXPECT_EQ(attributeNames(parkpos),
            (std::vector<std::string>{"id", "latitude", "longitude", "heading", "radius", "type", "cargo", "ramp"}));
  EXPECT_STREQ(parkpos.attribute("latitude").as_string(), "52.306620");
  EXPECT_STREQ(parkpos.attribute("heading").as_string(), "239.0");
  EXPECT_STREQ(parkpos.attribute("radius").as_string(), "24.0");
  EXPECT_FALSE(parkpos.child("opt")) << "an archived file holds no options";

  // A learned file of a stock airport: no version, no Facilities, the settings at the end with
  // the fit as the index of the half-hour list; a stand only with what changed.
  file.publisher = "stock";
  file.icao = FixedCode<4>("EHAM");
  gf_setMaxFitHours(12.0f);
  file.stands.resize(2);
  file.stands[0].radiusChange = true;
  file.stands[0].radius = 19.0 * kNmPerMetre;
  file.stands[1].cargoChange = true;
  file.stands[1].opts.clear();
  ASSERT_TRUE(writeAirportFile(file, work / "learned.xml", ApfMode::Learned, 1));
  ASSERT_TRUE(doc.load_file((work / "learned.xml").c_str()));
  std::vector<std::string> names;
  for (pugi::xml_node p : doc.child("root").child("parameters").children("parameter"))
    names.emplace_back(p.attribute("name").as_string());
  EXPECT_EQ(names,
            (std::vector<std::string>{"icao", "airport_name", "publisher", "RANGE", "AUTO_RANGE", "WEEK", "PARK_SOFT",
                                      "parking_percentage", "INITIAL_LOAD_ONLY", "MAX_FIT", "MAX_LIVE_SEL"}));
  EXPECT_EQ(doc.child("root")
                .child("parameters")
                .find_child_by_attribute("parameter", "name", "MAX_FIT")
                .attribute("value")
                .as_int(),
            23);
  const pugi::xml_node changed = doc.child("root").child("parkpositions").child("parkpos");
  EXPECT_EQ(attributeNames(changed), (std::vector<std::string>{"id", "radius_change", "radius"}));
  EXPECT_STREQ(changed.attribute("radius").as_string(), "19.0");
  EXPECT_EQ(std::distance(changed.children("opt").begin(), changed.children("opt").end()), 2);
  EXPECT_EQ(attributeNames(changed.next_sibling("parkpos")), (std::vector<std::string>{"id", "cargo_change", "cargo"}));
}

}  // namespace
}  // namespace orv::test
