// The link's client loop. Receives wait at most 200 ms, so that stop and the drop fault are
// looked at often; Orvane itself never waits on this side.
#include "rt_link.h"

#include <fmt/format.h>

#include <chrono>
#include <vector>

#include "link_messages.h"
#include "platform/net/socket_error.h"
#include "platform/net/socket_layer.h"
#include "stop_wait.h"

namespace orv::standin {

namespace {

enum class SessionEnd { Stop, Closed };

struct Session {
  const LinkOptions& options;
  Console& console;
  LinkCounts& counts;
  net::Socket socket;
  bool sendingClosed = false;
};

void answerVersion(Session& session) {
  const VersionReply& reply = session.options.reply;
  ++session.counts.versionRequests;
  if (reply.form == ReplyForm::Silent) {
    say(session.console, "Qs999 version request: left unanswered");
    return;
  }
  if (reply.form == ReplyForm::Empty) {
    // Nothing to send; closing the sending side gives Orvane a receive of 0 bytes.
    if (!session.sendingClosed) net::shutdownSend(session.socket);
    session.sendingClosed = true;
    say(session.console, "Qs999 version request: answered with nothing (sending side closed)");
    return;
  }
  const std::string text = versionReplyText(reply);
  if (session.sendingClosed || net::sendText(session.socket, text) == net::kSocketError) {
    say(session.console, fmt::format("Qs999 version request: reply failed: {}", gf_socketError(net::lastError())));
    return;
  }
  say(session.console, fmt::format("Qs999 version request: replied {}", text.substr(0, text.size() - 2)));
}

// False when the line ends the session.
bool handleLine(Session& session, const std::string& line) {
  if (line == "Qs999=version") {
    answerVersion(session);
  } else if (line.starts_with("Qs121=")) {
    const auto position = decodeQs121(line);
    if (!position) {
      say(session.console, fmt::format("malformed Qs121: {}", line));
      return true;
    }
    const int n = ++session.counts.positions;
    if (session.options.positionEvery <= 1 || n % session.options.positionEvery == 0)
      say(session.console, fmt::format("Qs121 {}", describePosition(*position)));
  } else if (line.starts_with("Qs123=")) {
    const auto milliseconds = decodeQs123(line);
    if (!milliseconds) {
      say(session.console, fmt::format("malformed Qs123: {}", line));
      return true;
    }
    ++session.counts.simTimes;
    say(session.console, fmt::format("Qs123 sim time {}", describeSimTime(*milliseconds)));
  } else if (line == "exit") {
    ++session.counts.exits;
    say(session.console, "exit: Orvane is closing down");
    return false;
  } else {
    say(session.console, fmt::format("unknown message: {}", line));
  }
  return true;
}

SessionEnd serve(Session& session, const std::atomic<bool>& stop) {
  const auto connectedAt = std::chrono::steady_clock::now();
  const auto dropAt = connectedAt + std::chrono::duration_cast<std::chrono::steady_clock::duration>(
                                        std::chrono::duration<double>(session.options.dropAfterSeconds));
  std::vector<char> buffer(16384);
  LineSplitter splitter;
  while (!stop.load()) {
    if (session.options.dropAfterSeconds > 0 && std::chrono::steady_clock::now() >= dropAt) {
      ++session.counts.drops;
      say(session.console, fmt::format("fault: dropping the link after {} s", session.options.dropAfterSeconds));
      return SessionEnd::Closed;
    }
    const int n = net::receive(session.socket, buffer.data(), static_cast<int>(buffer.size()));
    if (n == net::kSocketError) {
      const int code = net::lastError();
      if (code == net::kCodeInterrupted || code == net::kCodeWouldBlock || code == net::kCodeTimedOut) continue;
      say(session.console, fmt::format("link lost: {}", gf_socketError(code)));
      return SessionEnd::Closed;
    }
    if (n == 0) {
      say(session.console, "Orvane closed the link");
      return SessionEnd::Closed;
    }
    feedBytes(splitter, std::string_view(buffer.data(), static_cast<std::size_t>(n)));
    while (auto line = nextLine(splitter)) {
      if (!handleLine(session, *line)) return SessionEnd::Closed;
    }
  }
  return SessionEnd::Stop;
}

}  // namespace

void runLink(const LinkOptions& options, Console& console, const std::atomic<bool>& stop, LinkCounts& counts) {
  const net::Endpoint server{net::kLoopback, options.port};
  bool announcedWait = false;
  while (!stop.load()) {
    const net::Socket s = net::openSocket(net::Kind::Stream);
    if (s == net::kNoSocket) {
      say(console, fmt::format("socket failed: {}", gf_socketError(net::lastError())));
      waitFor(stop, std::chrono::duration<double>(options.retrySeconds));
      continue;
    }
    if (net::connectSocket(s, server) == net::kSocketError) {
      if (!announcedWait)
        say(console, fmt::format("waiting for Orvane on 127.0.0.1:{} ({})", options.port,
                                 gf_socketError(net::lastError())));
      announcedWait = true;
      net::closeSocket(s);
      waitFor(stop, std::chrono::duration<double>(options.retrySeconds));
      continue;
    }
    announcedWait = false;
    ++counts.connections;
    say(console, fmt::format("connected to Orvane on 127.0.0.1:{}", options.port));
    net::setReceiveTimeout(s, 200);
    Session session{options, console, counts, s};
    const SessionEnd end = serve(session, stop);
    net::closeSocket(s);
    if (end == SessionEnd::Stop) break;
    waitFor(stop, std::chrono::duration<double>(options.retrySeconds));
  }
}

}  // namespace orv::standin
