// SPDX-License-Identifier: MIT
#include "pipeline/more_references.h"

#include <cstdint>
#include <functional>
#include <string_view>
#include <tuple>
#include <unordered_set>

#include "foundation/entry_point.h"
#include "glossary/clsLexGLO1.h"
#include "pipeline/stage_run.h"
#include "platform/files/file_system.h"
#include "platform/text/text.h"
#include "run/shared/option_set.h"
#include "run/shared/progress_tick.h"
#include "run/shared/run_state.h"
#include "text/clsLexUPB1.h"
#include "window/frmMain.h"

namespace lexmill {
namespace {

constexpr std::int16_t kResultRow = 3;

/// Stands for a text in a set. Of a million texts two have the same key in one of 10^26 runs.
struct TextKey {
  explicit TextKey(std::u16string_view text) : first(std::hash<std::u16string_view>()(text)) {
    for (const char16_t unit : text) {  // FNV-1a, which shares nothing with the library's hash
      second = (second ^ unit) * 0x100000001B3U;
    }
  }
  bool operator==(const TextKey&) const = default;

  std::uint64_t first;
  std::uint64_t second = 0xCBF29CE484222325U;
};

struct FirstOfKey {
  std::size_t operator()(const TextKey& key) const { return key.first; }
};

using TextKeys = std::unordered_set<TextKey, FirstOfKey>;

/// Puts ready dictionaries together. A row is passed over for what the ones before it had.
class Joining {
 public:
  explicit Joining(const std::u16string& path)
      : output_(platform::FileSystemObject().CreateTextFile(path, true)) {
    progress_.StateLabel(frmMain::Instance().lblState(kResultRow));
    progress_.Start();
  }
  Joining(const Joining&) = delete;
  Joining& operator=(const Joining&) = delete;
  /// Leaves the file as it was unless Finish has put the new one in its place.
  ~Joining() { output_.Discard(); }

  void Add(const std::u16string& path, bool isLast) {
    auto input = platform::FileSystemObject().OpenTextFile(path);
    TextKeys added;
    while (!TheRun().abandoned && !input.AtEndOfStream()) {
      progress_.ShowStarIfDue();
      const std::u16string_view row = input.ReadLine();
      const std::u16string_view source = row.substr(0, platform::Find(row, u'\t'));
      const TextKey key(TheRun().firstReferenceOnly ? source : row);
      if (known_.contains(key)) {
        continue;
      }
      output_.WriteLine(row);
      if (!isLast && added.insert(key).second && TheRun().firstReferenceOnly) {
        TheRun().counts.settledEarly += TheRun().untranslated.Entries(source);
      }
    }
    input.Close();
    known_.merge(added);
  }

  void Finish() { output_.Close(); }

 private:
  platform::TextWriter output_;
  ProgressTick progress_;
  TextKeys known_;
};

void Join(const std::u16string& ready, const std::vector<MoreReferenceFiles>& more) {
  Joining joining(ready);
  joining.Add(ready, false);
  for (const MoreReferenceFiles& files : more) {
    joining.Add(InWorkFolder(files.sReadyFile), &files == &more.back());
  }
  joining.Finish();
}

}  // namespace

void PurifyMoreReferences(RecordScanner& scanner, const std::vector<MoreReferenceFiles>& more) {
  platform::Label unseen;
  for (const MoreReferenceFiles& files : more) {
    if (files.isDatabase || TheRun().abandoned) {
      continue;
    }
    const auto perform = KindOf(files.path).format == modMain::DictionaryFormat::DianjingText
                             ? PerformStage<clsLexUPB1, std::u16string>
                             : PerformStage<clsLexGLO1, std::u16string>;
    const StageInput input = {TheRun().standIns.ForReference(files.path), files.path};
    std::ignore = perform(scanner, unseen, input, InWorkFolder(files.sRefSqlFile));
  }
}

void JoinReadyDictionaries(const std::u16string& ready,
                           const std::vector<MoreReferenceFiles>& more) {
  if (more.empty() || TheRun().abandoned) {
    return;
  }
  ReportFailures(u"'JoinReadyDictionaries'", [&] { Join(ready, more); });
  if (!RunOptions().chkaKeepTmpFile) {
    for (const MoreReferenceFiles& files : more) {
      DeleteFiles({InWorkFolder(files.sReadyFile)});
    }
  }
}

}  // namespace lexmill
