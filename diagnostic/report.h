// The lines that the tool prints, in UTF-8: one per check, and what to do under those that fail.
#pragma once

#include "automation/platform.h"

#include <string>
#include <string_view>

namespace diagnostic {

class Report {
 public:
  /// Sets the console to UTF-8 and gives it back as it was.
  Report();
  ~Report();
  Report(const Report&) = delete;
  Report& operator=(const Report&) = delete;

  void title(std::wstring_view text);
  void well(std::wstring_view check, std::wstring_view finding);
  /// `advice` may be empty where an earlier line has given it.
  void failure(std::wstring_view check, std::wstring_view finding, std::wstring_view advice);
  /// A check that cannot be made because an earlier one failed.
  void pointless(std::wstring_view check, std::wstring_view finding);
  /// A setting of the machine that is neither right nor wrong.
  void information(std::wstring_view check, std::wstring_view finding);
  void verdict();

  [[nodiscard]] int failures() const { return failures_; }

 private:
  void line(std::wstring_view mark, std::wstring_view check, std::wstring_view finding);

  UINT console_;
  int failures_ = 0;
};

/// The platform's text of a failure, with its code.
std::wstring message_of(HRESULT code);

}  // namespace diagnostic
