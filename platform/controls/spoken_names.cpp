// SPDX-License-Identifier: MIT
#include "platform/controls/spoken_names.h"

#include "platform/controls/window_order.h"

namespace lexmill::platform {
namespace {

bool IsField(const Control& control) {
  return control.Kind() == ControlKind::TextBox || control.Kind() == ControlKind::ComboBox;
}

// A label that has nothing to say as yet.
bool IsOutput(const Control& control) {
  return control.Kind() == ControlKind::Label && control.Caption().empty();
}

bool NamesFields(const Control& control) {
  return control.Kind() == ControlKind::Label || control.Kind() == ControlKind::CheckBox;
}

SpokenName NamedField(Control& field, Control& namer, const Control* before) {
  const bool isItsLabel = &namer == before && namer.Kind() == ControlKind::Label;
  return {.control = &field,
          .name = WithoutMarks(namer.Caption()),
          .label = isItsLabel ? &namer : nullptr};
}

}  // namespace

std::u16string WithoutMarks(std::u16string_view caption) {
  std::u16string plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == u'&' && i + 1 < caption.size()) {
      ++i;
    }
    plain += caption[i];
  }
  return plain;
}

std::vector<SpokenName> SpokenNames(const Form& form) {
  std::vector<SpokenName> names;
  Control* namer = nullptr;
  const Control* before = nullptr;
  for (Control* control : TabOrder(form)) {
    if (control->Caption() == u"...") {
      names.push_back({.control = control, .name = control->ToolTipText()});
    }
    if (IsOutput(*control) && namer != nullptr && namer == before) {
      names.push_back({.control = control, .description = WithoutMarks(namer->Caption())});
    } else if (NamesFields(*control)) {
      namer = control;
    } else if (IsField(*control) && namer != nullptr &&
               namer->Container() == control->Container()) {
      names.push_back(NamedField(*control, *namer, before));
    }
    before = control;
  }
  return names;
}

}  // namespace lexmill::platform
