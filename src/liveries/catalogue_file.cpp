#include "liveries/catalogue_file.h"

#include <pugixml.hpp>

#include "foundation/atomic_file.h"
#include "foundation/log.h"
#include "foundation/sim_choice.h"
#include "foundation/user_error.h"
#include "foundation/xml_file.h"
#include "foundation/xml_meta.h"
#include "refdata/code_tables.h"

namespace orv {

std::list<LiveryRecord> liveriesScannedList;

namespace {

const char* requiredAttribute(const pugi::xml_node& element, const char* name) {
  const pugi::xml_attribute attribute = element.attribute(name);
  if (!attribute)
    throw UserErrorException(user_error::kMissingAttribute, user_error::kMissingAttributeText, name, element.name());
  return attribute.value();
}

// A code table's look-up that remembers the last code it was asked for.
class CodeLookup {
 public:
  explicit CodeLookup(std::uint16_t (*lookup)(std::string_view)) : lookup_(lookup) {}
  std::uint16_t operator()(std::string_view code) {
    if (!known_ || code != last_) {
      last_.assign(code);
      index_ = lookup_(code);
      known_ = true;
    }
    return index_;
  }

 private:
  std::uint16_t (*lookup_)(std::string_view);
  std::string last_;
  std::uint16_t index_ = 0;
  bool known_ = false;
};

// The records of a loaded catalogue; the meta block is not looked at.
void readRecords(const pugi::xml_document& doc, const std::string& name) {
  const pugi::xml_node liveries = doc.child("root").child("liveries");
  if (!liveries) throw UserErrorException(user_error::kNoLiveriesSection, user_error::kNoLiveriesSectionText, name);
  // A catalogue lists one airline and model after the other: most records repeat the codes of
  // the one before, which then need no look-up in the code tables.
  CodeLookup airlines(airlineIndex), airlines2(airlineIndex), models(modelIndex);
  // Read aside: a refused catalogue leaves no half of itself behind.
  std::list<LiveryRecord> records;
  for (const pugi::xml_node element : liveries.children()) {
    if (element.type() != pugi::node_element) continue;
    LiveryRecord record;
    record.code.airline = airlines(requiredAttribute(element, "a"));
    record.code.acType = models(requiredAttribute(element, "m"));
    record.title = requiredAttribute(element, "t");
    // A livery is created by its title: an empty one is as good as none.
    if (record.title.empty())
      throw UserErrorException(user_error::kMissingAttribute, user_error::kMissingAttributeText, "t", element.name());
    record.code.airline2 = airlines2(element.attribute("o").value());
    record.code.cargo = element.attribute("c").as_bool(false) ? 1 : 0;
    record.regcode = element.attribute("r").value();
    records.push_back(std::move(record));
  }
  if (records.empty())
    throw UserErrorException(user_error::kNoLiveriesInFile, name + user_error::kNoLiveriesInFileTail);
  gf_sortLiveries(records);
  liveriesScannedList = std::move(records);
  gf_log("{:5} liveries read from {}", liveriesScannedList.size(), name);
}

}  // namespace

void gf_saveLiveriesScanned(const std::filesystem::path& file) {
  if (liveriesScannedList.empty()) return;
  gf_sortLiveries(liveriesScannedList);
  pugi::xml_document doc;
  pugi::xml_node root = doc.append_child("root");
  gf_appendMeta(root, gv_simGeneration);
  pugi::xml_node liveries = root.append_child("liveries");
  for (const LiveryRecord& record : liveriesScannedList) {
    pugi::xml_node l = liveries.append_child("l");
    l.append_attribute("a") = airlineCode(record.code.airline).c_str();
    if (record.code.airline2 != 0) l.append_attribute("o") = airlineCode(record.code.airline2).c_str();
    l.append_attribute("m") = modelCode(record.code.acType).c_str();
    if (record.code.cargo) l.append_attribute("c") = true;
    l.append_attribute("t") = record.title.c_str();
    if (!record.regcode.empty()) l.append_attribute("r") = record.regcode.c_str();
  }
  std::string error;
  if (!gf_writeFileAtomically(
          file, [&](std::ostream& out) { doc.save(out, "  ", pugi::format_indent, pugi::encoding_auto); }, &error)) {
    gf_logError("saving: {} failed ({})", file.string(), error);
    return;
  }
  gf_log("{} liveries in {}", liveriesScannedList.size(), file.string());
}

void gf_readLiveriesScanned(const std::filesystem::path& file) {
  liveriesScannedList.clear();
  const std::string name = file.string();
  pugi::xml_document doc;
  if (!gf_loadXmlFile(doc, file))
    throw UserErrorException(user_error::kFileNotFound, user_error::kFileNotFoundText, name);
  readRecords(doc, name);
}

void lf_readLiveriesScannedText(std::string_view xml, const std::string& name) {
  liveriesScannedList.clear();
  pugi::xml_document doc;
  if (!doc.load_buffer(xml.data(), xml.size()))
    throw UserErrorException(user_error::kFileNotFound, user_error::kFileNotFoundText, name);
  readRecords(doc, name);
}

}  // namespace orv
