#include "foundation/message_area.h"

#include <algorithm>
#include <mutex>

#include "foundation/log.h"

namespace orv {

namespace {
std::mutex gMessageMutex;
MessageAreaText gArea;
}  // namespace

void setMessage(std::string_view text, bool logIt) {
  {
    std::lock_guard lock(gMessageMutex);
    if (!gArea.errorText.empty()) return;  // an error is never overwritten by a message
    gArea.messageText = std::string(text);
    gArea.messageBornAt = text.empty() ? 0 : static_cast<std::int32_t>(std::max<std::uint32_t>(gArea.secondCounter, 1));
  }
  if (logIt && !text.empty()) gf_log(text);
  // Outside the mutex: a painter on the window thread must never wait for us.
  gf_paintMessageArea();
}

void clearMessage() { setMessage({}); }

void setError(std::string_view text) {
  {
    std::lock_guard lock(gMessageMutex);
    gArea.messageText.clear();
    gArea.messageBornAt = 0;
    gArea.errorText = std::string(text);
    gf_log("Error {}", text);
  }
  gf_paintMessageArea();
}

void gf_ageMessage() {
  bool expired = false;
  {
    std::lock_guard lock(gMessageMutex);
    ++gArea.secondCounter;
    expired = gArea.messageBornAt >= 1 &&
              gArea.secondCounter - static_cast<std::uint32_t>(gArea.messageBornAt) >= kMessageLifeSeconds;
  }
  if (expired) clearMessage();
}

void gf_resetMessageArea() {
  {
    std::lock_guard lock(gMessageMutex);
    gArea = MessageAreaText{};
  }
  gf_paintMessageArea();
}

void gf_resetMessageSeconds() {
  std::lock_guard lock(gMessageMutex);
  gArea.secondCounter = 0;
  // A standing message keeps its remaining life.
  if (gArea.messageBornAt >= 1) gArea.messageBornAt = 1;
}

MessageAreaText gf_messageArea() {
  std::lock_guard lock(gMessageMutex);
  return gArea;
}

}  // namespace orv

namespace orv {

void gf_clearErrorText() {
  std::lock_guard lock(gMessageMutex);
  gArea.errorText.clear();
}

}  // namespace orv
