// SPDX-License-Identifier: MIT
#include "foundation/entry_point.h"

#include <new>
#include <optional>
#include <stdexcept>
#include <string>

#include "platform/controls/dialogs.h"
#include "platform/text/numbers.h"

namespace lexmill {
namespace {

using platform::Failure;
using platform::FailureNumber;
using platform::FailureOrigin;

/// Runs `body`. @return the failure that ended it, if one did
std::optional<Failure> FailureOf(const std::function<void()>& body) {
  try {
    body();
  } catch (const Failure& failure) {
    return failure;
  } catch (const std::bad_alloc&) {
    return Failure(FailureNumber::OutOfMemory, FailureOrigin::Runtime);
  } catch (const std::length_error&) {  // a text longer than a string can be
    return Failure(FailureNumber::OutOfMemory, FailureOrigin::Runtime);
  }
  return std::nullopt;
}

}  // namespace

bool ReportFailures(std::u16string_view place, const std::function<void()>& body) {
  const auto failure = FailureOf(body);
  if (failure) {
    std::u16string text = u"错误:" + platform::ToText(failure->Number());
    text += u"\r\n" + failure->Description();
    text.append(u"\r\n源代码位置: ").append(place);
    platform::ShowMessageBox(text, platform::MessageIcon::Critical, platform::MessageButtons::Ok);
    FailureShown().Raise(*failure);
  }
  return !failure;
}

platform::Event<const Failure&>& FailureShown() {
  static platform::Event<const Failure&> shown;
  return shown;
}

bool IgnoreFailures(const std::function<void()>& step) {
  return !FailureOf(step);
}

}  // namespace lexmill
