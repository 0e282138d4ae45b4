#pragma once
// The stand-in's command line.
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "player.h"
#include "recorder.h"
#include "rt_link.h"

namespace orv::standin {

struct StandinOptions {
  bool link = true;
  LinkOptions linkOptions;
  std::filesystem::path playFile;  // empty: nothing to play
  PlayOptions playOptions;
  std::filesystem::path recordFile;  // empty: no recording
  RecordOptions recordOptions;
  double durationSeconds = 0.0;  // 0: until interrupted
  bool help = false;
};

class OptionError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The arguments without the program's name. Throws OptionError with a message for the user.
StandinOptions parseOptions(const std::vector<std::string_view>& arguments);
std::string usageText();

}  // namespace orv::standin
