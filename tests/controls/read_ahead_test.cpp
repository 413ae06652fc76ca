#include <chrono>
#include <random>
#include <thread>

#include "controls/picturebox/picture_store.h"
#include "picture_box_fixture.h"
#include "platform/files.h"
#include "tests/support/hanging_disk.h"

namespace {

using controls::PictureStore;

class ReadAhead : public PictureBoxTest {
  protected:
    static void fetchAll(PictureStore& store) {
        while (store.fetchOn()) nap();
    }
    static void fetchAll(controls::kvPictureBox& box) {
        while (box.FetchOn()) nap();
    }
    static void nap() { std::this_thread::sleep_for(std::chrono::milliseconds(1)); }

    std::vector<std::string> bitmaps(int count, platform::Size size) {
        std::vector<std::string> files;
        for (int i = 0; i < count; ++i)
            files.push_back(
                bitmap(std::to_string(i) + ".bmp", size, plain(0x101010u * (static_cast<unsigned>(i) + 1))));
        return files;
    }
    /// The first pixel of what comes to the screen.
    static platform::Colour shown(controls::PictureLoad load) {
        load.run(false);
        return load.result.picture.value().buffer.surface().row(8)[8] & 0xFFFFFF;
    }
};

TEST_F(ReadAhead, KeepsWhatIsExpectedAndNothingElse) {
    const auto files = bitmaps(4, {20, 10});
    PictureStore store;
    store.expect({files[1], files[0]}, 0);
    fetchAll(store);
    EXPECT_EQ(store.pictures(), 2u);
    auto taken = store.take(files[1]);
    ASSERT_TRUE(taken.ready);
    EXPECT_EQ(taken.ready->facts.words.bitCount, 24);
    EXPECT_EQ(shown(std::move(taken)), 0x202020u);
    store.expect({files[2], files[3]}, 0);
    fetchAll(store);
    EXPECT_EQ(store.pictures(), 2u) << "nobody expects the first one any more";
    for (const int i : {0, 1}) {
        const auto other = store.take(files[static_cast<std::size_t>(i)]);
        EXPECT_FALSE(other.ready) << "it is handed out once";
        EXPECT_TRUE(other.spare) << "the memory of one that is less wanted";
    }
    EXPECT_EQ(store.pictures(), 0u);
}

TEST_F(ReadAhead, WaitsForThePictureThatIsBeingDecoded) {
    const auto files = bitmaps(2, {1500, 1000});
    PictureStore store;
    store.expect({files[1]}, 0);
    ASSERT_TRUE(store.fetchOn());
    auto taken = store.take(files[1]);
    EXPECT_TRUE(taken.fetch);
    EXPECT_EQ(shown(std::move(taken)), 0x202020u);
}

TEST_F(ReadAhead, GoesOnBesideADiskThatHangs) {
    const auto files = bitmaps(4, {20, 10});
    support::HangingDisk disk;
    PictureStore store(1 << 20, std::chrono::milliseconds(0));
    const auto expectOnly = [&](std::vector<std::string> names) {
        store.expect(std::move(names), 0);
        return store.fetchOn();
    };
    disk.hang(true);
    ASSERT_TRUE(expectOnly({files[0]}));
    while (!disk.isStuck()) nap();
    disk.hang(false);
    EXPECT_TRUE(expectOnly({files[0], files[1]}));
    while (store.pictures() == 0) store.fetchOn();
    EXPECT_TRUE(store.take(files[1]).ready);

    // The user waits for the one that hangs and gives up.
    auto load = std::make_shared<controls::PictureLoad>(store.take(files[0]));
    ASSERT_TRUE(load->fetch);
    load->run(true);
    store.leave(load);
    load.reset();
    EXPECT_FALSE(expectOnly({files[0]})) << "it would hang as well";
    EXPECT_EQ(shown(store.take(files[0])), 0x101010u) << "who asks for it tries again";
    disk.letGo();
    while (!expectOnly({files[0]})) nap();
}

TEST_F(ReadAhead, AFileThatChangedIsNotWhatWasDecoded) {
    const auto files = bitmaps(3, {20, 10});
    PictureStore store;
    store.expect({files[0], files[1]}, 0);
    fetchAll(store);
    platform::files::remove(files[0]);
    folder.write("1.bmp", support::trueColourBitmap({20, 11}, plain(0)));
    auto gone = store.take(files[0]);
    EXPECT_TRUE(gone.ready);
    gone.run(false);
    EXPECT_FALSE(gone.result.picture);
    EXPECT_NE(gone.result.reason, "");
    EXPECT_EQ(shown(store.take(files[1])), 0u);
}

TEST_F(ReadAhead, TakesNoMoreMemoryThanItMay) {
    const platform::Size size{100, 100};
    const std::int64_t one = controls::PictureBuffer::bytesOf(size);
    const auto files = bitmaps(3, size);
    const struct {
        std::int64_t most;
        std::size_t pictures;
    } cases[] = {{one - 1, 0}, {one, 1}, {2 * one - 1, 1}, {2 * one, 2}, {9 * one, 3}};
    for (const auto& c : cases) {
        PictureStore store(c.most);
        store.expect(files, one);
        fetchAll(store);
        EXPECT_EQ(store.pictures(), c.pictures) << c.most;
        EXPECT_LE(store.bytes(), c.most);
        EXPECT_EQ(store.take(files[0]).ready.has_value(), c.pictures > 0) << "the likeliest is there first";
    }
    // What is kept gives way to what is likelier.
    PictureStore store(one);
    store.expect({files[0]}, one);
    fetchAll(store);
    store.expect({files[1], files[0]}, one);
    fetchAll(store);
    EXPECT_TRUE(store.take(files[1]).ready);
    EXPECT_FALSE(store.take(files[0]).ready);
}

// A control that reads ahead, rightly or wrongly, is told from one that does not by nothing.
TEST_F(ReadAhead, ChangesNothingOfWhatLoadPicDoes) {
    controls::kvPictureBox plainBox(form, "kvPictureBox2");
    std::vector<std::vector<int>> plainLoaded;
    std::vector<std::string> plainFailures;
    plainBox.LoadPicture = [&](int& width, int& height, int& planes, int& bits) {
        plainLoaded.push_back({width, height, planes, bits});
    };
    plainBox.onLoadFailed = [&](const std::string& reason) { plainFailures.push_back(reason); };

    std::mt19937 random(20);
    const auto below = [&](std::size_t count) { return static_cast<std::size_t>(random() % count); };
    const auto someBitmap = [&] {
        const platform::Size size{1 + static_cast<int>(below(40)), 1 + static_cast<int>(below(40))};
        return support::trueColourBitmap(size, plain(static_cast<platform::Colour>(random() & 0xFFFFFF)));
    };
    const std::vector<std::string> names{"a.bmp", "b.bmp", "c.bmp", "d.jpg",
                                         "e.jpg", "f.JPG", "g.png", "h.bmp"};
    std::vector<std::string> files;
    for (const auto& name : names) files.push_back(folder.write(name, someBitmap()));
    folder.write("d.jpg", support::smallJpeg());
    folder.write("e.jpg", support::jpegHeader({30, 20}));
    for (int step = 0; step < 300; ++step) {
        const std::string& file = files[below(files.size())];
        const auto act = below(10);
        // Of another length: the clock of a file may be too coarse to tell two that are written in a moment.
        if (act == 0) {
            const auto which = below(3);
            std::string content = someBitmap();
            while (content.size() == platform::files::version(files[which])->size) content = someBitmap();
            folder.write(names[which], content);
        }
        if (act == 1) folder.write("h.bmp", "BM");
        if (act == 2) platform::files::remove(files.back());
        if (act == 3) box.Expect({});
        if (act > 3) box.Expect({file, files[below(files.size())]});
        if (below(2) == 0) fetchAll(box);
        const std::string& shown = below(3) == 0 ? files[below(files.size())] : file;
        box.LoadPic(shown);
        plainBox.LoadPic(shown);
        ASSERT_EQ(loaded.size(), plainLoaded.size()) << "step " << step << ", " << shown;
        if (!loaded.empty()) {
            ASSERT_EQ(loaded.back(), plainLoaded.back()) << "step " << step << ", " << shown;
        }
        ASSERT_EQ(failures, plainFailures) << "step " << step;
        ASSERT_EQ(box.Failed(), plainBox.Failed());
        ASSERT_EQ(box.pictureDepth(), plainBox.pictureDepth());
        ASSERT_EQ(box.buffer().size(), plainBox.buffer().size());
        for (int y = 0; y < box.buffer().size().height; ++y)
            for (int x = 0; x < box.buffer().size().width; ++x)
                ASSERT_EQ(buffered(x, y), plainBox.buffer().row(y)[x] & 0xFFFFFF)
                    << shown << ' ' << x << ',' << y;
    }
}

}  // namespace
