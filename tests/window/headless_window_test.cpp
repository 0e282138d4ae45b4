#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "platform/window/headless_window.h"

namespace orv {
namespace {

// The window's thread: serves the queue as the program's message loop does, until quit.
class WindowThread {
 public:
  explicit WindowThread(HeadlessWindow& window)
      : thread_([&window, this] {
          for (;;) {
            const WindowMessage m = window.waitMessage();
            if (m.quit) return;
            messages.push_back(m.id);
          }
        }) {}
  ~WindowThread() {
    if (thread_.joinable()) thread_.join();
  }
  std::thread::id id() const { return thread_.get_id(); }
  void join() { thread_.join(); }

  std::vector<std::uint32_t> messages;  // read after join()

 private:
  std::thread thread_;
};

TEST(HeadlessWindow, APostedTaskRunsOnTheWindowThreadNotOnThePosters) {
  HeadlessWindow window;
  window.createControl({7, ControlKind::Check});
  WindowThread loop(window);
  const std::thread::id windowThread = loop.id();

  std::thread::id ranOn;
  bool checkedWhileRunning = false;
  std::thread poster([&] {
    window.post(WM_START_RUN);
    EXPECT_TRUE(window.postTask([&] {
      ranOn = std::this_thread::get_id();
      window.setChecked(7, true);
      checkedWhileRunning = window.control(7)->checked;
    }));
    window.post(WM_END_PROGRAM);
    window.postQuit(0);
  });
  const std::thread::id posterThread = poster.get_id();
  poster.join();
  loop.join();

  EXPECT_EQ(ranOn, windowThread);
  EXPECT_NE(ranOn, posterThread);
  EXPECT_NE(ranOn, std::this_thread::get_id());
  EXPECT_TRUE(checkedWhileRunning);
  // The task took its turn between the messages and is not one of them.
  EXPECT_EQ(loop.messages, (std::vector<std::uint32_t>{WM_START_RUN, WM_END_PROGRAM}));
}

TEST(HeadlessWindow, ATaskWaitsForTheLoopAndIsNoPendingMessage) {
  HeadlessWindow window;
  bool ran = false;
  EXPECT_FALSE(window.postTask({}));
  EXPECT_TRUE(window.postTask([&] { ran = true; }));
  EXPECT_EQ(window.pending(), 0u);
  EXPECT_FALSE(ran) << "posting runs nothing on the poster's thread";

  window.post(WM_PAINT_MESSAGE);
  EXPECT_EQ(window.pending(), 1u);
  EXPECT_EQ(window.waitMessage().id, WM_PAINT_MESSAGE);
  EXPECT_TRUE(ran);
}

}  // namespace
}  // namespace orv
