#include "support/allocations.h"

#include <algorithm>
#include <cstring>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "support/guard_pages.h"
#include "support/malloc_spy.h"

namespace host {

/// Holds the addresses of the blocks that were allocated while counting and live still, and can put each on
/// guard pages.
class Allocations::Spy final : public MallocSpy {
 public:
  SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override {
    placed_ = guarding_ ? guard::allocate(size) : nullptr;
    return placed_ ? kStandIn : size;
  }
  void* STDMETHODCALLTYPE PostAlloc(void* block) override {
    if (placed_) block = guarded(block);
    if (block && counting_) blocks_.insert(block);
    return block;
  }
  void* STDMETHODCALLTYPE PreFree(void* block, BOOL) override {
    blocks_.erase(block);
    return guard::owns(block) ? taken_back(block) : block;
  }
  SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** request, BOOL) override {
    blocks_.erase(block);
    old_ = guard::owns(block) ? block : nullptr;
    *request = old_ ? stand_ins_.at(old_) : block;
    size_ = size;
    // A block that stands on ordinary pages stays there.
    placed_ = size != 0 && (old_ || (guarding_ && !block)) ? guard::allocate(size) : nullptr;
    if (old_ && size == 0) *request = taken_back(old_);
    return placed_ ? kStandIn : size;
  }
  void* STDMETHODCALLTYPE PostRealloc(void* block, BOOL) override {
    if (block && old_ && size_ != 0) {
      void* const target = placed_ ? placed_ : block;
      std::memcpy(target, old_, std::min(size_, static_cast<SIZE_T>(guard::size_of(old_))));
      // The platform's own block goes on behind the new one, or is the new one.
      stand_ins_.erase(old_);
      guard::release(old_);
    }
    if (placed_) block = guarded(block);
    if (block && counting_) blocks_.insert(block);
    return block;
  }
  void* STDMETHODCALLTYPE PreGetSize(void* block, BOOL) override {
    old_ = guard::owns(block) ? block : nullptr;
    return old_ ? stand_ins_.at(old_) : block;
  }
  SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, BOOL) override {
    return old_ ? guard::size_of(old_) : size;
  }
  void* STDMETHODCALLTYPE PreDidAlloc(void* block, BOOL) override {
    return guard::owns(block) ? stand_ins_.at(block) : block;
  }

  static Spy& registered() {
    static Spy* const spy = [] {
      auto* created = new Spy;
      created->watch();
      return created;
    }();
    return *spy;
  }

  void count(bool counting) {
    blocks_.clear();
    counting_ = counting;
  }
  bool guard(bool guarding) { return std::exchange(guarding_, guarding); }
  [[nodiscard]] std::size_t living() const { return blocks_.size(); }

 private:
  // The platform's own block behind one on guard pages.
  static constexpr SIZE_T kStandIn = 1;

  /// The guarded block that the caller gets for the platform's own.
  void* guarded(void* stand_in) {
    void* const block = std::exchange(placed_, nullptr);
    if (stand_in) {
      stand_ins_.emplace(block, stand_in);
      return block;
    }
    guard::release(block);
    return nullptr;
  }
  /// The platform's own block again.
  void* taken_back(void* block) {
    const auto found = stand_ins_.find(block);
    void* const stand_in = found == stand_ins_.end() ? nullptr : found->second;
    if (stand_in) stand_ins_.erase(found);
    guard::release(block);
    return stand_in;
  }

  bool counting_ = false;
  bool guarding_ = false;
  std::unordered_set<const void*> blocks_;
  std::unordered_map<const void*, void*> stand_ins_;
  // Between the two halves of an operation; the platform lets no other come between.
  SIZE_T size_ = 0;
  void* old_ = nullptr;
  void* placed_ = nullptr;  // on guard pages; null while the range is used up
};

Allocations::Allocations() { Spy::registered().count(true); }

Allocations::~Allocations() { Spy::registered().count(false); }

bool Allocations::guard(bool guarded) { return Spy::registered().guard(guarded); }

std::size_t Allocations::outstanding() const { return Spy::registered().living(); }

}  // namespace host
