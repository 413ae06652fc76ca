#include "platform/win32/accessible.h"

#include <algorithm>

#include "platform/win32/handle.h"
#include "platform/mnemonic.h"
#include "platform/win32/wide.h"

// They want <windows.h> and COM before them, and the identifiers made in this file.
#include <initguid.h>
#include <objbase.h>
#include <oleacc.h>

namespace platform::win32 {

namespace {

using Native = Control::Native;

constexpr auto client = static_cast<DWORD>(OBJID_CLIENT);

static_assert(role::separator == ROLE_SYSTEM_SEPARATOR && role::graphic == ROLE_SYSTEM_GRAPHIC &&
              role::grouping == ROLE_SYSTEM_GROUPING);

/// Wine keeps none.
bool systemKeepsNotes = true;

/// Pins a note to the window by `pin`, which gets the system's service.
template <class Pin>
void note(const Pin& pin) {
    IAccPropServices* found = nullptr;
    const bool offered = systemKeepsNotes &&
                         SUCCEEDED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                                                    IID_IAccPropServices, reinterpret_cast<void**>(&found)));
    if (!offered) return;
    const UniqueCom<IAccPropServices> services(found);
    if (pin(*services.get()) == E_NOTIMPL) systemKeepsNotes = false;
}

/// The text of the label that was made just before it.
std::string labelOf(const Native& native) {
    if (!native.parent) return {};
    const auto& all = native.parent->children;
    const auto self = std::find(all.begin(), all.end(), &native);
    if (self == all.begin() || self == all.end()) return {};
    const Native& before = **(self - 1);
    if (before.accessibleRole() != role::staticText || before.mnemonics().empty()) return {};
    return withoutMnemonic(before.mnemonics().front());
}

std::string nameOf(const Native& native) {
    if (!native.accessibleName.empty()) return native.accessibleName;
    const auto texts = native.mnemonics();
    return texts.size() == 1 ? withoutMnemonic(texts.front()) : labelOf(native);
}

/// The system's object of a window, with the name and the role that are known here.
class NamedObject final : public IAccessible {
  public:
    NamedObject(HWND window, IAccessible* standard) : window_(window), standard_(standard) {}

    STDMETHODIMP QueryInterface(REFIID wanted, void** object) override {
        if (wanted != IID_IUnknown && wanted != IID_IDispatch && wanted != IID_IAccessible)
            return standard_.get()->QueryInterface(wanted, object);
        *object = static_cast<IAccessible*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    STDMETHODIMP get_accName(VARIANT child, BSTR* name) override {
        const Native* native = self(child);
        const std::string known = native ? nameOf(*native) : std::string();
        if (known.empty()) return standard_.get()->get_accName(child, name);
        *name = SysAllocString(wide(known).c_str());
        return S_OK;
    }
    STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) override {
        const Native* native = self(child);
        if (!native || native->accessibleRole() == 0) return standard_.get()->get_accRole(child, role);
        role->vt = VT_I4;
        role->lVal = native->accessibleRole();
        return S_OK;
    }

    // All else is the system's.
    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return standard_.get()->GetTypeInfoCount(count); }
    STDMETHODIMP GetTypeInfo(UINT which, LCID locale, ITypeInfo** info) override {
        return standard_.get()->GetTypeInfo(which, locale, info);
    }
    STDMETHODIMP GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
        return standard_.get()->GetIDsOfNames(id, names, count, locale, ids);
    }
    STDMETHODIMP Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* error) override {
        return standard_.get()->Invoke(member, id, locale, flags, parameters, result, exception, error);
    }
    STDMETHODIMP get_accParent(IDispatch** parent) override { return standard_.get()->get_accParent(parent); }
    STDMETHODIMP get_accChildCount(LONG* count) override { return standard_.get()->get_accChildCount(count); }
    STDMETHODIMP get_accChild(VARIANT child, IDispatch** object) override {
        return standard_.get()->get_accChild(child, object);
    }
    STDMETHODIMP get_accValue(VARIANT child, BSTR* value) override {
        return standard_.get()->get_accValue(child, value);
    }
    STDMETHODIMP get_accDescription(VARIANT child, BSTR* text) override {
        return standard_.get()->get_accDescription(child, text);
    }
    STDMETHODIMP get_accState(VARIANT child, VARIANT* state) override {
        return standard_.get()->get_accState(child, state);
    }
    STDMETHODIMP get_accHelp(VARIANT child, BSTR* help) override {
        return standard_.get()->get_accHelp(child, help);
    }
    STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override {
        return standard_.get()->get_accHelpTopic(file, child, topic);
    }
    STDMETHODIMP get_accKeyboardShortcut(VARIANT child, BSTR* key) override {
        return standard_.get()->get_accKeyboardShortcut(child, key);
    }
    STDMETHODIMP get_accFocus(VARIANT* child) override { return standard_.get()->get_accFocus(child); }
    STDMETHODIMP get_accSelection(VARIANT* children) override {
        return standard_.get()->get_accSelection(children);
    }
    STDMETHODIMP get_accDefaultAction(VARIANT child, BSTR* action) override {
        return standard_.get()->get_accDefaultAction(child, action);
    }
    STDMETHODIMP accSelect(LONG flags, VARIANT child) override {
        return standard_.get()->accSelect(flags, child);
    }
    STDMETHODIMP accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override {
        return standard_.get()->accLocation(left, top, width, height, child);
    }
    STDMETHODIMP accNavigate(LONG direction, VARIANT start, VARIANT* end) override {
        return standard_.get()->accNavigate(direction, start, end);
    }
    STDMETHODIMP accHitTest(LONG left, LONG top, VARIANT* child) override {
        return standard_.get()->accHitTest(left, top, child);
    }
    STDMETHODIMP accDoDefaultAction(VARIANT child) override {
        return standard_.get()->accDoDefaultAction(child);
    }
    STDMETHODIMP put_accName(VARIANT child, BSTR name) override {
        return standard_.get()->put_accName(child, name);
    }
    STDMETHODIMP put_accValue(VARIANT child, BSTR value) override {
        return standard_.get()->put_accValue(child, value);
    }

  private:
    ~NamedObject() = default;
    /// Null when a part of the window is meant, or the window is gone.
    const Native* self(const VARIANT& child) const {
        return child.vt == VT_I4 && child.lVal == CHILDID_SELF ? Native::of(window_) : nullptr;
    }

    HWND window_;
    UniqueCom<IAccessible> standard_;
    ULONG references_ = 1;
};

}  // namespace

void setAccessibleName(Native& native, const std::string& name) {
    native.accessibleName = name;
    note([&](IAccPropServices& services) {
        return services.SetHwndPropStr(native.window, client, CHILDID_SELF, PROPID_ACC_NAME,
                                       wide(name).c_str());
    });
}

void setAccessibleRole(const Native& native, long role) {
    note([&](IAccPropServices& services) {
        VARIANT value{};
        value.vt = VT_I4;
        value.lVal = static_cast<LONG>(role);
        return services.SetHwndProp(native.window, client, CHILDID_SELF, PROPID_ACC_ROLE, value);
    });
}

Handled accessibleObject(const Native& native, const Message& m) {
    if (systemKeepsNotes || static_cast<DWORD>(m.lParam) != client) return std::nullopt;
    IAccessible* standard = nullptr;
    if (FAILED(CreateStdAccessibleObject(native.window, OBJID_CLIENT, IID_IAccessible,
                                         reinterpret_cast<void**>(&standard))))
        return std::nullopt;
    const UniqueCom<IAccessible> object(new NamedObject(native.window, standard));
    return LresultFromObject(IID_IAccessible, m.wParam, object.get());
}

}  // namespace platform::win32
