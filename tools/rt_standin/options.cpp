#include "options.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>

namespace orv::standin {

namespace {

struct Reader {
  const std::vector<std::string_view>& arguments;
  std::size_t next = 0;

  std::string_view valueOf(std::string_view option) {
    if (next >= arguments.size()) throw OptionError(fmt::format("{} needs a value", option));
    return arguments[next++];
  }
};

std::uint16_t portValue(std::string_view option, std::string_view text) {
  unsigned value = 0;
  const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || ec != std::errc{} || end != text.data() + text.size() || value > 65535)
    throw OptionError(fmt::format("{} {}: not a port number (0 to 65535)", option, text));
  return static_cast<std::uint16_t>(value);
}

int countValue(std::string_view option, std::string_view text) {
  int value = 0;
  const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || ec != std::errc{} || end != text.data() + text.size() || value < 0)
    throw OptionError(fmt::format("{} {}: not a whole number of 0 or more", option, text));
  return value;
}

double secondsValue(std::string_view option, std::string_view text, bool zeroAllowed) {
  double value = 0.0;
  const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || ec != std::errc{} || end != text.data() + text.size() || !std::isfinite(value) ||
      value < 0.0 || (!zeroAllowed && value == 0.0))
    throw OptionError(fmt::format("{} {}: not a number {}", option, text, zeroAllowed ? "of 0 or more" : "above 0"));
  return value;
}

}  // namespace

StandinOptions parseOptions(const std::vector<std::string_view>& arguments) {
  StandinOptions o;
  Reader r{arguments};
  while (r.next < arguments.size()) {
    const std::string_view option = arguments[r.next++];
    if (option == "--help" || option == "-h") {
      o.help = true;
    } else if (option == "--tcp-port") {
      o.linkOptions.port = portValue(option, r.valueOf(option));
    } else if (option == "--no-link") {
      o.link = false;
    } else if (option == "--level") {
      const std::string_view text = r.valueOf(option);
      if (text == "none") {
        o.linkOptions.reply.level.reset();
      } else {
        o.linkOptions.reply.level = countValue(option, text);
      }
    } else if (option == "--rt-version") {
      o.linkOptions.reply.version = std::string(r.valueOf(option));
    } else if (option == "--reply") {
      const std::string_view text = r.valueOf(option);
      const auto form = replyFormOf(text);
      if (!form) throw OptionError(fmt::format("--reply {}: one of object, empty, malformed, array, silent", text));
      o.linkOptions.reply.form = *form;
    } else if (option == "--retry") {
      o.linkOptions.retrySeconds = secondsValue(option, r.valueOf(option), false);
    } else if (option == "--position-every") {
      o.linkOptions.positionEvery = std::max(1, countValue(option, r.valueOf(option)));
    } else if (option == "--drop-after") {
      o.linkOptions.dropAfterSeconds = secondsValue(option, r.valueOf(option), true);
    } else if (option == "--play") {
      o.playFile = std::filesystem::path(r.valueOf(option));
    } else if (option == "--speed") {
      o.playOptions.speed = secondsValue(option, r.valueOf(option), false);
    } else if (option == "--time-scale") {
      o.playOptions.speed = secondsValue(option, r.valueOf(option), false);
      o.playOptions.scaledClock = true;
    } else if (option == "--loop") {
      o.playOptions.loop = true;
    } else if (option == "--keep-timestamps") {
      o.playOptions.shiftTimestamps = false;
    } else if (option == "--verbose") {
      o.playOptions.verbose = true;
    } else if (option == "--traffic-port") {
      o.playOptions.trafficPort = o.recordOptions.trafficPort = portValue(option, r.valueOf(option));
    } else if (option == "--weather-port") {
      o.playOptions.weatherPort = o.recordOptions.weatherPort = portValue(option, r.valueOf(option));
    } else if (option == "--record") {
      o.recordFile = std::filesystem::path(r.valueOf(option));
    } else if (option == "--any-address") {
      o.recordOptions.anyAddress = true;
    } else if (option == "--repeat-every") {
      o.playOptions.faults.repeatEvery = countValue(option, r.valueOf(option));
    } else if (option == "--malformed-every") {
      o.playOptions.faults.malformedEvery = countValue(option, r.valueOf(option));
    } else if (option == "--oversize-every") {
      o.playOptions.faults.oversizeEvery = countValue(option, r.valueOf(option));
    } else if (option == "--truncate-every") {
      o.playOptions.faults.truncateEvery = countValue(option, r.valueOf(option));
    } else if (option == "--reorder-every") {
      o.playOptions.faults.reorderEvery = countValue(option, r.valueOf(option));
    } else if (option == "--flood") {
      o.playOptions.faults.floodPerSecond = countValue(option, r.valueOf(option));
    } else if (option == "--duration") {
      o.durationSeconds = secondsValue(option, r.valueOf(option), true);
    } else {
      throw OptionError(fmt::format("unknown option {} (see --help)", option));
    }
  }
  if (!o.help && !o.link && o.playFile.empty() && o.recordFile.empty())
    throw OptionError("nothing to do: --no-link without --play or --record");
  return o;
}

std::string usageText() {
  return R"(rt_standin: plays RealTraffic's side of the feed, so that Orvane runs without RealTraffic.

Usage: rt_standin [options]

RealTraffic link (TCP; Orvane is the server):
  --tcp-port N          Orvane's port (default 10747)
  --no-link             don't connect to Orvane
  --level N|none        level in the version reply; 2 is the professional edition (default 2)
  --rt-version TEXT     version in the version reply (default 9.0)
  --reply FORM          object (default), empty, malformed, array or silent
  --retry S             seconds between connection attempts (default 1)
  --position-every N    show only every N-th Qs121 (default 1)

Feed (UDP to 127.0.0.1):
  --play FILE           send the recording FILE
  --speed N             N times faster than recorded (default 1)
  --time-scale N        N times faster, report times on a clock N times faster from the start
  --loop                start the recording again after its end
  --keep-timestamps     send report times as recorded instead of moving them to the present
  --traffic-port N      traffic port (default 49005)
  --weather-port N      weather port (default 49004)
  --verbose             show every datagram sent
  --record FILE         listen on the traffic and weather ports and write what arrives
  --any-address         listen at any address instead of 127.0.0.1 when recording

Faults:
  --drop-after S        cut each TCP connection S seconds after it was made
  --repeat-every N      send every N-th datagram twice
  --malformed-every N   send a broken datagram after every N-th
  --oversize-every N    send a 16384-byte datagram after every N-th
  --truncate-every N    send every N-th datagram again, cut short
  --reorder-every N     hold every N-th datagram back and send it after the next one
  --flood N             send N broken datagrams a second besides the recording

  --duration S          end after S seconds (default: at Ctrl-C; with --no-link and without
                        --record also when the recording has been played)
  --help                this text
)";
}

}  // namespace orv::standin
