#pragma once
// Counting and emptying folders. Failures to remove are logged and never stop the rest.
#include <cstddef>
#include <filesystem>

namespace orv {

// The entries directly in the folder; 0 when it does not exist or cannot be read.
std::size_t gf_countEntries(const std::filesystem::path& folder);

// Removes the regular files directly in the folder; subfolders stay.
void gf_removeFilesIn(const std::filesystem::path& folder);

// Removes what a recursive walk of the folder finds, in the walk's order. A subfolder comes
// before its contents, so one that is not empty at its turn stays (and is logged), while
// the files inside it go. A path that is no folder is no error.
void gf_removeEntriesBelow(const std::filesystem::path& folder);

}  // namespace orv
