// SPDX-License-Identifier: MIT
#include "platform/host/background_work.h"

#include <csignal>
#include <system_error>
#include <utility>

namespace lexmill::platform {
namespace {

/// While it lives, a thread that is begun gets no signals: they are for the program's first one.
class SignalsBlocked {
 public:
  SignalsBlocked() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before_);
  }
  SignalsBlocked(const SignalsBlocked&) = delete;
  SignalsBlocked& operator=(const SignalsBlocked&) = delete;
  ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

 private:
  sigset_t before_{};
};

}  // namespace

BackgroundWork::~BackgroundWork() {
  if (!thread_.joinable()) {
    return;
  }
  {
    const std::lock_guard lock(mutex_);
    isEnding_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

void BackgroundWork::Start(std::function<void()> work) {
  Wait();
  BeginThread();
  if (!thread_.joinable()) {
    Do(work);
    return;
  }
  {
    const std::lock_guard lock(mutex_);
    work_ = std::move(work);
  }
  changed_.notify_all();
}

void BackgroundWork::Wait() {
  if (const std::exception_ptr failure = TakeFailure()) {
    std::rethrow_exception(failure);
  }
}

void BackgroundWork::Drop() {
  static_cast<void>(TakeFailure());
}

/// Waits for the work under way. @return its failure, or null
std::exception_ptr BackgroundWork::TakeFailure() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return !work_; });
  return std::exchange(failure_, nullptr);
}

void BackgroundWork::BeginThread() {
  if (thread_.joinable()) {
    return;
  }
  try {
    const SignalsBlocked blocked;
    thread_ = std::thread([this] { Serve(); });
  } catch (const std::system_error&) {
    return;  // the limit of threads is reached
  }
}

void BackgroundWork::Serve() {
  std::unique_lock lock(mutex_);
  while (true) {
    changed_.wait(lock, [this] { return work_ || isEnding_; });
    if (!work_) {
      return;
    }
    lock.unlock();
    Do(work_);
    lock.lock();
    work_ = nullptr;
    changed_.notify_all();
  }
}

void BackgroundWork::Do(const std::function<void()>& work) noexcept {
  try {
    work();
  } catch (...) {  // Wait tells it
    failure_ = std::current_exception();
  }
}

}  // namespace lexmill::platform
