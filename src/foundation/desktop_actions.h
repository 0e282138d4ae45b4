#pragma once
// The program's own uses of the desktop shell: showing folders to the user, message boxes,
// and the advice that goes with the offer of a new version.
#include <filesystem>
#include <string>
#include <string_view>

#include "foundation/program_info.h"

namespace orv {

// Opens the folder that holds `path` in the file manager; false when `path` does not exist
// or the shell refused.
bool gf_openInExplorer(const std::filesystem::path& path);

// Shows a message box; without a desktop the text goes to the log instead, so it is not lost.
// True when the box was shown.
bool gf_messageBox(std::string_view text, std::string_view title = kProgramName);

// The folder of parameters.xml, or a message box saying it could not be opened.
void gf_openParametersFolder();
// The folder of docs/Manual.pdf below the current directory, or a message box.
void gf_openManualFolder();

// A file can be created in the folder and takes a byte; the test file does not stay.
bool gf_folderWritable(const std::filesystem::path& folder);

// The text that offers a new version: it asks for the installer to be run as Administrator
// only when the installation folder is protected, not writable, and the process not elevated.
std::string gf_newVersionText(const std::filesystem::path& installFolder);

}  // namespace orv
