#include "platform/registry.h"

#include <vector>

#include "platform/errors.h"
#include "platform/win32/fault_code.h"
#include "platform/win32/handle.h"
#include "platform/win32/wide.h"

namespace platform {

namespace {

using files::Call;
using files::Fault;
using win32::UniqueKey;

/// Makes a call of the system, unless it is to fail.
template <class Make>
LSTATUS attempt(Call call, Make make) {
    const Fault fault = files::faultAt(call);
    if (fault == Fault::none) [[likely]]
        return make();
    if (fault == Fault::replyLost) make();
    return static_cast<LSTATUS>(win32::codeOf(fault));
}

void check(LSTATUS result) {
    if (result == ERROR_SUCCESS) return;
    throw RuntimeError(error::fileError, "Die Einstellungen können nicht geschrieben werden: " +
                                             lastErrorText(static_cast<DWORD>(result)));
}

}  // namespace

struct Registry::Native {
    std::wstring root;

    std::wstring place(const std::string& section) const {
        return section.empty() ? root : root + L'\\' + wide(section);
    }
};

Registry::Registry(const std::string& root) : native_(std::make_unique<Native>(Native{wide(root)})) {}

Registry::~Registry() = default;

std::optional<std::string> Registry::read(const std::string& section, const std::string& key) const {
    const std::wstring place = native_->place(section);
    const std::wstring name = wide(key);
    std::vector<wchar_t> text;
    DWORD bytes = 0;
    LSTATUS result = ERROR_MORE_DATA;
    while (result == ERROR_MORE_DATA) {  // it may grow between two calls
        text.resize(bytes / sizeof(wchar_t) + 128);
        bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        result = RegGetValueW(HKEY_CURRENT_USER, place.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr,
                              text.data(), &bytes);
    }
    if (result != ERROR_SUCCESS) return std::nullopt;
    return narrow(text.data());
}

void Registry::write(const std::string& section, const std::string& key, const std::string& value) {
    HKEY opened = nullptr;
    const LSTATUS result = attempt(Call::openKey, [&] {
        return RegCreateKeyExW(HKEY_CURRENT_USER, native_->place(section).c_str(), 0, nullptr, 0,
                               KEY_SET_VALUE, nullptr, &opened, nullptr);
    });
    const UniqueKey place(opened);
    check(result);
    const std::wstring text = wide(value);
    check(attempt(Call::setValue, [&] {
        return RegSetValueExW(place.get(), wide(key).c_str(), 0, REG_SZ,
                              reinterpret_cast<const BYTE*>(text.c_str()),
                              static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    }));
}

void Registry::removeAll() {
    const LSTATUS result = RegDeleteTreeW(HKEY_CURRENT_USER, native_->root.c_str());
    if (result != ERROR_FILE_NOT_FOUND) check(result);
}

}  // namespace platform
