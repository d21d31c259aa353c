// A file for a binary field.
#pragma once

#include <vector>

#include "support/host.h"
#include "support/temporary_file.h"

namespace host {

/// A file of the given size in the temporary folder, deleted at the end.
class SampleFile {
 public:
  explicit SampleFile(std::size_t size) : bytes(size) {
    // A period that no chunk size is a multiple of: a chunk that is taken twice or left out shows.
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<BYTE>(i % 251);
    HANDLE file = open(GENERIC_WRITE);
    DWORD written = 0;
    EXPECT_TRUE(WriteFile(file, bytes.data(), static_cast<DWORD>(size), &written, nullptr));
    EXPECT_EQ(size, written);
    CloseHandle(file);
  }
  ~SampleFile() { DeleteFileW(path.c_str()); }
  SampleFile(const SampleFile&) = delete;
  SampleFile& operator=(const SampleFile&) = delete;

  /// Alone on the file: INVALID_HANDLE_VALUE when someone else has it open.
  [[nodiscard]] HANDLE open(DWORD access) const {
    return CreateFileW(path.c_str(), access, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  }
  [[nodiscard]] bool is_closed() const {
    HANDLE file = open(GENERIC_READ | GENERIC_WRITE);
    if (file == INVALID_HANDLE_VALUE) return false;
    CloseHandle(file);
    return true;
  }

  std::wstring path = make_temporary_file();
  std::vector<BYTE> bytes;
};

}  // namespace host
