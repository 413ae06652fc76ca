#include "model/set_file_findings.h"

#include <algorithm>
#include <initializer_list>
#include <unordered_map>

#include "model/set_file_checks.h"
#include "model/set_file_names.h"
#include "platform/files.h"
#include "platform/path.h"
#include "platform/text.h"

namespace model::set_file {

namespace {

namespace path = platform::path;
namespace text = platform::text;
using Document = platform::ProfileDocument;
using Section = Document::Section;

/// The number behind the prefix of a section's name, or that of a key (no prefix); -1 when it is none.
std::int32_t numberBehind(std::string_view prefix, std::string_view name) {
    if (!text::equalNoCase(name.substr(0, prefix.size()), prefix)) return -1;
    const auto number = text::parseInt32(name.substr(prefix.size()));
    const bool plain = number && std::to_string(*number) == name.substr(prefix.size());
    return plain ? *number : -1;
}

/// Which pictures exist, asked once for each directory.
class Pictures {
  public:
    bool contain(const std::string& picture) {
        const std::string directory = path::directory(picture);
        auto known = directories_.find(directory);
        if (known == directories_.end())
            known = directories_.emplace(directory, platform::files::foldedFileNames(directory)).first;
        return std::binary_search(known->second.begin(), known->second.end(),
                                  text::foldCase(path::fileName(picture)));
    }

  private:
    std::unordered_map<std::string, std::vector<std::string>> directories_;
};

class Inspector {
  public:
    Inspector(const Document& document, std::string_view appPath) : document_(document), appPath_(appPath) {}

    std::vector<std::string> run() {
        inspectCommon();
        for (std::int32_t n = 1; n <= counts_.classes; ++n)
            if (const Section* section = expect(classSection(n)))
                onlyTheseKeys(*section, {nameKey, descriptionKey}, 0);
        for (std::int32_t n = 0; n < counts_.rois; ++n)
            if (const Section* section = expect(regionSection(n))) inspectRegion(*section, n);
        if (counts_.items > 0 || document_.findSection(itemsSection) != nullptr) inspectItems();
        if (counts_.items > 0 || document_.findSection(itemDescrSection) != nullptr)
            if (const Section* section = expect(std::string(itemDescrSection)))
                inspectNumbering(*section, {});
        for (std::size_t i = 0; i < document_.sectionCount(); ++i)
            if (!isExpected(document_.section(i).name()))
                say("Abschnitt [" + document_.section(i).name() + "] ist überzählig.");
        return std::move(found_);
    }

  private:
    using Keys = std::initializer_list<std::string_view>;

    void say(std::string finding) { found_.push_back(std::move(finding)); }
    void say(const Section& section, std::string_view key, const std::string& finding) {
        say(place(section.name(), key) + ": " + finding);
    }

    /// Null, and a finding, when there is no such section.
    const Section* expect(const std::string& name) {
        const Section* section = document_.findSection(name);
        if (section == nullptr) say("Abschnitt [" + name + "] fehlt.");
        return section;
    }

    bool isExpected(const std::string& name) const {
        const auto is = [&](std::string_view known) { return text::equalNoCase(name, known); };
        if (is(commonSection) || is(itemsSection) || is(itemDescrSection)) return true;
        const std::int32_t classNumber = numberBehind(classPrefix, name);
        const std::int32_t region = numberBehind(regionPrefix, name);
        return (classNumber >= 1 && classNumber <= counts_.classes) || (region >= 0 && region < counts_.rois);
    }

    static std::string_view value(const Section& section, std::string_view key) {
        return section.find(key).value_or(std::string_view());
    }

    void inspectCommon() {
        const Section* common = expect(std::string(commonSection));
        static const Section absent;
        const Section& section = common == nullptr ? absent : *common;
        constexpr Counts unknown{-1, -1, -1};
        counts_ = unknown;
        for (std::string& problem :
             countProblems({value(section, classesKey), value(section, roisKey), value(section, itemsKey)},
                           document_.lineCount(), counts_))
            say(std::move(problem));
        if (counts_.classes < 0) counts_.classes = numberedSections(classPrefix);
        if (counts_.rois < 0) counts_.rois = numberedSections(regionPrefix);
        if (counts_.items < 0) counts_.items = numberedItems();
        inspectNumber(section, doubleSelectionKey, true);
        if (inspectNumber(section, stdClassKey, true)) inspectClass(section, stdClassKey);
        onlyTheseKeys(section, {classesKey, stdClassKey, roisKey, itemsKey, doubleSelectionKey}, 0);
    }

    // What takes the place of a count that is no number.
    std::int32_t numberedSections(std::string_view prefix) const {
        std::int32_t count = 0;
        for (std::size_t i = 0; i < document_.sectionCount(); ++i)
            if (numberBehind(prefix, document_.section(i).name()) >= 0) ++count;
        return count;
    }
    std::int32_t numberedItems() const {
        const Section* section = document_.findSection(itemsSection);
        return section == nullptr ? 0 : static_cast<std::int32_t>(section->size());
    }

    /// Whether the key holds a number; an absent one is a finding unless it is optional.
    bool inspectNumber(const Section& section, std::string_view key, bool optional) {
        const std::string_view number = value(section, key);
        if (number.empty() && optional) return false;
        std::string problem = numberProblem(number, section.name(), key);
        if (problem.empty()) return true;
        say(std::move(problem));
        return false;
    }

    /// A set without classes may still name a standard class.
    void inspectClass(const Section& section, std::string_view key) {
        const std::int32_t number = text::parseInt32(value(section, key)).value_or(0);
        const bool possible = number >= 1 && number <= std::max(counts_.classes, defaultStdClass);
        if (!possible) say(section, key, "Die Klasse " + std::to_string(number) + " gibt es nicht.");
    }

    void inspectEdge(const Section& section, std::string_view startKey, std::string_view lengthKey) {
        const auto start = text::parseInt32(value(section, startKey));
        const auto length = text::parseInt32(value(section, lengthKey));
        if (!start || !length) return;
        std::string problem = edgeProblem(*start, *length, section.name(), lengthKey);
        if (!problem.empty()) say(std::move(problem));
    }

    void inspectRegion(const Section& section, std::int32_t n) {
        for (const std::string_view key : {xKey, yKey, dxKey, dyKey}) inspectNumber(section, key, n == 0);
        inspectEdge(section, xKey, dxKey);
        inspectEdge(section, yKey, dyKey);
        inspectNumber(section, zKey, true);
        inspectNumbering(section, {nameKey, descriptionKey, xKey, yKey, dxKey, dyKey, zKey});
        for (std::size_t i = 0; i < section.size(); ++i) {
            const std::int32_t sample = numberBehind({}, section.key(i));
            if (sample < 1 || sample > counts_.items) continue;
            if (inspectNumber(section, section.key(i), false)) inspectClass(section, section.key(i));
        }
    }

    void inspectItems() {
        const Section* section = expect(std::string(itemsSection));
        if (section == nullptr) return;
        inspectNumbering(*section, {});
        Pictures pictures;
        for (std::size_t i = 0; i < section->size(); ++i) {
            const std::string_view stored = section->value(i);
            if (stored.empty())
                say(*section, section->key(i), "Der Dateiname fehlt.");
            else if (const std::string picture = path::resolve(stored, appPath_); !pictures.contain(picture))
                say(*section, section->key(i), "Das Bild \"" + picture + "\" ist nicht vorhanden.");
        }
    }

    /// The keys 1 to the number of samples, and `others`, and no more. Neighbours that are missing make one
    /// finding.
    void inspectNumbering(const Section& section, Keys others) {
        std::vector<std::int32_t> present;
        for (std::size_t i = 0; i < section.size(); ++i) {
            const std::int32_t number = numberBehind({}, section.key(i));
            if (number >= 1 && number <= counts_.items) present.push_back(number);
        }
        std::sort(present.begin(), present.end());
        present.push_back(counts_.items + 1);
        std::int32_t expected = 1;
        for (const std::int32_t number : present) {
            if (number > expected) sayMissing(section, expected, number - 1);
            expected = number + 1;
        }
        onlyTheseKeys(section, others, counts_.items);
    }

    void sayMissing(const Section& section, std::int32_t first, std::int32_t last) {
        const std::string key = std::to_string(first);
        say(section, key,
            first == last ? "Der Eintrag fehlt."
                          : "Dieser und die folgenden Einträge bis \"" + std::to_string(last) + "\" fehlen.");
    }

    void onlyTheseKeys(const Section& section, Keys known, std::int32_t numbers) {
        for (std::size_t i = 0; i < section.size(); ++i) {
            const std::string_view key = section.key(i);
            const std::int32_t number = numberBehind({}, key);
            const bool numbered = number >= 1 && number <= numbers;
            const auto isKey = [&](std::string_view other) { return text::equalNoCase(key, other); };
            if (!numbered && std::none_of(known.begin(), known.end(), isKey))
                say(section, key, "Der Eintrag ist überzählig.");
        }
    }

    const Document& document_;
    std::string_view appPath_;
    Counts counts_;
    std::vector<std::string> found_;
};

}  // namespace

std::vector<std::string> findings(const Document& document, std::string_view appPath) {
    return Inspector(document, appPath).run();
}

}  // namespace model::set_file
