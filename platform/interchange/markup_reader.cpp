// SPDX-License-Identifier: MIT
#include "platform/interchange/markup_reader.h"

#include <algorithm>
#include <exception>
#include <span>
#include <utility>

#include <expat.h>

#include "platform/failure.h"
#include "platform/files/opened_file.h"
#include "platform/host/host_failure.h"
#include "platform/interchange/markup_encoding.h"
#include "platform/text/named_page.h"
#include "platform/text/utf8.h"

namespace lexmill::platform {
namespace {

constexpr XML_Char kSeparator = '|';  // which no name holds
constexpr int kBlock = 64 * 1024;
constexpr std::string_view kOwnNamespace = "http://www.w3.org/XML/1998/namespace";

/// A name as the library gives it: namespace, local name and prefix, the last two only where there
/// is a namespace.
struct ExpandedName {
  explicit ExpandedName(std::string_view name) {
    const std::size_t first = name.find(kSeparator);
    if (first == std::string_view::npos) {
      local = name;
      return;
    }
    space = name.substr(0, first);
    local = name.substr(first + 1, name.find(kSeparator, first + 1) - first - 1);
  }

  std::string_view space;
  std::string_view local;
};

std::u16string Text(std::string_view bytes) {
  std::u16string text;
  DecodeUtf8(bytes, text);
  return text;
}

std::u16string ReasonOf(XML_Error error) {
  switch (error) {
    case XML_ERROR_NO_ELEMENTS:
    case XML_ERROR_UNCLOSED_TOKEN:
      return u"文件不完整";
    case XML_ERROR_TAG_MISMATCH:
      return u"结束标签与开始标签不符";
    case XML_ERROR_INVALID_TOKEN:
    case XML_ERROR_PARTIAL_CHAR:
    case XML_ERROR_SYNTAX:
      return u"不符合 XML 语法";
    case XML_ERROR_UNDEFINED_ENTITY:
      return u"引用了未定义的实体";
    case XML_ERROR_AMPLIFICATION_LIMIT_BREACH:
      return u"实体展开后过大";
    case XML_ERROR_UNBOUND_PREFIX:
      return u"命名空间前缀未声明";
    default:
      return Text(XML_ErrorString(error));
  }
}

}  // namespace

/// The library calls plain functions, through which nothing may be thrown: what an event's owner
/// throws is kept until the library has returned.
struct MarkupReader::State {
  explicit State(std::u16string_view markup)
      : path(markup),
        file(OpenToRead(markup).file),
        parser(XML_ParserCreateNS(nullptr, kSeparator)) {
    if (parser == nullptr) {
      throw Failure(FailureNumber::OutOfMemory, FailureOrigin::Runtime);
    }
    SetHandlers();
  }
  ~State() { XML_ParserFree(parser); }
  State(const State&) = delete;
  State& operator=(const State&) = delete;

  void SetHandlers() {
    XML_SetUserData(parser, this);
    XML_SetReturnNSTriplet(parser, 1);
    XML_SetElementHandler(parser, OnStart, OnEnd);
    XML_SetCharacterDataHandler(parser, OnText);
    XML_SetCommentHandler(parser, OnComment);
    XML_SetProcessingInstructionHandler(parser, OnInstruction);
    XML_SetSkippedEntityHandler(parser, OnSkippedEntity);
    XML_SetXmlDeclHandler(parser, OnDeclaration);
    XML_SetUnknownEncodingHandler(parser, OnUnknownEncoding, this);
  }

  static State& Of(void* data) { return *static_cast<State*>(data); }

  static void OnStart(void* data, const XML_Char* name, const XML_Char** values) {
    State& state = Of(data);
    if (state.WrittenBytes().substr(0, 2).find('<') == std::string_view::npos) {
      state.StopFor(u"元素来自实体");
      return;
    }
    state.attributes = values;
    state.Report(MarkupKind::Start, name, {});
    state.attributes = nullptr;
  }

  static void OnEnd(void* data, const XML_Char* name) {
    Of(data).Report(MarkupKind::End, name, {});
  }

  static void OnText(void* data, const XML_Char* bytes, int length) {
    Of(data).Report(MarkupKind::Text, {},
                    std::string_view(bytes, static_cast<std::size_t>(length)));
  }

  static void OnComment(void* data, const XML_Char* /*text*/) { Of(data).ReportOther(); }
  static void OnInstruction(void* data, const XML_Char* /*target*/, const XML_Char* /*text*/) {
    Of(data).ReportOther();
  }
  static void OnSkippedEntity(void* data, const XML_Char* /*name*/, int /*isParameter*/) {
    Of(data).ReportOther();
  }

  static void OnDeclaration(void* data, const XML_Char* /*version*/, const XML_Char* encoding,
                            int /*standalone*/) {
    Of(data).declared = encoding == nullptr ? u"" : Text(encoding);
  }

  static int OnUnknownEncoding(void* data, const XML_Char* name, XML_Encoding* info) {
    State& state = Of(data);
    state.isOtherUtf8 = IsNameOfUtf8(Text(name));
    if (state.isOtherUtf8) {
      return XML_STATUS_ERROR;
    }
    state.unknownPage = OpenPageOrNone(Text(name));
    return state.unknownPage != nullptr && DescribePage(*state.unknownPage, *info)
               ? XML_STATUS_OK
               : XML_STATUS_ERROR;
  }

  void ReportOther() { Report(MarkupKind::Other, {}, {}); }

  void Report(MarkupKind kind, std::string_view name, std::string_view bytes) {
    if (thrown || isStopped) {
      return;
    }
    try {
      nameText = NameOf(name);
      eventText.clear();
      DecodeUtf8(bytes, eventText);
      (*onEvent)({kind, nameText, eventText, Range()});
    } catch (...) {
      thrown = std::current_exception();
      XML_StopParser(parser, XML_FALSE);
    }
  }

  std::u16string NameOf(std::string_view name) {
    if (name.empty()) {
      return {};
    }
    const ExpandedName expanded(name);
    if (!rootSpace) {
      rootSpace = expanded.space;
    }
    return expanded.space == *rootSpace ? Text(expanded.local) : std::u16string();
  }

  [[nodiscard]] FileRange Range() const {
    const std::int64_t begin = XML_GetCurrentByteIndex(parser);
    return {begin, begin + XML_GetCurrentByteCount(parser)};
  }

  /// What the file has for the present event; it came with the block, or one before.
  [[nodiscard]] std::string_view WrittenBytes() const {
    int offset = 0;
    int size = 0;
    const char* const context = XML_GetInputContext(parser, &offset, &size);
    const int length = XML_GetCurrentByteCount(parser);
    return context != nullptr && offset + length <= size
               ? std::string_view(context + offset, static_cast<std::size_t>(length))
               : std::string_view();
  }

  void StopFor(std::u16string_view reason) {
    if (!fault) {
      fault = MarkupFault{Line(), std::u16string(reason)};
    }
    XML_StopParser(parser, XML_FALSE);
  }

  [[nodiscard]] std::int64_t Line() const {
    return static_cast<std::int64_t>(XML_GetCurrentLineNumber(parser));
  }

  /// Feeds the next block to the library. @return false at the end, or if it is to go no further
  bool ReadBlock() {
    void* const buffer = XML_GetBuffer(parser, kBlock);
    if (buffer == nullptr) {
      throw Failure(FailureNumber::OutOfMemory, FailureOrigin::Runtime);
    }
    const auto count = file.Read(std::span(static_cast<char*>(buffer), kBlock));
    if (!count) {
      throw TransferFailure(count.Error());
    }
    if (start.empty()) {
      start.assign(static_cast<const char*>(buffer), std::min<std::size_t>(*count, 2));
    }
    const auto status = XML_ParseBuffer(parser, static_cast<int>(*count), *count == 0);
    if (std::exchange(isOtherUtf8, false)) {
      BeginAgain();
      return true;
    }
    if (status != XML_STATUS_OK && !thrown && !isStopped && !fault) {
      fault = FaultOfLibrary();
    }
    return status == XML_STATUS_OK && *count > 0;
  }

  /// Goes back to the start of the file, which is UTF-8 under a name that the library doesn't know.
  void BeginAgain() {
    XML_ParserReset(parser, "UTF-8");
    SetHandlers();
    file = OpenToRead(path).file;
  }

  /// Why the library has stopped.
  [[nodiscard]] MarkupFault FaultOfLibrary() const {
    const XML_Error error = XML_GetErrorCode(parser);
    if (error == XML_ERROR_UNKNOWN_ENCODING || error == XML_ERROR_INCORRECT_ENCODING) {
      return {Line(), u"未知的字符集 " + declared, true};
    }
    if (error == XML_ERROR_INVALID_TOKEN && unknownPage != nullptr) {
      return {Line(),
              u"不符合 XML 语法，或者有 " + declared + u" 中多于两个字节的字符，请另存为 UTF-8"};
    }
    return {Line(), ReasonOf(error)};
  }

  std::u16string path;
  HostFile file;
  XML_Parser parser;
  const OnEvent* onEvent = nullptr;
  const XML_Char** attributes = nullptr;  ///< of the present start tag: names and values in turn
  std::u16string nameText;
  std::u16string eventText;
  std::optional<std::string> rootSpace;
  std::string start;         ///< the first two bytes
  std::u16string declared;   ///< the encoding that the declaration names
  bool isOtherUtf8 = false;  ///< by a name that the library doesn't know
  std::shared_ptr<const CodePage> unknownPage;
  std::shared_ptr<const CodePage> page;
  std::optional<MarkupFault> fault;
  std::exception_ptr thrown;
  bool isStopped = false;
};

MarkupReader::MarkupReader(std::u16string_view path) : state_(std::make_unique<State>(path)) {}
MarkupReader::~MarkupReader() = default;

std::optional<MarkupFault> MarkupReader::Read(const OnEvent& onEvent) {
  state_->onEvent = &onEvent;
  while (state_->ReadBlock()) {
  }
  if (state_->thrown) {
    std::rethrow_exception(state_->thrown);
  }
  return state_->fault;
}

void MarkupReader::Stop() {
  state_->isStopped = true;
  XML_StopParser(state_->parser, XML_FALSE);
}

std::int64_t MarkupReader::Line() const {
  return state_->Line();
}

std::optional<std::u16string> MarkupReader::Attribute(std::u16string_view name) const {
  for (const XML_Char** at = state_->attributes; at != nullptr && *at != nullptr; at += 2) {
    const ExpandedName expanded(*at);
    const bool isOwn = expanded.space == kOwnNamespace;
    if ((isOwn || expanded.space.empty()) &&
        (isOwn ? u"xml:" : u"") + Text(expanded.local) == name) {
      return Text(at[1]);
    }
  }
  return std::nullopt;
}

std::u16string MarkupReader::Written() const {
  std::u16string text;
  Page()->Decode(state_->WrittenBytes(), text);
  return text;
}

std::shared_ptr<const CodePage> MarkupReader::Page() const {
  if (!state_->page) {
    state_->page = PageOfMarkup(state_->start, state_->declared);
  }
  return state_->page;
}

}  // namespace lexmill::platform
