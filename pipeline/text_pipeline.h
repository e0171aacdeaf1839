// SPDX-License-Identifier: MIT
// pipeline: performs one run, one class for each pair of formats.
// A run that ends in a text. The two classes of this kind differ in their first stage alone.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "foundation/cCaptureConsole.h"
#include "foundation/entry_point.h"
#include "glossary/record_scanner.h"
#include "pipeline/batch_script.h"
#include "pipeline/console_step.h"
#include "pipeline/line_listing.h"
#include "pipeline/more_references.h"
#include "pipeline/saved_database.h"
#include "pipeline/stage_run.h"
#include "pipeline/temporary_files.h"
#include "run/shared/option_set.h"
#include "run/shared/run_state.h"
#include "text/clsLexUPB2.h"
#include "text/clsLexUPB3.h"
#include "window/frmMain.h"

namespace lexmill {

/// Performs one run. Reads the paths from the window and the options from their snapshot.
/// @tparam Pair  as for GlossaryPipeline
template <class Pair>
class TextPipeline {
 public:
  /// Runs all stages in their order, the second batch and the cutting of its listing included. Each
  /// stage shows its own failures and the next one runs all the same; what none of them handles,
  /// such as a listing that is missing, is shown here, and then the temporary files stay. Returns
  /// normally in any case.
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
    RunStage<clsLexUPB2>(*oAwk, 1, ToDoInput(), InWorkFolder(files_.sEntrySqlFile),
                         InWorkFolder(files_.sToDoSqlFile));
    const SavedDatabase saved(files_.sSavedDb);
    RunBatch(files_.sBatFile);
    saved.NoteIfMissing();
    JoinReadyDictionaries(InWorkFolder(files_.sReadyFile), files_.more);
    RunStage<clsLexUPB3>(*oAwk, 3, OwnInput(InWorkFolder(files_.sReadyFile)),
                         InWorkFolder(files_.sUpdateSqlFile));
    RunBatch(files_.sBatFile2);
    ConvertLineListing(InWorkFolder(files_.sLineFile), window.cboFinal.Text());
    if (!RunOptions().chkaKeepTmpFile) {
      TheRun().abandoned ? DeleteAllFiles(files_) : DeleteTempFiles();
    }
  }

  void RunBatch(const std::u16string& batFile) {
    lPercent = 0;
    RunConsoleStep(oShellC, batFile,
                   [this](const std::u16string& output) { oShellC_OutputAvailable(output); });
  }

  void BuildBatScript() { lexmill::BuildBatScript(files_); }

  /// The batches have removed the scripts by now.
  void DeleteTempFiles() {
    DeleteFiles({InWorkFolder(files_.sReadyFile), InWorkFolder(files_.sLineFile), files_.sBatFile,
                 files_.sBatFile2, InWorkFolder(files_.sDbFile)});
  }

  void oShellC_OutputAvailable(const std::u16string& /*sNewOutput*/) {
    MovePercentage(lPercent, kTextStep);
  }

  RecordScanner* oAwk = &frmMain::Instance().Awk;  ///< the window's, not owned
  std::int32_t lPercent = 0;                       ///< shown with "%" during a batch step
  TextRunFiles files_;
  std::optional<cCaptureConsole> oShellC;  ///< only for the time of a batch step
};

}  // namespace lexmill
