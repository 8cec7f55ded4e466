// A control array: controls of one kind under one name and their index, from First on.
#pragma once

#include <deque>
#include <string>

#include "forms/Control.h"

namespace dorvane {

template <typename T, int First = 0>
class ControlArray {
 public:
  // `arguments` follow the name in the constructor of each control.
  template <typename... Arguments>
  ControlArray(ControlList& controls, const std::string& name, int count,
               const Arguments&... arguments) {
    for (int i = First; i < First + count; ++i) {
      items_.emplace_back(controls, name + "_" + std::to_string(i), arguments...);
    }
  }
  int Size() const { return static_cast<int>(items_.size()); }
  // Throws std::out_of_range outside of the array.
  T& operator[](int index) { return items_.at(static_cast<std::size_t>(index - First)); }
  const T& operator[](int index) const {
    return items_.at(static_cast<std::size_t>(index - First));
  }

 private:
  std::deque<T> items_;  // controls stay where they are
};

}  // namespace dorvane
