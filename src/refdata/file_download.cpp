#include "refdata/file_download.h"

#include <cstdio>
#include <exception>
#include <system_error>

#include "foundation/log.h"

namespace fs = std::filesystem;

namespace orv {
namespace {

std::size_t writeToFile(char* data, std::size_t size, std::size_t count, void* file) {
  return std::fwrite(data, size, count, static_cast<std::FILE*>(file));
}

fs::path partPath(const fs::path& path) {
  fs::path part = path;
  part += ".part";
  return part;
}

void removeQuietly(const fs::path& file) {
  std::error_code ec;
  fs::remove(file, ec);
}

bool transfer(CURL* handle, const std::string& url, const fs::path& path, bool binary) {
  const fs::path part = partPath(path);
  std::FILE* file = std::fopen(part.string().c_str(), binary ? "wb" : "w");
  if (!file) {
    gf_log("Could not open output file: {}", path.string());
    return false;
  }
  curl_easy_setopt(handle, CURLOPT_URL, url.c_str());
  curl_easy_setopt(handle, CURLOPT_USERAGENT, "Orvane");
  curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, writeToFile);
  curl_easy_setopt(handle, CURLOPT_WRITEDATA, file);
  curl_easy_setopt(handle, CURLOPT_FAILONERROR, 1L);
  const CURLcode result = curl_easy_perform(handle);
  const bool closed = std::fclose(file) == 0;
  if (result != CURLE_OK || !closed) {
    removeQuietly(part);
    gf_log("Download error: '{}' for {}", result != CURLE_OK ? curl_easy_strerror(result) : "write failed", url);
    return false;
  }
  std::error_code ec;
  fs::rename(part, path, ec);
  if (ec) {
    removeQuietly(part);
    gf_log("Download error: '{}' for {}", ec.message(), url);
    return false;
  }
  return true;
}

}  // namespace

bool downloadFile(CURL* handle, const std::string& url, const fs::path& path, bool binary) {
  if (!handle) return false;
  try {
    return transfer(handle, url, path, binary);
  } catch (const std::exception& e) {
    gf_log("Downloader exception: '{}', {} => {}", e.what(), url, path.string());
    removeQuietly(partPath(path));
    return false;
  }
}

bool gf_downloadWithNewHandle(const std::string& url, const fs::path& path, bool binary) {
  CURL* handle = curl_easy_init();
  const bool arrived = downloadFile(handle, url, path, binary);
  if (handle) curl_easy_cleanup(handle);
  return arrived;
}

}  // namespace orv
