#pragma once
// Which server answers this process's SimConnect calls. On Windows the simulator's own
// SimConnect.dll, loaded at run time and bound call by call, or else the stand-in simulator;
// on other systems always the stand-in. Chosen once, before any SimConnect call.
#include <filesystem>
#include <string>
#include <vector>

namespace orv::simconnect {

enum class Server { None, Library, StandIn };

struct ServerChoice {
  Server server = Server::None;
  std::filesystem::path library;              // the DLL that serves, with Server::Library
  std::vector<std::filesystem::path> looked;  // where a DLL was looked for, in order
  std::vector<std::string> refused;           // DLLs found but unusable, each with the reason
};

// Windows: SimConnect.dll beside the program, else "SimConnect SDK/lib/SimConnect.dll" in the
// folders named by MSFS_SDK and MSFS2024_SDK; without one the stand-in serves only when
// standInAllowed, and otherwise (Server::None) the caller leaves it stopped, so that every call
// fails as with a simulator that is not running. Elsewhere the stand-in serves.
ServerChoice chooseServer(bool standInAllowed);

}  // namespace orv::simconnect
