#include "support/allocations.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unordered_map>
#include <unordered_set>

#include "support/guard_pages.h"

namespace host {

/// Called by the platform's allocator around every operation. Holds the addresses of the blocks that were
/// allocated while counting and live still, and can put each on guard pages. Registered once and kept for the
/// process: the platform does not
/// let go of it as long as one of its blocks lives.
class Allocations::Spy final : public IMallocSpy {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (iid != IID_IUnknown && iid != IID_IMallocSpy) return E_NOINTERFACE;
    *object = this;
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override {
    size_ = size;
    return guarding_ ? kStandIn : size;
  }
  void* STDMETHODCALLTYPE PostAlloc(void* block) override {
    block = guarding_ && block ? guarded(block, size_) : block;
    if (block && counting_) blocks_.insert(block);
    return block;
  }
  void* STDMETHODCALLTYPE PreFree(void* block, BOOL) override {
    blocks_.erase(block);
    return guard::owns(block) ? taken_back(block) : block;
  }
  void STDMETHODCALLTYPE PostFree(BOOL) override {}
  SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** request, BOOL) override {
    blocks_.erase(block);
    size_ = size;
    old_ = guard::owns(block) ? block : nullptr;
    *request = old_ ? stand_ins_.at(old_) : block;
    // A block that stands on ordinary pages stays there.
    growing_guarded_ = size != 0 && (old_ || (guarding_ && !block));
    if (old_ && size == 0) *request = taken_back(old_);
    return growing_guarded_ ? kStandIn : size;
  }
  void* STDMETHODCALLTYPE PostRealloc(void* block, BOOL) override {
    if (block && growing_guarded_) {
      void* const moved = guarded(block, size_);
      if (old_) {
        std::memcpy(moved, old_, std::min(size_, static_cast<SIZE_T>(guard::size_of(old_))));
        taken_back(old_);
      }
      block = moved;
    }
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
  int STDMETHODCALLTYPE PostDidAlloc(void*, BOOL, int answer) override { return answer; }
  void STDMETHODCALLTYPE PreHeapMinimize() override {}
  void STDMETHODCALLTYPE PostHeapMinimize() override {}

  static Spy& registered() {
    static Spy* const spy = [] {
      // The platform keeps freed texts for the next ones: every free must be seen.
      using SetOaNoCache = void(WINAPI*)();
      if (const FARPROC address = GetProcAddress(GetModuleHandleW(L"oleaut32.dll"), "SetOaNoCache")) {
        reinterpret_cast<SetOaNoCache>(reinterpret_cast<void*>(address))();
      }
      auto* created = new Spy;
      EXPECT_EQ(S_OK, CoRegisterMallocSpy(created));
      return created;
    }();
    return *spy;
  }

  void count(bool counting) {
    blocks_.clear();
    counting_ = counting;
  }
  void guard(bool guarding) { guarding_ = guarding; }
  [[nodiscard]] std::size_t living() const { return blocks_.size(); }

 private:
  virtual ~Spy() = default;

  // The platform's own block behind one on guard pages.
  static constexpr SIZE_T kStandIn = 1;

  /// The guarded block that the caller gets for the platform's own.
  void* guarded(void* stand_in, SIZE_T size) {
    void* const block = guard::allocate(size);
    if (!block) {
      std::fputs("guard pages: used up\n", stderr);
      std::abort();
    }
    stand_ins_.emplace(block, stand_in);
    return block;
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
  bool growing_guarded_ = false;
};

Allocations::Allocations() { Spy::registered().count(true); }

Allocations::~Allocations() { Spy::registered().count(false); }

void Allocations::guard(bool guarded) { Spy::registered().guard(guarded); }

std::size_t Allocations::outstanding() const { return Spy::registered().living(); }

}  // namespace host
