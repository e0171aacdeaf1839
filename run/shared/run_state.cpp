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

std::u16string StandIns::ForToDo(std::u16string_view path) const {
  return toDo.empty() ? std::u16string(path) : toDo;
}

std::u16string StandIns::ForReference(std::u16string_view path) const {
  const auto found = references.find(path);
  return found == references.end() ? std::u16string(path) : found->second;
}

std::u16string StandIns::ForResult(std::u16string_view path) const {
  return result.empty() ? std::u16string(path) : result;
}

DictionaryKind KindOf(std::u16string_view path) {
  const auto& dictionaries = TheRun().dictionaries;
  const auto found = dictionaries.find(path);
  return found == dictionaries.end() ? DictionaryKind() : found->second;
}

}  // namespace lexmill
