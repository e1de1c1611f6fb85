// SPDX-License-Identifier: MIT
//
// Texts and values in the form used by automation.

#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string>

namespace quandrel {

/// A UTF-8 text as UTF-16.
[[nodiscard]] inline std::wstring WideText(const std::string& utf8) {
    const int length = static_cast<int>(utf8.size());
    const int units = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(units), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, wide.data(), units);
    return wide;
}

/// A UTF-16 text as UTF-8.
[[nodiscard]] inline std::string NarrowText(const wchar_t* text, std::size_t count) {
    const int units = static_cast<int>(count);
    const int length = WideCharToMultiByte(CP_UTF8, 0, text, units, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, units, utf8.data(), length, nullptr, nullptr);
    return utf8;
}

/// A value that is freed with the object.
class AutomationValue {
public:
    AutomationValue() { VariantInit(&value_); }

    explicit AutomationValue(const std::string& text)
        : AutomationValue() {
        const std::wstring wide = WideText(text);
        value_.vt = VT_BSTR;
        value_.bstrVal = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    }

    explicit AutomationValue(long number)
        : AutomationValue() {
        value_.vt = VT_I4;
        value_.lVal = number;
    }

    /// @param object  nullptr for none
    explicit AutomationValue(IDispatch* object)
        : AutomationValue() {
        value_.vt = VT_DISPATCH;
        value_.pdispVal = object;
        if (object != nullptr) {
            object->AddRef();
        }
    }

    ~AutomationValue() { VariantClear(&value_); }

    AutomationValue(const AutomationValue&) = delete;
    AutomationValue& operator=(const AutomationValue&) = delete;

    [[nodiscard]] VARIANT* Get() { return &value_; }

    /// The value as text, in the neutral language, so that numbers have decimal points.
    [[nodiscard]] std::string Text() {
        AutomationValue text;
        if (FAILED(VariantChangeTypeEx(text.Get(), &value_, LOCALE_INVARIANT, 0, VT_BSTR))) {
            return {};
        }
        const BSTR wide = text.Get()->bstrVal;
        return NarrowText(wide, SysStringLen(wide));
    }

    /// The value as a whole number; 0 when it is not one.
    [[nodiscard]] long Number() {
        AutomationValue number;
        const bool isNumber =
            SUCCEEDED(VariantChangeTypeEx(number.Get(), &value_, LOCALE_INVARIANT, 0, VT_I4));
        return isNumber ? number.Get()->lVal : 0;
    }

private:
    VARIANT value_;
};

/// A copy, as text, of a value that the caller owns.
[[nodiscard]] inline std::string TextOfValue(VARIANT& value) {
    AutomationValue copy;
    VariantCopyInd(copy.Get(), &value);
    return copy.Text();
}

/// The same as a whole number.
[[nodiscard]] inline long NumberOfValue(VARIANT& value) {
    AutomationValue copy;
    VariantCopyInd(copy.Get(), &value);
    return copy.Number();
}

} // namespace quandrel
