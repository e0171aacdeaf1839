// SPDX-License-Identifier: MIT
// run: carries one press of the start command from the options on screen to a finished run.
// Which encoding a dictionary is in.
#pragma once

#include <string_view>

#include "platform/text/text_encoding.h"

namespace lexmill {

/// The encoding of a dictionary, from its bytes: UTF-8 if it is strictly valid UTF-8 and begins
/// with a mark or holds a sequence of three or more bytes, else the code page; always the code page
/// if the settings name one. A file that can't be read counts as one in the code page. Lets pending
/// window events run while it reads a large file.
[[nodiscard]] platform::TextEncoding RecogniseEncoding(std::u16string_view path);

}  // namespace lexmill
