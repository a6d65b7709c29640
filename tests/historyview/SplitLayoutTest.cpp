#include "historyview/SplitLayout.h"

#include <gtest/gtest.h>

TEST(SplitLayout, GivesTheLastColumnWhatTheOthersLeave)
{
    constexpr int kGap = 5;
    const std::vector<std::pair<int, int>> window{{0, 200}, {0, 0}};
    const struct
    {
        const char* what;
        std::vector<std::pair<int, int>> columns; // minimum, ideal
        int total;
        std::vector<int> sizes;
    } rows[] = {
        {"wide", window, 600, {200, 395}},
        {"the detail pane shrinks first", window, 206, {200, 1}},
        {"a bar alone", window, 205, {202, 0}},
        {"narrower than the first pane", window, 150, {147, 0}},
        {"as wide as an edge", window, 3, {3, 0}},
        {"nothing", window, 0, {0, 0}},
        {"less than nothing", window, -7, {0, 0}},
        {"dragged to nothing", {{0, 0}, {0, 0}}, 100, {0, 95}},
        {"an ideal below the minimum", {{10, 9}, {0, 0}}, 100, {0, 95}},
        {"three columns", {{0, 100}, {0, 50}, {0, 0}}, 300, {100, 50, 140}},
        {"no room for the minimum of the second", {{0, 100}, {50, 60}, {0, 0}}, 130, {127, 0, 0}},
        {"no room for the minimum of the last", {{0, 100}, {0, 50}, {40, 0}}, 180, {100, 72, 0}},
        {"one column", {{0, 0}}, 80, {80}},
        {"none", {}, 80, {}},
    };
    for (const auto& row : rows)
    {
        std::vector<CSplitterWnd::CRowColInfo> columns;
        for (const auto& [minimum, ideal] : row.columns)
            columns.push_back({minimum, ideal, 77});
        LayOut(columns, row.total, kGap);
        std::vector<int> sizes;
        for (const auto& column : columns)
            sizes.push_back(column.nCurSize);
        EXPECT_EQ(sizes, row.sizes) << row.what;
    }
}
