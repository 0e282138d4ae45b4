#include "refdata/registrations.h"

#include <gtest/gtest.h>

#include "refdata/code_tables.h"

namespace orv {
namespace {

using Strings = std::vector<std::string>;

DbaseRecord record(std::string reg, uint16_t type) {
  DbaseRecord r;
  r.reg = std::move(reg);
  r.code.acType = type;
  r.code.fromRegTable = 1;
  return r;
}

TEST(Registrations, VariantsAddTheDashWhereAFeedDropsIt) {
  EXPECT_EQ(registrationVariants("PHBXA"), (Strings{"PH-BXA", "P-HBXA", "PHBXA"}));
  EXPECT_EQ(registrationVariants("DAIBA"), (Strings{"DA-IBA", "D-AIBA", "DAIBA"}));
  EXPECT_EQ(registrationVariants("N123AB"), (Strings{"N123AB"}));
  EXPECT_EQ(registrationVariants("D-ABCD"), (Strings{"D-ABCD"}));
  EXPECT_EQ(registrationVariants("G123"), (Strings{"G123"}));
  EXPECT_EQ(registrationVariants(""), (Strings{""}));
}

TEST(Registrations, LookupTriesTheVariantsInOrder) {
  lf_setDbaseRecords({record("P-HBXA", 2), record("D-AIBA", 3), record("PHBXC", 4), record("PH-BXA", 1)});
  ASSERT_EQ(dbaseRecords.size(), 4u);
  EXPECT_EQ(lookupRegistration("PHBXA")->acType, 1);  // the two-letter form wins
  EXPECT_EQ(lookupRegistration("P-HBXA")->acType, 2);
  EXPECT_EQ(lookupRegistration("DAIBA")->acType, 3);  // the one-letter form
  EXPECT_EQ(lookupRegistration("PHBXC")->acType, 4);  // as it stands
  EXPECT_FALSE(lookupRegistration("PHBXD"));
  EXPECT_FALSE(lookupRegistration(""));
  EXPECT_FALSE(lookupRegistration("A"));
  lf_setDbaseRecords({});
}

TEST(Registrations, DuplicatesKeepTheFirstInInputOrder) {
  lf_setDbaseRecords({record("G-EUPA", 1), record("D-AIBA", 2), record("G-EUPA", 3), record("G-EUPA", 4)});
  ASSERT_EQ(dbaseRecords.size(), 2u);
  EXPECT_EQ(dbaseRecords[1].reg, "G-EUPA");
  EXPECT_EQ(dbaseRecords[1].code.acType, 1);
  EXPECT_EQ(dbaseRecords.capacity(), dbaseRecords.size());
  lf_setDbaseRecords({});
}

TEST(Registrations, TitleSearchTakesTheFirstShortRegistrationInArrayOrder) {
  lf_setDbaseRecords({record("", 9), record("PH-BXA", 1), record("G-EUPA", 2), record("D-AIBA", 3), record("N12", 4)});
  // Registrations of six characters and more are never searched for.
  EXPECT_EQ(findRegistrationInTitle("KLM PH-BXA"), "");
  EXPECT_EQ(findRegistrationInTitle("Airbus A320 BA G-EUPA N12"), "N12");
  EXPECT_EQ(findRegistrationInTitle("nothing here"), "");
  lf_setDbaseRecords({});
}

}  // namespace
}  // namespace orv
