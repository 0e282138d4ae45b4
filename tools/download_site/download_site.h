#pragma once
// A plain HTTP server on 127.0.0.1 that serves one folder, laid out as the maker's site:
// downloads/MSFS/archive/stock/<ICAO>.xml, downloads/MSFS2024/..., downloads/versions.json.
// cpp-httplib does the serving; this only binds it to loopback and runs it on a thread.
#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace httplib {
class Server;
}

namespace orv {

class DownloadSite {
 public:
  // Each answered request: method, path, status.
  using RequestLog = std::function<void(const std::string&, const std::string&, int)>;

  // Serves root on the port; 0 takes a free one. Throws std::runtime_error when the folder is
  // missing or the port cannot be bound. Requests are answered once the constructor returns.
  explicit DownloadSite(const std::filesystem::path& root, int port = 0, RequestLog log = {});
  ~DownloadSite();
  DownloadSite(const DownloadSite&) = delete;
  DownloadSite& operator=(const DownloadSite&) = delete;

  int port() const { return port_; }
  // "http://127.0.0.1:<port>/"
  std::string url() const;

 private:
  std::unique_ptr<httplib::Server> server_;
  std::thread thread_;
  std::atomic<bool> listenEnded_{false};
  int port_ = 0;
};

}  // namespace orv
