#include "foundation/xml_meta.h"

#include <fmt/format.h>

#include <ctime>
#include <string>

#include "foundation/program_info.h"
#include "foundation/time_text.h"

namespace orv {

namespace {
void addInfo(pugi::xml_node meta, const char* name, const std::string& value) {
  pugi::xml_node info = meta.append_child("info");
  info.append_attribute("name") = name;
  info.append_attribute("value") = value.c_str();
}
}  // namespace

void gf_appendMeta(pugi::xml_node parent, int sim) {
  pugi::xml_node meta = parent.append_child("meta");
  addInfo(meta, "author", std::string(kProgramName));
  addInfo(meta, "version", kRunningVersion.text());
  addInfo(meta, "date", gf_longTimeText(std::time(nullptr)));
  addInfo(meta, "copyright", fmt::format("(c) the {} developers, MIT licence", kProgramName));
  addInfo(meta, "sim", std::to_string(sim));
}

}  // namespace orv
