// A spy on the platform's allocator of texts, arrays and records, which lets every operation pass.
#pragma once

#include "support/host.h"

namespace host {

/// A derived spy overrides the operations that it looks at. The platform calls it around each, one thread at
/// a time. Never deleted once it is registered: the platform does not let go of it as long as one of its
/// blocks lives.
class MallocSpy : public IMallocSpy {
 public:
  /// From now on, to the end of the process. Every free of a text is seen: the platform's cache is off.
  void watch();

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return size; }
  void* STDMETHODCALLTYPE PostAlloc(void* block) override { return block; }
  void* STDMETHODCALLTYPE PreFree(void* block, BOOL) override { return block; }
  void STDMETHODCALLTYPE PostFree(BOOL) override {}
  SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** request, BOOL) override {
    *request = block;
    return size;
  }
  void* STDMETHODCALLTYPE PostRealloc(void* block, BOOL) override { return block; }
  void* STDMETHODCALLTYPE PreGetSize(void* block, BOOL) override { return block; }
  SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, BOOL) override { return size; }
  void* STDMETHODCALLTYPE PreDidAlloc(void* block, BOOL) override { return block; }
  int STDMETHODCALLTYPE PostDidAlloc(void*, BOOL, int answer) override { return answer; }
  void STDMETHODCALLTYPE PreHeapMinimize() override {}
  void STDMETHODCALLTYPE PostHeapMinimize() override {}

 protected:
  virtual ~MallocSpy() = default;
};

}  // namespace host
