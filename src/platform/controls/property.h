#pragma once

#include <functional>
#include <list>
#include <ostream>
#include <utility>

namespace platform {

/// One property of a control: it reads and is assigned like a plain value.
///
/// `OnAssign` lets the control put its event rules in the place of plain storing; `Observe` lets
/// the window and others follow what was stored, each of them for the life of the property.
template <typename T>
class Property {
 public:
  Property() = default;
  explicit Property(T initial) : value_(std::move(initial)) {}
  Property(const Property&) = delete;
  Property(Property&&) = delete;
  ~Property() = default;

  Property& operator=(const Property&) = delete;
  Property& operator=(Property&&) = delete;
  Property& operator=(T value) {
    if (assign_) {
      assign_(std::move(value));
    } else {
      Store(std::move(value));
    }
    return *this;
  }

  operator const T&() const { return value_; }
  const T& Get() const { return value_; }

  /// Sets the value and tells the observers in the order of their coming, without any event.
  void Store(T value) {
    value_ = std::move(value);
    for (const std::function<void()>& observer : observers_) observer();
  }
  void OnAssign(std::function<void(T)> assign) { assign_ = std::move(assign); }
  void Observe(std::function<void()> observer) { observers_.push_back(std::move(observer)); }

  template <typename U>
  friend bool operator==(const Property& property, const U& other) {
    return property.value_ == other;
  }
  friend std::ostream& operator<<(std::ostream& out, const Property& property) {
    return out << property.value_;
  }

 private:
  T value_{};
  std::function<void(T)> assign_;
  // An observer may bring another one along while it is told; a list keeps it where it is.
  std::list<std::function<void()>> observers_;
};

/// An event of a control: at most one handler, called synchronously.
template <typename... Args>
class Event {
 public:
  Event& operator=(std::function<void(Args...)> handler) {
    handler_ = std::move(handler);
    return *this;
  }
  void operator()(Args... args) const {
    if (handler_) handler_(args...);
  }

 private:
  std::function<void(Args...)> handler_;
};

}  // namespace platform
