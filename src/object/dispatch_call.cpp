#include "object/dispatch_call.h"

#include <array>
#include <utility>

namespace velmosav {
namespace {

static_assert(sizeof(void*) == 4, "arguments are counted in 32-bit words");

using Slot = void*;
using Caller = HRESULT (*)(Slot slot, IDispatch* object, const std::uint32_t* words);

template <std::size_t>
using Word = std::uint32_t;

template <std::size_t... Index>
constexpr Caller caller_of(std::index_sequence<Index...>) {
  return [](Slot slot, IDispatch* object, [[maybe_unused]] const std::uint32_t* words) -> HRESULT {
    using Method = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, Word<Index>...);
    return reinterpret_cast<Method>(slot)(object, words[Index]...);
  };
}

template <std::size_t... Count>
constexpr std::array<Caller, sizeof...(Count)> all_callers(std::index_sequence<Count...>) {
  return {caller_of(std::make_index_sequence<Count>())...};
}

constexpr auto kCallers = all_callers(std::make_index_sequence<kMostWords + 1>());

}  // namespace

HRESULT call_slot(IDispatch* object, unsigned index, const std::uint32_t* words, unsigned count) {
  const Slot* vtable = *reinterpret_cast<Slot* const*>(object);
  return kCallers[count](vtable[index], object, words);
}

}  // namespace velmosav
