// A compiled help file as the platform reads it.
#pragma once

#include "support/host.h"

#include <map>

namespace host {

/// Opens a help file through the platform's own reader; the test fails when it cannot.
class HelpArchive {
 public:
  explicit HelpArchive(const wchar_t* path);

  /// A file or stream of the archive; the test fails when there is none of that name.
  [[nodiscard]] std::string read(const std::string& name) const;
  [[nodiscard]] bool has(const std::string& name) const;
  /// Help context -> page, as the archive's own table has them.
  [[nodiscard]] std::map<DWORD, std::string> contexts() const;

 private:
  [[nodiscard]] ComPtr<IStream> open(const std::string& name) const;

  ComPtr<IStorage> storage_;
};

}  // namespace host
