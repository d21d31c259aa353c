// What one thread tells another.
#pragma once

#include "automation/platform.h"

namespace host {

class Event {
 public:
  Event() : handle_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}
  ~Event() { CloseHandle(handle_); }
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;

  void set() const { SetEvent(handle_); }
  /// Waits for it. False when it does not come: what has not happened after a minute never does.
  [[nodiscard]] bool comes() const {
    constexpr DWORD kLongest = 60000;  // milliseconds
    return WaitForSingleObject(handle_, kLongest) == WAIT_OBJECT_0;
  }

 private:
  HANDLE handle_;
};

}  // namespace host
