// SPDX-License-Identifier: MIT
// platform: stands in for the desktop system; knows nothing of dictionaries.
// An event of an object: synchronous, with one listener at a time.
#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace lexmill::platform {

/// Keeps a listener connected for as long as it lives. May outlive the event. Movable, not
/// copyable.
class Connection {
 public:
  Connection() = default;
  explicit Connection(std::shared_ptr<void> listener) : listener_(std::move(listener)) {}
  Connection(Connection&&) noexcept = default;
  Connection& operator=(Connection&&) noexcept = default;
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// Disconnects now instead of at the end of this object's life.
  void Disconnect() { listener_.reset(); }

 private:
  std::shared_ptr<void> listener_;
};

/// Something that an object reports to at most one listener, on the caller's thread, inside Raise.
template <class... Args>
class Event {
 public:
  using Listener = std::function<void(Args...)>;

  /// Makes `listener` the one listener, in place of any earlier one, until the result is destroyed.
  [[nodiscard]] Connection Connect(Listener listener) {
    auto kept = std::make_shared<Listener>(std::move(listener));
    listener_ = kept;
    return Connection(std::move(kept));
  }

  /// Calls the listener, if there is one. A listener may disconnect itself; what it throws passes
  /// on.
  void Raise(Args... args) const {
    if (const auto listener = listener_.lock()) {
      (*listener)(std::forward<Args>(args)...);
    }
  }

 private:
  std::weak_ptr<Listener> listener_;
};

}  // namespace lexmill::platform
