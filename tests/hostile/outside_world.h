// What a text could make the library reach: a file, a pipe and a port of this machine, each with somebody
// who notices.
#pragma once

#include <string>
#include <vector>

#include "support/host.h"

namespace hostile {

class OutsideWorld {
 public:
  OutsideWorld();
  ~OutsideWorld();
  OutsideWorld(const OutsideWorld&) = delete;
  OutsideWorld& operator=(const OutsideWorld&) = delete;

  /// What the file holds.
  static constexpr wchar_t kSecret[] = L"contenu-du-fichier";

  /// The addresses under which the three are reached.
  [[nodiscard]] const std::wstring& file() const { return file_; }
  [[nodiscard]] std::wstring file_url() const;
  [[nodiscard]] const std::wstring& pipe() const { return pipe_; }
  [[nodiscard]] std::wstring port_url() const;
  [[nodiscard]] std::vector<std::wstring> addresses() const { return {file_, file_url(), pipe_, port_url()}; }

  /// Whether anybody opened the pipe or the port.
  [[nodiscard]] bool pipe_was_opened() const;
  [[nodiscard]] bool port_was_opened() const;
  /// Opens the port as a reader would.
  void open_port() const;

 private:
  std::wstring file_, pipe_;
  HANDLE pipe_end_ = INVALID_HANDLE_VALUE;
  HANDLE pipe_opened_ = nullptr;
  OVERLAPPED* pending_;
  std::uintptr_t listener_;
  unsigned short port_ = 0;
};

}  // namespace hostile
