// SPDX-License-Identifier: MIT
// run: turns one press of the start command into a finished run.
// Why a string is translated as it is, or not at all.
#pragma once

#include <functional>
#include <string_view>

namespace lexmill {

/// Takes an explanation, line by line; the lines have no ends.
using ExplanationLine = std::function<void(std::u16string_view)>;

/// Explains in Chinese what a run would do with an untranslated string, by the options and the
/// references of the run's state: the string after each rule, and for each reference the
/// translations with their lines or, if it has none, the entries nearest to it. Nothing is written
/// to a file that stays.
/// @param string  as a dictionary has it; TABs and line ends in it count as \t, \n and \r
/// @return true if a reference knows the string
/// @throws platform::Failure as ForEachReferenceEntry, and whatever `takeLine` throws
bool ExplainString(std::u16string_view string, const ExplanationLine& takeLine);

}  // namespace lexmill
