#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

#include "editor/set_io.h"
#include "memory_file.h"
#include "model/kvTamSampleSet.h"
#include "model/set_file_findings.h"
#include "platform/document.h"
#include "platform/errors.h"

/// Arbitrary bytes as a set file, and arbitrary texts through a set file and back.
namespace {

using namespace model;
using platform::ProfileDocument;
using platform::RuntimeError;

void require(bool holds) {
    if (!holds) std::abort();
}

/// Every key must be found again where it stands, whatever short cuts there are.
void lookUpEverything(const ProfileDocument& document) {
    for (std::size_t s = 0; s < document.sectionCount(); ++s) {
        const auto& section = document.section(s);
        require(document.findSection(section.name()) == &section);
        for (std::size_t i = 0; i < section.size(); ++i) {
            const auto found = section.find(section.key(i));
            require(found && found->data() == section.value(i).data());
        }
    }
}

bool equal(const kvTamSampleSet& a, const kvTamSampleSet& b) {
    if (std::tuple(a.StdClass(), a.DoubleSelection(), a.kvtamSamples().Count(), a.kvtamClasses().Count(),
                   a.kvtamROIs().Count()) != std::tuple(b.StdClass(), b.DoubleSelection(),
                                                        b.kvtamSamples().Count(), b.kvtamClasses().Count(),
                                                        b.kvtamROIs().Count()))
        return false;
    for (std::int32_t i = 1; i <= a.kvtamSamples().Count(); ++i) {
        const kvTamSample &x = a.kvtamSamples().Item(i), &y = b.kvtamSamples().Item(i);
        if (std::tie(x.FileName(), x.ItemDescr) != std::tie(y.FileName(), y.ItemDescr)) return false;
        if (!x.ItemClasses.empty() && x.ItemClasses != y.ItemClasses) return false;
    }
    for (std::int32_t i = 1; i <= a.kvtamClasses().Count(); ++i) {
        const kvTamClass &x = a.kvtamClasses().Item(i), &y = b.kvtamClasses().Item(i);
        if (std::tie(x.Name, x.Description) != std::tie(y.Name, y.Description)) return false;
    }
    for (std::int32_t i = 1; i <= a.kvtamROIs().Count(); ++i) {
        const kvTamROI &x = a.kvtamROIs().Item(i), &y = b.kvtamROIs().Item(i);
        if (std::tie(x.Name, x.Description, x.X, x.Y, x.dX, x.dY, x.Z) !=
            std::tie(y.Name, y.Description, y.X, y.Y, y.dX, y.dY, y.Z))
            return false;
    }
    return true;
}

/// What was written must come back equal; what cannot be written must be refused.
void roundTrip(kvTamSampleSet& set) {
    std::string bytes;
    try {
        bytes = set.Write().bytes();
    } catch (const RuntimeError&) {
        return;
    }
    kvTamSampleSet again;
    again.Read(ProfileDocument::parse(bytes), "again");
    require(equal(set, again));
    require(again.Write().bytes() == bytes);
}

/// The editor reads sets on its own way; both ways must take the same files and find the same in them.
std::optional<editor::LoadedSet> byEditor(std::string_view bytes) {
    static const MemoryFile stored;
    stored.fill(bytes);
    try {
        return editor::readSet(stored.name(), "Z:\\none");
    } catch (const RuntimeError& error) {
        require(!error.description().empty());
        return std::nullopt;
    }
}

void compare(const editor::LoadedSet& loaded, const kvTamSampleSet& set) {
    require(loaded.set.sampleCount() == set.kvtamSamples().Count());
    require(loaded.set.classCount() == set.kvtamClasses().Count());
    require(loaded.set.regionCount() + 1 == std::max(1, set.kvtamROIs().Count()));
    for (int n = 1; n <= loaded.set.classCount(); ++n)
        require(loaded.set.classRow(n).name == set.kvtamClasses().Item(n).Name);
    if (loaded.strayAssignments > 0) return;  // put right by the editor only
    for (int n = 1; n <= loaded.set.sampleCount() && !set.kvtamSamples().Item(n).ItemClasses.empty(); ++n)
        for (int region = 0; region <= loaded.set.regionCount(); ++region)
            require(loaded.set.classOf(n, region) + 1 ==
                    set.kvtamSamples().Item(n).ItemClasses.at(static_cast<std::size_t>(region)));
}

void asFile(std::string_view bytes) {
    const auto loaded = byEditor(bytes);
    try {
        const auto document = ProfileDocument::parse(bytes);
        lookUpEverything(document);
        model::set_file::findings(document, "Z:\\none");
        kvTamSampleSet set;
        set.Read(document, "fuzz");
        if (loaded) compare(*loaded, set);
        roundTrip(set);
    } catch (const RuntimeError&) {
        // refused
    }
}

/// The bytes cut into texts at every 0x1F: one class, one region and one sample hold them.
void asTexts(std::string_view bytes) {
    const auto next = [&] {
        const std::string_view text = bytes.substr(0, bytes.find('\x1F'));
        bytes.remove_prefix(std::min(text.size() + 1, bytes.size()));
        return std::string(text);
    };
    kvTamSampleSet set;
    kvTamClass& entry = set.kvtamClasses().Add(next());
    entry.Description = next();
    kvTamROI& roi = set.kvtamROIs().Add();
    roi.Name = next();
    roi.Description = next();
    std::string fileName = next();
    set.kvtamSamples().Add(std::move(fileName), next()).ItemClasses = {-1};
    roundTrip(set);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    asFile(bytes);
    asTexts(bytes);
    return 0;
}
