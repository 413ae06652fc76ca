#pragma once

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <string>
#include <vector>

#include "platform/file_calls.h"

namespace support {

using platform::files::Call;
using platform::files::Fault;

/// A way in which disks, shares and power supplies fail: what becomes of one call, the next one and all that
/// follow.
struct Failure {
    const char* name;
    Fault first, second, rest;

    bool lasts() const { return rest != Fault::none; }
    /// Nobody can clean up after it, or knows that there is anything.
    bool leavesTemporary() const { return lasts() || first == Fault::replyLost; }
};
inline constexpr std::array<Failure, 7> failures{{
    {"no space", Fault::noSpace, Fault::none, Fault::none},
    {"no space in the middle", Fault::cutShort, Fault::noSpace, Fault::none},
    {"denied", Fault::accessDenied, Fault::none, Fault::none},
    {"denied from then on", Fault::accessDenied, Fault::accessDenied, Fault::accessDenied},
    {"network gone", Fault::networkGone, Fault::networkGone, Fault::networkGone},
    {"answer lost", Fault::replyLost, Fault::none, Fault::none},
    {"crash", Fault::crash, Fault::crash, Fault::crash},
}};
inline constexpr Failure nothing{"", Fault::none, Fault::none, Fault::none};

/// As long as it lives the calls that change files and settings, on whatever thread, fail from the `nth` on
/// (from 1), and after that no more.
class Faults {
  public:
    explicit Faults(const Failure& failure, int nth = 1);
    ~Faults();
    Faults(const Faults&) = delete;
    Faults& operator=(const Faults&) = delete;

    /// Lets those calls fail that read, instead.
    Faults& inReading();
    /// Whether there were so many.
    bool met() const { return static_cast<int>(calls_.size()) >= nth_; }
    /// All that were made or should have been.
    const std::vector<Call>& calls() const { return calls_; }

  private:
    static Fault at(Call call);
    Fault next(Call call);

    Failure failure_;
    int nth_;
    bool reading_ = false;
    std::atomic_flag counting_;
    std::vector<Call> calls_;
};

/// Acts once for each way to fail and each call that can; `act` says by its last argument whether there were
/// so many calls. There are more than `least`.
template <class Ways, class Act>
void withEach(const Ways& ways, int least, Act act) {
    for (const Failure& failure : ways) {
        bool met = true;
        for (int n = 1; met && !testing::Test::HasFatalFailure(); ++n) {
            SCOPED_TRACE(std::string(failure.name) + " at call " + std::to_string(n));
            act(failure, n, met);
            EXPECT_TRUE(met || n > least);
        }
    }
}

}  // namespace support
