// The socket layer on Winsock 2: each operation is its Winsock call, and the codes are Winsock's
// own. Every failure keeps its code per thread at once, so that logging between the call and
// lastError() cannot change it.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <winsock2.h>
#include <ws2tcpip.h>
#include <mswsock.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "platform/net/socket_layer.h"

namespace orv::net {

namespace {

thread_local int tLastError = 0;

int fail() {
  tLastError = WSAGetLastError();
  return kSocketError;
}

Socket failSocket() {
  tLastError = WSAGetLastError();
  return kNoSocket;
}

int check(int result) { return result == SOCKET_ERROR ? fail() : result; }

SOCKET native(Socket s) { return static_cast<SOCKET>(s); }

Socket wrap(SOCKET s) { return s == INVALID_SOCKET ? failSocket() : static_cast<Socket>(s); }

sockaddr_in toSockaddr(const Endpoint& e) {
  sockaddr_in a{};
  a.sin_family = AF_INET;
  a.sin_port = htons(e.port);
  a.sin_addr.s_addr = htonl(e.address);
  return a;
}

int setIntOption(Socket s, int level, int name, int value) {
  return check(setsockopt(native(s), level, name, reinterpret_cast<const char*>(&value), sizeof value));
}

// A datagram to a port nobody listens on brings back an ICMP message that Windows would report
// as a reset on the next receive of a UDP socket; a reader must never see that.
void ignorePortUnreachable(SOCKET s) {
  BOOL off = FALSE;
  DWORD returned = 0;
  WSAIoctl(s, SIO_UDP_CONNRESET, &off, sizeof off, nullptr, 0, &returned, nullptr, nullptr);
}

int length(std::size_t size) { return static_cast<int>(std::min<std::size_t>(size, 0x7fffffff)); }

// The layer's own reference to Winsock, for the life of the process: its sockets then work
// before a caller's startup() and stay open after the last cleanup(), as POSIX sockets do
// (a WSACleanup that ends the last reference closes every socket of the process).
struct WinsockReference {
  WinsockReference() {
    WSADATA data{};
    started = WSAStartup(MAKEWORD(2, 2), &data) == 0;
  }
  ~WinsockReference() {
    if (started) WSACleanup();
  }
  bool started = false;
};
const WinsockReference gWinsock;

}  // namespace

int startup() {
  WSADATA data{};
  return WSAStartup(MAKEWORD(2, 2), &data);
}

void cleanup() { WSACleanup(); }

int resolvePassive(std::string_view port, Kind kind, ResolvedAddress& out) {
  addrinfo hints{};
  hints.ai_family = AF_INET;
  hints.ai_socktype = kind == Kind::Stream ? SOCK_STREAM : SOCK_DGRAM;
  hints.ai_protocol = kind == Kind::Stream ? IPPROTO_TCP : IPPROTO_UDP;
  hints.ai_flags = AI_PASSIVE;
  addrinfo* result = nullptr;
  const std::string service(port);
  const int rc = getaddrinfo(nullptr, service.c_str(), &hints, &result);
  if (rc != 0) {
    tLastError = rc;
    return rc;
  }
  out = ResolvedAddress{};
  out.family = result->ai_family;
  out.type = result->ai_socktype;
  out.protocol = result->ai_protocol;
  out.length = static_cast<std::uint32_t>(result->ai_addrlen);
  std::memcpy(out.bytes.data(), result->ai_addr, std::min<std::size_t>(result->ai_addrlen, out.bytes.size()));
  freeaddrinfo(result);
  return 0;
}

Socket openSocket(const ResolvedAddress& address) {
  const SOCKET s = socket(address.family, address.type, address.protocol);
  if (s != INVALID_SOCKET && address.type == SOCK_DGRAM) ignorePortUnreachable(s);
  return wrap(s);
}

Socket openSocket(Kind kind) {
  const SOCKET s = kind == Kind::Stream ? socket(AF_INET, SOCK_STREAM, IPPROTO_TCP) : socket(AF_INET, SOCK_DGRAM, IPPROTO_UDP);
  if (s != INVALID_SOCKET && kind == Kind::Datagram) ignorePortUnreachable(s);
  return wrap(s);
}

int setBlocking(Socket s) {
  u_long value = 0;
  return check(ioctlsocket(native(s), FIONBIO, &value));
}

int setReuseAddress(Socket s) { return setIntOption(s, SOL_SOCKET, SO_REUSEADDR, 1); }

int setNoDelay(Socket s) { return setIntOption(s, IPPROTO_TCP, TCP_NODELAY, 1); }

int setReceiveTimeout(Socket s, int milliseconds) {
  const DWORD value = static_cast<DWORD>(milliseconds);
  return check(setsockopt(native(s), SOL_SOCKET, SO_RCVTIMEO, reinterpret_cast<const char*>(&value), sizeof value));
}

int bindResolved(Socket s, const ResolvedAddress& address) {
  return check(bind(native(s), reinterpret_cast<const sockaddr*>(address.bytes.data()), static_cast<int>(address.length)));
}

int bindPort(Socket s, std::uint16_t port, bool local) {
  const sockaddr_in a = toSockaddr(Endpoint{local ? kLoopback : kAnyAddress, port});
  return check(bind(native(s), reinterpret_cast<const sockaddr*>(&a), sizeof a));
}

std::uint16_t localPort(Socket s) {
  sockaddr_in a{};
  int size = sizeof a;
  if (getsockname(native(s), reinterpret_cast<sockaddr*>(&a), &size) == SOCKET_ERROR) {
    fail();
    return 0;
  }
  return ntohs(a.sin_port);
}

int listenSocket(Socket s) { return check(listen(native(s), SOMAXCONN)); }

Socket acceptSocket(Socket s) { return wrap(accept(native(s), nullptr, nullptr)); }

int connectSocket(Socket s, const Endpoint& to) {
  const sockaddr_in a = toSockaddr(to);
  return check(connect(native(s), reinterpret_cast<const sockaddr*>(&a), sizeof a));
}

int receive(Socket s, char* buffer, int size) { return check(recv(native(s), buffer, size, 0)); }

int sendText(Socket s, std::string_view text) { return check(send(native(s), text.data(), length(text.size()), 0)); }

int receiveFrom(Socket s, char* buffer, int size, Endpoint* from) {
  sockaddr_in a{};
  int addressLength = sizeof a;
  int n = recvfrom(native(s), buffer, size, 0, reinterpret_cast<sockaddr*>(&a), &addressLength);
  if (n == SOCKET_ERROR) {
    // Winsock fills the buffer with the front of a longer datagram and calls it an error;
    // the layer promises the truncated datagram, as POSIX gives it.
    if (WSAGetLastError() != WSAEMSGSIZE) return fail();
    n = size;
  }
  if (from) *from = Endpoint{ntohl(a.sin_addr.s_addr), ntohs(a.sin_port)};
  return n;
}

int sendTo(Socket s, std::string_view datagram, const Endpoint& to) {
  const sockaddr_in a = toSockaddr(to);
  return check(sendto(native(s), datagram.data(), length(datagram.size()), 0, reinterpret_cast<const sockaddr*>(&a), sizeof a));
}

int shutdownBoth(Socket s) { return check(shutdown(native(s), SD_BOTH)); }

int shutdownSend(Socket s) { return check(shutdown(native(s), SD_SEND)); }

// closesocket itself ends an accept or receive blocked in another thread.
int closeSocket(Socket s) { return check(closesocket(native(s))); }

int lastError() { return tLastError; }

}  // namespace orv::net
