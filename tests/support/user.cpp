#include "tests/support/user.h"

#include <stdexcept>

namespace user {

namespace {

platform::Control* named(const platform::Control& control, std::string_view name) {
    for (platform::Control* child : childrenOf(control)) {
        if (child->name() == name) return child;
        if (platform::Control* found = named(*child, name)) return found;
    }
    return nullptr;
}

}  // namespace

platform::Control& find(platform::Form& form, std::string_view name) {
    if (platform::Control* found = named(form, name)) return *found;
    throw std::logic_error("no control named " + std::string(name));
}

}  // namespace user
