// The user's list of park airports: the input is airports/my_park_airports.txt. It is read
// against a small catalogue; the head of the list is written back into the file, which then
// reads again.
#include <cstdint>
#include <filesystem>
#include <set>
#include <string>

#include "airportdata/airport_catalogue.h"
#include "data_file_encrypt.h"
#include "fuzz_support.h"
#include "parking/park_airports.h"

using namespace orv;
namespace fs = std::filesystem;

namespace {

// What the list promises whatever the file said: known airports, each once.
void checkList() {
  std::set<std::string> codes;
  for (const ParkAirportEntry& e : gParkAirports) {
    fuzz::check(findRtAirport(e.icao.view()) != nullptr, "a listed airport is in the catalogue");
    fuzz::check(codes.insert(e.icao.str()).second, "an airport is listed once");
    fuzz::check(e.stand.find(',') == std::string::npos, "a stand id holds no separator");
  }
}

bool printable(const std::string& text) {
  for (const char c : text)
    if (static_cast<unsigned char>(c) < 0x20) return false;
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::InScratch inScratch;
  static const bool ready = [] {
    fs::create_directories("airports/my_thirdparty");
    fs::create_directories("input");
    fuzz::writeInput("input/airports.enc",
                     gf_encryptBytes(gf_dataKey(), R"(<?xml version="1.0"?><root><airports>)"
                                                   R"(<ap c="EHAM" la="52.3" lo="4.76" a="-11" s="1"/>)"
                                                   R"(<ap c="EDDF" la="50.03" lo="8.57" a="364" s="1"/>)"
                                                   R"(<ap c="KORD" la="41.98" lo="-87.9" a="672" s="1"/>)"
                                                   R"(</airports></root>)"));
    fuzz::writeInput("airports/my_thirdparty/EDDF.xml", "<root/>");
    return gf_readAirports();
  }();
  fuzz::check(ready, "the catalogue reads");

  fuzz::writeInput("airports/my_park_airports.txt", fuzz::textOf(data, size));
  lf_readMyParkAirports();
  checkList();
  if (gParkAirports.empty()) return 0;
  const ParkAirportEntry head = gParkAirports.front();
  updateParkFile();
  lf_readMyParkAirports();
  checkList();
  bool found = false;
  for (const ParkAirportEntry& e : gParkAirports)
    if (e.icao == head.icao) found = !printable(head.stand) || e.stand == head.stand;
  fuzz::check(found, "the head written back reads back with its stand");
  return 0;
}
