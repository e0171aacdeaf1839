// SPDX-License-Identifier: MIT
// pipeline: performs one run, one class for each pair of formats.
// The run from two texts to a translated text.
#pragma once

#include <string_view>

#include "pipeline/text_pipeline.h"
#include "text/clsLexUPB1.h"

namespace lexmill {

/// What makes the pair of formats.
struct TwoTexts {
  using ReferenceStage = clsLexUPB1;
  static constexpr std::u16string_view kPlace = u"Class Module 'clsLexGenOO' -> 'Start'";
};

using clsLexGenOO = TextPipeline<TwoTexts>;
extern template class TextPipeline<TwoTexts>;

}  // namespace lexmill
