// A table of fixed bounds whose subscript is checked: a subscript outside of them is a fault.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "support/Fault.h"

namespace dorvane {

// Elements First..Last of T, value-initialised. T may itself be a Fixed table.
template <typename T, int First, int Last>
class Fixed {
  static_assert(First <= Last);

 public:
  static constexpr int kFirst = First;
  static constexpr int kLast = Last;
  static constexpr std::size_t kSize = static_cast<std::size_t>(Last - First + 1);

  // Throws Fault(Subscript) outside First..Last.
  constexpr T& operator[](int index) { return items_[Place(index)]; }
  constexpr const T& operator[](int index) const { return items_[Place(index)]; }

  constexpr auto begin() { return items_.begin(); }
  constexpr auto end() { return items_.end(); }
  constexpr auto begin() const { return items_.begin(); }
  constexpr auto end() const { return items_.end(); }
  constexpr T* data() { return items_.data(); }
  constexpr const T* data() const { return items_.data(); }
  static constexpr std::size_t size() { return kSize; }
  constexpr void fill(const T& value) { items_.fill(value); }

  // All elements, the first of the span being element First.
  constexpr std::span<T, kSize> All() { return items_; }
  constexpr std::span<const T, kSize> All() const { return items_; }

  friend bool operator==(const Fixed&, const Fixed&) = default;

 private:
  static constexpr std::size_t Place(int index) {
    if (index < First || index > Last) throw Fault(FaultCode::Subscript);
    return static_cast<std::size_t>(index - First);
  }

  std::array<T, kSize> items_{};
};

}  // namespace dorvane
