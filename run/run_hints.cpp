// SPDX-License-Identifier: MIT
#include "run/run_hints.h"

#include <string_view>

#include "platform/host/host_path.h"

namespace lexmill {
namespace {

using Hints = std::vector<std::u16string>;

std::u16string Named(std::u16string_view role, const HintedDictionary& dictionary) {
  return std::u16string(role).append(u" ").append(platform::FileName(dictionary.path)).append(u" ");
}

void AddHintsOfFile(std::u16string_view role, const HintedDictionary& dictionary, Hints& hints) {
  const std::u16string name = Named(role, dictionary);
  const auto& [isUtf16, hasMixedEncodings, hasManyColumns] = dictionary.kind.facts;
  if (isUtf16) {
    hints.push_back(name + u"是 UTF-16，请另存为 UTF-8");
  }
  if (hasMixedEncodings) {
    hints.push_back(name + u"有的行是 UTF-8，有的行不是，请不要把不同编码的文件拼在一起");
  }
  if (hasManyColumns && dictionary.kind.format != modMain::DictionaryFormat::DianjingText) {
    hints.push_back(name + u"大多数行不止两列，这些行都被丢开");
  }
  if (dictionary.isToDoFile) {
    hints.push_back(name + u"和未译字典是同一个文件");
  }
}

// The untranslated dictionary is mostly translated, the references mostly are not.
bool MayBeSwapped(const RunCounts& counts, std::span<const HintedDictionary> references) {
  std::int64_t equalSides = 0;
  for (const auto& reference : references) {
    const auto dropped = counts.dropped.find(reference.path);
    equalSides += dropped == counts.dropped.end() ? 0 : dropped->second.equalSides;
  }
  return counts.alreadyTranslated > counts.ToDo() && equalSides > counts.referenceEntries;
}

std::u16string HintOfNothingFilled(const RunCounts& counts, const HintedDictionary& toDo,
                                   std::span<const HintedDictionary> references) {
  const std::u16string untranslated = Named(u"未译字典", toDo);
  const std::u16string reference = Named(u"参照字典", references.front());
  if (MayBeSwapped(counts, references)) {
    return untranslated + u"大多已有译文，" + reference + u"大多没有译文，两本字典是不是放反了？";
  }
  if (counts.ToDo() == 0) {
    return untranslated + u"里没有未译的字串";
  }
  return reference + u"没有译出任何字串";
}

}  // namespace

std::vector<std::u16string> HintsOf(const RunCounts& counts, const HintedDictionary& toDo,
                                    std::span<const HintedDictionary> references) {
  Hints hints;
  AddHintsOfFile(u"未译字典", toDo, hints);
  for (const auto& reference : references) {
    AddHintsOfFile(u"参照字典", reference, hints);
  }
  if (counts.Complete() && counts.filled == 0 &&
      (hints.empty() || MayBeSwapped(counts, references))) {
    hints.push_back(HintOfNothingFilled(counts, toDo, references));
  }
  return hints;
}

}  // namespace lexmill
