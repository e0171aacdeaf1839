// SPDX-License-Identifier: MIT
// pipeline: performs one run, one class for each pair of formats.
// A run that ends in a glossary. The two classes of this kind differ in their first stage alone.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "foundation/cCaptureConsole.h"
#include "foundation/entry_point.h"
#include "glossary/clsLexGLO2.h"
#include "glossary/clsLexGLO3.h"
#include "glossary/record_scanner.h"
#include "pipeline/batch_script.h"
#include "pipeline/console_step.h"
#include "pipeline/more_references.h"
#include "pipeline/saved_database.h"
#include "pipeline/stage_run.h"
#include "pipeline/temporary_files.h"
#include "run/shared/option_set.h"
#include "run/shared/run_state.h"
#include "window/frmMain.h"

namespace lexmill {

/// Performs one run. Reads the paths from the window and the options from their snapshot.
/// @tparam Pair  ReferenceStage, the stage that purifies the reference, and kPlace, the name of
///   Start in a failure's message
template <class Pair>
class GlossaryPipeline {
 public:
  /// Runs all stages in their order. Each step shows its own failures and the next one runs all the
  /// same; what no step handles is shown here. Returns normally in any case.
  void Start() {
    ReportFailures(Pair::kPlace, [this] { RunStages(); });
  }

 private:
  void RunStages() {
    const frmMain& window = frmMain::Instance();
    BuildBatScript();
    if (TheRun().RefDbPath.empty()) {
      RunStage<typename Pair::ReferenceStage>(*oAwk, 0, ReferenceInput(),
                                              InWorkFolder(files_.sRefSqlFile));
    }
    PurifyMoreReferences(*oAwk, files_.more);
    RunStage<clsLexGLO2>(*oAwk, 1, ToDoInput(), InWorkFolder(files_.sToDoSqlFile));
    RunBatch();
    JoinReadyDictionaries(InWorkFolder(files_.sReadyFile), files_.more);
    RunStage<clsLexGLO3>(*oAwk, 3, OwnInput(InWorkFolder(files_.sReadyFile)),
                         TheRun().standIns.ForResult(window.cboFinal.Text()));
    if (!RunOptions().chkaKeepTmpFile) {
      TheRun().abandoned ? DeleteAllFiles(files_) : DeleteTempFiles();
    }
  }

  void RunBatch() {
    lPercent = 0;
    const SavedDatabase saved(files_.sSavedDb);
    RunConsoleStep(oShellC, files_.sBatFile,
                   [this](const std::u16string& output) { oShellC_OutputAvailable(output); });
    saved.NoteIfMissing();
  }

  void BuildBatScript() { lexmill::BuildBatScript(files_); }

  /// The batch has removed the other files by now.
  void DeleteTempFiles() { DeleteFiles({InWorkFolder(files_.sReadyFile), files_.sBatFile}); }

  void oShellC_OutputAvailable(const std::u16string& /*sNewOutput*/) {
    MovePercentage(lPercent, kGlossaryStep);
  }

  RecordScanner* oAwk = &frmMain::Instance().Awk;  ///< the window's, not owned
  std::int32_t lPercent = 0;                       ///< shown with "%" during the batch step
  GlossaryRunFiles files_;
  std::optional<cCaptureConsole> oShellC;  ///< only for the time of the batch step
};

}  // namespace lexmill
