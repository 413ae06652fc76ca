#include <atomic>

#include "editor_fixture.h"
#include "platform/file_calls.h"
#include "shell/data_directory.h"
#include "shell/settings.h"

namespace {

namespace message = platform::message;

class StartUp : public EditorTest {};

TEST_F(StartUp, DataDirectoryFollowsTheSettingsAndFallsBack) {
    platform::files::createDirectories(folder.file("Daten"));
    const struct {
        const char* choice;
        std::string custom;
        std::string directory;
        const char* choiceAfterwards;
    } cases[] = {
        {"0", folder.file("Daten"), folder.path(), "0"},
        {"1", folder.file("Daten"), folder.file("Daten"), "1"},
        {"1", " " + folder.file("Daten") + "\\ ", folder.file("Daten"), "1"},
        {"1", folder.file("nirgends"), folder.path(), "0"},
        {"7", folder.file("Daten"), folder.path(), "0"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.choice) + " " + c.custom);
        registry.write("", "DataPath", c.choice);
        registry.write("", "DataPathCustom", c.custom);
        EXPECT_EQ(shell::dataDirectory(registry, environment), c.directory);
        EXPECT_EQ(registry.read("", "DataPath"), c.choiceAfterwards);
    }
}

TEST_F(StartUp, AnIncompleteDataDirectoryGivesWayAndTheSetsDirectoryIsMade) {
    platform::files::createDirectories(folder.file("Daten\\TestSets"));
    platform::files::createDirectories(folder.file("Programm"));
    environment.programDirectory = folder.file("Programm");
    registry.write("", "DataPath", "1");
    registry.write("", "DataPathCustom", folder.file("Daten"));
    const auto directories = shell::workingDirectories(registry, environment);
    EXPECT_EQ(directories.sets, folder.file("Programm\\TestSets\\"));
    EXPECT_EQ(directories.pictures, folder.file("Programm\\Picture\\"));
    EXPECT_EQ(registry.read("", "DataPath"), "0");
    start();
    EXPECT_TRUE(platform::files::directoryExists(folder.file("Programm\\TestSets")));
}

TEST_F(StartUp, TheWindowIsSeenBeforeAnythingIsRead) {
    using platform::files::Call;
    static const platform::Form* watched;
    static std::atomic<int> early, late;
    const std::string set = makeSet("A", {});
    editor::frmStich w(environment);
    watched = &w.form;
    platform::files::faultWatcher = [](Call call) {
        if (call <= Call::list) ++(watched->visible() ? late : early);
        return platform::files::Fault::none;
    };
    shell::start(w, environment, set);
    platform::files::faultWatcher = nullptr;
    EXPECT_EQ(early, 0);
    EXPECT_GT(late, 3) << "the set, a picture, the folders";
    w.btnAbbr.onClick();
}

TEST_F(StartUp, WithoutACommandLineTheEditorIsReadyForANewSet) {
    for (const char* name : {"Alt", "Bild10", "bild2"}) makeSet(name, {});
    ASSERT_TRUE(start());
    auto& w = window();
    ASSERT_EQ(w.cboSets.count(), 3);
    EXPECT_EQ(w.cboSets.item(1), "bild2");
    EXPECT_EQ(w.set().classRow(1).name, "Klasse1");
    EXPECT_EQ(w.Timer2.interval(), 1000);
    EXPECT_FALSE(w.btnGrab.enabled());
    EXPECT_TRUE(w.fraFiles.visible());
    EXPECT_TRUE(user::close(w.form)) << "an empty set is never asked about";
}

TEST_F(StartUp, GrabIsThereWithItsToolAndTellsWhenItCannotBeStarted) {
    folder.write("Grelvin.exe", "no program");
    start();
    ASSERT_TRUE(window().btnGrab.enabled());
    platform::files::remove(folder.file("Grelvin.exe"));
    messages.expectPart("\"Grelvin.exe\" kann nicht gestartet werden.");
    user::press(window().btnGrab);
    EXPECT_EQ(messages.shown().back().codes, message::exclamation);
}

TEST_F(StartUp, ASetOnTheCommandLineIsOpenedAndTheChooserStaysEmpty) {
    ASSERT_TRUE(start(makeSet("Kopf", {.regions = {"Auge"}})));
    auto& w = window();
    EXPECT_EQ(w.cboSets.text(), "");
    EXPECT_EQ(w.set().sampleCount(), 3);
    EXPECT_EQ(current(), 1);
    EXPECT_EQ(w.kvPictureBox1.FileName(), folder.file("Picture\\Kopf\\bild1.bmp"));
    EXPECT_TRUE(w.unchanged());
    restart(folder.file("nirgends.kvs"));
    EXPECT_EQ(window().set().sampleCount(), 0) << "an argument that is no file is ignored";
    messages.expectPart("Die Stichprobe kann nicht geöffnet werden.");
    EXPECT_FALSE(start(writeSetFile("kaputt", "[Common]\r\nClasses=viele\r\n")));
}

TEST_F(StartUp, SettingsComeBackAndTheirKeysStay) {
    folder.write("Scripts\\Extract.kvr", "");
    start(makeSet("A", {}));  // without a set the toolbar is off, without a script its save button
    window().Slider1.setValue(2500);
    window().kvBar2.setPosition(300);
    window().kvBar3.setPosition(321);
    user::chooseMenu(window().Toolbar1, "btnSave", "btnSaveAllROI");
    const std::string layout = "50 77 60 40 1 3 2 4 ";
    window().lvCItems.setLayout(layout);
    window().form.move(platform::Rect::at(40, 50, 900, 700));
    user::check(window().chkStretch, true);
    restart();
    auto& w = window();
    const std::pair<const char*, std::string> stored[] = {{"Interval", "2500"},
                                                          {"PathROI", folder.file("Picture\\")},
                                                          {"SaveSatus", "btnSaveAllROI"},
                                                          {"Bar2", "300"},
                                                          {"Bar3", "321"},
                                                          {"lvCItems", layout}};
    for (const auto& [key, value] : stored) EXPECT_EQ(registry.read("Stich", key), value);
    EXPECT_EQ(w.Slider1.value(), 2500);
    EXPECT_EQ(w.kvBar3.position(), 321);
    EXPECT_EQ(w.lvCItems.layout(), layout);
    EXPECT_EQ(w.form.bounds(), platform::Rect::at(40, 50, 900, 700));
    EXPECT_TRUE(w.chkStretch.checked() && w.kvPictureBox1.Stretch());
    EXPECT_EQ(w.Toolbar1.button(w.Toolbar1.indexOf("btnSave")).toolTip, "Alle Regionen speichern");
}

TEST_F(StartUp, SettingsThatAreNoNumbersAreToldOnceAndTheDefaultsHold) {
    registry.write("Stich", "Interval", "schnell");
    registry.write("Stich", "Bar2", "");
    messages.expectPart(
        "\"Interval\" ist keine Zahl (\"schnell\"). Es gilt die Vorgabe.\r\nDie Einstellung \"Bar2\"");
    start();
    EXPECT_EQ(window().Slider1.value(), 1000);
    EXPECT_EQ(window().kvBar2.position(), 475);
    user::resize(window().form, {10, 700});
    EXPECT_EQ(window().form.bounds().width(), 640) << "as much as its contents need";
    EXPECT_EQ(window().form.clientSize().height, 700);
}

}  // namespace
