#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/base/RuntimeError.h"

namespace ostrand {

// A control array: indices from 0, holes allowed. The form makes its elements; a view reaches them by
// index, and an index without an element is error 9.
template <class T>
class ControlArray {
 public:
  explicit ControlArray(std::string name) : mName(std::move(name)) {}

  T& operator()(int index) const {
    if (!has(index)) throw RuntimeError(RuntimeError::OutOfRange, mName + " has no element " + std::to_string(index));
    return *mElements[static_cast<std::size_t>(index)];
  }
  bool has(int index) const { return index >= 0 && index < size() && mElements[static_cast<std::size_t>(index)]; }
  // One past the last index; with holes more than the number of elements.
  int size() const { return static_cast<int>(mElements.size()); }

  // For the form: the element of this index, made if need be; and one behind the last.
  T& at(int index) {
    if (index >= size()) mElements.resize(static_cast<std::size_t>(index) + 1);
    auto& element = mElements[static_cast<std::size_t>(index)];
    if (!element) element = std::make_unique<T>(mName + "(" + std::to_string(index) + ")");
    return *element;
  }
  T& next() { return at(size()); }

  // Calls `visit(index, element)` in index order.
  template <class Visit>
  void each(Visit visit) const {
    for (int i = 0; i < size(); ++i)
      if (has(i)) visit(i, *mElements[static_cast<std::size_t>(i)]);
  }

 private:
  std::string mName;
  std::vector<std::unique_ptr<T>> mElements;
};

}  // namespace ostrand
