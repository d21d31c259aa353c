// A thread of a test.
#pragma once

#include "automation/platform.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace life {

/// A thread of its own; what it does is done when the object is gone.
class Thread {
 public:
  explicit Thread(std::function<void()> body) : body_(std::move(body)) {
    handle_ = CreateThread(nullptr, 0, run, &body_, 0, nullptr);
    EXPECT_NE(nullptr, handle_);
  }
  ~Thread() { join(); }
  Thread(const Thread&) = delete;
  Thread& operator=(const Thread&) = delete;

  /// Waits for its end.
  void join() {
    if (!handle_) return;
    EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(handle_, 300'000));
    CloseHandle(handle_);
    handle_ = nullptr;
  }

 private:
  static DWORD WINAPI run(void* body) {
    (*static_cast<std::function<void()>*>(body))();
    return 0;
  }
  std::function<void()> body_;
  HANDLE handle_ = nullptr;
};

}  // namespace life
