#include "stock_check.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <system_error>

#include "airportdata/airport_catalogue.h"
#include "airportdata/airport_file_load.h"
#include "airportdata/park_airport_file.h"
#include "download_site.h"
#include "foundation/log.h"
#include "foundation/sim_choice.h"
#include "refdata/download_site.h"

namespace fs = std::filesystem;

namespace orv {
namespace {

// A working folder of its own, with its own user folder: the load writes the download target
// and the parking settings of a first visit.
class PrivateWorkFolder {
 public:
  explicit PrivateWorkFolder(const fs::path& from) : previous_(fs::current_path()) {
    folder_ = fs::temp_directory_path() / fmt::format("orvane-check-stock-{}", static_cast<long>(::getpid()));
    fs::remove_all(folder_);
    fs::create_directories(folder_ / "input");
    fs::create_directories(folder_ / "airports");
    fs::create_directories(folder_ / "appdata");
    fs::copy_file(from / "input" / "airports.enc", folder_ / "input" / "airports.enc");
    ::setenv("ORVANE_APPDATA", (folder_ / "appdata").c_str(), 1);
    fs::current_path(folder_);
    gf_openLog(folder_ / "Log.txt");
  }
  ~PrivateWorkFolder() {
    gf_closeLog();
    std::error_code ec;
    fs::current_path(previous_, ec);
    fs::remove_all(folder_, ec);
  }

 private:
  fs::path previous_;
  fs::path folder_;
};

std::vector<std::string> stockCodes(const fs::path& folder) {
  std::vector<std::string> codes;
  std::error_code ec;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, ec))
    if (entry.path().extension() == ".xml") codes.push_back(entry.path().stem().string());
  std::sort(codes.begin(), codes.end());
  return codes;
}

std::size_t optionCount(const std::vector<Stand>& stands) {
  std::size_t n = 0;
  for (const Stand& stand : stands) n += stand.opts.size();
  return n;
}

void checkOne(const std::string& code, bool msfs2020, StockCheck& check) {
  ApfAirport airport;
  airport.icao = code;
  QualityFactors factors;
  std::vector<Stand> stands;
  const char* sim = msfs2020 ? "MSFS" : "MSFS2024";
  std::string failure;
  try {
    failure = gf_readApf(fmt::format("archive/stock/{}.xml", code), airport, factors, stands);
  } catch (const std::exception& e) {
    failure = e.what();
  }
  if (!failure.empty()) {
    check.faults.push_back(fmt::format("{} {}: {}", sim, code, failure));
    return;
  }
  const RtAirport* entry = findRtAirport(code);
  if (!entry || entry->stands < 1)
    check.faults.push_back(fmt::format("{}: the catalogue has no stands level for it", code));
  if (!msfs2020) return;
  ++check.files;
  check.stands += stands.size();
  check.options += optionCount(stands);
  check.lines.push_back(fmt::format("{} {:4} stands {:5} options, quality factor {}, stands level {}", code,
                                    stands.size(), optionCount(stands), qualityFactorText(factors),
                                    entry ? entry->stands : 0));
}

}  // namespace

StockCheck checkStockAirports(const fs::path& workFolder) {
  StockCheck check;
  const fs::path root = fs::absolute(workFolder / "download_site");
  try {
    PrivateWorkFolder work(fs::absolute(workFolder));
    DownloadSite site(root);
    gf_setDownloadSite(site.url());
    lf_clearAirportCatalogue();
    gf_readAirports();
    for (const bool msfs2020 : {true, false}) {
      gv_isMsfs2020 = msfs2020;
      const fs::path folder = root / "downloads" / (msfs2020 ? "MSFS" : "MSFS2024") / "archive" / "stock";
      for (const std::string& code : stockCodes(folder)) checkOne(code, msfs2020, check);
    }
    gv_isMsfs2020 = true;
  } catch (const std::exception& e) {
    check.faults.push_back(fmt::format("stock airport files: {}", e.what()));
  }
  return check;
}

}  // namespace orv
