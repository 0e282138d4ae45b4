#pragma once
// The folders of airport files below the working folder, and the texts that name files in
// them. Texts use "\" as the program has always written them; the file system is reached
// through gf_localPath.
#include <filesystem>
#include <string>
#include <string_view>

namespace orv {

inline constexpr std::string_view kAirportsFolder = "airports";
inline constexpr std::string_view kMyThirdPartyFolder = "airports\\my_thirdparty";
inline constexpr std::string_view kMySimAddonFolder = "airports\\my_simaddon";
inline constexpr std::string_view kLearnedFolder = "airports\\learned";
// Where a downloaded park airport file and the file of a neighbouring airport land.
inline constexpr std::string_view kParkAirportDownload = "airports\\park_airport.xml";
inline constexpr std::string_view kNeighbourDownload = "airports\\airport.xml";

// A text path as a path of this file system: "\" and "/" both separate folders.
std::filesystem::path gf_localPath(std::string_view text);

// The name ends in ".xml", in any case of letters.
bool gf_endsWithXml(std::string_view name);

// A name that begins with "airports" lies on this computer; any other lies on the server.
bool gf_isLocalAirportFile(std::string_view xmlName);

// The learned file that belongs to an airport file, relative to the airports folder
// ("learned\stock\EHAM.xml"); empty when the name tells none. The publisher counts only for
// files of the user's third-party folders.
std::string learnedPathOf(std::string_view xmlName, std::string_view publisher);

// The learned text as a path of this file system, below the airports folder.
std::filesystem::path gf_learnedFilePath(std::string_view learnedText);

}  // namespace orv
