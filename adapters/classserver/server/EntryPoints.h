// The functions that a loadable server exports under these names, without "Function" and with C
// linkage.
#pragma once

#include "kvex/Component.h"

extern "C" {
using DllGetClassObjectFunction = HRESULT(const CLSID &classId, const IID &interfaceId,
                                          void **object);
using DllCanUnloadNowFunction = HRESULT();
using DllRegisterServerFunction = HRESULT();
using DllUnregisterServerFunction = HRESULT();
}
