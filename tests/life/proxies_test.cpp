// Objects of one apartment, reached from another through the platform's proxies.
#include <atomic>
#include <memory>

#include "life/thread.h"
#include "life/usage.h"

namespace {

using host::ComPtr;
using Objects = std::vector<ComPtr<IDispatch>>;

constexpr int kThreads = 16;

/// An object of each class in an apartment of one thread, which serves the others until it is told to end.
class ObjectsOfAnotherApartment : public ::testing::Test {
 protected:
  ObjectsOfAnotherApartment() { EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(marshalled_, 300'000)); }
  ~ObjectsOfAnotherApartment() override {
    end();
    CloseHandle(marshalled_);
    CloseHandle(ended_);
  }

  /// Proxies for the calling apartment; once.
  Objects proxies() {
    Objects result;
    for (auto& stream : streams_) {
      ComPtr<IDispatch> proxy;
      EXPECT_EQ(S_OK, CoGetInterfaceAndReleaseStream(stream.detach(), IID_IDispatch, proxy.receive_void()));
      result.push_back(std::move(proxy));
    }
    return result;
  }

  /// Ends the apartment.
  void end() {
    SetEvent(ended_);
    owner_.join();
  }

  const host::Library library_;

 private:
  void serve() {
    EXPECT_EQ(S_OK, CoInitialize(nullptr));
    marshal_all();
    SetEvent(marshalled_);
    DWORD index = 0;
    EXPECT_EQ(S_OK, CoWaitForMultipleHandles(0, 300'000, 1, &ended_, &index));
    CoUninitialize();
  }

  /// From then on the proxies alone keep the objects.
  void marshal_all() {
    int failures = 0;
    for (const auto& object : life::create_all(failures)) {
      ComPtr<IStream> stream;
      EXPECT_EQ(S_OK, CoMarshalInterThreadInterfaceInStream(IID_IDispatch, object.get(), stream.receive()));
      streams_.push_back(std::move(stream));
    }
    EXPECT_EQ(0, failures);
  }

  const HANDLE marshalled_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  HANDLE ended_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  std::vector<ComPtr<IStream>> streams_;
  life::Thread owner_{[this] { serve(); }};
};

TEST_F(ObjectsOfAnotherApartment, ThatIsGone_FailWithAnHresult) {
  Objects objects = proxies();
  UINT count = 0;
  for (const auto& object : objects) EXPECT_EQ(S_OK, object->GetTypeInfoCount(&count));
  end();
  for (const auto& object : objects) EXPECT_TRUE(FAILED(object->GetTypeInfoCount(&count)));
  objects.clear();
  EXPECT_EQ(S_OK, library_.can_unload());
}

/// Early-bound, late-bound and by their type information, all at once; then the library may go.
TEST_F(ObjectsOfAnotherApartment, UsedBySixteenThreadsOfTheSharedOne_AreReleasedByAll) {
  constexpr int kRounds = 2;
  std::atomic<int> failures{0}, used{0};
  life::Thread([&] {
    EXPECT_EQ(S_OK, CoInitializeEx(nullptr, COINIT_MULTITHREADED));
    {
      const Objects objects = proxies();
      int lost = 0;
      const life::KeptProxies kept = life::keep_proxies(objects, lost);
      EXPECT_EQ(0, lost);
      EXPECT_EQ(S_FALSE, library_.can_unload());
      std::vector<std::unique_ptr<life::Thread>> threads;
      for (int i = 0; i < kThreads; ++i) {
        threads.push_back(std::make_unique<life::Thread>([&] {
          if (FAILED(CoInitializeEx(nullptr, COINIT_MULTITHREADED))) ++failures;
          for (int round = 0; round < kRounds; ++round) {
            for (std::size_t k = 0; k < objects.size(); ++k) {
              const auto& entry = host::catalogue()[k];
              const bool right =
                  life::use(objects[k].get(), entry) && life::use_early_bound(objects[k].get(), entry);
              ++(right ? used : failures);
            }
          }
          CoUninitialize();
        }));
      }
    }
    CoUninitialize();
  }).join();
  EXPECT_EQ(0, failures);
  EXPECT_EQ(kThreads * kRounds * static_cast<int>(host::catalogue().size()), used);
  EXPECT_EQ(S_OK, library_.can_unload());
}

}  // namespace
