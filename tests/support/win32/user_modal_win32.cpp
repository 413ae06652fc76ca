#include <gtest/gtest.h>

#include <exception>
#include <utility>

#include "platform/win32/form_window.h"
#include "tests/support/user.h"
#include "tests/support/win32/input.h"

namespace user {

using platform::Form;
using platform::win32::FormWindow;

namespace {

/// The person, who looks every few milliseconds whether there is a dialog to answer.
struct Person {
    std::function<void(Form&)> act;
    const FormWindow* answering = nullptr;
    UINT_PTR timer = 0;
};

Person person;

void CALLBACK look(HWND, UINT, UINT_PTR, DWORD) {
    FormWindow* form = FormWindow::topModal();
    if (!person.act || !form || form == person.answering || !form->visible) return;
    const FormWindow* before = std::exchange(person.answering, form);
    try {
        person.act(static_cast<Form&>(*form->control));
    } catch (const std::exception& error) {  // it must not cross the system's frames
        ADD_FAILURE() << error.what();
        form->hide();
    }
    person.answering = before;
}

}  // namespace

ModalUser::ModalUser(std::function<void(Form&)> act) {
    input::require(!person.act, "there is one person only");
    constexpr UINT everyMilliseconds = 10;
    person = {std::move(act), nullptr, SetTimer(nullptr, 0, everyMilliseconds, look)};
}

ModalUser::~ModalUser() {
    KillTimer(nullptr, person.timer);
    person = {};
}

}  // namespace user
