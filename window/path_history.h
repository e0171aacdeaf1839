// SPDX-License-Identifier: MIT
// window: the program's one window outside a run.
// The paths that each path field was used with, most recent first, kept in the settings file.
#pragma once

#include <string>

#include "platform/controls/controls.h"

namespace lexmill::modMain {

/// Fills the list of `combo` from the settings file; its text stays. A damaged section is taken for
/// an empty list.
void LoadComboHistory(platform::ComboBox& combo);

/// Writes the list of `combo` to the settings file, without texts that would not come back whole.
void SaveComboHistory(const platform::ComboBox& combo);

/// Puts `text` at the head of the list of `combo`, which then holds it once and at most 8 texts,
/// and into the box. Nothing for an empty text.
void AddComboHistory(platform::ComboBox& combo, std::u16string text);

}  // namespace lexmill::modMain
