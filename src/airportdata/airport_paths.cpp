#include "airportdata/airport_paths.h"

#include <algorithm>
#include <cctype>

#include "foundation/text_utils.h"

namespace orv {
namespace {

std::string fileNameOf(std::string_view path) {
  const auto slash = path.rfind('\\');
  return std::string(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

// A publisher as a folder name: "%20" is a blank, separators are blanks, the ends trimmed.
std::string cleanPublisher(std::string_view text) {
  std::string clean;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.substr(i, 3) == "%20") {
      clean += ' ';
      i += 2;
    } else {
      clean += text[i] == '/' || text[i] == '\\' ? ' ' : text[i];
    }
  }
  const auto first = clean.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  return clean.substr(first, clean.find_last_not_of(' ') - first + 1);
}

std::string thirdPartyPath(const std::string& publisher, std::string_view path) {
  if (publisher.empty()) return {};
  return "learned\\thirdparty\\" + publisher + "\\" + fileNameOf(path);
}

std::string learnedFromArchive(std::string_view path) {
  constexpr std::string_view stock = "archive\\stock\\", simaddon = "archive\\simaddon\\",
                             thirdParty = "archive\\thirdparty\\";
  if (path.starts_with(stock)) return "learned\\stock\\" + fileNameOf(path);
  if (path.starts_with(simaddon)) return "learned\\simaddon\\" + fileNameOf(path);
  const auto at = path.find(thirdParty);
  if (at == std::string_view::npos) return {};
  const std::string_view rest = path.substr(at + thirdParty.size());
  const auto end = rest.find('\\');
  if (end == std::string_view::npos) return {};
  return thirdPartyPath(cleanPublisher(rest.substr(0, end)), path);
}

std::string learnedFromLocal(std::string_view rest, std::string_view publisher) {
  if (rest.starts_with("my_thirdparty2024\\") || rest.starts_with("my_thirdparty\\"))
    return thirdPartyPath(cleanPublisher(publisher), rest);
  // Learning saves the files of the simulator's own add-ons in learned\simaddon: read them there.
  constexpr std::string_view mySimAddon = "my_simaddon\\";
  if (rest.starts_with(mySimAddon)) return "learned\\simaddon\\" + std::string(rest.substr(mySimAddon.size()));
  // stock\... and anything else keep their place below learned.
  return "learned\\" + std::string(rest);
}

}  // namespace

bool gf_endsWithXml(std::string_view name) {
  if (name.size() < 4) return false;
  std::string tail(name.substr(name.size() - 4));
  std::transform(tail.begin(), tail.end(), tail.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return tail == ".xml";
}

std::filesystem::path gf_localPath(std::string_view text) {
  std::string generic(text);
  std::replace(generic.begin(), generic.end(), '\\', '/');
  // Shown to the user as this system writes paths.
  return std::filesystem::path(generic).make_preferred();
}

bool gf_isLocalAirportFile(std::string_view xmlName) { return xmlName.starts_with(kAirportsFolder); }

std::string learnedPathOf(std::string_view xmlName, std::string_view publisher) {
  if (xmlName.empty()) return {};
  std::string path(xmlName);
  std::replace(path.begin(), path.end(), '/', '\\');
  if (!gf_endsWithXml(path)) return {};
  if (path.starts_with("archive\\")) return learnedFromArchive(path);
  if (path.find("archive\\thirdparty\\") != std::string::npos) return learnedFromArchive(path);
  constexpr std::string_view airports = "airports\\";
  if (path.starts_with(airports)) return learnedFromLocal(std::string_view(path).substr(airports.size()), publisher);
  return {};
}

std::filesystem::path gf_learnedFilePath(std::string_view learnedText) {
  return gf_localPath(kAirportsFolder) / gf_localPath(learnedText);
}

}  // namespace orv
