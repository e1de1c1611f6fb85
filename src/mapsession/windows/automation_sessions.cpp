// SPDX-License-Identifier: MIT

#include "mapsession/windows/automation_sessions.h"

#include "mapsession/windows/automation_callback.h"
#include "mapsession/windows/automation_value.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace quandrel {

namespace {

constexpr const wchar_t* kSessionClass = L"MapInfo.application";

struct Releaser {
    void operator()(IUnknown* object) const { object->Release(); }
};

using DispatchPointer = std::unique_ptr<IDispatch, Releaser>;
using CallbackPointer = std::unique_ptr<AutomationCallback, Releaser>;

/// True when a call failed because the session no longer exists.
bool MeansDeath(HRESULT result) {
    constexpr unsigned long kServerUnavailable = 1722;
    constexpr unsigned long kCallFailed = 1726;
    for (const HRESULT death :
         {RPC_E_DISCONNECTED, RPC_E_SERVER_DIED, RPC_E_SERVER_DIED_DNE, CO_E_OBJNOTCONNECTED,
          static_cast<HRESULT>(HRESULT_FROM_WIN32(kServerUnavailable)),
          static_cast<HRESULT>(HRESULT_FROM_WIN32(kCallFailed))}) {
        if (result == death) {
            return true;
        }
    }
    return false;
}

/// Calls a method, or reads a property, by its name.
/// @param arguments  in reverse order
HRESULT Call(IDispatch& object, const wchar_t* name, WORD kind, std::vector<VARIANT>& arguments,
             AutomationValue& value, std::string& error) {
    std::wstring ownName(name);
    LPOLESTR names = ownName.data();
    DISPID id = DISPID_UNKNOWN;
    HRESULT result = object.GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(result)) {
        return result;
    }
    DISPPARAMS parameters{};
    parameters.rgvarg = arguments.data();
    parameters.cArgs = static_cast<UINT>(arguments.size());
    EXCEPINFO exception{};
    result = object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, value.Get(),
                           &exception, nullptr);
    if (exception.bstrDescription != nullptr) {
        error = NarrowText(exception.bstrDescription, SysStringLen(exception.bstrDescription));
    }
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrHelpFile);
    return result;
}

class AutomationSession : public MapSession {
public:
    explicit AutomationSession(DispatchPointer application)
        : application_(std::move(application)) {}

    ~AutomationSession() override { SetCallback(nullptr); }

    [[nodiscard]] MapReply Do(const std::string& command) override {
        AutomationValue text(command);
        return CallMethod(L"Do", text);
    }

    [[nodiscard]] MapReply Eval(const std::string& expression) override {
        AutomationValue text(expression);
        return CallMethod(L"Eval", text);
    }

    [[nodiscard]] MapReply RunMenuCommand(int id) override {
        AutomationValue number(static_cast<long>(id));
        return CallMethod(L"RunMenuCommand", number);
    }

    void SetCallback(MapCallback* callback) override {
        // The other program may still hold the previous object: it no longer reports to anybody.
        if (callback_ != nullptr) {
            callback_->listener = nullptr;
        }
        const bool hadCallback = callback_ != nullptr;
        callback_.reset(callback != nullptr ? new AutomationCallback : nullptr);
        if (callback_ != nullptr) {
            callback_->listener = callback;
        }
        if (callback_ != nullptr || hadCallback) {
            AutomationValue object(static_cast<IDispatch*>(callback_.get()));
            static_cast<void>(CallMethod(L"SetCallback", object));
        }
    }

    [[nodiscard]] int LastErrorCode() override {
        std::vector<VARIANT> none;
        AutomationValue value;
        std::string error;
        const HRESULT result =
            Call(*application_, L"LastErrorCode", DISPATCH_PROPERTYGET, none, value, error);
        return FAILED(result) ? static_cast<int>(result) : static_cast<int>(value.Number());
    }

    void BeginSelects() override {}

    void EndSelects() override {}

    [[nodiscard]] bool UnitesSelects() const override { return false; }

private:
    [[nodiscard]] MapReply CallMethod(const wchar_t* name, AutomationValue& argument) {
        if (isDead_) {
            return {MapReplyKind::Dead, {}};
        }
        // The argument stays the caller's, so it is not freed here.
        std::vector<VARIANT> arguments = {*argument.Get()};
        AutomationValue value;
        std::string error;
        const HRESULT result = Call(*application_, name, DISPATCH_METHOD, arguments, value, error);
        isDead_ = MeansDeath(result);
        if (isDead_) {
            return {MapReplyKind::Dead, error};
        }
        return FAILED(result) ? MapReply{MapReplyKind::Refused, error}
                              : MapReply{MapReplyKind::Done, value.Text()};
    }

    DispatchPointer application_;
    CallbackPointer callback_;
    bool isDead_ = false;
};

bool FindClass(CLSID& id) {
    return SUCCEEDED(CLSIDFromProgID(kSessionClass, &id));
}

/// The automation interface of an object; releases the object.
DispatchPointer DispatchOf(IUnknown* object) {
    IDispatch* dispatch = nullptr;
    object->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&dispatch));
    object->Release();
    return DispatchPointer(dispatch);
}

std::unique_ptr<MapSession> SessionOf(DispatchPointer application) {
    return application != nullptr ? std::make_unique<AutomationSession>(std::move(application))
                                  : nullptr;
}

} // namespace

AutomationSessions::AutomationSessions()
    : initialised_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}

AutomationSessions::~AutomationSessions() {
    if (initialised_) {
        CoUninitialize();
    }
}

std::unique_ptr<MapSession> AutomationSessions::FindRunning() {
    CLSID id{};
    IUnknown* running = nullptr;
    if (!FindClass(id) || FAILED(GetActiveObject(id, nullptr, &running))) {
        return nullptr;
    }
    return SessionOf(DispatchOf(running));
}

std::unique_ptr<MapSession> AutomationSessions::Start() {
    CLSID id{};
    IUnknown* started = nullptr;
    if (!FindClass(id)
        || FAILED(CoCreateInstance(id, nullptr, CLSCTX_LOCAL_SERVER, IID_IUnknown,
                                   reinterpret_cast<void**>(&started)))) {
        return nullptr;
    }
    return SessionOf(DispatchOf(started));
}

bool AutomationSessions::IsRegistered() {
    CLSID id{};
    return FindClass(id);
}

} // namespace quandrel
