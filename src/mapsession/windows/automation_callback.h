// SPDX-License-Identifier: MIT
//
// The object that a session calls when its user has done something.

#pragma once

#include "mapsession/windows/automation_value.h"
#include "platform/map_session.h"

namespace quandrel {

class AutomationCallback final : public IDispatch {
public:
    /// The receiver of the calls; nullptr when there is none any more.
    MapCallback* listener = nullptr;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;

    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }

    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters,
                                     VARIANT*, EXCEPINFO*, UINT*) override;

private:
    ~AutomationCallback() = default;

    ULONG references_ = 1;
};

} // namespace quandrel
