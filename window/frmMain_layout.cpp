// SPDX-License-Identifier: MIT
// Where each control is and how it looks.
#include <array>
#include <cstdint>
#include <string_view>

#include "platform/controls/control.h"
#include "platform/failure.h"
#include "window/frmMain.h"
#include "window/resources/pictures.h"

namespace lexmill {
namespace {

using platform::kNoIndex;

constexpr std::int32_t kWindowWidth = 7035;
constexpr std::int32_t kWindowHeight = 4830;
constexpr platform::Color kRowColor = 0xC56A31;
constexpr platform::Color kAddressColor = 0xC00000;

struct Row {
  std::u16string_view name;
  std::int16_t index;
  std::u16string_view caption;
  std::u16string_view container;  ///< empty for the window itself
  platform::Rectangle place;      ///< relative to the container
};

/// In tab order.
constexpr std::array kRows = {
    // clang-format off
    Row{u"lalUND", kNoIndex, u"未译字典:", u"", {480, 240, 810, 180}},
    Row{u"cboToDo", kNoIndex, u"", u"", {1380, 180, 3855, 300}},
    Row{u"cmdOpen", 0, u"打开(&1)...", u"", {5280, 180, 1155, 315}},
    Row{u"lalFRD", kNoIndex, u"参照字典:", u"", {480, 600, 810, 180}},
    Row{u"cboRefer", kNoIndex, u"", u"", {1380, 540, 3855, 300}},
    Row{u"cmdOpen", 1, u"打开(&2)...", u"", {5280, 540, 1155, 315}},
    Row{u"lalFinal", kNoIndex, u"已译字典:", u"", {480, 1140, 810, 180}},
    Row{u"cboFinal", kNoIndex, u"", u"", {1380, 1080, 3855, 300}},
    Row{u"cmdSave", kNoIndex, u"保存(&S)...", u"", {5280, 1080, 1155, 315}},

    Row{u"fraOptAdv", kNoIndex, u"", u"", {120, 1440, 6795, 2835}},
    Row{u"PictureO1", kNoIndex, u"", u"fraOptAdv", {120, 180, 3435, 735}},
    Row{u"LabelO1", kNoIndex, u"[两者]字串长度限制:", u"PictureO1", {0, 0, 1710, 180}},
    Row{u"txtLenLimit", kNoIndex, u"", u"PictureO1", {1860, 0, 1515, 240}},
    Row{u"chkSaveRefDB", kNoIndex, u"[※※]另存已净化的参照字典数据库:", u"PictureO1", {0, 240, 3315, 255}},
    Row{u"txtSaveRefDB", kNoIndex, u"", u"PictureO1", {0, 480, 3105, 255}},
    Row{u"optXRefDB", kNoIndex, u"...", u"PictureO1", {3120, 480, 255, 255}},
    Row{u"chkNotAddANDX", kNoIndex, u"[已译]生成译文全部不加(&&X)", u"fraOptAdv", {3660, 180, 3015, 255}},
    Row{u"chkaUpperCase", kNoIndex, u"[两者]不区分大小写", u"fraOptAdv", {3660, 420, 3015, 255}},
    Row{u"chkaKeepTmpFile", kNoIndex, u"[※※]保留临时文件", u"fraOptAdv", {3660, 660, 3015, 255}},
    Row{u"PictureO2", kNoIndex, u"", u"fraOptAdv", {120, 1020, 3435, 1755}},
    Row{u"chkaMTab", kNoIndex, u"[两者]处理\\t分隔后有快捷键的字串", u"PictureO2", {0, 0, 3315, 255}},
    Row{u"chkaAndX", kNoIndex, u"[两者]处理带有&&X的原文或译文", u"PictureO2", {0, 240, 3315, 255}},
    Row{u"LabelO3", kNoIndex, u"[参照]带有&&X译文的两边括号:", u"PictureO2", {300, 540, 2430, 180}},
    Row{u"txtrAndXBK1", kNoIndex, u"", u"PictureO2", {300, 720, 1515, 240}},
    Row{u"txtrAndXBK2", kNoIndex, u"", u"PictureO2", {1860, 720, 1515, 240}},
    Row{u"LabelO2", kNoIndex, u"[已译]生成&&X译文的两边括号:", u"PictureO2", {300, 1020, 2430, 180}},
    Row{u"txttAndXBK1", kNoIndex, u"", u"PictureO2", {300, 1200, 1515, 240}},
    Row{u"txttAndXBK2", kNoIndex, u"", u"PictureO2", {1860, 1200, 1515, 240}},
    Row{u"chkrAndXEER", kNoIndex, u"[参照]处理&&后有全角字符的译文", u"PictureO2", {300, 1500, 3075, 255}},
    Row{u"PictureO3", kNoIndex, u"", u"fraOptAdv", {3660, 1020, 3075, 1455}},
    Row{u"chkaLTrimSpace", kNoIndex, u"[两者]处理前置空格", u"PictureO3", {0, 0, 3015, 255}},
    Row{u"chkaRTrimSpace", kNoIndex, u"[两者]处理后置空格", u"PictureO3", {0, 240, 3015, 255}},
    Row{u"chkaBanMaoHao", kNoIndex, u"[两者]处理末尾有半角:号", u"PictureO3", {0, 480, 3015, 255}},
    Row{u"chkaBanSenHao", kNoIndex, u"[两者]处理末尾有半角...号", u"PictureO3", {0, 720, 3015, 255}},
    Row{u"chkrQuanMaoHao", kNoIndex, u"[参照]处理末尾有全角：号", u"PictureO3", {0, 960, 3015, 255}},
    Row{u"chkrQuanSenHao", kNoIndex, u"[参照]处理末尾有全角…号", u"PictureO3", {0, 1200, 3015, 255}},
    Row{u"cmdPreset", 0, u"完全", u"fraOptAdv", {3660, 2480, 615, 300}},
    Row{u"cmdPreset", 1, u"最简", u"fraOptAdv", {4320, 2480, 615, 300}},
    Row{u"cmdPreset", 2, u"载入...", u"fraOptAdv", {4980, 2480, 855, 300}},
    Row{u"cmdPreset", 3, u"另存...", u"fraOptAdv", {5880, 2480, 855, 300}},

    Row{u"picState", kNoIndex, u"", u"", {120, 1500, 6795, 2775}},
    Row{u"lblSta1", kNoIndex, u"参照字典净化:", u"picState", {840, 1140, 1170, 180}},
    Row{u"lblState", 0, u"", u"picState", {2160, 1170, 3615, 195}},
    Row{u"lblSta2", kNoIndex, u"未译字典分滤:", u"picState", {840, 1500, 1170, 180}},
    Row{u"lblState", 1, u"", u"picState", {2160, 1530, 3615, 195}},
    Row{u"lblSta3", kNoIndex, u"就绪字典构建:", u"picState", {840, 1860, 1170, 180}},
    Row{u"lblState", 2, u"", u"picState", {2160, 1890, 3615, 195}},
    Row{u"lblSta4", kNoIndex, u"已译字典生成:", u"picState", {840, 2220, 1170, 180}},
    Row{u"lblState", 3, u"", u"picState", {2160, 2250, 3615, 195}},

    Row{u"chkAdvMode", kNoIndex, u"选项 >>", u"", {180, 4440, 1155, 315}},
    Row{u"cmdStart", kNoIndex, u"开始(&G)", u"", {3240, 4440, 1155, 315}},
    Row{u"cmdClose", kNoIndex, u"关闭(&C)", u"", {4500, 4440, 1155, 315}},
    Row{u"cmdHelp", kNoIndex, u"帮助(&H)", u"", {5760, 4440, 1155, 315}},
    Row{u"LabelDoing", kNoIndex, u"正在忙碌地处理，敬请耐心地等待。", u"", {1980, 180, 3195, 255}},

    // The rest takes no part in the tab order.
    Row{u"Image1", kNoIndex, u"", u"picState", {180, 180, 3840, 720}},
    Row{u"lblAuthorName", kNoIndex, u"Lexmill 开发组", u"picState", {4260, 180, 2400, 180}},
    Row{u"lblDate", kNoIndex, u"2026", u"picState", {5640, 660, 1020, 180}},
    Row{u"LabelWeb", kNoIndex, u"https://lexmill.example", u"picState", {4260, 420, 2400, 180}},
    Row{u"LabelEmail", kNoIndex, u"hi@lexmill.example", u"picState", {4260, 660, 1980, 180}},
    Row{u"Line2", kNoIndex, u"", u"", {120, 945, 6795, 0}},
    Row{u"Line1", kNoIndex, u"", u"", {120, 960, 6795, 0}},
    Row{u"LineO1", kNoIndex, u"", u"fraOptAdv", {120, 960, 6555, 0}},
    Row{u"LineO2", kNoIndex, u"", u"fraOptAdv", {120, 975, 6555, 0}},
    Row{u"shpState", 0, u"", u"picState", {2040, 1125, 3855, 255}},
    Row{u"shpState", 1, u"", u"picState", {2040, 1485, 3855, 255}},
    Row{u"shpState", 2, u"", u"picState", {2040, 1845, 3855, 255}},
    Row{u"shpState", 3, u"", u"picState", {2040, 2205, 3855, 255}},
    Row{u"Shape1", kNoIndex, u"", u"picState", {0, 0, 6795, 2775}},
    Row{u"lblSummary", kNoIndex, u"", u"picState", {840, 2550, 5835, 180}},
    // clang-format on
};

platform::Control& Named(const platform::Form& form, std::u16string_view name,
                         std::int16_t index = kNoIndex) {
  platform::Control* control = form.Find(name, index);
  if (control == nullptr) {
    throw platform::Failure(platform::FailureNumber::ObjectNotSet,
                            platform::FailureOrigin::Runtime);
  }
  return *control;
}

void PlaceControls(const platform::Form& form) {
  int tabIndex = 0;
  for (const Row& row : kRows) {
    platform::Control& control = Named(form, row.name, row.index);
    control.TabIndex(tabIndex++);
    control.Caption(row.caption);
    control.Place(row.place);
    if (!row.container.empty()) {
      control.Container(&Named(form, row.container));
    }
  }
}

/// Keys beside those that the captions name.
struct ShortcutRow {
  std::u16string_view name;
  std::int16_t index;
  std::u16string_view keys;
};

constexpr std::array kShortcuts = {
    ShortcutRow{u"cboToDo", kNoIndex, u"Alt+U"},  ShortcutRow{u"cboRefer", kNoIndex, u"Alt+R"},
    ShortcutRow{u"cboFinal", kNoIndex, u"Alt+F"}, ShortcutRow{u"chkAdvMode", kNoIndex, u"Alt+O"},
    ShortcutRow{u"cmdOpen", 0, u"Ctrl+O"},        ShortcutRow{u"cmdOpen", 1, u"Ctrl+R"},
    ShortcutRow{u"cmdSave", kNoIndex, u"Ctrl+S"},
};

void GiveShortcuts(const platform::Form& form) {
  for (const ShortcutRow& row : kShortcuts) {
    Named(form, row.name, row.index).ShortcutKeys(row.keys);
  }
}

void DressSeparator(platform::Line& shadow, platform::Line& highlight) {
  shadow.ForeColor(platform::kButtonShadowColor);
  highlight.ForeColor(platform::kButtonHighlightColor);
}

void DressAddress(platform::Label& label) {
  label.ForeColor(kAddressColor);
  label.HandPointer(true);
}

}  // namespace

void frmMain::LayOut() {
  Window.Icon(IconPicture());
  Window.ScaleSize(kWindowWidth, kWindowHeight);
  PlaceControls(Window);
  DressInput();
  DressProgressPanel();
  GiveShortcuts(Window);
}

void frmMain::DressInput() {
  cmdStart.Default(true);
  cmdClose.Cancel(true);
  chkAdvMode.PushButtonStyle(true);
  optXRefDB.FontName(u"Arial");
  txtLenLimit.MaxLength(9);
  lalUND.Alignment(platform::Alignment::Right);
  lalFRD.Alignment(platform::Alignment::Right);
  lalFinal.Alignment(platform::Alignment::Right);
  lalFinal.ForeColor(platform::kHighlightColor);
  lalFinal.ToolTipText(u"双击浏览文件夹");
  txtSaveRefDB.HoldsPath(true);
  cboRefer.TakesSeveralFiles(true);
  optXRefDB.ToolTipText(u"选择数据库的保存文件");
  LabelDoing.Alignment(platform::Alignment::Center);
  DressSeparator(Line2, Line1);
  DressSeparator(LineO1, LineO2);
}

void frmMain::DressProgressPanel() {
  picState.BackColor(platform::kWhite);
  Shape1.ForeColor(platform::kButtonShadowColor);
  Shape1.BackColor(platform::kWhite);
  Image1.Picture(BannerPicture());
  for (platform::Label* label : {&lblSta1, &lblSta2, &lblSta3, &lblSta4, &lblAuthorName, &lblDate,
                                 &LabelWeb, &LabelEmail, &lblSummary}) {
    label->Transparent(true);
    label->ForeColor(platform::kBlack);
  }
  DressAddress(LabelWeb);
  DressAddress(LabelEmail);
  lblDate.Alignment(platform::Alignment::Right);
  for (std::int16_t i = 0; i < lblState.Count(); ++i) {
    lblState(i).BackColor(platform::kWhite);
    lblState(i).ForeColor(kRowColor);
    shpState(i).BackColor(platform::kWhite);
    shpState(i).ForeColor(kRowColor);
  }
  lblSummary.ZOrderFront();  // it comes after the panel's fill, but lies on it
}

}  // namespace lexmill
