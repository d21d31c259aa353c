// Generated numbers: small ones, the ends of each range, and those that are no numbers.
#pragma once

#include "automation/platform.h"

#include <bit>
#include <limits>

#include "misuse/dice.h"

namespace misuse {

inline double odd_double(Dice& dice) {
  using Limits = std::numeric_limits<double>;
  constexpr double kOdd[]{0,
                          -0.0,
                          1,
                          -1,
                          0.005,
                          2.675,
                          1e-300,
                          1e300,
                          -1e300,
                          32767.5,
                          -32768.5,
                          2147483648.0,
                          1e15,
                          922337203685477.5807,
                          Limits::max(),
                          Limits::lowest(),
                          Limits::denorm_min(),
                          Limits::infinity(),
                          -Limits::infinity(),
                          Limits::quiet_NaN()};
  constexpr double kUsual[]{0, 5.5, 10, 19.6, 20, 100, 120, 1234.56, -50, 33.33, 0.1};
  switch (dice.below(4)) {
    case 0:
      return dice.of(kOdd);
    case 1:
      return static_cast<double>(dice.between(-100000, 1000000)) / 100;
    case 2:
      return dice.one_in(8) ? std::bit_cast<double>(dice.bits()) : dice.of(kUsual);
    default:
      return dice.of(kUsual);
  }
}

template <class Whole>
Whole odd_whole(Dice& dice) {
  using Limits = std::numeric_limits<Whole>;
  switch (dice.below(8)) {
    case 0:
      return Limits::max();
    case 1:
      return Limits::min();
    case 2:
      return static_cast<Whole>(-1);
    case 3:
      return static_cast<Whole>(dice.bits());
    default:
      return static_cast<Whole>(dice.below(13));
  }
}

inline VARIANT_BOOL odd_boolean(Dice& dice) {
  return dice.one_in(10) ? static_cast<VARIANT_BOOL>(dice.bits())
         : dice.coin()   ? VARIANT_TRUE
                         : VARIANT_FALSE;
}

inline CY odd_currency(Dice& dice) {
  CY value;
  value.int64 = dice.one_in(3) ? odd_whole<long long>(dice) : dice.between(-100, 100000) * 1000LL;
  return value;
}

inline DECIMAL odd_decimal(Dice& dice) {
  DECIMAL value{};
  value.scale = static_cast<BYTE>(dice.below(29));
  value.sign = dice.coin() ? DECIMAL_NEG : 0;
  value.Lo64 = dice.coin() ? dice.bits() : dice.below(100000);
  value.Hi32 = dice.one_in(3) ? static_cast<ULONG>(dice.bits()) : 0;
  return value;
}

}  // namespace misuse
