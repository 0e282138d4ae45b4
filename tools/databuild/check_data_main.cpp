// check_data WORKFOLDER: reads input/dbase.enc, input/airports.enc and input/ICAO_airports.txt of a
// working folder the way the program does, prints the reader's log and the counts, and fails
// when the data is smaller than the program needs or a check of the dbase finds a fault.
#include <pugixml.hpp>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

#include "dbase_check.h"
#include "stock_check.h"
#include "foundation/log.h"
#include "refdata/data_file_crypto.h"
#include "refdata/dbase_reader.h"
#include "refdata/valid_codes.h"

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kMinRegistrations = 10000;
constexpr std::size_t kMinModels = 500;
constexpr std::size_t kMinAirlines = 1000;
constexpr std::size_t kMinAirports = 1000;
// Of the types most used by the known registrations, how many must have a wing span.
constexpr std::size_t kCommonTypesWithWingspan = 300;
constexpr std::size_t kMinStockFiles = 40;
constexpr std::size_t kMinStockStands = 3000;
constexpr std::size_t kMinStockOptions = 10000;

std::size_t countAirports(const fs::path& input) {
  const fs::path plain = fs::temp_directory_path() / "orvane-check-airports.xml";
  if (!orv::decryptDataFile(input / "airports.enc", plain)) return 0;
  pugi::xml_document doc;
  const bool loaded = doc.load_file(plain.c_str());
  orv::removeDataFile(plain);
  if (!loaded) return 0;
  const pugi::xml_node airports = doc.child("root").child("airports");
  return static_cast<std::size_t>(std::distance(airports.children("ap").begin(), airports.children("ap").end()));
}

std::size_t countIcaoCodes(const fs::path& file) {
  std::ifstream in(file);
  std::size_t count = 0;
  for (std::string line; std::getline(in, line);) {
    std::stringstream fields(line);
    for (std::string field; std::getline(fields, field, ',');)
      if (field.size() == 4) ++count;
  }
  return count;
}

std::string readAll(const fs::path& file) {
  std::ifstream in(file);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

// Every stock airport file read back through the program's loader, after the dbase, whose
// registrations the options use.
bool stockAirportsGood(const fs::path& workFolder) {
  const orv::StockCheck stock = orv::checkStockAirports(workFolder);
  for (const std::string& line : stock.lines) std::printf("check_data: %s\n", line.c_str());
  for (const std::string& fault : stock.faults) std::fprintf(stderr, "check_data: %s\n", fault.c_str());
  std::printf("check_data: %zu stock airport files, %zu stands, %zu options, each read for MSFS 2020 and 2024\n",
              stock.files, stock.stands, stock.options);
  const bool enough = stock.files >= kMinStockFiles && stock.stands >= kMinStockStands &&
                      stock.options >= kMinStockOptions;
  if (!enough) std::fprintf(stderr, "check_data: too few stock airport files, stands or options\n");
  return enough && stock.faults.empty();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s WORKFOLDER\n", argv[0]);
    return 2;
  }
  const fs::path input = fs::path(argv[1]) / "input";
  const fs::path logFolder = fs::temp_directory_path() / "orvane-check-data";
  fs::create_directories(logFolder);
  orv::gf_openLog(logFolder / "Log.txt");
  bool read = false;
  try {
    read = orv::gf_readDbaseFile(input / "dbase.enc");
  } catch (const std::exception& e) {
    orv::gf_logError(e.what());
  }
  orv::gf_closeLog();
  std::printf("%s", readAll(logFolder / "Log.txt").c_str());
  fs::remove_all(logFolder);

  const std::size_t airports = countAirports(input);
  const std::size_t icaoCodes = countIcaoCodes(input / "ICAO_airports.txt");
  const orv::DbaseCheck check = orv::checkDbaseTables(kCommonTypesWithWingspan);
  std::printf("check_data: %zu registrations, %zu model codes (%zu with a wing span), %zu airline codes, "
              "%zu catalogue airports, %zu ICAO codes\n",
              check.registrations, check.models, check.modelsWithWingspan, check.airlines, airports, icaoCodes);
  for (const std::string& fault : check.faults) std::fprintf(stderr, "check_data: %s\n", fault.c_str());
  if (read && check.faults.empty())
    std::printf("check_data: every registration has a valid model and no airline or a valid one; every model "
                "of the classes Large, Heavy and Buzjets and the %zu most common types have a wing span\n",
                kCommonTypesWithWingspan);
  const bool enough = read && check.registrations >= kMinRegistrations && check.models >= kMinModels &&
                      check.airlines >= kMinAirlines && orv::isValidAirline("ZZZ") && orv::isValidAirline("PVT") &&
                      airports >= kMinAirports && icaoCodes >= airports;
  if (!enough) std::fprintf(stderr, "check_data: the reference data is incomplete\n");
  if (!check.faults.empty())
    std::fprintf(stderr, "check_data: %zu faults in the dbase\n", check.faults.size());
  const bool stockGood = stockAirportsGood(argv[1]);
  return enough && check.faults.empty() && stockGood ? 0 : 1;
}
