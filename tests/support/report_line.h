#pragma once
// A traffic line of the feed for the tests: an airliner in cruise near Frankfurt, with fields
// replaced by the test (field number to text).
#include <map>
#include <string>

namespace orv::test {

inline std::string reportLine(const std::map<int, std::string>& changes = {}) {
  std::map<int, std::string> f{
      {1, "4921232"},       {2, "50.0"},       {3, "8.5"},   {4, "30000"},   {5, "-64"},   {7, "90.0"},
      {8, "450"},           {9, "DLH400"},     {10, "A320"}, {11, "D-AIZA"}, {12, "FRA"},  {13, "JFK"},
      {14, "1790000000.5"}, {17, "adsb_icao"}, {20, "470"},  {23, "-1"},     {25, "91.0"}, {28, "A3"}};
  for (const auto& [i, v] : changes) f[i] = v;
  std::string line;
  for (int i = 0; i <= 28; ++i) {
    if (i) line += ',';
    if (auto it = f.find(i); it != f.end()) line += it->second;
  }
  return line;
}

}  // namespace orv::test
