#pragma once
// The `meta` block that heads every XML file the program writes: who wrote it, with which
// version, when, and for which simulator.
#include <pugixml.hpp>

namespace orv {

// Appends `meta` to parent with the `info` elements author, version, date, copyright and sim
// (1 for MSFS 2020, 2 for MSFS 2024).
void gf_appendMeta(pugi::xml_node parent, int sim);

}  // namespace orv
