// Windows binds the SimConnect calls at run time: SimConnect.dll beside the program, else in
// the SDK folders of MSFS_SDK and MSFS2024_SDK, each call resolved by its name; a DLL that
// lacks a call is passed over with the reason; without one the stand-in takes the calls back.
#if defined(_WIN32)
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/simconnect/simconnect_server.h"
#include "platform/simconnect/simconnect_subset.h"
#include "platform/simconnect/standin_control.h"
#include "test_support.h"

namespace fs = std::filesystem;

namespace orv::test {
namespace {

// Places a built DLL as the SDK's SimConnect.dll below sdk.
fs::path installAsSdk(const fs::path& sdk, const char* built) {
  const fs::path lib = sdk / "SimConnect SDK" / "lib";
  fs::create_directories(lib);
  fs::copy_file(built, lib / "SimConnect.dll");
  return lib / "SimConnect.dll";
}

TEST(LibraryBinding, EachCallGoesToItsNamesakeInTheFirstCompleteSdkLibraryThenBackToTheStandIn) {
  TempDir first, second;
  const fs::path lacking = installAsSdk(first.path(), ORV_FAKE_SIMCONNECT_LACKING);
  const fs::path whole = installAsSdk(second.path(), ORV_FAKE_SIMCONNECT);
  setEnv("MSFS_SDK", first.path().string());
  setEnv("MSFS2024_SDK", second.path().string());

  const simconnect::ServerChoice choice = simconnect::chooseServer(false);
  ASSERT_EQ(choice.server, simconnect::Server::Library);
  EXPECT_EQ(choice.library, whole);
  ASSERT_EQ(choice.looked.size(), 3u);
  EXPECT_EQ(choice.looked[0].filename(), "SimConnect.dll") << "beside the program first";
  EXPECT_EQ(choice.looked[1], lacking);
  EXPECT_EQ(choice.looked[2], whole);
  EXPECT_EQ(choice.refused, std::vector<std::string>{lacking.string() + " has no SimConnect_RequestFacilityData"});

  HANDLE handle = nullptr;
  DWORD sendId = 0;
  SIMCONNECT_DATA_INITPOSITION at{};
  const HRESULT answers[] = {
      SimConnect_Open(&handle, "Orvane", nullptr, 0, nullptr, 0),
      SimConnect_Close(handle),
      SimConnect_CallDispatch(handle, nullptr, nullptr),
      SimConnect_GetLastSentPacketID(handle, &sendId),
      SimConnect_SubscribeToSystemEvent(handle, 1, "Sim"),
      SimConnect_AddToDataDefinition(handle, 1, "PLANE ALTITUDE", "feet"),
      SimConnect_MapClientEventToSimEvent(handle, 1, "GEAR_SET"),
      SimConnect_AddClientEventToNotificationGroup(handle, 1, 1),
      SimConnect_SetNotificationGroupPriority(handle, 1, SIMCONNECT_GROUP_PRIORITY_HIGHEST),
      SimConnect_RequestDataOnSimObject(handle, 1, 1, SIMCONNECT_OBJECT_ID_USER, SIMCONNECT_PERIOD_ONCE),
      SimConnect_RequestDataOnSimObjectType(handle, 1, 1, 0, SIMCONNECT_SIMOBJECT_TYPE_USER),
      SimConnect_SetDataOnSimObject(handle, 1, 1, 0, 0, 8, &at),
      SimConnect_TransmitClientEvent(handle, 1, 1, 0, 1, 0),
      SimConnect_AICreateNonATCAircraft(handle, "title", "D-ABCD", at, 1),
      SimConnect_AIRemoveObject(handle, 1, 1),
      SimConnect_AIReleaseControl(handle, 1, 1),
      SimConnect_AISetAircraftFlightPlan(handle, 1, "plan", 1),
      SimConnect_AddToFacilityDefinition(handle, 1, "OPEN AIRPORT"),
      SimConnect_RequestFacilityData(handle, 1, 1, "EDDF"),
  };
  for (HRESULT number = 1; number <= 19; ++number) EXPECT_EQ(answers[number - 1], number);

  // Without a library the stand-in answers again; stopped, it refuses like an absent simulator.
  unsetEnv("MSFS_SDK");
  unsetEnv("MSFS2024_SDK");
  standin::reset();
  const simconnect::ServerChoice none = simconnect::chooseServer(false);
  EXPECT_EQ(none.server, simconnect::Server::None);
  EXPECT_EQ(none.looked.size(), 1u);
  EXPECT_EQ(SimConnect_Open(&handle, "Orvane", nullptr, 0, nullptr, 0), E_FAIL);
  EXPECT_EQ(simconnect::chooseServer(true).server, simconnect::Server::StandIn);
}

}  // namespace
}  // namespace orv::test
#endif
