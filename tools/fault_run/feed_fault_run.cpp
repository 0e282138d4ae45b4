#include "feed_fault_run.h"

#include <fmt/format.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <set>
#include <sstream>
#include <thread>
#include <vector>

#include "engine/engine_tables.h"
#include "engine/traffic_queue.h"
#include "fault_datagrams.h"
#include "feed/feed_readers.h"
#include "player.h"
#include "process_figures.h"
#include "program_under_test.h"
#include "recording.h"
#include "verdict.h"

namespace orv::faultrun {

namespace {

using namespace std::chrono_literals;

// The hexids of the recording's traffic lines, but for vehicles, which the decoder passes over.
std::set<std::uint32_t> recordedHexids(const standin::Recording& recording) {
  std::set<std::uint32_t> hexids;
  for (const auto& d : recording.datagrams) {
    if (d.port != standin::kTrafficPort || d.text.find(" VEH") != std::string::npos) continue;
    const auto first = d.text.find(',');
    if (first == std::string::npos) continue;
    hexids.insert(static_cast<std::uint32_t>(std::strtoul(d.text.c_str() + first + 1, nullptr, 10)));
  }
  return hexids;
}

}  // namespace

int runFeedFaults(const FeedRunOptions& options) {
  const standin::Recording recording =
      standin::loadRecording(kSourceFolder / "tests" / "data" / "recordings" / "eddf_midday.txt");
  ProgramUnderTest program;
  if (options.keep) program.keep();
  program.start();
  if (!program.waitForStage(RunStage::Running) || !program.waitForReaders()) {
    std::printf("feed fault run: the program did not reach its running stage; log in %s\n", program.folder().c_str());
    program.keep();
    return 1;
  }
  const std::uint16_t trafficPort = gTrafficReader.boundPort.load();
  const std::uint16_t weatherPort = gQnhReader.boundPort.load();

  standin::PlayOptions play;
  play.trafficPort = trafficPort;
  play.weatherPort = weatherPort;
  play.speed = options.speed;
  play.loop = true;
  play.faults.repeatEvery = 7;
  play.faults.malformedEvery = 5;
  play.faults.oversizeEvery = 11;
  play.faults.truncateEvery = 3;
  play.faults.reorderEvery = 13;
  play.faults.floodPerSecond = options.floodPerSecond;
  std::ostringstream said;
  standin::Console console(said);
  std::atomic<bool> stop{false};
  standin::PlayCounts counts;
  std::thread player([&] { standin::play(recording, play, console, stop, counts); });

  // Memory is taken once the program has settled into the fault traffic, and at the end.
  const auto begin = std::chrono::steady_clock::now();
  const auto warmUp = std::chrono::duration<double>(std::min(5.0, options.seconds / 4));
  std::this_thread::sleep_for(warmUp);
  const ProcessFigures before = processFigures();
  ProcessFigures highest = before;
  while (std::chrono::steady_clock::now() - begin < std::chrono::duration<double>(options.seconds)) {
    std::this_thread::sleep_for(500ms);
    const ProcessFigures now = processFigures();
    if (now.residentKb > highest.residentKb) highest = now;
  }
  // Taken while the faults still come, as the first figures were.
  const ProcessFigures after = processFigures();
  const RunStage stageAtEnd = gv_runStage.load();
  stop = true;
  player.join();
  // What is on its way is read before the log is counted.
  std::this_thread::sleep_for(500ms);
  const std::uint64_t trafficDrops = udpDrops(trafficPort);
  const std::uint64_t weatherDrops = udpDrops(weatherPort);
  const int exitCode = program.close();
  const std::string log = program.log();

  const std::size_t trafficLogged = countLines(log, "exception in processLineSub: ");
  const std::size_t weatherLogged =
      countLines(log, "no QNH ") + countLines(log, "==> QNH string parse error: ") + countLines(log, "Exception ");
  const std::size_t overlongLogged = countLines(log, "buffer overrun: ");
  const int trafficMust = counts.trafficMustLog, trafficMay = counts.trafficMayLog;
  const int weatherMust = counts.weatherMustLog, overlongMust = counts.overlongMustLog;
  const std::set<std::uint32_t> hexids = recordedHexids(recording);
  std::size_t liveFromRecording = 0;
  for (const LiveAc& ac : gLiveAc) liveFromRecording += hexids.contains(ac.hexid);
  const long grownKb = after.residentKb - before.residentKb;

  std::printf("feed fault run: %.0f s, recording at speed %g, flood %d a second\n", options.seconds, options.speed,
              options.floodPerSecond);
  std::printf(
      "  sent: %d traffic and %d weather lines of the recording (%d of them held back), %d repeated, %d "
      "malformed, %d cut, %d overlong, %d flooded; %d sends failed\n",
      counts.traffic.load(), counts.weather.load(), counts.reordered.load(), counts.repeated.load(),
      counts.malformed.load(), counts.truncated.load(), counts.oversize.load(), counts.flooded.load(),
      counts.failed.load());
  std::printf(
      "  rejected with a log line: %zu traffic lines (%d must, %d more may), %zu weather lines (of %d), %zu "
      "overlong datagrams (of %d); the system dropped %llu traffic and %llu weather datagrams unread\n",
      trafficLogged, trafficMust, trafficMay, weatherLogged, weatherMust, overlongLogged, overlongMust,
      static_cast<unsigned long long>(trafficDrops), static_cast<unsigned long long>(weatherDrops));
  std::printf("  memory: %s after %.0f s, %s at the end (highest %.1f MB); grown %+.1f MB\n", describe(before).c_str(),
              warmUp.count(), describe(after).c_str(), megabytes(highest.residentKb), megabytes(grownKb));
  std::printf("  engine: %zu live records, %zu of them aircraft of the recording; %zu messages left in the queue\n",
              gLiveAc.size(), liveFromRecording, gTrafficQueue.size());

  Verdict v;
  v.check(stageAtEnd == RunStage::Running, "the run was still running at the end");
  v.check(exitCode == 0 && countLines(log, "Exiting: USER CLOSED SIM") == 1,
          "it ended only when closed, with exit code 0");
  const auto drops = trafficDrops + weatherDrops;
  v.check(trafficLogged <= static_cast<std::size_t>(trafficMust + trafficMay) &&
              trafficLogged + trafficDrops >= static_cast<std::size_t>(trafficMust),
          "each broken traffic line that arrived was logged, and no good one");
  v.check(weatherLogged <= static_cast<std::size_t>(weatherMust) &&
              weatherLogged + weatherDrops >= static_cast<std::size_t>(weatherMust),
          "each broken weather line that arrived was logged");
  v.check(overlongLogged <= static_cast<std::size_t>(overlongMust) &&
              overlongLogged + drops >= static_cast<std::size_t>(overlongMust),
          "each overlong datagram that arrived was logged");
  v.check(memoryFlat(before.residentKb, after.residentKb) && after.threads == before.threads &&
              after.openFiles == before.openFiles,
          kAddressSanitizer ? "threads and open files stayed flat (memory: the sanitizer's leak check at exit)"
                            : "memory, threads and open files stayed flat");
  v.check(liveFromRecording >= hexids.size() / 4,
          fmt::format("the recording's aircraft reached the engine ({} of {})", liveFromRecording, hexids.size()));
  if (v.failures > 0) {
    program.keep();
    std::printf("  the working folder and its Log.txt are kept in %s\n", program.folder().c_str());
  }
  return v.failures == 0 ? 0 : 1;
}

}  // namespace orv::faultrun
