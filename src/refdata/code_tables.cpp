#include "refdata/code_tables.h"

#include <deque>
#include <mutex>
#include <shared_mutex>
#include <unordered_map>

namespace orv {
namespace {

struct CodeTable {
  mutable std::shared_mutex mutex;
  std::deque<std::string> texts{std::string()};  // deque: views of the map stay valid on growth
  std::unordered_map<std::string_view, uint16_t> index{{std::string_view(), 0}};

  uint16_t lookup(std::string_view code) {
    {
      std::shared_lock lock(mutex);
      if (auto it = index.find(code); it != index.end()) return it->second;
    }
    std::unique_lock lock(mutex);
    if (auto it = index.find(code); it != index.end()) return it->second;
    auto next = static_cast<uint16_t>(texts.size());
    texts.emplace_back(code);
    index.emplace(texts.back(), next);
    return next;
  }
  std::string text(uint16_t i) const {
    std::shared_lock lock(mutex);
    return i < texts.size() ? texts[i] : std::string();
  }
  size_t size() const {
    std::shared_lock lock(mutex);
    return texts.size();
  }
  void reset() {
    std::unique_lock lock(mutex);
    index.clear();
    texts.assign(1, std::string());
    index.emplace(texts.front(), 0);
  }
};

CodeTable& airlines() {
  static CodeTable t;
  return t;
}
CodeTable& models() {
  static CodeTable t;
  return t;
}

}  // namespace

uint16_t airlineIndex(std::string_view code) { return airlines().lookup(code); }
uint16_t modelIndex(std::string_view code) { return models().lookup(code); }
std::string airlineCode(uint16_t index) { return airlines().text(index); }
std::string modelCode(uint16_t index) { return models().text(index); }
size_t airlineCount() { return airlines().size(); }
size_t modelCount() { return models().size(); }
void gf_resetCodeTables() {
  airlines().reset();
  models().reset();
}

}  // namespace orv
