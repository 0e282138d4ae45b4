#include "catalogue_fixture.h"

#include <pugixml.hpp>

#include <sstream>

#include "liveries/livery_catalogue.h"
#include "refdata/code_tables.h"
#include "refdata/model_categories.h"

namespace orv::test {

std::string catalogueXml(const std::vector<Livery>& liveries) {
  pugi::xml_document doc;
  pugi::xml_node list = doc.append_child("root").append_child("liveries");
  for (const Livery& l : liveries) {
    pugi::xml_node e = list.append_child("l");
    e.append_attribute("a") = l.a.c_str();
    if (!l.o.empty()) e.append_attribute("o") = l.o.c_str();
    e.append_attribute("m") = l.m.c_str();
    if (l.c) e.append_attribute("c") = true;
    e.append_attribute("t") = l.t.c_str();
    if (!l.r.empty()) e.append_attribute("r") = l.r.c_str();
  }
  std::ostringstream out;
  doc.save(out, "  ");
  return out.str();
}

void setCategories(std::initializer_list<const char*> large, std::initializer_list<const char*> heavy,
                   std::initializer_list<const char*> buzjets, std::initializer_list<const char*> highPerf,
                   std::initializer_list<const char*> rotorcraft) {
  const auto fill = [](std::set<uint16_t>& set, std::initializer_list<const char*> codes) {
    set.clear();
    for (const char* code : codes) set.insert(modelIndex(code));
  };
  fill(largeModels, large);
  fill(heavyModels, heavy);
  fill(buzjetModels, buzjets);
  fill(highPerfModels, highPerf);
  fill(rotorcraftModels, rotorcraft);
}

CatalogueFolder::CatalogueFolder() : previous_(std::filesystem::current_path()) {
  std::filesystem::create_directories(dir_ / "output");
  std::filesystem::current_path(dir_.path());
}

CatalogueFolder::~CatalogueFolder() { std::filesystem::current_path(previous_); }

void CatalogueFolder::write(const std::vector<Livery>& liveries) const { writeFile(file(), catalogueXml(liveries)); }

void CatalogueFolder::index(const std::vector<Livery>& liveries) const {
  write(liveries);
  gf_processScannedLiveries(file());
}

}  // namespace orv::test
