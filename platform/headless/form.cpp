#include "platform/form.h"

#include "platform/headless/desk.h"
#include "platform/headless/event.h"
#include "platform/headless/form_window.h"

namespace platform {

using headless::Desk;
using headless::FormWindow;

namespace {

FormWindow& window(const Control& form) {
    return static_cast<FormWindow&>(form.native());
}

struct PanelWindow : Control::Native {
    using Native::Native;
    void resized() override { headless::raise(static_cast<Panel&>(*control).onResize); }
};

}  // namespace

Form::Form(const std::string& name, const std::string& caption, Options options)
    : Container(std::make_unique<FormWindow>(name, caption, options)) {}

Form::~Form() = default;

std::string Form::caption() const {
    return window(*this).caption;
}

void Form::setCaption(const std::string& caption) {
    window(*this).caption = caption;
}

// There is no title bar to see it in.
void Form::setIcon(const IconImage&) {}

void Form::show() {
    window(*this).show();
}

void Form::hide() {
    window(*this).hide();
}

void Form::showModal() {
    // It ends with this call, however that is left.
    const std::unique_ptr<FormWindow, void (*)(FormWindow*)> shown(&window(*this),
                                                                   [](FormWindow* form) { form->hide(); });
    shown->blockOwner();
    show();
    const auto askPerson = [this] {
        const auto person = Desk::instance().modalUser;
        if (person) person(*this);
        return person != nullptr;
    };
    Desk::instance().runWhile([this] { return visible() && loaded(); }, askPerson);
}

bool Form::unload() {
    return window(*this).unload();
}

bool Form::loaded() const {
    return window(*this).loaded;
}

bool Form::blocked() const {
    return window(*this).modalAbove > 0;
}

void Form::setMinimumSize(Size size) {
    window(*this).minimum = size;
}

Panel::Panel(Container& parent, const std::string& name)
    : Container(std::make_unique<PanelWindow>(&parent.native(), name)) {}

Subclassing::Subclassing(Form& form) : native_(std::make_unique<Native>(Native{&window(form), {}, this})) {
    native_->form->subclassings.push_back(native_.get());
}

Subclassing::~Subclassing() {
    if (native_->form) std::erase(native_->form->subclassings, native_.get());
}

void Subclassing::watch(std::uint32_t message) {
    native_->watched.insert(message);
}

}  // namespace platform
