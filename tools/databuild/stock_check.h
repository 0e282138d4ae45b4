#pragma once
// The stock airport files of a working folder read back as the program reads them: each one
// fetched from the local download site and loaded by gf_readApf, for both simulators.
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace orv {

struct StockCheck {
  std::size_t files = 0;  // of one simulator
  std::size_t stands = 0;
  std::size_t options = 0;
  std::vector<std::string> lines;   // one per airport: code, stands, options, quality factor
  std::vector<std::string> faults;  // a file that failed, or an airport the catalogue gives no stands level
};

// Serves workFolder/download_site on loopback and reads every file of it in a private working
// folder that holds a copy of workFolder/input/airports.enc.
StockCheck checkStockAirports(const std::filesystem::path& workFolder);

}  // namespace orv
