// Counts the memory that texts, arrays and task allocations hold: what a call leaves behind.
#pragma once

#include "support/host.h"

namespace host {

/// Counts from its creation on. Things that are allocated once only need a warm-up before.
class Allocations {
 public:
  Allocations();
  ~Allocations();
  Allocations(const Allocations&) = delete;
  Allocations& operator=(const Allocations&) = delete;

  /// Blocks allocated since and not freed yet.
  [[nodiscard]] std::size_t outstanding() const;

  /// Places every block of the platform's allocator on guard pages from now on or no longer. Blocks that
  /// stand there stay until they are freed. Returns whether it was so before.
  static bool guard(bool guarded);

 private:
  class Spy;
};

}  // namespace host
