#pragma once
// Catalogues for the livery tests: written as LiveriesScanned.xml and indexed in a private
// working folder, with the model categories, similar groups and prefix groups of the dbase.
#include <filesystem>
#include <initializer_list>
#include <string>
#include <vector>

#include "test_support.h"

namespace orv::test {

struct Livery {
  Livery(std::string airline, std::string model, std::string title, std::string regcode = "", bool cargo = false,
         std::string airline2 = "")
      : a(std::move(airline)),
        m(std::move(model)),
        t(std::move(title)),
        r(std::move(regcode)),
        c(cargo),
        o(std::move(airline2)) {}
  std::string a;  // airline
  std::string m;  // model
  std::string t;  // title
  std::string r;  // regcode
  bool c;
  std::string o;  // second airline
};

// The text of a catalogue with these records, in the given order.
std::string catalogueXml(const std::vector<Livery>& liveries);

// The model sets of the dbase, by code: Large, Heavy, Buzjets, HighPerf, Rotorcraft.
void setCategories(std::initializer_list<const char*> large, std::initializer_list<const char*> heavy,
                   std::initializer_list<const char*> buzjets, std::initializer_list<const char*> highPerf,
                   std::initializer_list<const char*> rotorcraft);

// A working folder of its own for the life of the object (the catalogue's reports go to its
// output/), with the catalogue written and indexed by index().
class CatalogueFolder {
 public:
  CatalogueFolder();
  ~CatalogueFolder();
  CatalogueFolder(const CatalogueFolder&) = delete;
  CatalogueFolder& operator=(const CatalogueFolder&) = delete;

  std::filesystem::path file() const { return dir_ / "output" / "LiveriesScanned.xml"; }
  void write(const std::vector<Livery>& liveries) const;
  // Writes and runs gf_processScannedLiveries on it.
  void index(const std::vector<Livery>& liveries) const;
  const std::filesystem::path& path() const { return dir_.path(); }

 private:
  TempDir dir_;
  std::filesystem::path previous_;
};

}  // namespace orv::test
