#include "foundation/xml_meta_reader.h"

#include <string_view>

#include "foundation/log.h"

namespace orv {

std::optional<XmlMeta> gf_readMeta(pugi::xml_node holder, bool lenient) {
  const pugi::xml_node meta = holder.child("meta");
  if (!meta) return std::nullopt;
  XmlMeta result;
  bool seenAuthor = false, seenVersion = false, seenDate = false, seenCopyright = false, seenSim = false,
       seenP3d = false, seenMsfs = false;
  // Only the first info of a name counts.
  const auto takeFirst = [](bool& seen, std::string& into, const char* value) {
    if (seen) return;
    seen = true;
    into = value;
  };
  for (pugi::xml_node info : meta.children("info")) {
    const std::string_view name = info.attribute("name").as_string();
    const char* value = info.attribute("value").as_string();
    if (name == "author")
      takeFirst(seenAuthor, result.author, value);
    else if (name == "version")
      takeFirst(seenVersion, result.version, value);
    else if (name == "date")
      takeFirst(seenDate, result.date, value);
    else if (name == "copyright")
      takeFirst(seenCopyright, result.copyright, value);
    else if (name == "sim")
      takeFirst(seenSim, result.sim, value);
    else if (name == "P3D")
      takeFirst(seenP3d, result.p3d, value);
    else if (name == "MSFS")
      takeFirst(seenMsfs, result.msfs, value);
  }
  if (!seenCopyright) return std::nullopt;
  if (result.copyright.empty()) {
    gf_log("no copyright info in the file?");
    return std::nullopt;
  }
  result.hasSimulator = seenSim || seenP3d || seenMsfs;
  if (!lenient && !result.hasSimulator) return std::nullopt;
  return result;
}

}  // namespace orv
