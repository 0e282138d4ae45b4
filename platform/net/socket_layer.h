#pragma once
// The socket operations of the feed: the RealTraffic link (a TCP server) and the two UDP readers.
// Each function is one Winsock call: the Windows build binds them 1:1 (socket_layer_winsock.cpp),
// Linux to POSIX sockets (socket_layer_posix.cpp). Results follow Winsock: a socket or kNoSocket,
// a count or kSocketError, 0 or kSocketError; lastError() then gives a Winsock code for
// gf_socketError.
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace orv::net {

using Socket = std::intptr_t;
inline constexpr Socket kNoSocket = -1;
inline constexpr int kSocketError = -1;

// Winsock codes that the readers and the link test for by number.
inline constexpr int kCodeInterrupted = 10004;
inline constexpr int kCodeWouldBlock = 10035;
inline constexpr int kCodeTimedOut = 10060;
// A receive that ended by its time-out or by a signal: nothing went wrong, it may be tried again.
inline bool isPassedOver(int code) { return code == kCodeInterrupted || code == kCodeWouldBlock || code == kCodeTimedOut; }

inline constexpr std::uint32_t kLoopback = 0x7f000001;  // 127.0.0.1
inline constexpr std::uint32_t kAnyAddress = 0;

enum class Kind { Stream, Datagram };  // TCP and UDP, always IPv4

// An IPv4 address and port, both in host byte order.
struct Endpoint {
  std::uint32_t address = kLoopback;
  std::uint16_t port = 0;
};

// One result of a passive resolve: what socket() and bind() need.
struct ResolvedAddress {
  int family = 0;
  int type = 0;
  int protocol = 0;
  std::uint32_t length = 0;
  alignas(8) std::array<std::byte, 128> bytes{};
};

// WSAStartup 2.2 and WSACleanup; 0 or a code. Nothing to do on POSIX.
int startup();
void cleanup();

// getaddrinfo with no host, IPv4, the kind's protocol, passive: the any-address at the port.
// 0 or the code of the failure (getaddrinfo's own result, as on Winsock).
int resolvePassive(std::string_view port, Kind kind, ResolvedAddress& out);

Socket openSocket(const ResolvedAddress& address);
Socket openSocket(Kind kind);

// FIONBIO 0: blocking calls.
int setBlocking(Socket s);
int setReuseAddress(Socket s);
int setNoDelay(Socket s);
// SO_RCVTIMEO: a receive waits at most this long, then fails with a passed-over code.
int setReceiveTimeout(Socket s, int milliseconds);

int bindResolved(Socket s, const ResolvedAddress& address);
// At 127.0.0.1 when local, else at any address.
int bindPort(Socket s, std::uint16_t port, bool local);
// The port a socket is bound to (getsockname); 0 on failure. Tests bind port 0 and ask.
std::uint16_t localPort(Socket s);

// listen with a backlog of SOMAXCONN.
int listenSocket(Socket s);
// Blocks until a client comes; kNoSocket when it fails or the listener is closed.
Socket acceptSocket(Socket s);
int connectSocket(Socket s, const Endpoint& to);

// Byte count, 0 when the peer has closed, or kSocketError.
int receive(Socket s, char* buffer, int length);
// One call with the whole text; a lost peer is an error, never a signal.
int sendText(Socket s, std::string_view text);
// A datagram longer than length comes truncated to length. from may be null.
int receiveFrom(Socket s, char* buffer, int length, Endpoint* from);
int sendTo(Socket s, std::string_view datagram, const Endpoint& to);

int shutdownBoth(Socket s);
// Half-close: no more sending, receiving goes on.
int shutdownSend(Socket s);
// Shuts down both ways first, so that an accept or receive blocked in another thread returns,
// as closesocket does on Winsock. The caller drops the number: it may be reused at once.
int closeSocket(Socket s);

// Code of the last failure of this thread's calls into the layer.
int lastError();
#if !defined(_WIN32)
// The Winsock code of the same meaning as a POSIX errno; the errno itself where none exists.
int codeOfErrno(int err);
#endif

}  // namespace orv::net
