#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "editor/frmStich.h"
#include "platform/files.h"
#include "platform/metrics.h"
#include "shell/mStichMain.h"
#include "tests/support/messages.h"
#include "tests/support/temp_folder.h"
#include "tests/support/user.h"

/// An editor of the test's own: its program directory is a temporary folder and its settings have a root of
/// their own.
class EditorTest : public testing::Test {
  protected:
    EditorTest();
    ~EditorTest() override;

    struct SetOf {
        int pictures = 3;
        std::vector<std::string> classes{"gut", "Riß", "Pore"};
        std::vector<std::string> regions{};  ///< beside the whole picture
        int shownClass = 1;                  ///< class number of every sample, from 1
    };
    /// Writes a set of small bitmaps ("bild1.bmp", ... in Picture\<name>) into TestSets; returns its path.
    std::string makeSet(const std::string& name, const SetOf& content);
    /// The same set file, by hand.
    std::string writeSetFile(const std::string& name, const std::string& text);

    /// Starts the program up to its window; false when it ended at once.
    bool start(const std::string& commandLine = {});
    editor::frmStich& window() { return *window_; }
    /// Closes the editor without asking and starts it again.
    void restart(const std::string& commandLine = {});
    /// The editor is gone without having been closed.
    void crash() { window_.reset(); }
    /// Lets the editor put on the disk what it keeps of changes that are not saved.
    void keep();
    int journals() const;  ///< how many there are on the disk

    void openByChooser(const std::string& name);
    void pressClass(int slot);  ///< from 0
    int current() { return window_->lvCItems.firstSelected(); }
    std::string classShown(int row) { return user::shown(window_->lvCItems, row, 1); }
    std::string stored(const std::string& set, const std::string& section, const std::string& key);
    std::string setFile(const std::string& set) const { return folder.file("TestSets\\" + set + ".kvs"); }
    std::string picture(const std::string& set, int number) const {
        return folder.file("Picture\\" + set + "\\bild" + std::to_string(number) + ".bmp");
    }
    std::string hint() { return window_->lblHint.caption(); }

    support::TempFolder folder;
    shell::Environment environment;
    platform::Registry registry;
    support::Messages messages;

  private:
    std::unique_ptr<editor::frmStich> window_;
};
