// SPDX-License-Identifier: MIT
// Linked with the main function of a program: its calls fail as the test says.
#include "tests/faults/shared_faults.h"

namespace {

[[maybe_unused]] const bool isJoined = (lexmill::test::JoinFaultInjection(), true);

}  // namespace
