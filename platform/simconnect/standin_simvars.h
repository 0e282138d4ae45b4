#pragma once
// The simulation variables that the stand-in knows, their units and data types, and how one
// datum of a data definition is read from an object or written into it.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/simconnect/simconnect_subset.h"
#include "platform/simconnect/standin_control.h"

namespace orv::standin::detail {

enum class SimVar {
  SpoilersHandle,
  Throttle1,
  Throttle2,
  Latitude,
  Longitude,
  Pitch,
  Bank,
  Heading,
  Altitude,
  VerticalSpeed,
  AirspeedTrue,
  IndicatedAltitude,
  AltAboveGround,
  GroundAltitude,
  GroundVelocity,
  ZuluTime,
  ZuluDayOfYear,
  ZuluYear,
  LightStates,
  StandardAtmTemperature,
  SimOnGround,
  AtcId,
  StaticCgToGround,
  StaticPitch,
  Title,
  AtcModel,
};

// What a datum's value depends on besides its object.
struct SimContext {
  double terrainFt = 0;
  double zuluSeconds = 0;  // simulator UTC, seconds since 1970
};

struct DatumBinding {
  SimVar var = SimVar::Latitude;
  SIMCONNECT_DATATYPE type = SIMCONNECT_DATATYPE_FLOAT64;
  double scale = 1;       // requested unit per native unit
  bool sameUnit = true;   // no conversion at all, so values pass bit for bit
  std::size_t size = 8;   // bytes in a block; 0 for a variable-length string
  bool settable = false;
  std::string description;  // "NAME|unit|TYPE" as given
};

// The binding of one AddToDataDefinition call, or the exception it earns.
struct BindResult {
  std::optional<DatumBinding> binding;
  DWORD exception = SIMCONNECT_EXCEPTION_NONE;
};
BindResult bindDatum(const char* datumName, const char* unitsName, SIMCONNECT_DATATYPE type);

// Appends the datum's value, in its unit and type, to a data block.
void appendDatum(std::vector<std::uint8_t>& block, const DatumBinding& datum, const ObjectState& object,
                 const SimContext& context);

// Reads one datum from a block that a client sent and writes it into the object. Returns the
// bytes taken, or nothing when the block is too short.
std::optional<std::size_t> applyDatum(const std::uint8_t* data, std::size_t available, const DatumBinding& datum,
                                      ObjectState& object);

// "SIM ON GROUND": at or below terrain plus the static CG height.
bool isOnGround(const ObjectState& object, double terrainFt);

}  // namespace orv::standin::detail
