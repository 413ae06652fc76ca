#include "model/set_file_checks.h"

#include <limits>

#include "model/set_file_names.h"
#include "platform/text.h"

namespace model::set_file {

namespace {

using platform::RuntimeError;

struct Limit {
    std::string_view key;
    std::string_view text;
    std::int32_t most;
    std::int32_t Counts::*count;
};

std::string tooMany(std::string_view key, std::int32_t count) {
    return place(commonSection, key) + ": Die Anzahl " + std::to_string(count) + " ist nicht möglich.";
}

Counts checkedCounts(const CountTexts& texts, std::size_t lines, std::string_view fileName) {
    Counts counts;
    const std::vector<std::string> problems = countProblems(texts, lines, counts);
    if (!problems.empty()) throw refusal(fileName, problems.front());
    return counts;
}

}  // namespace

std::string place(std::string_view section, std::string_view key) {
    return "Abschnitt [" + std::string(section) + "], Eintrag \"" + std::string(key) + "\"";
}

std::string numberProblem(std::string_view value, std::string_view section, std::string_view key) {
    if (platform::text::parseInt32(value)) return {};
    if (value.empty()) return place(section, key) + ": Die Zahl fehlt.";
    try {
        platform::text::toInt32(value, place(section, key));
    } catch (const RuntimeError& problem) {
        return problem.description();
    }
    return {};
}

std::string edgeProblem(std::int32_t start, std::int32_t length, std::string_view section,
                        std::string_view key) {
    const std::int64_t edge = std::int64_t{start} + length;
    if (edge >= std::numeric_limits<std::int32_t>::min() && edge <= std::numeric_limits<std::int32_t>::max())
        return {};
    return place(section, key) + ": Der Bereich reicht über alle Zahlen hinaus.";
}

std::vector<std::string> countProblems(const CountTexts& texts, std::size_t lines, Counts& counts) {
    const auto most = static_cast<std::int32_t>(std::min<std::size_t>(lines, 0x7FFFFFFF));
    const Limit limits[] = {{classesKey, texts.classes, mostClasses, &Counts::classes},
                            {roisKey, texts.rois, most, &Counts::rois},
                            {itemsKey, texts.items, most, &Counts::items}};
    std::vector<std::string> problems;
    for (const Limit& limit : limits) {
        std::string problem = numberProblem(limit.text, commonSection, limit.key);
        const std::int32_t count = platform::text::parseInt32(limit.text).value_or(0);
        if (problem.empty() && (count < 0 || count > limit.most)) problem = tooMany(limit.key, count);
        if (problem.empty())
            counts.*limit.count = count;
        else
            problems.push_back(std::move(problem));
    }
    if (counts.items > 0 && std::int64_t{counts.items} * counts.rois > most)
        problems.push_back(tooMany(itemsKey, counts.items));
    return problems;
}

RuntimeError refusal(std::string_view fileName, const std::string& problem) {
    return {platform::error::typeMismatch,
            "Die Datei \"" + std::string(fileName) + "\" ist keine gültige Stichprobe. " + problem};
}

Counts readCounts(const platform::ProfileDocument& document, std::string_view fileName) {
    const auto* common = document.findSection(commonSection);
    const auto text = [&](std::string_view key) {
        return common == nullptr ? std::string_view() : common->find(key).value_or(std::string_view());
    };
    return checkedCounts({text(classesKey), text(roisKey), text(itemsKey)}, document.lineCount(), fileName);
}

Counts readCounts(platform::ProfileFile& file, std::string_view fileName) {
    const auto text = [&](std::string_view key) { return file.peek(commonSection, key, {}); };
    return checkedCounts({text(classesKey), text(roisKey), text(itemsKey)}, file.lineCount(), fileName);
}

std::int32_t numberAt(std::string_view value, std::string_view section, std::string_view key,
                      std::string_view fileName) {
    if (const auto number = platform::text::parseInt32(value)) return *number;
    throw refusal(fileName, numberProblem(value, section, key));
}

}  // namespace model::set_file
