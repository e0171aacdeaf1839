// SPDX-License-Identifier: MIT
// The members of frmMain that exchange the options between the controls, the snapshot of a run, the
// settings files and the two presets.
#include <array>
#include <string>
#include <string_view>

#include "foundation/cInifile.h"
#include "foundation/entry_point.h"
#include "platform/text/numbers.h"
#include "run/shared/option_set.h"
#include "run/shared/settings_file.h"
#include "window/frmMain.h"

namespace lexmill {
namespace {

/// A check box with a key in the settings file.
struct CheckOption {
  platform::CheckBox frmMain::*box;
  bool OptionSet::*value;
};

constexpr std::array kCheckOptions = {
    CheckOption{&frmMain::chkaAndX, &OptionSet::chkaAndX},
    CheckOption{&frmMain::chkaBanMaoHao, &OptionSet::chkaBanMaoHao},
    CheckOption{&frmMain::chkaBanSenHao, &OptionSet::chkaBanSenHao},
    CheckOption{&frmMain::chkaLTrimSpace, &OptionSet::chkaLTrimSpace},
    CheckOption{&frmMain::chkaMTab, &OptionSet::chkaMTab},
    CheckOption{&frmMain::chkaRTrimSpace, &OptionSet::chkaRTrimSpace},
    CheckOption{&frmMain::chkaUpperCase, &OptionSet::chkaUpperCase},
    CheckOption{&frmMain::chkNotAddANDX, &OptionSet::chkNotAddANDX},
    CheckOption{&frmMain::chkrAndXEER, &OptionSet::chkrAndXEER},
    CheckOption{&frmMain::chkrQuanMaoHao, &OptionSet::chkrQuanMaoHao},
    CheckOption{&frmMain::chkrQuanSenHao, &OptionSet::chkrQuanSenHao},
};

/// A text box round the hot key.
struct BracketOption {
  platform::TextBox frmMain::*box;
  std::u16string OptionSet::*value;
};

constexpr std::array kBracketOptions = {
    BracketOption{&frmMain::txtrAndXBK1, &OptionSet::txtrAndXBK1},
    BracketOption{&frmMain::txtrAndXBK2, &OptionSet::txtrAndXBK2},
    BracketOption{&frmMain::txttAndXBK1, &OptionSet::txttAndXBK1},
    BracketOption{&frmMain::txttAndXBK2, &OptionSet::txttAndXBK2},
};

constexpr std::u16string_view kMostLenLimit = u"999999999";
constexpr std::u16string_view kDefaultLenLimit = u"50";

cInifile OptionSection(std::u16string_view fileName) {
  cInifile file;
  file.Path(fileName.empty() ? SettingsFile() : std::u16string(fileName));
  file.Section(u"LexmillCustomSetting");
  return file;
}

std::u16string Stored(cInifile& file, const platform::Control& option) {
  file.Key(option.Name());
  return file.Value();
}

void Store(cInifile& file, const platform::Control& option, std::u16string value) {
  file.Key(option.Name());
  file.Value(value);
}

// Full-width digits, an input method's, as plain ones.
void FoldDigits(platform::TextBox& box) {
  constexpr char16_t kFirst = u'\uFF10';
  constexpr char16_t kLast = u'\uFF19';
  std::u16string text = box.Text();
  for (char16_t& unit : text) {
    if (unit >= kFirst && unit <= kLast) {
      unit = static_cast<char16_t>(unit - kFirst + u'0');
    }
  }
  box.Text(text);
}

// Brings a number in the box down to the most that it may be; the comparison is one of texts.
// Returns true if the box then holds a number from 1 up.
bool ClampLenLimit(platform::TextBox& box) {
  FoldDigits(box);
  if (!platform::IsNumeric(box.Text())) {
    return false;
  }
  if (box.Text() > kMostLenLimit) {
    box.Text(kMostLenLimit);
  }
  return platform::ToInt32(box.Text()) >= 1;
}

void SaveLenLimit(cInifile& file, platform::TextBox& box) {
  const bool valid = ClampLenLimit(box);
  const bool numeric = platform::IsNumeric(box.Text());
  if (numeric && !valid) {
    box.Text(kDefaultLenLimit);
  }
  Store(file, box, numeric ? box.Text() : std::u16string(kDefaultLenLimit));
}

void LoadLenLimit(cInifile& file, platform::TextBox& box) {
  box.Text(Stored(file, box));
  if (!ClampLenLimit(box)) {
    Store(file, box, std::u16string(kDefaultLenLimit));
    box.Text(kDefaultLenLimit);
  }
}

void LoadPreset(frmMain& window, const OptionSet& preset) {
  for (const CheckOption& option : kCheckOptions) {
    (window.*option.box).Value(preset.*option.value ? 1 : 0);
  }
  window.txtLenLimit.Text(platform::ToText(preset.txtLenLimit));
  for (const BracketOption& option : kBracketOptions) {
    (window.*option.box).Text(preset.*option.value);
  }
}

}  // namespace

void frmMain::CfgSaveCtrlToVar() {
  OptionSet& options = RunOptions();
  for (const CheckOption& option : kCheckOptions) {
    options.*option.value = (this->*option.box).Value() != 0;
  }
  options.chkaKeepTmpFile = chkaKeepTmpFile.Value() != 0;
  options.chkSaveRefDB = chkSaveRefDB.Value() != 0;
  options.txtLenLimit =
      platform::ToInt32(ClampLenLimit(txtLenLimit) ? txtLenLimit.Text() : kDefaultLenLimit);
  txtLenLimit.Text(platform::ToText(options.txtLenLimit));
  for (const BracketOption& option : kBracketOptions) {
    options.*option.value = (this->*option.box).Text();
  }
  options.txtSaveRefDB = txtSaveRefDB.Text();
}

void frmMain::CfgSaveCtrlToIni(std::u16string_view FileName) {
  ReportFailures(u"Form 'frmMain' -> 'CfgSaveCtrlToIni'", [&] {
    cInifile file = OptionSection(FileName);
    for (const CheckOption& option : kCheckOptions) {
      const platform::CheckBox& box = this->*option.box;
      Store(file, box, platform::ToText(box.Value()));
    }
    SaveLenLimit(file, txtLenLimit);
    for (const BracketOption& option : kBracketOptions) {
      const platform::TextBox& box = this->*option.box;
      Store(file, box, box.Text());
    }
    const std::u16string& saved = txtSaveRefDB.Text();
    Store(file, txtSaveRefDB, cInifile::ComesBackWhole(saved) ? saved : std::u16string());
  });
}

void frmMain::CfgLoadIniToCtrl(std::u16string_view FileName) {
  ReportFailures(u"Form 'frmMain' -> 'CfgLoadIniToCtrl'", [&] {
    cInifile file = OptionSection(FileName);
    for (const CheckOption& option : kCheckOptions) {
      platform::CheckBox& box = this->*option.box;
      if (const auto value = Stored(file, box); platform::IsNumeric(value)) {
        box.Value(platform::ToInt16(value));
      }
    }
    LoadLenLimit(file, txtLenLimit);
    for (const BracketOption& option : kBracketOptions) {
      platform::TextBox& box = this->*option.box;
      if (const auto value = Stored(file, box); !value.empty()) {
        box.Text(value);
      }
    }
    txtSaveRefDB.Text(Stored(file, txtSaveRefDB));
  });
}

void frmMain::CfgLoadMaxToCtrl() {
  LoadPreset(*this, FullPreset());
}

void frmMain::CfgLoadMinToCtrl() {
  LoadPreset(*this, MinimalPreset());
}

}  // namespace lexmill
