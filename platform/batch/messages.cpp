// SPDX-License-Identifier: MIT
#include "platform/batch/messages.h"

#include <tuple>

#include "platform/text/ansi_text.h"
#include "platform/text/text.h"

namespace lexmill::platform::batch {
namespace {

constexpr std::u16string_view kFileNotFound = u"系统找不到指定的文件。";
constexpr std::u16string_view kPathNotFound = u"系统找不到指定的路径。";
constexpr std::u16string_view kWrongName = u"文件名、目录名或卷标语法不正确。";
constexpr std::u16string_view kFileInUse = u"另一个程序正在使用此文件，进程无法访问。";
constexpr std::u16string_view kDiskFull = u"磁盘空间不足。";
constexpr std::u16string_view kDeviceError = u"由于 I/O 设备错误，无法运行此项请求。";

}  // namespace

std::u16string UnknownCommand(std::u16string_view name) {
  std::u16string message = u"'";
  message += name;
  message += u"' 不是内部或外部命令，也不是可运行的程序\r\n或批处理文件。";
  return message;
}

std::u16string_view Describe(const Failure& failure) {
  switch (static_cast<FailureNumber>(failure.Number())) {
    case FailureNumber::FileNotFound:
      return kFileNotFound;
    case FailureNumber::PathNotFound:
      return kPathNotFound;
    case FailureNumber::BadFileName:
      return kWrongName;
    case FailureNumber::FileAlreadyOpen:
      return kFileInUse;
    case FailureNumber::DiskFull:
      return kDiskFull;
    case FailureNumber::DeviceError:
      return kDeviceError;
    default:
      return kAccessDenied;
  }
}

void PrintLine(HostFile& stream, std::u16string_view text) {
  const std::u16string line = std::u16string(text) + u"\r\n";
  std::string bytes;
  if (!AnsiCodePage().Encode(line, bytes)) {
    bytes = ToUtf8(line);
  }
  std::ignore = stream.Write(bytes);
}

}  // namespace lexmill::platform::batch
