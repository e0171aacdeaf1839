// SPDX-License-Identifier: MIT
#include "pipeline/clsLexGenOP.h"

namespace lexmill {

template class TextPipeline<TextWithGlossary>;

}  // namespace lexmill
