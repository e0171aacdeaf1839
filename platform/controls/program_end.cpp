// SPDX-License-Identifier: MIT
#include "platform/controls/program_end.h"

#include <utility>

namespace lexmill::platform {
namespace {

bool& Asked() {
  static bool asked = false;
  return asked;
}

}  // namespace

ProgramEnd::ProgramEnd(Form& form, std::function<void()> closeDialog)
    : form_(form), closeDialog_(std::move(closeDialog)) {}

ProgramEnd::~ProgramEnd() {
  Asked() = false;
}

void ProgramEnd::Ask() {
  Asked() = true;
  closeDialog_();
  form_.Close();
  if (form_.Busy()) {
    form_.CloseInsisted.Raise();
  }
}

bool ProgramEnd::IsAsked() {
  return Asked();
}

}  // namespace lexmill::platform
