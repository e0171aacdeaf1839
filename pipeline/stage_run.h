// SPDX-License-Identifier: MIT
// pipeline: performs one run, one class for each pair of formats.
// How a stage is run: set up, run to its end, shown, released. Stages have no common base; what
// makes a class a stage is here.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>

#include "glossary/record_scanner.h"
#include "platform/controls/controls.h"
#include "run/shared/run_state.h"
#include "window/frmMain.h"

namespace lexmill {

/// A class that turns one input file into its output when told to, and reports its time.
template <class S>
concept Stage = std::default_initializable<S> &&
    requires(S stage, platform::Label& label, std::u16string_view path) {
  stage.StateLabel(label);
  stage.InputFile(path);
  stage.DoItNow();
  { stage.ProcessTime() } -> std::same_as<std::int32_t>;
};

/// A stage that listens to the record scanner.
template <class S>
concept ScannerStage = Stage<S> && requires(S stage, RecordScanner& scanner) {
  stage.AwkControl(scanner);
};

/// A stage with one output.
template <class S>
concept OneOutputStage = Stage<S> && requires(S stage, std::u16string_view path) {
  stage.OutputFile(path);
};

/// A stage with two outputs.
template <class S>
concept TwoOutputStage = Stage<S> && requires(S stage, std::u16string_view path) {
  stage.OutputFile1(path);
  stage.OutputFile2(path);
};

/// Gives a stage its output or outputs.
inline void SetOutputs(OneOutputStage auto& stage, const std::u16string& output) {
  stage.OutputFile(output);
}
inline void SetOutputs(TwoOutputStage auto& stage, const std::u16string& output1,
                       const std::u16string& output2) {
  stage.OutputFile1(output1);
  stage.OutputFile2(output2);
}

/// What a stage reads.
struct StageInput {
  std::u16string file;
  std::u16string shown;  ///< the file whose size the user sees; the same unless one stands in
};

/// A temporary file of the run.
[[nodiscard]] inline StageInput OwnInput(const std::u16string& path) {
  return {path, path};
}
/// The untranslated dictionary and the first reference.
[[nodiscard]] inline StageInput ToDoInput() {
  const std::u16string path = frmMain::Instance().cboToDo.Text();
  return {TheRun().standIns.ForToDo(path), path};
}
[[nodiscard]] inline StageInput ReferenceInput() {
  const std::u16string& path = TheRun().reference;
  return {TheRun().standIns.ForReference(path), path};
}

/// Runs a stage from `input` to `outputs` and releases it. The scanner is reset first, whether the
/// stage uses it or not.
/// @param progress  the label whose caption shows the progress
/// @return the stage's time in milliseconds
template <Stage S, class... Outputs>
std::int32_t PerformStage(RecordScanner& scanner, platform::Label& progress,
                          const StageInput& input, const Outputs&... outputs) {
  scanner.ScanAction(RecordScanner::kReset);
  S stage;
  if constexpr (ScannerStage<S>) {
    stage.AwkControl(scanner);
  }
  stage.StateLabel(progress);
  stage.InputFile(input.file);
  SetOutputs(stage, outputs...);
  stage.DoItNow();
  return stage.ProcessTime();
}

/// Does so with row `row`, which shows the stage's time and the size of its input in the end.
/// Nothing in a run that has been abandoned.
template <Stage S, class... Outputs>
void RunStage(RecordScanner& scanner, std::int16_t row, const StageInput& input,
              const Outputs&... outputs) {
  if (TheRun().abandoned) {
    return;
  }
  frmMain& window = frmMain::Instance();
  const std::int32_t time = PerformStage<S>(scanner, window.lblState(row), input, outputs...);
  window.UpdateStateLabel(row, time, input.shown);
}

}  // namespace lexmill
