#include "standin_fixture.h"

namespace orv::test {
namespace {

void CALLBACK collect(SIMCONNECT_RECV* data, DWORD size, void* context) {
  auto* out = static_cast<std::vector<RecordBytes>*>(context);
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(data);
  out->emplace_back(bytes, bytes + size);
}

}  // namespace

DWORD recordId(const RecordBytes& r) { return recordAs<SIMCONNECT_RECV>(r).dwID; }

std::vector<RecordBytes> ofId(const std::vector<RecordBytes>& records, SIMCONNECT_RECV_ID id) {
  std::vector<RecordBytes> out;
  for (const auto& r : records) {
    if (recordId(r) == static_cast<DWORD>(id)) out.push_back(r);
  }
  return out;
}

RecordBytes blockOf(const RecordBytes& r) { return RecordBytes(r.begin() + 40, r.end()); }

std::vector<RecordBytes> dispatchAll(HANDLE handle) {
  std::vector<RecordBytes> out;
  SimConnect_CallDispatch(handle, collect, &out);
  return out;
}

Exceptions exceptionsOf(const std::vector<RecordBytes>& records) {
  Exceptions out;
  for (const auto& r : ofId(records, SIMCONNECT_RECV_ID_EXCEPTION))
    out.push_back(recordAs<SIMCONNECT_RECV_EXCEPTION>(r).dwException);
  return out;
}

SIMCONNECT_DATA_INITPOSITION at(double latitude, double longitude, double altitudeFt, bool onGround,
                                double headingDeg) {
  SIMCONNECT_DATA_INITPOSITION pos{};
  pos.Latitude = latitude;
  pos.Longitude = longitude;
  pos.Altitude = altitudeFt;
  pos.OnGround = onGround ? 1 : 0;
  pos.Heading = headingDeg;
  return pos;
}

HANDLE StandinTest::startWith(std::string_view scenarioJson, const char* name) {
  standin::loadScenarioText(scenarioJson);
  standin::start();
  HANDLE h = nullptr;
  EXPECT_TRUE(SUCCEEDED(SimConnect_Open(&h, name, nullptr, 0, nullptr, 0)));
  const auto opened = dispatchAll(h);
  EXPECT_EQ(ofId(opened, SIMCONNECT_RECV_ID_OPEN).size(), 1u);
  return h;
}

}  // namespace orv::test
