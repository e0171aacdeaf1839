// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. Objects of the system's that count their users.
#pragma once

#include <memory>

#include "platform/win32/system_headers.h"

namespace lexmill::platform::win32 {

struct Releaser {
  void operator()(IUnknown* object) const { object->Release(); }
};

/// One use of such an object, given back at the pointer's end.
template <class T>
using ComPointer = std::unique_ptr<T, Releaser>;

/// Makes an object of that class; null if the system has none.
/// @param use  the number of T
template <class T>
[[nodiscard]] ComPointer<T> MakeObject(const CLSID& kind, const IID& use = __uuidof(T)) {
  T* object = nullptr;
  CoCreateInstance(kind, nullptr, CLSCTX_INPROC_SERVER, use, reinterpret_cast<void**>(&object));
  return ComPointer<T>(object);
}

}  // namespace lexmill::platform::win32
