// SPDX-License-Identifier: MIT
#include "run/shared/progress_tick.h"

#include <string>

#include "platform/controls/desktop.h"
#include "platform/host/clock.h"
#include "platform/text/numbers.h"

namespace lexmill {

void ProgressTick::Start() {
  start_ = platform::GetTickCount();
  lastRefresh_ = platform::GetTickCount();
}

std::int32_t ProgressTick::Elapsed() const {
  return platform::Elapsed(start_, platform::GetTickCount());
}

bool ProgressTick::IsDue() {
  constexpr std::int32_t kInterval = 500;
  if (!platform::HasPassed(lastRefresh_, platform::GetTickCount(), kInterval)) {
    return false;
  }
  lastRefresh_ = platform::GetTickCount();
  return true;
}

void ProgressTick::ShowPercent(std::int32_t percent) {
  label_->Caption(platform::ToText(percent) + u'%');
  platform::DoEvents();
}

void ProgressTick::ShowStarIfDue() {
  if (!IsDue()) {
    return;
  }
  constexpr std::size_t kMostToGrow = 5;
  const std::u16string caption(label_->Caption());
  label_->Caption(caption.size() > kMostToGrow ? u"*" : caption + u'*');
  platform::DoEvents();
}

}  // namespace lexmill
