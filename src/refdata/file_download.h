#pragma once
// Fetching one file from the download site with libcurl's easy interface. A file reaches its
// name only after a transfer that succeeded: the bytes go to "<path>.part" first, so a
// failed or cut transfer never leaves a damaged file under the real name.
#include <curl/curl.h>

#include <filesystem>
#include <string>

namespace orv {

// True when the file has arrived. The caller makes the handle with curl_easy_init and frees
// it with curl_easy_cleanup; without a handle nothing is fetched. Failures are logged.
bool downloadFile(CURL* handle, const std::string& url, const std::filesystem::path& path, bool binary);

// The same with a fresh handle of its own, cleaned up afterwards.
bool gf_downloadWithNewHandle(const std::string& url, const std::filesystem::path& path, bool binary);

}  // namespace orv
