#include <algorithm>
#include <optional>
#include <sstream>

#include "editor/set_io.h"
#include "fuzz.h"
#include "model/kvTamSampleSet.h"
#include "model/set_file_findings.h"
#include "platform/document.h"
#include "platform/errors.h"

/// Arbitrary bytes as a set file, and arbitrary texts through a set file and back.
namespace {

using namespace model;
using platform::ProfileDocument;
using platform::RuntimeError;

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

/// What a set holds beside the classes of its samples, which need not be there before they are written.
std::string contentOf(const kvTamSampleSet& set) {
    std::ostringstream text;
    const auto add = [&text](const auto&... parts) { ((text << parts << '\x1E'), ...); };
    add(set.StdClass(), set.DoubleSelection());
    for (const kvTamClass& entry : set.kvtamClasses()) add(entry.Name, entry.Description);
    for (const kvTamROI& r : set.kvtamROIs()) add(r.Name, r.Description, r.X, r.Y, r.dX, r.dY, r.Z);
    for (const kvTamSample& sample : set.kvtamSamples()) add(sample.FileName(), sample.ItemDescr);
    return text.str();
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
    require(contentOf(set) == contentOf(again));
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
