#include "sim_drop_run.h"

#include <fmt/format.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <map>
#include <random>
#include <set>
#include <sstream>
#include <thread>
#include <vector>

#include "feed/feed_readers.h"
#include "foundation/time_text.h"
#include "platform/simconnect/standin_control.h"
#include "player.h"
#include "process_figures.h"
#include "program_under_test.h"
#include "recording.h"
#include "verdict.h"

namespace orv::faultrun {

namespace {

using namespace std::chrono_literals;

// Waits until the condition holds; false when the limit passed first.
template <class Condition>
bool waitUntil(Condition&& condition, std::chrono::seconds limit) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(5ms);
  }
  return true;
}

std::set<DWORD> objectIds() {
  std::set<DWORD> ids;
  for (const auto& o : standin::objects()) ids.insert(o.objectId);
  return ids;
}

}  // namespace

int runSimDrops(const SimRunOptions& options) {
  const unsigned seed = options.seed != 0 ? options.seed : std::random_device{}();
  std::mt19937 rng(seed);
  std::uniform_real_distribution<double> gap(1.0, 5.0);
  const standin::Recording recording =
      standin::loadRecording(kSourceFolder / "tests" / "data" / "recordings" / "eddf_midday.txt");

  ProgramUnderTest program;
  if (options.keep) program.keep();
  program.start();
  Verdict v;
  if (!program.waitForStage(RunStage::Running) || !program.waitForReaders()) {
    std::printf("simulator drop run: the program did not reach its running stage; log in %s\n",
                program.folder().c_str());
    program.keep();
    return 1;
  }
  // Every run after a restart reads on the same ports, so that the recording keeps reaching it.
  gv_trafficPort = gTrafficReader.boundPort.load();
  gv_qnhPort = gQnhReader.boundPort.load();
  standin::PlayOptions play;
  play.trafficPort = gv_trafficPort;
  play.weatherPort = gv_qnhPort;
  play.loop = true;
  std::ostringstream said;
  standin::Console console(said);
  std::atomic<bool> stop{false};
  standin::PlayCounts counts;
  std::thread player([&] { standin::play(recording, play, console, stop, counts); });

  // The scenario's own aircraft come in its first seconds; what stands after them is the world
  // without the program's aircraft.
  waitUntil([] { return standin::simTime() > 5.0; }, 30s);
  const std::set<DWORD> worldBefore = objectIds();
  std::vector<ProcessFigures> figures;
  std::vector<bool> trafficFlowed;
  int restarts = 0;
  std::vector<bool> aircraftBeforeLoss;
  for (int drop = 1; drop <= options.drops; ++drop) {
    // Each loss comes while the program has aircraft in the simulator, the first 30 seconds
    // behind the feed; then at a random moment.
    aircraftBeforeLoss.push_back(waitUntil(
        [&] {
          const std::set<DWORD> now = objectIds();
          return std::any_of(now.begin(), now.end(), [&](DWORD id) { return !worldBefore.contains(id); });
        },
        90s));
    std::this_thread::sleep_for(std::chrono::duration<double>(gap(rng)));
    trafficFlowed.push_back(waitUntil([] { return gv_feedTimestamp.load() != 0; }, 15s));
    figures.push_back(processFigures());
    standin::loseSessions();
    const bool ended = waitUntil([] { return gv_runStage.load() != RunStage::Running; }, 30s);
    const bool back = ended && program.waitForStage(RunStage::Running, 90s);
    if (!back) break;
    ++restarts;
  }
  std::this_thread::sleep_for(1s);
  trafficFlowed.push_back(waitUntil([] { return gv_feedTimestamp.load() != 0; }, 15s));
  figures.push_back(processFigures());
  stop = true;
  player.join();
  const int exitCode = program.close();
  const std::string log = program.log();
  const std::set<DWORD> worldAfter = objectIds();

  std::map<DWORD, int> removals;
  int creations = 0, failedRemovals = 0;
  const std::vector<standin::CallRecord> calls = standin::calls();
  for (const auto& call : calls) {
    if (call.session != "Orvane") continue;
    if (call.call == "SimConnect_AICreateNonATCAircraft" && call.result == S_OK) ++creations;
    if (call.call == "SimConnect_AIRemoveObject") {
      ++removals[call.objectId];
      if (call.result != S_OK) ++failedRemovals;
    }
  }
  int removedTwice = 0;
  for (const auto& [id, n] : removals) removedTwice += n > 1;

  std::printf("simulator drop run: %d session losses at random moments (seed %u), %d restarts\n", options.drops, seed,
              restarts);
  for (std::size_t i = 0; i < figures.size(); ++i) std::printf("  run %zu: %s\n", i + 1, describe(figures[i]).c_str());
  std::printf("  the program created %d aircraft in the simulator and removed %zu (%d twice, %d refused)\n", creations,
              removals.size(), removedTwice, failedRemovals);
  // The stand-in shares the process: its record of calls (at most 100000) grows with each run.
  std::printf("  the stand-in simulator holds %zu records of calls\n", calls.size());

  v.check(restarts == options.drops,
          fmt::format("the run came back after each loss ({} of {})", restarts, options.drops));
  v.check(countLines(log, "Exiting: SIMCONNECT ERROR") == static_cast<std::size_t>(options.drops) &&
              countLinesWith(log, "SimConnect request error") >= static_cast<std::size_t>(options.drops),
          "each loss ended the run with a SimConnect request error");
  v.check(countLines(log, "Restarting after 9 seconds") == static_cast<std::size_t>(options.drops) &&
              countLines(log, "Restart countdown finished") == static_cast<std::size_t>(options.drops),
          "each restart came after its 9 second countdown");
  v.check(countLines(log, "MSFS 2020 (") == static_cast<std::size_t>(options.drops + 1) &&
              std::find(trafficFlowed.begin(), trafficFlowed.end(), false) == trafficFlowed.end(),
          "the simulator connected and the traffic flowed in every run");
  v.check(exitCode == 0 && countLines(log, "Exiting: USER CLOSED SIM") == 1, "it ended only when closed");
  v.check(std::find(aircraftBeforeLoss.begin(), aircraftBeforeLoss.end(), false) == aircraftBeforeLoss.end(),
          "the program had aircraft in the simulator at each loss");
  v.check(removedTwice == 0 && failedRemovals == 0 && worldAfter == worldBefore,
          "every aircraft of the program was removed once, and none is left");
  const ProcessFigures& first = figures.front();
  const ProcessFigures& last = figures.back();
  v.check(last.threads == first.threads && last.openFiles == first.openFiles &&
              memoryFlat(first.residentKb, last.residentKb),
          fmt::format("threads, open files and memory stayed flat ({:+} threads, {:+} files, {:+.1f} MB)",
                      last.threads - first.threads, last.openFiles - first.openFiles,
                      megabytes(last.residentKb - first.residentKb)));
  if (v.failures > 0) {
    program.keep();
    std::printf("  the working folder and its Log.txt are kept in %s\n", program.folder().c_str());
  }
  return v.failures == 0 ? 0 : 1;
}

}  // namespace orv::faultrun
