#pragma once
// The parent's side of the kill test: does each file read back whole, with the old or the new value?
#include <filesystem>
#include <string>

#include "saver.h"

namespace orv::savekill {

// What a check found in a file that survived a kill.
struct Found {
  std::int64_t value = -1;  // -1: the file isn't there yet
  bool isNew = false;       // the value of the save under way, not of the last finished one
};

// Empty when the file is whole and holds the completed or the in-progress value; else what is wrong.
std::string checkParameters(const std::filesystem::path& file, const FileProgress& progress, Found& found);
std::string checkObjectList(const std::filesystem::path& file, const FileProgress& progress, Found& found);

// Temporary files of the atomic saves in a folder.
int countTemporaryFiles(const std::filesystem::path& folder);

}  // namespace orv::savekill
