// SPDX-License-Identifier: MIT

#include "mapsession/windows/automation_callback.h"

#include <cwchar>
#include <exception>

namespace quandrel {

namespace {

enum CallbackMethod : DISPID { kHandleToolButton = 1, kSetStatusText = 2, kContentsChanged = 3 };

struct MethodName {
    const wchar_t* name;
    DISPID id;
};

constexpr MethodName kMethods[] = {{L"HandleToolButton", kHandleToolButton},
                                   {L"SetStatusText", kSetStatusText},
                                   {L"WindowContentsChanged", kContentsChanged}};

void Tell(MapCallback& listener, DISPID method, VARIANT& argument) {
    switch (method) {
    case kHandleToolButton:
        listener.HandleToolButton(TextOfValue(argument));
        break;
    case kSetStatusText:
        listener.SetStatusText(TextOfValue(argument));
        break;
    case kContentsChanged:
        listener.WindowContentsChanged(NumberOfValue(argument));
        break;
    default:
        break;
    }
}

} // namespace

HRESULT AutomationCallback::QueryInterface(REFIID id, void** object) {
    if (object == nullptr) {
        return E_POINTER;
    }
    if (id != IID_IUnknown && id != IID_IDispatch) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
}

ULONG AutomationCallback::Release() {
    const ULONG left = --references_;
    if (left == 0) {
        delete this;
    }
    return left;
}

HRESULT AutomationCallback::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) {
        return E_POINTER;
    }
    *count = 0;
    return S_OK;
}

HRESULT AutomationCallback::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
    if (info != nullptr) {
        *info = nullptr;
    }
    return E_NOTIMPL;
}

HRESULT AutomationCallback::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (names == nullptr || ids == nullptr || count == 0) {
        return E_INVALIDARG;
    }
    for (UINT i = 0; i < count; ++i) {
        ids[i] = DISPID_UNKNOWN;
    }
    // Names after the first are those of arguments, which are identified by position here.
    for (const MethodName& method : kMethods) {
        if (_wcsicmp(names[0], method.name) == 0) {
            ids[0] = method.id;
        }
    }
    return ids[0] != DISPID_UNKNOWN && count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT AutomationCallback::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                                   EXCEPINFO*, UINT*) {
    if (parameters == nullptr || parameters->cArgs < 1) {
        return DISP_E_BADPARAMCOUNT;
    }
    if (listener == nullptr) {
        return S_OK;
    }
    try {
        // Arguments are in reverse order.
        Tell(*listener, id, parameters->rgvarg[parameters->cArgs - 1]);
    } catch (const std::exception&) {
        return E_FAIL; // no exception may reach the other program
    }
    return S_OK;
}

} // namespace quandrel
