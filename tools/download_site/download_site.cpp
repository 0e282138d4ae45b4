#include "download_site.h"

#include <httplib.h>

#include <chrono>
#include <stdexcept>

namespace orv {

namespace {
constexpr const char* kLoopback = "127.0.0.1";
}

DownloadSite::DownloadSite(const std::filesystem::path& root, int port, RequestLog log)
    : server_(std::make_unique<httplib::Server>()) {
  if (!std::filesystem::is_directory(root)) throw std::runtime_error("download_site: no folder " + root.string());
  if (!server_->set_mount_point("/", root.string()))
    throw std::runtime_error("download_site: cannot serve " + root.string());
  server_->set_file_extension_and_mimetype_mapping("xml", "application/xml");
  server_->set_file_extension_and_mimetype_mapping("enc", "application/octet-stream");
  if (log)
    server_->set_logger([log](const httplib::Request& request, const httplib::Response& response) {
      log(request.method, request.path, response.status);
    });
  if (port == 0) {
    port_ = server_->bind_to_any_port(kLoopback);
  } else if (server_->bind_to_port(kLoopback, port)) {
    port_ = port;
  } else {
    port_ = -1;
  }
  if (port_ <= 0) throw std::runtime_error("download_site: cannot bind to " + std::string(kLoopback));
  // The socket listens from here on; the thread answers what arrives. A stop before the
  // thread's loop runs would be lost, so wait for it.
  thread_ = std::thread([this] {
    server_->listen_after_bind();
    listenEnded_ = true;
  });
  while (!server_->is_running() && !listenEnded_) std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

DownloadSite::~DownloadSite() {
  server_->stop();
  if (thread_.joinable()) thread_.join();
}

std::string DownloadSite::url() const { return "http://" + std::string(kLoopback) + ":" + std::to_string(port_) + "/"; }

}  // namespace orv
