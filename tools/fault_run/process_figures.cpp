#include "process_figures.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>

namespace fs = std::filesystem;

namespace orv::faultrun {

ProcessFigures processFigures() {
  ProcessFigures f;
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line)) {
    std::istringstream fields(line);
    std::string name;
    fields >> name;
    if (name == "VmRSS:") fields >> f.residentKb;
    if (name == "Threads:") fields >> f.threads;
  }
  std::error_code ec;
  for (auto it = fs::directory_iterator("/proc/self/fd", ec); !ec && it != fs::directory_iterator(); it.increment(ec))
    ++f.openFiles;
  return f;
}

std::string describe(const ProcessFigures& f) {
  return fmt::format("{:.1f} MB resident, {} threads, {} open files", megabytes(f.residentKb), f.threads, f.openFiles);
}

std::uint64_t udpDrops(std::uint16_t port) {
  // "sl local_address rem_address st ... drops", the address as hex "0100007F:PORT"; the
  // readers listen at 127.0.0.1 or at any address.
  std::ifstream table("/proc/net/udp");
  std::string line;
  std::getline(table, line);
  const std::string portText = fmt::format(":{:04X}", port);
  while (std::getline(table, line)) {
    std::istringstream fields(line);
    std::string slot, address, field;
    fields >> slot >> address;
    if (!address.ends_with(portText)) continue;
    std::string last;
    while (fields >> field) last = field;
    return std::stoull(last);
  }
  return 0;
}

}  // namespace orv::faultrun
