// Every block of the COM allocator (texts, arrays, records) while it lives, so that a pointer that the
// library left can be told from one to freed or foreign memory. Freed blocks are filled before they go back.
#pragma once

#include <cstddef>

namespace misuse::ledger {

/// Begins to keep the ledger; the platform's cache of freed texts is switched off. Once per process; what
/// lives already is not in it, and must not be freed before the end of the run.
void open();

/// Size of a living block; 0 when there is none at that address.
std::size_t size_of(const void* block);
/// Number of living blocks.
std::size_t living();
/// Blocks that were freed twice, or never allocated, since the last question.
std::size_t take_wrong_frees();
/// Whether such a free stops the program where it happens.
void stop_at_wrong_frees(bool stop);

}  // namespace misuse::ledger
