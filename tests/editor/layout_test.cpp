#include "editor_fixture.h"

#include <algorithm>

namespace {

using platform::Control;
using platform::Rect;

class Layout : public EditorTest {
  protected:
    /// What can be seen in a window or on a page, without the pages themselves.
    static std::vector<const Control*> controlsIn(const platform::Container& container) {
        std::vector<const Control*> found;
        for (const Control* control : user::childrenOf(container))
            if (control->visible() && !control->name().starts_with("fra")) found.push_back(control);
        return found;
    }
    static void expectApart(const platform::Container& container) {
        const Rect room = Rect::at(0, 0, container.clientSize().width, container.clientSize().height);
        const auto controls = controlsIn(container);
        EXPECT_GT(controls.size(), 8u);
        for (std::size_t i = 0; i < controls.size(); ++i) {
            const Rect a = controls[i]->bounds();
            SCOPED_TRACE(controls[i]->name());
            EXPECT_GE(std::min(a.width(), a.height()), controls[i]->name().starts_with("kvBar") ? 5 : 10);
            EXPECT_EQ(intersect(a, room), a);
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_TRUE(intersect(a, controls[j]->bounds()).empty())
                    << "overlaps " << controls[j]->name();
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
            expectApart(w.form);
            for (const platform::Panel* page : {&w.fraFiles, &w.fraClasses, &w.fraROIs}) expectApart(*page);
        }
    }
}

}  // namespace
