#include "foundation/xml_meta_reader.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "foundation/log.h"

namespace orv {

std::optional<XmlMeta> gf_readMeta(pugi::xml_node holder, bool lenient) {
  const pugi::xml_node meta = holder.child("meta");
  if (!meta) return std::nullopt;
  struct Field {
    std::string_view name;
    std::string XmlMeta::*value;
  };
  static constexpr std::array<Field, 7> kFields{{{"author", &XmlMeta::author},
                                                 {"version", &XmlMeta::version},
                                                 {"date", &XmlMeta::date},
                                                 {"copyright", &XmlMeta::copyright},
                                                 {"sim", &XmlMeta::sim},
                                                 {"P3D", &XmlMeta::p3d},
                                                 {"MSFS", &XmlMeta::msfs}}};
  constexpr std::size_t kCopyright = 3, kFirstSimulator = 4;
  XmlMeta result;
  std::array<bool, kFields.size()> seen{};
  for (pugi::xml_node info : meta.children("info")) {
    const std::string_view name = info.attribute("name").as_string();
    for (std::size_t i = 0; i < kFields.size(); ++i) {
      // Only the first info of a name counts.
      if (name != kFields[i].name || seen[i]) continue;
      seen[i] = true;
      result.*kFields[i].value = info.attribute("value").as_string();
    }
  }
  if (!seen[kCopyright]) return std::nullopt;
  if (result.copyright.empty()) {
    gf_log("no copyright info in the file?");
    return std::nullopt;
  }
  result.hasSimulator = std::any_of(seen.begin() + kFirstSimulator, seen.end(), [](bool b) { return b; });
  if (!lenient && !result.hasSimulator) return std::nullopt;
  return result;
}

}  // namespace orv
