// SPDX-License-Identifier: MIT
// window: the program's one window outside a run.
// The window with all its controls, each under its given name.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "glossary/record_scanner.h"
#include "platform/controls/controls.h"
#include "platform/controls/form.h"

namespace lexmill {

/// The main window. Its controls hold the options while it is open; a run takes a copy of them.
class frmMain {
 public:
  /// Makes the window with all controls in place, not loaded and not visible.
  frmMain();

  /// The one window. Must have been made by Create.
  [[nodiscard]] static frmMain& Instance();
  /// Makes the one window, in place of an earlier one.
  static frmMain& Create();

  /// Ends a run without its result, as soon as the step in hand refreshes the window: the earlier
  /// result stays, and so do temporary files only if the option says so. Harmless outside a run.
  void AbandonRun();

  /// Loads the window, if it is not, and shows it.
  void Show() { Window.Show(); }

  // --- The window and its controls, in tab order. Window comes before them: they enter
  // themselves.
  platform::Form Window{u"frmMain"};

  platform::Label lalUND{{&Window, u"lalUND"}};
  platform::ComboBox cboToDo{{&Window, u"cboToDo"}};
  platform::ControlArray<platform::Button> cmdOpen{&Window, u"cmdOpen", 2};
  platform::Label lalFRD{{&Window, u"lalFRD"}};
  platform::ComboBox cboRefer{{&Window, u"cboRefer"}};
  platform::Label lalFinal{{&Window, u"lalFinal"}};
  platform::ComboBox cboFinal{{&Window, u"cboFinal"}};
  platform::Button cmdSave{{&Window, u"cmdSave"}};

  platform::Frame fraOptAdv{{&Window, u"fraOptAdv"}};
  platform::PictureBox PictureO1{{&Window, u"PictureO1"}};
  platform::Label LabelO1{{&Window, u"LabelO1"}};
  platform::TextBox txtLenLimit{{&Window, u"txtLenLimit"}};
  platform::CheckBox chkSaveRefDB{{&Window, u"chkSaveRefDB"}};
  platform::TextBox txtSaveRefDB{{&Window, u"txtSaveRefDB"}};
  platform::OptionButton optXRefDB{{&Window, u"optXRefDB"}};
  platform::CheckBox chkNotAddANDX{{&Window, u"chkNotAddANDX"}};
  platform::CheckBox chkaUpperCase{{&Window, u"chkaUpperCase"}};
  platform::CheckBox chkaKeepTmpFile{{&Window, u"chkaKeepTmpFile"}};
  platform::PictureBox PictureO2{{&Window, u"PictureO2"}};
  platform::CheckBox chkaMTab{{&Window, u"chkaMTab"}};
  platform::CheckBox chkaAndX{{&Window, u"chkaAndX"}};
  platform::Label LabelO3{{&Window, u"LabelO3"}};
  platform::TextBox txtrAndXBK1{{&Window, u"txtrAndXBK1"}};
  platform::TextBox txtrAndXBK2{{&Window, u"txtrAndXBK2"}};
  platform::Label LabelO2{{&Window, u"LabelO2"}};
  platform::TextBox txttAndXBK1{{&Window, u"txttAndXBK1"}};
  platform::TextBox txttAndXBK2{{&Window, u"txttAndXBK2"}};
  platform::CheckBox chkrAndXEER{{&Window, u"chkrAndXEER"}};
  platform::PictureBox PictureO3{{&Window, u"PictureO3"}};
  platform::CheckBox chkaLTrimSpace{{&Window, u"chkaLTrimSpace"}};
  platform::CheckBox chkaRTrimSpace{{&Window, u"chkaRTrimSpace"}};
  platform::CheckBox chkaBanMaoHao{{&Window, u"chkaBanMaoHao"}};
  platform::CheckBox chkaBanSenHao{{&Window, u"chkaBanSenHao"}};
  platform::CheckBox chkrQuanMaoHao{{&Window, u"chkrQuanMaoHao"}};
  platform::CheckBox chkrQuanSenHao{{&Window, u"chkrQuanSenHao"}};
  platform::ControlArray<platform::Button> cmdPreset{&Window, u"cmdPreset", 4};

  platform::PictureBox picState{{&Window, u"picState"}};
  platform::Label lblSta1{{&Window, u"lblSta1"}};
  platform::Label lblSta2{{&Window, u"lblSta2"}};
  platform::Label lblSta3{{&Window, u"lblSta3"}};
  platform::Label lblSta4{{&Window, u"lblSta4"}};
  platform::ControlArray<platform::Label> lblState{&Window, u"lblState", 4};
  platform::CheckBox chkAdvMode{{&Window, u"chkAdvMode"}};
  platform::Button cmdStart{{&Window, u"cmdStart"}};
  platform::Button cmdClose{{&Window, u"cmdClose"}};
  platform::Button cmdHelp{{&Window, u"cmdHelp"}};
  platform::Label LabelDoing{{&Window, u"LabelDoing"}};

  platform::Image Image1{{&Window, u"Image1"}};
  platform::Label lblAuthorName{{&Window, u"lblAuthorName"}};
  platform::Label lblDate{{&Window, u"lblDate"}};
  platform::Label LabelWeb{{&Window, u"LabelWeb"}};
  platform::Label LabelEmail{{&Window, u"LabelEmail"}};
  platform::Line Line2{{&Window, u"Line2"}};
  platform::Line Line1{{&Window, u"Line1"}};
  platform::Line LineO1{{&Window, u"LineO1"}};
  platform::Line LineO2{{&Window, u"LineO2"}};
  platform::ControlArray<platform::Shape> shpState{&Window, u"shpState", 4};
  platform::Shape Shape1{{&Window, u"Shape1"}};
  platform::Label lblSummary{{&Window, u"lblSummary"}};  ///< what the run says of itself

  /// The record scanner, which has no face.
  RecordScanner Awk;

  // --- Options.

  /// Takes the snapshot that a run works with. Writes the length limit back to its box.
  /// @throws platform::Failure Overflow if the length limit fits no 32-bit integer
  void CfgSaveCtrlToVar();
  /// Writes the controls to a settings file; shows a failure and returns.
  /// @param FileName  empty for `Lexmill.ini` of the program's folder
  void CfgSaveCtrlToIni(std::u16string_view FileName = {});
  /// Reads a settings file into the controls; shows a failure and returns. Keys that the file lacks
  /// leave their control as it is, but for the length limit (50, written to the file) and
  /// txtSaveRefDB (empty).
  /// @param FileName  empty for `Lexmill.ini` of the program's folder
  void CfgLoadIniToCtrl(std::u16string_view FileName = {});
  /// Set the full and the minimal preset.
  void CfgLoadMaxToCtrl();
  void CfgLoadMinToCtrl();

  // --- Progress.

  /// Gives a row of the progress panel its finished look. Never fails.
  /// @param i  row, 0 to 3   @param c  time of the stage in milliseconds
  /// @param f  path of the file whose size the row shows; empty for none
  void UpdateStateLabel(std::int16_t i, std::int32_t c, std::u16string f);

 private:
  // Events.
  void Form_Load();
  void Form_QueryUnload();
  void Form_HelpWanted();
  void Form_CloseKept();
  void cmdStart_Click();
  void cmdClose_Click();
  void cmdOpen_Click(std::int16_t Index);
  void cmdSave_Click();
  void cmdPreset_Click(std::int16_t Index);
  void LoadPresetFile();
  void SavePresetFile();
  /// Takes a path for the result, with the extension of the filter if it has no known one.
  void TakeResultPath(const std::u16string& path, std::int32_t filterIndex);
  void TakeDroppedFile(platform::ComboBox& combo, const std::u16string& path);
  void chkAdvMode_Click();
  void chkaAndX_Click();
  void chkSaveRefDB_Click();
  void optXRefDB_Click();
  void lalFinal_DblClick();
  void LabelEmail_Click();
  void LabelWeb_Click();
  /// Opens the report of the last run, if it wrote one.
  void lblSummary_Click();
  void picState_GotFocus();

  /// Change and Click of the three path fields: a run can start once all of them hold text.
  void EnableStart();

  /// Shows or hides the input controls, and the options panel if it is open.
  void SetControlsVisible(bool visible);

  // The steps of a run.
  void PerformRun();
  void ClearProgress();
  void RunDictionaries();
  /// Begins to record strings if the run is to be reported. @throws as StringRecord
  void PrepareReport();
  /// Notes hints, writes the report and says in the last line of the panel what the run has done.
  void EndRun();
  void NoteHints();
  void WriteReportFile();
  void ShowSummary();

  void LayOut();
  void DressInput();
  void DressProgressPanel();
  void ConnectEvents();
  void ConnectDrops();

  std::vector<platform::Connection> connections_;
};

}  // namespace lexmill
