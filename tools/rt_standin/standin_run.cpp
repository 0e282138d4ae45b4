#include "standin_run.h"

#include <fmt/format.h>

#include <chrono>
#include <fstream>
#include <thread>

#include "stop_wait.h"

namespace orv::standin {

int runStandin(const StandinOptions& options, Console& console, std::atomic<bool>& stop) {
  // Everything that can fail for a reason the user must fix fails here, before any thread runs.
  Recording recording;
  if (!options.playFile.empty()) recording = loadRecording(options.playFile);
  RecorderSockets recorderSockets;
  std::ofstream recordOut;
  if (!options.recordFile.empty()) {
    recorderSockets = openRecorder(options.recordOptions);
    recordOut.open(options.recordFile, std::ios::binary | std::ios::trunc);
    if (!recordOut) {
      net::closeSocket(recorderSockets.traffic);
      net::closeSocket(recorderSockets.weather);
      throw std::runtime_error(fmt::format("{}: cannot be written", options.recordFile.string()));
    }
  }

  LinkCounts linkCounts;
  PlayCounts playCounts;
  std::atomic<bool> playing{!options.playFile.empty()};
  std::atomic<bool> failed{false};
  std::vector<std::thread> threads;
  if (options.link)
    threads.emplace_back([&] { runLink(options.linkOptions, console, stop, linkCounts); });
  if (!options.playFile.empty()) {
    threads.emplace_back([&] {
      try {
        play(recording, options.playOptions, console, stop, playCounts);
      } catch (const std::exception& e) {
        say(console, fmt::format("playing failed: {}", e.what()));
        failed = true;
      }
      playing = false;
    });
  }
  RecordCounts recordCounts;
  if (!options.recordFile.empty())
    threads.emplace_back([&] { record(recorderSockets, recordOut, console, stop, recordCounts); });

  const auto start = std::chrono::steady_clock::now();
  const bool endsWithPlaying = !options.link && !options.playFile.empty() && !options.playOptions.loop;
  while (!stop.load()) {
    if (options.durationSeconds > 0 &&
        std::chrono::steady_clock::now() - start >= std::chrono::duration<double>(options.durationSeconds))
      break;
    if (endsWithPlaying && !playing.load()) {
      // The last datagrams may still be on their way to our own recorder.
      if (!options.recordFile.empty()) waitFor(stop, std::chrono::seconds(1));
      break;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  stop = true;
  for (auto& t : threads) t.join();

  if (options.link)
    say(console, fmt::format("link: {} connections, {} version requests, {} positions, {} times, {} exits, {} drops",
                             linkCounts.connections.load(), linkCounts.versionRequests.load(),
                             linkCounts.positions.load(), linkCounts.simTimes.load(), linkCounts.exits.load(),
                             linkCounts.drops.load()));
  if (!options.playFile.empty())
    say(console, fmt::format("feed: {} traffic, {} weather, {} repeated, {} malformed, {} oversize, {} truncated, "
                             "{} reordered, {} flooded, {} failed sends",
                             playCounts.traffic.load(), playCounts.weather.load(), playCounts.repeated.load(),
                             playCounts.malformed.load(), playCounts.oversize.load(), playCounts.truncated.load(),
                             playCounts.reordered.load(), playCounts.flooded.load(), playCounts.failed.load()));
  if (!options.recordFile.empty())
    say(console, fmt::format("recording: {} datagrams written to {}", recordCounts.datagrams.load(), options.recordFile.string()));
  return failed.load() ? 1 : 0;
}

}  // namespace orv::standin
