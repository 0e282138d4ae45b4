// Loading the park airport's file: the archived file, the learned file over it, the settings an
// airport remembers, and what the user is told when a file is wrong.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "airport_fixture.h"
#include "airportdata/airport_catalogue.h"
#include "airportdata/airport_file.h"
#include "airportdata/airport_file_load.h"
#include "airportdata/airport_settings.h"
#include "airportdata/park_airport_file.h"
#include "foundation/message_area.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "foundation/status_values.h"
#include "foundation/user_error.h"
#include "test_support.h"

namespace fs = std::filesystem;

namespace orv::test {
namespace {

constexpr const char* kArchived = "airports\\stock\\EHAM.xml";
constexpr const char* kLearned = "airports/learned/stock/EHAM.xml";

class AirportLoadTest : public AirportTest {
 protected:
  AirportLoadTest() {
    put("airports/stock/EHAM.xml", readFile(seedFolder() / "stock_small.xml"));
    airport.icao = "EHAM";
  }

  std::string load(const std::string& xmlName = kArchived) { return gf_readApf(xmlName, airport, factors, stands); }

  const Stand& stand(const std::string& id) const {
    for (const Stand& s : stands)
      if (s.id == id) return s;
    throw std::runtime_error("no stand " + id);
  }

  bool logged(const std::string& text) const { return log.text().find(text) != std::string::npos; }

  // The seed learned file with its version and some lines replaced.
  void putLearned(const std::string& version, const std::string& from = {}, const std::string& to = {}) const {
    std::string text = readFile(seedFolder() / "learned_small.xml");
    text.replace(text.find("12.5.4"), 6, version);
    if (!from.empty()) text.replace(text.find(from), from.size(), to);
    put(kLearned, text);
  }

  ApfAirport airport;
  QualityFactors factors;
  std::vector<Stand> stands;
};

TEST_F(AirportLoadTest, TheArchivedFileAloneIsAFirstVisit) {
  writeCatalogue(R"(<ap c="EHAM" la="52.3" lo="4.76" a="-11" s="1"/>)");
  gf_readAirports();
  EXPECT_EQ(load(), "");
  EXPECT_EQ(stands.size(), 5u);
  EXPECT_EQ(stands.back().number, 5u);
  EXPECT_EQ(stand("D2").adjacent, std::vector<std::uint32_t>{2}) << "D2 and D4 lie 38 m apart, 24 m each";
  EXPECT_EQ(airport.airportName, "Amsterdam Airport Schiphol");
  EXPECT_EQ(airport.publisher, "stock");
  EXPECT_EQ(airport.altitude, -11);
  EXPECT_EQ(gv_rtTrafficWeek, 202242);
  EXPECT_TRUE(gv_airportFileValid);
  EXPECT_FALSE(gv_handmade);
  // Without factors of its own the file is judged by its options: one real, three soft. That is
  // neither little real knowledge nor much, so soft parking and the week stay as they were.
  EXPECT_EQ(factors, (QualityFactors{16, 32}));
  EXPECT_FALSE(PARK_SOFT.value);
  EXPECT_FALSE(WEEK.value);
  EXPECT_EQ(parking_percentage.value, 100);
  EXPECT_TRUE(logged("learned does not exist"));
  EXPECT_TRUE(logged("parking_percentage      : 100%"));
  EXPECT_TRUE(logged("Airport file read from 'airports\\stock\\EHAM.xml' for Amsterdam Airport Schiphol"));
  EXPECT_TRUE(logged("altitude                : -11 ft"));
  EXPECT_TRUE(logged("num_parkpos             : 5"));
  EXPECT_TRUE(logged("RT traffic week         : 202242"));

  EXPECT_TRUE(logged("quality factor          : 16/32"));

  // Leaving the airport puts the settings from before it back.
  lf_restoreSettingsBeforeAirport();
  EXPECT_EQ(parking_percentage.value, 30);
}

TEST_F(AirportLoadTest, AFirstVisitSetsUpForWhatTheFileKnows) {
  // Qf_real 2 and Qf_soft 5: soft options and the whole week with a fit of 24 hours. Not in the
  // catalogue: 30 percent.
  const std::string parameters =
      stockParameters("EHAM") + R"(<parameter name="Qf_real" value="2"/><parameter name="Qf_soft" value="5"/>)";
  put("airports/stock/EHAM.xml", airportXml(parameters, parkposXml("A", 52.0, 4.0)));
  EXPECT_EQ(load(), "");
  EXPECT_EQ(factors, (QualityFactors{2, 5}));
  EXPECT_TRUE(PARK_SOFT.value);
  EXPECT_TRUE(WEEK.value);
  EXPECT_EQ(MAX_FIT.value, 47);
  EXPECT_EQ(parking_percentage.value, 30);

  // The settings of that visit are saved with the learned file; the next visit takes them.
  PARK_SOFT.set(false);
  gf_setMaxFitHours(3.0f);
  MAX_LIVE_SEL.set(25);
  AirportFile learned;
  learned.icao = FixedCode<4>("EHAM");
  learned.publisher = "stock";
  ASSERT_TRUE(writeAirportFile(learned, kLearned, ApfMode::Learned, 1));
  lf_restoreSettingsBeforeAirport();
  EXPECT_EQ(MAX_LIVE_SEL.value, 500);
  EXPECT_EQ(load(), "");
  EXPECT_FALSE(PARK_SOFT.value);
  EXPECT_TRUE(WEEK.value);
  EXPECT_FLOAT_EQ(MAX_FIT_FL.value, 3.0f);
  EXPECT_EQ(MAX_LIVE_SEL.value, 25);
  EXPECT_TRUE(logged("MAX_FIT                 : 5 (max number of half hours, is 3.0 hrs decimal)"));

  // A file that knows much turns soft options and the week off.
  fs::remove(kLearned);
  const std::string known =
      stockParameters("EHAM") + R"(<parameter name="Qf_real" value="46"/><parameter name="Qf_soft" value="0"/>)";
  put("airports/stock/EHAM.xml", airportXml(known, parkposXml("A", 52.0, 4.0)));
  EXPECT_EQ(load(), "");
  EXPECT_FALSE(PARK_SOFT.value);
  EXPECT_FALSE(WEEK.value);

  // A factor off the scale (here too large for an int) is no knowledge: the options judge the
  // file, and the log says why.
  const std::string offScale = stockParameters("EHAM") +
                               R"(<parameter name="Qf_real" value="99999999999"/><parameter name="Qf_soft" value="5"/>)";
  put("airports/stock/EHAM.xml", airportXml(offScale, parkposXml("A", 52.0, 4.0)));
  EXPECT_EQ(load(), "");
  EXPECT_EQ(factors, (QualityFactors{-1, -1}));
  EXPECT_TRUE(logged("airports\\stock\\EHAM.xml: quality factors 2147483647/5 are off the scale 0 to 100, ignored"));
}

TEST_F(AirportLoadTest, ALearnedFileAddsWhatWasLearned) {
  putLearned("12.5.4");
  EXPECT_EQ(load(), "");
  EXPECT_TRUE(logged("Read from learned airport file: '" + shown(kLearned) + "'"));
  // Radius and cargo changes.
  EXPECT_DOUBLE_EQ(stand("D2").radius, 19.0 * kNmPerMetre);
  EXPECT_TRUE(stand("D2").radiusChange);
  EXPECT_FALSE(stand("R02").cargo);
  EXPECT_TRUE(stand("R02").cargoChange);
  // A learned option follows the archived ones: real, not from the archive, numbered on.
  ASSERT_EQ(stand("D2").opts.size(), 3u);
  const StandOpt& learned = stand("D2").opts.back();
  EXPECT_EQ(learned.reg, "PH-BXB");
  EXPECT_EQ(learned.number, 3u);
  EXPECT_EQ(learned.fromArchive, 0u);
  EXPECT_EQ(learned.real, 1u);
  // A manual stand joins the table and is numbered with it.
  EXPECT_TRUE(stand("M1").manual);
  EXPECT_EQ(stand("M1").number, 6u);
  EXPECT_EQ(stand("M1").opts.size(), 1u);
  EXPECT_EQ(stand("M1").opts[0].fromArchive, 0u);
  // The settings of the airport.
  EXPECT_EQ(RANGE.value, 20);
  EXPECT_FALSE(AUTO_RANGE.value);
  EXPECT_TRUE(WEEK.value);
  EXPECT_FALSE(PARK_SOFT.value);
  EXPECT_EQ(parking_percentage.value, 70);
  EXPECT_TRUE(INITIAL_LOAD_ONLY.value);
  EXPECT_FLOAT_EQ(MAX_FIT_FL.value, 6.0f);
  EXPECT_EQ(MAX_LIVE_SEL.value, 100);
  EXPECT_FALSE(logged("learned does not exist"));
  EXPECT_EQ(factors, computeQualityFactors(stands));
}

TEST_F(AirportLoadTest, ALearnedFileOfAnOlderVersionKeepsItsStandsButLosesItsFlights) {
  putLearned("11.9.9");
  EXPECT_EQ(load(), "");
  EXPECT_TRUE(
      logged("This learned file was created with and older Orvane version than 11.10.0,\nAll flights will be "
             "cleared, except for a handmade file"));
  EXPECT_DOUBLE_EQ(stand("D2").radius, 19.0 * kNmPerMetre);
  EXPECT_FALSE(stand("R02").cargo);
  EXPECT_EQ(stand("D2").opts.size(), 2u) << "only the archived options";
  EXPECT_TRUE(stand("M1").manual);
  EXPECT_TRUE(stand("M1").opts.empty());

  putLearned("11.10.0");
  EXPECT_EQ(load(), "");
  EXPECT_EQ(stand("D2").opts.size(), 3u);
}

TEST_F(AirportLoadTest, AHandmadeFileOverrulesTheArchivedFile) {
  put(kLearned,
      airportXml(
          R"(<parameter name="handmade" value="1"/><parameter name="airport_name" value="Amsterdam Airport Schiphol"/>)",
          parkposXml("H1", 52.3, 4.7, 30.0, R"(type="10")",
                     R"(<opt reg="PH-BHA" airl="KLM" type="B789" day="4" hh="2:9"/>)") +
              parkposXml("H2", 52.301, 4.7, 30.0),
          "11.0.0", ""));
  EXPECT_EQ(load(), "");
  EXPECT_TRUE(gv_handmade);
  ASSERT_EQ(stands.size(), 2u);
  EXPECT_EQ(stands[0].id, "H1");
  EXPECT_EQ(stands[1].number, 2u);
  EXPECT_EQ(stands[0].opts.at(0).fromArchive, 1u) << "a handmade file is complete, as an archived one";
  EXPECT_TRUE(logged("A handmade airport file overruled the archived file!"));
  EXPECT_TRUE(logged("Airport file read from 'learned\\stock\\EHAM.xml' for Amsterdam Airport Schiphol"));
  EXPECT_TRUE(gParkingStatus.handmadeMark.load());
}

TEST_F(AirportLoadTest, WhatALearnedFileGetsWrongIsToldAndPassedOver) {
  const std::string stands2 =
      parkposXml("D4", 52.0, 4.0, 20.0, R"(manual="1")") + parkposXml("M2", 0.00005, 0.0, 20.0, R"(manual="1")") +
      R"(<parkpos id="Q9"/>)" +
      R"(<parkpos id="D4"><opt reg="D-AIBA" airl="DLH" type="A320" day="2" hh="23:25" cs="DLH2AB"/><opt day="1" hh="x" reg="D-AIBA"/></parkpos>)";
  put(kLearned, airportXml(R"(<parameter name="airport_name" value="Schiphol"/>)", stands2));
  EXPECT_EQ(load(), "");
  EXPECT_TRUE(logged("manually created standid D4 already exists in " + shown(kLearned)));
  EXPECT_TRUE(logged("manually created standid M2 misses correct attributes in " + shown(kLearned)));
  EXPECT_TRUE(logged("learned stand Q9 in " + shown(kLearned) + " not found?"));
  EXPECT_TRUE(logged("learned D4: day:2 23:25 DLH     A320     cs:DLH2AB reg:D-AIBA already in airport file"));
  EXPECT_TRUE(logged("empty bit set"));
  EXPECT_TRUE(
      logged("Warning: learned file airport name: 'Schiphol' differs from archived file airport name: "
             "'Amsterdam Airport Schiphol'"));
  EXPECT_EQ(stands.size(), 5u);
  EXPECT_EQ(stand("D4").opts.size(), 1u);
}

TEST_F(AirportLoadTest, ADamagedLearnedFileIsKeptAsAGenerationAndTheArchivedFileStands) {
  put(kLearned, "<root><parameters><parameter name=");
  EXPECT_EQ(load(), "");
  EXPECT_EQ(stands.size(), 5u);
  EXPECT_TRUE(has("airports/learned/stock/EHAM0.xml"));
  EXPECT_EQ(readFile(work / "airports/learned/stock/EHAM0.xml"), "<root><parameters><parameter name=");
  EXPECT_EQ(gf_messageArea().messageText.rfind(shown(kLearned) + " found, but could not be loaded, saved as *.0.xml: ", 0),
            0u)
      << gf_messageArea().messageText;

  // A learned file without copyright is passed over without a word, settings and all.
  std::string text = readFile(seedFolder() / "learned_small.xml");
  text.replace(text.find("(c) the Orvane developers"), 25, "");
  put(kLearned, text);
  gf_resetMessageArea();
  EXPECT_EQ(load(), "");
  EXPECT_FALSE(stand("D2").radiusChange);
  EXPECT_EQ(RANGE.value, 40);
  EXPECT_EQ(gf_messageArea().messageText, "");
}

TEST_F(AirportLoadTest, ArchivedFilesThatCannotServeAreRefused) {
  airport.icao.clear();
  EXPECT_EQ(load(), "gf_readApf: no park airport set");
  airport.icao = "EHAM";
  EXPECT_EQ(load(""), "gf_readApf: xml is empty");
  EXPECT_EQ(load("airports\\my_thirdparty\\NONE.xml"),
            "airports\\my_thirdparty\\NONE.xml: could not load file: File was not found");
  put("airports/my_thirdparty/EHAM.xml", "<root><meta>");
  EXPECT_EQ(
      load("airports\\my_thirdparty\\EHAM.xml").rfind("airports\\my_thirdparty\\EHAM.xml: could not load file: ", 0),
      0u);
  // An archived file must name its simulator and its copyright.
  put("airports/my_thirdparty/EHAM.xml", airportXml(stockParameters("EHAM"), parkposXml("A", 52.0, 4.0), "12.5.4", ""));
  EXPECT_EQ(load("airports\\my_thirdparty\\EHAM.xml"), "airports\\my_thirdparty\\EHAM.xml: refused to load");
  put("airports/my_thirdparty/EHAM.xml",
      R"(<root><meta><info name="copyright" value=""/><info name="sim" value="1"/></meta></root>)");
  EXPECT_EQ(load("airports\\my_thirdparty\\EHAM.xml"), "airports\\my_thirdparty\\EHAM.xml: refused to load");
  EXPECT_TRUE(logged("no copyright info in the file?"));
  // Without stands the file is read but serves nothing.
  put("airports/my_thirdparty/EHAM.xml", airportXml(stockParameters("EHAM"), ""));
  EXPECT_EQ(load("airports\\my_thirdparty\\EHAM.xml"), "no stands found");
  // A file without airport_name is fine; one without altitude stops the load for the user.
  put("airports/my_thirdparty/EHAM.xml",
      airportXml(R"(<parameter name="altitude" value="3"/>)", parkposXml("A", 52.0, 4.0)));
  EXPECT_EQ(load("airports\\my_thirdparty\\EHAM.xml"), "");
  EXPECT_EQ(airport.airportName, "");
  put("airports/my_thirdparty/EHAM.xml",
      airportXml(R"(<parameter name="airport_name" value="X"/>)", parkposXml("A", 52.0, 4.0)));
  try {
    load("airports\\my_thirdparty\\EHAM.xml");
    FAIL() << "no error for a file without altitude";
  } catch (const UserErrorException& e) {
    EXPECT_EQ(e.code(), 65);
    EXPECT_EQ(e.text(), "Parameter altitude not found");
  }
  // The stand reader's errors reach the user as they are.
  put("airports/my_thirdparty/EHAM.xml",
      airportXml(stockParameters("EHAM"), parkposXml("A", 52.0, 4.0) + parkposXml("A", 52.1, 4.0)));
  EXPECT_THROW(load("airports\\my_thirdparty\\EHAM.xml"), UserErrorException);
}

}  // namespace
}  // namespace orv::test
