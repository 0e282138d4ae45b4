#include "refdata/dbase_reader.h"

#include <pugixml.hpp>

#include <algorithm>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "foundation/log.h"
#include "foundation/text_utils.h"
#include "foundation/user_error.h"
#include "foundation/xml_file.h"
#include "refdata/code_tables.h"
#include "refdata/data_file_crypto.h"
#include "refdata/model_categories.h"
#include "refdata/prefix_groups.h"
#include "refdata/registrations.h"
#include "refdata/scenery_lists.h"
#include "refdata/similar_models.h"
#include "refdata/valid_codes.h"
#include "refdata/wingspans.h"

namespace fs = std::filesystem;

namespace orv {

namespace {

// Items of a comma list, trimmed; empty items are ignored.
std::vector<std::string> splitList(std::string_view text) {
  std::vector<std::string> items;
  while (!text.empty()) {
    const auto comma = text.find(',');
    std::string item = gf_trim(text.substr(0, comma));
    if (!item.empty()) items.push_back(std::move(item));
    if (comma == std::string_view::npos) break;
    text.remove_prefix(comma + 1);
  }
  return items;
}

pugi::xml_node section(pugi::xml_node root, const char* name, bool required) {
  pugi::xml_node node = root.child(name);
  if (!node && required)
    throw UserErrorException(user_error::kXmlStructure, std::string(user_error::kMissingSectionText) + name);
  return node;
}

// All items of one attribute over the children of a section. A required section must give at least one.
std::vector<std::string> listItems(pugi::xml_node root, const char* name, const char* child, const char* attribute,
                                   bool required) {
  std::vector<std::string> items;
  for (pugi::xml_node element : section(root, name, required).children(child))
    for (std::string& item : splitList(element.attribute(attribute).value())) items.push_back(std::move(item));
  if (required && items.empty())
    throw UserErrorException(user_error::kXmlStructure, user_error::kEmptyAttributeText, name, child, attribute);
  return items;
}

CodeSet codeSet(pugi::xml_node root, const char* name, const char* child, const char* attribute) {
  std::vector<std::string> items = listItems(root, name, child, attribute, true);
  return CodeSet(std::make_move_iterator(items.begin()), std::make_move_iterator(items.end()));
}

std::set<uint16_t> modelIndexes(const CodeSet& codes) {
  std::set<uint16_t> indexes;
  for (const std::string& code : codes) indexes.insert(modelIndex(code));
  return indexes;
}

// One group per child, each sorted.
std::vector<std::vector<std::string>> groups(pugi::xml_node root, const char* name) {
  std::vector<std::vector<std::string>> result;
  result.reserve(64);
  for (pugi::xml_node element : section(root, name, false).children("similar")) {
    std::vector<std::string> members = splitList(element.attribute("types").value());
    std::sort(members.begin(), members.end());
    result.push_back(std::move(members));
  }
  return result;
}

void readModels(pugi::xml_node root) {
  validModels = codeSet(root, "aircrafts", "aircraft", "types");
  gf_log("\n{:5} ICAO model codes", validModels.size());
  cargoTypes = codeSet(root, "cargo_types", "cargo_type", "types");
  modelIndex("");
  for (const std::string& code : validModels) modelIndex(code);
  gf_setModelFixLookup(true);
  for (const std::string& code : cargoTypes) modelIndex(code);

  const CodeSet heavy = codeSet(root, "heavy", "hvy", "types");
  const CodeSet large = codeSet(root, "large", "lar", "types");
  const CodeSet buzjet = codeSet(root, "buzjet", "bzj", "types");
  const CodeSet highPerf = codeSet(root, "high_performance", "hpf", "types");
  const CodeSet rotorcraft = codeSet(root, "rotorcraft", "rot", "types");
  heavyModels = modelIndexes(heavy);
  largeModels = modelIndexes(large);
  buzjetModels = modelIndexes(buzjet);
  highPerfModels = modelIndexes(highPerf);
  rotorcraftModels = modelIndexes(rotorcraft);

  similarGroups = groups(root, "similar_types");
  prefixGroupLists = groups(root, "prefixes");
  gf_log("{:5} prefixes", prefixGroupLists.size());
  lf_buildPrefixGroups();
}

void readAirlines(pugi::xml_node root) {
  validAirlines = codeSet(root, "ICAO_airlines", "ICAO", "codes");
  gf_log("{:5} ICAO airline codes", validAirlines.size());
  cargoOperators = codeSet(root, "cargo_operators", "ICAO", "codes");
  gf_log("{:5} cargo operators", cargoOperators.size());
  airlineIndex("");
  for (const std::string& code : validAirlines) airlineIndex(code);
  for (const std::string& code : cargoOperators) airlineIndex(code);
}

void readPublishers(pugi::xml_node root) {
  std::vector<std::string> texts;
  for (pugi::xml_node element : section(root, "publishers", false).children("pub"))
    texts.emplace_back(element.attribute("names").value());
  std::sort(texts.begin(), texts.end());
  texts.erase(std::unique(texts.begin(), texts.end()), texts.end());
  for (const std::string& text : texts) publishers.push_back(splitList(text));
  gf_log("{:5} publishers", publishers.size());
}

void readWingspans(pugi::xml_node root) {
  std::vector<std::pair<std::string, double>> entries;
  for (pugi::xml_node element : section(root, "wingspans", false).children("wingspan"))
    entries.emplace_back(element.attribute("type").value(), element.attribute("meters").as_double());
  lf_fillWingspans(entries);
}

void readFixes(pugi::xml_node root) {
  for (pugi::xml_node element : section(root, "fixes", false).children("fx")) {
    const std::string wrong = element.attribute("wro").value();
    const std::string right = element.attribute("cor").value();
    if (!isValidModel(right)) {
      gf_logError("wrong fix {} -> {}, the latter is not valid", wrong, right);
      continue;
    }
    if (!modelFixes.emplace(wrong, right).second)
      gf_logError("wrong part of fix: '{}', already exists, skipped", wrong);
  }
  gf_log("{:5} fixes", modelFixes.size());
}

void readScenery(pugi::xml_node root) {
  for (std::string& code : listItems(root, "simaddons20", "simaddon20", "arpts", true))
    simAddons20.insert(std::move(code));
  for (std::string& code : listItems(root, "simaddons24", "simaddon24", "arpts", true))
    simAddons24.insert(std::move(code));
  gf_log("{} simaddons24", simAddons24.size());

  const auto readThirdParties = [&](const char* name, const char* child, std::vector<ThirdParty>& list, size_t room) {
    list.reserve(room);
    for (pugi::xml_node element : section(root, name, false).children(child))
      list.push_back(ThirdParty{element.attribute("pub").value(), splitList(element.attribute("arpts").value())});
  };
  readThirdParties("thirdparties20", "thirdpartie20", thirdParties20, 600);
  readThirdParties("thirdparties24", "thirdpartie24", thirdParties24, 300);
}

void readRecords(pugi::xml_node root) {
  std::vector<DbaseRecord> records;
  records.reserve(65536);
  for (pugi::xml_node element : section(root, "dbase", false).children("d")) {
    DbaseRecord& record = records.emplace_back();
    record.reg = element.attribute("r").value();
    record.code.airline = airlineIndex(element.attribute("a").value());
    record.code.airline2 = airlineIndex(element.attribute("o").value());
    record.code.acType = modelIndex(element.attribute("m").value());
    record.code.cargo = element.attribute("c").as_bool() ? 1 : 0;
    record.code.fromRegTable = 1;
  }
  lf_setDbaseRecords(std::move(records));
  gf_log("{:5} dbase records read", dbaseRecords.size());
}

void clearDbaseTables() {
  lf_clearValidCodes();
  lf_clearModelCategories();
  lf_clearWingspans();
  lf_clearSimilarModels();
  lf_clearPrefixGroups();
  lf_clearSceneryLists();
  dbaseRecords.clear();
}

}  // namespace

bool gf_readDbaseFile(const fs::path& encPath) {
  std::error_code ec;
  if (!fs::exists(encPath, ec)) throw std::runtime_error(fmt::format("{} not available", encPath.string()));
  fs::path plainPath = encPath;
  plainPath.replace_extension(".xml");
  if (!decryptDataFile(encPath, plainPath))
    throw std::runtime_error(fmt::format("{} stream decrypt failed", encPath.string()));

  pugi::xml_document doc;
  if (const pugi::xml_parse_result loaded = gf_loadXmlFile(doc, plainPath); !loaded) {
    gf_log("'{}' not read because of {}", plainPath.string(), loaded.description());
    removeDataFile(plainPath);
    return false;
  }
  try {
    const pugi::xml_node root = doc.child("root");
    if (!root)
      throw UserErrorException(user_error::kXmlStructure, std::string(user_error::kXmlRootMissingText) + "root");
    clearDbaseTables();
    readModels(root);
    readAirlines(root);
    readPublishers(root);
    readWingspans(root);
    readFixes(root);
    readScenery(root);
    readRecords(root);
  } catch (const UserErrorException&) {
    removeDataFile(plainPath);
    throw;
  } catch (const std::exception& e) {
    removeDataFile(plainPath);
    throw UserErrorException(user_error::kDecryptedRead, e.what());
  }
  gf_flushLog();
  removeDataFile(plainPath);
  return true;
}

bool gf_readDbase() { return gf_readDbaseFile(kDbaseEncPath); }

void gf_resetDbase() {
  clearDbaseTables();
  gf_resetCodeTables();
}

}  // namespace orv
