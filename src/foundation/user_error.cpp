#include "foundation/user_error.h"

namespace orv {

namespace {
std::string whatText(int code, const std::string& text) {
  if (code == user_error::kMissingAttribute) return text;
  return fmt::format("{}: {}", code, text);
}
}  // namespace

UserErrorException::UserErrorException(int code, const std::string& text)
    : std::runtime_error(whatText(code, text)), code_(code), text_(text) {}

}  // namespace orv
