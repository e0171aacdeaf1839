// SPDX-License-Identifier: MIT
// pipeline: performs one run, one class for each pair of formats.
// The run from an untranslated text and a reference glossary to a translated text.
#pragma once

#include <string_view>

#include "glossary/clsLexGLO1.h"
#include "pipeline/text_pipeline.h"

namespace lexmill {

/// What makes the pair of formats.
struct TextWithGlossary {
  using ReferenceStage = clsLexGLO1;
  static constexpr std::u16string_view kPlace = u"Class Module 'clsLexGenOP' -> 'Start'";
};

using clsLexGenOP = TextPipeline<TextWithGlossary>;
extern template class TextPipeline<TextWithGlossary>;

}  // namespace lexmill
