// Blocks of memory of which each ends at the end of a page: what follows cannot be touched, and neither can
// a block that was freed. An overrun or a use after free faults at the instruction that does it.
#pragma once

#include <cstddef>

namespace host::guard {

/// A block of `size` bytes, filled with a pattern; null when the range of addresses is used up. Addresses of
/// freed blocks are given out again only then, the longest freed first.
void* allocate(std::size_t size);

/// Whether the address is inside the range: of a block that lives or that was freed.
bool owns(const void* block);
std::size_t size_of(const void* block);

/// Makes the block inaccessible. A block that is freed twice, or written to between its end and the end of
/// the page, ends the program with a message.
void release(void* block);

/// Blocks given out so far.
std::size_t count();

/// Says on the error output where a fault happened and what block was touched, then lets it end the program.
void report_faults();

}  // namespace host::guard
