// What a screen reader is told of each control, asked as it asks.

#include "platform/win32/native.h"
#include "platform/win32/wide.h"
#include "shell/frmError.h"
#include "tests/editor/counting_source.h"
#include "tests/editor/editor_fixture.h"

// They want <windows.h> before them.
#include <objbase.h>
#include <oleacc.h>

namespace {

using platform::Control;

struct Told {
    std::string name;
    long role = 0;
};

Told told(HWND window) {
    Told answer;
    IAccessible* object = nullptr;
    EXPECT_EQ(::AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                           reinterpret_cast<void**>(&object)),
              S_OK);
    if (!object) return answer;
    VARIANT self{}, role{};
    self.vt = VT_I4;
    BSTR name = nullptr;
    if (object->get_accName(self, &name) == S_OK && name) answer.name = platform::narrow(name);
    if (object->get_accRole(self, &role) == S_OK) answer.role = role.lVal;
    ::SysFreeString(name);
    object->Release();
    return answer;
}

class Accessible : public EditorTest {
  protected:
    /// Everything at which the Tab key can stop.
    static void checkAll(const Control& container) {
        for (const Control* child : user::childrenOf(container)) {
            const bool isPage = child->name().starts_with("fra");
            if (!child->visible() && !isPage) continue;  // a button without a class
            const Control::Native& native = child->native();
            if (native.tabStop()) {
                const Told answer = told(native.window);
                EXPECT_NE(answer.name, "") << child->name();
                EXPECT_NE(answer.role, ROLE_SYSTEM_CLIENT) << child->name();
            }
            checkAll(*child);
        }
    }
};

TEST_F(Accessible, EveryControlHasANameAndARole) {
    ASSERT_TRUE(start(makeSet("A", {.classes = {"gut & glatt", "Riß"}})));
    auto& w = window();
    checkAll(w.form);
    shell::frmError missing(w.form, registry, environment);
    checkAll(missing.form);
    CountingSource regions;
    const shell::frmSave saving(w.form, regions, environment, {});
    checkAll(saving.form);

    const struct {
        const char* control;
        const char* name;
        long role;
    } wanted[] = {
        {"kvPictureBox1", "Bild", ROLE_SYSTEM_GRAPHIC},
        {"kvButtonList1", "Klassen zuweisen", ROLE_SYSTEM_GROUPING},
        {"Command1(0)", "gut & glatt", ROLE_SYSTEM_PUSHBUTTON},
        {"lvCItems", "Elemente und ihre Klassen", ROLE_SYSTEM_LIST},
        {"cboROI", "Bereich:", ROLE_SYSTEM_COMBOBOX},
        {"chkStretch", "einpassen", ROLE_SYSTEM_CHECKBUTTON},
        {"txtDY", "dY (H):", ROLE_SYSTEM_TEXT},
    };
    for (const auto& row : wanted) {
        const Told answer = told(user::find(w.form, row.control).native().window);
        EXPECT_EQ(answer.name, row.name) << row.control;
        EXPECT_EQ(answer.role, row.role) << row.control;
    }
}

}  // namespace
