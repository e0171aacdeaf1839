// SPDX-License-Identifier: MIT
#include "pipeline/clsLexGenOO.h"

namespace lexmill {

template class TextPipeline<TwoTexts>;

}  // namespace lexmill
