#pragma once
// A recording of the feed: one datagram a line, "<seconds> <port> <datagram>", where seconds
// count from the start of the recording and port names the stream by its standard number
// (49005 traffic, 49004 weather). Lines starting with '#' are comments; "# epoch <unix seconds>"
// tells when second 0 was. A datagram that a text line cannot hold is written "hex:<bytes>".
#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace orv::standin {

inline constexpr std::uint16_t kTrafficPort = 49005;
inline constexpr std::uint16_t kWeatherPort = 49004;
inline constexpr std::uint16_t kLinkPort = 10747;

struct RecordedDatagram {
  double seconds = 0.0;
  std::uint16_t port = 0;
  std::string text;
};

struct Recording {
  std::optional<double> epoch;
  std::vector<RecordedDatagram> datagrams;
};

// What is wrong with a recording, with the line number where it is.
class RecordingError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Throws RecordingError "line <n>: <what>".
Recording parseRecording(std::string_view text);
// The same, with the file's name in front of the message; a file that can't be read too.
Recording loadRecording(const std::filesystem::path& file);

// One line without its line end, and the line that dates the recording.
std::string formatDatagramLine(const RecordedDatagram& datagram);
std::string formatEpochLine(double epoch);
std::string formatRecording(const Recording& recording);

}  // namespace orv::standin
