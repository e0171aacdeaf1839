// SPDX-License-Identifier: MIT
#include "pipeline/clsLexGenPP.h"

namespace lexmill {

template class GlossaryPipeline<TwoGlossaries>;

}  // namespace lexmill
