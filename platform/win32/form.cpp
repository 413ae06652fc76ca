#include "platform/form.h"

#include "platform/win32/form_window.h"
#include "platform/win32/wide.h"

namespace platform {

using win32::FormWindow;

namespace {

FormWindow& window(const Control& form) {
    return static_cast<FormWindow&>(form.native());
}

}  // namespace

Form::Form(const std::string& name, const std::string& caption, Options options)
    : Container(std::make_unique<FormWindow>(name, caption, options)) {}

Form::~Form() = default;

std::string Form::caption() const {
    return narrow(window(*this).text());
}

void Form::setCaption(const std::string& caption) {
    window(*this).setText(caption);
}

void Form::setIcon(const IconImage& icon) {
    window(*this).setIcon(icon);
}

void Form::show() {
    window(*this).show();
}

void Form::hide() {
    window(*this).hide();
}

void Form::showModal() {
    window(*this).showModal();
}

bool Form::unload() {
    return window(*this).unload();
}

bool Form::loaded() const {
    return window(*this).loaded();
}

void Form::setMinimumSize(Size size) {
    window(*this).setMinimumSize(size);
}

bool Form::blocked() const {
    return window(*this).enabled && !IsWindowEnabled(native().window);
}

std::string Form::placement() const {
    return window(*this).placement();
}

void Form::setPlacement(const std::string& placement) {
    window(*this).setPlacement(placement);
}

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
