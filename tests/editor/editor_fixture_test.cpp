#include "tests/editor/editor_fixture.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "model/kvTamSampleSet.h"
#include "platform/application.h"
#include "platform/document.h"
#include "platform/path.h"
#include "tests/support/pictures.h"

namespace {

constexpr const char* testRoot = "Software\\Veltor2 Test";

}  // namespace

EditorTest::EditorTest()
    : environment{.programDirectory = folder.path(),
                  .registryRoot = testRoot,
                  .journalDirectory = folder.file("Journal")},
      registry(testRoot) {
    registry.removeAll();
    platform::files::createDirectories(folder.file("TestSets"));
    platform::files::createDirectories(folder.file("Picture"));
}

EditorTest::~EditorTest() {
    if (window_) {
        window_->btnAbbr.onClick();
        window_.reset();
    }
    registry.removeAll();
}

std::string EditorTest::makeSet(const std::string& name, const SetOf& content) {
    model::kvTamSampleSet set;
    set.AppPath(folder.path());
    for (const auto& className : content.classes) set.kvtamClasses().Add(className, "");
    set.kvtamROIs().Add("").Name = "(gesamtes Bild)";
    int offset = 0;
    for (const auto& region : content.regions) {
        auto& record = set.kvtamROIs().Add("");
        record.Name = region;
        record.X = ++offset;
        record.Y = 2 * offset;
        record.dX = 3;
        record.dY = 2;
    }
    for (int i = 1; i <= content.pictures; ++i) {
        const std::string file = "Picture\\" + name + "\\bild" + std::to_string(i) + ".bmp";
        folder.write(file, support::trueColourBitmap({8 + i, 6}, support::distinctColour));
        auto& sample = set.kvtamSamples().Add(folder.file(file), "", "");
        sample.ItemClasses.assign(content.regions.size() + 1, content.shownClass);
    }
    const std::string path = folder.file("TestSets\\" + name + ".kvs");
    EXPECT_TRUE(set.Save(path));
    return path;
}

std::string EditorTest::writeSetFile(const std::string& name, const std::string& text) {
    return folder.write("TestSets\\" + name + ".kvs", text);
}

bool EditorTest::start(const std::string& commandLine) {
    window_ = std::make_unique<editor::frmStich>(environment);
    return shell::start(*window_, environment, commandLine);
}

void EditorTest::restart(const std::string& commandLine) {
    window_->btnAbbr.onClick();
    window_.reset();
    start(commandLine);
}

void EditorTest::keep() {
    user::tick(window_->Timer4);
    while (window_->journal().isWriting()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

int EditorTest::journals() const {
    if (!platform::files::directoryExists(environment.journalDirectory)) return 0;
    const auto files = platform::files::list(environment.journalDirectory);
    return static_cast<int>(std::count_if(files.begin(), files.end(), [](const auto& file) {
        return platform::path::extension(file.name) == ".log";
    }));
}

void EditorTest::openByChooser(const std::string& name) {
    for (int i = 0; i < window_->cboSets.count(); ++i) {
        if (window_->cboSets.item(i) == name) return user::choose(window_->cboSets, i);
    }
    FAIL() << "no set of this name: " << name;
}

void EditorTest::pressClass(int slot) {
    user::press(user::find<platform::Button>(window_->form, "Command1(" + std::to_string(slot) + ")"));
}

std::string EditorTest::stored(const std::string& set, const std::string& section, const std::string& key) {
    const auto document = platform::ProfileDocument::load(folder.file("TestSets\\" + set + ".kvs"));
    const auto* found = document.findSection(section);
    return found == nullptr ? "(no section)" : std::string(found->find(key).value_or("(absent)"));
}
