#include "support/guard_pages.h"

#include "automation/platform.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <map>
#include <mutex>
#include <unordered_map>
#include <utility>

namespace host::guard {
namespace {

constexpr std::size_t kPage = 4096;
constexpr std::size_t kAlignment = 8;
constexpr unsigned char kFresh = 0xA5;
constexpr unsigned char kSlack = 0x5A;

[[noreturn]] void end_program(const char* what, const void* block) {
  std::fprintf(stderr, "guard pages: %s (block %p)\n", what, block);
  std::fflush(stderr);
  std::abort();
}

/// The range of addresses, and which of its pages are in use. Every run of pages is followed by one that is
/// never accessible.
class Range {
 public:
  static Range& instance() {
    static auto* const range = new Range;  // outlives every static that frees
    return *range;
  }

  void* allocate(std::size_t size) {
    const std::lock_guard lock(mutex_);
    const std::size_t pages = std::max<std::size_t>((size + kPage - 1) / kPage, 1);
    char* start = take(pages);
    if (!start || !VirtualAlloc(start, pages * kPage, MEM_COMMIT, PAGE_READWRITE)) return nullptr;
    char* const end = start + pages * kPage;
    char* const block = end - (size + kAlignment - 1) / kAlignment * kAlignment;
    std::memset(block, kFresh, size);
    std::memset(block + size, kSlack, static_cast<std::size_t>(end - block) - size);
    living_.emplace(block, Block{start, size, pages});
    ++count_;
    return block;
  }

  void release(void* address) {
    const std::lock_guard lock(mutex_);
    const auto found = living_.find(address);
    if (found == living_.end()) end_program("freed twice, or no block", address);
    const Block block = found->second;
    const char* const end = block.start + block.pages * kPage;
    const char* const slack = static_cast<char*>(address) + block.size;
    if (std::any_of(slack, end, [](char byte) { return byte != static_cast<char>(kSlack); })) {
      end_program("written to behind the end", address);
    }
    living_.erase(found);
    VirtualFree(block.start, block.pages * kPage, MEM_DECOMMIT);
    freed_[block.pages].push_back(block.start);
  }

  [[nodiscard]] bool owns(const void* address) const { return address >= first_ && address < first_ + size_; }
  [[nodiscard]] std::size_t size_of(const void* address) {
    const std::lock_guard lock(mutex_);
    const auto found = living_.find(address);
    if (found == living_.end()) end_program("size of no block", address);
    return found->second.size;
  }
  [[nodiscard]] std::size_t count() const { return count_; }

  /// For the report of a fault: no lock, the program ends anyway.
  void describe(const void* address) const {
    for (const auto& [block, about] : living_) {
      if (address >= about.start && address < about.start + (about.pages + 1) * kPage) {
        std::fprintf(stderr, "guard pages: %td bytes from the start of a living block of %zu bytes\n",
                     static_cast<const char*>(address) - static_cast<const char*>(block), about.size);
        return;
      }
    }
    std::fprintf(stderr, "guard pages: in a block that was freed\n");
  }

 private:
  struct Block {
    char* start;
    std::size_t size;
    std::size_t pages;
  };

  Range() {
    for (size_ = std::size_t{768} << 20; size_ != 0; size_ /= 2) {
      first_ = static_cast<char*>(VirtualAlloc(nullptr, size_, MEM_RESERVE, PAGE_NOACCESS));
      if (first_) break;
    }
    next_ = first_;
  }

  char* take(std::size_t pages) {
    if (static_cast<std::size_t>(first_ + size_ - next_) >= (pages + 1) * kPage) {
      return std::exchange(next_, next_ + (pages + 1) * kPage);
    }
    auto& candidates = freed_[pages];
    if (candidates.empty()) return nullptr;
    char* const start = candidates.front();
    candidates.pop_front();
    return start;
  }

  std::mutex mutex_;
  char* first_ = nullptr;
  std::size_t size_ = 0;
  char* next_ = nullptr;
  std::size_t count_ = 0;
  std::unordered_map<const void*, Block> living_;
  std::map<std::size_t, std::deque<char*>> freed_;  // by number of pages, the longest freed first
};

LONG CALLBACK report(EXCEPTION_POINTERS* exception) {
  const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
  if (record.ExceptionCode != EXCEPTION_ACCESS_VIOLATION) return EXCEPTION_CONTINUE_SEARCH;
  const auto* touched = reinterpret_cast<const void*>(record.ExceptionInformation[1]);
  if (!Range::instance().owns(touched)) return EXCEPTION_CONTINUE_SEARCH;
  HMODULE module = nullptr;
  wchar_t path[MAX_PATH] = L"?";
  const auto* place = static_cast<const wchar_t*>(record.ExceptionAddress);
  if (GetModuleHandleExW(
          GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT, place,
          &module)) {
    GetModuleFileNameW(module, path, MAX_PATH);
  }
  std::fprintf(stderr, "guard pages: %s at %p by %ls + %zx\n",
               record.ExceptionInformation[0] ? "written" : "read", touched, path,
               reinterpret_cast<std::size_t>(place) - reinterpret_cast<std::size_t>(module));
  Range::instance().describe(touched);
  std::fflush(stderr);
  return EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace

void* allocate(std::size_t size) { return Range::instance().allocate(size); }
bool owns(const void* block) { return Range::instance().owns(block); }
std::size_t size_of(const void* block) { return Range::instance().size_of(block); }
void release(void* block) { Range::instance().release(block); }
std::size_t count() { return Range::instance().count(); }
void report_faults() { AddVectoredExceptionHandler(1, report); }

}  // namespace host::guard
