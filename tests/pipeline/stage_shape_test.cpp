// SPDX-License-Identifier: MIT
// The stages have no common base: that they are alike is proved here, when this compiles.
#include "glossary/clsLexGLO1.h"
#include "glossary/clsLexGLO2.h"
#include "glossary/clsLexGLO3.h"
#include "pipeline/stage_run.h"
#include "text/clsLexUPB1.h"
#include "text/clsLexUPB2.h"
#include "text/clsLexUPB3.h"

namespace lexmill {

static_assert(ScannerStage<clsLexGLO1> && OneOutputStage<clsLexGLO1>);
static_assert(ScannerStage<clsLexGLO2> && OneOutputStage<clsLexGLO2>);
static_assert(ScannerStage<clsLexGLO3> && OneOutputStage<clsLexGLO3>);
static_assert(!ScannerStage<clsLexUPB1> && OneOutputStage<clsLexUPB1>);
static_assert(!ScannerStage<clsLexUPB2> && TwoOutputStage<clsLexUPB2>);
static_assert(ScannerStage<clsLexUPB3> && OneOutputStage<clsLexUPB3>);

}  // namespace lexmill
