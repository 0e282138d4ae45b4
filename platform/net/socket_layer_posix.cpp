// The socket layer on POSIX sockets. Every failure keeps its code per thread at once, so that
// logging between the call and lastError() cannot change it.
#include <arpa/inet.h>
#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>

#include "platform/net/socket_layer.h"

namespace orv::net {

namespace {

thread_local int tLastError = 0;

int fail() {
  tLastError = codeOfErrno(errno);
  return kSocketError;
}

Socket failSocket() {
  tLastError = codeOfErrno(errno);
  return kNoSocket;
}

int check(int result) { return result < 0 ? fail() : result; }

int fd(Socket s) { return static_cast<int>(s); }

sockaddr_in toSockaddr(const Endpoint& e) {
  sockaddr_in a{};
  a.sin_family = AF_INET;
  a.sin_port = htons(e.port);
  a.sin_addr.s_addr = htonl(e.address);
  return a;
}

// getaddrinfo answers with EAI_* values; Winsock answers with socket codes.
int codeOfResolveError(int result) {
  switch (result) {
    case EAI_NONAME: return 11001;
#ifdef EAI_NODATA
    case EAI_NODATA: return 11004;
#endif
    case EAI_AGAIN: return 11002;
    case EAI_FAIL: return 11003;
    case EAI_FAMILY: return 10047;
    case EAI_SOCKTYPE: return 10044;
    case EAI_SERVICE: return 10109;
    case EAI_BADFLAGS: return 10022;
    case EAI_MEMORY: return ENOMEM;
    case EAI_SYSTEM: return codeOfErrno(errno);
    default: return 11003;
  }
}

int setIntOption(Socket s, int level, int name, int value) {
  return check(setsockopt(fd(s), level, name, &value, sizeof value));
}

}  // namespace

int codeOfErrno(int err) {
  // EWOULDBLOCK may be EAGAIN itself; a switch would not compile with both.
  if (err == EAGAIN || err == EWOULDBLOCK) return kCodeWouldBlock;
  switch (err) {
    case EINTR: return kCodeInterrupted;
    case EBADF: return 10009;
    case EACCES: return 10013;
    case EFAULT: return 10014;
    case EINVAL: return 10022;
    case EMFILE: return 10024;
    case EINPROGRESS: return 10036;
    case EALREADY: return 10037;
    case ENOTSOCK: return 10038;
    case EDESTADDRREQ: return 10039;
    case EMSGSIZE: return 10040;
    case EPROTOTYPE: return 10041;
    case ENOPROTOOPT: return 10042;
    case EPROTONOSUPPORT: return 10043;
    case ESOCKTNOSUPPORT: return 10044;
    case EOPNOTSUPP: return 10045;
    case EPFNOSUPPORT: return 10046;
    case EAFNOSUPPORT: return 10047;
    case EADDRINUSE: return 10048;
    case EADDRNOTAVAIL: return 10049;
    case ENETDOWN: return 10050;
    case ENETUNREACH: return 10051;
    case ENETRESET: return 10052;
    case ECONNABORTED: return 10053;
    case ECONNRESET: return 10054;
    case EPIPE: return 10054;  // a send to a peer that has gone; Winsock calls it a reset
    case ENOBUFS: return 10055;
    case EISCONN: return 10056;
    case ENOTCONN: return 10057;
    case ESHUTDOWN: return 10058;
    case ETOOMANYREFS: return 10059;
    case ETIMEDOUT: return kCodeTimedOut;
    case ECONNREFUSED: return 10061;
    case ELOOP: return 10062;
    case ENAMETOOLONG: return 10063;
    case EHOSTDOWN: return 10064;
    case EHOSTUNREACH: return 10065;
    case ENOTEMPTY: return 10066;
    case EUSERS: return 10068;
    case EDQUOT: return 10069;
    case ESTALE: return 10070;
    case EREMOTE: return 10071;
    default: return err;
  }
}

int startup() { return 0; }

void cleanup() {}

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
    const int code = codeOfResolveError(rc);
    tLastError = code;
    return code;
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
  const int s = socket(address.family, address.type | SOCK_CLOEXEC, address.protocol);
  return s < 0 ? failSocket() : Socket{s};
}

Socket openSocket(Kind kind) {
  const int s = kind == Kind::Stream ? socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, IPPROTO_TCP)
                                     : socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, IPPROTO_UDP);
  return s < 0 ? failSocket() : Socket{s};
}

int setBlocking(Socket s) {
  int value = 0;
  return check(ioctl(fd(s), FIONBIO, &value));
}

int setReuseAddress(Socket s) { return setIntOption(s, SOL_SOCKET, SO_REUSEADDR, 1); }

int setNoDelay(Socket s) { return setIntOption(s, IPPROTO_TCP, TCP_NODELAY, 1); }

int setReceiveTimeout(Socket s, int milliseconds) {
  timeval tv{};
  tv.tv_sec = milliseconds / 1000;
  tv.tv_usec = static_cast<suseconds_t>((milliseconds % 1000) * 1000);
  return check(setsockopt(fd(s), SOL_SOCKET, SO_RCVTIMEO, &tv, sizeof tv));
}

int bindResolved(Socket s, const ResolvedAddress& address) {
  return check(bind(fd(s), reinterpret_cast<const sockaddr*>(address.bytes.data()), address.length));
}

int bindPort(Socket s, std::uint16_t port, bool local) {
  const sockaddr_in a = toSockaddr(Endpoint{local ? kLoopback : kAnyAddress, port});
  return check(bind(fd(s), reinterpret_cast<const sockaddr*>(&a), sizeof a));
}

std::uint16_t localPort(Socket s) {
  sockaddr_in a{};
  socklen_t length = sizeof a;
  if (getsockname(fd(s), reinterpret_cast<sockaddr*>(&a), &length) < 0) {
    fail();
    return 0;
  }
  return ntohs(a.sin_port);
}

int listenSocket(Socket s) { return check(listen(fd(s), SOMAXCONN)); }

Socket acceptSocket(Socket s) {
  const int c = accept4(fd(s), nullptr, nullptr, SOCK_CLOEXEC);
  return c < 0 ? failSocket() : Socket{c};
}

int connectSocket(Socket s, const Endpoint& to) {
  const sockaddr_in a = toSockaddr(to);
  return check(connect(fd(s), reinterpret_cast<const sockaddr*>(&a), sizeof a));
}

int receive(Socket s, char* buffer, int length) {
  return check(static_cast<int>(recv(fd(s), buffer, static_cast<std::size_t>(length), 0)));
}

int sendText(Socket s, std::string_view text) {
  // MSG_NOSIGNAL: a peer that has gone must give an error, not end the process with SIGPIPE.
  return check(static_cast<int>(send(fd(s), text.data(), text.size(), MSG_NOSIGNAL)));
}

int receiveFrom(Socket s, char* buffer, int length, Endpoint* from) {
  sockaddr_in a{};
  socklen_t addressLength = sizeof a;
  const auto n = recvfrom(fd(s), buffer, static_cast<std::size_t>(length), 0,
                          reinterpret_cast<sockaddr*>(&a), &addressLength);
  if (n < 0) return fail();
  if (from) *from = Endpoint{ntohl(a.sin_addr.s_addr), ntohs(a.sin_port)};
  return static_cast<int>(n);
}

int sendTo(Socket s, std::string_view datagram, const Endpoint& to) {
  const sockaddr_in a = toSockaddr(to);
  return check(static_cast<int>(sendto(fd(s), datagram.data(), datagram.size(), MSG_NOSIGNAL,
                                       reinterpret_cast<const sockaddr*>(&a), sizeof a)));
}

int shutdownBoth(Socket s) { return check(shutdown(fd(s), SHUT_RDWR)); }

int shutdownSend(Socket s) { return check(shutdown(fd(s), SHUT_WR)); }

int closeSocket(Socket s) {
  // On Linux close() alone leaves a blocked accept() or recv() of another thread waiting;
  // shutdown wakes it. An unconnected socket answers ENOTCONN, and is woken all the same.
  shutdown(fd(s), SHUT_RDWR);
  return check(close(fd(s)));
}

int lastError() { return tLastError; }

}  // namespace orv::net
