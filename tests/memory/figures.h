// What the program counts while it runs, written for docs/reliability.md at its end.
#pragma once

#include <cstddef>

namespace host {

struct Figures {
  std::size_t calls = 0;          // made for the count of blocks
  std::size_t guarded_calls = 0;  // made on guard pages
  std::size_t guarded_blocks = 0;
  std::size_t refused_once = 0;     // calls with one allocation refused
  std::size_t refused_onwards = 0;  // with that one and all later ones
  std::size_t answered_no_memory = 0;
  std::size_t did_without = 0;    // answered as if nothing had been refused
  std::size_t cold_refusals = 0;  // in a DLL just loaded
};

Figures& figures();

}  // namespace host
