#pragma once
// Loading an XML file with pugixml, refusing anything that is not a regular file: a folder
// in the file's place would otherwise be read as a stream of unknown, huge length.
#include <pugixml.hpp>

#include <filesystem>

namespace orv {

pugi::xml_parse_result gf_loadXmlFile(pugi::xml_document& doc, const std::filesystem::path& file);

}  // namespace orv
