#include "tests/support/faults.h"

namespace support {

namespace {

std::atomic<Faults*> present{nullptr};

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
    Faults* faults = present;
    if (!faults || reads != faults->reading_) return Fault::none;
    return faults->next(call);
}

Fault Faults::next(Call call) {
    while (counting_.test_and_set()) continue;
    calls_.push_back(call);
    const int after = static_cast<int>(calls_.size()) - nth_;
    counting_.clear();
    if (after < 0) return Fault::none;
    return after == 0 ? failure_.first : after == 1 ? failure_.second : failure_.rest;
}

}  // namespace support
