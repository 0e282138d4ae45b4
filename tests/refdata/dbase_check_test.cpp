#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dbase_check.h"
#include "dbase_fixture.h"
#include "refdata/dbase_reader.h"
#include "test_support.h"

namespace orv {
namespace {

class DbaseCheckTest : public ::testing::Test {
 protected:
  void SetUp() override { gf_resetDbase(); }
  void TearDown() override { gf_resetDbase(); }
  void read(const test::DbaseXml& xml) {
    test::writeEncrypted(dir / "dbase.enc", xml.text());
    ASSERT_TRUE(gf_readDbaseFile(dir / "dbase.enc"));
  }
  // Every class model of the fixture with a wing span, C172 (Light) without one.
  static test::DbaseXml withSpans() {
    test::DbaseXml xml;
    xml.sections["wingspans"] = R"(<wingspan type="A320" meters="35.8"/><wingspan type="A321" meters="35.8"/>)"
                                R"(<wingspan type="B738" meters="35.8"/>)";
    xml.sections["heavy"] = R"(<hvy types="A321"/>)";
    xml.sections["buzjet"] = R"(<bzj types="B738"/>)";
    return xml;
  }

  test::TempDir dir;
  test::LogCapture log;
};

TEST_F(DbaseCheckTest, ValidRegistrationsPassAndAreCounted) {
  test::DbaseXml xml = withSpans();
  // No airline is a private aircraft; a model fixed on reading is the right model.
  xml.sections["fixes"] = R"(<fx wro="A20X" cor="A320"/>)";
  xml.sections["dbase"] += R"(<d r="D-EFGH" m="C172"/><d r="G-ABCD" a="KLM" o="DLH" m="A20X"/>)";
  read(xml);
  const DbaseCheck check = checkDbaseTables(2);
  EXPECT_EQ(check.faults, std::vector<std::string>{});
  EXPECT_EQ(check.registrations, 4u);
  EXPECT_EQ(check.models, 4u);
  EXPECT_EQ(check.modelsWithWingspan, 3u);
  EXPECT_EQ(check.airlines, 4u);
}

TEST_F(DbaseCheckTest, NamesEachRegistrationWithAnInvalidAirlineOrModel) {
  test::DbaseXml xml = withSpans();
  xml.sections["dbase"] = R"(<d r="OO-SNA" a="DAT" m="A320"/><d r="F-HOPA" a="KLM" o="HOP" m="B738"/>)"
                          R"(<d r="N12345" m="ZZZZ"/><d r="PH-ABC" a="KLM"/><d r="D-AIBA" a="DLH" m="A320"/>)"
                          R"(<d r="B74F1" a="ZZZ" m="B74F"/>)";
  read(xml);
  // A freighter model that is no model of the dbase is not valid either.
  EXPECT_EQ(checkDbaseTables(0).faults,
            (std::vector<std::string>{"registration B74F1: model B74F is not a valid model code",
                                      "registration F-HOPA: airline HOP is not a valid airline code",
                                      "registration N12345: model ZZZZ is not a valid model code",
                                      "registration OO-SNA: airline DAT is not a valid airline code",
                                      "registration PH-ABC: no model"}));
}

TEST_F(DbaseCheckTest, ClassModelsAndTheMostCommonTypesNeedAWingSpan) {
  test::DbaseXml xml;
  xml.sections["wingspans"] = R"(<wingspan type="A320" meters="35.8"/>)";
  xml.sections["heavy"] = R"(<hvy types="A321"/>)";
  xml.sections["large"] = R"(<lar types="A320"/>)";
  xml.sections["buzjet"] = R"(<bzj types="B738"/>)";
  xml.sections["high_performance"] = R"(<hpf types="C172"/>)";
  // C172 three times, A320 twice, B738 once: the two most common are C172 and A320.
  xml.sections["dbase"] = R"(<d r="D-EAAA" m="C172"/><d r="D-EAAB" m="C172"/><d r="D-EAAC" m="C172"/>)"
                          R"(<d r="D-AIBA" a="DLH" m="A320"/><d r="D-AIBB" a="DLH" m="A320"/>)"
                          R"(<d r="PH-BXA" a="KLM" m="B738"/>)";
  read(xml);
  const DbaseCheck check = checkDbaseTables(2);
  EXPECT_EQ(check.modelsWithWingspan, 1u);
  EXPECT_EQ(check.faults,
            (std::vector<std::string>{"model A321 of the class Heavy has no wing span",
                                      "model B738 of the class Buzjets has no wing span",
                                      "model C172, number 1 of the most common types, has no wing span"}));
  // One more type counted: B738 is the third.
  EXPECT_EQ(checkDbaseTables(3).faults.back(), "model B738, number 3 of the most common types, has no wing span");
}

}  // namespace
}  // namespace orv
