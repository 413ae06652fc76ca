// A sample set that is saved while the disk, the network or the power fails at any single call.
#include <gtest/gtest.h>

#include "model/kvTamSampleSet.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "tests/support/error_of.h"
#include "tests/support/faults.h"
#include "tests/support/temp_folder.h"

namespace {

model::kvTamSampleSet setOf(int classes) {
    model::kvTamSampleSet set;
    for (int i = 0; i < classes; ++i) set.kvtamClasses().Add("Klasse", "");
    return set;
}

TEST(SampleSetFaults, AFileIsMissingOldOrNewAndASecondTrySucceeds) {
    for (const bool isThere : {false, true}) {
        for (const support::Failure& failure : support::failures) {
            bool met = true;
            for (int n = 1; met; ++n) {
                SCOPED_TRACE(std::string(failure.name) + " at call " + std::to_string(n));
                const support::TempFolder folder;
                const std::string file = folder.file("neu\\Probe.kvs");
                if (isThere) setOf(1).Save(file);
                model::kvTamSampleSet set = setOf(2);
                bool saved = false;
                platform::RuntimeError error{0, {}};
                {
                    const support::Faults faults(failure, n);
                    error = support::errorOf([&] { saved = set.Save(file); });
                    met = faults.met();
                }
                EXPECT_NE(saved, error.number() == platform::error::fileError);
                model::kvTamSampleSet found;
                if (found.Load(file)) {
                    EXPECT_TRUE(found.kvtamClasses().Count() == 2 ||
                                (found.kvtamClasses().Count() == 1 && !saved));
                } else {
                    EXPECT_TRUE(!isThere && !saved);
                }
                EXPECT_TRUE(set.Save({}) && found.Load(file));
                EXPECT_EQ(found.kvtamClasses().Count(), 2);
            }
        }
    }
}

}  // namespace
