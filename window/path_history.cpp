// SPDX-License-Identifier: MIT
#include "window/path_history.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "foundation/cInifile.h"
#include "foundation/entry_point.h"
#include "platform/text/numbers.h"
#include "run/shared/settings_file.h"

namespace lexmill::modMain {
namespace {

constexpr std::size_t kLongestList = 8;

cInifile HistorySection(const platform::ComboBox& combo) {
  cInifile file;
  file.Path(SettingsFile());
  file.Section(u"frmMain." + combo.Name());
  return file;
}

std::u16string ItemKey(std::size_t position) {
  return u"Item" + platform::ToText(static_cast<std::int64_t>(position));
}

// The number of entries that a section claims; 0 for a text that is no such number.
std::size_t StoredCount(cInifile& file) {
  file.Key(u"Count");
  std::int16_t count = 0;
  IgnoreFailures([&] { count = platform::ToInt16(file.Value()); });
  return count > 0 ? static_cast<std::size_t>(count) : 0;
}

// Takes the first entry that equals `text` out of the list. One position more than a full list is
// looked at, as a settings file may hold longer ones.
void RemoveFirstMatch(platform::ComboBox& combo, std::u16string_view text) {
  for (std::size_t i = 0; i <= kLongestList; ++i) {
    if (combo.List(i) == text) {
      combo.RemoveItem(i);
      return;
    }
  }
}

}  // namespace

void LoadComboHistory(platform::ComboBox& combo) {
  cInifile file = HistorySection(combo);
  const std::size_t count = StoredCount(file);
  for (std::size_t i = 0; i < count; ++i) {
    file.Key(ItemKey(i));
    combo.List(i, file.Value());
  }
}

void SaveComboHistory(const platform::ComboBox& combo) {
  cInifile file = HistorySection(combo);
  std::vector<std::u16string> kept;
  for (std::size_t i = 0; i < combo.ListCount(); ++i) {
    if (cInifile::ComesBackWhole(combo.List(i))) {
      kept.emplace_back(combo.List(i));
    }
  }
  std::u16string count = platform::ToText(static_cast<std::int64_t>(kept.size()));
  file.Key(u"Count");
  file.Value(count);
  for (std::size_t i = 0; i < kept.size(); ++i) {
    file.Key(ItemKey(i));
    file.Value(kept[i]);
  }
}

void AddComboHistory(platform::ComboBox& combo, std::u16string text) {
  if (text.empty()) {
    return;
  }
  RemoveFirstMatch(combo, text);
  if (combo.ListCount() >= kLongestList) {
    combo.RemoveItem(combo.ListCount() - 1);
  }
  combo.AddItem(text, 0);
  combo.Text(text);
}

}  // namespace lexmill::modMain
