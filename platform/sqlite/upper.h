// SPDX-License-Identifier: MIT
// platform/sqlite: the database shell. The SQL function Upper.
#pragma once

#include <string>
#include <string_view>

#include "platform/text/ansi_text.h"

namespace lexmill::platform::sqlite {

/// Appends `bytes` to `upper` in upper case, character by character of `page` and by the system's
/// one-to-one table. A character whose capital the page lacks stays, and so does a byte that the
/// page can't decode.
void AppendUpper(std::string_view bytes, const CodePage& page, std::string& upper);

}  // namespace lexmill::platform::sqlite
