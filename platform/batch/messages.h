// SPDX-License-Identifier: MIT
// platform/batch: the interpreter of batch scripts.
// What it prints, in the words that users know from their command interpreter.
#pragma once

#include <string>
#include <string_view>

#include "platform/failure.h"
#include "platform/host/host_file.h"

namespace lexmill::platform::batch {

inline constexpr std::u16string_view kEchoIsOn = u"ECHO 处于打开状态。";
inline constexpr std::u16string_view kEchoIsOff = u"ECHO 处于关闭状态。";
inline constexpr std::u16string_view kOneFileCopied = u"已复制         1 个文件。";
inline constexpr std::u16string_view kNoFileCopied = u"已复制         0 个文件。";
inline constexpr std::u16string_view kWrongSyntax = u"命令语法不正确。";
inline constexpr std::u16string_view kAccessDenied = u"拒绝访问。";
inline constexpr std::u16string_view kCouldNotFind = u"找不到 ";  // before a full path
inline constexpr std::u16string_view kUsage = u"用法: batch SCRIPT 或 batch /c LINE";

/// Two lines: there is no command and no program `name`.
[[nodiscard]] std::u16string UnknownCommand(std::u16string_view name);

/// What is printed for a failure on a file.
[[nodiscard]] std::u16string_view Describe(const Failure& failure);

/// Prints `text` and CR LF in one write, in the system's code page; in UTF-8 if a chosen page lacks
/// a character. A stream that takes nothing is no failure.
void PrintLine(HostFile& stream, std::u16string_view text);

}  // namespace lexmill::platform::batch
