// SPDX-License-Identifier: MIT
#include "platform/controls/dialogs.h"

#include <iostream>

#include "platform/headless/headless.h"
#include "platform/text/text.h"

namespace lexmill::platform {
namespace {

/// The next answer of a script, or `otherwise` once it is used up.
template <class T>
T TakeAnswer(std::deque<T>& answers, T otherwise) {
  if (answers.empty()) {
    return otherwise;
  }
  T answer = std::move(answers.front());
  answers.pop_front();
  return answer;
}

std::optional<FileDialogAnswer> AnswerFileDialog() {
  return TakeAnswer<std::optional<FileDialogAnswer>>(headless::TheSession().fileAnswers,
                                                     std::nullopt);
}

}  // namespace

MessageAnswer ShowMessageBox(std::u16string_view text, MessageIcon icon, MessageButtons buttons) {
  auto& session = headless::TheSession();
  session.messages.push_back({std::u16string(text), icon, buttons});
  if (session.messagesToStandardError) {
    std::cerr << ToUtf8(ReplaceAll(text, u"\r\n", u"\n")) << std::endl;
  }
  return TakeAnswer(session.messageAnswers, MessageAnswer::Ok);
}

std::optional<FileDialogAnswer> ShowOpenDialog(const FileDialogRequest& request) {
  headless::TheSession().openDialogs.push_back(request);
  return AnswerFileDialog();
}

std::optional<FileDialogAnswer> ShowSaveDialog(const FileDialogRequest& request) {
  headless::TheSession().saveDialogs.push_back(request);
  return AnswerFileDialog();
}

}  // namespace lexmill::platform
