#include "platform/simconnect/standin_facilities.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <string_view>

namespace orv::standin::detail {
namespace {

enum class FieldType { F64, F32, I32, U32, Text8, Text32, Text64 };

struct FieldInfo {
  const char* name;
  FieldType type;
};

// The fields each element can deliver; a field's code is its place in the table.
constexpr FieldInfo kAirportFields[] = {
    {"LATITUDE", FieldType::F64},  {"LONGITUDE", FieldType::F64},   {"ALTITUDE", FieldType::F64},
    {"NAME", FieldType::Text32},   {"NAME64", FieldType::Text64},   {"ICAO", FieldType::Text8},
    {"REGION", FieldType::Text8},  {"N_HELIPADS", FieldType::I32},  {"N_TAXI_PARKINGS", FieldType::I32},
};
constexpr FieldInfo kParkingFields[] = {
    {"TYPE", FieldType::I32},   {"TAXI_POINT_TYPE", FieldType::I32}, {"NAME", FieldType::I32},
    {"SUFFIX", FieldType::I32}, {"NUMBER", FieldType::U32},          {"ORIENTATION", FieldType::I32},
    {"HEADING", FieldType::F32}, {"RADIUS", FieldType::F32},         {"BIAS_X", FieldType::F32},
    {"BIAS_Z", FieldType::F32},
};
constexpr FieldInfo kHelipadFields[] = {
    {"LATITUDE", FieldType::F64}, {"LONGITUDE", FieldType::F64}, {"ALTITUDE", FieldType::F64},
    {"HEADING", FieldType::F32},  {"LENGTH", FieldType::F32},    {"WIDTH", FieldType::F32},
    {"SURFACE", FieldType::I32},  {"TYPE", FieldType::I32},
};

struct ElementInfo {
  FacilityElement element;
  const char* name;
  const FieldInfo* fields;
  std::size_t fieldCount;
  DWORD dataType;  // SIMCONNECT_FACILITY_DATA_TYPE of its records
};

constexpr ElementInfo kElements[] = {
    {FacilityElement::Airport, "AIRPORT", kAirportFields, std::size(kAirportFields), SIMCONNECT_FACILITY_DATA_AIRPORT},
    {FacilityElement::TaxiParking, "TAXI_PARKING", kParkingFields, std::size(kParkingFields),
     SIMCONNECT_FACILITY_DATA_TAXI_PARKING},
    {FacilityElement::Helipad, "HELIPAD", kHelipadFields, std::size(kHelipadFields), SIMCONNECT_FACILITY_DATA_HELIPAD},
};

const ElementInfo& info(FacilityElement element) {
  for (const auto& e : kElements) {
    if (e.element == element) return e;
  }
  return kElements[0];
}

const ElementInfo* elementNamed(std::string_view name) {
  for (const auto& e : kElements) {
    if (name == e.name) return &e;
  }
  return nullptr;
}

std::string upperTrimmed(const char* text) {
  std::string s(text);
  const auto first = s.find_first_not_of(" \t");
  if (first == std::string::npos) return {};
  s = s.substr(first, s.find_last_not_of(" \t") - first + 1);
  for (char& c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return s;
}

template <class T>
void put(std::vector<std::uint8_t>& block, T value) {
  std::uint8_t bytes[sizeof(T)];
  std::memcpy(bytes, &value, sizeof(T));
  block.insert(block.end(), bytes, bytes + sizeof(T));
}

void putText(std::vector<std::uint8_t>& block, std::string_view text, std::size_t size) {
  const std::size_t n = std::min(text.size(), size - 1);
  block.insert(block.end(), text.begin(), text.begin() + static_cast<std::ptrdiff_t>(n));
  block.insert(block.end(), size - n, std::uint8_t{0});
}

void putField(std::vector<std::uint8_t>& block, FieldType type, double number, std::string_view text) {
  switch (type) {
    case FieldType::F64: put(block, number); break;
    case FieldType::F32: put(block, static_cast<float>(number)); break;
    case FieldType::I32: put(block, static_cast<std::int32_t>(number)); break;
    case FieldType::U32: put(block, static_cast<std::uint32_t>(number)); break;
    case FieldType::Text8: putText(block, text, 8); break;
    case FieldType::Text32: putText(block, text, 32); break;
    case FieldType::Text64: putText(block, text, 64); break;
  }
}

std::vector<std::uint8_t> airportBlock(const FacilityNode& node, const AirportEntry& a) {
  std::vector<std::uint8_t> block;
  for (int code : node.fields) {
    double number = 0;
    std::string_view text;
    switch (code) {
      case 0: number = a.latitude; break;
      case 1: number = a.longitude; break;
      case 2: number = a.altitudeM; break;
      case 3:
      case 4: text = a.name; break;
      case 5: text = a.icao; break;
      case 6: text = a.region; break;
      case 7: number = static_cast<double>(a.helipads.size()); break;
      case 8: number = static_cast<double>(a.parkings.size()); break;
      default: break;
    }
    putField(block, kAirportFields[code].type, number, text);
  }
  return block;
}

std::vector<std::uint8_t> parkingBlock(const FacilityNode& node, const ParkingEntry& p) {
  std::vector<std::uint8_t> block;
  for (int code : node.fields) {
    const double values[] = {static_cast<double>(p.type),   static_cast<double>(p.taxiPointType),
                             static_cast<double>(p.name),   static_cast<double>(p.suffix),
                             static_cast<double>(p.number), static_cast<double>(p.orientation),
                             p.headingDeg,                  p.radiusM,
                             p.biasXM,                      p.biasZM};
    putField(block, kParkingFields[code].type, values[code], {});
  }
  return block;
}

std::vector<std::uint8_t> helipadBlock(const FacilityNode& node, const HelipadEntry& h) {
  std::vector<std::uint8_t> block;
  for (int code : node.fields) {
    const double values[] = {h.latitude, h.longitude, h.altitudeM, h.headingDeg, h.lengthM, h.widthM,
                             static_cast<double>(h.surface), static_cast<double>(h.type)};
    putField(block, kHelipadFields[code].type, values[code], {});
  }
  return block;
}

}  // namespace

DWORD addFacilityKeyword(FacilityDefinition& d, const char* keyword) {
  if (keyword == nullptr || d.complete) return SIMCONNECT_EXCEPTION_DATA_ERROR;
  const std::string k = upperTrimmed(keyword);
  if (k.rfind("OPEN ", 0) == 0) {
    const ElementInfo* e = elementNamed(upperTrimmed(k.c_str() + 5));
    if (e == nullptr) return SIMCONNECT_EXCEPTION_DATA_ERROR;
    // The airport is the root; its lists open only inside it.
    const bool atRoot = d.nodes.empty();
    if (atRoot != (e->element == FacilityElement::Airport)) return SIMCONNECT_EXCEPTION_DATA_ERROR;
    if (!atRoot && (d.open.empty() || d.nodes[static_cast<std::size_t>(d.open.back())].element !=
                                          FacilityElement::Airport)) {
      return SIMCONNECT_EXCEPTION_DATA_ERROR;
    }
    d.nodes.push_back(FacilityNode{e->element, {}, {}});
    const int index = static_cast<int>(d.nodes.size()) - 1;
    if (!atRoot) d.nodes[static_cast<std::size_t>(d.open.back())].children.push_back(index);
    d.open.push_back(index);
  } else if (k.rfind("CLOSE ", 0) == 0) {
    const ElementInfo* e = elementNamed(upperTrimmed(k.c_str() + 6));
    if (e == nullptr || d.open.empty() || d.nodes[static_cast<std::size_t>(d.open.back())].element != e->element) {
      return SIMCONNECT_EXCEPTION_DATA_ERROR;
    }
    d.open.pop_back();
    d.complete = d.open.empty();
  } else {
    if (d.open.empty()) return SIMCONNECT_EXCEPTION_DATA_ERROR;
    FacilityNode& node = d.nodes[static_cast<std::size_t>(d.open.back())];
    const ElementInfo& e = info(node.element);
    int code = -1;
    for (std::size_t i = 0; i < e.fieldCount; ++i) {
      if (k == e.fields[i].name) code = static_cast<int>(i);
    }
    if (code < 0) return SIMCONNECT_EXCEPTION_DATA_ERROR;
    node.fields.push_back(code);
  }
  d.keywords.emplace_back(keyword);
  return SIMCONNECT_EXCEPTION_NONE;
}

std::vector<Record> facilityReplies(const FacilityDefinition& d, const AirportEntry* airport, DWORD requestId,
                                    DWORD& lastUniqueId, DWORD version) {
  std::vector<Record> out;
  if (airport != nullptr && d.complete && !d.nodes.empty()) {
    const FacilityNode& root = d.nodes[0];
    const DWORD rootId = ++lastUniqueId;
    out.push_back(makeFacilityData(version, requestId, rootId, 0, SIMCONNECT_FACILITY_DATA_AIRPORT, false, 0, 0,
                                   airportBlock(root, *airport)));
    for (int childIndex : root.children) {
      const FacilityNode& child = d.nodes[static_cast<std::size_t>(childIndex)];
      const DWORD type = info(child.element).dataType;
      if (child.element == FacilityElement::TaxiParking) {
        const auto n = static_cast<DWORD>(airport->parkings.size());
        for (DWORD i = 0; i < n; ++i) {
          out.push_back(makeFacilityData(version, requestId, ++lastUniqueId, rootId, type, true, i, n,
                                         parkingBlock(child, airport->parkings[i])));
        }
      } else if (child.element == FacilityElement::Helipad) {
        const auto n = static_cast<DWORD>(airport->helipads.size());
        for (DWORD i = 0; i < n; ++i) {
          out.push_back(makeFacilityData(version, requestId, ++lastUniqueId, rootId, type, true, i, n,
                                         helipadBlock(child, airport->helipads[i])));
        }
      }
    }
  }
  out.push_back(makeFacilityDataEnd(version, requestId));
  return out;
}

}  // namespace orv::standin::detail
