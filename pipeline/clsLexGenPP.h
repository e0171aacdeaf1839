// SPDX-License-Identifier: MIT
// pipeline: performs one run, one class for each pair of formats.
// The run from two glossaries to a translated glossary.
#pragma once

#include <string_view>

#include "glossary/clsLexGLO1.h"
#include "pipeline/glossary_pipeline.h"

namespace lexmill {

/// What makes the pair of formats.
struct TwoGlossaries {
  using ReferenceStage = clsLexGLO1;
  static constexpr std::u16string_view kPlace = u"Class Module 'clsLexGenPP' -> 'Start'";
};

using clsLexGenPP = GlossaryPipeline<TwoGlossaries>;
extern template class GlossaryPipeline<TwoGlossaries>;

}  // namespace lexmill
