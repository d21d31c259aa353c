#include "misuse/ledger.h"

#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include "support/malloc_spy.h"

namespace misuse::ledger {
namespace {

constexpr unsigned char kFreed = 0xDD;

/// Open addressing by the block's address; a calling thread is never left waiting for another allocator.
class Table {
 public:
  Table() : places_(std::size_t{1} << kBits) {}

  void add(const void* block, std::size_t size) {
    if (2 * (count_ + 1) > places_.size()) grow();
    std::size_t place = home(block);
    while (places_[place].block) place = next(place);
    places_[place] = {block, size};
    ++count_;
  }

  [[nodiscard]] std::size_t find(const void* block) const {
    for (std::size_t place = home(block); places_[place].block; place = next(place)) {
      if (places_[place].block == block) return places_[place].size;
    }
    return 0;
  }

  bool remove(const void* block) {
    std::size_t place = home(block);
    while (places_[place].block != block) {
      if (!places_[place].block) return false;
      place = next(place);
    }
    // Those that stand behind move up, so that no gap cuts them off.
    for (std::size_t gap = place;;) {
      place = next(place);
      if (!places_[place].block) {
        places_[gap] = {};
        break;
      }
      const std::size_t wanted = home(places_[place].block);
      const std::size_t mask = places_.size() - 1;
      if (((place - wanted) & mask) >= ((place - gap) & mask)) {
        places_[gap] = places_[place];
        gap = place;
      }
    }
    --count_;
    return true;
  }

  [[nodiscard]] std::size_t count() const { return count_; }

 private:
  static constexpr unsigned kBits = 15;
  struct Place {
    const void* block = nullptr;
    std::size_t size = 0;
  };

  [[nodiscard]] std::size_t home(const void* block) const {
    const auto address = static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(block));
    return (address >> 3) * 2654435769U >> 8 & (places_.size() - 1);
  }
  [[nodiscard]] std::size_t next(std::size_t place) const { return (place + 1) & (places_.size() - 1); }

  void grow() {
    std::vector<Place> former(2 * places_.size());
    former.swap(places_);
    count_ = 0;
    for (const Place& place : former) {
      if (place.block) add(place.block, place.size);
    }
  }

  std::vector<Place> places_;
  std::size_t count_ = 0;
};

/// Enters each block and strikes it off.
class Spy final : public host::MallocSpy {
 public:
  SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override {
    size_ = size;
    return size;
  }
  void* STDMETHODCALLTYPE PostAlloc(void* block) override {
    if (block) table.add(block, size_ ? size_ : 1);
    return block;
  }
  void* STDMETHODCALLTYPE PreFree(void* block, BOOL) override {
    if (!block) return block;
    const std::size_t size = table.find(block);
    if (size == 0) {
      ++wrong_frees;
      if (stops) RaiseException(STATUS_BREAKPOINT, 0, 0, nullptr);
      return nullptr;
    }
    std::memset(block, kFreed, size);
    table.remove(block);
    return block;
  }
  SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** request, BOOL) override {
    if (block) table.remove(block);
    size_ = size;
    *request = block;
    return size;
  }
  void* STDMETHODCALLTYPE PostRealloc(void* block, BOOL) override { return PostAlloc(block); }

  Table table;
  std::size_t wrong_frees = 0;
  bool stops = false;

 private:
  std::size_t size_ = 0;
};

Spy& spy() {
  static Spy* const created = new Spy;
  return *created;
}

}  // namespace

void open() {
  static const bool opened = [] {
    spy().watch();
    return true;
  }();
  (void)opened;
}

std::size_t size_of(const void* block) { return spy().table.find(block); }

std::size_t living() { return spy().table.count(); }

void stop_at_wrong_frees(bool stop) { spy().stops = stop; }

std::size_t take_wrong_frees() { return std::exchange(spy().wrong_frees, 0); }

}  // namespace misuse::ledger
