#include <gtest/gtest.h>

#include "foundation/log.h"
#include "foundation/message_area.h"
#include "foundation/user_error.h"
#include "platform/window/headless_window.h"
#include "test_support.h"
#include "ui/window_hooks.h"

namespace orv {
namespace {

class MessageAreaTest : public testing::Test {
 protected:
  void SetUp() override {
    gf_setWindow(&window);
    lf_connectWindowHooks();
    gf_resetMessageArea();
    while (window.pending() > 0) window.waitMessage();
  }
  void TearDown() override {
    gf_resetMessageArea();
    gf_setWindow(nullptr);
  }
  void age(int seconds) {
    for (int i = 0; i < seconds; ++i) gf_ageMessage();
  }
  HeadlessWindow window;
  test::LogCapture log;
};

TEST_F(MessageAreaTest, AnErrorIsNeverOverwrittenByAMessage) {
  setMessage("hello", true);
  EXPECT_EQ(gf_messageArea().messageText, "hello");
  setError("41: broken");
  setMessage("later", true);
  const MessageAreaText area = gf_messageArea();
  EXPECT_EQ(area.errorText, "41: broken");
  EXPECT_EQ(area.messageText, "");
  EXPECT_EQ(area.messageBornAt, 0);
  const std::string text = log.text();
  EXPECT_NE(text.find("\nhello\nError 41: broken\n"), std::string::npos) << text;
  EXPECT_EQ(text.find("later"), std::string::npos);

  // A second error replaces the first; errors do not age.
  setError("second");
  age(100);
  EXPECT_EQ(gf_messageArea().errorText, "second");
  // Each change asks the window to repaint the message band; the refused message does not.
  unsigned paints = 0;
  while (window.pending() > 0) paints += window.waitMessage().id == WM_PAINT_MESSAGE;
  EXPECT_EQ(paints, 3u);
  EXPECT_EQ(window.invalidations(Band::Message), 0u) << "posted to the window's thread, never painted by the caller";
}

TEST_F(MessageAreaTest, MessagesAgeOutAfter25Seconds) {
  // Set before the first second: its birth second counts as 1.
  setMessage("early");
  EXPECT_EQ(gf_messageArea().messageBornAt, 1);
  age(25);
  EXPECT_EQ(gf_messageArea().messageText, "early");
  age(1);
  EXPECT_EQ(gf_messageArea().messageText, "");

  age(10);
  setMessage("later", false);
  EXPECT_EQ(gf_messageArea().messageBornAt, 36);
  age(24);
  EXPECT_EQ(gf_messageArea().messageText, "later");
  age(1);
  EXPECT_EQ(gf_messageArea().messageText, "");
  EXPECT_EQ(log.text().find("later"), std::string::npos);  // not logged unless asked

  setMessage("x");
  clearMessage();
  EXPECT_EQ(gf_messageArea().messageBornAt, 0);
}

TEST(UserError, WhatGivesCodeAndText) {
  EXPECT_STREQ(UserErrorException(41, user_error::kWrongFolderText, "Orvane", "Orvane").what(),
               "41: Orvane must be run from the Orvane folder!");
  EXPECT_STREQ(UserErrorException(150, user_error::kNoInstallPathText).what(),
               "150: No install path detected. Type the full path to your Community folder above, then press Enter");
  // 999 carries its text alone; 2024 has no text but its code leads.
  EXPECT_STREQ(UserErrorException(999, user_error::kMissingAttributeText, "title", "fltsim").what(),
               "Missing required attribute 'title' in <fltsim>");
  const UserErrorException other(user_error::kOtherSimulator, "");
  EXPECT_EQ(std::string(other.what()).rfind("2024", 0), 0u);
  EXPECT_EQ(other.code(), 2024);
  // Handlers catch it as a standard run-time error.
  try {
    throw UserErrorException(51, user_error::kFileNotFoundText, "x.xml");
  } catch (const std::runtime_error& e) {
    EXPECT_STREQ(e.what(), "51: File x.xml not found");
  }
}

}  // namespace
}  // namespace orv
