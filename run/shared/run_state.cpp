// SPDX-License-Identifier: MIT
#include "run/shared/run_state.h"

namespace lexmill {

RunState& TheRun() {
  static RunState state;
  return state;
}

platform::TextEncoding EncodingOf(std::u16string_view path) {
  const auto& encodings = TheRun().encodings;
  const auto found = encodings.find(path);
  return found == encodings.end() ? platform::TextEncoding::Ansi : found->second;
}

}  // namespace lexmill
