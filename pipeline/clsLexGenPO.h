// SPDX-License-Identifier: MIT
// pipeline: performs one run, one class for each pair of formats.
// The run from an untranslated glossary and a reference text to a translated glossary.
#pragma once

#include <string_view>

#include "pipeline/glossary_pipeline.h"
#include "text/clsLexUPB1.h"

namespace lexmill {

/// What makes the pair of formats.
struct GlossaryWithText {
  using ReferenceStage = clsLexUPB1;
  static constexpr std::u16string_view kPlace = u"Class Module 'clsLexGenPO' -> 'Start'";
};

using clsLexGenPO = GlossaryPipeline<GlossaryWithText>;
extern template class GlossaryPipeline<GlossaryWithText>;

}  // namespace lexmill
