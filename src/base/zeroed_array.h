#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <span>
#include <type_traits>

namespace platform {

/// Numbers that are 0 until they are written. The system gives large memory page by page at the
/// first touch, and gives it zeroed: so making a large array anew costs next to nothing, and a part
/// that nobody writes takes no memory.
template <typename T>
class ZeroedArray {
  static_assert(std::is_arithmetic_v<T>, "zeroed bytes must be the number 0");

 public:
  /// Makes `count` numbers anew, all 0. Where there is not enough memory, std::bad_alloc comes and
  /// the old numbers stay.
  void Redim(std::size_t count) {
    T* fresh = nullptr;
    if (count > 0) {
      fresh = static_cast<T*>(std::calloc(count, sizeof(T)));
      if (fresh == nullptr) throw std::bad_alloc();
    }
    numbers_.reset(fresh);
    count_ = count;
  }
  std::size_t Count() const { return count_; }
  T& operator[](std::size_t index) { return numbers_[index]; }
  const T& operator[](std::size_t index) const { return numbers_[index]; }
  std::span<T> All() { return {numbers_.get(), count_}; }
  std::span<const T> All() const { return {numbers_.get(), count_}; }

 private:
  struct Free {
    void operator()(T* numbers) const { std::free(numbers); }
  };

  std::unique_ptr<T[], Free> numbers_;
  std::size_t count_ = 0;
};

}  // namespace platform
