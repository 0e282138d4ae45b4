#pragma once
// output/LiveriesScanned.xml: the catalogue in which a scan leaves the liveries it found, read
// back at every start.
#include <filesystem>
#include <list>
#include <string>
#include <string_view>

#include "liveries/livery_record.h"

namespace orv {

inline constexpr const char* kLiveriesScannedFile = "output/LiveriesScanned.xml";

// The records between the start of a scan and the end of gf_processScannedLiveries; in the
// catalogue's order after writing and after reading.
extern std::list<LiveryRecord> liveriesScannedList;

// Sorts the list and writes it in that order, with the meta block for gv_simGeneration, and logs
// the count. Nothing when the list is empty.
void gf_saveLiveriesScanned(const std::filesystem::path& file = kLiveriesScannedFile);

// Replaces the list by the catalogue's records, sorted, and logs the count. Throws
// UserErrorException 51 (no file or not XML), 52 (no `liveries`), 999 (a record without `a`, `m`
// or `t`) or 533 (no record).
void gf_readLiveriesScanned(const std::filesystem::path& file = kLiveriesScannedFile);

// The same from the text of a catalogue; `name` stands for the file in the messages.
void lf_readLiveriesScannedText(std::string_view xml, const std::string& name);

}  // namespace orv
