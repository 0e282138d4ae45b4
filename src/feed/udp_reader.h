#pragma once
// The reader of one UDP port, one datagram a line. A derived reader says what is done with a
// datagram and what is done when the reader has stopped. A wrong line never ends a reader;
// a socket failure does, and with it the run.
#include <array>
#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>

#include "platform/net/socket_layer.h"

namespace orv {

inline constexpr int kDatagramBufferSize = 16384;

// The socket library is given back once for both readers, by the first that ends.
inline std::atomic<bool> gv_readerCleanupDone{false};

class UdpReader {
 public:
  virtual ~UdpReader() = default;
  virtual void processDatagram() = 0;
  virtual void stopped() = 0;

  // The socket library and a UDP socket; throws std::runtime_error with the log text.
  void open();
  // At 127.0.0.1 when local, else at any address; port 0 takes a free one (see boundPort).
  void bind(std::uint16_t port, bool local);
  // Reads until stop is set; throws "receive error: {}" on a socket failure. Unless local,
  // a datagram equal to the one before is taken for a repeat and dropped.
  void receiveLoop(bool local);
  // Sets stop and wakes a receive that waits, so the reader ends now instead of within a
  // second; a run that restarts at once finds the port free.
  void stopSoon();
  // Closes the socket if it is still open.
  void closeSocket();

  std::string_view line;  // the datagram being processed; a view into buffer
  std::atomic<bool> stop{false};
  std::atomic<std::int32_t> count{0};  // datagrams handed on since the start
  std::array<char, kDatagramBufferSize> buffer{};
  std::string last;
  std::atomic<std::uint16_t> boundPort{0};

 private:
  // Guards the socket between its owner's close and another thread's wake-up.
  std::mutex socketMutex_;
  net::Socket socket_ = net::kNoSocket;
};

// The thread body of a reader: open, bind, read until stopped. A failure is shown as "The {}
// has stopped with error: {}" and ends the run with READER ERROR; however it ends, the socket
// is closed and showStatus(3) tells the window.
void gf_runReader(UdpReader& reader, std::string_view name, std::uint16_t port, bool local,
                  void (*showStatus)(int status));

}  // namespace orv
