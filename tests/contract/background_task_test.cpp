#include "platform/background_task.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

namespace {

using platform::BackgroundTask;

constexpr int soonEnough = 60'000;  // in milliseconds, on any machine

void nap() {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

TEST(BackgroundTask, EveryOneEndsAndTellsItsFailure) {
    int told = 0;
    for (int i = 0; i < 400; ++i) {
        BackgroundTask task([i](BackgroundTask::Progress& progress) {
            progress.done = i;
            if (i % 2) throw std::runtime_error(std::to_string(i));
        });
        try {
            ASSERT_TRUE(task.wait(soonEnough)) << "task " << i << " never ran";
        } catch (const std::runtime_error& failure) {
            told += failure.what() == std::to_string(i);
        }
        EXPECT_EQ(task.progress().done, i);
        EXPECT_TRUE(task.wait(0)) << "a failure is told once";
    }
    EXPECT_EQ(told, 200);
}

TEST(BackgroundTask, IsToldToStopWhenNobodyWaitsAndOwnsWhatItTouches) {
    const auto owned = std::make_shared<std::atomic<bool>>(false);
    const auto stopped = std::make_shared<std::atomic<bool>>(false);
    {
        BackgroundTask task([owned, stopped](BackgroundTask::Progress& progress) {
            while (!progress.cancelled) nap();
            *stopped = true;
        });
        EXPECT_FALSE(task.wait(20));
    }
    for (int patience = soonEnough; patience > 0 && owned.use_count() > 1; --patience) nap();
    EXPECT_TRUE(*stopped);
    EXPECT_EQ(owned.use_count(), 1) << "given back when the work has ended";
}

}  // namespace
