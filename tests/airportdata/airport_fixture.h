#pragma once
// Airport files for the tests: a private working folder with the program's airport folders,
// a captured log, and small files written from a few lines of XML.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "test_support.h"

namespace orv::test {

// The document of an airport file: meta (with `sim` unless simInfo is empty), the parameters
// and the parkpos elements given as XML text.
std::string airportXml(std::string_view parameters, std::string_view parkpositions, std::string_view version = "12.5.4",
                       std::string_view simInfo = "1");

// A parkpos with its geometry; `inner` goes between its tags.
std::string parkposXml(std::string_view id, double latitude, double longitude, double radiusMetres = 20.0,
                       std::string_view extra = {}, std::string_view inner = {});

// The parameters of a stock file of that airport.
std::string stockParameters(std::string_view icao, std::string_view name = "Test Airport", int altitude = 100);

// input/airports.enc of the working folder with these `ap` elements, or with any plain text.
void writeCatalogue(std::string_view apElements);
void writeEncryptedCatalogue(std::string_view plain);

// Writes a file below a folder, with the folders between.
void writeBelow(const std::filesystem::path& root, const std::filesystem::path& relative, std::string_view text);

// The folder of the tests' seed airport files (tests/data/airports).
std::filesystem::path seedFolder();

class AirportTest : public testing::Test {
 protected:
  AirportTest();
  ~AirportTest() override;

  // Writes a file below the working folder, with its folders.
  void put(const std::filesystem::path& relative, std::string_view text) const;
  bool has(const std::filesystem::path& relative) const;

  TempDir work;
  LogCapture log;
  std::filesystem::path previousDir;
};

}  // namespace orv::test
