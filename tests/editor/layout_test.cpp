#include "editor_fixture.h"

#include "platform/metrics.h"

namespace {

using platform::Control;
using platform::Rect;

class Layout : public EditorTest {
  protected:
    std::vector<const Control*> page(int number) {
        auto& w = window();
        switch (number) {
            case 1:
                return {&w.lblPath, &w.txtPath, &w.btnPath,   &w.ListView1, &w.btn,        &w.btn_A,
                        &w.btnR,    &w.btnRA,   &w.ListView2, &w.chkDouble, &w.txtPicCount};
            case 2:
                return {&w.lvCClasses,      &w.btnCNew,         &w.btnCDel,     &w.btnCRename, &w.btnCStd,
                        &w.lblCDescription, &w.txtCDescription, &w.lblStdClass, &w.cboStdClass};
            default:
                return {&w.lvROIs,
                        &w.btnROIDel,
                        &w.btnROIRename,
                        &w.lblROIDescription,
                        &w.txtROIDescription,
                        &w.lblROICaption,
                        &w.lblX,
                        &w.txtX,
                        &w.lblY,
                        &w.txtY,
                        &w.lblDX,
                        &w.txtDX,
                        &w.lblDY,
                        &w.txtDY};
        }
    }
    std::vector<const Control*> always() {
        auto& w = window();
        return {&w.lblSets,         &w.cboSets,    &w.btnSave,       &w.btnGrab,       &w.btnOK,
                &w.btnAbbr,         &w.TabStrip1,  &w.lblROI,        &w.cboROI,        &w.lvCItems,
                &w.Toolbar1,        &w.txtTime,    &w.Slider1,       &w.lblHint,       &w.txtInfo,
                &w.txtSize,         &w.chkStretch, &w.kvPictureBox1, &w.kvButtonList1, &w.kvBar2.control(),
                &w.kvBar3.control()};
    }
    static void expectApart(const std::vector<const Control*>& controls, platform::Size room) {
        for (std::size_t i = 0; i < controls.size(); ++i) {
            const Rect a = controls[i]->bounds();
            SCOPED_TRACE(controls[i]->name());
            const int least = controls[i]->name().starts_with("kvBar") ? 5 : 10;
            EXPECT_GE(a.width(), least);
            EXPECT_GE(a.height(), least);
            EXPECT_GE(a.left, 0);
            EXPECT_GE(a.top, 0);
            EXPECT_LE(a.right, room.width);
            EXPECT_LE(a.bottom, room.height);
            for (std::size_t j = 0; j < i; ++j) {
                EXPECT_TRUE(intersect(a, controls[j]->bounds()).empty())
                    << "overlaps " << controls[j]->name();
            }
        }
    }
};

TEST_F(Layout, NothingIsCutOffOrOverlapsAtAnySize) {
    ASSERT_TRUE(
        start(makeSet("A", {.classes = {"gut", "ein sehr langer Klassenname mit vielen Zeichen darin"}})));
    auto& w = window();
    w.kvPictureBox1.onLoadFailed("Das Bild kann nicht gelesen werden.");
    for (const platform::Size client : {platform::Size{624, 361}, {1000, 660}, {1900, 1000}}) {
        for (const auto& [bar2, bar3] : {std::pair{360, 360}, {0, 0}, {5000, 5000}}) {
            w.kvBar2.setPosition(bar2);
            w.kvBar3.setPosition(bar3);
            user::resize(w.form, client);
            w.form.onResize();
            SCOPED_TRACE(std::to_string(client.width) + " bars " + std::to_string(bar2));
            expectApart(always(), w.form.clientSize());
            for (int number = 1; number <= 3; ++number) {
                const platform::Panel& panel = number == 1   ? w.fraFiles
                                               : number == 2 ? w.fraClasses
                                                             : w.fraROIs;
                expectApart(page(number), {panel.bounds().width(), panel.bounds().height()});
            }
        }
    }
}

TEST_F(Layout, ThePictureIsTheBiggestThing) {
    start();
    auto& w = window();
    user::resize(w.form, {1000, 660});
    const auto area = [](const Control& c) { return c.bounds().width() * c.bounds().height(); };
    for (const Control* other : always()) {
        if (other == &w.kvPictureBox1) continue;
        EXPECT_GT(area(w.kvPictureBox1), area(*other)) << other->name();
    }
}

TEST_F(Layout, TabsShowTheirPages) {
    start();
    auto& w = window();
    for (int number = 1; number <= 3; ++number) {
        user::selectTab(w.TabStrip1, number);
        EXPECT_EQ(w.fraFiles.visible(), number == 1);
        EXPECT_EQ(w.fraClasses.visible(), number == 2);
        EXPECT_EQ(w.fraROIs.visible(), number == 3);
    }
}

}  // namespace
