#include "tests/support/faults.h"

namespace support {

namespace {

thread_local Faults* present = nullptr;

}  // namespace

Faults::Faults(const Failure& failure, int nth) : failure_(failure), nth_(nth) {
    present = this;
    platform::files::faultWatcher = at;
}

Faults::~Faults() {
    platform::files::faultWatcher = nullptr;
    present = nullptr;
}

Faults& Faults::inReading() {
    reading_ = true;
    return *this;
}

Fault Faults::at(Call call) {
    const bool reads = call == Call::open || call == Call::read || call == Call::list;
    if (!present || reads != present->reading_) return Fault::none;
    present->calls_.push_back(call);
    const int after = static_cast<int>(present->calls_.size()) - present->nth_;
    if (after < 0) return Fault::none;
    return after == 0   ? present->failure_.first
           : after == 1 ? present->failure_.second
                        : present->failure_.rest;
}

}  // namespace support
