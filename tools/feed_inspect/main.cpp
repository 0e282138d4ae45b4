// feed_inspect: each traffic line of standard input through the decoder, one JSON object a line.
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "inspect_options.h"
#include "line_inspector.h"

int main(int argc, char** argv) {
  using namespace orv::inspect;
  const std::vector<std::string_view> arguments(argv + 1, argv + argc);
  InspectOptions options;
  try {
    options = parseOptions(arguments);
  } catch (const OptionError& e) {
    std::cerr << "feed_inspect: " << e.what() << "\n";
    return 2;
  }
  if (options.help) {
    std::cout << usageText();
    return 0;
  }
  try {
    LineInspector inspector(options.state);
    std::string line;
    while (std::getline(std::cin, line)) {
      // A file with CR LF line ends: the CR is no part of the datagram.
      if (!line.empty() && line.back() == '\r') line.pop_back();
      std::cout << jsonLine(inspector.inspect(line)) << '\n';
    }
  } catch (const std::exception& e) {
    std::cerr << "feed_inspect: " << e.what() << "\n";
    return 2;
  }
  return 0;
}
