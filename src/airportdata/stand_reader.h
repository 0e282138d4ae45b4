#pragma once
// Reading stands from an airport file: the `parkpos` elements with their `opt` children.
#include <pugixml.hpp>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "airportdata/stands.h"

namespace orv {

// Appends every stand of `parkpositions` (under `root` or the document) to the table, options
// marked fromArchive; nothing when the element is missing. Throws UserErrorException 93 for a
// stand without id or with an empty one, 94 for an id that comes twice.
void readStands(const pugi::xml_document& doc, std::vector<Stand>& stands);

// One archived airport file held in memory, as the loader makes it ready: its stands read,
// numbered and with their adjacency. Throws std::runtime_error for a text that is no XML, and
// the UserErrorException of readStands.
std::vector<Stand> gf_standsFromText(std::string_view xml);

// The trimmed id of a parkpos; `count` is its running number for the messages. Throws
// UserErrorException 93 when it is missing or empty.
std::string readStandId(pugi::xml_node parkpos, std::size_t count);

// The stand of a parkpos whose id is already read, with its acceptable options.
Stand readParkpos(pugi::xml_node parkpos, std::string id, bool fromArchive);

// Every attribute of an opt as it stands, usable or not; number 0, not fromArchive.
StandOpt readOptionAttributes(pugi::xml_node opt);

// "cs" or "cs:cs2", split at the first colon.
struct Callsigns {
  std::string cs;
  std::string cs2;
};
Callsigns splitCallsigns(std::string_view text);

// Who flew an option: the registration table's code when one of the candidate spellings of
// `reg` is known there, else the element's `airl` and `type`.
AcCode readOptionCode(pugi::xml_node opt, const std::string& reg);

}  // namespace orv
