#pragma once
// An airport file as the program writes it: an archived file, complete and without options
// (the scan), or a learned file that holds what differs from the archived one.
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "airportdata/stands.h"
#include "foundation/fixed_code.h"

namespace orv {

struct AirportFile {
  FixedCode<4> icao;  // none: written as twenty blanks
  bool facilities = false;
  std::string airportName;
  std::filesystem::path bglPathWide;  // the BGL file's path in its native form
  std::string bglPath;
  std::string publisher;  // "stock", "simaddon", a third-party publisher, or empty when unknown
  std::string title;
  std::string version;
  std::string manufacturer;
  std::string creator;
  bool hasManifest = false;
  std::int32_t qfReal = -1;  // -1: unset
  std::int32_t qfSoft = -1;
  std::int32_t altitude = 0;  // feet
  std::vector<Stand> stands;
};

enum class ApfMode { Learned = 0, Archive = 1 };

// Builds the document and saves it; false when the save failed. The parent folder of the path
// must exist. simNumber is 1 for MSFS 2020, 2 for MSFS 2024. A handmade airport (gv_handmade)
// is written whole.
bool writeAirportFile(const AirportFile& file, const std::filesystem::path& path, ApfMode mode, std::int32_t simNumber);

}  // namespace orv
