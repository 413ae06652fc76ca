// Labelling: showing an item, giving it a class with one click, and the lines that tell what is shown.
#include <utility>

#include "editor/frmStich.h"
#include "editor/mListView.h"
#include "model/set_file_names.h"
#include "platform/application.h"
#include "platform/flagged.h"
#include "platform/path.h"
#include "platform/text.h"

namespace editor {

// A press that was made before the picture was on the screen cannot mean it: one that waited in the queue
// while the picture was decoded, the second half of a double click, a key that is held down.
bool frmStich::pressIsUnseen() const {
    using platform::application::Press;
    if (showingItem_) return true;
    const auto press = platform::application::currentPress();
    if (!press) return false;
    constexpr std::int32_t doubleClick = 200;  // milliseconds; who sees a picture and answers it needs longer
    const bool second = press->kind == Press::Kind::second;
    const auto seenFor = static_cast<std::int32_t>(press->time - seenAt_);
    return press->kind == Press::Kind::held ||
           seenFor < (second ? doubleClick : platform::application::inputTimeStep);
}

void frmStich::kvButtonList1_Click(std::int16_t classIndex) {
    if (pressIsUnseen()) return;
    const int row = mListView::GetSelectedIndex(lvCItems);
    if (row == 0) return;
    if (kvPictureBox1.GivenUp()) return GoToItem(row);  // it was never seen
    label(row, classIndex);
    if (row == set_.sampleCount()) {
        GoToItem(1);
        platform::application::beep();
    } else {
        GoToItem(row + 1);
    }
}

void frmStich::label(int row, std::int16_t classIndex) {
    const std::int16_t before = set_.classOf(row, cboROI.listIndex());
    set_.label(row, cboROI.listIndex(), classIndex);
    lvCItems.redraw(row);
    showCounts(before, classIndex);
}

void frmStich::GoToItem(int row) {
    lvCItems.selectOnly(row);
    lvCItems_ItemClick(row);
}

void frmStich::lvCItems_ItemClick(int) {
    if (showingItem_) return;  // who is showing one comes to it
    const platform::Flagged showing(showingItem_);
    platform::application::doEvents();
    if (const int row = showChosen()) ListView2.selectOnly(row);
}

void frmStich::ListView2_ItemClick(int row) {
    if ((sourceShift_ & platform::shiftKey::shift) != 0) return;
    // The picture on the screen is the one that a class button labels.
    lvCItems.selectOnly(row);
    if (showingItem_) return;
    const platform::Flagged showing(showingItem_);
    showChosen();
}

// The item that is chosen, and if events that were handled meanwhile chose another one, that: a key that is
// held down while a disk is slow must not nest one picture in the other. Answers its row, or 0.
int frmStich::showChosen() {
    for (;;) {
        const int row = mListView::GetSelectedIndex(lvCItems);
        if (row == 0 || row > set_.sampleCount()) break;
        if (showItem(row)) return row;
    }
    ShowInfoLine();  // of a picture that is none of the set's any more
    return 0;
}

// False when another item was chosen meanwhile, or this one removed, or the set is another one.
bool frmStich::showItem(int row) {
    const std::string file = ItemPath(row);
    const auto isChosen = [&] {
        return mListView::GetSelectedIndex(lvCItems) == row && row <= set_.sampleCount() &&
               ItemPath(row) == file;
    };
    const platform::application::WaitCursor wait;
    showPicture(file);
    seenAt_ = platform::application::inputTime();
    if (!isChosen()) return false;
    const int before = std::exchange(shownRow_, row);
    ShowInfoLine();
    expectAround(row, before);
    return true;
}

namespace {

/// The row so many steps away, from the last one on to the first and back.
int rowAt(int row, int steps, int count) {
    return (row - 1 + steps + count) % count + 1;
}

/// The picture control tells kinds by their lower-case endings; to Windows "A.JPG" is the same file.
std::string fileToShow(const std::string& file) {
    const std::string ending = platform::path::extension(file);
    const std::string folded = platform::text::foldCase(ending);
    if (folded != ".bmp" && folded != ".jpg") return file;
    return file.substr(0, file.size() - ending.size()) + folded;
}

}  // namespace

void frmStich::showPicture(const std::string& file) {
    tell("");
    shownFile_ = platform::path::fileName(file);
    kvPictureBox1.LoadPic(fileToShow(file));
}

// While the user looks at one picture, the next one in the direction of his steps is decoded, and the one
// before. It begins when he has come to rest: who jumps about has the whole machine for what he jumps to.
void frmStich::expectAround(int row, int before) {
    const int count = set_.sampleCount();
    if (row != before) browsing_ = before > 0 && count > 2 && row == rowAt(before, -1, count) ? -1 : 1;
    std::vector<std::string> files;
    for (const int steps : {browsing_, -browsing_})
        if (const int next = rowAt(row, steps, count); next != row)
            files.push_back(fileToShow(ItemPath(next)));
    kvPictureBox1.Expect(std::move(files));
    Timer3.setEnabled(true);
}

// The line under the picture is there only while it has something to say.
void frmStich::tell(const std::string& hint) {
    hint_ = hint;
    const std::string& line = hint.empty() ? journal_.problem() : hint;
    lblHint.setCaption(line);
    if (lblHint.visible() == !line.empty()) return;
    lblHint.setVisible(!line.empty());
    layOut();
}

void frmStich::NumberItems() {
    ListView2.setCount(set_.sampleCount());
    lvCItems.setCount(set_.sampleCount());
    lvCClasses.redrawAll();  // it counts them
}

void frmStich::SetItemCount(int count) {
    txtPicCount.setText(std::to_string(count) + " Elemente");
    EnableToolbar1(count >= 1);
}

void frmStich::SetPicSize(int width, int height, int, int bitsPerPixel) {
    if (width + height == 0) {
        txtSize.setText("");
        return;
    }
    txtSize.setText(std::to_string(width) + " x " + std::to_string(height) + " Pixel, " +
                    std::to_string(bitsPerPixel) + " Bit Farbtiefe");
}

int frmStich::ShowInfoLine() {
    const int region = kvPictureBox1.GetSelectedROI();
    const int row = mListView::GetSelectedIndex(lvCItems);
    const std::string name =
        region == -1 ? std::string(model::set_file::wholePicture) : set_.regionRow(region + 1).name;
    const std::string file = row == 0 ? shownFile_ : set_.sampleName(row);
    txtInfo.setText("Bereich: " + name + "   Datei: " + file);
    return 0;
}

}  // namespace editor
