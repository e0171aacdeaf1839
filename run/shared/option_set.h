// SPDX-License-Identifier: MIT
// run/shared: what every room may read of a run.
// The options of a run, each called by the name of its control.
#pragma once

#include <cstdint>
#include <string>

namespace lexmill {

/// The options as they were when the run started. Check boxes are true for any value but 0.
struct OptionSet {
  bool chkaAndX = false;         ///< strings with a hot key marker
  bool chkaBanMaoHao = false;    ///< a final ":"
  bool chkaBanSenHao = false;    ///< a final "..."
  bool chkaLTrimSpace = false;   ///< leading blanks
  bool chkaMTab = false;         ///< a literal \t with a shortcut after it
  bool chkaRTrimSpace = false;   ///< trailing blanks
  bool chkaUpperCase = false;    ///< match without case
  bool chkNotAddANDX = false;    ///< leave the hot key out of every translation
  bool chkrAndXEER = false;      ///< reference targets with & before a full-width character
  bool chkrQuanMaoHao = false;   ///< reference targets with a final full-width colon
  bool chkrQuanSenHao = false;   ///< reference targets with a final ellipsis character
  bool chkaKeepTmpFile = false;  ///< leave the temporary files of the run
  bool chkSaveRefDB = false;     ///< keep the purified reference as a database
  std::int32_t txtLenLimit = 0;  ///< longest source string that takes part, in 16-bit units
  std::u16string txtrAndXBK1;    ///< expression left of a reference target's hot key
  std::u16string txtrAndXBK2;    ///< expression right of it
  std::u16string txttAndXBK1;    ///< text left of a generated hot key
  std::u16string txttAndXBK2;    ///< text right of it
  std::u16string txtSaveRefDB;   ///< path of the saved database; empty: one is made up

  bool operator==(const OptionSet&) const = default;
};

/// The options that the full preset sets: all rules, no length limit that matters. What has no key
/// in a settings file is off.
[[nodiscard]] OptionSet FullPreset();
/// The options that the minimal preset sets: no rule.
[[nodiscard]] OptionSet MinimalPreset();

/// The one snapshot of the current run; CfgSaveCtrlToVar alone writes it.
[[nodiscard]] OptionSet& RunOptions();

}  // namespace lexmill
