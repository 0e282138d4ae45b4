#include "refdata/similar_models.h"

#include <gtest/gtest.h>

#include "refdata/code_tables.h"
#include "test_support.h"

namespace orv {
namespace {

using Indexes = std::vector<uint16_t>;

TEST(SimilarModels, ListsOnlyModelsWithLiveriesAndTheFirstGroupByText) {
  gf_resetCodeTables();
  test::LogCapture log;
  const uint16_t a319 = modelIndex("A319"), a320 = modelIndex("A320"), a321 = modelIndex("A321");
  const uint16_t b738 = modelIndex("B738"), b739 = modelIndex("B739");
  // A320 stands in two groups; "A320,A319,A321" sorts before "A320,B738".
  similarGroups = {{"A320", "B738"}, {"A319", "A320", "A321"}, {"B738", "B739"}};

  LiveryPresence liveries;
  liveries.modelsWithLivery = {a319, a321, b738};
  liveries.airlineModels[7] = {a319};        // has no A320 and no A321
  liveries.airlineModels[8] = {a320, b739};  // has a livery of every model it could stand in for
  buildSimilarLists(liveries);

  EXPECT_EQ(similarAvailable.at(a320), (Indexes{a319, a321}));
  EXPECT_EQ(similarAvailable.at(a319), (Indexes{a321}));
  EXPECT_EQ(similarAvailable.at(a321), (Indexes{a319}));
  EXPECT_EQ(similarAvailable.at(b739), (Indexes{b738}));
  EXPECT_FALSE(similarAvailable.contains(b738));  // its only partner has no livery
  EXPECT_EQ(similarAvailable.size(), 4u);

  ASSERT_TRUE(airlineSimilar.contains(7));
  EXPECT_EQ(airlineSimilar.at(7).at(a320), (Indexes{a319}));
  EXPECT_EQ(airlineSimilar.at(7).at(a321), (Indexes{a319}));
  EXPECT_FALSE(airlineSimilar.at(7).contains(a319));  // it has that model itself
  EXPECT_FALSE(airlineSimilar.contains(8));
  EXPECT_NE(log.text().find("    4 similar model definitions"), std::string::npos);

  lf_clearSimilarModels();
  gf_resetCodeTables();
}

}  // namespace
}  // namespace orv
