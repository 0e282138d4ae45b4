#pragma once
// Reading the `meta` block that heads the program's XML files, and telling whether a file is
// one that may be accepted: it names its copyright and, unless the reader is lenient, its simulator.
#include <pugixml.hpp>

#include <optional>
#include <string>

namespace orv {

// The first `info` value of each name; a name that is missing reads as the empty text.
struct XmlMeta {
  std::string author;
  std::string version;
  std::string date;
  std::string copyright;
  std::string sim;
  std::string p3d;
  std::string msfs;
  bool hasSimulator = false;  // one of `sim`, `P3D`, `MSFS` is present
};

// The `meta` of holder (the `root` element, or the document when it has none). Nothing when
// there is no `meta`, when `copyright` is missing or empty, or, unless lenient, when no
// simulator is named.
std::optional<XmlMeta> gf_readMeta(pugi::xml_node holder, bool lenient);

}  // namespace orv
