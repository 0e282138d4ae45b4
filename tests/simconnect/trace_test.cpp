// The CSV trace of the stand-in, read back as a later analysis would read it.
#include <sstream>

#include "standin_fixture.h"
#include "test_support.h"

namespace orv::test {
namespace {

using TraceTest = StandinTest;

// Splits one CSV line, honouring quoted fields.
std::vector<std::string> csvFields(const std::string& line) {
  std::vector<std::string> out(1);
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (quoted && c == '"' && i + 1 < line.size() && line[i + 1] == '"') {
      out.back() += '"';
      ++i;
    } else if (c == '"') {
      quoted = !quoted;
    } else if (c == ',' && !quoted) {
      out.emplace_back();
    } else {
      out.back() += c;
    }
  }
  return out;
}

std::vector<std::vector<std::string>> readCsv(const std::filesystem::path& file) {
  std::istringstream in(readFile(file));
  std::vector<std::vector<std::string>> rows;
  for (std::string line; std::getline(in, line);) rows.push_back(csvFields(line));
  return rows;
}

TEST_F(TraceTest, EveryObjectIsWrittenEveryNthFrame) {
  TempDir dir;
  HANDLE h = startWith(R"({"terrainElevationFt": 50, "titles": [{"title": "Boeing 737-800 \"Sky\", Blue", "model": "B738"}]})");
  SIMCONNECT_DATA_INITPOSITION pos{};
  pos.Latitude = 50.5;
  pos.Longitude = 8.25;
  pos.Altitude = 2500;
  pos.Heading = 90;
  SimConnect_AICreateNonATCAircraft(h, "Boeing 737-800 \"Sky\", Blue", "SKY1", pos, 104);
  SimConnect_MapClientEventToSimEvent(h, 217, "FLAPS_SET");
  standin::advanceFrames(1);
  const DWORD id = standin::objectByAtcId("SKY1")->objectId;
  SimConnect_TransmitClientEvent(h, id, 217, 16383, 301, 0);

  standin::startTrace(dir / "trace.csv", 2);
  standin::advanceFrames(4);
  standin::stopTrace();
  standin::advanceFrames(2);

  const auto rows = readCsv(dir / "trace.csv");
  ASSERT_EQ(rows.size(), 1u + 2 * 2);  // header, then frames 2 and 4 with two objects each
  const std::vector<std::string> header = rows[0];
  ASSERT_EQ(header.size(), 21u);
  EXPECT_EQ(header[0], "time_s");
  EXPECT_EQ(header[3], "callsign");
  EXPECT_EQ(header[20], "tas_kt");
  for (std::size_t r = 1; r < rows.size(); ++r) ASSERT_EQ(rows[r].size(), header.size()) << "row " << r;

  EXPECT_EQ(rows[1][1], "2");
  EXPECT_EQ(rows[1][0], "0.067");
  EXPECT_EQ(rows[1][2], std::to_string(standin::userObjectId()));
  const auto& ai = rows[4];
  EXPECT_EQ(ai[1], "4");
  EXPECT_EQ(ai[2], std::to_string(id));
  EXPECT_EQ(ai[3], "SKY1");
  EXPECT_EQ(ai[4], "Boeing 737-800 \"Sky\", Blue");
  EXPECT_EQ(ai[5], "50.50000000");
  EXPECT_EQ(ai[7], "2500.00");
  EXPECT_EQ(ai[8], "2450.00");
  EXPECT_EQ(ai[11], "90.000");
  EXPECT_EQ(ai[12], "0");
  EXPECT_EQ(ai[14], "100.0");
  EXPECT_EQ(ai[15], "1");

  EXPECT_THROW(standin::startTrace(dir / "no" / "such" / "folder.csv"), std::runtime_error);
}

}  // namespace
}  // namespace orv::test
