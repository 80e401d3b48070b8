#pragma once

// Dim1Data<T, ARG>: the growable one-dimensional array that the generic
// batch family keeps its lists in (a sample's masses and triggers, a plate's
// samples, a batch's plates). ARG is the argument type of the element
// operations, as in the MFC array templates (T& here).
//
// Promises:
//  - elements 0 … GetSize() − 1 are constructed, slots beyond them are not;
//  - growth: when an insertion needs room, the capacity grows by the grow
//    step, or, with the automatic step (0), by count / 8 clamped to 4 … 1024,
//    and to exactly the size needed when that is still short. Growing
//    relocates elements by moving them;
//  - copying (construction or assignment) copies every element through T's
//    copy operations and keeps the target's own grow step;
//  - the element operations check nothing unless they say so: an index out
//    of range is the caller's error.

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <memory>
#include <new>
#include <utility>

namespace kvdao {

template <typename T, typename ARG = T&>
class Dim1Data {
 public:
  Dim1Data() = default;
  Dim1Data(std::initializer_list<T> values) {
    Reserve(static_cast<int>(values.size()));
    for (const T& value : values) new (data_ + size_++) T(value);
  }
  Dim1Data(const Dim1Data& other) { Copy(other); }
  Dim1Data(Dim1Data&& other) noexcept { Swap(other); }
  Dim1Data& operator=(const Dim1Data& other) {
    if (this != &other) Copy(other);
    return *this;
  }
  Dim1Data& operator=(Dim1Data&& other) noexcept {
    if (this != &other) {
      RemoveAll();
      Swap(other);
    }
    return *this;
  }
  ~Dim1Data() { RemoveAll(); }

  int GetSize() const noexcept { return size_; }
  int GetCount() const noexcept { return size_; }
  int GetUpperBound() const noexcept { return size_ - 1; }
  int GetCapacity() const noexcept { return capacity_; }
  bool IsEmpty() const noexcept { return size_ == 0; }
  // 0 selects the automatic step; a negative step leaves it unchanged.
  void SetGrowBy(int growBy) noexcept {
    if (growBy >= 0) growBy_ = growBy;
  }

  // Sets the element count: new elements are value-initialised (0 for
  // numbers, empty for strings and default objects), elements beyond a
  // smaller count are destroyed. A negative size is taken as 0.
  void SetSize(int size, int growBy = -1) {
    SetGrowBy(growBy);
    if (size < 0) size = 0;
    if (size > size_) {
      Reserve(size);
      for (; size_ < size; ++size_) new (data_ + size_) T();
    } else {
      while (size_ > size) data_[--size_].~T();
    }
  }

  T& operator[](int index) noexcept { return data_[index]; }
  const T& operator[](int index) const noexcept { return data_[index]; }
  T& ElementAt(int index) noexcept { return data_[index]; }
  const T& GetAt(int index) const noexcept { return data_[index]; }
  void SetAt(int index, const T& value) { data_[index] = value; }
  T* GetData() noexcept { return data_; }
  const T* GetData() const noexcept { return data_; }
  T* begin() noexcept { return data_; }
  T* end() noexcept { return data_ + size_; }
  const T* begin() const noexcept { return data_; }
  const T* end() const noexcept { return data_ + size_; }

  // Appends a copy and returns its index.
  int Add(const T& value) {
    if (size_ == capacity_) {
      T copy(value);  // `value` may live in this array
      Reserve(size_ + 1);
      new (data_ + size_) T(std::move(copy));
    } else {
      new (data_ + size_) T(value);
    }
    return size_++;
  }

  // Inside the array, moves the elements from `index` on up by one and
  // stores a copy at `index`; at or beyond the end, first extends the array
  // with new elements to `index` + 1. A negative index does nothing.
  void InsertAt(int index, const T& value) {
    if (index < 0) return;
    if (index >= size_) {
      T copy(value);
      SetSize(index + 1);
      data_[index] = std::move(copy);
      return;
    }
    T copy(value);
    Reserve(size_ + 1);
    new (data_ + size_) T(std::move(data_[size_ - 1]));
    ++size_;
    std::move_backward(data_ + index, data_ + size_ - 2, data_ + size_ - 1);
    data_[index] = std::move(copy);
  }

  // Removes `count` elements from `index` on, moving later elements down.
  // Indexes outside the array are ignored.
  void RemoveAt(int index, int count = 1) {
    if (index < 0 || count <= 0 || index >= size_) return;
    count = std::min(count, size_ - index);
    std::move(data_ + index + count, data_ + size_, data_ + index);
    for (int i = 0; i < count; ++i) data_[--size_].~T();
  }

  // Destroys every element and frees the storage.
  void RemoveAll() noexcept {
    while (size_ > 0) data_[--size_].~T();
    std::allocator<T>().deallocate(data_, static_cast<std::size_t>(capacity_));
    data_ = nullptr;
    capacity_ = 0;
  }

  // Replaces the content with copies of `other`'s elements.
  void Copy(const Dim1Data& other) {
    if (this == &other) return;
    SetSize(0);
    Reserve(other.size_);
    for (int i = 0; i < other.size_; ++i) {
      new (data_ + i) T(other.data_[i]);
      ++size_;
    }
  }

 private:
  void Swap(Dim1Data& other) noexcept {
    std::swap(data_, other.data_);
    std::swap(size_, other.size_);
    std::swap(capacity_, other.capacity_);
    std::swap(growBy_, other.growBy_);
  }

  void Reserve(int needed) {
    if (needed <= capacity_) return;
    int step = growBy_ != 0 ? growBy_ : std::clamp(size_ / 8, 4, 1024);
    int capacity = capacity_ + step;
    if (capacity < needed) capacity = needed;
    T* data = std::allocator<T>().allocate(static_cast<std::size_t>(capacity));
    for (int i = 0; i < size_; ++i) {
      new (data + i) T(std::move(data_[i]));
      data_[i].~T();
    }
    std::allocator<T>().deallocate(data_, static_cast<std::size_t>(capacity_));
    data_ = data;
    capacity_ = capacity;
  }

  T* data_ = nullptr;
  int size_ = 0;
  int capacity_ = 0;
  int growBy_ = 0;
};

}  // namespace kvdao
