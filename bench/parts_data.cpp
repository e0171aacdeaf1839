// SPDX-License-Identifier: MIT
#include "bench/parts_data.h"

#include <unistd.h>

#include <filesystem>

#include "platform/text/text.h"

namespace lexmill::bench {
namespace {

/// A folder that lives as long as the program.
class Folder {
 public:
  Folder()
      : path_(std::filesystem::temp_directory_path() /
              ("lexmill-parts-" + std::to_string(getpid()))) {
    std::filesystem::create_directory(path_);
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  [[nodiscard]] std::u16string Name() const { return platform::FromUtf8(path_.string() + '/'); }

 private:
  std::filesystem::path path_;
};

template <class MakeEntry>
std::vector<DictionaryEntry> Entries(MakeEntry makeEntry) {
  std::vector<DictionaryEntry> entries;
  for (std::uint64_t i = 0; i < kPartEntries; ++i) {
    entries.push_back(makeEntry(i));
  }
  return entries;
}

}  // namespace

const std::vector<DictionaryEntry>& PartReferences() {
  static const auto entries = Entries([](std::uint64_t i) { return ReferenceEntry(i, {}); });
  return entries;
}

const std::vector<DictionaryEntry>& PartUntranslated() {
  static const auto entries = Entries([](std::uint64_t i) {
    return UntranslatedEntry(i, {.reference = kPartEntries, .untranslated = kPartEntries});
  });
  return entries;
}

const std::u16string& PartFolder() {
  static const Folder folder;
  static const std::u16string name = folder.Name();
  return name;
}

}  // namespace lexmill::bench
