#pragma once
// The TCP link to RealTraffic: RealTraffic is the client, this program the server. It carries
// only what RealTraffic must be told (where the user is, the simulator's time) and its version
// reply; the traffic itself arrives on the UDP readers.
#include <atomic>
#include <string>
#include <string_view>

#include "platform/net/socket_layer.h"

namespace orv {

inline constexpr std::string_view kVersionRequest = "Qs999=version\r\n";
inline constexpr std::string_view kExitMessage = "exit\r\n";
inline constexpr int kRtReceiveSize = 16384;

// Atomic: the window thread closes them to free a run thread that waits in accept.
inline std::atomic<net::Socket> gv_rtListenSocket{net::kNoSocket};
inline std::atomic<net::Socket> gv_rtClientSocket{net::kNoSocket};
inline std::atomic<bool> gv_rtConnected{false};
// RealTraffic is installed on this computer; found at start-up, before the readers start.
inline bool gv_rtOnThisPc = false;

// Opens the listening socket; throws std::runtime_error with the text of the step that failed,
// having closed what it had opened. Port "0" takes a free port (tests ask localPort).
void lf_openRtServer(std::string_view port);
// The first connection of a run, blocking; asks for RealTraffic's version once it is there.
void waitForClient();
// One blocking accept; true when a client came.
bool lf_acceptRt();
// Sends the whole text; false when the link is gone (the client socket is closed then).
bool sendDataPacket(std::string_view text);
// One receive; the reply as text, empty when nothing usable came.
std::string lf_receiveRt();
// "exit" to a connected client, then both sockets closed. Safe from any thread, and twice.
void lf_closeRt();

}  // namespace orv
