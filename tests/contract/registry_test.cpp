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

}  // namespace
