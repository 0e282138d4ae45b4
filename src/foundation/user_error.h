#pragma once
// The error that the user must act on: a numeric code and a text for the message area.
#include <fmt/format.h>

#include <stdexcept>
#include <string>

namespace orv {

class UserErrorException : public std::runtime_error {
 public:
  UserErrorException(int code, const std::string& text);
  template <class A0, class... A>
  UserErrorException(int code, fmt::format_string<A0, A...> f, A0&& a0, A&&... a)
      : UserErrorException(code, fmt::format(f, std::forward<A0>(a0), std::forward<A>(a)...)) {}

  int code() const noexcept { return code_; }
  const std::string& text() const noexcept { return text_; }

 private:
  int code_;
  std::string text_;
};

// The codes, with the texts they carry ("{}" places are filled by the raiser).
namespace user_error {
inline constexpr int kWrongFolder = 41;  // "{} must be run from the {} folder!"
inline constexpr int kNoAiPackages = 43;
inline constexpr int kExitFirst = 48;
inline constexpr int kFileNotFound = 51;
inline constexpr int kNoLiveriesSection = 52;
inline constexpr int kNoLiveries = 53;
inline constexpr int kXmlStructure = 61;
inline constexpr int kParameterNotFound = 65;
inline constexpr int kUnknownSimulator = 77;
inline constexpr int kTooManyRefused = 81;
inline constexpr int kDecryptedRead = 88;
inline constexpr int kStandAttribute = 93;
inline constexpr int kStandTwice = 94;
inline constexpr int kSimConnectVersion = 95;
inline constexpr int kSimConnectException = 111;
inline constexpr int kNewVersionFailed = 112;
inline constexpr int kNoLiveriesFound = 143;
inline constexpr int kNoInstallPath = 150;
inline constexpr int kPathMissing = 243;
inline constexpr int kFileMissing = 522;
inline constexpr int kNoLiveriesInFile = 533;
inline constexpr int kMissingAttribute = 999;  // what() gives the text alone
inline constexpr int kOtherSimulator = 2024;   // empty text

inline constexpr const char* kWrongFolderText = "{} must be run from the {} folder!";
inline constexpr const char* kNoAiPackagesText =
    "Automatic scan has not found any AI packages, choose a different selection (or go to Manual mode, see Manual "
    "5.2)";
inline constexpr const char* kExitFirstText =
    "Exit {} first!   Then set one or more lfolder parameters to your liveries, see Manual 5.2";
inline constexpr const char* kFileNotFoundText = "File {} not found";
inline constexpr const char* kNoLiveriesSectionText = "{} does not contain a <liveries> section";
inline constexpr const char* kNoLiveriesText = "no liveries found";
inline constexpr const char* kXmlRootMissingText = "XML root missing: ";
inline constexpr const char* kMissingSectionText = "Missing section: ";
inline constexpr const char* kEmptyAttributeText = "In XML file section [{}], element [{}], attribute [{}] is empty.";
inline constexpr const char* kParameterNotFoundText = "Parameter {} not found";
inline constexpr const char* kUnknownSimulatorText = "'{}' not being MSFS 2020 or MSFS 2024 connects ... ?";
inline constexpr const char* kTooManyRefusedText = "There are too many liveries that could not be created!";
inline constexpr const char* kSeeLogText = "{}, see Log.txt";
inline constexpr const char* kStandEmptyAttributeText = "Stand #{} has empty '{}' attribute.";
inline constexpr const char* kParkingNoAttributeText = "Parking position #{} has no '{}' attribute.";
inline constexpr const char* kStandTwiceText = "Stand '{}' appears more than once.";
inline constexpr const char* kSimConnectVersionText = "SimConnect Version Mismatch, dwIndex: {}";
inline constexpr const char* kSimConnectExceptionText = "SimConnect EXCEPTION id={} sendID={} index={}";
inline constexpr const char* kNewVersionFailedText =
    "The downloading/unzipping of the new version failed? Try manually via the Tarnwell website";
inline constexpr const char* kNoLiveriesFoundText =
    "Automatic scan has not found any liveries, choose a different selection, or switch off automatic and set "
    "lfolder parameter(-s)";
inline constexpr const char* kNoInstallPathText =
    "No install path detected. Type the full path to your Community folder above, then press Enter";
inline constexpr const char* kPathMissingText = "the path pointed to by parameter '{}' does not exist, see Log.txt!";
inline constexpr const char* kFileMissingText = "File '{}' is missing?";
inline constexpr const char* kNoLiveriesInFileTail = " does not contain liveries";
inline constexpr const char* kMissingAttributeText = "Missing required attribute '{}' in <{}>";
}  // namespace user_error

}  // namespace orv
