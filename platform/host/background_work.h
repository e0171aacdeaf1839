// SPDX-License-Identifier: MIT
// platform/host: work that goes on beside its owner's.
#pragma once

#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>

namespace lexmill::platform {

/// Does one piece of work at a time on a thread of its own, which begins with the first one. Where
/// no thread can be had, work is done at once by whoever starts it. For one owner; not copied.
class BackgroundWork {
 public:
  BackgroundWork() = default;
  BackgroundWork(const BackgroundWork&) = delete;
  BackgroundWork& operator=(const BackgroundWork&) = delete;
  /// Waits for the work under way and drops its failure.
  ~BackgroundWork();

  /// Waits for the work before, then begins `work`. What it touches is its own until Wait returns.
  /// @throws what the work before threw; `work` is not begun then
  void Start(std::function<void()> work);

  /// Returns when no work is under way. @throws what the work threw, once
  void Wait();

  /// As Wait, but forgets a failure.
  void Drop();

 private:
  [[nodiscard]] std::exception_ptr TakeFailure();
  void BeginThread();
  void Serve();
  void Do(const std::function<void()>& work) noexcept;

  std::mutex mutex_;  ///< of the members below, but for the thread
  std::condition_variable changed_;
  std::function<void()> work_;  ///< empty when none is under way
  std::exception_ptr failure_;
  bool isEnding_ = false;
  std::thread thread_;
};

}  // namespace lexmill::platform
