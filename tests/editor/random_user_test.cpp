// Somebody who does anything that can be done with the editor, in any order. After every step the window
// keeps its rules, no label is lost, and a set that counts as saved is what its file holds.
//
// STICH_RANDOM_STEPS and STICH_RANDOM_SEED say how many steps are made and how they are chosen; a failure
// tells the seed with which it comes again at once.
#include "random_user.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <deque>

#include "editor/set_io.h"

namespace {

namespace message = platform::message;

constexpr int sessionSteps = 2000;  // each session has a seed of its own
#ifdef _WIN32
constexpr int usualSteps = 150;  // real windows take their time
#else
constexpr int usualSteps = 8000;
#endif

int setting(const char* name, int otherwise) {
    const char* text = std::getenv(name);
    return text == nullptr ? otherwise : std::atoi(text);
}

/// What was done last, behind a line that tells the seed; told also when the program breaks down.
std::deque<std::string>& tape() {
    static std::deque<std::string> steps;
    return steps;
}
std::string told() {
    std::string all;
    for (const std::string& step : tape()) all += step + "\n  ";
    return all;
}

}  // namespace

void Person::note(const std::string& what) {
    constexpr std::size_t remembered = 40;
    tape().push_back(what);
    if (tape().size() > remembered) tape().erase(tape().begin() + 1);
}

Person::Person(int seed) : random(static_cast<unsigned>(seed)) {
    tape() = {"random user with STICH_RANDOM_SEED=" + std::to_string(seed) + ", at last:"};
    messagesBefore = platform::setMessageHandler([this](auto*, const auto& said) { return answer(said); });
    foldersBefore = platform::setFolderHandler([this](auto*, const auto&, const auto&) {
        const char* const folders[] = {"Quelle ä", "Picture\\A", "Picture\\B", "Umzug", ""};
        const std::string chosen = pick(folders);
        return chosen.empty() ? chosen : folder.file(chosen);
    });
    filesBefore = platform::setOpenFileHandler([this](auto*, const auto& request) {
        if (below(4) == 0) return request.fileName;
        return folder.file((below(3) > 0 ? "Umzug\\" : "Picture\\B\\") + request.fileName);
    });
    makeSet("A", {.pictures = 4, .regions = {"Kopf", "Fuß"}, .shownClass = 2});
    makeSet("B", {.pictures = 3, .classes = {"eins"}});
    makeSet("C",
            {.pictures = 2, .classes = {"1", "2", "3", "4", "5"}, .regions = {"oben", "Mitte", "unten"}});
    makeSet("leer", {.pictures = 0});
    writeSetFile("klassenlos",
                 "[Common]\r\nClasses=0\r\nROIs=1\r\nItems=1\r\n"
                 "[Items]\r\n1=Picture\\A\\bild1.bmp\r\n[ROI0]\r\n1=1\r\n");
    writeSetFile("kaputt", "[Common]\r\nClasses=1\r\nROIs=1\r\nItems=2000000000\r\n");
    const std::string picture = platform::files::read(folder.file("Picture\\A\\bild1.bmp"));
    for (const char* name : {"Quelle ä\\bild10.bmp", "Quelle ä\\Bild2.BMP", "Umzug\\bild9.bmp"})
        folder.write(name, picture);
    for (const char* name : {"Quelle ä\\kein Bild.JPG", "Quelle ä\\text.txt"}) folder.write(name, "x");
    start();
    expected = contentOf(window()).samples;
}

Person::~Person() {
    platform::setMessageHandler(messagesBefore);
    platform::setFolderHandler(foldersBefore);
    platform::setOpenFileHandler(filesBefore);
}

std::string Person::act(int count) {
    while (count-- > 0 && fault.empty()) {
        try {
            step();
            user::pump();
            check();
        } catch (const std::exception& problem) {
            fail(problem.what());
        }
    }
    return fault;
}

void Person::check() {
    const std::string broken = brokenRule(window());
    if (!broken.empty()) return fail("broken: " + broken);
    Content now = contentOf(window());
    checkSamples(now.samples);
    // What was read or saved just now is the set whose name is shown.
    if (window().unchanged() && now != saved) saved = stored(window().cboSets.text());
    if (window().unchanged() && now != saved) fail("the set counts as saved, but its file holds another one");
    expected = std::move(now.samples);
}

void Person::checkSamples(const std::vector<Content::Sample>& now) {
    const editor::OpenSet& set = window().set();
    if (now.size() < expected.size() && !removes) fail("a sample was lost");
    auto place = expected.begin();
    for (std::size_t i = 0; i < now.size(); ++i) {
        const int row = static_cast<int>(i + 1);
        if (i < expected.size()) {
            place = std::find(place, expected.end(), now[i]);
            if (place++ == expected.end()) return fail("the label of \"" + now[i].path + "\" was lost");
        } else if (!set.doubleSelection() && set.findSample(now[i].path) != row) {
            fail("a sample was added twice");
        } else {
            for (int region = 0; region <= set.regionCount(); ++region)
                if (set.classOf(row, region) != set.standardClass()) fail("a new sample has another class");
        }
    }
}

Content Person::stored(const std::string& name) {
    const editor::LoadedSet file = editor::readSet(setFile(name), folder.path());
    return contentOf(file.set, file.rectangles);
}

void Person::relabel(const std::string& from, const std::string& to) {
    for (Content::Sample& sample : expected)
        std::replace(sample.classes.begin(), sample.classes.end(), from, to);
}

int Person::answer(const platform::Message& said) {
    const auto isIt = [&](const char* beginning) { return said.text.starts_with(beginning); };
    // All that this user may be told; anything else is a failure that came to light.
    const char* const known[] = {"Sie haben keine", "Der Name \"", "Bezeichnung ist bereits",
                                 "Die Stichprobe ordnet", "Alle Elemente konnten"};
    const bool isQuestion = (said.codes & message::exclamation) == message::question;
    const bool isBroken = said.text.find("\\kaputt.kvs") != std::string::npos;
    if (!isQuestion && !isBroken && std::none_of(std::begin(known), std::end(known), isIt))
        fail("nobody should be told: " + said.text);
    if (isIt("Änderungen")) asked = true;
    const std::vector<int> answers[] = {{message::ok},
                                        {message::ok, message::cancel},
                                        {},
                                        {message::yes, message::no, message::cancel},
                                        {message::yes, message::no}};
    const auto& possible = answers[said.codes & 7];
    answered = possible.at(static_cast<std::size_t>(below(static_cast<int>(possible.size()))));
    note("  " + said.text + " " + std::to_string(answered));
    return answered;
}

// The dialog of the missing files.
void Person::atDialog(platform::Form& dialog) {
    const char* const buttons[] = {"btnSearch", "btnSearch", "btnSearch", "btnDel", "btnDel", "btnAbbr", ""};
    const std::string button = pick(buttons);
    note("  dialog: " + button);
    click(user::find<platform::ListView>(dialog, "ListView1"));
    if (button.empty())
        user::close(dialog);
    else
        user::press(user::find<platform::Button>(dialog, button));
}

TEST(RandomUser, KeepsTheRulesAndLosesNoLabel) {
    std::signal(SIGABRT, [](int) { std::fputs(told().c_str(), stderr); });
    const int count = setting("STICH_RANDOM_STEPS", usualSteps);
    int seed = setting("STICH_RANDOM_SEED", 1);
    for (int done = 0; done < count; done += sessionSteps, ++seed) {
        Person person(seed);
        const std::string fault = person.act(std::min(sessionSteps, count - done));
        ASSERT_TRUE(fault.empty()) << fault << '\n' << told();
    }
    std::signal(SIGABRT, SIG_DFL);
}

// The sanitizers call these before they end the program.
extern "C" void __asan_on_error() {
    std::fputs(told().c_str(), stderr);
}
extern "C" void __ubsan_on_report() {
    std::fputs(told().c_str(), stderr);
}
