#include "foundation/xml_file.h"

namespace orv {

pugi::xml_parse_result gf_loadXmlFile(pugi::xml_document& doc, const std::filesystem::path& file) {
  std::error_code ec;
  if (!std::filesystem::is_regular_file(file, ec)) {
    doc.reset();
    pugi::xml_parse_result result;
    result.status = ec || !std::filesystem::exists(file, ec) ? pugi::status_file_not_found : pugi::status_io_error;
    return result;
  }
  return doc.load_file(file.c_str());
}

}  // namespace orv
