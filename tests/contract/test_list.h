#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "platform/list_view.h"
#include "tests/contract/test_window.h"

namespace contract {

using Rows = std::vector<int>;

/// A list with three columns on a page of its own.
struct ListWindow : TestWindow {
    explicit ListWindow(platform::ListView::Options options = {.multiSelect = true, .editLabels = true})
        : list(fraPage, "lv", {{"Nr.", 8, platform::ListView::Align::right}, {"Datei", 20}, {"Klasse", 10}},
               options) {
        fraPage.move(platform::Rect::at(0, 0, 500, 350));
        list.move(platform::Rect::at(0, 0, 400, 300));
        list.cell = [this](int row, int subItem) {
            return subItem == 0 && renamed.contains(row) ? renamed[row] : text(row, subItem);
        };
        list.onItemClick = [this](int row) { events.push_back("item " + std::to_string(row)); };
        list.onSelectionChange = log("selection");
    }
    static std::string text(int row, int subItem) {
        return "Bild" + std::to_string(row) + (subItem == 0 ? "" : "/" + std::to_string(subItem));
    }
    Rows selected() const {
        Rows rows;
        for (int row = list.firstSelected(); row != 0; row = list.nextSelected(row)) rows.push_back(row);
        EXPECT_EQ(static_cast<int>(rows.size()), list.selectedCount());
        return rows;
    }
    bool raisedOnce(const std::string& event) {
        int times = 0;
        for (const std::string& e : raised()) times += e == event;
        return times == 1;
    }

    platform::Panel fraPage{form, "fraPage"};
    platform::ListView list;
    std::map<int, std::string> renamed;
};

}  // namespace contract
