// SPDX-License-Identifier: MIT
#include "pipeline/clsLexGenPO.h"

namespace lexmill {

template class GlossaryPipeline<GlossaryWithText>;

}  // namespace lexmill
