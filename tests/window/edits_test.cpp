// Names that are still being typed, in the edit field of a real list.
#include "tests/editor/editor_fixture.h"
#include "tests/support/win32/input.h"

namespace {

namespace message = platform::message;

class Edits : public EditorTest {
  protected:
    void SetUp() override {
        other = makeSet("B", {});
        makeSet("A", {});
        start();
        openByChooser("A");
        window().TabStrip1.select(2);
        window().TabStrip1_Click();
    }
    void typeName(const wchar_t* name) {
        auto& list = window().lvCClasses;
        list.editLabel(1);
        const auto field =
            reinterpret_cast<HWND>(SendMessageW(list.native().window, LVM_GETEDITCONTROL, 0, 0));
        ASSERT_NE(field, nullptr);
        SetWindowTextW(field, name);
    }
    std::string nameOfFirst() { return window().set().classRow(1).name; }

    std::string other;
};

TEST_F(Edits, CountBeforeTheSetIsLeft) {
    typeName(L"XYZ");
    messages.expectPart("Änderungen in", message::no);
    window().form.onFilesDropped({other});
    EXPECT_EQ(window().cboSets.text(), "B");
    EXPECT_TRUE(window().lvCItems.focused()) << "digits typed next are no part of the name";
    EXPECT_EQ(nameOfFirst(), "gut") << "the name was meant for a class of the other set";
    typeName(L"XYZ");
    messages.expectPart("Änderungen speichern?", message::cancel);
    EXPECT_FALSE(window().form.unload());
    EXPECT_EQ(nameOfFirst(), "XYZ");
}

TEST_F(Edits, AreSavedUnlessTheNameIsRefused) {
    typeName(L"XYZ");
    SetFocus(nullptr);  // as when another program's window is in front
    messages.expectPart("überschreiben?");
    window().form.onKeyDown('S', platform::shiftKey::control, platform::KeyUse::text);
    EXPECT_EQ(stored("A", "Class1", "Name"), "XYZ");
    typeName(L"Pore");
    messages.expectPart("Bezeichnung ist bereits vorhanden.");
    window().form.onKeyDown('S', platform::shiftKey::control, platform::KeyUse::text);
    EXPECT_FALSE(window().unchanged());
}

}  // namespace
