#include "shell/settings.h"

#include <optional>
#include <variant>

#include "platform/errors.h"
#include "platform/text.h"

namespace shell {

namespace {

constexpr const char* section = "Stich";

struct Setting {
    const char* key;
    std::variant<int EditorSettings::*, std::string EditorSettings::*> member;
};

// "SaveSatus" is spelled so in every user's settings.
constexpr Setting settingTable[] = {
    {"Interval", &EditorSettings::interval},   {"PathROI", &EditorSettings::pathROI},
    {"SaveSatus", &EditorSettings::saveSatus}, {"Bar2", &EditorSettings::bar2},
    {"Bar3", &EditorSettings::bar3},           {"Window", &EditorSettings::window},
    {"Stretch", &EditorSettings::stretch},
};
constexpr const char* listKeys[] = {"ListView1", "ListView2", "lvROIs", "lvCClasses", "lvCItems"};

}  // namespace

std::vector<std::string> ReadProp(platform::Registry& registry, EditorSettings& settings) {
    std::vector<std::string> problems;
    for (const Setting& setting : settingTable) {
        const auto stored = registry.read(section, setting.key);
        if (!stored) continue;
        if (const auto* text = std::get_if<std::string EditorSettings::*>(&setting.member)) {
            settings.*(*text) = *stored;
        } else if (const auto number = platform::text::parseInt32(*stored)) {
            settings.*std::get<int EditorSettings::*>(setting.member) = *number;
        } else {
            problems.push_back("Die Einstellung \"" + std::string(setting.key) + "\" ist keine Zahl (\"" +
                               *stored + "\"). Es gilt die Vorgabe.");
        }
    }
    for (std::size_t i = 0; i < settings.lists.size(); ++i) {
        if (auto stored = registry.read(section, listKeys[i])) settings.lists[i] = std::move(*stored);
    }
    return problems;
}

void writeValues(platform::Registry& registry, const std::string& place, const Values& values) {
    std::optional<platform::RuntimeError> refusal;
    for (const auto& [key, text] : values) {
        try {
            registry.write(place, key, text);
        } catch (const platform::RuntimeError& error) {
            if (!refusal) refusal = error;
        }
    }
    if (refusal) throw platform::RuntimeError(*refusal);
}

void WriteProp(platform::Registry& registry, const EditorSettings& settings) {
    Values values;
    for (const Setting& setting : settingTable) {
        if (const auto* text = std::get_if<std::string EditorSettings::*>(&setting.member)) {
            values.emplace_back(setting.key, settings.*(*text));
        } else {
            values.emplace_back(setting.key,
                                std::to_string(settings.*std::get<int EditorSettings::*>(setting.member)));
        }
    }
    for (std::size_t i = 0; i < settings.lists.size(); ++i)
        values.emplace_back(listKeys[i], settings.lists[i]);
    writeValues(registry, section, values);
}

}  // namespace shell
