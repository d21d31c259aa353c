#include "support/allocations.h"

#include <set>

namespace host {

/// Called by the platform's allocator around every operation. Holds the addresses of the blocks that were
/// allocated while counting and live still. Registered once and kept for the process: the platform does not
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

  SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return size; }
  void* STDMETHODCALLTYPE PostAlloc(void* block) override {
    if (block && counting_) blocks_.insert(block);
    return block;
  }
  void* STDMETHODCALLTYPE PreFree(void* block, BOOL) override {
    blocks_.erase(block);
    return block;
  }
  void STDMETHODCALLTYPE PostFree(BOOL) override {}
  SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** request, BOOL) override {
    blocks_.erase(block);
    *request = block;
    return size;
  }
  void* STDMETHODCALLTYPE PostRealloc(void* block, BOOL) override { return PostAlloc(block); }
  void* STDMETHODCALLTYPE PreGetSize(void* block, BOOL) override { return block; }
  SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, BOOL) override { return size; }
  void* STDMETHODCALLTYPE PreDidAlloc(void* block, BOOL) override { return block; }
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
  [[nodiscard]] std::size_t living() const { return blocks_.size(); }

 private:
  virtual ~Spy() = default;

  bool counting_ = false;
  std::set<const void*> blocks_;
};

Allocations::Allocations() { Spy::registered().count(true); }

Allocations::~Allocations() { Spy::registered().count(false); }

std::size_t Allocations::outstanding() const { return Spy::registered().living(); }

}  // namespace host
