// SPDX-License-Identifier: MIT
#include "run/shared/run_notice.h"

#include <utility>

#include "run/shared/run_state.h"

namespace lexmill {

void NoteFailure(std::u16string text) {
  TheRun().notices.push_back({.text = std::move(text), .isFailure = true});
}

void NoteHint(std::u16string text) {
  TheRun().notices.push_back({.text = std::move(text), .isFailure = false});
}

}  // namespace lexmill
