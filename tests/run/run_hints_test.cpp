// SPDX-License-Identifier: MIT
#include "run/run_hints.h"

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/readable_text.h"

namespace lexmill {
namespace {

using modMain::DictionaryFormat;
using test::Readable;

// The counts of a run that came to its end.
RunCounts Counts(RunCounts counts) {
  counts.untranslatedRead = counts.readyRead = counts.resultWritten = true;
  return counts;
}

const RunCounts kNothingFilled = Counts({.searched = 5, .referenceEntries = 9});
const RunCounts kSomeFilled = Counts({.searched = 5, .filled = 1, .referenceEntries = 9});
const RunCounts kSwapped = Counts({.searched = 2,
                                   .alreadyTranslated = 9,
                                   .referenceEntries = 1,
                                   .dropped = {{u"/b/r.glo", {.equalSides = 8}}}});
const RunCounts kNothingToDo = Counts({.alreadyTranslated = 3, .referenceEntries = 9});

DictionaryKind Kind(FileFacts facts, DictionaryFormat format = DictionaryFormat::PassoloGlossary) {
  DictionaryKind kind;
  kind.facts = facts;
  kind.format = format;
  return kind;
}

TEST(RunHints, NameTheFileAndWhatMayBeWrongWithIt) {
  const DictionaryKind plain = Kind({});
  const DictionaryKind manyColumns = Kind({.hasManyColumns = true});
  struct Case {
    std::string_view name;
    RunCounts counts;
    DictionaryKind toDo, refer;
    bool isSameFile;
    std::string_view hints;
  };
  const Case cases[] = {
      {"all is well", kSomeFilled, plain, plain, false, ""},
      {"no complete run", {}, plain, plain, false, ""},
      {"nothing filled", kNothingFilled, plain, plain, false, "参照字典 r.glo 没有译出任何字串"},
      {"swapped", kSwapped, plain, plain, false,
       "未译字典 t.glo 大多已有译文，参照字典 r.glo 大多没有译文，两本字典是不是放反了？"},
      {"nothing to do", kNothingToDo, plain, plain, false, "未译字典 t.glo 里没有未译的字串"},
      {"one file twice", kSomeFilled, plain, plain, true, "参照字典 r.glo 和未译字典是同一个文件"},
      {"UTF-16, nothing else to say of it", kNothingFilled, plain, Kind({.isUtf16 = true}), false,
       "参照字典 r.glo 是 UTF-16，请另存为 UTF-8"},
      {"UTF-16 and no run",
       {},
       Kind({.isUtf16 = true}),
       plain,
       false,
       "未译字典 t.glo 是 UTF-16，请另存为 UTF-8"},
      {"mixed encodings", kSomeFilled, plain, Kind({.hasMixedEncodings = true}), false,
       "参照字典 r.glo 有的行是 UTF-8，有的行不是，请不要把不同编码的文件拼在一起"},
      {"third column", kSomeFilled, manyColumns, plain, false,
       "未译字典 t.glo 大多数行不止两列，这些行都被丢开"},
      {"a text has no columns", kSomeFilled,
       Kind({.hasManyColumns = true}, DictionaryFormat::DianjingText), plain, false, ""},
  };
  for (const Case& row : cases) {
    const std::vector<HintedDictionary> references{
        {.path = u"/b/r.glo", .kind = row.refer, .isToDoFile = row.isSameFile}};
    std::string hints;
    for (const auto& hint :
         HintsOf(row.counts, {.path = u"/a/t.glo", .kind = row.toDo}, references)) {
      hints += Readable(hint);
    }
    EXPECT_EQ(hints, row.hints) << row.name;
  }
}

}  // namespace
}  // namespace lexmill
