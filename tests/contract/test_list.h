#pragma once

#include <gtest/gtest.h>

#include <algorithm>
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
            const std::string text = "Bild" + std::to_string(row);
            if (subItem == 0) return renamed.contains(row) ? renamed[row] : text;
            return text + "/" + std::to_string(subItem);
        };
        list.onItemClick = log("item");
        list.onSelectionChange = log("selection");
    }
    Rows selected() const {
        Rows rows;
        for (int row = list.firstSelected(); row != 0; row = list.nextSelected(row)) rows.push_back(row);
        EXPECT_EQ(static_cast<int>(rows.size()), list.selectedCount());
        return rows;
    }
    bool raisedOnce(const std::string& event) {
        const Events all = raised();
        return std::count(all.begin(), all.end(), event) == 1;
    }

    platform::Panel fraPage{form, "fraPage"};
    platform::ListView list;
    std::map<int, std::string> renamed;
};

}  // namespace contract
