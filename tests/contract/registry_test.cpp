#include "platform/registry.h"

#include <gtest/gtest.h>

namespace {

using platform::Registry;

/// A place of the test's own, empty at first and in the end.
struct OwnRegistry : testing::Test {
    static constexpr const char* root = "Software\\Veltor2 contract test";
    Registry registry{root};
    OwnRegistry() { registry.removeAll(); }
    ~OwnRegistry() override { registry.removeAll(); }
};

TEST_F(OwnRegistry, AnswersWhatWasWritten) {
    const struct {
        const char *section, *key, *value;
    } entries[] = {{"", "DataPath", "C:\\Veltor Daten"},
                   {"Stich", "DataPath", "im Abschnitt"},
                   {"Stich", "Interval", "2500"},
                   {"Stich", "Größe", "groß, größer 😀"},
                   {"Error", "Window", ""}};
    for (const auto& [section, key, value] : entries) registry.write(section, key, value);
    const Registry again(root);
    for (const auto& [section, key, value] : entries) EXPECT_EQ(again.read(section, key), value) << key;
    EXPECT_EQ(again.read("Stich", "Window"), std::nullopt);
    EXPECT_EQ(again.read("Fehlt", "Window"), std::nullopt);
    EXPECT_EQ(again.read("", "Interval"), std::nullopt);
}

TEST_F(OwnRegistry, IgnoresCaseAndReplacesValues) {
    registry.write("Stich", "Interval", "100");
    registry.write("STICH", "interval", "200");
    EXPECT_EQ(registry.read("stich", "INTERVAL"), "200");
}

TEST_F(OwnRegistry, IsRemovedWholeAndAlone) {
    Registry neighbour(std::string(root) + " neighbour");
    neighbour.write("Stich", "Interval", "1");
    registry.write("Stich", "Interval", "2");
    registry.write("", "DataPath", "x");
    registry.removeAll();
    EXPECT_EQ(registry.read("Stich", "Interval"), std::nullopt);
    EXPECT_EQ(registry.read("", "DataPath"), std::nullopt);
    EXPECT_EQ(neighbour.read("Stich", "Interval"), "1");
    registry.removeAll();
    registry.write("", "DataPath", "y");
    EXPECT_EQ(registry.read("", "DataPath"), "y") << "it can be written again";
    neighbour.removeAll();
}

}  // namespace
