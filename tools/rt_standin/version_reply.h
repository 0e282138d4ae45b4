#pragma once
// RealTraffic's answer to "Qs999=version", in the forms that Orvane must cope with.
#include <optional>
#include <string>
#include <string_view>

namespace orv::standin {

enum class ReplyForm {
  Object,     // {"level":2,"version":"9.0"}
  Empty,      // no bytes: the stand-in closes its sending side, so Orvane's receive gets nothing
  Malformed,  // JSON cut short
  Array,      // JSON, but not an object
  Silent,     // no answer at all: Orvane waits
};

struct VersionReply {
  ReplyForm form = ReplyForm::Object;
  std::optional<int> level = 2;  // none: the member is left out
  std::string version = "9.0";
};

// The bytes sent back; empty for Empty and Silent.
std::string versionReplyText(const VersionReply& reply);

// "object", "empty", "malformed", "array", "silent"; none for any other text.
std::optional<ReplyForm> replyFormOf(std::string_view name);
std::string_view replyFormName(ReplyForm form);

}  // namespace orv::standin
