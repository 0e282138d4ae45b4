#include "refdata/code_tables.h"

#include <atomic>
#include <deque>
#include <limits>
#include <mutex>
#include <optional>
#include <shared_mutex>
#include <unordered_map>

#include "refdata/valid_codes.h"

namespace orv {
namespace {

// FNV-1a, 64 bits: the codes are short, and this spreads them well at little cost.
struct Fnv1a64 {
  std::size_t operator()(std::string_view text) const noexcept {
    std::uint64_t h = 14695981039346656037ull;
    for (const char c : text) {
      h ^= static_cast<unsigned char>(c);
      h *= 1099511628211ull;
    }
    return static_cast<std::size_t>(h);
  }
};

struct CodeTable {
  mutable std::shared_mutex mutex;
  std::deque<std::string> texts{std::string()};  // deque: views of the map stay valid on growth
  std::unordered_map<std::string_view, uint16_t, Fnv1a64> index{{std::string_view(), 0}};

  std::optional<uint16_t> find(std::string_view code) const {
    std::shared_lock lock(mutex);
    if (auto it = index.find(code); it != index.end()) return it->second;
    return std::nullopt;
  }
  uint16_t lookup(std::string_view code) {
    if (auto found = find(code)) return *found;
    std::unique_lock lock(mutex);
    if (auto it = index.find(code); it != index.end()) return it->second;
    // Indexes are 16 bits: a full table takes no more texts, and a new one means none, instead
    // of wrapping onto the index of another (a feed can bring any number of new models).
    if (texts.size() > std::numeric_limits<uint16_t>::max()) return 0;
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
std::atomic<bool> fixLookupOn{false};

}  // namespace

uint16_t airlineIndex(std::string_view code) { return airlines().lookup(code); }

uint16_t modelIndex(std::string_view code) {
  CodeTable& table = models();
  if (auto found = table.find(code)) return *found;
  if (fixLookupOn.load(std::memory_order_relaxed)) {
    if (auto right = modelFix(code))
      if (auto found = table.find(*right)) return *found;
  }
  return table.lookup(code);
}

std::string airlineCode(uint16_t index) { return airlines().text(index); }
std::string modelCode(uint16_t index) { return models().text(index); }
size_t airlineCount() { return airlines().size(); }
size_t modelCount() { return models().size(); }
void gf_setModelFixLookup(bool on) { fixLookupOn.store(on, std::memory_order_relaxed); }
void gf_resetCodeTables() {
  gf_setModelFixLookup(false);
  airlines().reset();
  models().reset();
}

}  // namespace orv
