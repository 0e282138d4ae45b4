// Building the version reply; nlohmann escapes the version text as a real client would.
#include "version_reply.h"

#include <nlohmann/json.hpp>

namespace orv::standin {

namespace {

std::string objectText(const VersionReply& reply) {
  nlohmann::ordered_json object = nlohmann::ordered_json::object();
  if (reply.level) object["level"] = *reply.level;
  object["version"] = reply.version;
  return object.dump();
}

}  // namespace

std::string versionReplyText(const VersionReply& reply) {
  switch (reply.form) {
    case ReplyForm::Object:
      return objectText(reply) + "\r\n";
    case ReplyForm::Malformed: {
      const std::string whole = objectText(reply);
      return whole.substr(0, whole.size() - 4) + "\r\n";
    }
    case ReplyForm::Array: {
      nlohmann::json array = nlohmann::json::array({reply.level.value_or(0), reply.version});
      return array.dump() + "\r\n";
    }
    case ReplyForm::Empty:
    case ReplyForm::Silent:
      return {};
  }
  return {};
}

std::optional<ReplyForm> replyFormOf(std::string_view name) {
  for (const auto form : {ReplyForm::Object, ReplyForm::Empty, ReplyForm::Malformed, ReplyForm::Array, ReplyForm::Silent})
    if (replyFormName(form) == name) return form;
  return std::nullopt;
}

std::string_view replyFormName(ReplyForm form) {
  switch (form) {
    case ReplyForm::Object: return "object";
    case ReplyForm::Empty: return "empty";
    case ReplyForm::Malformed: return "malformed";
    case ReplyForm::Array: return "array";
    case ReplyForm::Silent: return "silent";
  }
  return "object";
}

}  // namespace orv::standin
