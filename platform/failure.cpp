// SPDX-License-Identifier: MIT
#include "platform/failure.h"

#include <algorithm>
#include <array>

namespace lexmill::platform {
namespace {

struct Description {
  FailureNumber number;
  std::u16string_view scriptLibrary;
  std::u16string_view runtime = scriptLibrary;
};

constexpr auto kDescriptions = std::to_array<Description>({
    {FailureNumber::InvalidCall, u"无效的过程调用或参数"},
    {FailureNumber::Overflow, u"溢出"},
    {FailureNumber::OutOfMemory, u"内存溢出"},
    {FailureNumber::TypeMismatch, u"类型不匹配"},
    {FailureNumber::BadFileName, u"错误的文件名或号码"},
    {FailureNumber::FileNotFound, u"文件未找到"},
    {FailureNumber::BadFileMode, u"错误的文件模式"},
    {FailureNumber::FileAlreadyOpen, u"文件已经打开", u"文件已打开"},
    {FailureNumber::DeviceError, u"设备 I/O 错误"},
    {FailureNumber::FileAlreadyExists, u"文件已存在"},
    {FailureNumber::DiskFull, u"磁盘已满"},
    {FailureNumber::InputPastEnd, u"输入超出了文件尾", u"输入超出文件尾"},
    {FailureNumber::PermissionDenied, u"没有权限", u"拒绝的权限"},
    {FailureNumber::PathFileAccess, u"路径/文件访问错误"},
    {FailureNumber::PathNotFound, u"路径未找到"},
    {FailureNumber::ObjectNotSet, u"未设置对象变量", u"对象变量或 With 块变量未设置"},
    {FailureNumber::InvalidPropertyValue, u"无效属性值"},
    {FailureNumber::ExpressionSyntax, u"正则表达式语法错误"},
    {FailureNumber::UnexpectedQuantifier, u"错误的数量词"},
    {FailureNumber::ExpectedBracket, u"正则表达式中缺少 ']'"},
    {FailureNumber::ExpectedParenthesis, u"正则表达式中缺少 ')'"},
    {FailureNumber::InvalidRange, u"字符集越界"},
});

std::u16string_view Describe(FailureNumber number, FailureOrigin origin) {
  const auto* const found = std::ranges::find(kDescriptions, number, &Description::number);
  if (found == kDescriptions.end()) {
    return {};
  }
  return origin == FailureOrigin::Runtime ? found->runtime : found->scriptLibrary;
}

}  // namespace

Failure::Failure(FailureNumber number, FailureOrigin origin, std::u16string_view subject)
    : Failure(static_cast<std::int32_t>(number), Describe(number, origin), subject) {}

Failure::Failure(std::int32_t number, std::u16string_view description, std::u16string_view subject)
    : number_(number), description_(description), subject_(subject) {}

}  // namespace lexmill::platform
