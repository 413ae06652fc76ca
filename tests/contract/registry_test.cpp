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

TEST_F(OwnRegistry, AnswersWhatWasWrittenWhateverTheCase) {
    const char* const entries[][3] = {{"", "DataPath", "C:\\Veltor Daten"},
                                      {"Stich", "DataPath", "im Abschnitt"},
                                      {"Stich", "Größe", "groß, größer 😀"},
                                      {"Error", "Window", ""}};
    for (const auto& [section, key, value] : entries) registry.write(section, key, value);
    const Registry again(root);
    for (const auto& [section, key, value] : entries) EXPECT_EQ(again.read(section, key), value) << key;
    for (const char* section : {"", "Stich", "Fehlt"}) EXPECT_EQ(again.read(section, "Window"), std::nullopt);
    registry.write("STICH", "datapath", "neu");
    EXPECT_EQ(registry.read("Stich", "DATAPATH"), "neu");
}

TEST_F(OwnRegistry, IsRemovedWholeAndAlone) {
    Registry neighbour(std::string(root) + " neighbour");
    neighbour.write("Stich", "Interval", "1");
    for (int i = 0; i < 2; ++i) {  // it can be written again
        registry.write("Stich", "Interval", "2");
        registry.write("", "DataPath", "x");
        EXPECT_EQ(registry.read("", "DataPath"), "x");
        registry.removeAll();
        EXPECT_EQ(registry.read("Stich", "Interval"), std::nullopt);
        EXPECT_EQ(registry.read("", "DataPath"), std::nullopt);
    }
    EXPECT_EQ(neighbour.read("Stich", "Interval"), "1");
    neighbour.removeAll();
}

}  // namespace
