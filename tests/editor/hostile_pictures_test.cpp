// Pictures that are damaged or made to do harm, in a set among good ones. On Windows the real decoders get
// them.
#include "tests/support/hostile_pictures.h"
#include "editor_fixture.h"
#include "tests/support/memory.h"
#include "tests/support/pictures.h"

namespace {

using support::HostilePicture;

#ifdef _WIN32
constexpr bool looksAtJpegs = true;
constexpr std::size_t mostMegabytes = 80;
#else
constexpr bool looksAtJpegs = false;        // the decoder in memory goes by their headers
constexpr std::size_t mostMegabytes = 600;  // the sanitizer holds back what is freed
#endif

constexpr std::size_t megabyte = 1U << 20;

class HostilePictures : public EditorTest {
  protected:
    static constexpr platform::Size size{16, 16};
    static platform::Colour colour(int row) { return static_cast<platform::Colour>(0x102030 + row); }

    /// A set in which a good picture follows each of these; it is open at its first row, a good one.
    void open(const std::vector<HostilePicture>& pictures) {
        std::string items, classes;
        int row = 0;
        const auto add = [&](const std::string& name, const std::string& bytes) {
            folder.write("Picture\\" + name, bytes);
            items += std::to_string(++row) + "=Picture\\" + name + "\r\n";
            classes += std::to_string(row) + "=" + std::to_string(1 + row % 3) + "\r\n";
        };
        const auto addGood = [&] {
            const platform::Colour plain = colour(row + 1);
            add("gut " + std::to_string(row + 1) + ".bmp",
                support::trueColourBitmap(size, [plain](int, int) { return plain; }));
        };
        addGood();
        for (const HostilePicture& picture : pictures) {
            add("bild" + std::to_string(row + 1) + picture.ending, picture.bytes);
            addGood();
        }
        writeSetFile("Probe", "[Common]\r\nClasses=3\r\nROIs=1\r\nItems=" + std::to_string(row) +
                                  "\r\n[Items]\r\n" + items + "[ROI0]\r\n" + classes);
        start();
        openByChooser("Probe");
        ASSERT_EQ(window().set().sampleCount(), row);
    }

    void next() { user::press(window().Toolbar1, "btnF"); }

    void expectGood(const std::string& what) {
        const auto& box = window().kvPictureBox1;
        EXPECT_FALSE(box.Failed()) << what;
        EXPECT_EQ(window().lblHint.caption(), "") << what;
        EXPECT_EQ((platform::Size{box.PicWidth(), box.PicHeight()}), size) << what;
        EXPECT_EQ(box.buffer().row(8)[8] & 0xFFFFFF, colour(current())) << what;
    }

    /// The labels are those of the file, and nothing counts as changed.
    void expectLabels() {
        EXPECT_TRUE(window().unchanged());
        for (int row = 1; row <= window().set().sampleCount(); ++row)
            ASSERT_EQ(window().ItemClasses(row, 0), row % 3) << row;
    }
};

TEST_F(HostilePictures, AreToldAndDoNoHarm) {
    const std::vector<HostilePicture> pictures = support::hostilePictures();
    ASSERT_NO_FATAL_FAILURE(open(pictures));
    const std::size_t before = support::mostMemory();
    for (const HostilePicture& picture : pictures) {
        const std::string what =
            picture.what + " " + picture.ending + " (" + std::to_string(current() + 1) + ")";
        next();
        const bool mayShow = picture.mayShow || (!looksAtJpegs && picture.ending == ".jpg");
        const bool failed = window().kvPictureBox1.Failed();
        EXPECT_TRUE(failed || mayShow) << what;
        const std::string hint = window().lblHint.caption();
        EXPECT_EQ(hint.starts_with("bild" + std::to_string(current()) + "."), failed) << what << ": " << hint;
        EXPECT_TRUE(!failed || hint.size() > std::string("bild1234.jpg: ").size()) << what;
        next();
        expectGood(what);
    }
    expectLabels();
    const std::size_t more = (support::mostMemory() - before) / megabyte;
    RecordProperty("more megabytes", static_cast<int>(more));
    EXPECT_LT(more, mostMegabytes);
}

}  // namespace
