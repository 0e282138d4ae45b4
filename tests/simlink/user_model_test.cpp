#include <gtest/gtest.h>

#include "foundation/message_area.h"
#include "foundation/status_values.h"
#include "platform/window/headless_window.h"
#include "refdata/code_tables.h"
#include "refdata/model_categories.h"
#include "refdata/valid_codes.h"
#include "refdata/wingspans.h"
#include "simlink/user_model.h"
#include "test_support.h"

namespace orv {
namespace {

double halfOf(double metres) { return metres / 2 / 1852.0; }

TEST(UserModel, ModelTextToWingSpanWithTheMessagesTheUserSees) {
  HeadlessWindow window;
  gf_setWindow(&window);
  test::LogCapture log;
  for (const char* m : {"B738", "E190", "CRJ7", "A388", "A320", "B739"}) validModels.insert(m);
  lf_fillWingspans({{"B738", 35.8}, {"E190", 28.7}, {"CRJ7", 23.2}, {"A388", 79.8}, {"A320", 35.8}, {"B739", 35.8}});
  largeModels.insert(modelIndex("B738"));
  const auto receive = [](std::string_view title, std::string raw) {
    gf_clearUserModel();
    gf_resetMessageArea();
    lf_onUserTitle(title);
    lf_onUserModel(std::move(raw));
    return gv_userHalfWingSpan.load();
  };

  EXPECT_EQ(gf_normaliseUserModel("777", "Any title"), "772");
  EXPECT_EQ(gf_normaliseUserModel("$$:B738", ""), "B738");
  EXPECT_EQ(gf_normaliseUserModel("$$:A", ""), "$$:A") << "four bytes stay";
  EXPECT_EQ(gf_normaliseUserModel("737", "PMDG DG 737-900 KLM"), "B739");
  EXPECT_EQ(gf_normaliseUserModel("737", "Boeing 737 MAX"), "737");
  EXPECT_EQ(gf_normaliseUserModel("ATCCOM.AC_MODEL_XB38.0.text", ""), "ATCCOM.AC_MODEL_XB38.0.text");

  EXPECT_DOUBLE_EQ(receive("Boeing 737-800 Asobo", "ATCCOM.AC_MODEL B738.0.text"), halfOf(35.8));
  EXPECT_TRUE(gSimStatus.userModelKnown.load());
  EXPECT_NE(log.text().find("          SimConnect: User aircraft model: B738, half wing span: 17.9 meter, category: "
                            "Large\n"), std::string::npos) << log.text();
  EXPECT_DOUBLE_EQ(receive("DJI camera", "camerapod"), halfOf(28.7));
  EXPECT_EQ(receive("Some Glider", "GLID"), 0.0) << "a short code without an entry";
  EXPECT_TRUE(gf_messageArea().messageText.empty());

  EXPECT_EQ(receive("Some Airliner Title", "AIRLINER"), maxHalfWingspan);
  EXPECT_FALSE(gSimStatus.userModelKnown.load());
  EXPECT_EQ(gf_messageArea().messageText,
            "User aircraft wing span unknown, max is taken instead, please report in my Forum!");
  receive("Airbus A380 Asobo", "A388");
  EXPECT_FALSE(gSimStatus.userModelKnown.load()) << "the largest span of all goes as an unknown one";
  EXPECT_DOUBLE_EQ(receive("Aerosoft A320 Professional", "AIRBUS-A320-AEROSOFT"), halfOf(35.8));
  EXPECT_NE(log.text().find("SimConnect: User aircraft model deduced from title: A320, half wing span: 17.9 meter"),
            std::string::npos);
  EXPECT_DOUBLE_EQ(receive("Encrypted Jet", ""), halfOf(23.2));
  EXPECT_EQ(gSimStatus.title.load(), "Unknown (encrypted?) aircraft");
  EXPECT_EQ(gf_messageArea().messageText,
            "171: No model info from your user aircraft received in SimConnect, CRJ7 is taken instead");

  receive(std::string(60, 'T'), "B738");
  EXPECT_EQ(gUserTitle, std::string(48, 'T'));
  EXPECT_NE(log.text().find("SimConnect: User aircraft title: " + std::string(48, 'T') + "\n"), std::string::npos);

  // The reference tables are the process's; the run state's reset leaves them alone.
  lf_clearWingspans();
  lf_clearValidCodes();
  gf_resetCodeTables();
  gf_setWindow(nullptr);
}

}  // namespace
}  // namespace orv
