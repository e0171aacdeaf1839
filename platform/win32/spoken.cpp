// SPDX-License-Identifier: MIT
#include "platform/win32/spoken.h"

#include <oleacc.h>

#include "platform/win32/com_pointer.h"
#include "platform/win32/wide_text.h"

namespace lexmill::platform::win32 {

void Annotate(HWND window, const SpokenName& spoken) {
  const auto service = MakeObject<IAccPropServices>(CLSID_AccPropServices, IID_IAccPropServices);
  if (service == nullptr) {
    return;
  }
  const auto set = [&](const GUID& what, const std::u16string& text) {
    if (!text.empty()) {
      service->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, what,
                              Wide(text));
    }
  };
  set(PROPID_ACC_NAME, spoken.name);
  set(PROPID_ACC_DESCRIPTION, spoken.description);
}

}  // namespace lexmill::platform::win32
