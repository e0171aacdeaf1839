// SPDX-License-Identifier: MIT
// run/shared: what every room may read of a run.
#pragma once

namespace lexmill {

/// What the bytes of a dictionary show that its user may want to know.
struct FileFacts {
  bool isUtf16 = false;
  bool hasMixedEncodings = false;  ///< some lines are UTF-8, others are not
  bool hasManyColumns = false;     ///< most lines have three or more columns

  bool operator==(const FileFacts&) const = default;
};

}  // namespace lexmill
