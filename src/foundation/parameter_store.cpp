#include "foundation/parameter_store.h"

#include <pugixml.hpp>

#include <cmath>
#include <mutex>
#include <sstream>
#include <system_error>

#include "foundation/atomic_file.h"
#include "foundation/generations.h"
#include "foundation/log.h"
#include "foundation/parameters.h"
#include "foundation/program_info.h"
#include "foundation/run_flags.h"
#include "foundation/user_paths.h"
#include "foundation/xml_file.h"

namespace fs = std::filesystem;

namespace orv {

namespace {

constexpr std::string_view kSection = "parameters";

// Load, change and save of the file are one step: two threads saving at once must not
// lose each other's change.
std::recursive_mutex& fileMutex() {
  static std::recursive_mutex m;
  return m;
}

std::string lineOf(const ValueParameter<bool>& p) { return fmt::format("{}={}", p.name, p.value); }
std::string lineOf(const ValueParameter<std::int32_t>& p) { return fmt::format("{}={}", p.name, p.value); }
std::string lineOf(const ValueParameter<std::string>& p) { return fmt::format("{}=\"{}\"", p.name, p.value); }

void setAttribute(pugi::xml_attribute a, const ValueParameter<bool>& p, bool useDefault) {
  a.set_value(useDefault ? p.defaultValue : p.value);
}
void setAttribute(pugi::xml_attribute a, const ValueParameter<std::int32_t>& p, bool useDefault) {
  a.set_value(useDefault ? p.defaultValue : p.value);
}
void setAttribute(pugi::xml_attribute a, const ValueParameter<std::string>& p, bool useDefault) {
  a.set_value(useDefault ? p.defaultValue.c_str() : p.value.c_str());
}

void readValue(ValueParameter<bool>& p, pugi::xml_attribute a) { p.set(a.as_bool(false)); }
void readValue(ValueParameter<std::int32_t>& p, pugi::xml_attribute a) { p.set(a.as_int(0)); }
void readValue(ValueParameter<std::string>& p, pugi::xml_attribute a) { p.set(a.as_string("")); }

// Calls f on every stored parameter, list by list in the order of the file.
template <class F>
void forEachStored(F&& f) {
  for (auto* p : gf_boolList()) f(*p);
  for (auto* p : gf_checkboxList()) f(static_cast<ValueParameter<bool>&>(*p));
  for (auto* p : gf_intList()) f(*p);
  for (auto* p : gf_comboList()) f(static_cast<ValueParameter<std::int32_t>&>(*p));
  for (auto* p : gf_stringList()) f(*p);
  for (auto* p : gf_editList()) f(static_cast<ValueParameter<std::string>&>(*p));
}


bool saveDocument(pugi::xml_document& doc, const fs::path& file) {
  pugi::xml_node decl = doc.first_child();
  if (decl.type() != pugi::node_declaration) decl = doc.prepend_child(pugi::node_declaration);
  decl.remove_attributes();
  decl.append_attribute("version") = "1.0";
  decl.append_attribute("encoding") = "UTF-8";
  std::string error;
  const bool ok = gf_writeFileAtomically(
      file, [&](std::ostream& out) { doc.save(out, "  ", pugi::format_default | pugi::format_no_declaration, pugi::encoding_utf8); },
      &error);
  if (!ok) {
    gf_logError("saving: {} failed", file.string());
    gf_log(error);
  }
  return ok;
}

template <class T>
void saveOne(const ValueParameter<T>& parameter) {
  std::lock_guard lock(fileMutex());
  const fs::path file = gf_parametersPath();
  pugi::xml_document doc;
  bool hadRoot = true;
  pugi::xml_node params;
  if (gf_loadXmlFile(doc, file)) {
    pugi::xml_node root = doc.child("root");
    hadRoot = static_cast<bool>(root);
    pugi::xml_node holder = hadRoot ? root : pugi::xml_node(doc);
    params = holder.child("parameters");
    if (!params) params = holder.append_child("parameters");
  } else {
    // A damaged file is kept as a generation before this one parameter replaces it.
    std::error_code ec;
    if (fs::exists(file, ec)) gf_save1GenerationOf(file);
    doc.reset();
    params = doc.append_child("root").append_child("parameters");
  }

  bool matched = false;
  for (pugi::xml_node p : params.children("parameter")) {
    if (parameter.name != p.attribute("name").as_string()) continue;
    pugi::xml_attribute value = p.attribute("value");
    if (!value) value = p.append_attribute("value");
    setAttribute(value, parameter, false);
    matched = true;
  }
  if (!matched) {
    pugi::xml_node p = params.append_child("parameter");
    p.append_attribute("name") = parameter.name.c_str();
    setAttribute(p.append_attribute("value"), parameter, false);
  }

  gf_logIfRunning(lineOf(parameter));
  if (!hadRoot) {
    // Old files hold the parameters at document level; the first change rewrites them whole.
    gf_log("\nPlacing a root level around a new parameters.xml to make it 100% xml compliance\n");
    std::error_code ec;
    fs::remove(file, ec);
    gf_writeParameters(false);
    return;
  }
  saveDocument(doc, file);
}

}  // namespace

pugi::xml_node gf_parametersNode(const pugi::xml_document& doc) {
  if (auto root = doc.child("root")) return root.child("parameters");
  return doc.child("parameters");
}

bool gf_readParameters() {
  std::lock_guard lock(fileMutex());
  const fs::path file = gf_parametersPath();
  pugi::xml_document doc;
  const pugi::xml_parse_result loaded = gf_loadXmlFile(doc, file);
  pugi::xml_node params = loaded ? gf_parametersNode(doc) : pugi::xml_node();
  if (!params) {
    std::error_code ec;
    // A file that is there but unusable is kept as a generation before it is replaced.
    if (fs::exists(file, ec)) gf_save1GenerationOf(file);
    gf_log("{} not found, creating new with default values:", file.string());
    gf_writeParameters(true);
    gf_showParameterValues();
    return true;
  }

  gf_logSectionStart(kSection);
  gf_log("from '{}'", file.string());
  forEachStored([&](auto& parameter) {
    // By the element's first name, as a save finds it: an element with a second name is
    // another parameter's only for the first.
    pugi::xml_node found;
    for (pugi::xml_node p : params.children("parameter")) {
      if (parameter.name == p.attribute("name").as_string()) {
        found = p;
        break;
      }
    }
    if (found) {
      readValue(parameter, found.attribute("value"));
    } else {
      parameter.set(parameter.defaultValue);
      pugi::xml_node p = params.append_child("parameter");
      p.append_attribute("name") = parameter.name.c_str();
      setAttribute(p.append_attribute("value"), parameter, true);
    }
    gf_logIfRunning(lineOf(parameter));
  });
  gf_setRange(RANGE.value);
  gf_showParameterValues();
  saveDocument(doc, file);
  gf_logSectionEnd(kSection);
  return false;
}

void gf_writeParameters(bool useDefaults) {
  std::lock_guard lock(fileMutex());
  const fs::path file = gf_parametersPath();
  if (useDefaults) PROGRAM_VERSION.defaultValue = kRunningVersion.text();

  pugi::xml_document doc;
  pugi::xml_node params = doc.append_child("root").append_child("parameters");
  gf_logSectionStart(kSection);
  forEachStored([&](auto& parameter) {
    if (useDefaults) parameter.set(parameter.defaultValue);
    pugi::xml_node p = params.append_child("parameter");
    pugi::xml_attribute name = p.append_attribute("name");
    pugi::xml_attribute value = p.append_attribute("value");
    if (!p || !name || !value || !name.set_value(parameter.name.c_str())) {
      gf_logIfRunning(fmt::format("{}adding xml parameter {} with {} failed!", "===> ", parameter.name, lineOf(parameter)));
      return;
    }
    setAttribute(value, parameter, useDefaults);
    gf_logIfRunning(lineOf(parameter));
  });
  if (useDefaults) gf_setRange(RANGE.value);
  std::error_code ec;
  fs::create_directories(file.parent_path(), ec);
  saveDocument(doc, file);
  gf_logSectionEnd(kSection);
}

void saveBool(const ValueParameter<bool>& parameter) { saveOne(parameter); }
void saveInt(const ValueParameter<std::int32_t>& parameter) { saveOne(parameter); }
void saveString(const ValueParameter<std::string>& parameter) { saveOne(parameter); }

void gf_setRange(std::int32_t nm) {
  RANGE.set(nm);
  gv_rangeNm.store(RANGE.value, std::memory_order_relaxed);
  gv_rangeMeters.store(RANGE.value * 1852, std::memory_order_relaxed);
}

void gf_setMaxFitHours(float hours) {
  MAX_FIT_FL.set(hours);
  MAX_FIT.set(static_cast<std::int32_t>(std::lround(2.0 * MAX_FIT_FL.value)) - 1);
  saveInt(MAX_FIT);
}

void gf_maxFitFromStored() { MAX_FIT_FL.set(static_cast<float>(MAX_FIT.value + 1) / 2.0f); }

}  // namespace orv
