#pragma once
// An aircraft's position stream: samples taken from the front every few ticks and added at the
// back every few seconds. A ring over one buffer that only grows, so that once an aircraft's
// stream has reached its usual length the engine step allocates nothing (a deque allocates and
// frees a block every few samples).
#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>

namespace orv {

template <typename T>
class Ring {
 public:
  template <typename R, typename V>
  class Iter {
   public:
    using iterator_category = std::random_access_iterator_tag;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    using pointer = V*;
    using reference = V&;

    Iter() = default;
    Iter(R* ring, std::size_t i) : ring_(ring), i_(i) {}
    reference operator*() const { return (*ring_)[i_]; }
    pointer operator->() const { return &(*ring_)[i_]; }
    reference operator[](difference_type n) const { return (*ring_)[i_ + n]; }
    Iter& operator++() { ++i_; return *this; }
    Iter operator++(int) { Iter t = *this; ++i_; return t; }
    Iter& operator--() { --i_; return *this; }
    Iter operator--(int) { Iter t = *this; --i_; return t; }
    Iter& operator+=(difference_type n) { i_ += n; return *this; }
    Iter& operator-=(difference_type n) { i_ -= n; return *this; }
    friend Iter operator+(Iter a, difference_type n) { return a += n; }
    friend Iter operator+(difference_type n, Iter a) { return a += n; }
    friend Iter operator-(Iter a, difference_type n) { return a -= n; }
    friend difference_type operator-(const Iter& a, const Iter& b) {
      return static_cast<difference_type>(a.i_) - static_cast<difference_type>(b.i_);
    }
    friend bool operator==(const Iter& a, const Iter& b) { return a.i_ == b.i_; }
    friend auto operator<=>(const Iter& a, const Iter& b) { return a.i_ <=> b.i_; }
    std::size_t index() const { return i_; }

   private:
    R* ring_ = nullptr;
    std::size_t i_ = 0;
  };
  using iterator = Iter<Ring, T>;
  using const_iterator = Iter<const Ring, const T>;

  Ring() = default;
  Ring(const Ring& o) { *this = o; }
  Ring(Ring&& o) noexcept { swap(o); }
  Ring& operator=(const Ring& o) {
    if (this == &o) return *this;
    clear();
    reserve(o.size_);
    for (const T& x : o) push_back(x);
    return *this;
  }
  Ring& operator=(Ring&& o) noexcept {
    Ring t(std::move(o));
    swap(t);
    return *this;
  }
  void swap(Ring& o) noexcept {
    std::swap(buf_, o.buf_);
    std::swap(cap_, o.cap_);
    std::swap(head_, o.head_);
    std::swap(size_, o.size_);
  }

  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }
  std::size_t capacity() const { return cap_; }
  T& operator[](std::size_t i) { return buf_[(head_ + i) & (cap_ - 1)]; }
  const T& operator[](std::size_t i) const { return buf_[(head_ + i) & (cap_ - 1)]; }
  T& front() { return (*this)[0]; }
  const T& front() const { return (*this)[0]; }
  T& back() { return (*this)[size_ - 1]; }
  const T& back() const { return (*this)[size_ - 1]; }
  iterator begin() { return {this, 0}; }
  iterator end() { return {this, size_}; }
  const_iterator begin() const { return {this, 0}; }
  const_iterator end() const { return {this, size_}; }

  void push_back(const T& x) {
    grow(size_ + 1);
    (*this)[size_] = x;
    ++size_;
  }
  void push_front(const T& x) {
    grow(size_ + 1);
    head_ = (head_ + cap_ - 1) & (cap_ - 1);
    ++size_;
    front() = x;
  }
  void pop_front() {
    front() = T{};
    head_ = (head_ + 1) & (cap_ - 1);
    --size_;
  }
  // Shorter keeps the first n; longer adds default samples at the back.
  void resize(std::size_t n) {
    while (size_ > n) {
      back() = T{};
      --size_;
    }
    grow(n);
    while (size_ < n) {
      (*this)[size_] = T{};
      ++size_;
    }
  }
  void clear() { resize(0); }
  // Removes one sample, moving the ones behind it up; returns the iterator to the next one.
  iterator erase(iterator at) {
    const std::size_t i = at.index();
    for (std::size_t k = i; k + 1 < size_; ++k) (*this)[k] = std::move((*this)[k + 1]);
    back() = T{};
    --size_;
    return {this, i};
  }
  void reserve(std::size_t n) { grow(n); }

 private:
  void grow(std::size_t n) {
    if (n <= cap_) return;
    std::size_t cap = cap_ ? cap_ : 8;
    while (cap < n) cap *= 2;
    std::unique_ptr<T[]> buf(new T[cap]);
    for (std::size_t k = 0; k < size_; ++k) buf[k] = std::move((*this)[k]);
    buf_ = std::move(buf);
    cap_ = cap;
    head_ = 0;
  }

  std::unique_ptr<T[]> buf_;
  std::size_t cap_ = 0;  // a power of two, or 0
  std::size_t head_ = 0;
  std::size_t size_ = 0;
};

}  // namespace orv
