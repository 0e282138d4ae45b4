#pragma once
// A socket error code in words, for the log and the message area.
#include <string>

namespace orv {

// "<code> <text>" for the Winsock codes the feed can meet, "Unknown errror code" for any other
// Winsock code. On POSIX a code below 10000 is an errno that has no Winsock twin: "<code> <system text>".
std::string gf_socketError(int code);

}  // namespace orv
