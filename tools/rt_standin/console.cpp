#include "console.h"

#include <fmt/format.h>

namespace orv::standin {

void say(Console& console, std::string_view text) {
  const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - console.start;
  const std::lock_guard lock(console.mutex);
  console.out << fmt::format("[{:9.3f}] {}\n", elapsed.count(), text);
  console.out.flush();
}

}  // namespace orv::standin
