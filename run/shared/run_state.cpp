// SPDX-License-Identifier: MIT
#include "run/shared/run_state.h"

namespace lexmill {

RunState& TheRun() {
  static RunState state;
  return state;
}

const std::u16string& WorkFolder() {
  return TheRun().WorkDir.empty() ? TheRun().AppPath : TheRun().WorkDir;
}

DictionaryKind KindOf(std::u16string_view path) {
  const auto& dictionaries = TheRun().dictionaries;
  const auto found = dictionaries.find(path);
  return found == dictionaries.end() ? DictionaryKind() : found->second;
}

}  // namespace lexmill
