#pragma once
// RealTraffic's side of the TCP link: connect to Orvane's server, answer the version request,
// show the positions and times that Orvane sends, and come back whenever the server does.
#include <atomic>
#include <cstdint>

#include "console.h"
#include "recording.h"
#include "version_reply.h"

namespace orv::standin {

struct LinkOptions {
  std::uint16_t port = kLinkPort;
  VersionReply reply;
  double dropAfterSeconds = 0.0;  // fault: each connection is cut after this long; 0 never
  double retrySeconds = 1.0;      // pause before connecting again
  int positionEvery = 1;          // show every n-th Qs121
};

// What the link has seen, for the closing summary and for tests.
struct LinkCounts {
  std::atomic<int> connections{0};
  std::atomic<int> versionRequests{0};
  std::atomic<int> positions{0};
  std::atomic<int> simTimes{0};
  std::atomic<int> exits{0};
  std::atomic<int> drops{0};
};

// Runs until stop is set.
void runLink(const LinkOptions& options, Console& console, const std::atomic<bool>& stop, LinkCounts& counts);

}  // namespace orv::standin
