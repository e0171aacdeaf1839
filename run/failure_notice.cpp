// SPDX-License-Identifier: MIT
#include "run/failure_notice.h"

#include <algorithm>
#include <string>
#include <tuple>

#include "foundation/entry_point.h"
#include "platform/expression/regular_expression.h"
#include "platform/text/numbers.h"
#include "run/shared/option_set.h"
#include "run/shared/run_notice.h"
#include "run/shared/run_state.h"

namespace lexmill {
namespace {

bool Compiles(std::u16string_view pattern) {
  return IgnoreFailures([&] {
    platform::RegExp expression;
    expression.Pattern(pattern);
    std::ignore = expression.Test(u"");
  });
}

bool IsOfExpression(const platform::Failure& failure) {
  using platform::FailureNumber;
  return failure.Number() >= static_cast<std::int32_t>(FailureNumber::ExpressionSyntax) &&
         failure.Number() <= static_cast<std::int32_t>(FailureNumber::InvalidRange);
}

// The options whose texts become parts of an expression. Where each compiles alone, they fail
// together.
std::u16string FaultyOptions() {
  const bool left = Compiles(RunOptions().txtrAndXBK1);
  const bool right = Compiles(RunOptions().txtrAndXBK2);
  if (left == right) {
    return u"txtrAndXBK1、txtrAndXBK2";
  }
  return left ? u"txtrAndXBK2" : u"txtrAndXBK1";
}

}  // namespace

void NoteSubject(const platform::Failure& failure) {
  const bool isOption = IsOfExpression(failure);
  const std::u16string subject = isOption ? FaultyOptions() : failure.Subject();
  if (subject.empty()) {
    return;
  }
  const std::u16string text = u"错误 " + platform::ToText(failure.Number()) +
                              (isOption ? u" 的选项：" : u" 的文件：") + subject;
  if (std::ranges::find(TheRun().notices, text, &RunNotice::text) == TheRun().notices.end()) {
    NoteFailure(text);
  }
}

}  // namespace lexmill
