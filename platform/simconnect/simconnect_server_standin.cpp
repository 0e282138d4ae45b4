// Without Windows there is no SimConnect.dll: the in-process stand-in serves every call.
#include "platform/simconnect/simconnect_server.h"

namespace orv::simconnect {

ServerChoice chooseServer(bool) { return ServerChoice{Server::StandIn, {}, {}, {}}; }

}  // namespace orv::simconnect
