// SPDX-License-Identifier: MIT
#include "run/reference_list.h"

#include <span>

#include "platform/controls/entered_path.h"
#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "platform/text/text.h"
#include "run/purified_database.h"
#include "run/shared/option_set.h"

namespace lexmill {

std::vector<std::u16string> ReferencePaths(std::u16string_view field) {
  std::vector<std::u16string> paths;
  if (!platform::FileSystemObject().FileExists(field)) {
    for (const std::u16string_view piece : platform::Split(field, u';')) {
      if (const auto path = platform::Trim(piece); !path.empty()) {
        paths.push_back(platform::EnteredPath(path));
      }
    }
  }
  if (paths.size() < 2) {
    return {std::u16string(field)};
  }
  return paths;
}

void KeepReferences(std::u16string_view field) {
  RunState& run = TheRun();
  const auto paths = run.givenReferences.empty() ? ReferencePaths(field) : run.givenReferences;
  if (paths.size() > 1 && RunOptions().chkSaveRefDB) {
    throw platform::Failure(1, u"有几个参照字典时，不能另存已净化的参照字典数据库");
  }
  run.reference = paths.front();
  run.RefDbPath = modMain::IsPurifiedDatabase(run.reference) ? run.reference : u"";
  run.moreReferences.clear();
  for (const auto& path : std::span(paths).subspan(1)) {
    run.moreReferences.push_back({.path = path, .isDatabase = modMain::IsPurifiedDatabase(path)});
  }
}

std::vector<Reference> ReferencesOfRun() {
  const RunState& run = TheRun();
  std::vector<Reference> references = {
      {.path = run.reference, .isDatabase = !run.RefDbPath.empty()}};
  references.insert(references.end(), run.moreReferences.begin(), run.moreReferences.end());
  return references;
}

}  // namespace lexmill
