#pragma once
// A test client of the stand-in simulator: a fresh simulator per test, a session, and copies of
// the records that a dispatch delivered.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "platform/simconnect/simconnect.h"
#include "platform/simconnect/standin_control.h"

namespace orv::test {

using RecordBytes = std::vector<std::uint8_t>;

// Views a record as the SDK structure its id names.
template <class T>
T recordAs(const RecordBytes& r) {
  T out{};
  std::memcpy(&out, r.data(), std::min(sizeof(T), r.size()));
  return out;
}

DWORD recordId(const RecordBytes& r);
std::vector<RecordBytes> ofId(const std::vector<RecordBytes>& records, SIMCONNECT_RECV_ID id);
// The data block of a SIMOBJECT_DATA or FACILITY_DATA record.
RecordBytes blockOf(const RecordBytes& r);
template <class T>
T readAt(const RecordBytes& bytes, std::size_t offset) {
  T out{};
  std::memcpy(&out, bytes.data() + offset, sizeof(T));
  return out;
}

// Everything one SimConnect_CallDispatch delivers, copied.
std::vector<RecordBytes> dispatchAll(HANDLE handle);
// The exception numbers of the exception records among them, in order.
using Exceptions = std::vector<DWORD>;
Exceptions exceptionsOf(const std::vector<RecordBytes>& records);

// The place of a creation call.
SIMCONNECT_DATA_INITPOSITION at(double latitude, double longitude, double altitudeFt = 0, bool onGround = false,
                                double headingDeg = 0);

// A fresh, stopped stand-in for each test, and nothing left behind.
class StandinTest : public ::testing::Test {
 protected:
  void SetUp() override { standin::reset(); }
  void TearDown() override { standin::reset(); }

  // Loads the scenario, starts the stepped clock and opens a session; the open record is taken.
  HANDLE startWith(std::string_view scenarioJson, const char* name = "Orvane");
};

}  // namespace orv::test
