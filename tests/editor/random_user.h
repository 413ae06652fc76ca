#pragma once

#include <optional>
#include <random>

#include "editor_fixture.h"

/// What a set file keeps of a set. Samples have their classes by name, so that a label is the same label
/// however classes are numbered.
struct Content {
    struct Sample {
        std::string path;
        std::vector<std::string> classes;  ///< one for each region, the whole picture first
        friend bool operator==(const Sample&, const Sample&) = default;
    };
    std::vector<std::string> classes, regions;  ///< each with all that belongs to it
    int standardClass = 0;
    bool doubleSelection = false;
    std::vector<Sample> samples;
    friend bool operator==(const Content&, const Content&) = default;
};

Content contentOf(const editor::OpenSet& set, const std::vector<editor::RegionRect>& rectangles);
Content contentOf(const editor::frmStich& window);

/// The first rule that what the window shows and holds does not keep; empty when it keeps all.
std::string brokenRule(editor::frmStich& window);

/// Somebody who does anything that can be done with the editor, in any order, with folders and a window of
/// his own. Labels that he gives he remembers.
struct Person : EditorTest {
    explicit Person(int seed);
    ~Person() override;
    void TestBody() override {}

    /// What went wrong first in so many steps; empty when nothing did.
    std::string act(int steps);
    void step();
    void check();
    void checkSamples(const std::vector<Content::Sample>& now);
    virtual int answer(const platform::Message& said);
    virtual void atDialog(platform::Form& dialog);

    int below(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }
    template <class Word, std::size_t N>
    Word pick(Word const (&words)[N]) {
        return words[below(N)];
    }
    void fail(const std::string& what) {
        if (fault.empty()) fault = what;
    }
    /// Remembers what was done last.
    static void note(const std::string& what);
    Content stored(const std::string& name);
    bool wouldLose() { return !expected.empty() && contentOf(window()) != saved; }
    /// Does what may take the set from the window: nothing is lost without a question.
    template <class Act>
    void leave(bool mayAsk, Act leaving);
    void relabel(const std::string& from, const std::string& to);

    // How things are done.
    void turnTo(const platform::Control& control);
    void click(platform::ListView& list, bool twice = false);
    void strike(platform::ListView& list, int key);
    void press(platform::Button& button);
    void type(platform::TextBox& box, const std::string& text);
    void choose(platform::ComboBox& box);
    void nameIfAsked(platform::ListView& list);

    // What is done, in any order; what is done in one line stands in the table of it all.
    void newClass();
    void deleteClass(bool byKey);
    void makeStandard();
    void newRegion();
    void deleteRegion(bool byKey);
    void drag();
    void pressAClass();
    void chooseSet();
    void movePicture();
    void close();
    void open(const std::string& name);

    std::mt19937 random;
    user::ModalUser dialogs{[this](platform::Form& dialog) { atDialog(dialog); }};
    platform::MessageHandler messagesBefore;
    platform::FolderHandler foldersBefore;
    platform::OpenFileHandler filesBefore;
    std::vector<Content::Sample> expected;  // what the samples should be, those that are left
    std::optional<Content> saved;           // what the file of the open set holds
    std::string fault;
    int answered = 0;      // to the last message
    bool asked = false;    // whether changes are to be saved
    bool removes = false;  // whether this step may take samples away
};
